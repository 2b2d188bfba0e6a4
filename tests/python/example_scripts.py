# SPDX-License-Identifier: GPL-3.0-or-later
"""The examples run, and end as they say."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

EXAMPLES = pathlib.Path(__file__).parents[2] / "examples" / "python"
LAST_LINES = {"fit_the_printer.py": "6 pieces, all closed", "joined_by_pins.py": "Volumes add up",
              "mesh_objects.py": "Closed: True"}


class ExampleScripts(unittest.TestCase):
    def test_each_runs(self):
        self.assertEqual({file.name for file in EXAMPLES.glob("*.py")}, set(LAST_LINES))
        for name, last_line in LAST_LINES.items():
            with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                result = subprocess.run([sys.executable, EXAMPLES / name], cwd=folder, capture_output=True, text=True)
                self.assertEqual(result.returncode, 0, result.stderr)
                self.assertEqual(result.stdout.splitlines()[-1], last_line)


if __name__ == "__main__":
    unittest.main()
