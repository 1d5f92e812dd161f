#!/usr/bin/env python3
"""The console program for Windows, run under wine as a calling program does.

usage: windows_samples_test.py TIP2BDL_CLI_EXE SOURCE_FOLDER PREFIX [TEST...]
"""

import sys
import unittest
from pathlib import Path

from windows_prefix import Windows, missing_tools

PROGRAM, SOURCES, PREFIX = (Path(argument).resolve() for argument in sys.argv[1:4])
SAMPLES, GOLDENS = SOURCES / "samples", SOURCES / "tests" / "golden"
HOUSE = SAMPLES / "casa-adosada"  # tipo-02 has a frame, a shade and a site
INPUTS = ("casa-adosada.bdl", "casa-adosada.tbl", "defectos.inp", "tipo-02.tip")
ERROR = "Se ha producido un error: "


def as_text(output):
    """What the program wrote, before the text mode of its system made CR LF of line ends."""
    return output.replace(b"\r\n", b"\n")


class ConsoleTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.windows = Windows(PREFIX)
        cls.addClassCleanup(cls.windows.remove)
        cls.golden = (GOLDENS / "casa-adosada" / "tipo-02.bdl").read_bytes()

    def setUp(self):
        self.folder = self.windows.folder / self._testMethodName
        self.folder.mkdir()

    def run_in_folder(self, *arguments):
        return self.windows.run(PROGRAM, *arguments, cwd=self.folder)

    def copy_inputs(self, folder, change=lambda name, text: text):
        folder.mkdir(parents=True, exist_ok=True)
        for name in INPUTS:
            (folder / name).write_bytes(change(name, (HOUSE / name).read_bytes()))

    def run_of(self, folder):
        """A run with the four paths in `folder`, which has the inputs."""
        result = self.run_in_folder(folder / INPUTS[0], folder / INPUTS[3], folder / "salida.bdl",
                                    folder / "fin.txt")
        self.assertEqual((0, b"", b""), result)
        self.assertEqual(b"", (folder / "fin.txt").read_bytes())
        return (folder / "salida.bdl").read_bytes()

    def test_all_samples_give_their_goldens(self):
        typologies = sorted(SAMPLES.glob("*/*.tip"))
        self.assertGreater(len(typologies), 20)
        for typology in typologies:
            building = typology.parent.name
            with self.subTest(typology.name):
                status, _, err = self.run_in_folder(typology.parent / f"{building}.bdl", typology,
                                                    "salida.bdl", "fin.txt")
                self.assertEqual((0, b""), (status, err))
                golden = (GOLDENS / building / f"{typology.stem}.bdl").read_bytes()
                self.assertEqual(golden, as_text((self.folder / "salida.bdl").read_bytes()))

    def test_every_line_of_the_output_ends_in_cr_lf(self):
        self.copy_inputs(self.folder)
        output = self.run_of(self.folder)
        self.assertEqual(self.golden.replace(b"\n", b"\r\n"), output)

    def test_inputs_with_cr_lf_give_the_same_output(self):
        self.copy_inputs(self.folder, lambda name, text: text.replace(b"\n", b"\r\n"))
        self.assertEqual(self.golden, as_text(self.run_of(self.folder)))

    def test_an_end_of_file_of_old_does_not_cut_a_template(self):
        """The system's text mode takes a byte 1A for the end of a file."""
        self.copy_inputs(self.folder, lambda name, text:
                         text + (b"$ \x1a\n$ detras" if name == INPUTS[0] else b""))
        self.assertIn(b"$ \x1a\n$ detras", as_text(self.run_of(self.folder)))

    def test_a_path_of_any_characters(self):
        for name in ("con blancos", "año", "a,b", "家", "(x) & 100%"):
            with self.subTest(name):
                folder = self.folder / name
                self.copy_inputs(folder)
                self.assertEqual(self.golden, as_text(self.run_of(folder)))

    def test_a_path_of_more_than_260_characters(self):
        folder = self.folder / ("x" * 100) / ("y" * 100) / ("z" * 100)
        self.copy_inputs(folder)
        self.assertEqual(self.golden, as_text(self.run_of(folder)))

    def test_a_system_that_does_not_know_the_manifests_code_page(self):
        """Windows 10 of before 2019: its own texts are all that it has for names."""
        setting = b"activeCodePage"
        self.assertEqual(2, PROGRAM.read_bytes().count(setting))
        old = self.folder / "old.exe"
        old.write_bytes(PROGRAM.read_bytes().replace(setting, b"noSuchCodePage"))
        folder = self.folder / "año 家"
        self.copy_inputs(folder)
        status, out, err = self.windows.run(old, folder / INPUTS[0], folder / INPUTS[3],
                                            folder / "salida ñ.bdl", folder / "fin 家.txt")
        self.assertEqual((0, b"", b""), (status, out, err))
        self.assertEqual(b"", (folder / "fin 家.txt").read_bytes())
        self.assertEqual(self.golden, as_text((folder / "salida ñ.bdl").read_bytes()))

    def test_the_form_of_the_chains_callers(self):
        self.copy_inputs(self.folder)
        self.assertEqual((0, b"", b""), self.run_in_folder(
            "#casa-adosada.bdl, tipo-02.tip,salida.bdl,fin.txt"))
        self.assertEqual(self.golden, as_text((self.folder / "salida.bdl").read_bytes()))

    def test_messages_and_exit_codes_are_those_of_the_other_system(self):
        self.copy_inputs(self.folder)
        rows = (
            ((INPUTS[0], "no.tip", "s", "f"), 3, "No existe el fichero de datos *.tip"),
            ((INPUTS[0], INPUTS[3], "no/s", "f"), 3, "Error al abrir fichero de escritura: no/s"),
            ((INPUTS[0], INPUTS[3], "s", "no/f"), 3, "Error al abrir fichero de escritura: no/f"),
            (("#" + "ñ" * 125,), 3, "El elemento 1 de la línea de órdenes es demasiado largo: "
             + "ñ" * 125),
        )
        for arguments, status, message in rows:
            with self.subTest(message):
                result = self.run_in_folder(*arguments)
                self.assertEqual((status, b""), result[:2])
                self.assertEqual(ERROR + message, result[2].decode().splitlines()[0])
                self.assertFalse((self.folder / "f").exists())
        status, out, err = self.run_in_folder("--rapido")
        self.assertEqual((2, b""), (status, out))
        self.assertTrue(err.decode().startswith("tip2bdl-cli: opción desconocida: --rapido\r\n"))

    def test_help_is_utf8_in_a_pipe(self):
        status, out, err = self.run_in_folder("--help")
        self.assertEqual((0, b""), (status, err))
        self.assertIn("muestra la versión, su commit y su compilador\r\n", out.decode())


if __name__ == "__main__":
    if missing_tools():
        print("missing:", ", ".join(missing_tools()))
        sys.exit(77)
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
