# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes TeethTables.h: outlines and handles of teeth, worked out by themselves.

The teeth are drawn here along the x axis from the shapes' own definition (triangle, trapezium, four
half circles sampled by angle), in double, and then laid onto the edge by a rotation. Nothing of the
program's arithmetic is used. Run: python3 teeth_tables.py > TeethTables.h
"""

from math import acos, cos, pi, sin

START, DIRECTION, LENGTH = (1.0, 2.0, 5.0), (0.6, 0.8), 30.0


def place(x, y, flip):
    """A point x along the edge and y beside it; teeth point to the left unless flipped."""
    ux, uy = DIRECTION
    side = -1.0 if flip else 1.0
    return (START[0] + ux * x - uy * y * side, START[1] + uy * x + ux * y * side, START[2])


def centres(width, count, distance, by_count, offset):
    room = LENGTH - offset
    first = offset + width / 2
    if by_count:
        step = (room - width) / (count - 1) if count > 1 else width
    else:
        step = distance
        count = int((room - width) / distance + 1.0 + 1e-9)
    return [first + i * step for i in range(count)]


def jagged(c, w, h):
    return [(c - w / 2, 0), (c, h), (c + w / 2, 0)], (c + w / 4, h / 2)


def dovetail(c, w1, w2, h):
    return [(c - w2 / 2, 0), (c - w1 / 2, h), (c + w1 / 2, h), (c + w2 / 2, 0)], (c + w1 / 2, h)


def puzzle(c, w, h):
    r = h / 4
    half_step = acos(min(1.0, 0.5 / r))
    steps = 8 if half_step == 0 else max(8, min(50, int(pi / half_step) + 1))
    left, right = c - w / 2 + r, c + w / 2 - r
    points = []
    # The first half circle of the neck is centred above the foot and lies to the right of it.
    for i in range(steps):
        a = -pi / 2 + pi * i / steps
        points.append((left + r * cos(a), r + r * sin(a)))
    # The head's left half circle lies to the left of the foot.
    for i in range(steps + 1):
        a = -pi / 2 - pi * i / steps
        points.append((left + r * cos(a), 3 * r + r * sin(a)))
    for i in range(steps):
        a = pi / 2 - pi * i / steps
        points.append((right + r * cos(a), 3 * r + r * sin(a)))
    for i in range(steps + 1):
        a = pi / 2 + pi * i / steps
        points.append((right + r * cos(a), r + r * sin(a)))
    return points, (c + w / 2 - r, h)


def row(style, sizes, count, distance, by_count, offset, flip):
    width = {0: sizes[0], 1: max(sizes[:2]), 2: sizes[0]}[style]
    outline, handles = [], []
    for c in centres(width, count, distance, by_count, offset):
        points, handle = (jagged, dovetail, puzzle)[style](c, *sizes)
        outline += points
        handles.append(handle)
    ends = [(0, 0), (LENGTH, 0)]
    same = lambda p, q: abs(p[0] - q[0]) + abs(p[1] - q[1]) < 1e-9
    kept = []
    for p in outline:
        if any(same(p, e) for e in ends) or (style != 2 and kept and same(p, kept[-1])):
            continue
        kept.append(p)
    return [place(*p, flip) for p in kept], [place(*p, flip) for p in handles]


CASES = [
    # style, sizes, count, distance, by count, offset
    (0, (4.0, 3.0), 3, 0.0, True, 0.0),
    (0, (4.0, 3.0), 1, 0.0, True, 0.0),
    (0, (4.0, 3.0), 4, 0.0, True, 7.5),
    (0, (4.0, 3.0), 0, 6.5, False, 0.0),
    (0, (4.0, 3.0), 0, 6.5, False, 2.25),
    (1, (6.0, 4.0, 3.5), 3, 0.0, True, 0.0),
    (1, (3.0, 5.0, 2.0), 2, 0.0, True, 4.0),
    (1, (6.0, 4.0, 3.5), 0, 9.0, False, 0.0),
    (1, (6.0, 4.0, 3.5), 0, 9.0, False, 5.5),
    (2, (6.0, 2.0), 2, 0.0, True, 0.0),
    (2, (8.0, 6.0), 1, 0.0, True, 3.0),
    (2, (12.0, 8.0), 0, 13.0, False, 0.0),
    (2, (6.0, 2.0), 0, 11.0, False, 1.5),
]


def points_text(points):
    return "{" + ", ".join("{%.6ff, %.6ff, %.6ff}" % p for p in points) + "}"


print("// SPDX-License-Identifier: GPL-3.0-or-later")
print("// Written by teeth_tables.py.")
print("// clang-format off")
print("#pragma once\n")
print('#include "tools/TeethParas.h"')
print('#include "platform/geometry/UPoint3.h"\n')
print("#include <vector>\n")
print("/// Teeth on the edge from (1, 2, 5) to (19, 26, 5), seen from above.")
print("struct TeethTable\n{")
print("    Freecut::TeethParas paras;")
print("    std::vector<UPoint3<float>> outline;")
print("    std::vector<UPoint3<float>> handles;\n};\n")
print("inline std::vector<TeethTable> const teethTables = {")
for style, sizes, count, distance, by_count, offset in CASES:
    for flip in (False, True):
        outline, handles = row(style, sizes, count, distance, by_count, offset, flip)
        w, h = (sizes[0], sizes[1]) if style != 1 else (0.0, 0.0)
        w1, w2, hd = sizes if style == 1 else (0.0, 0.0, 0.0)
        print(
            "    {{%d, %sf, %sf, %sf, %sf, %sf, %d, %sf, %d, %s, %sf, false, %s},\n     %s,\n     %s},"
            % (style, w, h, w1, w2, hd, count, distance, 0 if by_count else 1,
               "true" if offset else "false", offset, "true" if flip else "false",
               points_text(outline), points_text(handles)))
print("};")
