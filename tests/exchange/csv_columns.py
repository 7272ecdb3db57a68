#!/usr/bin/env python3
"""Every pinned carrier and payment file, read back as a spreadsheet reads CSV: Python's csv module
over the CP932 text. Each physical CR LF line must be one record with the layout's column count, so
no value broke a record or shifted the columns."""
import csv
import io
import pathlib
import sys

# file pattern -> (separator, column counts of the head lines, columns of every other line)
LAYOUTS = {
    "ehiden/ehiden1_*.csv": (",", [], 39),
    "ehiden/ehiden2_*.csv": (",", [], 39),
    "ehiden/ehiden3_*.csv": (",", [75], 74),
    "b2/*.csv": (",", [], 71),
    "icats/*.csv": (",", [], 47),
    "yupack/yupack.csv": (",", [84], 84),
    "yupack/yupack_v4.csv": (",", [132], 132),
    "yupack/yupack_r.csv": (",", [119], 119),
    "np/npuriage.csv": (",", [0, 0, 0, 0], 25),
    "np/npsyukka.csv": (",", [0], 8),
    "ab/aburiage.csv": (",", [], 22),
    "ab/absyukka.csv": (",", [], 9),
    "wellnet/*.csv": (",", [9], 9),
    "amazon/ShippingConfirm.txt": ("\t", [3, 9, 9], 9),
}


def check(path: pathlib.Path, separator: str, head: list, columns: int) -> list:
    raw = path.read_bytes()
    problems = []
    if not raw.endswith(b"\r\n"):
        problems.append("does not end with CR LF")
    physical = raw.split(b"\r\n")[:-1]
    if any(b"\n" in line or b"\r" in line for line in physical):
        problems.append("a bare CR or LF inside a line")
    records = list(csv.reader(io.StringIO(raw.decode("cp932"), newline=""), delimiter=separator))
    if len(records) != len(physical):
        problems.append(f"{len(records)} records on {len(physical)} lines")
    for number, record in enumerate(records, start=1):
        expected = head[number - 1] if number <= len(head) else columns
        if len(record) != expected:
            problems.append(f"line {number}: {len(record)} columns, expected {expected}")
    if len(records) <= len(head):
        problems.append("no data line")
    return problems


def main() -> int:
    golden = pathlib.Path(sys.argv[1])
    failed = False
    for pattern, (separator, head, columns) in LAYOUTS.items():
        files = sorted(golden.glob(pattern))
        if not files:
            print(f"{pattern}: no file")
            failed = True
        for path in files:
            problems = check(path, separator, head, columns)
            status = "ok" if not problems else "; ".join(problems)
            print(f"{path.relative_to(golden)}: {status}")
            failed = failed or bool(problems)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
