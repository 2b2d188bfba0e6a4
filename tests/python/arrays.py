# SPDX-License-Identifier: GPL-3.0-or-later
"""Parts from and to arrays."""

import types
import unittest

import numpy

import orbe
from shapes import ball, box, volume


class Arrays(unittest.TestCase):
    def test_a_part_gives_the_arrays_that_it_was_made_of(self):
        vertices, faces = ball(10, 12)
        part = orbe.Part(vertices, faces, name="ball")
        self.assertEqual((part.name, part.file), ("ball", None))
        self.assertEqual((part.vertices.dtype, part.faces.dtype), (numpy.float32, numpy.uint32))
        numpy.testing.assert_array_equal(part.vertices[part.faces], vertices[faces])
        self.assertEqual(len(part.vertices), len(vertices))

    def test_any_layout_and_whole_number_serves(self):
        vertices, faces = ball(10, 12)
        expected = orbe.Part(vertices, faces)
        table = numpy.zeros((len(vertices) * 2, 7), numpy.float32)
        table[::2, 1:6:2] = vertices
        lists = [numpy.asfortranarray(faces.astype(kind)) for kind in (numpy.int32, numpy.uint32, numpy.uint64, numpy.int16)]
        for points in (table[::2, 1:6:2], numpy.asfortranarray(vertices), vertices.astype(float), vertices[::-1][::-1]):
            for numbers in [*lists, faces.astype(numpy.int64)[::-1][::-1], faces.tolist()]:
                part = orbe.Part(points, numbers)
                self.assertEqual(part.vertices.tobytes(), expected.vertices.tobytes())
                self.assertEqual(part.faces.tobytes(), expected.faces.tobytes())

    def test_every_access_gives_the_same_memory_which_nobody_changes(self):
        part = orbe.Part(*box((0, 0, 0), (1, 2, 3)))
        self.assertIs(part.vertices, part.vertices)
        self.assertIs(part.faces, part.faces)
        with self.assertRaises(ValueError):
            part.vertices[0, 0] = 5
        with self.assertRaises(ValueError):
            part.faces[0, 0] = 5

    def test_arrays_outlive_their_part(self):
        vertices = orbe.Part(*box((0, 0, 0), (1, 2, 3))).vertices
        self.assertEqual(vertices.max(), 3)

    def test_a_part_does_not_change_with_the_arrays(self):
        vertices, faces = box((0, 0, 0), (1, 2, 3))
        part = orbe.Part(vertices, faces)
        vertices += 1
        self.assertEqual(part.vertices.min(), 0)

    def test_vertices_at_one_place_are_joined_and_idle_ones_go(self):
        vertices, faces = box((0, 0, 0), (1, 2, 3))
        soup = numpy.concatenate([vertices[faces].reshape(-1, 3), [[9, 9, 9]]])
        part = orbe.Part(soup, numpy.arange(36).reshape(-1, 3))
        self.assertEqual(len(part.vertices), 8)
        self.assertTrue(orbe.info(part)["closed"])

    def test_any_object_with_vertices_and_faces_is_a_part(self):
        vertices, faces = box((0, 0, 0), (10, 10, 10))
        mesh = types.SimpleNamespace(vertices=vertices.astype(float), faces=faces.astype(numpy.int64))
        upper, lower = orbe.cut_plane(mesh, height=4)
        self.assertAlmostEqual(volume(upper), 600, 3)
        self.assertAlmostEqual(volume(lower), 400, 3)

    def test_pieces_are_parts_again(self):
        upper, _ = orbe.cut_plane(orbe.Part(*box((0, 0, 0), (10, 10, 10)), name="cube"), height=4)
        self.assertEqual(upper.name, "cube_cut1")
        pieces = orbe.cut_plane([upper, upper], heights=[5, 6])
        self.assertEqual([round(volume(piece)) for piece in pieces], [500, 100, 400, 200])
        self.assertEqual([len(each) for each in pieces.by_part], [2, 2])

    def test_units_and_scale_count_for_parts_in_memory(self):
        pieces = orbe.cut_plane(orbe.Part(*box((0, 0, 0), (1, 1, 1))), height=20, unit="inch", scale=2)
        self.assertAlmostEqual(sum(map(volume, pieces)), 50.8 ** 3, 1)

    def test_what_is_no_part_is_refused(self):
        vertices, faces = box((0, 0, 0), (1, 2, 3))
        for points, numbers, error, text in [
            (vertices[:, :2], faces, ValueError, "Vertices are an array of n x 3."),
            (vertices, faces[0], ValueError, "Faces are an array of n x 3."),
            (vertices, faces.astype(float), TypeError, "Faces are whole numbers of vertices."),
            (vertices, faces + 1, ValueError, "Face 2 refers to vertex 8, but there are 8 vertices, counted from 0."),
            (vertices, faces - 1, ValueError, "Face 0 refers to vertex -1, but there are 8 vertices, counted from 0."),
            (vertices * numpy.nan, faces, ValueError,
             "Vertex 0 has a coordinate that is not a finite number in the range of single precision."),
            (vertices, faces[:0], ValueError, "No face has three different corners; a part was expected."),
        ]:
            with self.assertRaises(error) as raised:
                orbe.Part(points, numbers)
            self.assertEqual(str(raised.exception), text)


if __name__ == "__main__":
    unittest.main()
