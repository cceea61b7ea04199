#!/usr/bin/env python3
"""Draws docs/pictures/performance.svg from the table in docs/performance.md: each median as a part of its bar.

  bench/plot.py           writes the picture
  bench/plot.py --check   fails where the picture is not what would be drawn
"""
import re
import sys
from html import escape
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TABLE = ROOT / "docs" / "performance.md"
PICTURE = ROOT / "docs" / "pictures" / "performance.svg"
LEFT, WIDTH, ROW, TOP = 470, 360, 20, 40
FULL = 1.25  # the right edge, in bars

STYLE = """
    text { font: 12px sans-serif; fill: #24292f; } .grid { stroke: #8c959f; stroke-dasharray: 3 3; }
    .median { fill: #2da44e; } .missed { fill: #cf222e; } .spread { stroke: #24292f; stroke-width: 1.5; }
    @media (prefers-color-scheme: dark) { text { fill: #e6edf3; } .spread { stroke: #e6edf3; } }
"""


def number(text):
    return float(re.match(r"[\d.]+", text.strip())[0])


def rows():
    """(name, median, least, most) of the rows that have a bar, as parts of the bar."""
    for line in TABLE.read_text().splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if len(cells) != 5 or cells[4] not in ("ok", "MISSED") or number(cells[3]) == 0:
            continue
        bar = number(cells[3])
        least, most = cells[2].split(" to ")
        yield cells[0], number(cells[1]) / bar, number(least) / bar, number(most) / bar


def x(part):
    return LEFT + WIDTH * min(part, FULL) / FULL


def drawn(rows):
    height = TOP + ROW * len(rows) + 10
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {LEFT + WIDTH + 70} {height}" role="img" '
           f'aria-label="Medians as parts of their bars">', f"  <style>{STYLE}  </style>",
           f'  <text x="{x(1):.0f}" y="20" text-anchor="middle">bar</text>',
           f'  <line class="grid" x1="{x(1):.1f}" y1="26" x2="{x(1):.1f}" y2="{height}"/>']
    for index, (name, median, least, most) in enumerate(rows):
        y = TOP + ROW * index
        kind = "median" if median <= 1 else "missed"
        out += [f'  <text x="{LEFT - 8}" y="{y + 11}" text-anchor="end">{escape(name)}</text>',
                f'  <rect class="{kind}" x="{LEFT}" y="{y}" width="{x(median) - LEFT:.1f}" height="14"/>',
                f'  <line class="spread" x1="{x(least):.1f}" y1="{y + 7}" x2="{x(most):.1f}" y2="{y + 7}"/>',
                f'  <text x="{x(FULL) + 6:.0f}" y="{y + 11}">{median:.0%}</text>']
    return "\n".join(out + ["</svg>"]) + "\n"


def main():
    picture = drawn(list(rows()))
    if sys.argv[1:] == ["--check"]:
        if not PICTURE.exists() or PICTURE.read_text() != picture:
            sys.exit("docs/pictures/performance.svg is not up to date: run bench/plot.py")
        return
    PICTURE.write_text(picture)


if __name__ == "__main__":
    main()
