"""tools/with-cupsd and tools/with-display: what becomes of the exit status and of the folders when a
server does not do as it should."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

Tools = Path(os.environ["TARVO_SOURCE_DIR"]) / "tools"


class Stages(unittest.TestCase):
    def run_tool(self, *words, **settings):
        """The exit status; nothing stays in the folder for temporary files."""
        with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as programs:
            for name, text in settings.items():
                program = Path(programs) / name
                program.write_text(f"#!/bin/sh\n{text}\n")
                program.chmod(0o755)
            os.chmod(folder, 0o755)  # filters run as another user
            environment = os.environ | {"TMPDIR": folder, "PATH": f"{programs}:{os.environ['PATH']}"}
            result = subprocess.run([Tools / words[0], *words[1:]], env=environment, capture_output=True, timeout=120, check=False)
            self.assertEqual(os.listdir(folder), [])
            return result.returncode

    def test_the_commands_status_counts(self):
        for name, script in (("server alive", "exit 5"), ("server stopped", 'kill -STOP "$CUPSD_PID"; exit 5'),
                             ("server dead", 'kill -KILL "$CUPSD_PID"; exit 5')):
            with self.subTest(name):
                self.assertIn(self.run_tool("with-cupsd", "sh", "-c", script), (5, 77))
        self.assertIn(self.run_tool("with-display", "sh", "-c", "exit 5"), (5, 77))

    def test_a_screen_that_cannot_be_is_no_failure(self):
        for name, script in (("fails", "exit 1"), ("says nothing", "exec >&- 3>&-; sleep 1")):
            with self.subTest(name):
                self.assertEqual(self.run_tool("with-display", "true", Xvfb=script), 77)

    def test_a_server_that_cannot_be_is_no_failure(self):
        self.assertEqual(self.run_tool("with-cupsd", "true", lpstat="exit 1", sleep="exit 0"), 77)


if __name__ == "__main__":
    unittest.main()
