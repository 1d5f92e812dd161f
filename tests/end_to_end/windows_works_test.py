#!/usr/bin/env python3
"""The works around the run (comprobar, plano, informe, lote) of the console program for Windows,
under wine.

usage: windows_works_test.py TIP2BDL_CLI_EXE SOURCE_FOLDER PREFIX [TEST...]
"""

import shutil
import subprocess
import sys
import time
import unittest
from pathlib import Path

from windows_prefix import Windows, missing_tools

PROGRAM, SOURCES, PREFIX = (Path(argument).resolve() for argument in sys.argv[1:4])
SAMPLES, GOLDENS = SOURCES / "samples", SOURCES / "tests" / "golden"
TYPOLOGIES = sorted(SAMPLES.glob("*/*.tip"))
HOUSE = SAMPLES / "casa-adosada"
ERROR = "Se ha producido un error: "


def golden(typology, extension):
    return GOLDENS / typology.parent.name / f"{typology.stem}{extension}"


def template_of(typology):
    return typology.parent / f"{typology.parent.name}.bdl"


class WorksTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.windows = Windows(PREFIX)
        cls.addClassCleanup(cls.windows.remove)

    def setUp(self):
        self.folder = self.windows.folder / self._testMethodName
        self.folder.mkdir()

    def run_work(self, *arguments, cwd=None):
        return self.windows.run(PROGRAM, *arguments, cwd=cwd or self.folder)

    def output_of(self, *arguments, cwd=None):
        status, out, err = self.run_work(*arguments, cwd=cwd)
        self.assertEqual((0, b""), (status, err))
        return out

    # What people read comes in lines of the system; data are the same bytes everywhere.

    def test_comprobar_says_of_the_samples_what_it_says_elsewhere(self):
        lines = []
        for building in sorted({typology.parent.name for typology in TYPOLOGIES}):
            files = [f"{building}/{typology.name}" for typology in TYPOLOGIES
                     if typology.parent.name == building]
            out = self.output_of("comprobar", f"{building}/{building}.bdl", *files, cwd=SAMPLES)
            self.assertEqual(out.count(b"\n"), out.count(b"\r\n"))
            file = self.folder / "faltas.txt"
            self.assertEqual(b"", self.output_of("comprobar", f"{building}/{building}.bdl", *files,
                                                 "--salida", file, cwd=SAMPLES))
            self.assertEqual(out, file.read_bytes())
            lines += out.decode().splitlines()
        self.assertEqual([line for line in (GOLDENS / "comprobar.txt").read_text().splitlines()
                          if not line.startswith("#")], lines)

    def test_plans_and_reports_are_the_same_byte_for_byte(self):
        for typology in TYPOLOGIES:
            with self.subTest(typology.name):
                self.assertEqual(golden(typology, ".plano.svg").read_bytes(),
                                 self.output_of("plano", typology))
                self.assertEqual(
                    golden(typology, ".informe.json").read_bytes(),
                    self.output_of("informe", "--formato", "json", template_of(typology), typology))
                page = golden(typology, ".informe.html")
                if page.exists():
                    self.assertEqual(page.read_bytes(),
                                     self.output_of("informe", template_of(typology), typology))

    def test_a_new_typology_has_the_line_ends_of_the_system(self):
        out = self.output_of("nueva", "13")
        self.assertEqual(b"", self.output_of("nueva", "13", "--salida", self.folder / "piso.tip"))
        self.assertEqual(out, (self.folder / "piso.tip").read_bytes())
        self.assertTrue(out.endswith(b"   ..\r\n"))
        self.assertEqual(out.count(b"\n"), out.count(b"\r\n"))
        self.assertEqual(b"", self.output_of("comprobar", self.folder / "piso.tip"))

    def test_data_of_comprobar_has_no_cr(self):
        for form in ("json", "sarif"):
            out = self.output_of("comprobar", "--formato", form, HOUSE / "tipo-03.tip")
            self.assertTrue(out.endswith(b"}\n"), form)
            self.assertNotIn(b"\r", out)

    def test_a_result_takes_the_place_of_a_file_of_any_name(self):
        folder = self.folder / "año 家"
        folder.mkdir()
        (folder / "plano.svg").write_text("antes")
        self.assertEqual(b"", self.output_of("plano", HOUSE / "tipo-03.tip", "--salida",
                                             folder / "plano.svg"))
        self.assertEqual(golden(HOUSE / "tipo-03.tip", ".plano.svg").read_bytes(),
                         (folder / "plano.svg").read_bytes())
        self.assertEqual(["plano.svg"], [path.name for path in folder.iterdir()])
        status, _, err = self.run_work("plano", HOUSE / "tipo-03.tip", "--salida", "no/plano.svg")
        self.assertEqual(
            (3, ERROR + "Error al abrir fichero de escritura: no/plano.svg"),
            (status, err.decode().splitlines()[0]))

    def test_comprobar_sees_two_paths_that_are_one_file(self):
        for name in ("casa-adosada.bdl", "casa-adosada.tbl", "defectos.inp", "tipo-03.tip"):
            (self.folder / name).write_bytes((HOUSE / name).read_bytes())
        status, out, err = self.run_work("comprobar", "casa-adosada.bdl", "tipo-03.tip",
                                         "--salida-prevista", "TIPO-03.tip", "--marca", "añ/fin")
        self.assertEqual((0, b""), (status, err))
        self.assertIn("[rutas-iguales]", out.decode())
        self.assertIn("[falta-carpeta]", out.decode())

    # A list of dwellings.

    def make_list(self, rows, faults=0):
        subprocess.run([sys.executable, SOURCES / "bench" / "make_list", self.folder, SAMPLES,
                        str(rows), str(faults)], check=True)

    def lote(self, results, *options, status):
        code, out, err = self.run_work("lote", "lista.csv", "--salida", results, *options)
        self.assertEqual((status, b""), (code, out), err)
        return err.decode()

    def files(self, results):
        """All files of some results but the journal, whose times differ."""
        folder = self.folder / results
        return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*")
                if path.is_file() and not path.name.startswith("diario")}

    def test_a_list_gives_the_goldens_of_its_rows(self):
        lines = ["id;plantilla;tipología"]
        for typology in TYPOLOGIES:
            # As a list made on Windows names files.
            names = ("Z:" + str(path).replace("/", "\\")
                     for path in (template_of(typology), typology))
            lines.append(";".join((typology.stem, *names)))
        (self.folder / "lista.csv").write_text("\r\n".join(lines), encoding="cp1252")
        told = self.lote("resultados", status=0)
        self.assertIn(f"{len(TYPOLOGIES)} viviendas: {len(TYPOLOGIES)} correctas", told)
        self.assertEqual(told.count("\n"), told.count("\r\n"))
        for typology in TYPOLOGIES:
            output = self.folder / "resultados" / "000000" / f"{typology.stem}.bdl"
            self.assertEqual(golden(typology, ".bdl").read_bytes().replace(b"\n", b"\r\n"),
                             output.read_bytes())

    def test_the_summary_page_of_a_list_is_the_same_byte_for_byte(self):
        self.make_list(620, 12)
        # The fingerprints are of paths, too: the samples lie beside the list.
        shutil.copytree(SAMPLES, self.folder / "samples")
        listed = self.folder / "lista.csv"
        listed.write_bytes(listed.read_bytes().replace(bytes(SAMPLES), b"samples"))
        self.lote("r", "--informe", status=1)
        self.assertEqual((SOURCES / "docs" / "resumen-ejemplo.html").read_bytes(),
                         (self.folder / "r" / "resumen.html").read_bytes())

    def test_a_list_in_shards_resumed_after_a_kill_gives_the_same(self):
        self.make_list(600, 20)
        results = "año 家"  # the same folder throughout: its name is in no file
        self.lote("entera", status=1)
        begun = self.windows.start(PROGRAM, "lote", "lista.csv", "--salida", results,
                                   "--fragmento", "2/3", "--trabajos", "1", cwd=self.folder)
        part = self.folder / results / "resultados-2-de-3.csv"
        while not part.exists() or part.read_bytes().count(b"\n") < 5:
            self.assertIsNone(begun.poll(), "it ended before it could be killed")
            time.sleep(0.005)
        begun.kill()
        begun.communicate()
        self.assertLess(part.read_bytes().count(b"\n"), 201)
        for shard in ("1/3", "3/3"):
            self.lote(results, "--fragmento", shard, status=1)
        status, _, err = self.run_work("lote", "--unir", "--salida", results)
        self.assertEqual(3, status)
        self.assertIn("No está acabada la parte 2/3", err.decode())
        told = self.lote(results, "--fragmento", "2/3", "--reanudar", status=1)
        self.assertRegex(told, r"; [1-9]\d* ya estaba")
        self.assertEqual((0, b""), self.run_work("lote", "--unir", "--salida", results)[:2])
        whole, joined = self.files("entera"), self.files(results)
        self.assertEqual(whole, {name: text for name, text in joined.items()
                                 if not name.startswith("resultados-")})

    def test_a_second_process_is_kept_out(self):
        self.make_list(4000)
        first = self.windows.start(PROGRAM, "lote", "lista.csv", "--salida", "r", "--trabajos", "1",
                                   cwd=self.folder)
        while not (self.folder / "r" / "resultados.csv").exists():
            self.assertIsNone(first.poll())
            time.sleep(0.005)
        self.assertIn(ERROR + "Otro proceso está trabajando en esta carpeta: r/.lote",
                      self.lote("r", "--reanudar", status=3))
        first.kill()
        first.communicate()
        # The system takes a killed process's files away when it comes to it.
        lock, end = self.folder / "r" / ".lote", time.monotonic() + 30
        while lock.exists() and time.monotonic() < end:
            time.sleep(0.005)
        self.assertFalse(lock.exists())

    def test_names_that_are_no_files_of_their_own_are_refused(self):
        row = f";{template_of(HOUSE / 'x')};{HOUSE / 'tipo-03.tip'}\n"
        ids = ("nul", "Com1.x", "casa", "CASA", "nulo")
        (self.folder / "lista.csv").write_text(
            "ID;PLANTILLA;TIPOLOGIA\n" + "".join(name + row for name in ids))
        self.assertIn("5 viviendas: 2 correctas, 3 rechazadas", self.lote("r", status=1))
        self.assertEqual({"casa.bdl", "nulo.bdl"},
                         {path.name for path in (self.folder / "r" / "000000").iterdir()})
        codes = [line.split(";")[2] for line in
                 (self.folder / "r" / "resultados.csv").read_text("utf-8-sig").splitlines()[1:]]
        self.assertEqual(["id-no-valido", "id-no-valido", "", "id-repetido", ""], codes)


if __name__ == "__main__":
    if missing_tools():
        print("missing:", ", ".join(missing_tools()))
        sys.exit(77)
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
