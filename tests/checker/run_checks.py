#!/usr/bin/env python3
"""Runs the program and checks every building that comes out.

    run_checks.py --program CLI --samples SAMPLES             every typology file of the samples
    run_checks.py --program CLI --samples SAMPLES --random N [--seed S]
                                                  N random valid typologies of every family

TIP2BDL_CHECKS in the environment replaces N. A typology file whose building has faults is kept
in the folder that the summary names. Exit status 1 if any building has a fault.
"""

import argparse
import os
import random
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from check_building import faults_of, read_bytes
from faults import Fault
from sampler import FAMILIES, typology_file
from typology import Typology

SHOWN = 5  # faults of one building


class Runner:
    def __init__(self, program, samples):
        self.program, self.samples = program, samples
        self.work = Path(tempfile.mkdtemp(prefix="tip2bdl-checks-"))
        self.buildings, self.types, self.failed = 0, set(), []

    def check(self, folder, path):
        template = self.samples / folder / f"{folder}.bdl"
        output, marker = self.work / "salida.bdl", self.work / "fin.txt"
        for old in (output, marker):
            old.unlink(missing_ok=True)
        run = subprocess.run([self.program, "--quiet", template, path, output, marker],
                             capture_output=True, check=False)
        text = read_bytes(path)
        if run.returncode != 0 or not marker.exists():
            message = run.stderr.decode(errors="replace").strip()
            faults = [Fault("run", path.name, f"exit status {run.returncode}: {message}")]
        else:
            faults = faults_of(read_bytes(template), read_bytes(template.with_suffix(".tbl")),
                               text, read_bytes(output))
        self.buildings += 1
        self.types.add(Typology(text).number)
        if faults:
            self.failed.append(path)
            print(f"{folder}/{path.name}: {len(faults)} faults")
            for fault in faults[:SHOWN]:
                print(f"  {fault}")
        return not faults

    def all_samples(self):
        for path in sorted(self.samples.glob("*/*.tip")):
            self.check(path.parent.name, path)
        missing = set(range(1, 24)) - self.types
        if missing:
            print(f"no sample for typologies {sorted(missing)}")
        return not missing

    def random_typologies(self, count, seed):
        for folder, family in FAMILIES.items():
            rng = random.Random(f"{seed} {folder}")
            template = read_bytes(self.samples / folder / f"{folder}.bdl")
            for number in range(1, count + 1):
                path = self.work / f"{folder}-{number:05d}.tip"
                kind = family.types[number % len(family.types)]
                path.write_bytes(typology_file(rng, family, kind, template).encode("latin-1"))
                if self.check(folder, path):
                    path.unlink()
        return count > 0


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, type=Path)
    parser.add_argument("--samples", required=True, type=Path)
    parser.add_argument("--random", type=int, metavar="N")
    parser.add_argument("--seed", type=int, default=1, metavar="S")
    options = parser.parse_args()
    runner = Runner(options.program.resolve(), options.samples.resolve())
    if options.random is None:
        complete = runner.all_samples()
        about = "samples"
    else:
        count = int(os.environ.get("TIP2BDL_CHECKS") or options.random)
        complete = runner.random_typologies(count, options.seed)
        about = f"random typologies, {count} of each family, seed {options.seed}"
    print(f"{runner.buildings} {about}: {len(runner.failed)} with faults;"
          f" typologies {', '.join(map(str, sorted(runner.types)))}")
    if runner.failed and options.random is not None:
        print(f"their typology files are in {runner.work}")
    else:
        shutil.rmtree(runner.work)
    return 0 if complete and runner.buildings and not runner.failed else 1


if __name__ == "__main__":
    sys.exit(main())
