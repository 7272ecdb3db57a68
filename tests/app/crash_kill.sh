#!/usr/bin/env bash
# Staging, bookkeeping and exports killed with SIGKILL at random moments, on SQLite and on
# PostgreSQL. After every kill: an output file is the old one or a complete new one, never a part;
# staging, ledger and waybill numbers are each all there or not there; and the next run works.
#   crash_kill.sh LUPINPRINT [TRIALS_PER_ENGINE]
# Environment:
#   CRASH_TRIALS=300    trials per engine (default 10, what ctest runs; at most 999)
#   CRASH_SEED=N        replays the choices of a failed run (its FAILED line prints the seed);
#                       the moments of the kills still vary with the machine's load
#   CRASH_ENGINES=...   "sqlite postgres" (default), or one of them
# Each trial either prints six Yamato slips with ledger and waybill numbers (--book --denno) or
# writes one of the e-飛伝, B2, WellNet, NP売上 and NP出荷 files with its ledger, and is killed
# after a random part of one run's length.
set -euo pipefail
lupinprint=$1
trials=${CRASH_TRIALS:-${2:-10}}
((trials <= 999)) || { echo "CRASH_TRIALS is at most 999 (the waybill start number holds the trial)" >&2; exit 2; }
seed=${CRASH_SEED:-$$}
RANDOM=$seed
work=$(mktemp -d)
schema="crash_$$"
export XDG_CONFIG_HOME="$work/xdg" LUPIN_MACHINE_INI="$work/xdg/machine.ini"
cleanup() {
  [ -n "${LUPIN_TEST_PG_URL:-}" ] && psql -q "$LUPIN_TEST_PG_URL" -c "DROP SCHEMA IF EXISTS $schema CASCADE" >/dev/null 2>&1
  rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "FAILED ($engine, trial $trial, CRASH_SEED=$seed): $*" >&2; exit 1; }

# The exports: report, path setting, ledger report number, pool of orders.
declare -A export_report=([ehiden]=104 [b2]=97 [wellnet]=92 [npuriage]=93 [npsyukka]=94)
declare -A export_setting=([ehiden]=EHidenPath [b2]=ICatsPath [wellnet]=WellNetPath [npuriage]=NPUriagePath
                           [npsyukka]=NPSyukkaPath)
