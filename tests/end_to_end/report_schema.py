#!/usr/bin/env python3
"""Checks the data of all golden reports against their schema, and that the schema refuses what is
none.

    report_schema.py SCHEMA GOLDENS

Exit code 77 where python3-jsonschema is missing: not checked.
"""

import copy
import json
import sys
from pathlib import Path

try:
    import jsonschema
except ImportError:
    sys.exit(77)


def spoiled(report):
    """Reports that are none, each with what is wrong with it."""
    def other(words, change):
        wrong = copy.deepcopy(report)
        change(wrong)
        return words, wrong

    yield other("a later version", lambda r: r.update(version=2))
    yield other("a key that nobody knows", lambda r: r.update(nada=1))
    yield other("no data", lambda r: r.pop("datos"))
    yield other("a side of the compass as a name", lambda r: r["fachadas"][0].update(nombre="este-sur"))
    yield other("a wall of less than nothing", lambda r: r["fachadas"][0].update(muro_m2=-1))
    yield other("a number as text", lambda r: r["medidas"].update(volumen_m3="12,5"))


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    schema = json.loads(Path(arguments[0]).read_text(encoding="utf-8"))
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    goldens = sorted(Path(arguments[1]).glob("*/*.informe.json"))
    bad = 0 if goldens else 1
    for golden in goldens:
        for error in validator.iter_errors(json.loads(golden.read_text(encoding="utf-8"))):
            print(f"{golden}: {'/'.join(map(str, error.path))}: {error.message}")
            bad += 1
    for words, report in spoiled(json.loads(goldens[0].read_text(encoding="utf-8"))):
        if validator.is_valid(report):
            print(f"accepted: {words}")
            bad += 1
    print(f"{len(goldens)} reports, {bad} faults")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
