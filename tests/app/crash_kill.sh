#!/usr/bin/env bash
# Staging, bookkeeping and exports killed with SIGKILL at random moments, on SQLite and on
# PostgreSQL. After every kill: the output file is the old one or a complete new one, never a part;
# staging, ledger and waybill numbers are each all there or not there; and the next run works.
#   crash_kill.sh LUPINPRINT [TRIALS_PER_ENGINE]     (CRASH_TRIALS overrides; CI keeps it short)
set -euo pipefail
lupinprint=$1
trials=${CRASH_TRIALS:-${2:-100}}
work=$(mktemp -d)
schema="crash_$$"
export XDG_CONFIG_HOME="$work/xdg" LUPIN_MACHINE_INI="$work/xdg/machine.ini"
cleanup() {
  [ -n "${LUPIN_TEST_PG_URL:-}" ] && psql -q "$LUPIN_TEST_PG_URL" -c "DROP SCHEMA IF EXISTS $schema CASCADE" >/dev/null 2>&1
  rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "FAILED ($engine, trial $trial): $*" >&2; exit 1; }
RANDOM=${CRASH_SEED:-$$}

setup() {  # engine
  engine=$1 trial=setup
  if [ "$engine" = sqlite ]; then
    url="sqlite:$work/crash.db"
    q() { sqlite3 -cmd ".timeout 10000" "$work/crash.db" "$1"; }
  else
    [ -n "${LUPIN_TEST_PG_URL:-}" ] || fail "LUPIN_TEST_PG_URL is not set"
    psql -q "$LUPIN_TEST_PG_URL" -c "CREATE SCHEMA $schema" >/dev/null
    url="$LUPIN_TEST_PG_URL?options=-csearch_path%3D$schema"
    q() { psql -tA "$url" -c "$1"; }
  fi
  "$lupinprint" init --db "$url" --demo 300 --seed 9 --settings "$work/settings" >/dev/null 2>&1
  yamato=($(q "SELECT ID FROM CHUMON WHERE (宅配業者 LIKE '%ヤマト%' OR 宅配業者 LIKE '%クロネコ%')
               AND COALESCE(贈答先氏名, '') = '' ORDER BY ID LIMIT 10"))
  sagawa=($(q "SELECT ID FROM CHUMON WHERE 宅配業者 LIKE '%佐川%' AND 電話番号 <> '' AND 住所 <> ''
               AND COALESCE(贈答先氏名, '') = '' ORDER BY ID LIMIT 10"))
  [ ${#yamato[@]} = 10 ] && [ ${#sagawa[@]} = 10 ] || fail "too few Yamato or Sagawa orders"
  home="$work/home-$engine"
  mkdir -p "$home"
  printf '雑貨類\r\n' >"$home/hinmei.txt"
}

pick() {  # pool-name: six distinct orders, sorted
  local -n pool=$1
  printf '%s\n' "${pool[@]}" | shuf -n 6 --random-source=<(yes $RANDOM) | sort -n | paste -sd, -
}

staged() { q "SELECT ID FROM WK_PRINT WHERE CLIENT_NAME = 'CRASH' ORDER BY ID" | paste -sd, -; }
export_cnt() { q "SELECT COALESCE(SUM(CNT), 0) FROM PRINTED WHERE REPORT_NO = 91"; }
checksum() { [ -f "$1" ] && md5sum <"$1" | cut -d' ' -f1 || echo none; }

# Each runs lupinprint in place of the shell that calls it, so a kill reaches lupinprint itself.
print_run() {  # ids denno
  exec "$lupinprint" run --db "$url" --login "担当,1,CRASH" --report 25 --settings "$work/settings" --home "$home" \
    --clear-criteria --only "$1" --denno "$2" --book --pdf "$home/slips.pdf" --quiet
}
export_run() {  # ids
  exec "$lupinprint" run --db "$url" --login "担当,1,CRASH" --report 104 --settings "$work/settings" --home "$home" \
    --set "EHidenPath=$home/ehiden.csv" --clear-criteria --only "$1" --quiet
}

# Runs the command in the background and kills it after a random 0 to max_ms milliseconds.
kill_after_random() {
  ("$@") >/dev/null 2>&1 &
  local pid=$!
  sleep "$(printf '0.%03d' $((RANDOM % max_ms)))"
  kill -9 "$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || true
}

complete_pdf() { [ ! -f "$1" ] || qpdf --check "$1" >/dev/null 2>&1; }
complete_csv() { [ ! -f "$1" ] || { [ "$(wc -l <"$1")" = 7 ] && [ "$(tail -c 2 "$1" | od -An -tx1 | tr -d ' \n')" = 0d0a ]; }; }

trial_print() {
  local before ids prefix numbered
  before=$(staged)
  ids=$(pick yamato)
  prefix=$(printf '9%03d' "$trial")
  kill_after_random print_run "$ids" "${prefix}00000000"
  local after
  after=$(staged)
  [ "$after" = "$before" ] || [ "$after" = "$ids" ] || fail "staging half done: $after"
  numbered=$(q "SELECT COUNT(*) FROM CHUMON WHERE 出荷伝票番号 LIKE '${prefix}%'")
  [ "$numbered" = 0 ] || [ "$numbered" = 6 ] || fail "waybill numbers half written: $numbered of 6"
  complete_pdf "$home/slips.pdf" || fail "slips.pdf is not a complete PDF"
}

trial_export() {
  local before_sum before_file ids
  before_sum=$(export_cnt)
  before_file=$(checksum "$home/ehiden.csv")
  ids=$(pick sagawa)
  kill_after_random export_run "$ids"
  local delta=$(($(export_cnt) - before_sum))
  [ "$delta" = 0 ] || [ "$delta" = 6 ] || fail "export ledger half written: $delta of 6"
  complete_csv "$home/ehiden.csv" || fail "ehiden.csv is a part of a file"
  # The ledger follows the file: a booked export has its new file in place.
  if [ "$delta" = 6 ] && [ ! -f "$home/ehiden.csv" ]; then fail "export booked without its file"; fi
  [ "$(checksum "$home/ehiden.csv")" = "$before_file" ] || [ -f "$home/ehiden.csv" ] || fail "the old file was lost"
}

for engine in sqlite postgres; do
  setup "$engine"
  # A run that is not killed, to learn how long one takes: kills then land across its whole length.
  start=$(date +%s%N)
  (print_run "${yamato[0]}" 100000000000) >/dev/null 2>&1 || fail "first run"
  max_ms=$(( ($(date +%s%N) - start) / 1000000 + 50 ))
  ((max_ms < 1000)) || max_ms=999
  for ((trial = 1; trial <= trials; trial++)); do
    if ((RANDOM % 2)); then trial_print; else trial_export; fi
    if ((trial % 20 == 0)); then
      ids=$(pick sagawa)
      (export_run "$ids") >/dev/null 2>&1 || fail "an export after kills failed"
      complete_csv "$home/ehiden.csv" || fail "export after kills"
      (print_run "$(pick yamato)" 200000000000) >/dev/null 2>&1 || fail "a print after kills failed"
    fi
  done
  echo "$engine: $trials kills (runs of up to ${max_ms} ms), all consistent"
done
echo "1 passed, 0 failed"
