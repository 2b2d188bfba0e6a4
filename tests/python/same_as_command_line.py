# SPDX-License-Identifier: GPL-3.0-or-later
"""The pieces are those of freecut, byte for byte."""

import os
import pathlib
import subprocess
import tempfile
import unittest

import orbe
from shapes import ball, box


class SameAsCommandLine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        orbe.Part(*box((0, 0, 0), (40, 30, 20)), name="block").write(self.folder / "block.stl")
        orbe.Part(*ball(15, 24), name="ball").write(self.folder / "ball.ply")

    def freecut(self, *words):
        """The bytes of what freecut writes, by name."""
        output = self.folder / "freecut"
        result = subprocess.run([os.environ["FREECUT"], *words, "-o", output, "--quiet"], cwd=self.folder,
                                capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)
        return self.content(output)

    def content(self, folder):
        return {file.name: file.read_bytes() for file in folder.iterdir()} if folder.exists() else {}

    def assert_same(self, function, words, *files, **options):
        expected = self.freecut(*words, *files)
        self.assertGreater(len(expected), 0)
        paths = [self.folder / file for file in files]

        function(*paths, **options, output=self.folder / "by_name")
        self.assertEqual(self.content(self.folder / "by_name"), expected)

        # The part's format is that of a part without a file.
        expected = self.freecut(*words, *files, "--format", "stl", "--force")
        expected = {name: data for name, data in expected.items() if name.endswith(".stl")}
        (self.folder / "in_memory").mkdir()
        for piece in function(*[orbe.read(path)[0] for path in paths], **options):
            piece.write(self.folder / "in_memory" / f"{piece.name}.stl")
        self.assertEqual(self.content(self.folder / "in_memory"), expected)

    def test_cut_plane(self):
        self.assert_same(orbe.cut_plane, ["zcut", "--height", "3.7"], "ball.ply", height=3.7)

    def test_slices(self):
        self.assert_same(orbe.cut_plane, ["zcut", "--every", "7"], "ball.ply", every=7)

    def test_section_with_pins(self):
        self.assert_same(orbe.section, ["section", "--center", "20,15,10", "--normal", "0.1,0,1", "--pins", "--radius",
                                        "1.5", "--at", "10,10,11", "--without", "1"],
                         "block.stl", center=(20, 15, 10), normal=[0.1, 0, 1], pins=True, radius=1.5, at=(10, 10, 11),
                         without=[1])

    def test_section_with_lap_joint(self):
        self.assert_same(orbe.section, ["section", "--center", "20,15,10", "--normal", "0,0,1", "--lap-joint",
                                        "--notch-depth", "2"],
                         "block.stl", center=(20, 15, 10), normal=(0, 0, 1), lap_joint=True, notch_depth=2)

    def test_polygon(self):
        self.assert_same(orbe.polygon, ["polygon", "--view", "top", "--points", "-5,-5;20,0;20,40", "--round", "1.5",
                                        "--clearance", "0.1", "--direction", "both"],
                         "block.stl", view="top", points=[(-5, -5), (20, 0), (20, 40)], round=1.5, clearance=0.1,
                         direction="both")

    def test_teeth_on_several_edges(self):
        teeth = ["dovetail:1;width=3;lower=2;height=2;count=2", "jagged:2;width=2;height=1;count=3"]
        self.assert_same(orbe.polygon, ["polygon", f"--teeth={teeth[0]}", f"--teeth={teeth[1]}", "--view", "top",
                                        "--points", "-5,-5;20,0;20,40"],
                         "block.stl", view="top", points=[(-5, -5), (20, 0), (20, 40)], teeth=teeth)

    def test_cylinder(self):
        self.assert_same(orbe.cylinder, ["cylinder", "--view", "front", "--center", "20,10", "--radius", "4"],
                         "block.stl", view="front", center=(20, 10), radius=4)

    def test_cuboid(self):
        self.assert_same(orbe.cuboid, ["cuboid", "--view", "right", "--center", "0,5", "--length", "9", "--width", "8",
                                       "--angle", "30"],
                         "ball.ply", view="right", center=(0, 5), length=9, width=8, angle=30)

    def test_boolean(self):
        self.assert_same(lambda a, b, **options: orbe.boolean(a, b, "split", **options), ["boolean", "--split"],
                         "block.stl", "ball.ply")

    def test_repair(self):
        self.assert_same(orbe.repair, ["repair"], "ball.ply")

    def test_names_and_originals(self):
        self.assert_same(orbe.section, ["section", "--center", "0,0,0", "--normal", "0,0,1", "--name", "top,bottom",
                                        "--keep-original"],
                         "ball.ply", center=(0, 0, 0), normal=(0, 0, 1), name=("top", "bottom"), keep_original=True)

    def test_threads_do_not_count(self):
        pieces = [orbe.boolean(self.folder / "block.stl", self.folder / "ball.ply", "subtract", threads=n)[0]
                  for n in (1, 2)]
        self.assertEqual(pieces[0].vertices.tobytes(), pieces[1].vertices.tobytes())
        self.assertEqual(pieces[0].faces.tobytes(), pieces[1].faces.tobytes())

    def test_a_part_that_is_cut_while_it_is_read(self):
        expected = self.freecut("zcut", "block.stl", "--height", "5", "--stream")
        pieces = orbe.cut_plane(self.folder / "block.stl", height=5, stream=True, output=self.folder / "streamed")
        self.assertEqual(self.content(self.folder / "streamed"), expected)
        # It is in its file alone, which stands for it.
        with self.assertRaises(RuntimeError):
            pieces[0].vertices
        self.assertEqual(orbe.info(pieces[0])["volume"], 18000)
        with self.assertRaises(orbe.UsageError):
            orbe.cut_plane(self.folder / "block.stl", height=5, stream=True)
        with self.assertRaises(orbe.UsageError):
            orbe.cut_plane(orbe.read(self.folder / "block.stl"), height=5, stream=True, output=self.folder / "other")

    def test_info(self):
        info = orbe.info(self.folder / "block.stl")
        self.assertEqual((info["triangles"], info["volume"], info["closed"]), (12, 24000, True))
        self.assertEqual(sum(info["errors"].values()), 0)
        self.assertEqual(len(orbe.info([self.folder / "block.stl", self.folder / "ball.ply"])), 2)


if __name__ == "__main__":
    unittest.main()
