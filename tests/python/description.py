# SPDX-License-Identifier: GPL-3.0-or-later
"""Signatures, docstrings and the type stub have the options of the command line."""

import ast
import inspect
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

import orbe

COMMANDS = {"cut_plane": "zcut", "section": "section", "polygon": "polygon", "cylinder": "cylinder", "cuboid": "cuboid",
            "boolean": "boolean", "repair": "repair", "info": "info"}
# What Python says in another way.
ELSEWHERE = {"help", "quiet", "check", "union", "intersect", "subtract", "split"}
STUB = pathlib.Path(orbe.__file__).with_name("__init__.pyi")


def options_of(command):
    help_text = subprocess.run([os.environ["FREECUT"], command, "--help"], capture_output=True, text=True).stdout
    names = re.findall(r"^ +(?:-\w,)?--([\w-]+)", help_text, re.MULTILINE)
    return {name.replace("-", "_") for name in names if name not in ELSEWHERE}


class Description(unittest.TestCase):
    def test_signatures_have_the_options_of_the_command_line(self):
        for function, command in COMMANDS.items():
            keywords = {name for name, parameter in inspect.signature(getattr(orbe, function)).parameters.items()
                        if parameter.kind == parameter.KEYWORD_ONLY}
            self.assertEqual(keywords, options_of(command) | {"progress"}, function)
            self.assertGreater(len(keywords), 6, function)

    def test_the_stub_has_the_same(self):
        functions = {node.name: node for node in ast.parse(STUB.read_text()).body if isinstance(node, ast.FunctionDef)}
        for function, command in COMMANDS.items():
            keywords = {argument.arg for argument in functions[function].args.kwonlyargs}
            self.assertEqual(keywords, options_of(command) | {"progress"}, function)

    def test_everything_public_is_documented(self):
        for name in orbe.__all__:
            self.assertTrue(getattr(orbe, name).__doc__, name)
        for name, member in vars(orbe.Part).items():
            if not name.startswith("_"):
                self.assertTrue(member.__doc__, name)
        for option in ("side_clearance : MM", "center : X,Y,Z"):
            self.assertIn(option, orbe.section.__doc__)

    def test_type_checkers_accept_the_stub(self):
        if not shutil.which("mypy"):
            self.skipTest("mypy is not installed.")
        with tempfile.TemporaryDirectory() as folder:
            use = pathlib.Path(folder) / "use.py"
            use.write_text("import orbe\n"
                           "part = orbe.read('a.stl')[0]\n"
                           "for piece in orbe.section([part, 'b.stl'], center=(0, 0, 1), normal=[0, 0, 1], pins=True):\n"
                           "    piece.vertices.mean()\n"
                           "orbe.cut_plane(part, heigth=5)\n")
            result = subprocess.run(["mypy", "--strict", "--cache-dir", folder, use], capture_output=True, text=True,
                                    env={**os.environ, "MYPYPATH": str(STUB.parent.parent)})
        errors = [line for line in result.stdout.splitlines() if ": error:" in line]
        self.assertEqual(len(errors), 1, result.stdout)
        self.assertIn("heigth", errors[0])


if __name__ == "__main__":
    unittest.main()
