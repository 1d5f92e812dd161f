#!/usr/bin/env python3
"""Holds the SARIF of real checks against the schema of the format.

    sarif_schema.py --schema sarif-2.1.0.json --program CLI --samples SAMPLES

Errors, warnings and notes, findings of a line, of a whole file and of none. Exit status 1 if a
document does not fit, or if the schema lets a document through that is wrong.
"""

import argparse
import copy
import json
import subprocess
import sys
import tempfile
from pathlib import Path

import jsonschema

BROKEN = b"""\xef\xbb\xbf"Rota" = VIVIENDA
   TIPO = 1
   NUMERO-PLANTAS = 3
   AREA-PLANTA = 72,9
   ALTURA-PLANTA = "2.4"
   MEDIANERA = \x93Muro\x94
   CUBIERTA = INCLINADA
   ..
"""


def sarif(program, *arguments):
    run = subprocess.run([program, "comprobar", "--formato", "sarif", *arguments],
                         capture_output=True, check=False)
    if run.returncode not in (0, 3):
        raise SystemExit(f"exit status {run.returncode}: {run.stderr.decode(errors='replace')}")
    return json.loads(run.stdout)


def documents(program, samples):
    for folder in sorted(path for path in samples.iterdir() if (path / "defectos.inp").exists()):
        template = folder / f"{folder.name}.bdl"
        yield folder.name, sarif(program, template, *sorted(folder.glob("*.tip")))
    with tempfile.TemporaryDirectory() as name:
        broken = Path(name) / "casa rota ñ.tip"
        broken.write_bytes(BROKEN)
        house = samples / "casa-una-planta" / "casa-una-planta.bdl"
        yield "a broken typology alone", sarif(program, broken)
        yield "a broken typology for a template", sarif(program, house, broken)
        yield "no files", sarif(program, Path(name) / "no.bdl", Path(name) / "no.tip")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    for option in ("--schema", "--program", "--samples"):
        parser.add_argument(option, required=True, type=Path)
    options = parser.parse_args()
    schema = json.loads(options.schema.read_text(encoding="utf-8"))
    validator = jsonschema.validators.validator_for(schema)(schema)
    failed, results, last = 0, 0, None
    for about, document in documents(options.program.resolve(), options.samples.resolve()):
        last = document
        results += len(document["runs"][0]["results"])
        for error in validator.iter_errors(document):
            failed += 1
            print(f"{about}: {'/'.join(map(str, error.absolute_path))}: {error.message}")
    wrong = copy.deepcopy(last)
    wrong["runs"][0]["results"][0]["level"] = "aviso"
    if validator.is_valid(wrong):
        failed += 1
        print("the schema lets a level through that does not exist")
    print(f"{results} results: {failed} faults")
    return 1 if failed or not results else 0


if __name__ == "__main__":
    sys.exit(main())
