# SPDX-License-Identifier: GPL-3.0-or-later
"""Progress is told on the caller's thread, the interpreter goes on meanwhile, and Ctrl-C ends the work."""

import locale
import os
import pathlib
import signal
import tempfile
import threading
import time
import unittest

import orbe
from shapes import ball, box


class ProgressAndCancel(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        vertices, faces = ball(50, 250)
        cls.big = orbe.Part(vertices, faces, name="big")
        cls.other = orbe.Part(vertices + 30, faces, name="other")
        cls.cube = orbe.Part(*box((0, 0, 0), (10, 10, 10)))

    def test_progress_is_told_on_the_calling_thread(self):
        told = []
        orbe.boolean(self.big, self.other, "union",
                     progress=lambda percent, title: told.append((percent, title, threading.get_ident())))
        self.assertIn("Joining", {title for _, title, _ in told})
        self.assertEqual({thread for _, _, thread in told}, {threading.get_ident()})
        percents = [percent for percent, title, _ in told if title == "Joining"]
        self.assertEqual(percents, sorted(percents))
        self.assertTrue(0 <= percents[0] and percents[-1] <= 100 and len(percents) > 5, percents)

    def test_what_progress_raises_ends_the_work(self):
        class Enough(Exception):
            pass

        def raise_enough(percent, title):
            raise Enough(title)

        with self.assertRaises(Enough):
            orbe.boolean(self.big, self.other, "union", progress=raise_enough)
        self.assertEqual(len(orbe.cut_plane(self.cube, height=5)), 2)

    def interrupt_when_told(self, call):
        """Ctrl-C at the first progress."""
        def interrupt(percent, title):
            signal.raise_signal(signal.SIGINT)
        with self.assertRaises(KeyboardInterrupt):
            call(interrupt)
        self.assertEqual(len(orbe.cut_plane(self.cube, height=5)), 2)

    def test_ctrl_c_ends_the_work(self):
        self.interrupt_when_told(lambda progress: orbe.boolean(self.big, self.other, "union", progress=progress))

    def test_ctrl_c_from_outside_ends_the_work(self):
        # Again and again: the work has begun at one of them.
        def send():
            while not over.wait(0.05):
                os.kill(os.getpid(), signal.SIGINT)
        over = threading.Event()
        thread = threading.Thread(target=send)
        try:
            thread.start()
            while True:
                orbe.boolean(self.big, self.other, "union")
        except KeyboardInterrupt:
            pass
        finally:
            # One more may be on its way when the thread has ended.
            is_over = False
            while not is_over:
                try:
                    over.set()
                    thread.join()
                    time.sleep(0.05)
                    is_over = True
                except KeyboardInterrupt:
                    pass
        self.assertEqual(len(orbe.cut_plane(self.cube, height=5)), 2)

    def test_a_cancel_leaves_no_file(self):
        with tempfile.TemporaryDirectory() as folder:
            def stop(percent, title):
                if title.startswith("Writing"):
                    raise StopIteration
            with self.assertRaises(StopIteration):
                orbe.boolean(self.big, self.other, "split", output=pathlib.Path(folder) / "pieces", progress=stop)
            # The next call waits for what is left of the one before.
            orbe.info(self.cube)
            written = [file for _, _, files in os.walk(folder) for file in files]
            self.assertIn(len(written), (0, 2), written)
            self.assertFalse([name for name in written if not name.endswith(".stl")])

    def test_other_threads_go_on(self):
        turns = 0
        is_over = False

        def count():
            nonlocal turns
            while not is_over:
                turns += 1
                time.sleep(0.001)

        thread = threading.Thread(target=count)
        thread.start()
        before = turns
        orbe.boolean(self.big, self.other, "union")
        during = turns - before
        is_over = True
        thread.join()
        self.assertGreater(during, 3)

    def test_calls_from_many_threads_give_each_its_own(self):
        pieces = {}

        def cut(height):
            pieces[height] = orbe.cut_plane(self.cube, height=height)

        threads = [threading.Thread(target=cut, args=(height,)) for height in range(1, 9)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        for height, (upper, lower) in pieces.items():
            self.assertEqual((upper.vertices[:, 2].min(), lower.vertices[:, 2].max()), (height, height))
        self.assertEqual(len(pieces), 8)

    def test_a_forked_process_is_told(self):
        orbe.info(self.cube)
        child = os.fork()
        if child == 0:
            try:
                orbe.info(self.cube)
                os._exit(1)
            except RuntimeError as error:
                os._exit(0 if "spawn" in str(error) else 2)
        _, status = os.waitpid(child, 0)
        self.assertEqual(status, 0)

    def test_the_process_keeps_its_locale_and_environment(self):
        orbe.info(self.cube)
        self.assertEqual(locale.setlocale(locale.LC_NUMERIC), "C")
        self.assertNotIn("QT_QPA_PLATFORM", os.environ)


if __name__ == "__main__":
    unittest.main()
