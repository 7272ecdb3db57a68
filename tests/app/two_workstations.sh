#!/usr/bin/env bash
# Two workstations as two processes on one PostgreSQL database, many rounds at the same time: each
# stages, books and numbers its own slips, and never sees or touches the other's rows.
set -euo pipefail
lupinprint=$1
rounds=${2:-8}
[ -n "${LUPIN_TEST_PG_URL:-}" ] || { echo "FAILED: LUPIN_TEST_PG_URL is not set" >&2; exit 1; }
work=$(mktemp -d)
schema="two_ws_$$"
export XDG_CONFIG_HOME="$work/xdg" XDG_DATA_HOME="$work/data" LUPIN_MACHINE_INI="$work/xdg/machine.ini"
cleanup() { psql -q "$LUPIN_TEST_PG_URL" -c "DROP SCHEMA IF EXISTS $schema CASCADE" >/dev/null 2>&1 || true; rm -rf "$work"; }
trap cleanup EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

psql -q "$LUPIN_TEST_PG_URL" -c "CREATE SCHEMA $schema" >/dev/null
url="$LUPIN_TEST_PG_URL?options=-csearch_path%3D$schema"
"$lupinprint" init --db "$url" --demo 200 --seed 3 --settings "$work/settings" >/dev/null 2>&1
q() { psql -tA "$url" -c "$1"; }

ids=($(q "SELECT id FROM chumon WHERE (宅配業者 LIKE '%ヤマト%' OR 宅配業者 LIKE '%クロネコ%')
          AND COALESCE(贈答先氏名, '') = '' ORDER BY id LIMIT 6"))
[ ${#ids[@]} = 6 ] || fail "the demo data has fewer than six Yamato orders"
first="${ids[0]},${ids[1]},${ids[2]}"
second="${ids[3]},${ids[4]},${ids[5]}"

workstation() {  # client ids denno
  local i
  for ((i = 0; i < rounds; i++)); do
    "$lupinprint" run --db "$url" --login "担当,1,$1" --report 25 --settings "$work/settings" \
      --home "$work/$1" --clear-criteria --only "$2" --denno "$3" --book --quiet \
      >>"$work/$1.log" 2>&1 || { echo "round $i of $1 failed" >>"$work/$1.log"; return 1; }
    # Between rounds the workstation's staging must hold exactly its own orders.
    [ "$(q "SELECT string_agg(id::text, ',' ORDER BY id) FROM wk_print WHERE client_name = '$1'")" = "$2" ] ||
      { echo "round $i of $1 saw foreign staging rows" >>"$work/$1.log"; return 1; }
  done
}
mkdir -p "$work/PC01" "$work/PC02"
workstation PC01 "$first" 1234-5678-9019 & a=$!
workstation PC02 "$second" 2234-5678-9016 & b=$!
status=0
wait $a || status=1
wait $b || status=1
[ $status = 0 ] || { cat "$work"/PC0*.log >&2; fail "a workstation's run failed"; }

[ "$(q "SELECT COUNT(*) FROM wk_print")" = 6 ] || fail "staging rows were lost or doubled"
[ "$(q "SELECT COUNT(*) FROM printed WHERE report_no = 25")" = 6 ] || fail "one ledger row per order expected"
[ "$(q "SELECT MIN(cnt) FROM printed WHERE report_no = 25")" -ge 1 ] || fail "ledger count"
numbered=$(q "SELECT COUNT(*) FROM chumon WHERE id IN ($first,$second) AND COALESCE(出荷伝票番号, '') <> ''")
[ "$numbered" = 6 ] || fail "every slip should carry a waybill number, $numbered do"
# Each workstation's numbers come from its own series.
[ "$(q "SELECT COUNT(*) FROM chumon WHERE id IN ($first) AND 出荷伝票番号 LIKE '1234%'")" = 3 ] || fail "PC01 series"
[ "$(q "SELECT COUNT(*) FROM chumon WHERE id IN ($second) AND 出荷伝票番号 LIKE '2234%'")" = 3 ] || fail "PC02 series"
echo "1 passed, 0 failed"
