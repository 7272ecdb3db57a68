#!/usr/bin/env bash
# The command line as a script uses it: a demo database on SQLite and on PostgreSQL, read back with
# the engines' own tools, the catalogue, one order's tax, and an e-飛伝 file written by a run.
set -euo pipefail
lupinprint=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
# Never touch the real settings of the machine or the user.
export XDG_CONFIG_HOME="$work/xdg" XDG_DATA_HOME="$work/data" LUPIN_MACHINE_INI="$work/xdg/machine.ini"

# SQLite: init, then read back with sqlite3.
db="$work/demo.db"
"$lupinprint" init --db "sqlite:$db" --demo 300 --seed 7 --home "$work/home" --settings "$work/settings" >/dev/null
[ "$(sqlite3 "$db" 'SELECT COUNT(*) FROM CHUMON')" = 300 ] || fail "sqlite CHUMON count"
[ "$(sqlite3 "$db" 'SELECT COUNT(*) FROM CHUMON_D WHERE ID = 1')" -ge 1 ] || fail "sqlite CHUMON_D lines"
[ "$(sqlite3 "$db" "SELECT REPORT_NAME FROM REPORT WHERE REPORT_NO = 0")" = "納品書" ] || fail "REPORT row 0"

# A second init with demo data must refuse rather than mix orders.
if "$lupinprint" init --db "sqlite:$db" --demo 10 >/dev/null 2>&1; then fail "second init accepted"; fi

listing=$("$lupinprint" catalogue --db "sqlite:$db")
grep -q "ヤマト宅配伝票" <<<"$listing" || fail "catalogue listing"

# The order-tax service rewrites CHUMON_T of one order.
sqlite3 "$db" 'DELETE FROM CHUMON_T WHERE ID = 5'
"$lupinprint" tax --db "sqlite:$db" --id 5 --settings "$work/settings" >/dev/null
[ "$(sqlite3 "$db" 'SELECT COUNT(*) FROM CHUMON_T WHERE ID = 5')" = 1 ] || fail "tax did not write CHUMON_T"

# A file report: e-飛伝III for three Sagawa orders of the list, then the ledger under 91.
out="$work/ehiden.csv"
ids=$(sqlite3 "$db" "SELECT ID FROM CHUMON WHERE 宅配業者 LIKE '%佐川%' AND 電話番号 <> '' AND 住所 <> ''
  AND IFNULL(贈答先氏名, '') = '' ORDER BY ID LIMIT 3" | paste -sd, -)
[ -n "$ids" ] || fail "no Sagawa orders in the demo data"
printf '雑貨類\r\n' > "$work/home/hinmei.txt"   # every parcel's item name
"$lupinprint" run --db "sqlite:$db" --login 山田,1,PC01 --report 104 --home "$work/home" \
  --settings "$work/settings" --set "EHidenPath=$out" --clear-criteria --only "$ids" --quiet
[ -s "$out" ] || fail "e-飛伝 file missing"
[ "$(wc -l < "$out")" = 4 ] || fail "e-飛伝 file should hold a header and three lines"
text=$(iconv -f CP932 -t UTF-8 < "$out")
grep -q "お届け先" <<<"$text" || fail "e-飛伝 header"
[ "$(grep -c '"雑貨類"' <<<"$text")" = 3 ] || fail "hinmei.txt did not name the goods"
[ "$(sqlite3 "$db" 'SELECT COUNT(*) FROM PRINTED WHERE REPORT_NO = 91')" = 3 ] || fail "ledger under 91"

# The selection statement of a page report.
statement=$("$lupinprint" run --db "sqlite:$db" --report 25 --sql)
grep -q "FROM \[CHUMON\]" <<<"$statement" || fail "run --sql"

# PostgreSQL: the same init into a fresh schema, read back with psql.
if [ -n "${LUPIN_TEST_PG_URL:-}" ]; then
  schema="cli_smoke_$$"
  psql -q "$LUPIN_TEST_PG_URL" -c "CREATE SCHEMA $schema" >/dev/null
  url="$LUPIN_TEST_PG_URL?options=-csearch_path%3D$schema"
  trap 'psql -q "$LUPIN_TEST_PG_URL" -c "DROP SCHEMA IF EXISTS '"$schema"' CASCADE" >/dev/null 2>&1; rm -rf "$work"' EXIT
  "$lupinprint" init --db "$url" --demo 300 --seed 7 >/dev/null
  [ "$(psql -tA "$url" -c 'SELECT COUNT(*) FROM chumon')" = 300 ] || fail "postgres CHUMON count"
  # Both engines hold the same demo data for a seed.
  a=$(sqlite3 "$db" "SELECT ID || '|' || 氏名 || '|' || 住所 FROM CHUMON WHERE ID IN (1, 150, 300) ORDER BY ID")
  b=$(psql -tA "$url" -c "SELECT id || '|' || 氏名 || '|' || 住所 FROM chumon WHERE id IN (1, 150, 300) ORDER BY id")
  [ "$a" = "$b" ] || fail "engines disagree on demo data"
else
  fail "LUPIN_TEST_PG_URL is not set: the PostgreSQL half cannot run"
fi
echo "1 passed, 0 failed"
