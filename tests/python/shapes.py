# SPDX-License-Identifier: GPL-3.0-or-later
"""Closed meshes for tests: vertices and faces."""

import numpy


def box(lower, upper):
    lower, upper = numpy.float32(lower), numpy.float32(upper)
    vertices = [[(lower, upper)[i >> axis & 1][axis] for axis in range(3)] for i in range(8)]
    faces = [[0, 2, 3], [0, 3, 1], [4, 5, 7], [4, 7, 6], [0, 1, 5], [0, 5, 4],
             [2, 6, 7], [2, 7, 3], [0, 4, 6], [0, 6, 2], [1, 3, 7], [1, 7, 5]]
    return numpy.array(vertices, numpy.float32), numpy.array(faces, numpy.int32)


def ball(radius, rings):
    """Of 4 rings (rings - 1) faces, around the origin."""
    columns = 2 * rings
    polar, around = numpy.meshgrid(numpy.arange(1, rings) * numpy.pi / rings,
                                   numpy.arange(columns) * 2 * numpy.pi / columns, indexing="ij")
    grid = numpy.stack([numpy.sin(polar) * numpy.cos(around), numpy.sin(polar) * numpy.sin(around),
                        numpy.cos(polar)], -1).reshape(-1, 3)
    vertices = numpy.concatenate([grid, [[0, 0, 1], [0, 0, -1]]]) * radius
    north, south = len(grid), len(grid) + 1
    column = numpy.arange(columns)
    after = (column + 1) % columns
    faces = [numpy.stack([numpy.full(columns, north), column, after], -1),
             numpy.stack([numpy.full(columns, south), after + (rings - 2) * columns, column + (rings - 2) * columns], -1)]
    for ring in range(rings - 2):
        a, b = column + ring * columns, after + ring * columns
        faces += [numpy.stack([a, a + columns, b + columns], -1), numpy.stack([a, b + columns, b], -1)]
    return vertices.astype(numpy.float32), numpy.concatenate(faces).astype(numpy.int64)


def volume(part):
    """Cubic millimetres."""
    a, b, c = (part.vertices.astype(float)[part.faces[:, i]] for i in range(3))
    return float((a * numpy.cross(b, c)).sum() / 6)
