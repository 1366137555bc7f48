#!/usr/bin/env python3
"""Writes a PPD file of many options: large_ppd.py FILE [OPTIONS [CHOICES]]."""
import sys

HEAD = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "LARGE.PPD"
*Manufacturer: "Tarvo"
*Product: "(Tarvo Large)"
*ModelName: "Tarvo Large"
*ShortNickName: "Tarvo Large"
*NickName: "Tarvo Large"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*DefaultImageableArea: Letter
*ImageableArea Letter/US Letter: "18 36 594 756"
*DefaultPaperDimension: Letter
*PaperDimension Letter/US Letter: "612 792"
"""


def option(keyword, choices):
    lines = [f"*OpenUI *{keyword}/Option {keyword}: PickOne", f"*Default{keyword}: {choices[0]}"]
    lines += [f'*{keyword} {choice}/Choice {choice}: ""' for choice in choices]
    return "\n".join([*lines, f"*CloseUI: *{keyword}", ""])


def main():
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 1000
    choices = [f"C{number}" for number in range(int(sys.argv[3]) if len(sys.argv) > 3 else 20)]
    with open(sys.argv[1], "w", encoding="ascii") as file:
        file.write(HEAD + option("PageSize", ["Letter"]) + option("PageRegion", ["Letter"]))
        file.write("*OpenGroup: Many/Many\n")
        for number in range(count):
            file.write(option(f"Opt{number}", choices))
        file.write("*CloseGroup: Many\n")


if __name__ == "__main__":
    main()
