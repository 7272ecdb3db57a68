#!/usr/bin/env bash
# Each figure of the print run beside its reference, in one run:
#   print list of 10,000 orders      lupinprint run          vs  sqlite3 reading the same rows
#   peak memory, 1,000 vs 100,000    Yamato slips, picking list (both to PDF)
#   PDF rendering, dense pages/s     one core vs two cores   vs  ReportLab drawing the same dump
#   tax on PostgreSQL                round trips per order, one order and --all
# Medians of RUNS (5) runs with their spread (half of max - min). Times are CPU seconds (user +
# system) of the process, which a machine shared with other work disturbs far less than the clock;
# pages/s are by the clock. Needs a release build with benchmarks:
#   cmake -S . -B build-rel -G Ninja -DCMAKE_BUILD_TYPE=Release -DLUPIN_BENCH=ON
#   cmake --build build-rel --target lupinprint bench_render
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD:-$top/build-rel}
lp=$build/src/app/lupinprint
runs=${RUNS:-5}
cache=${BENCH_CACHE:-/tmp/lupin-bench-cache}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$cache"
export XDG_CONFIG_HOME="$work/xdg" LUPIN_MACHINE_INI="$work/xdg/machine.ini"

# median and spread of the numbers on stdin
stats() { sort -g | awk '{v[NR] = $1} END {m = (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2;
                                          printf "%.3f (±%.3f)", m, (v[NR] - v[1]) / 2}'; }
# A run's own exit status (3: nothing checked, as the list alone leaves it) is not a failure here.
seconds() { { /usr/bin/time -f '%U %S' "$@" 2>&1 >/dev/null || true; } | tail -1 | awk '{print $1 + $2}'; }
peak_mb() { { /usr/bin/time -f %M "$@" 2>&1 >/dev/null || true; } | tail -1 | awk '{printf "%.1f", $1 / 1024}'; }

demo() {  # orders -> database path (kept between runs of the script)
  local db="$cache/demo-$1.db"
  if [ ! -f "$db" ]; then
    "$lp" init --db "sqlite:$db" --demo "$1" --seed 1 --settings "$work/settings" >/dev/null
  fi
  echo "$db"
}
row() { printf '%-44s %-26s %-26s %s\n' "$@"; }

echo "Lupin Print benchmarks, $(date -u '+%Y-%m-%d %H:%M UTC'), $(nproc) cores, load $(cut -d' ' -f1 /proc/loadavg)"
row "figure" "ours" "reference" "target"

# 1. The print list: selection statement, list, staging of every row.
db10k=$(demo 10000)
list=(run --db "sqlite:$db10k" --login 担当,1,BENCH --report 4 --clear-criteria --quiet --home "$work" --settings "$work/settings")
statement=$("$lp" run --db "sqlite:$db10k" --report 4 --clear-criteria --sql --settings "$work/settings")
# The list alone (no row checked, so nothing is staged), then the list and the staging of every row.
ours=$(for ((i = 0; i < runs; i++)); do seconds "$lp" "${list[@]}" --only 0; done | stats)
full=$(for ((i = 0; i < runs; i++)); do seconds "$lp" "${list[@]}"; done | stats)
peer=$(for ((i = 0; i < runs; i++)); do seconds sqlite3 "$db10k" "$statement"; done | stats)
row "print list, 10,000 orders (CPU s)" "$ours" "sqlite3 $peer" "≤ 1.5 × sqlite3"
row "  with staging of every row (CPU s)" "$full" "sqlite3 $peer" ""

# 2. Peak memory of whole runs to PDF at 1,000, 10,000 and 100,000 orders (MEMORY_ORDERS to choose
#    others); flat when the largest stays within 1.3 times the smallest.
sizes=(${MEMORY_ORDERS:-1000 10000 100000})
for report in 25 54; do
  name=$([ $report = 25 ] && echo "Yamato slips" || echo "picking list")
  peaks=()
  for orders in "${sizes[@]}"; do
    peaks+=("$(peak_mb "$lp" run --db "sqlite:$(demo "$orders")" --login 担当,1,BENCH --report $report --clear-criteria \
                 --quiet --home "$work" --settings "$work/settings" --pdf "$work/out.pdf")")
  done
  last=$((${#sizes[@]} - 1))
  ratio=$(awk -v a="${peaks[0]}" -v b="${peaks[$last]}" 'BEGIN {printf "%.2f", b / a}')
  detail=""
  for ((i = 0; i < last; i++)); do detail+="${sizes[$i]}: ${peaks[$i]}; "; done
  row "peak memory, $name (MB)" "${sizes[$last]}: ${peaks[$last]} (${ratio}×)" "${detail%; }" "≤ 1.3 × and < 64 MB"
done

# 3. PDF rendering of dense delivery-note pages.
bench=$build/bench/bench_render
if [ -x "$bench" ]; then
  # rate FILTER [COUNTER]: median and spread of a counter of the repetitions (pages/s: by the clock;
  # cpu_pages/s: over the processor time of the busier thread, what the cores allow when free).
  rate() { "$bench" --benchmark_filter="$1" --benchmark_repetitions="$runs" --benchmark_format=json 2>/dev/null |
             /usr/bin/python3 -c 'import json,sys,statistics as s
b=[x for x in json.load(sys.stdin)["benchmarks"] if x.get("run_type")=="iteration"]
v=[x[sys.argv[1]] for x in b]; print(f"{s.median(v):.0f} (±{(max(v)-min(v))/2:.0f})")' "${2:-pages/s}"; }
  one=$(rate 'BM_PdfDeliveryNotes/1000/1/')
  two=$(rate 'BM_PdfDeliveryNotes/1000/2/')
  one_cpu=$(rate 'BM_PdfDeliveryNotes/1000/1/' cpu_pages/s)
  two_cpu=$(rate 'BM_PdfDeliveryNotes/1000/2/' cpu_pages/s)
  peer=$(rate 'BM_ReportLabPeer')
  row "PDF pages/s, one core" "$one" "ReportLab $peer" ""
  row "PDF pages/s, two cores" "$two" "one core $one" "≥ 2,000"
  row "  by processor time, one core / two" "$one_cpu / $two_cpu" "" ""
else
  row "PDF pages/s" "bench_render not built" "" ""
fi

# 4. Tax on PostgreSQL: round trips (client sends) per order.
if [ -n "${LUPIN_TEST_PG_URL:-}" ]; then
  schema="bench_tax_$$"
  psql -q "$LUPIN_TEST_PG_URL" -c "CREATE SCHEMA $schema" >/dev/null
  url="$LUPIN_TEST_PG_URL?options=-csearch_path%3D$schema"
  "$lp" init --db "$url" --demo 1000 --seed 1 >/dev/null
  sends() { strace -f -qq -e trace=sendto,write -e signal=none "$@" 2>&1 >/dev/null | grep -c '^.*sendto(' || true; }
  base=$(sends "$lp" tax --db "$url" --id 1 --settings "$work/settings")
  all=$(sends "$lp" tax --db "$url" --all --settings "$work/settings")
  allt=$(for ((i = 0; i < 3; i++)); do seconds "$lp" tax --db "$url" --all --settings "$work/settings"; done | stats)
  row "tax, one order (round trips)" "$base" "" "≤ 2 per order"
  row "tax --all, 1,000 orders (round trips)" "$all ($allt s)" "" "one batch"
  PGOPTIONS=--client-min-messages=warning psql -q "$LUPIN_TEST_PG_URL" -c "DROP SCHEMA $schema CASCADE" >/dev/null
else
  row "tax on PostgreSQL" "LUPIN_TEST_PG_URL not set" "" ""
fi
