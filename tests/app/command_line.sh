#!/usr/bin/env bash
# The command line as a new user and a nightly job meet it: started from another folder with a
# fresh home, it finds the component folder, leaves the stores alone after --set, refuses with the
# option and value named and one exit code per kind of outcome, books nothing it cannot finish,
# and leaves no temporaries behind.
set -euo pipefail
lupinprint=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
export LUPIN_MACHINE_INI="$work/home/machine.ini"
folder="$XDG_DATA_HOME/Veltrona/LupinOrder6"
db="$folder/demo.db"
"$lupinprint" init --db "sqlite:$db" --demo 200 --seed 4 >/dev/null
mkdir -p "$work/elsewhere" && cd "$work/elsewhere"
q() { sqlite3 "$db" "$1"; }
# run ARGS…: the exit code in $code, standard output in $out, standard error in $err.
run() {
  code=0
  "$lupinprint" "$@" >"$work/out" 2>"$work/err" || code=$?
  out=$(cat "$work/out")
  err=$(cat "$work/err")
}
expect() {  # CODE TEXT-IN-STDERR WHAT
  [ "$code" = "$1" ] || fail "$3: exit code $code, expected $1 ($err)"
  grep -qF -- "$2" <<<"$err" || fail "$3: standard error lacks '$2': $err"
}
ledger() { q "SELECT COUNT(*) || '/' || IFNULL(SUM(CNT), 0) FROM PRINTED"; }
numbers() { q "SELECT COUNT(*) FROM CHUMON WHERE IFNULL(出荷伝票番号, '') <> ''"; }
D="--db sqlite:$db"

# The component folder: REPORT.INI and Format/ there count, those of the current folder do not.
printf '[ピッキングリスト(出荷日)]\nDEVICE_NAME=QueueFromTheComponentFolder\n' > "$folder/REPORT.INI"
printf '[ピッキングリスト(出荷日)]\nDEVICE_NAME=QueueOfTheCurrentFolder\n' > REPORT.INI
mkdir -p "$folder/Format" Format
printf '<section=Detail><field=Label1><visible>0</visible></field></section>' > "$folder/Format/form_54.lprf"
printf '<section=Detail><field=Label2><visible>0</visible></field></section>' > Format/form_54.lprf
before=$(ledger)
run run $D --login 山田,1,PC01 --report 54 --clear-criteria --id 1:5 --quiet --print
expect 2 "QueueFromTheComponentFolder" "a printer named by the component folder's REPORT.INI"
[ "$(ledger)" = "$before" ] || fail "a print to a missing printer booked the ledger"
run run $D --login 山田,1,PC01 --report 54 --clear-criteria --id 1:5 --quiet --dump pages.json
expect 0 "出力しました: pages.json" "the page dump"
grep -q '"name": *"Label1"[^}]*"visible": *false' pages.json || fail "Format/ of the component folder was not applied"
grep -q '"name": *"Label2"[^}]*"visible": *false' pages.json && fail "Format/ of the current folder was applied"
[ -s "$folder/trace.log" ] && [ ! -e trace.log ] || fail "trace.log belongs in the component folder"
run run --help
grep -qF "$folder" <<<"$out" || fail "--help does not name the component folder"

