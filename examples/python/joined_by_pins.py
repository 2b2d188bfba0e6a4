# SPDX-License-Identifier: GPL-3.0-or-later
# %% [markdown]
# # Look at the connectors before the cut, and choose among them

# %%
import numpy
import orbe

angles = numpy.arange(64) * 2 * numpy.pi / 64
ring = numpy.stack([30 * numpy.cos(angles), 30 * numpy.sin(angles)], -1)
n = len(ring)
vertices = numpy.concatenate([numpy.c_[ring, numpy.zeros(n)], numpy.c_[ring, numpy.full(n, 50)], [[0, 0, 0], [0, 0, 50]]])
i = numpy.arange(n)
j = (i + 1) % n
faces = numpy.concatenate([numpy.c_[i, j, j + n], numpy.c_[i, j + n, i + n],
                           numpy.c_[j, i, numpy.full(n, 2 * n)], numpy.c_[i + n, j + n, numpy.full(n, 2 * n + 1)]])
column = orbe.Part(vertices, faces, name="column")

# %% [markdown]
# A dry run says where pins would stand.

# %%
plane = {"center": (0, 0, 25), "normal": (0, 0, 1), "pins": True, "radius": 2}
survey = orbe.section(column, **plane, dry_run=True).report["parts"][0]
print(f"{survey['section']['area']:.1f} mm2, {len(survey['connectors'])} pins")
for connector in survey["connectors"]:
    print(connector["number"], connector["position"], connector["state"])

# %% [markdown]
# Leave all of them out and set two of our own.

# %%
pieces = orbe.section(column, **plane, without="all", at=[(-15, 0, 25), (15, 0, 25)], face_clearance=0,
                      progress=lambda percent, title: None)
pieces_info = orbe.info(list(pieces))
whole = orbe.info(column)["volume"]
assert all(info["closed"] for info in pieces_info)
# Holes are a little wider and deeper than their pins.
assert 0 < whole - sum(info["volume"] for info in pieces_info) < 5
for piece in pieces:
    piece.write(f"{piece.name}.3mf")
print("Volumes add up")
