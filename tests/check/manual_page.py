#!/usr/bin/env python3
"""Runs the examples of docs/comprobar.md.

    manual_page.py --program CLI --samples SAMPLES --page PAGE [--update]

Every code of the program has a section `### code` and every section is a code. A section's first
block is a bad example, in which the program must find the code, and what it says of it, with line
and column, is the second block, to the byte; --update rewrites that one. The third block is the
mended example, which must be clean of the code. Exit status 1 if anything of that is not so.
"""

import argparse
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

# Sections without an example, and why.
WITHOUT = {"otro-error": "no input provokes it"}

BLOCK = re.compile(r"```(\w+)\n(.*?)```\n", re.S)
SECTION = re.compile(r"^### (\S+)\n(.*?)(?=^##|\Z)", re.M | re.S)
HOUSE, SHADES = ("casa-una-planta", "tipo-01"), ("bloque-escalera-patios-laterales", "tipo-15")
WINDOW = "5.040 9.000 3.040 2.400 2.100 180.000 90.000 1 1 0"
WALL = '"P01_E01_Salón_Dormitorios_ME01"'
PARAMETERS = '"Parámetros_del_edificio" = BUILD-PARAMETERS'
FACADE = "   PORCENTAJE-FACHADA = ( 22, 12, 10, 12 )"
TWO_KEYWORDS = "   TIPO = 1\n   NUMERO-PLANTAS = 1"
FOUR_KEYWORDS = ("   ALTURA-PLANTA = 2.80\n   AREA-PLANTA = 110\n   LONGITUD-FACHADA = 11\n"
                 "   CUBIERTA = PLANA\n   ATICO = NO\n   SOTANO = NO\n" + FACADE)

# What of the sample an example takes the place of; of the others, the line of its own keyword.
REPLACED = {
    "falta-vivienda": '"casa-una-planta-01" = VIVIENDA',
    "tipo-desconocido": TWO_KEYWORDS,
    "plantas-de-la-plantilla": TWO_KEYWORDS,
    "sin-cierre": "   ALTITUDE = 650.0\n   ..",
    "valor-roto": '   VENTANA-MARCO = "Marco_PVC"\n   VENTANA-SOMBRA = "Voladizo_60cm"\n'
                  "   AIR-CHANGES/HR = 0.63",
    "nombre-sin-comillas": "$ Casa exenta de 110 m2, fachada principal al sur",
    "comando-no-extraido": '"Marco_PVC" = NAME-FRAME',
    "tabla": WINDOW, "ventana-en-cubierta": WINDOW, "azimut-sin-reducir": WINDOW,
    "linea-larga": "   TERRAIN = URBAN",
    "lineas-sobrantes": "11 1",
    "falta-comando": PARAMETERS, "poligonos-de-mas": PARAMETERS,
    "dato-en-comentario": "   ALTURA-PLANTA = 2.80", "minusculas": "   ALTURA-PLANTA = 2.80",
    "palabra-desconocida": "   ALTURA-PLANTA = 2.80",
    "dato-dentro-de-otro": "   AREA-PLANTA = 110", "acento-en-palabra": "   ORIENTACION = 0.0",
    "falta-blanco": '   SUELOS = "Solera_Aislada"',
    "valor-por-defecto": "   AIR-CHANGES/HR = 0.63",
    "lista-sin-parentesis": FACADE,
    "superficie-sin-comando": WALL, "superficie-con-acentos": WALL,
    "comando-sin-superficie": WALL + " = EXTERIOR-WALL",
    "sombra-de-patio": '"Sombra001" = BUILDING-SHADE',
    "ventana-sobre-el-techo": FOUR_KEYWORDS, "ventana-mas-alta": FOUR_KEYWORDS,
}
# What else is changed in both examples: file, from, to.
BESIDES = {
    "ventana-sin-huecos": [("casa.bdl", WALL[:-1] + '_V1" = WINDOW', '"Ventana_Med" = WINDOW'),
                           ("casa.tbl", WALL[:-1] + '_V1"', '"Ventana_Med"')],
    "nombre-sin-comillas": [("casa.tip", '"Marco_PVC" = NAME-FRAME', '"Otro" = NAME-FRAME')],
}
IN_UTF8 = {"codificacion-utf8", "superficie-con-acentos"}  # their bad examples


def cp1252(text):
    return text.encode("cp1252")