# --set is for one run; the stores stay byte for byte; settings set saves and says where.
"$lupinprint" settings set ListSort "" >/dev/null 2>&1
stores() { { cat "$XDG_CONFIG_HOME"/Veltrona/LupinOrder6/* "$LUPIN_MACHINE_INI" 2>/dev/null || true; } | md5sum; }
kept=$(stores)
run run $D --report 25 --set ListSort=DESC --set EHidenPath=/tmp/x.csv --sql
[ "$code" = 0 ] && grep -q "DESC$" <<<"$out" || fail "--set did not reach the run: $out $err"
[ "$(stores)" = "$kept" ] || fail "--set changed the stores"
run run $D --report 25 --set NoSuchKey=1 --sql
expect 64 "--set の値 'NoSuchKey=1' は使えません。" "an unknown key"
grep -qF "EHidenPath" <<<"$err" || fail "the refusal does not list the keys"
run settings set EHidenPath "$work/ehiden.csv"
expect 0 "出力しました: " "settings set"
run settings get ehidenpath
[ "$out" = "$work/ehiden.csv" ] || fail "settings get: $out"

# Refusals: option, value, what is expected; 64 for usage, also for the parser's own errors.
run run $D --report 25 --login a,b,c,d
expect 64 "--login の値 'a,b,c,d' は使えません。" "login"
run run $D --report 25 --date 2024/02/30:2024/03/01
expect 64 "'2024/02/30' は日付ではありません。" "a date that does not exist"
run run $D --report 25 --payment 代引以外
expect 64 "支払方法は次のいずれかです: すべて" "a payment method with the list"
run run $D --report abc
expect 64 "--report の値 'abc' は数値ではありません。" "the parser's conversion error"
run run $D --report 25 --no-such-option
expect 64 "使えない引数です: --no-such-option" "the parser's unknown option"
run run --report 25
expect 64 "--db は必須です。" "the parser's missing option"
run run --db "sqlite:$work/none.db" --report 25
expect 2 "データベースのファイル '$work/none.db' がありません。" "a sqlite file that does not exist"
[ ! -e "$work/none.db" ] || fail "a missing database file was created"
# The desktop and the WellNet import refuse the same way.
run gui $D --login a,b,c,d --screenshot shot.png
expect 64 "--login の値 'a,b,c,d' は使えません。" "gui login"
run gui $D --screenshot shot.png --window frmNone
expect 64 "次のいずれかです: frmSelect" "gui window with the list"
run gui $D --screenshot shot.png --report 999
expect 64 "--report の値 999 は帳票の一覧にありません" "gui report with the list"
run gui --db "sqlite:$work/none.db" --screenshot shot.png
expect 2 "データベースのファイル '$work/none.db' がありません。" "gui without its database"
[ ! -e shot.png ] || fail "a refused gui run drew its screenshot"
run wellnet-import "$work/no-receipts.csv"
expect 2 "'$work/no-receipts.csv' がありません。" "a receipts file that does not exist"
printf '"顧客コード","ID"\r\n"1","0000000001","100-0001","東京都","山田","0","1000","0"\r\n' > receipts.csv
run wellnet-import receipts.csv
[ "$code" = 3 ] || fail "a receipts file without a paid row: exit code $code ($out $err)"

# An empty list: exit code 3, and for a script {"rows": []}.
run run $D --report 25 --date 2030/01/01 --json
[ "$code" = 3 ] || fail "an empty list: exit code $code"
python3 -c 'import json,sys; d=json.load(sys.stdin); assert d["rows"] == [] and d["count"] == 0' <<<"$out" ||
  fail "the JSON of an empty list: $out"
run run $D --report 4 --clear-criteria --id 1:3 --json
python3 -c 'import json,sys; r=json.load(sys.stdin)["rows"]; assert [x["id"] for x in r] == [1, 2, 3] and all(x["checked"] is True for x in r)' <<<"$out" ||
  fail "the JSON of a list: $out"
run tax $D --id 3 --json
python3 -c 'import json,sys; d=json.load(sys.stdin); assert d["id"] == 3 and isinstance(d["rates"][0]["zeikin"], int)' <<<"$out" ||
  fail "tax --json: $out"
run catalogue $D --json
python3 -c 'import json,sys; json.load(sys.stdin)' <<<"$out" || fail "catalogue --json: $out"

# Nothing is booked for pages that do not exist or cannot be written.
before="$(ledger) $(numbers)"
# The old Yamato form 2 takes waybill numbers but lost its report object.
q "UPDATE REPORT SET ENABLED = 1 WHERE REPORT_NO = 2"
run run $D --login 山田,1,PC01 --report 2 --clear-criteria --id 1:20 --denno 1234-5678-9013 --quiet --print-pdf x.pdf
expect 1 "帳票が登録されていません。" "a slip without a report object"
touch not-a-folder
run run $D --login 山田,1,PC01 --report 25 --clear-criteria --id 1:20 --denno 1234-5678-9013 --quiet \
  --print-pdf not-a-folder/slips.pdf
expect 2 "--print-pdf: 'not-a-folder/slips.pdf' に書き込めません。" "an output folder that is a file"
run run $D --login 山田,1,PC01 --report 104 --clear-criteria --id 1:20 --quiet --set EHidenPath=no/such/folder/e.csv
expect 2 "出力先 (設定 EHidenPath): 'no/such/folder/e.csv' に書き込めません。" "an export path whose folder is missing"
[ "$(ledger) $(numbers)" = "$before" ] || fail "a refused run booked something"

# Warnings of a waybill run go to standard error, --quiet or not; the first number is told.
q "UPDATE CHUMON SET 出荷伝票番号 = CASE ID WHEN 2 THEN 'old' ELSE '' END"
run run $D --login 山田,1,PC01 --report 25 --clear-criteria --id 1:20 --denno 1234-5678-9019 --quiet --print-pdf slips.pdf
expect 0 "警告: 一覧に他の配送業者の受注が" "the other carriers' orders"
expect 0 "警告: 伝票番号が既にある受注 1 件の番号を書き換えます。" "stored numbers overwritten"
expect 0 "1234-5678-9013 から付番します。" "the first number used"
expect 0 "出力しました: slips.pdf" "the printed file"
[ "$(q 'SELECT 出荷伝票番号 FROM CHUMON WHERE ID = 1')" = 1234-5678-9013 ] || fail "the first slip's number"

# No leftovers: a run killed while writing, and the next one.
"$lupinprint" run $D --login 山田,1,PC01 --report 54 --clear-criteria --quiet --pdf all.pdf --png pages >/dev/null 2>&1 &
sleep 2
kill -9 $! 2>/dev/null || true
wait $! 2>/dev/null || true
touch "all.pdf.part-999999-1"   # the temporary of a process long gone
run run $D --login 山田,1,PC01 --report 54 --clear-criteria --id 1:3 --quiet --pdf all.pdf --png pages
[ "$code" = 0 ] || fail "the run after a killed one: $err"
ls -- *.part-* >/dev/null 2>&1 && fail "temporaries left behind: $(ls -- *.part-*)"
[ -e pages/page-0001.png ] && [ ! -e pages/page-0004.png ] || fail "--png kept pages of the longer run: $(ls pages | tail -3)"
echo "1 passed, 0 failed"
