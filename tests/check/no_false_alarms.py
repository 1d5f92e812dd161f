#!/usr/bin/env python3
"""Random valid buildings give no error and no warning.

    no_false_alarms.py --program CLI --samples SAMPLES --random N [--seed S]

N typologies of every family for the family's sample, hundreds in one call. TIP2BDL_CHECKS in the
environment replaces N. Exit status 1 if any gives an error or an aviso; those are shown, and the
typology files kept.
"""

import argparse
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "checker"))

from sampler import FAMILIES, typology_file  # noqa: E402

BATCH = 500
ALARM = re.compile(r"(\S+?\.\w+)(?::\d+:\d+)?: (?:error|aviso): .*")


def alarms(program, template, paths):
    """The lines of a check that are errors or warnings, by file."""
    run = subprocess.run([program, "comprobar", "--formato", "gcc", "--estricto", template, *paths],
                         capture_output=True, check=False)
    if run.stderr:
        raise SystemExit(run.stderr.decode(errors="replace"))
    found = [match for match in map(ALARM.match, run.stdout.decode().splitlines()) if match]
    if (run.returncode != 0) != bool(found):
        raise SystemExit(f"exit status {run.returncode} with {len(found)} errors and warnings")
    # Notes there are, of one kind or the other, about nearly every random building.
    if " nota: " not in run.stdout.decode():
        raise SystemExit("no notes: was anything checked?")
    return found


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, type=Path)
    parser.add_argument("--samples", required=True, type=Path)
    parser.add_argument("--random", required=True, type=int, metavar="N")
    parser.add_argument("--seed", type=int, default=1, metavar="S")
    options = parser.parse_args()
    count = int(os.environ.get("TIP2BDL_CHECKS") or options.random)
    work = Path(tempfile.mkdtemp(prefix="tip2bdl-checks-"))
    checked, found = 0, []
    for folder, family in FAMILIES.items():
        rng = random.Random(f"{options.seed} {folder}")
        template = options.samples.resolve() / folder / f"{folder}.bdl"
        text = template.read_bytes().decode("latin-1")
        paths = []
        for number in range(count):
            kind = family.types[number % len(family.types)]
            path = work / f"{folder}-{number:05d}.tip"
            path.write_bytes(typology_file(rng, family, kind, text, True).encode("latin-1"))
            paths.append(path)
        for first in range(0, count, BATCH):
            found += alarms(options.program.resolve(), template, paths[first:first + BATCH])
        checked += count
    for match in found[:40]:
        print(match[0])
    print(f"{checked} random buildings, seed {options.seed}: {len(found)} errors and warnings")
    if found:
        print(f"their typology files are in {work}")
    else:
        shutil.rmtree(work)
    return 1 if found or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
