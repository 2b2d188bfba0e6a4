# SPDX-License-Identifier: GPL-3.0-or-later
# %% [markdown]
# # Cut a part into pieces that fit the printer
# A printer takes 100 mm in each direction; the part is 260 mm long and 150 mm high.

# %%
import numpy
import orbe

corners = numpy.array([[x, y, z] for z in (0, 150) for y in (0, 60) for x in (0, 260)], numpy.float32)
faces = [[0, 2, 3], [0, 3, 1], [4, 5, 7], [4, 7, 6], [0, 1, 5], [0, 5, 4],
         [2, 6, 7], [2, 7, 3], [0, 4, 6], [0, 6, 2], [1, 3, 7], [1, 7, 5]]
part = orbe.Part(corners, faces, name="beam")

# %% [markdown]
# Planes across each axis that is too long. Where the pieces meet, holes take pins of 1.75 mm filament.

# %%
def cut_along(parts, axis, largest):
    lower, upper = corners[:, axis].min(), corners[:, axis].max()
    count = int(numpy.ceil((upper - lower) / largest))
    normal = numpy.eye(3)[axis]
    for place in numpy.linspace(lower, upper, count + 1)[1:-1]:
        parts = orbe.section(parts, center=normal * place, normal=normal, holes=True, radius=0.9, height=6,
                             spacing=40)
    return list(parts)


pieces = [part]
for axis in range(3):
    pieces = cut_along(pieces, axis, 100)

# %%
for piece in pieces:
    size = piece.vertices.max(0) - piece.vertices.min(0)
    assert (size <= 100).all(), size
assert all(info["closed"] for info in orbe.info(pieces))
print(f"{len(pieces)} pieces, all closed")
