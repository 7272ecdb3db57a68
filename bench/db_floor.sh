#!/usr/bin/env bash
# The floor under bench_db: the same point SELECTs and INSERTs through the engines' own clients.
#   sqlite3 CLI: 10,000 literal point SELECTs and 10,000 literal INSERTs in one transaction
#   pgbench -S:  select-only point queries on the test cluster (scripts/pg-test-cluster start)
#   psql:        the same 10,000 INSERTs in one transaction, one round trip per statement
set -euo pipefail
rows=10000
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
db=$work/floor.sqlite

create="CREATE TABLE CHUMON (ID INTEGER PRIMARY KEY, 受注日 VARCHAR(10), 出荷日 VARCHAR(10),
  氏名 VARCHAR(40), 住所 VARCHAR(100), 電話番号 VARCHAR(20), 宅配業者 VARCHAR(20),
  出荷伝票番号 VARCHAR(20), 商品代金 INTEGER, 送料 INTEGER, 消費税 INTEGER, 請求額 INTEGER);"

{
  echo "BEGIN;"
  for ((id = 1; id <= rows; id++)); do
    echo "INSERT INTO CHUMON VALUES ($id, '2024/04/01', '2024/04/03', '山田 太郎$id', '東京都千代田区丸の内1-$id', '03-0000-$id', 'ヤマト', NULL, $((1000 + id % 5000)), 800, 100, 1900);"
  done
  echo "COMMIT;"
} >"$work/insert.sql"
for ((id = 1; id <= rows; id++)); do echo "SELECT * FROM CHUMON WHERE ID = $id;"; done >"$work/select.sql"

seconds() { local start end; start=$(date +%s.%N); "$@" >/dev/null; end=$(date +%s.%N); echo "$end - $start" | bc -l; }

for run in 1 2 3 4 5; do
  rm -f "$db" "$db-wal" "$db-shm"
  sqlite3 "$db" "PRAGMA journal_mode=WAL;" "$create" >/dev/null
  insert=$(seconds sqlite3 -cmd "PRAGMA synchronous=NORMAL;" "$db" <"$work/insert.sql")
  select=$(seconds sqlite3 "$db" <"$work/select.sql")
  printf 'sqlite3 run %d: insert %.0f rows/s, point select %.2f us\n' "$run" \
    "$(echo "$rows / $insert" | bc -l)" "$(echo "$select * 1000000 / $rows" | bc -l)"
done

url=${LUPIN_TEST_PG_URL:-$("$(dirname "$0")/../scripts/pg-test-cluster" url)}
base=${url%/*}
PGOPTIONS="-c client_min_messages=warning" psql -q "$base/postgres" -c "DROP DATABASE IF EXISTS lupin_floor" -c "CREATE DATABASE lupin_floor" >/dev/null
pgbench -q -i -s 1 "$base/lupin_floor" >/dev/null 2>&1
for run in 1 2 3 4 5; do
  latency=$(pgbench -S -c 1 -j 1 -t "$rows" "$base/lupin_floor" 2>/dev/null | awk '/latency average/ {print $4}')
  echo "pgbench -S run $run: point select $latency ms"
done
psql -q "$base/lupin_floor" -c "${create//CHUMON/chumon}"
for run in 1 2 3; do
  psql -q "$base/lupin_floor" -c "TRUNCATE chumon"
  insert=$(seconds psql -q "$base/lupin_floor" -f "$work/insert.sql")
  printf 'psql run %d: insert %.0f rows/s\n' "$run" "$(echo "$rows / $insert" | bc -l)"
done
psql -q "$base/postgres" -c "DROP DATABASE lupin_floor" >/dev/null