class Page:
    def __init__(self, options):
        self.program, self.samples = options.program.resolve(), options.samples.resolve()
        self.text = options.page.read_text(encoding="utf-8")
        self.faults = []

    def fault(self, code, what):
        self.faults.append(f"{code}: {what}")

    def lay_out(self, folder, sample):
        building, typology = sample
        source = self.samples / building
        for name, origin in (("casa.bdl", f"{building}.bdl"), ("casa.tbl", f"{building}.tbl"),
                             ("casa.tip", f"{typology}.tip"), ("defectos.inp", "defectos.inp")):
            (folder / name).write_bytes((source / origin).read_bytes())

    def arguments(self, folder, code, language, example, bad):
        """Puts the example into the files and gives the command line."""
        self.lay_out(folder, SHADES if code == "sombra-de-patio" else HOUSE)
        if language == "console":
            prepare(folder)
            example = example.replace("RUTA-DE-3000-CARACTERES", "r" * 3000)
            return shlex.split(example)[2:]
        for name, old, new in BESIDES.get(code, ()):
            replace(folder / name, cp1252(old), cp1252(new))
        encode = str.encode if bad and code in IN_UTF8 else cp1252
        example = re.sub(r"LARGO-(\d+)", lambda m: "x" * int(m[1]), example.removesuffix("\n"))
        path = folder / f"casa.{language}"
        old = REPLACED.get(code) or self.line_of(path, example)
        replace(path, cp1252(old), encode(example))
        return ["casa.bdl", "casa.tip"]

    @staticmethod
    def line_of(path, example):
        """The line of the example's first keyword; else where a new one is put."""
        keyword = example.split()[0]
        for line in path.read_bytes().decode("cp1252").splitlines():
            if line.split()[:1] == [keyword]:
                return line
        return "   CUBIERTA = PLANA"

    def findings(self, code, language, example, bad):
        with tempfile.TemporaryDirectory() as name:
            arguments = self.arguments(Path(name), code, language, example, bad)
            return [self.run(name, form, arguments) for form in ("gcc", "json")]

    def run(self, folder, form, arguments):
        run = subprocess.run([self.program, "comprobar", "--formato", form, *arguments], cwd=folder,
                             capture_output=True, timeout=60, check=False,
                             env={**os.environ, "LC_ALL": "C"})
        if run.returncode not in (0, 3):
            raise SystemExit(f"{arguments}: exit status {run.returncode}\n{run.stderr.decode()}")
        return run.stdout.decode()

    def codes(self):
        with tempfile.TemporaryDirectory() as folder:
            sarif = json.loads(self.run(folder, "sarif", ["no.tip"]))
        return [rule["id"] for rule in sarif["runs"][0]["tool"]["driver"]["rules"]]

    def check(self):
        codes, sections = self.codes(), [match[1] for match in SECTION.finditer(self.text)]
        for code in codes:
            if sections.count(code) != 1:
                self.fault(code, f"{sections.count(code)} sections")
        for code in sections:
            if code not in codes:
                self.fault(code, "no code of the program")
        for code in set(WITHOUT) - set(codes):
            self.fault(code, "stands in the list of those without an example, and is no code")
        if list(WITHOUT) != sorted(WITHOUT):
            self.fault("WITHOUT", "is not sorted")
        return SECTION.sub(self.section, self.text)

    def section(self, match):
        code, text = match[1], match[2]
        blocks = BLOCK.findall(text)
        if code in WITHOUT:
            if blocks:
                self.fault(code, "has an example, and stands in the list of those without")
            return match[0]
        if len(blocks) != 3 or blocks[1][0] != "text":
            self.fault(code, "has not the three blocks of an example")
            return match[0]
        (language, bad), (_, said), (_, good) = blocks
        now = self.said(code, language, bad)
        if now != said:
            self.fault(code, f"the page says:\n{said}the program says:\n{now}")
        left = [finding["codigo"] for finding in json.loads(
            self.findings(code, language, good, False)[1])["hallazgos"]]
        if code in left:
            self.fault(code, "is found in the mended example")
        return match[0].replace(f"```text\n{said}```", f"```text\n{now}```")

    def said(self, code, language, bad):
        lines, document = self.findings(code, language, bad, True)
        found = json.loads(document)["hallazgos"]
        wanted = [line for line in lines.splitlines() if line.endswith(f" [{code}]")]
        if not wanted:
            others = sorted({finding["codigo"] for finding in found})
            self.fault(code, f"is not found in the bad example, but {', '.join(others)}")
            return ""
        line = re.sub("r{3000}", "RUTA-DE-3000-CARACTERES", wanted[0])
        return re.sub("x{99,}", lambda m: f"LARGO-{len(m[0])}", line) + "\n"


def prepare(folder):
    typology = (folder / "casa.tip").read_bytes()
    os.mkfifo(folder / "tuberia.tip")
    (folder / "utf16.tip").write_bytes(typology.decode("cp1252").encode("utf-16"))
    (folder / "marca.tip").write_bytes(b"\xef\xbb\xbf" + typology)
    (folder / "campana.tip").write_bytes(typology.replace(b"Casa exenta", b"Casa\x07exenta"))
    (folder / "mezclado.tip").write_bytes(typology.replace(b"\n", b"\r\n", 3))
    (folder / "antes.txt").touch()


def replace(path, old, new):
    text = path.read_bytes()
    if text.count(old) < 1:
        raise SystemExit(f"{path.name} of the sample has no {old!r}")
    path.write_bytes(text.replace(old, new, 1))


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    for option in ("--program", "--samples", "--page"):
        parser.add_argument(option, required=True, type=Path)
    parser.add_argument("--update", action="store_true")
    options = parser.parse_args()
    page = Page(options)
    updated = page.check()
    for fault in page.faults:
        print(fault)
    if options.update:
        options.page.write_text(updated, encoding="utf-8")
    print(f"{len(SECTION.findall(page.text))} sections: {len(page.faults)} faults")
    return 1 if page.faults else 0


if __name__ == "__main__":
    sys.exit(main())
