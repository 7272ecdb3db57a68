#!/usr/bin/env python3
"""Draws a page-model dump with ReportLab, for comparison with the project's PDF renderer.

usage: reportlab_peer.py pages.json out.pdf   -> prints the seconds spent drawing and writing
"""
import json
import sys
import time

from reportlab.pdfbase import pdfmetrics
from reportlab.pdfbase.ttfonts import TTFont
from reportlab.pdfgen import canvas

FONTS = {
    "IPAMincho": "/usr/share/fonts/opentype/ipafont-mincho/ipam.ttf",
    "IPAPMincho": "/usr/share/fonts/opentype/ipafont-mincho/ipamp.ttf",
    "IPAGothic": "/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf",
    "IPAPGothic": "/usr/share/fonts/opentype/ipafont-gothic/ipagp.ttf",
}
# The layouts' names as the project's font configuration maps them.
ALIASES = {
    "ＭＳ 明朝": "IPAMincho", "MS Mincho": "IPAMincho",
    "ＭＳ Ｐ明朝": "IPAPMincho", "MS PMincho": "IPAPMincho",
    "ＭＳ ゴシック": "IPAGothic", "MS Gothic": "IPAGothic",
    "ＭＳ Ｐゴシック": "IPAPGothic", "MS PGothic": "IPAPGothic",
}


def main(source, target):
    with open(source, encoding="utf-8") as f:
        document = json.load(f)
    for name, path in FONTS.items():
        pdfmetrics.registerFont(TTFont(name, path))
    start = time.perf_counter()
    pdf = canvas.Canvas(target, pageCompression=1)
    for page in document["pages"]:
        width, height = page["width"] / 20.0, page["height"] / 20.0
        pdf.setPageSize((width, height))
        for item in page["items"]:
            if not item["visible"] or item["kind"] not in ("Label", "TextField"):
                continue
            font = ALIASES.get(item["font"]["name"], "IPAMincho")
            size = item["font"]["size"]
            pdf.setFont(font, size)
            left = item["left"] / 20.0
            box = item["width"] / 20.0
            # Baseline about one ascent below the box top, as the other renderer sets it.
            y = height - item["top"] / 20.0 - size * 0.88
            for n, line in enumerate(item["text"].replace("\r\n", "\n").split("\n")):
                if item["alignment"] == 1:
                    pdf.drawRightString(left + box, y - n * size * 1.2, line)
                elif item["alignment"] == 2:
                    pdf.drawCentredString(left + box / 2, y - n * size * 1.2, line)
                else:
                    pdf.drawString(left, y - n * size * 1.2, line)
        pdf.showPage()
    pdf.save()
    print(f"{time.perf_counter() - start:.6f}")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
