"""The verb "printer": what a printer offers, in words and as JSON."""

import json
import os
import unittest
from pathlib import Path

from Program import ProgramTest

Descriptions = Path(os.environ["TARVO_SOURCE_DIR"]) / "resources/ppd"


class Printer(ProgramTest):
    def test_the_production_printer_in_words(self):
        result = self.run_program("printer", str(Descriptions / "TarvoQL900.ppd"))
        self.assertEqual((result.returncode, self.messages(result)), (0, []))
        text = result.stdout.decode()
        for line in ("  width 152.4 to 330.2 mm (6.00 to 13.00 in)", "  Punch Unit: Not Installed", "  Secure Print",
                     '  Booklet Maker "Not Installed" excludes Fold and Punch "Booklet Fold"', "  Multiple Finishing…"):
            self.assertIn(line + "\n", text)
        self.assertNotIn("STRING NOT FOUND", text)

    def test_its_features_in_the_users_language(self):
        plain = {name: value for name, value in os.environ.items() if name not in ("LANGUAGE", "LANG") and not name.startswith("LC_")}
        environments = [
            ({"LANGUAGE": "de"}, "Geschützter Druck"),
            ({"LANGUAGE": "fr:de"}, "Geschützter Druck"),
            ({"LANG": "de_DE.UTF-8"}, "Geschützter Druck"),
            ({"LANG": "de_DE.UTF-8", "LC_ALL": "C"}, "Secure Print"),
            ({"LANG": "fr_FR.UTF-8"}, "Secure Print"),
            ({}, "Secure Print"),
        ]
        for environment, text in environments:
            with self.subTest(environment):
                result = self.run_program("printer", str(Descriptions / "TarvoQL900.ppd"), env={**plain, **environment})
                self.assertIn(f"  {text}\n", result.stdout.decode())

    def test_the_texts_are_in_the_language_of_the_user(self):
        words = ("printer", str(Descriptions / "TarvoQL900.ppd"))
        for variables in ({"LANGUAGE": "de"}, {"LC_ALL": "de_AT.UTF-8"}, {"LC_MESSAGES": "de"}, {"LANG": "de_DE"}):
            with self.subTest(variables):
                text = self.run_program(*words, env=variables).stdout.decode()
                self.assertIn("A4-Umschlagblatt, übergroß (223 × 297 mm)", text)
                self.assertIn("  Locheinheit: Nicht installiert\n", text)
        self.assertIn("  Punch Unit: ", self.run_program(*words, env={"LANGUAGE": "en:de"}).stdout.decode())

    def test_the_same_for_programs(self):
        result = self.run_program("printer", "--json", str(Descriptions / "TarvoQL900.ppd"))
        printer = json.loads(result.stdout)
        self.assertEqual(printer["maker"], "Tarvo")
        self.assertEqual(printer["customSizes"]["maximumLength"], 1368)
        options = {option["keyword"]: option for group in printer["groups"] for option in group["options"]}
        self.assertEqual([choice["keyword"] for choice in options["Duplex"]["choices"] if choice["default"]], ["None"])
        self.assertIn({"keyword": "1 Staple...", "text": "1 Staple…", "option": 4, "choices": [5, 6, 7]}, printer["finishing"])
        self.assertEqual(len(printer["constraints"]), len(set(printer["constraints"])))

    def test_what_is_wrong_with_a_description_is_named(self):
        office = self.run_program("printer", str(Descriptions / "TarvoDesk210.ppd"))
        self.assertEqual(office.returncode, 0)
        self.assertIn('"JCLBanner" is not of type PickOne', office.stderr.decode())
        broken = self.write("broken.ppd", b'*PPD-Adobe: "4.3"\n*NickName: "x"\nnonsense\n')
        result = self.run_program("printer", str(broken))
        self.assertEqual(result.returncode, 1)
        self.assertEqual(self.messages(result), [f"{broken}:3: missing asterisk in column 1"])
        nameless = self.write("nameless.ppd", b'*PPD-Adobe: "4.3"\n*OpenUI *Jog: PickOne\n*DefaultJog: Up\n*Jog A: ""\n*Jog A: ""\n*CloseUI: *Jog\n')
        text = self.run_program("printer", str(nameless)).stderr.decode()
        for fault in ("no manufacturer", '"Jog" has the choice "A" twice', 'the default "Up" of "Jog"', "without MediaColor, MediaType, PageSize, Duplex"):
            self.assertIn(fault, text)

    def test_wrong_use(self):
        for words in ((), ("-",), ("a.ppd", "b.ppd"), ("--all", "a.ppd")):
            with self.subTest(words):
                self.assertEqual(self.run_program("printer", *words).returncode, 2)


if __name__ == "__main__":
    unittest.main()
