# SPDX-License-Identifier: GPL-3.0-or-later
# %% [markdown]
# # Meshes of other libraries
# Whatever has vertices and faces is a part, as the meshes of trimesh and of others are. Here a class stands for them.

# %%
from dataclasses import dataclass

import numpy
import orbe


@dataclass
class Mesh:
    vertices: numpy.ndarray  # float64, n x 3
    faces: numpy.ndarray     # int64, m x 3

    @classmethod
    def box(cls, size, center):
        vertices = (numpy.array([[x, y, z] for z in (0, 1) for y in (0, 1) for x in (0, 1)]) - 0.5) * size + center
        return cls(vertices, numpy.array([[0, 2, 3], [0, 3, 1], [4, 5, 7], [4, 7, 6], [0, 1, 5], [0, 5, 4],
                                          [2, 6, 7], [2, 7, 3], [0, 4, 6], [0, 6, 2], [1, 3, 7], [1, 7, 5]]))


# %% [markdown]
# They go in as they are; what comes out goes back by two arrays.

# %%
plate = Mesh.box((60, 40, 8), (0, 0, 0))
for x in (-20, 0, 20):
    piece, = orbe.boolean(plate, Mesh.box((6, 6, 20), (x, 0, 0)), "subtract")
    plate = Mesh(piece.vertices.astype(float), piece.faces.astype(int))
inner, outer = orbe.cylinder(plate, view="top", center=(20, 10), radius=5, clearance=0.1)

# %%
print(len(plate.faces), "faces,", len(inner.faces), "and", len(outer.faces), "after the cut")
print("Closed:", all(info["closed"] for info in orbe.info([inner, outer])))
