"""The texts that people read: every key that the sources use, in every language.

A key is found in the sources where it stands
- in a row, of a table or alone, in a field of type const char* named "key" or "...Key",
- in a call, as the argument for a parameter of such a type and name,
- in the value of a variable, or the body of a function, of type const char* with a name like that,
- in a dialog description, as a text that people read.
"""

import os
import plistlib
import re
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

Root = Path(os.environ["TARVO_SOURCE_DIR"])
Languages = sorted(folder.stem for folder in (Root / "resources").glob("*.lproj"))
Literal = re.compile(r'"((?:[^"\\]|\\.)*)"')

# Keys that say in full what they mean in English are words: "Front Cover Only", "Width:", "PDF".
Words = re.compile(r"[A-Z]+[a-z]*(?:[-/][A-Z][a-z]*)*|to|and|\d")
# Properties of widgets that people read.
ReadProperties = {"label", "title", "tooltip-text", "accessible-name", "placeholder-text"}
# Texts that may be their key in every language.
Literals = {",", "-", "sRGB"}
# Texts that a value follows directly.
Prefixes = {"CustomFinishing", "Offset", ":"}
# German words that are the English ones.
SameInGerman = {"Adobe RGB", "Fax", "Layout", "Name:", "Normal", "Orange", "PDF"}


def path_of(language):
    return Root / "resources" / f"{language}.lproj/Localizable.plist"


def read_texts(language):
    return plistlib.loads(path_of(language).read_bytes())


def read_sources():
    sources = (path for path in sorted((Root / "src").rglob("*")) if path.suffix in (".h", ".cpp"))
    without_comments = re.compile(r'("(?:[^"\\]|\\.)*")|//[^\n]*')
    return "\n".join(without_comments.sub(lambda match: match[1] or "", path.read_text(encoding="utf-8"))
                     for path in sources)


def inside(text, start, brackets):
    """The text from start to the bracket that closes the one before it."""
    depth = 1
    for match in re.compile(r'"(?:[^"\\]|\\.)*"|[' + re.escape(brackets) + "]").finditer(text, start):
        depth += (match[0] == brackets[0]) - (match[0] == brackets[1])
        if depth == 0:
            return text[start:match.start()]
    raise ValueError(f"nothing closes {text[start:start + 40]}")


def fields_of(row):
    """The fields of a row, those in braces of their own left together."""
    pieces = re.compile(r'(?:"(?:[^"\\]|\\.)*"|\{[^{}]*\}|[^,"{}])+')
    return [match[0].strip() for match in pieces.finditer(row)]


def rows_of(table):
    position = 0
    while (position := table.find("{", position) + 1) > 0:
        row = inside(table, position, "{}")
        yield fields_of(row)
        position += len(row)


def key_fields(sources):
    """Of each struct with texts, the places of their keys."""
    for struct in re.finditer(r"^struct (\w+) \{\n(.*?)^\};", sources, re.MULTILINE | re.DOTALL):
        members = re.findall(r"^    [\w:<>*& ]+[ *&](\w+)(?: = [^;]*)?;", struct[2], re.MULTILINE)
        texts = re.findall(r"^    const char\* (key|\w+Key)\b", struct[2], re.MULTILINE)
        if texts:
            yield struct[1], [members.index(name) for name in texts]


def keys_of_rows(sources):
    for struct, places in key_fields(sources):
        for value in re.finditer(rf"\b{struct} \w+(\[\])? = \{{", sources):
            text = inside(sources, value.end(), "{}")
            for fields in rows_of(text) if value[1] else [fields_of(text)]:
                yield from (fields[place] for place in places if place < len(fields))


def arguments_of(text):
    pieces = re.compile(r'"(?:[^"\\]|\\.)*"|[(){},]|[^"(){},]+')
    arguments, depth = [""], 0
    for match in pieces.finditer(text):
        depth += (match[0] in "({") - (match[0] in ")}")
        if match[0] == "," and depth == 0:
            arguments.append("")
        else:
            arguments[-1] += match[0]
    return arguments


