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
        for line in ("  width 152.4 to 330.2 mm (6 to 13 in)", "  Punch Unit: Not Installed", "  Secure Print",
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
                self.assertRegex(text, r"\nEigene Papierformate\n  Breite 152[.,]4 bis 330[.,]2 mm \(6 bis 13 Zoll\)\n")
                self.assertIn("  Broschüreneinheit „Nicht installiert“ schließt Ausgabefach „Broschürenfach“ aus\n", text)
        self.assertIn("  Punch Unit: ", self.run_program(*words, env={"LANGUAGE": "en:de"}).stdout.decode())

    def test_the_same_for_programs(self):
        result = self.run_program("printer", "--json", str(Descriptions / "TarvoQL900.ppd"))
        printer = json.loads(result.stdout)
        self.assertEqual(printer["maker"], "Tarvo")
        self.assertEqual([sizes["maximumLength"] for sizes in (printer["customSizes"], printer["customSizes"]["millimeters"],
                                                               printer["customSizes"]["inches"])], [1368, 482.6, 19])
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
        missing = self.run_program("printer", "missing.ppd")
        self.assertEqual((missing.returncode, self.messages(missing)), (1, ["missing.ppd: cannot read: No such file or directory"]))

    Header = b'*PPD-Adobe: "4.3"\n*Manufacturer: "Tarvo"\n*NickName: "x"\n'
    Picked = b'*OpenUI *X: PickOne\n*DefaultX: A\n*X A: ""\n*CloseUI: *X\n'
    PageSize = Picked.replace(b"X", b"PageSize").replace(b"A:", b"A4:").replace(b": A", b": A4") + b'*CustomPageSize True: "pop"\n'

    # Description after its header of three lines, messages on it.
    Faults = {
        "complete": (b"", []),
        "no default": (b'*OpenUI *X: PickOne\n*X A: ""\n*CloseUI: *X\n', ['4: "X" has no default']),
        "default unknown": (b'*OpenUI *X: PickOne\n*DefaultX: Up\n*X A: ""\n*CloseUI: *X\n',
                            ['5: the default "Up" of "X" is none of its choices']),
        "choices again, each named once": (b'*OpenUI *X: PickOne\n*DefaultX: A\n*X A: ""\n*X A: ""\n*X B: ""\n*X A: ""\n*X B: ""\n*CloseUI: *X\n',
                                           ['7: "X" has the choice "A" again', '10: "X" has the choice "B" again']),
        "option again": (b'*OpenUI *X: Boolean\n*DefaultX: A\n*X A: ""\n*CloseUI: *X\n' * 2, ['8: "X" is there again']),
        "cut in an option": (b'*OpenGroup: G/Group\n*OpenUI *X: PickOne\n*DefaultX: A\n*X A: ""\n',
                             ['4: the *OpenGroup of "G" has no *CloseGroup', '5: the *OpenUI of "X" has no *CloseUI']),
        "next option in one": (b'*JCLOpenUI *X: PickOne\n*DefaultX: A\n*X A: ""\n*OpenUI *Y: PickOne\n*DefaultY: A\n*Y A: ""\n*CloseUI: *Y\n',
                               ['4: the *JCLOpenUI of "X" has no *JCLCloseUI']),
        "cut in a subgroup": (b"*OpenGroup: G/Group\n*OpenSubGroup: S/Sub\n*CloseGroup: G\n", ['5: the *OpenSubGroup of "S" has no *CloseSubGroup']),
        "cut in a quote": (b'*Product: "(x)\n*OpenUI *X: PickOne', ['4: the quote of "Product" is never closed']),
        "cut in a line": (b'*Product: "(x)"\r\n*OpenUI *X: Pi', ['5: "X" has no default', '5: the *OpenUI of "X" has no *CloseUI',
                                                              "5: the file ends within this line"]),
        "three in a constraint": (b'*cupsUIConstraints: "*X *Y *Z"\n', ["4: a constraint that does not name two options is left out"]),
        "unknown in constraints": (Picked + b"*UIConstraints: *X A *Y B\n*UIConstraints: *X C *X A\n*NonUIConstraints: *Y B *X C\n"
                                   b'*cupsUIConstraints: "*Y *X"\n*UIConstraints: *X A B *Y\n',
                                   ['8: a constraint names "Y", which is no option', '9: a constraint names "C", which "X" does not have',
                                    '10: a constraint names "C", which "X" does not have',
                                    '11: a constraint names "Y", which is no option', "12: a constraint does not name two options"]),
        "no type": (b'*OpenUI *X\n*DefaultX: A\n*X A: ""\n*CloseUI: *X\n', ['4: the *OpenUI of "X" says no type']),
        "closings that close nothing": (Picked + b"*CloseUI: *X\n*CloseSubGroup: S\n*CloseGroup: G\n",
                                        ['8: the *CloseUI of "X" closes nothing', '9: the *CloseSubGroup of "S" closes nothing',
                                         '10: the *CloseGroup of "G" closes nothing']),
        "closings of others": (b"*OpenGroup: G/Group\n" + Picked.replace(b"Close", b"JCLClose") + b"*CloseGroup: H\n",
                               ['8: the *JCLCloseUI of "X" does not match the *OpenUI of "X"',
                                '9: the *CloseGroup of "H" does not match the *OpenGroup of "G"']),
        "another default, which counts": (Picked + b"*DefaultX: Up\n", ['8: the default "Up" of "X" is none of its choices',
                                                                      '8: "X" has another default already; this one counts']),
        "the same default again": (b"*DefaultX: A\n" + Picked, []),
        "a value of the user's own": (Picked.replace(b": A", b": Custom.12") + b'*CustomX True: ""\n*ParamCustomX T: 1 int 1 10\n'
                                      b"*UIConstraints: *CustomX True *X A\n*UIConstraints: *X Custom *X A\n", []),
        "not the user's own": (Picked.replace(b": A", b": Custom") + b"*UIConstraints: *CustomX True *X A\n",
                               ['5: the default "Custom" of "X" is none of its choices',
                                '8: a constraint names "CustomX", which is no option']),
        "limits without a range": (PageSize + b"*ParamCustomPageSize Width: 1 points 72 700\n*ParamCustomPageSize Height: 2 points 700 72\n",
                                   ["10: the limits of custom paper sizes make no range: none are offered"]),
        "custom sizes without limits": (PageSize, ["8: the limits of custom paper sizes make no range: none are offered"]),
        "custom sizes in range": (PageSize + b"*ParamCustomPageSize Width: 1 points 72.5 700\n*ParamCustomPageSize Height: 2 points 72 700\n", []),
    }

    def test_faults_are_named_with_their_lines(self):
        for name, (text, faults) in self.Faults.items():
            with self.subTest(name):
                result = self.run_program("printer", "--json", "-", input=self.Header + text)
                self.assertEqual(result.returncode, 3 if faults else 0)
                *found, keywords = self.messages(result)[1:] + self.messages(result)[:1]
                self.assertEqual(found, ["standard input:" + fault for fault in faults])
                self.assertIn("without MediaColor, MediaType, ", keywords)
                printer = json.loads(result.stdout)
                self.assertEqual([f"{fault['line']}: {fault['text']}" for fault in printer["faults"]], faults)
                self.assertIsNone(printer["notes"][0]["line"])

    def test_choices_that_menus_have_no_number_for_are_noted(self):
        text = self.Header + self.Picked.replace(b"X", b"Jog").replace(b"A:", b"None:").replace(b": A", b": None")
        text = text.replace(b"*Jog None", b'*Jog Side: ""\n*Jog endofset: ""\n*Jog None')
        result = self.run_program("printer", "-", input=text)
        self.assertEqual(result.returncode, 0)
        self.assertIn('standard input:4: "Jog" has choices that the print features do not know: Side, endofset', result.stderr.decode())

    def test_what_may_be_installed_is_told_once(self):
        groups = b"*OpenGroup: %s\n*OpenSubGroup: Sub\n%s*CloseSubGroup: Sub\n*CloseGroup: %s\n"
        text = self.Header + groups % (b"More", self.Picked.replace(b"X", b"Option7"), b"More")
        text += groups % (b"InstallableOptions", self.Picked + self.Picked.replace(b"X", b"Z").replace(b": A", b": C"), b"InstallableOptions")
        text += self.Picked.replace(b"X", b"Option8").replace(b": A", b": C") + self.Picked.replace(b"X", b"Option26")
        printer = json.loads(self.run_program("printer", "--json", "-", input=text).stdout)
        self.assertEqual([(option["keyword"], option["choice"]["text"]) for option in printer["installed"]],
                         [("Option7", "A"), ("X", "A"), ("Z", "(unknown)")])
        self.assertEqual([option["keyword"] for group in printer["groups"] for option in group["options"]], ["Option8", "Option26"])

    def test_of_equal_choices_the_first_is_the_default(self):
        text = b'*PPD-Adobe: "4.3"\n*NickName: "x"\n*OpenUI *X: PickOne\n*DefaultX: A\n*X A: ""\n*X A: ""\n*CloseUI: *X\n'
        result = self.run_program("printer", "-", input=text)
        self.assertIn(b"    X: A *; A\n", result.stdout)
        self.assertIn("standard input: no manufacturer", result.stderr.decode())

    def test_wrong_use(self):
        for words in ((), ("a.ppd", "b.ppd"), ("--all", "a.ppd")):
            with self.subTest(words):
                self.assertEqual(self.run_program("printer", *words).returncode, 2)


if __name__ == "__main__":
    unittest.main()
