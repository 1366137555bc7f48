"""Checks the property-list reader and writer against Python's plistlib.

plistlib writes generated values, the echo program reads and writes them, plistlib must read equal
values; and what the echo program wrote must come back to the byte by way of plistlib and without it.
"""

import argparse
import datetime
import io
import plistlib
import random
import struct
import subprocess
import sys

# plistlib writes a carriage return as a line feed, so this character stands for it on its way out.
RETURN_MARK = "\ue00d"

SPECIAL_REALS = [0.0, -0.0, 5e-324, -5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, 0.1,
                 1e22, 1e23, 123456789.125, float("inf"), float("-inf"), float("nan")]
SPECIAL_INTEGERS = [0, -1, 2**31 - 1, -2**31, 2**53 + 1, 2**63 - 1, -2**63]
TEXT_RANGES = [(0x20, 0x7E), (0x20, 0x7E), (0x7F, 0x7FF), (0x800, 0xD7FF), (0xE000, 0xFFFD),
               (0x10000, 0x10FFFF)]
TEXT_ODDITIES = ["\n", "\t", RETURN_MARK, RETURN_MARK + "\n", "&", "<", ">", "]]>", '"', "'", " ",
                 "&amp;", "&#13;", "\x85", "\u2028"]


class Generator:
    def __init__(self, seed):
        self.random = random.Random(seed)

    def text(self):
        return "".join(self.random.choice(TEXT_ODDITIES) if self.random.random() < 0.2
                       else chr(self.random.randint(*self.random.choice(TEXT_RANGES)))
                       for _ in range(self.random.randint(0, 12)))

    def integer(self):
        if self.random.random() < 0.3:
            return self.random.choice(SPECIAL_INTEGERS)
        return self.random.getrandbits(self.random.randint(1, 63)) * self.random.choice([1, -1])

    def real(self):
        if self.random.random() < 0.3:
            return self.random.choice(SPECIAL_REALS)
        return struct.unpack("<d", self.random.randbytes(8))[0]

    def date(self):
        first, last = datetime.datetime(1, 1, 1), datetime.datetime(9999, 12, 31, 23, 59, 59)
        seconds = int((last - first).total_seconds())
        return first + datetime.timedelta(
            seconds=self.random.choice([0, seconds, self.random.randint(0, seconds)]))

    def data(self):
        return self.random.randbytes(self.random.randint(0, 100))

    def boolean(self):
        return self.random.random() < 0.5

    def value(self, depth=0):
        scalars = [self.text, self.integer, self.real, self.date, self.data, self.boolean]
        if depth == 5 or self.random.random() < (0.6 if depth else 0.2):
            return self.random.choice(scalars)()
        members = range(self.random.choice([0, 1, 2, 5]))
        if self.random.random() < 0.4:
            return [self.value(depth + 1) for _ in members]
        return {self.text(): self.value(depth + 1) for _ in members}


def replaced(value, old, new):
    """The value with one text replaced by another in every text and key."""
    if isinstance(value, str):
        return value.replace(old, new)
    if isinstance(value, list):
        return [replaced(member, old, new) for member in value]
    if isinstance(value, dict):
        return {replaced(key, old, new): replaced(member, old, new)
                for key, member in value.items()}
    return value


def dumped(value):
    """The XML that plistlib writes for a value, with its carriage returns."""
    marked = replaced(value, "\r", RETURN_MARK)
    return plistlib.dumps(marked, sort_keys=False).replace(RETURN_MARK.encode(), b"&#13;")


def same(left, right):
    """Equal in kind, value, sign of zero and order of keys; not-a-number equals itself."""
    if type(left) is not type(right):
        return False
    if isinstance(left, float):
        return left != left and right != right or struct.pack("<d", left) == struct.pack("<d", right)
    if isinstance(left, list):
        return len(left) == len(right) and all(map(same, left, right))
    if isinstance(left, dict):
        return list(left) == list(right) and all(map(same, left.values(), right.values()))
    return left == right


def echoed(program, documents):
    """Each document's answer: its kind, "xml" or "error", and its bytes."""
    stream = b"".join(b"xml %d\n" % len(xml) + xml for xml in documents)
    run = subprocess.run([program], input=stream, stdout=subprocess.PIPE, check=True)
    output = io.BytesIO(run.stdout)
    answers = []
    while head := output.readline():
        kind, length = head.decode().split()
        answers.append((kind, output.read(int(length))))
    if len(answers) != len(documents):
        sys.exit(f"{len(documents)} documents, but {len(answers)} answers")
    return answers


def rewritten(program, documents):
    """The documents as the echo program writes them; all must be taken."""
    answers = echoed(program, documents)
    for xml, (kind, answer) in zip(documents, answers):
        if kind != "xml":
            sys.exit(f"refused: {answer.decode()}\n{xml.decode()}")
    return [answer for _, answer in answers]


def check_values(program, values):
    first = rewritten(program, [dumped(value) for value in values])
    read = [plistlib.loads(xml) for xml in first]
    second = rewritten(program, first)
    by_way = rewritten(program, [dumped(value) for value in read])
    for value, xml, back, again, around in zip(values, first, read, second, by_way):
        if not same(value, back):
            sys.exit(f"another value\nwas {value!r}\nnow {back!r}")
        if again != xml or around != xml:
            sys.exit(f"other bytes for {value!r}\nwas {xml!r}\nnow {again!r}\nand {around!r}")


def check_refused(program):
    """What plistlib writes and no property list of ours may hold."""
    too_deep = []
    for _ in range(200):
        too_deep = [too_deep]
    values = [2**63, 2**64 - 1, too_deep, "\ufffe"]
    answers = echoed(program, [dumped(value) for value in values])
    for value, (kind, _) in zip(values, answers):
        if kind != "error":
            sys.exit(f"not refused: {value!r}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program", help="the echo program")
    parser.add_argument("--count", type=int, default=3000)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    generator = Generator(arguments.seed)
    values = [replaced(generator.value(), RETURN_MARK, "\r") for _ in range(arguments.count)]
    values += [bytes(range(length)) for length in range(101)]
    check_values(arguments.program, values)
    check_refused(arguments.program)
    print(f"{len(values)} values came back equal")


if __name__ == "__main__":
    main()