def key_parameters(sources):
    """Name of each function that is given keys, and which parameters they are."""
    found = set()
    for function in re.finditer(r"\b(\w+)\(([^()]*\bconst char\* (?:key|\w*Key)\b[^()]*)\)", sources):
        for place, parameter in enumerate(arguments_of(function[2])):
            if re.search(r"\bconst char\* (?:key|\w*Key)$", parameter.strip()):
                found.add((function[1], place))
    return found


def keys_of_calls(sources):
    for name, place in key_parameters(sources):
        for call in re.finditer(rf"\b{name}\(", sources):
            arguments = arguments_of(inside(sources, call.end(), "()"))
            if place < len(arguments):
                yield from (match[0] for match in Literal.finditer(arguments[place]))


def keys_of_names(sources):
    for value in re.finditer(r"\bconst char\* (?:key|\w*Key) =([^;]*);", sources):
        yield from (match[0] for match in Literal.finditer(value[1]))
    for function in re.finditer(r"\bconst char\* \w*Key(?!word)\w*\([^()]*\)\s*\{", sources):
        yield from (match[0] for match in Literal.finditer(inside(sources, function.end(), "{}")))


def keys_of_descriptions():
    for path in sorted((Root / "resources").glob("*.ui")):
        for text in ElementTree.parse(path).iter("property"):
            if text.get("name") in ReadProperties and text.text:
                yield text.text


def used_keys():
    sources = read_sources()
    found = {*keys_of_rows(sources), *keys_of_calls(sources), *keys_of_names(sources)}
    in_sources = {literal[1:-1].replace('\\"', '"') for literal in found if literal.startswith('"')}
    return in_sources | set(keys_of_descriptions())


def placeholders(text):
    return re.findall(r"%(?:\d+\$)?[@a-z]", text)


class Texts(unittest.TestCase):
    def test_every_key_in_use_has_a_text(self):
        used = used_keys()
        # One of each way to be found, so that a scan that has gone blind is seen.
        samples = {"LetterStockSize", '7 x 10"', "Multiple Finishing...", "SecurePrint", "Top Tray", "Offset", "2 Staples",
                   "ShowHoles", "StockWeight", "Default Stock", "HLMappingColor", "PlanSheets", "CustomValueTitle"}
        self.assertEqual(samples - used, set())
        for language in Languages:
            self.assertEqual(used - read_texts(language).keys(), set(), language)

    def test_the_languages_have_the_same_keys_once_and_the_same_placeholders(self):
        self.assertIn("de", Languages)
        english = read_texts("en")
        for language in Languages:
            texts = read_texts(language)
            self.assertEqual(texts.keys(), english.keys(), language)
            self.assertEqual(path_of(language).read_text(encoding="utf-8").count("<key>"), len(texts), language)
            for key, text in texts.items():
                with self.subTest(language=language, key=key):
                    self.assertEqual(placeholders(text), placeholders(english[key]))

    def test_no_text_is_empty_or_has_stray_blanks(self):
        for language in Languages:
            for key, text in read_texts(language).items():
                with self.subTest(language=language, key=key):
                    self.assertEqual(text, " ".join(text.split()) + " " * (key in Prefixes))
                    self.assertTrue(text.strip())
                    self.assertNotIn("...", text)

    def test_no_text_echoes_its_key(self):
        for key, text in read_texts("en").items():
            if key not in Literals and not all(Words.fullmatch(word) for word in key.removesuffix(":").split(" ")):
                self.assertNotEqual(text, key)
        german = {key for key, text in read_texts("de").items() if key == text}
        self.assertEqual(german, Literals | SameInGerman)

    def test_alerts_are_sentences(self):
        for language in Languages:
            texts = read_texts(language)
            for key, text in texts.items():
                if re.search("Message$|Header$|^Invalid |Limit|Conflict|^Delete |Library(Un|Fa)|File$", key):
                    self.assertRegex(text, r"^.*[^.][.?]$", f"{language}: {key}")


if __name__ == "__main__":
    unittest.main()
