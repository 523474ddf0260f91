# SPDX-License-Identifier: MIT
"""Bar chart of the cost of calls, as SVG that follows the reader's light or dark theme."""

# What the chart shows, of what was measured.
REGIONS = ["region 1", "region 2", "region 3", "region 5"]
SHOWN = [
    ("HBPT", "h of p, T", REGIONS),
    ("HOPT", "h of p, T, consistent", REGIONS),
    ("WBPT", "w of p, T", REGIONS),
    ("TBPH", "T of p, h", REGIONS[:3]),
    ("TOPH", "T of p, h, consistent", REGIONS),
    ("PBT", "ps of T", ["saturation line"]),
    ("TBP", "Ts of p", ["saturation line"]),
    ("H1BT", "h' of T", ["saturation line"]),
    ("HBTX", "h of T, x", ["wet steam"]),
]

STYLE = """
  text { font: 13px system-ui, "Segoe UI", "DejaVu Sans", sans-serif; fill: #24292f; }
  .small { font-size: 11px; fill: #57606a; }
  .over { paint-order: stroke; stroke: #ffffff; stroke-width: 4px; }
  .grid { stroke: #d0d7de; stroke-width: 1; }
  .library { fill: #54aeff; }
  .floor { fill: #0a3069; }
  @media (prefers-color-scheme: dark) {
    text { fill: #e6edf3; }
    .small { fill: #9198a1; }
    .over { stroke: #0d1117; }
    .grid { stroke: #3d444d; }
    .library { fill: #1f6feb; }
    .floor { fill: #cae8ff; }
  }
"""

WIDTH, LEFT, RIGHT, TOP = 820, 290, 110, 48
ROW, BAR, FLOOR = 22, 14, 5


def number(cell):
    return float(cell) if cell != "-" else None


def step_of(longest):
    """Distance of the grid lines: 1, 2 or 5 times a power of ten, at most eight of them."""
    size = 1
    while True:
        for factor in (1, 2, 5):
            if longest / (factor * size) <= 8:
                return factor * size
        size *= 10


def chosen(measured):
    """(export, meaning, states, ns, times faster, ns of the floor); the meaning once per export."""
    found = {(row[0], row[1]): row for row in measured}
    rows = []
    for export, meaning, sets in SHOWN:
        for states in sets:
            row = found.get((export, states))
            if row is None:
                continue
            ns, times = float(row[2]), number(row[4])
            rows.append((export, meaning, states, ns, number(row[3]), ns / times if times else None))
            meaning = ""
    return rows


def draw(measured):
    rows = chosen(measured)
    longest = max([1.0] + [row[3] for row in rows])
    step = step_of(longest)
    scale = (WIDTH - LEFT - RIGHT) / longest
    y = TOP
    body = []
    for export, meaning, states, ns, faster, floor in rows:
        y += 10 if meaning and y > TOP else 0
        middle = y + ROW / 2
        if meaning:
            body.append(f'<text x="8" y="{middle + 4:.0f}">{export}'
                        f'<tspan class="small" dx="8">{meaning}</tspan></text>')
        body.append(f'<text class="small" x="{LEFT - 8}" y="{middle + 4:.0f}" text-anchor="end">{states}</text>')
        body.append(f'<rect class="library" x="{LEFT}" y="{middle - BAR / 2:.1f}" '
                    f'width="{ns * scale:.1f}" height="{BAR}" rx="1.5"/>')
        if floor is not None:
            body.append(f'<rect class="floor" x="{LEFT}" y="{middle - FLOOR / 2:.1f}" '
                        f'width="{floor * scale:.1f}" height="{FLOOR}" rx="1"/>')
        end = LEFT + max(ns, floor or 0) * scale + 8
        note = f'<tspan class="small" dx="8">{faster:.0f}×</tspan>' if faster is not None else ""
        body.append(f'<text class="over" x="{end:.0f}" y="{middle + 4:.0f}">{ns:.1f}{note}</text>')
        y += ROW

    grid = []
    tick = 0
    while tick <= longest:
        x = LEFT + tick * scale
        grid.append(f'<line class="grid" x1="{x:.1f}" x2="{x:.1f}" y1="{TOP - 4}" y2="{y + 4}"/>')
        grid.append(f'<text class="small" x="{x:.1f}" y="{y + 20}" text-anchor="middle">{tick}</text>')
        tick += step
    legend = [
        f'<rect class="library" x="{LEFT}" y="14" width="28" height="{BAR}" rx="1.5"/>',
        f'<text x="{LEFT + 36}" y="26">the library, ns a call</text>',
        f'<rect class="floor" x="{LEFT + 180}" y="{14 + (BAR - FLOOR) / 2}" width="28" height="{FLOOR}" rx="1"/>',
        f'<text x="{LEFT + 216}" y="26">the bare equation</text>',
        f'<text x="{LEFT + 345}" y="26">9× <tspan class="small">faster than term by term</tspan></text>',
    ]
    height = y + 32
    parts = "\n".join(grid + body + legend)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {height}" width="{WIDTH}" '
            f'height="{height}" role="img">\n<title>Nanoseconds a call</title>\n'
            f'<style>{STYLE}</style>\n{parts}\n</svg>\n')
