"""What becomes of a program whose bundle is missing or broken."""

import os
import shutil
import unittest
from pathlib import Path

from Program import Folder, Program, ProgramTest, Resolution, Ticket

Description = str(Path(os.environ["TARVO_SOURCE_DIR"]) / "resources/ppd/TarvoQL900.ppd")
Resources = "TarvoFeatures.plugin/Contents/Resources"


class Bundle(ProgramTest):
    def setUp(self):
        super().setUp()
        self.program = self.folder / "src/cli/tarvo-ticket"
        self.program.parent.mkdir(parents=True)
        shutil.copy(Program, self.program)
        self.ticket = str(self.write("job.plist", Ticket(Resolution)))
        self.document = str(self.write("job.xml", self.export("--all", self.ticket).stdout))

    def copy_bundle(self):
        shutil.copytree(Folder.parent.parent / Resources, self.folder / Resources)

    def test_without_texts_nothing_is_told(self):
        for words in (("show", self.ticket), ("import", self.document), ("printer", Description), ("stocks", "list")):
            for part in ("none", "TarvoFeatures.plugin"):
                (self.folder / part).mkdir(exist_ok=True)
                with self.subTest(words=words, part=part):
                    result = self.run_program(*words, program=self.program, env={**os.environ, "XDG_DATA_HOME": self.folder})
                    self.assertEqual((result.returncode, result.stdout), (1, b""))
                    self.assertEqual(self.messages(result), ["cannot find the program's texts beside it"])

    # Contents of the device profile, message on it.
    Profiles = {
        "absent": (None, ": cannot read: No such file or directory"),
        "cut": (b"<plist><dict>\n<key>Features</key>", ":2: "),
        "no dictionary": (b"<plist><array/></plist>", ": the root is no dictionary but of kind array"),
        "no features": (b"<plist><dict><key>Features</key><array/></dict></plist>", ': no dictionary "Features"'),
    }

    def test_a_broken_device_profile_is_named(self):
        self.copy_bundle()
        profile = self.folder / Resources / "Device Profile.plist"
        for name, (contents, message) in self.Profiles.items():
            profile.unlink(missing_ok=True)
            if contents is not None:
                profile.write_bytes(contents)
            for verb, file, status in (("import", self.document, 1), ("printer", Description, 3)):
                with self.subTest(name, verb=verb):
                    result = self.run_program(verb, file, program=self.program)
                    self.assertEqual((result.returncode, result.stdout != b""), (status, verb == "printer"))
                    self.assertEqual(len(self.messages(result)), 1)
                    self.assertIn(str(profile) + message, self.messages(result)[0])

    def test_the_printers_job_types_are_those_of_the_profile(self):
        self.copy_bundle()
        profile = self.folder / Resources / "Device Profile.plist"
        offered = self.run_program("printer", Description, program=self.program)
        self.assertIn(b"  Secure Print\n", offered.stdout)
        profile.write_bytes(b"<plist><dict><key>Features</key><dict/></dict></plist>")
        result = self.run_program("printer", Description, program=self.program)
        self.assertEqual((result.returncode, b"Secure Print" in result.stdout), (0, False))


if __name__ == "__main__":
    unittest.main()
