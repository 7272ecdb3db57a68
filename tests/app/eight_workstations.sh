#!/usr/bin/env bash
# Eight workstations as eight processes on one PostgreSQL database, at the same time, over
# overlapping orders: each round prints Yamato slips (staging, ledger, waybill numbers) and writes
# an e-飛伝 file. Afterwards no workstation saw another's staging rows, the ledger holds exactly
# what the runs imply, no run numbered two orders alike, and no run failed on a lock.
#   eight_workstations.sh LUPINPRINT [ROUNDS]      (LOAD_ROUNDS overrides; CI keeps it short)
set -euo pipefail
lupinprint=$1
rounds=${LOAD_ROUNDS:-${2:-6}}
stations=8
[ -n "${LUPIN_TEST_PG_URL:-}" ] || { echo "FAILED: LUPIN_TEST_PG_URL is not set" >&2; exit 1; }
work=$(mktemp -d)
schema="eight_ws_$$"
export XDG_CONFIG_HOME="$work/xdg" LUPIN_MACHINE_INI="$work/xdg/machine.ini"
cleanup() { psql -q "$LUPIN_TEST_PG_URL" -c "DROP SCHEMA IF EXISTS $schema CASCADE" >/dev/null 2>&1 || true; rm -rf "$work"; }
trap cleanup EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

psql -q "$LUPIN_TEST_PG_URL" -c "CREATE SCHEMA $schema" >/dev/null
url="$LUPIN_TEST_PG_URL?options=-csearch_path%3D$schema"
"$lupinprint" init --db "$url" --demo 400 --seed 5 --settings "$work/settings" >/dev/null 2>&1
q() { psql -tA "$url" -c "$1"; }

yamato=($(q "SELECT id FROM chumon WHERE (宅配業者 LIKE '%ヤマト%' OR 宅配業者 LIKE '%クロネコ%')
             AND COALESCE(贈答先氏名, '') = '' ORDER BY id LIMIT 12"))
sagawa=($(q "SELECT id FROM chumon WHERE 宅配業者 LIKE '%佐川%' AND 電話番号 <> '' AND 住所 <> ''
             AND COALESCE(贈答先氏名, '') = '' ORDER BY id LIMIT 12"))
[ ${#yamato[@]} = 12 ] && [ ${#sagawa[@]} = 12 ] || fail "the demo data has too few Yamato or Sagawa orders"

# Workstation w in round r takes six of the twelve orders from (w + r) on: every order is shared.
pick() {  # pool-name w r
  local -n pool=$1
  local k out=()
  for ((k = 0; k < 6; k++)); do out+=("${pool[$(((${2} + ${3} + k * 2) % 12))]}"); done
  printf '%s\n' "${out[@]}" | sort -n | paste -sd, -
}

workstation() {  # w
  local w=$1 client="WS0$1" r ids expect denno prefix numbers exported
  local home="$work/$client" log="$work/$client.log"
  mkdir -p "$home"
  # Each workstation has its own user settings, as each has its own login on its own machine.
  cp -r "$work/settings" "$home/settings"
  printf '雑貨類\r\n' >"$home/hinmei.txt"
  for ((r = 0; r < rounds; r++)); do
    ids=$(pick yamato "$w" "$r")
    prefix=$(printf '%d%02d' "$w" "$r")
    denno="${prefix}000000000"
    "$lupinprint" run --db "$url" --login "担当,1,$client" --report 25 --settings "$home/settings" \
      --home "$home" --clear-criteria --only "$ids" --denno "$denno" --book --quiet >"$home/run.log" 2>&1 ||
      { cat "$home/run.log" >>"$log"; echo "print round $r of $client failed" >>"$log"; return 1; }
    cat "$home/run.log" >>"$log"
    grep -q '伝票番号 6 件' "$home/run.log" || { echo "round $r of $client numbered no slips" >>"$log"; return 1; }
    [ "$(q "SELECT string_agg(id::text, ',' ORDER BY id) FROM wk_print WHERE client_name = '$client'")" = "$ids" ] ||
      { echo "round $r of $client: its staging rows were touched" >>"$log"; return 1; }
    # Numbers of this run still standing must be distinct (others may have renumbered some since).
    numbers=$(q "SELECT COUNT(*) - COUNT(DISTINCT 出荷伝票番号) FROM chumon WHERE 出荷伝票番号 LIKE '${prefix}%'")
    [ "$numbers" = 0 ] || { echo "round $r of $client gave one number twice" >>"$log"; return 1; }

    exported=$(pick sagawa "$w" "$r")
    "$lupinprint" run --db "$url" --login "担当,1,$client" --report 104 --settings "$home/settings" \
      --home "$home" --set "EHidenPath=$home/ehiden.csv" --clear-criteria --only "$exported" --quiet >>"$log" 2>&1 ||
      { echo "export round $r of $client failed" >>"$log"; return 1; }
    [ "$(wc -l <"$home/ehiden.csv")" = 7 ] || { echo "round $r of $client: e-飛伝 file incomplete" >>"$log"; return 1; }
    tr ',' '\n' <<<"$exported" >>"$work/$client.exported"
    tr ',' '\n' <<<"$ids" >>"$work/$client.printed"
  done
  sed -i 's/\r//' "$log"
  ! grep -Eq 'deadlock|could not serialize|duplicate key|エラー' "$log" || { echo "$client met a lock" >>"$log"; return 1; }
}

pids=()
for ((w = 1; w <= stations; w++)); do workstation "$w" & pids+=($!); done
status=0
for pid in "${pids[@]}"; do wait "$pid" || status=1; done
[ $status = 0 ] || { tail -n 5 "$work"/WS0*.log >&2; fail "a workstation's run failed"; }

# Staging: each workstation holds exactly the six orders of its last round.
[ "$(q "SELECT COUNT(*) FROM wk_print")" = $((stations * 6)) ] || fail "staging rows were lost or doubled"
# Printed slips: one ledger row per order ever printed, its count never raised by a print.
printed=$(sort -u "$work"/WS0*.printed | wc -l)
[ "$(q "SELECT COUNT(*) FROM printed WHERE report_no = 25")" = "$printed" ] || fail "slip ledger rows"
[ "$(q "SELECT MAX(cnt) FROM printed WHERE report_no = 25")" = 1 ] || fail "a print raised the count"
# Exports: one row per order, its count the number of files it went into.
expected=$(sort "$work"/WS0*.exported | uniq -c | awk '{print $2 "|" $1}' | sort)
actual=$(q "SELECT id || '|' || cnt FROM printed WHERE report_no = 91" | sort)
[ "$expected" = "$actual" ] || fail "export ledger counts differ from the runs: $(diff <(echo "$expected") <(echo "$actual") | head -5)"
# Every printed order carries a number of some run's series.
[ "$(q "SELECT COUNT(*) FROM chumon WHERE id IN ($(sort -u "$work"/WS0*.printed | paste -sd, -)) AND 出荷伝票番号 ~ '^[1-8][0-9]{2}'")" = "$printed" ] ||
  fail "a printed slip has no waybill number"
echo "$((stations * rounds * 2)) runs on $stations workstations; 1 passed, 0 failed"
