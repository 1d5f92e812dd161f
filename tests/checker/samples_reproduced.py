#!/usr/bin/env python3
"""Checks that the samples' maker writes what is committed, byte for byte.

    samples_reproduced.py MAKER SAMPLES
"""

import subprocess
import sys
import tempfile
from pathlib import Path


def tree(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes()
            for path in sorted(folder.rglob("*")) if path.is_file()}


def differences(made, committed):
    for name in sorted(made.keys() | committed.keys()):
        if name not in committed:
            yield f"{name} is made, but not committed"
        elif name not in made:
            yield f"{name} is committed, but not made"
        elif made[name] != committed[name]:
            yield f"{name} differs {first_difference(made[name], committed[name])}"


def first_difference(made, committed):
    pairs = zip(made.split(b"\n"), committed.split(b"\n"))
    for number, (left, right) in enumerate(pairs, 1):
        if left != right:
            return f"in line {number}: made {left!r}, committed {right!r}"
    return "in length"


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    maker, samples = map(Path, arguments)
    with tempfile.TemporaryDirectory(prefix="tip2bdl-samples-") as folder:
        subprocess.run([sys.executable, maker.resolve(), folder], check=True)
        made = tree(Path(folder))
    found = list(differences(made, tree(samples)))
    print("\n".join(found) or f"{len(made)} files, all as committed")
    return 1 if found or not made else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
