# SPDX-License-Identifier: GPL-3.0-or-later
"""Failures are exceptions with the sentences of freecut, and leave nothing behind."""

import os
import pathlib
import subprocess
import tempfile
import unittest

import orbe
from shapes import box


class Failures(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.cube = orbe.Part(*box((0, 0, 0), (10, 10, 10)), name="cube")
        vertices, faces = box((0, 0, 0), (10, 10, 10))
        self.open_cube = orbe.Part(vertices, faces[2:], name="cube")
        self.previous = os.getcwd()
        os.chdir(self.folder)
        self.addCleanup(os.chdir, self.previous)

    def said_by_freecut(self, *words):
        result = subprocess.run([os.environ["FREECUT"], *words, "--quiet"], capture_output=True, text=True)
        self.assertNotEqual(result.returncode, 0)
        return result.stderr.strip().removeprefix("freecut: ")

    def assert_same_failure(self, error, call, *words):
        with self.assertRaises(error) as raised:
            call()
        self.assertEqual(str(raised.exception), self.said_by_freecut(*words))
        return raised.exception

    def test_a_missing_file(self):
        self.assert_same_failure(orbe.FileError, lambda: orbe.cut_plane("none.stl", height=5, output="pieces"),
                                 "zcut", "none.stl", "--height", "5")
        with self.assertRaises(OSError):
            orbe.read("none.stl")

    def test_wrong_values(self):
        self.cube.write("cube.stl")
        self.assert_same_failure(
            orbe.UsageError, lambda: orbe.section("cube.stl", center=(5, 5, 5), normal=(0, 0, 0)),
            "section", "cube.stl", "--center", "5,5,5", "--normal", "0,0,0")
        self.assert_same_failure(
            orbe.UsageError,
            lambda: orbe.section("cube.stl", center=(5, 5, 5), normal=(0, 0, 1), pins=True, radius=-1),
            "section", "cube.stl", "--center", "5,5,5", "--normal", "0,0,1", "--pins", "--radius", "-1")
        with self.assertRaises(ValueError):
            orbe.cut_plane(self.cube, height="high")

    def test_an_open_part(self):
        self.open_cube.write("cube.stl")
        error = self.assert_same_failure(
            orbe.CutError, lambda: orbe.boolean("cube.stl", "cube.stl", "union"), "boolean", "cube.stl", "cube.stl",
            "--union")
        self.assertEqual(len(error.pieces), 0)
        self.assertEqual(error.report["status"], 1)

    def test_an_open_piece_is_there_but_told(self):
        with self.assertRaises(orbe.OpenPieceError) as raised:
            orbe.cut_plane(self.open_cube, height=-5, no_repair=True)
        self.assertIn("The piece is not closed", str(raised.exception))
        self.assertEqual(len(raised.exception.pieces), 1)
        pieces = orbe.cut_plane(self.open_cube, height=-5, no_repair=True, allow_open=True)
        self.assertEqual(len(pieces), 1)
        self.assertIn("The piece is not closed", pieces.remarks[-1])

    def test_with_keep_going_the_pieces_of_others_are_kept(self):
        with self.assertRaises(orbe.FileError) as raised:
            orbe.cut_plane(["none.stl", self.cube], height=5, keep_going=True)
        self.assertEqual([len(each) for each in raised.exception.pieces.by_part], [0, 2])

    def test_remarks_are_told(self):
        pieces = orbe.cut_plane(self.cube, height=50)
        self.assertEqual(len(pieces), 1)
        self.assertTrue(pieces.remarks[0].startswith("cube: "), pieces.remarks)

    def test_names_of_arguments(self):
        with self.assertRaises(TypeError) as raised:
            orbe.cut_plane(self.cube, heigth=5)
        self.assertEqual(str(raised.exception), "cut_plane() has no argument heigth. Did you mean height?")
        with self.assertRaises(TypeError):
            orbe.section(self.cube, center=(0, 0, 5), normal=(0, 0, 1), pins=5)
        with self.assertRaises(orbe.UsageError):
            orbe.boolean(self.cube, self.cube, "divide")
        with self.assertRaises(TypeError):
            orbe.cut_plane(5, height=5)

    def test_standard_streams_belong_to_python(self):
        for call in (lambda: orbe.cut_plane("-", height=5), lambda: orbe.cut_plane(self.cube, height=5, output="-"),
                     lambda: orbe.cut_plane(self.cube, height=5, json="-")):
            with self.assertRaises(orbe.UsageError):
                call()

    def test_a_file_in_the_way_is_replaced_by_force_alone(self):
        self.cube.write("cube.stl")
        before = pathlib.Path("cube.stl").read_bytes()
        with self.assertRaises(orbe.FileError):
            self.open_cube.write("cube.stl")
        self.assertEqual(pathlib.Path("cube.stl").read_bytes(), before)
        self.open_cube.write("cube.stl", force=True)
        self.assertNotEqual(pathlib.Path("cube.stl").read_bytes(), before)
        with self.assertRaises(orbe.UsageError):
            self.cube.write("cube.xyz", format="xyz")

    def test_nothing_is_written_unless_a_folder_is_named(self):
        orbe.cut_plane(self.cube, height=5)
        self.assertEqual(os.listdir(), [])
        pieces = orbe.cut_plane(self.cube, height=5, output="pieces", format="off")
        self.assertEqual([piece.file for piece in pieces], ["pieces/cube_cut1.off", "pieces/cube_cut2.off"])


if __name__ == "__main__":
    unittest.main()
