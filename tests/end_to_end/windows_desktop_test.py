#!/usr/bin/env python3
"""The desktop program for Windows, run under wine on an X server of its own (Xvfb).

usage: windows_desktop_test.py TIP2BDL_EXE SOURCE_FOLDER [TEST...]
"""

import os
import re
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

from windows_prefix import Windows, missing_tools
from x_desktop import PATIENCE, eventually

PROGRAM, SOURCES = (Path(argument).resolve() for argument in sys.argv[1:3])
HOUSE = SOURCES / "samples" / "casa-adosada"
TEMPLATE, TYPOLOGY = HOUSE / "casa-adosada.bdl", HOUSE / "tipo-03.tip"
GOLDEN = SOURCES / "tests" / "golden" / "casa-adosada" / "tipo-03.bdl"
FORM = "Calculando ..."
BOX = "Se ha producido un error"
BLUE = (0, 164, 219)
EDGE = (160, 190, 202)


class DesktopTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        reading, writing = os.pipe()
        cls.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x800x24",
             "-nolisten", "tcp", "-noreset"],
            pass_fds=[writing], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        cls.addClassCleanup(cls.server.wait)
        cls.addClassCleanup(cls.server.terminate)
        os.close(writing)
        with os.fdopen(reading) as numbers:
            cls.display = ":" + numbers.readline().strip()
        cls.windows = Windows(display=cls.display)
        cls.addClassCleanup(cls.windows.remove)

    def setUp(self):
        self.folder = self.windows.folder / self._testMethodName
        self.folder.mkdir()
        self.output, self.marker = self.folder / "salida.bdl", self.folder / "fin.txt"

    def tool(self, *command):
        return subprocess.run(command, env={**os.environ, "DISPLAY": self.display}, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False).stdout

    def find(self, title):
        return self.tool("xdotool", "search", "--onlyvisible", "--name",
                         f"^{re.escape(title)}$").split()

    def window(self, title):
        return eventually(lambda: self.find(title), f"a window {title!r}")[0]

    def press(self, window, key):
        self.tool("xdotool", "windowfocus", "--sync", window, "key", key)

    def size(self, window):
        told = self.tool("xdotool", "getwindowgeometry", "--shell", window)
        return tuple(int(re.search(rf"^{name}=(\d+)", told, re.M)[1])
                     for name in ("WIDTH", "HEIGHT"))

    def start(self, command_line, **environment):
        self.windows.variables.update(environment)
        # Blank by blank: an argument that holds some would be handed over in quotes.
        process = self.windows.start(PROGRAM, *command_line.split(" "), cwd=self.folder)
        for name in environment:
            del self.windows.variables[name]
        self.addCleanup(self.clear, process)
        return process

    @staticmethod
    def clear(process):
        if process.poll() is None:
            process.kill()
        process.communicate()

    def command_line(self, template=TEMPLATE, typology=TYPOLOGY):
        return f"#{template},{typology},{self.output},{self.marker}"

    def ended(self, process):
        """Waits for the end and gives the exit code; a program of windows says nothing else."""
        out, err = process.communicate(timeout=PATIENCE)
        self.assertEqual((b"", b""), (out, err))
        return process.returncode

    def assert_output_is_right(self):
        self.assertEqual(GOLDEN.read_bytes(), self.output.read_bytes().replace(b"\r\n", b"\n"))

    def test_a_run_with_its_form(self):
        begun = time.monotonic()
        process = self.start(self.command_line())
        form = self.window(FORM)
        self.assertEqual([], self.find("VORK"), "the input form is not shown")
        self.press(form, "Escape")
        self.press(form, "alt+F4")
        time.sleep(0.5)
        self.assertEqual([form], self.find(FORM), "the user cannot close it")
        marked = eventually(lambda: self.marker.exists() and time.monotonic(), "a marker")
        self.assertGreater(marked - begun, 2.5)
        self.assertEqual(0, self.ended(process))
        self.assertEqual(b"", self.marker.read_bytes())
        self.assert_output_is_right()

    def test_the_form_is_crisp_at_every_scale(self):
        picture = self.folder / "form.txt"
        for dpi, (width, height), logo in ((96, (363, 289), (15, 14)), (144, (545, 434), (23, 21)),
                                           (192, (727, 579), (31, 28))):
            with self.subTest(dpi):
                process = self.start(self.command_line(typology="no.tip"), TIP2BDL_DPI=str(dpi))
                form = self.window(FORM)
                time.sleep(0.7)  # for it to be painted
                # Without a window manager the window has its client area and no frame.
                self.assertEqual((width, height), self.size(form))
                self.tool("import", "-window", form, "-depth", "8", f"txt:{picture}")
                lines = picture.read_text().splitlines()[1:]
                pixels = {}
                for line in lines:
                    x, y, *colour = (int(number) for number in
                                     re.findall(r"\d+", line.split("#")[0])[:5])
                    pixels[x, y] = tuple(colour)
                for corner in ((0, 0), (width - 1, 0), (0, height - 1), (width - 1, height - 1)):
                    self.assertEqual((255, 255, 255), pixels[corner])
                # The plan's corner, as many pixels from the logo's as its raster says.
                step = dpi // 48
                self.assertEqual(BLUE, pixels[logo[0] + step, logo[1] + 2 * step])
                self.assertNotEqual(BLUE, pixels[logo[0] + step - 1, logo[1] + 2 * step])
                # The bar, empty, in an edge of its own of one colour on all sides.
                left, top, right, bottom = (round(place * dpi / 144) for place in (23, 385, 515, 408))
                for place in ((left + 9, top), (left, top + 9), (right - 1, bottom - 9),
                              (right - 9, bottom - 1)):
                    self.assertEqual(EDGE, pixels[place])
                self.assertEqual((255, 255, 255), pixels[left + 9, top + 9])
                self.press(self.window(BOX), "Return")
                self.assertEqual(3, self.ended(process))

    def test_the_bar_has_its_own_colour(self):
        """A long template, so that it is seen on its way."""
        for name in ("casa-adosada.tbl", "defectos.inp"):
            (self.folder / name).write_bytes((HOUSE / name).read_bytes())
        (self.folder / "casa-adosada.bdl").write_bytes(
            re.sub(rb"(?m)^ *\.\. *$", lambda end: end[0] + b"\n$ ----" * 40000,
                   TEMPLATE.read_bytes()))
        process = self.start(self.command_line(template=self.folder / "casa-adosada.bdl"))
        form = self.window(FORM)
        time.sleep(2)
        colours = set()

        def blue():
            process.send_signal(signal.SIGSTOP)  # its way is short
            told = self.tool("import", "-window", form, "-depth", "8", "-crop", "1x1+30+263", "txt:-")
            process.send_signal(signal.SIGCONT)
            found = re.search(r"\((\d+),(\d+),(\d+)", told)
            if found:
                colours.add(tuple(map(int, found.groups())))
            return process.poll() is not None or BLUE in colours
        eventually(blue, "a bar on its way")
        self.assertEqual({(255, 255, 255), BLUE}, colours)
        self.assertEqual(0, self.ended(process))

    def test_a_fault_waits_in_its_box(self):
        process = self.start(self.command_line(typology="no.tip"))
        box = self.window(BOX)
        time.sleep(1)
        self.assertIsNone(process.poll(), "it has not waited for the box")
        self.assertEqual(1, len(self.find(FORM)))
        self.press(box, "Return")
        self.assertEqual(3, self.ended(process))
        self.assertFalse(self.marker.exists())

    def test_a_wrong_command_line_has_a_box_and_no_form(self):
        process = self.start("#" + "a" * 250)
        box = self.window(BOX)
        self.assertEqual([], self.find(FORM))
        self.press(box, "Escape")
        self.assertEqual(3, self.ended(process))

    def test_blanks_and_accents_of_the_command_line(self):
        folder = self.folder / "dos pisos año 家"
        folder.mkdir()
        for name in ("casa-adosada.bdl", "casa-adosada.tbl", "defectos.inp"):
            (folder / name).write_bytes((HOUSE / name).read_bytes())
        self.output, self.marker = folder / "salida.bdl", folder / "fin ñ.txt"
        self.assertEqual(0, self.ended(self.start(self.command_line(
            template=f" {folder}/casa-adosada.bdl"))))
        self.assertTrue(self.marker.exists())
        self.assert_output_is_right()

    def test_paths_of_300_characters(self):
        """Those of the command line have fewer than 250, from a folder that makes them longer."""
        deep = "/".join(("x" * 100, "y" * 100, "z" * 25))
        folder = self.folder / deep
        folder.mkdir(parents=True)
        self.assertGreater(len(str(folder / "casa-adosada.bdl")), 300)
        for name in ("casa-adosada.bdl", "casa-adosada.tbl", "defectos.inp"):
            (folder / name).write_bytes((HOUSE / name).read_bytes())
        self.output, self.marker = folder / "salida.bdl", folder / "fin.txt"
        self.assertEqual(0, self.ended(self.start(
            f"#{deep}/casa-adosada.bdl,{TYPOLOGY},{deep}/salida.bdl,{deep}/fin.txt")))
        self.assertTrue(self.marker.exists())
        self.assert_output_is_right()

    def test_a_comma_ends_an_item(self):
        (self.folder / "a,b.tip").write_bytes(TYPOLOGY.read_bytes())
        process = self.start(self.command_line(typology=self.folder / "a,b.tip"))
        self.press(self.window(BOX), "Return")
        self.assertEqual(3, self.ended(process))

    def test_where_no_window_can_be_made_it_ends_as_an_error(self):
        del self.windows.variables["DISPLAY"]
        try:
            process = self.start(self.command_line())
        finally:
            self.windows.variables["DISPLAY"] = self.display
        self.assertEqual(3, self.ended(process))
        self.assertFalse(self.marker.exists())


if __name__ == "__main__":
    lacking = missing_tools("Xvfb", "xdotool", "import")
    if lacking:
        print("missing:", ", ".join(lacking))
        sys.exit(77)
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
