#!/usr/bin/env python3
"""Whether the hardening flags took effect in a built program, as its headers tell.

usage: hardening_test.py READELF PROGRAM IMPORT...

IMPORT: a function of the C library that only hardened code calls.
"""

import re
import subprocess
import sys

TRAITS = {
    "is placed anywhere in memory": r"Type: +DYN .*\n(.*\n)*.*FLAGS_1.* PIE",
    "resolves all its calls at its start": r"\(FLAGS\) +(.* )?BIND_NOW",
    "then locks its tables": r"^ +GNU_RELRO ",
    "has no executable stack": r"^ +GNU_STACK +(0x\w+ +){5}RW +",
}


def readelf(program, *options):
    return subprocess.run([program, "--wide", *options], check=True, capture_output=True,
                          env={"LC_ALL": "C"}, text=True).stdout


def main(tool, program, *imports):
    layout = readelf(tool, "--file-header", "--program-headers", "--dynamic", program)
    symbols = readelf(tool, "--dyn-syms", program)
    missing = [trait for trait, sign in TRAITS.items() if not re.search(sign, layout, re.MULTILINE)]
    missing += [f"calls {name}" for name in imports if not re.search(rf" UND {name}\b", symbols)]
    for trait in missing:
        print(f"{program}: it is not so that it {trait}")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