declare -A export_ledger=([ehiden]=91 [b2]=90 [wellnet]=92 [npuriage]=93 [npsyukka]=94)
declare -A export_pool=([ehiden]=sagawa [b2]=yamato [wellnet]=sagawa [npuriage]=np [npsyukka]=np)
kinds=(ehiden b2 wellnet npuriage npsyukka)

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
  np=($(q "SELECT ID FROM CHUMON WHERE 支払方法 = 'NP後払い' ORDER BY ID LIMIT 10"))
  [ ${#yamato[@]} = 10 ] && [ ${#sagawa[@]} = 10 ] && [ ${#np[@]} = 10 ] || fail "too few orders for a pool"
  home="$work/home-$engine"
  mkdir -p "$home"
  printf '雑貨類\r\n' >"$home/hinmei.txt"
  declare -gA reference=() written=()
}

# Six of a pool's orders, sorted; the draw is made here, in the shell that holds the seed.
pick() {  # pool-name
  local -n pool=$1
  local draw=$RANDOM
  printf '%s\n' "${pool[@]}" | shuf -n 6 --random-source=<(yes "$draw") | sort -n | paste -sd, -
}
# The two fixed sets of an export, so that a complete new file can be known by its bytes.
export_ids() {  # kind set(A|B)
  local -n pool=${export_pool[$1]}
  if [ "$2" = A ]; then local IFS=,; echo "${pool[*]:0:6}"; else local IFS=,; echo "${pool[*]:4:6}"; fi
}

staged() { q "SELECT ID FROM WK_PRINT WHERE CLIENT_NAME = 'CRASH' ORDER BY ID" | paste -sd, -; }
ledger_cnt() { q "SELECT COALESCE(SUM(CNT), 0) FROM PRINTED WHERE REPORT_NO = $1"; }
# A reprinted slip only dates its ledger row, so the rows of the six orders are counted.
booked_of() { q "SELECT COUNT(*) FROM PRINTED WHERE REPORT_NO = 25 AND ID IN ($1)"; }
checksum() { [ -f "$1" ] && md5sum <"$1" | cut -d' ' -f1 || echo none; }

# Each runs lupinprint in place of the shell that calls it, so a kill reaches lupinprint itself.
print_run() {  # ids denno
  exec "$lupinprint" run --db "$url" --login "担当,1,CRASH" --report 25 --settings "$work/settings" --home "$home" \
    --clear-criteria --only "$1" --denno "$2" --book --pdf "$home/slips.pdf" --quiet
}
export_run() {  # kind ids [file]
  exec "$lupinprint" run --db "$url" --login "担当,1,CRASH" --report "${export_report[$1]}" --settings "$work/settings" \
    --home "$home" --set "${export_setting[$1]}=${3:-$home/$1.csv}" --clear-criteria --only "$2" --quiet
}

# Runs the command in the background and kills it after a random 0 to N milliseconds, N being the
# length of the last run of its kind (print or export) that ended on its own: kills then land
# across a whole run, whatever the machine's load.
declare -A run_ms=()
kill_after_random() {  # kind command...
  local kind=$1 start status=0
  shift
  local ms=$((RANDOM % ${run_ms[$kind]}))
  start=$(date +%s%N)
  ("$@") >/dev/null 2>&1 &
  local pid=$!
  sleep "$((ms / 1000)).$(printf '%03d' $((ms % 1000)))"
  kill -9 "$pid" 2>/dev/null || true
  wait "$pid" 2>/dev/null || status=$?
  if [ "$status" != 137 ]; then run_ms[$kind]=$(( ($(date +%s%N) - start) / 1000000 + 50 )); fi
}

complete_pdf() { [ ! -f "$1" ] || qpdf --check "$1" >/dev/null 2>&1; }

# The waybill numbers a start number gives six slips: the body counts up, the last digit is the
# body modulo 7. Counting these exact numbers, not a prefix: the demo orders carry numbers of
# their own, and one of them (907981782073) starts like trial 79's series.
series_of() {  # start-number
  local body=${1:0:${#1}-1} k list=
  for ((k = 0; k < 6; k++)); do list+="${list:+,}'$((body + k))$(((body + k) % 7))'"; done
  echo "$list"
}

trial_print() {
  local before ids start numbers numbered own before_ledger booked
  before=$(staged)
  ids=$(pick yamato)
  before_ledger=$(booked_of "$ids")
  start=$(printf '9%03d00000000' "$trial")
  kill_after_random print print_run "$ids" "$start"
  local after
  after=$(staged)
  [ "$after" = "$before" ] || [ "$after" = "$ids" ] || fail "staging half done: $after"
  booked=$(booked_of "$ids")
  [ "$booked" = "$before_ledger" ] || [ "$booked" = 6 ] || fail "slip ledger half written: $booked of 6"
  numbers=$(series_of "$start")
  numbered=$(q "SELECT COUNT(*) FROM CHUMON WHERE 出荷伝票番号 IN ($numbers)")
  own=$(q "SELECT COUNT(*) FROM CHUMON WHERE 出荷伝票番号 IN ($numbers) AND ID IN ($ids)")
  [ "$numbered" = 0 ] || [ "$numbered" = 6 ] || fail "waybill numbers half written: $numbered of 6"
  [ "$own" = "$numbered" ] || fail "waybill numbers went to other orders than $ids"
  # The ledger is written before the numbers: numbered slips are booked slips.
  [ "$numbered" = 0 ] || [ "$booked" = 6 ] || fail "waybill numbers without the ledger"
  complete_pdf "$home/slips.pdf" || fail "slips.pdf is not a complete PDF"
}

# The checksum of a complete file for one export set, from a run nobody kills (once per set), in
# $expected.
reference_of() {  # kind set
  local key="$1:$2"
  if [ -z "${reference[$key]:-}" ]; then
    (export_run "$1" "$(export_ids "$1" "$2")" "$work/reference.csv") >/dev/null 2>&1 || fail "a $1 export failed"
    reference[$key]=$(checksum "$work/reference.csv")
    rm -f "$work/reference.csv"
  fi
  expected=${reference[$key]}
}

trial_export() {
  local kind=${kinds[RANDOM % ${#kinds[@]}]}
  local file="$home/$kind.csv" set=A
  [ "${written[$kind]:-}" = A ] && set=B  # the other set than the one in the file
  local before_ledger before_file delta now
  before_ledger=$(ledger_cnt "${export_ledger[$kind]}")
  before_file=$(checksum "$file")
  kill_after_random export export_run "$kind" "$(export_ids "$kind" "$set")"
  delta=$(($(ledger_cnt "${export_ledger[$kind]}") - before_ledger))
  [ "$delta" = 0 ] || [ "$delta" = 6 ] || fail "$kind ledger half written: $delta of 6"
  now=$(checksum "$file")
  if [ "$now" != "$before_file" ]; then
    reference_of "$kind" "$set"
    [ "$now" = "$expected" ] || fail "$kind.csv is neither the old file nor a complete new one"
    written[$kind]=$set
  fi
  # The ledger follows the file: a booked export has its new file in place.
  if [ "$delta" = 6 ] && [ "$now" = "$before_file" ]; then fail "$kind booked without its file"; fi
}

# The next runs work after kills: a print numbers all six, an export writes its complete file.
recovery() {
  local ids kind set
  ids=$(pick yamato)
  (print_run "$ids" "$(printf '8%03d00000000' "$trial")") >/dev/null 2>&1 || fail "a print after kills failed"
  [ "$(staged)" = "$ids" ] || fail "a print after kills staged $(staged)"
  [ "$(q "SELECT COUNT(*) FROM CHUMON WHERE 出荷伝票番号 IN ($(series_of "$(printf '8%03d00000000' "$trial")"))
           AND ID IN ($ids)")" = 6 ] || fail "a print after kills did not number its six orders"
  complete_pdf "$home/slips.pdf" || fail "slips.pdf after kills"
  kind=${kinds[RANDOM % ${#kinds[@]}]} set=A
  [ "${written[$kind]:-}" = A ] && set=B
  (export_run "$kind" "$(export_ids "$kind" "$set")") >/dev/null 2>&1 || fail "a $kind export after kills failed"
  reference_of "$kind" "$set"
  [ "$(checksum "$home/$kind.csv")" = "$expected" ] || fail "$kind.csv after kills"
  written[$kind]=$set
}

for engine in ${CRASH_ENGINES:-sqlite postgres}; do
  engine_start=$(date +%s)
  setup "$engine"
  # Runs that are not killed, to learn how long each kind takes.
  start=$(date +%s%N)
  (print_run "${yamato[0]}" 100000000000) >/dev/null 2>&1 || fail "first print"
  run_ms[print]=$(( ($(date +%s%N) - start) / 1000000 + 50 ))
  start=$(date +%s%N)
  (export_run ehiden "${sagawa[0]}" "$work/first.csv") >/dev/null 2>&1 || fail "first export"
  run_ms[export]=$(( ($(date +%s%N) - start) / 1000000 + 50 ))
  for ((trial = 1; trial <= trials; trial++)); do
    if ((RANDOM % 2)); then trial_print; else trial_export; fi
    if ((trial % 20 == 0 || trial == trials)); then recovery; fi
  done
  echo "$engine: $trials kills (last runs ${run_ms[print]} ms print, ${run_ms[export]} ms export) in $(($(date +%s) - engine_start)) s, all consistent"
done
echo "1 passed, 0 failed"
