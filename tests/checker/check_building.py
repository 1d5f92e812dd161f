#!/usr/bin/env python3
"""Checks that a generated building description is a consistent building.

    check_building.py TEMPLATE.bdl TYPOLOGY.tip OUTPUT.bdl

The table is read from beside the template. Prints a line a fault; exit status 1 if there is any.

For templates written as the samples are: windows less than 3.0 m high, MULTIPLIER last in a
FLOOR, every edge of every space a wall of its own.
"""

import sys
from pathlib import Path

from building import Building
from commands import check_commands
from faults import Fault
from outlines import check_outlines
from rewritten import check_rewritten
from walls import check_constructions, check_walls
from windows import check_windows


def faults_of(template, table, typology, output):
    """All faults of `output`; the four are texts, decoded byte for byte."""
    try:
        building = Building(template, table, typology, output)
    except (ValueError, TypeError, IndexError, ZeroDivisionError) as error:
        return [Fault("input", "template, table or typology", str(error))]
    of_outlines, bad_outlines = check_outlines(building)
    return [*check_commands(building), *of_outlines, *check_constructions(building),
            *check_walls(building, bad_outlines), *check_windows(building),
            *check_rewritten(building)]


def read_bytes(path):
    return Path(path).read_bytes().decode("latin-1")


def check_files(template, typology, output):
    paths = (template, Path(template).with_suffix(".tbl"), typology, output)
    return faults_of(*map(read_bytes, paths))


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    faults = check_files(*arguments)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
