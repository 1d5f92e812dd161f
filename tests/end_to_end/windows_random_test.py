#!/usr/bin/env python3
"""Runs of inputs that chance has changed: the programs of both systems leave the same, but for the
line ends of what they write.

usage: windows_random_test.py TIP2BDL_CLI_EXE TIP2BDL_CLI SOURCE_FOLDER PREFIX [CASES [SEED]]
"""

import os
import random
import re
import shutil
import subprocess
import sys
from collections import Counter
from pathlib import Path

from windows_prefix import Windows, missing_tools

PROGRAM, REFERENCE, SOURCES, PREFIX = (Path(argument).resolve() for argument in sys.argv[1:5])
CASES = int(sys.argv[5]) if len(sys.argv) > 5 else 60
SEED = int(sys.argv[6]) if len(sys.argv) > 6 else 1
LIBRARY = "defectos.inp"
NUMBERS = (b"0", b"1", b"-1", b"3", b"13", b"99", b"1e3", b"0,5", b"1234567890123")


def lines_of(text):
    return text.splitlines(keepends=True)


def drop_line(chance, text):
    lines = lines_of(text)
    del lines[chance.randrange(len(lines))]
    return b"".join(lines)


def repeat_line(chance, text):
    lines = lines_of(text)
    lines.insert(chance.randrange(len(lines)), chance.choice(lines))
    return b"".join(lines)


def swap_lines(chance, text):
    lines = lines_of(text)
    first, second = chance.randrange(len(lines)), chance.randrange(len(lines))
    lines[first], lines[second] = lines[second], lines[first]
    return b"".join(lines)


def change_number(chance, text):
    number = chance.choice(list(re.finditer(rb"\d+(\.\d+)?", text)))
    return text[:number.start()] + chance.choice(NUMBERS) + text[number.end():]


def change_byte(chance, text):
    """To one that no text mode takes for anything but itself."""
    place = chance.randrange(len(text))
    return text[:place] + bytes([chance.choice(b' ="().,$;:\tAz0\xe1\xf1\x80')]) + text[place + 1:]


def cut_end(chance, text):
    return text[:chance.randrange(1, len(text))]


CHANGES = (drop_line, repeat_line, swap_lines, change_number, change_number, change_byte, cut_end)


def make_inputs(chance, typology, folder):
    building = typology.parent.name
    names = [f"{building}.bdl", f"{building}.tbl", LIBRARY, typology.name]
    texts = {name: (typology.parent / name).read_bytes() for name in names}
    for _ in range(chance.choice((0, 1, 1, 2, 3))):
        name = chance.choice(names + [typology.name] * 2)
        texts[name] = chance.choice(CHANGES)(chance, texts[name]) or b"\n"
    folder.mkdir(parents=True)
    for name, text in texts.items():
        (folder / name).write_bytes(text)
    return names[0], names[3], "salida.bdl", "fin.txt"


def what_is_left(folder, result):
    """Exit code, first line of the messages, and the bytes of all files."""
    status, out, err = result
    first = err.replace(b"\r\n", b"\n").split(b"\n")[0]
    files = {path.name: path.read_bytes().replace(b"\r\n", b"\n") for path in folder.iterdir()}
    return status, out, first, files


def main():
    windows = Windows(PREFIX)
    try:
        return compare(windows)
    finally:
        windows.remove()


def compare(windows):
    chance = random.Random(SEED)
    typologies = sorted((SOURCES / "samples").glob("*/*.tip"))
    ends = Counter()
    different = []
    for case in range(CASES):
        here, there = windows.folder / f"{case}-here", windows.folder / f"{case}-there"
        paths = make_inputs(chance, chance.choice(typologies), here)
        shutil.copytree(here, there)
        ended = subprocess.run([REFERENCE, *paths], cwd=here, stdin=subprocess.DEVNULL,
                               capture_output=True, check=False)
        reference = what_is_left(here, (ended.returncode, ended.stdout, ended.stderr))
        if what_is_left(there, windows.run(PROGRAM, *paths, cwd=there)) != reference:
            different.append(case)
            print(f"case {case} of seed {SEED} differs: {reference[2].decode(errors='replace')}")
            if "KEEP" in os.environ:
                shutil.copytree(here, Path(os.environ["KEEP"]) / f"{SEED}-{case}")
        ends[reference[0]] += 1
        shutil.rmtree(here)
        shutil.rmtree(there)
    print(f"{CASES} cases of seed {SEED}: {dict(ends)} by exit code, {len(different)} different")
    if min(ends[0], ends[3]) < CASES // 10:
        print("too few of one kind to say anything")
        return 1
    return 1 if different else 0


if __name__ == "__main__":
    if missing_tools() or not REFERENCE.exists():
        print("missing:", ", ".join(missing_tools() or [str(REFERENCE)]))
        sys.exit(1 if "CI" in os.environ else 77)
    sys.exit(main())
