"""Checks the property-list reader and writer against Python's plistlib.

plistlib writes generated values, the echo program, which is the one argument, reads and writes them,
and plistlib must read equal values; what the echo program wrote must come back to the byte.
"""

import datetime
import plistlib
import random
import struct
import subprocess
import sys

# plistlib writes a carriage return as a line feed, so this character stands for it on its way out.
RETURN_MARK = "\ue00d"

SPECIAL_REALS = [0.0, -0.0, 5e-324, 2**-1022, 1.7976931348623157e308, 0.1, 1e23, *map(float, ("inf", "-inf", "nan"))]
SPECIAL_INTEGERS = [0, -1, 2**31 - 1, -2**31, 2**53 + 1, 2**63 - 1, -2**63]
TEXT_RANGES = [(0x20, 0x7E), (0x20, 0x7E), (0x7F, 0x7FF), (0x800, 0xD7FF), (0xE000, 0xFFFD),
               (0x10000, 0x10FFFF)]
TEXT_ODDITIES = ["\n", "\t", RETURN_MARK, RETURN_MARK + "\n", "&", "<", ">", "]]>", '"', "'", " ",
                 "&amp;", "&#13;", "\x85", "\u2028"]


def any_text(source):
    return "".join(source.choice(TEXT_ODDITIES) if source.random() < 0.2
                   else chr(source.randint(*source.choice(TEXT_RANGES)))
                   for _ in range(source.randint(0, 12)))


def any_scalar(source):
    first, last = datetime.datetime(1, 1, 1), 315537897599  # seconds later ends the year 9999
    return source.choice([
        lambda: any_text(source),
        lambda: source.choice(SPECIAL_INTEGERS),
        lambda: source.getrandbits(source.randint(1, 63)) * source.choice([1, -1]),
        lambda: source.choice(SPECIAL_REALS),
        lambda: struct.unpack("<d", source.randbytes(8))[0],
        lambda: first + datetime.timedelta(seconds=source.choice([0, last, source.randint(0, last)])),
        lambda: source.randbytes(source.randint(0, 100)),
        lambda: source.random() < 0.5,
    ])()


def any_value(source, depth=0):
    if depth == 5 or source.random() < (0.6 if depth else 0.2):
        return any_scalar(source)
    members = range(source.choice([0, 1, 2, 5]))
    if source.random() < 0.4:
        return [any_value(source, depth + 1) for _ in members]
    return {any_text(source): any_value(source, depth + 1) for _ in members}


def dumped(value):
    return plistlib.dumps(value, sort_keys=False).replace(RETURN_MARK.encode(), b"&#13;")


def echoed(documents):
    """Each document as the echo program writes it again."""
    stream = b"".join(document + b"\0" for document in documents)
    run = subprocess.run(sys.argv[1:], input=stream, stdout=subprocess.PIPE, check=True)
    answers = run.stdout.split(b"\0")[:-1]
    assert len(answers) == len(documents), f"{len(documents)} documents, but {len(answers)} answers"
    return answers


def main():
    source = random.Random(1)
    values = [any_value(source) for _ in range(3000)] + [bytes(range(length)) for length in range(101)]
    first = echoed([dumped(value) for value in values])
    for value, xml, again in zip(values, first, echoed(first)):
        assert not xml.startswith(b"refused"), f"{xml.decode()}\n{value!r}"
        was, now = repr(value).replace("\\ue00d", "\\r"), repr(plistlib.loads(xml))
        assert was == now, f"another value\nwas {was}\nnow {now}"
        assert again == xml, f"other bytes for {value!r}\nwas {xml!r}\nnow {again!r}"
    for value in (2**63, 2**64 - 1, "\ufffe"):
        assert echoed([dumped(value)])[0].startswith(b"refused"), f"not refused: {value!r}"


if __name__ == "__main__":
    main()
