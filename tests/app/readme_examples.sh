#!/usr/bin/env bash
# The README's command-line examples, run as written against the demo database, so that none goes
# stale: every ```sh block of its "The command line" section, in order, in one shell with set -e.
set -euo pipefail
lupinprint=$1
readme=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
[ -n "${CUPS_SERVER:-}" ] || fail "CUPS_SERVER is not set: the printing examples cannot run"
# A fresh user: the well-known folders of the examples lie in the work folder.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
export LUPIN_MACHINE_INI="$work/home/machine.ini"
mkdir -p "$work/run/build/src/app" "$HOME"
ln -s "$lupinprint" "$work/run/build/src/app/lupinprint"
"$lupinprint" init --db "sqlite:$XDG_DATA_HOME/Veltrona/LupinOrder6/demo.db" --demo 1000 --seed 1 >/dev/null

script="$work/examples.sh"
awk '/^## The command line/ { inside = 1; next }
     /^## / { inside = 0 }
     inside && /^```sh$/ { block = 1; next }
     inside && /^```$/ { block = 0; next }
     inside && block { print }' "$readme" > "$script"
[ "$(grep -c 'lupinprint\|\$L ' "$script")" -ge 10 ] || fail "the README's examples were not found"
cd "$work/run"
bash -euo pipefail "$script" > "$work/out.log" 2>&1 || { cat "$work/out.log" >&2; fail "a README example failed"; }

# What the examples promise.
[ -s slips.pdf ] && [ -s reprint.pdf ] && [ -s picking-2026-09.pdf ] || fail "a PDF of the examples is missing"
[ -s picking-pages/page-0001.png ] || fail "page images"
[ -s ehiden.csv ] || fail "the export"
for f in notes shipments items monthly labels; do [ -s "$f.pdf" ] || fail "the document $f.pdf"; done
for f in b2 wellnet np; do [ -s "$f.csv" ] || fail "the file $f.csv"; done
grep -q "出力しました: ehiden.csv" "$work/out.log" || fail "the export did not say where it wrote"
grep -q '"rows": \[\]' "$work/out.log" || fail "the list after printing should be empty"
grep -Eq "印刷しました|今日の伝票はありません" "$work/out.log" || fail "the nightly job"
echo "1 passed, 0 failed"
