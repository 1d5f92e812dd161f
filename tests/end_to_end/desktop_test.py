#!/usr/bin/env python3
"""Whole runs of the desktop program, as a calling program and a person see them.

usage: desktop_test.py TIP2BDL TIP2BDL_CLI SAMPLES_FOLDER LOCALES_FOLDER [TEST...]

Each test has an X server of its own, or none. A run takes three seconds by design, nearly all of
them spent waiting, so the tests run side by side. LOCALES_FOLDER has a compiled es_ES.UTF-8. Ends
with 77 (skipped) where that or a tool is missing (Xvfb, xdotool, xprop, icewm, import); on a build
server (the variable CI is set), which installs them all, that is a failure.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from x_desktop import PATIENCE, Desktop, eventually

PROGRAM, CONSOLE, SAMPLES, LOCALES = (Path(argument).resolve() for argument in sys.argv[1:5])
HOUSE = SAMPLES / "casa-adosada"
TEMPLATE = HOUSE / "casa-adosada.bdl"
TYPOLOGY = HOUSE / "tipo-03.tip"

FORM = "Calculando ..."
BOX = "Se ha producido un error"
SKIPPED = 1 if os.environ.get("CI") else 77

MWM_HINTS_FUNCTIONS, MWM_FUNC_ALL, MWM_FUNC_CLOSE = 1, 1, 0x20


class DesktopTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="tip2bdl-desktop-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.output = self.folder / "salida.bdl"
        self.marker = self.folder / "fin.txt"

    def desktop(self, **options):
        desktop = Desktop(**options)
        self.addCleanup(desktop.stop)
        return desktop

    def start(self, *arguments, desktop=None, **environment):
        """Starts the program; variables that are None are unset."""
        variables = {key: value for key, value in os.environ.items()
                     if not key.startswith(("QT_", "LC_")) and key != "WAYLAND_DISPLAY"}
        variables.update({"LANG": "C.UTF-8", "DBUS_SESSION_BUS_ADDRESS": "disabled:",
                          "DISPLAY": desktop.display if desktop else None, **environment})
        process = subprocess.Popen(
            [PROGRAM, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            env={key: value for key, value in variables.items() if value is not None})
        self.addCleanup(self.clear, process)
        return process

    @staticmethod
    def clear(process):
        if process.poll() is None:
            process.kill()
        process.communicate()

    def command_line(self, template=TEMPLATE, typology=TYPOLOGY, output=None):
        return f"programa#{template},{typology},{output or self.output},{self.marker}"

    def ended(self, process):
        """Waits for the end: exit code, standard output and standard error."""
        out, err = process.communicate(timeout=PATIENCE)
        return process.returncode, out, err

    def output_of_console(self):
        expected = self.folder / "consola.bdl"
        subprocess.run([CONSOLE, TEMPLATE, TYPOLOGY, expected, self.folder / "consola.txt"],
                       check=True, env={**os.environ, "LC_ALL": "C"})
        return expected.read_bytes()

    def assert_failed_run_left_no_marker(self):
        self.assertFalse(self.marker.exists())

    # With a screen

    def test_a_run_with_its_form(self):
        desktop = self.desktop()
        begun = time.monotonic()
        process = self.start(self.command_line(), desktop=desktop)
        form = desktop.window(FORM)

        self.assertIn("363 by 289", desktop.property(form, "WM_NORMAL_HINTS"))
        numbers = re.findall(r"0x[0-9a-f]+", desktop.property(form, "_MOTIF_WM_HINTS"))
        flags, functions = (int(number, 16) for number in numbers[:2])
        self.assertTrue(flags & MWM_HINTS_FUNCTIONS)
        self.assertFalse(functions & (MWM_FUNC_ALL | MWM_FUNC_CLOSE), "a close box")
        self.assertEqual([], desktop.windows("VORK"), "the input form is not shown")

        # The user tries to get rid of it.
        desktop.press(form, "Escape")
        desktop.ask_to_close(form)
        time.sleep(0.3)
        self.assertEqual([form], desktop.windows(FORM))

        marked = eventually(lambda: self.marker.exists() and time.monotonic(), "a marker")
        self.assertGreater(marked - begun, 2.5)
        self.assertEqual(0, self.ended(process)[0])
        self.assertEqual(b"", self.marker.read_bytes())
        self.assertEqual(b"", (self.folder / "Error.log").read_bytes())
        self.assertEqual(self.output_of_console(), self.output.read_bytes())

    def failing_run(self, dismiss):
        """A run that fails, with its box dismissed by `dismiss(desktop, box)`."""
        desktop = self.desktop()
        process = self.start(self.command_line(typology="no.tip"), desktop=desktop)
        box = desktop.window(BOX)
        self.assertIn("_NET_WM_STATE_MODAL", desktop.property(box, "_NET_WM_STATE"))
        self.assertEqual(1, len(desktop.windows(FORM)))
        time.sleep(1)
        self.assertIsNone(process.poll(), "it has not waited for the box")
        dismiss(desktop, box)
        self.assertEqual(3, self.ended(process)[0])
        self.assert_failed_run_left_no_marker()

    def test_a_box_is_dismissed_by_return(self):
        self.failing_run(lambda desktop, box: desktop.press(box, "Return"))

    def test_a_box_is_dismissed_by_its_close_box(self):
        self.failing_run(lambda desktop, box: desktop.ask_to_close(box))

    def test_a_box_is_dismissed_by_whoever_destroys_it(self):
        self.failing_run(lambda desktop, box: desktop.destroy(box))

    def test_an_overlong_command_line_has_a_box_too(self):
        desktop = self.desktop()
        process = self.start("#" + "a" * 250, desktop=desktop)
        box = desktop.window(BOX)
        self.assertEqual([], desktop.windows(FORM))
        desktop.press(box, "Escape")
        self.assertEqual(3, self.ended(process)[0])

    def test_a_marker_that_cannot_be_created(self):
        desktop = self.desktop()
        self.marker.mkdir()  # a folder stands in its place
        process = self.start(self.command_line(), desktop=desktop)
        box = desktop.window(BOX)
        desktop.press(box, "Return")
        self.assertEqual(3, self.ended(process)[0])
        self.assertEqual(self.output_of_console(), self.output.read_bytes())

    def test_an_output_that_cannot_be_written_has_a_box_and_no_other_message(self):
        desktop = self.desktop()
        for output in ("/dev/full", "no-existe/salida.bdl"):
            with self.subTest(output):
                process = self.start(self.command_line(output=output), desktop=desktop)
                desktop.press(desktop.window(BOX), "Return")
                status, out, err = self.ended(process)
                self.assertEqual((3, b""), (status, out))
                self.assertNotIn(BOX, err.decode())
                self.assert_failed_run_left_no_marker()

    def test_looking_for_the_screen_does_not_end_it(self):
        process = self.start(self.command_line(), desktop=self.desktop(end="-terminate"))
        self.assertEqual(0, self.ended(process)[0])
        self.assertTrue(self.marker.exists())

    def test_a_screen_that_is_lost_during_the_run_is_an_error(self):
        desktop = self.desktop()
        process = self.start(self.command_line(), desktop=desktop)
        desktop.window("Calculando ...")
        desktop.server.kill()
        status, _, err = self.ended(process)
        self.assertEqual(3, status)
        self.assertEqual("Se ha producido un error: Se ha perdido la conexión con la pantalla",
                         err.decode().splitlines()[0])
        self.assert_failed_run_left_no_marker()

    def test_the_message_of_a_box_outlives_its_screen(self):
        desktop = self.desktop()
        process = self.start(self.command_line(typology="no.tip"), desktop=desktop)
        desktop.window(BOX)
        desktop.server.kill()
        status, _, err = self.ended(process)
        self.assertEqual(3, status)
        self.assertEqual("Se ha producido un error: No existe el fichero de datos *.tip",
                         err.decode().splitlines()[0])
        self.assert_failed_run_left_no_marker()

    def test_a_run_that_succeeds_says_nothing(self):
        """The framework has a remark to make about a folder that is not there."""
        process = self.start(self.command_line(), desktop=self.desktop(), XDG_RUNTIME_DIR="/no")
        self.assertEqual((0, b"", b""), self.ended(process))

    def test_a_platform_that_is_not_there_gives_way_to_the_screen(self):
        for platform in ("no-existe", "linuxfb:fb=/dev/no-existe"):
            with self.subTest(platform):
                desktop = self.desktop()
                process = self.start(self.command_line(typology="no.tip"), desktop=desktop,
                                     QT_QPA_PLATFORM=platform)
                desktop.press(desktop.window(BOX), "Return")
                self.assertEqual((3, b""), self.ended(process)[:2])

    def test_the_run_begins_three_seconds_after_the_form(self):
        desktop = self.desktop()
        process = self.start(self.command_line(typology="no.tip"), desktop=desktop)
        desktop.window(FORM)
        shown = time.monotonic()
        log = self.folder / "Error.log"
        while not log.exists():
            time.sleep(0.005)
        # The window is found a little after it is shown.
        # A busy machine may take longer, but never less.
        self.assertGreater(time.monotonic() - shown, 1.5)
        self.clear(process)

    def test_windows_stand_in_the_middle_with_their_frames(self):
        for scale, size in ((1, (363, 289)), (1.5, (545, 434))):
            with self.subTest(scale):
                desktop = self.desktop(manager=["icewm", "--theme=win95/default.theme"])
                process = self.start(self.command_line(typology="no.tip"), desktop=desktop,
                                     QT_SCALE_FACTOR=str(scale))
                form = desktop.window(FORM)
                time.sleep(0.5)  # for the window manager to be done with it
                inner, outer = desktop.geometry(form)
                self.assertEqual(size, inner[2:])
                self.assertNotEqual(inner, outer, "no frame")
                self.assertNotIn("increment", desktop.property(form, "WM_NORMAL_HINTS"))
                area = [int(number) for number in re.findall(
                    r"\d+", desktop.tool("xprop", "-root", "_NET_WORKAREA").split("=")[-1])][:4]
                self.assert_centred(outer, area)
                for x in (inner[0], inner[0] + size[0] - 1):
                    for y in (inner[1], inner[1] + size[1] - 1):
                        self.assertEqual((255, 255, 255), desktop.colour(x, y))
                box = desktop.window(BOX)
                time.sleep(0.5)
                self.assert_centred(desktop.geometry(box)[1], desktop.geometry(form)[1])
                self.assertNotIn("increment", desktop.property(box, "WM_NORMAL_HINTS"))
                desktop.press(box, "Return")
                self.assertEqual(3, self.ended(process)[0])

    def assert_centred(self, inner, outer):
        for side in (0, 1):
            self.assertAlmostEqual(outer[side] + outer[side + 2] / 2,
                                   inner[side] + inner[side + 2] / 2, delta=2)

    def test_a_decimal_comma_changes_nothing(self):
        spanish = {"LOCPATH": str(LOCALES), "LC_ALL": "es_ES.UTF-8"}
        mark = subprocess.run(["locale", "decimal_point"], env={**os.environ, **spanish},
                              capture_output=True, text=True, check=True).stdout
        if mark.strip() != ",":
            self.skipTest("no Spanish locale")
        process = self.start(self.command_line(), desktop=self.desktop(), **spanish)
        self.assertEqual(0, self.ended(process)[0])
        self.assertEqual(self.output_of_console(), self.output.read_bytes())

    # Without a screen

    NO_SCREEN = {
        "nothing set": {},
        "set to nothing": {"DISPLAY": "", "WAYLAND_DISPLAY": ""},
        "no such display": {"DISPLAY": ":4095"},
        "no such display, asked for": {"DISPLAY": ":4095", "QT_QPA_PLATFORM": "xcb"},
        "no such compositor": {"WAYLAND_DISPLAY": "no-existe"},
        "offscreen": {"QT_QPA_PLATFORM": "offscreen"},
        "minimal": {"QT_QPA_PLATFORM": "minimal"},
        "no such platform": {"DISPLAY": ":4095", "QT_QPA_PLATFORM": "no-existe"},
        "a locale without accents": {"LC_ALL": "C"},
    }

    def test_errors_without_a_screen(self):
        processes = {why: self.start(self.command_line(template="año.bdl"), **environment)
                     for why, environment in self.NO_SCREEN.items()}
        message = b"Se ha producido un error: No existe el fichero de datos *.bdl\n"
        for why, process in processes.items():
            with self.subTest(why):
                self.assertEqual((3, b"", message), self.ended(process))
        self.assert_failed_run_left_no_marker()

    def test_a_platform_without_a_screen_on_a_screen(self):
        desktop = self.desktop()
        process = self.start(self.command_line(typology="no.tip"), desktop=desktop,
                             QT_QPA_PLATFORM="offscreen")
        self.assertEqual(
            (3, b"", b"Se ha producido un error: No existe el fichero de datos *.tip\n"),
            self.ended(process))

    def test_a_run_without_a_screen(self):
        begun = time.monotonic()
        process = self.start(self.command_line())
        marked = eventually(lambda: self.marker.exists() and time.monotonic(), "a marker")
        self.assertGreater(marked - begun, 2.5, "the timer ticks all the same")
        self.assertEqual((0, b"", b""), self.ended(process))
        self.assertEqual(b"", self.marker.read_bytes())
        self.assertEqual(self.output_of_console(), self.output.read_bytes())

    def test_messages_are_spanish_in_the_terminals_encoding(self):
        process = self.start("#" + "ñ" * 125)
        self.assertEqual(
            (3, b"", ("Se ha producido un error: El elemento 1 de la línea de órdenes es "
                      "demasiado largo: " + "ñ" * 125 + "\n").encode()),
            self.ended(process))

    # The command line

    def test_arguments_are_joined_and_belong_to_the_paths(self):
        process = self.start("-platform", "no-existe#x#" + str(TEMPLATE) + ",", f" {TYPOLOGY},",
                             str(self.output) + ",", str(self.marker))
        self.assertEqual((0, b"", b""), self.ended(process))
        self.assertTrue(self.marker.exists())

    def test_closed_streams_harm_nothing(self):
        process = subprocess.run(
            ["sh", "-c", 'exec "$0" "$1" <&- >&- 2>&-', PROGRAM, self.command_line(typology="no")],
            cwd=self.folder, check=False,
            env={key: value for key, value in os.environ.items() if key != "DISPLAY"})
        self.assertEqual(3, process.returncode)
        self.assertEqual(b"", (self.folder / "Error.log").read_bytes())


def main():
    missing = [tool for tool in ("Xvfb", "xdotool", "xprop", "icewm", "import")
               if shutil.which(tool) is None]
    if missing:
        print("missing:", ", ".join(missing))
        return SKIPPED
    names = sys.argv[5:] or unittest.TestLoader().getTestCaseNames(DesktopTest)

    def run(name):
        result = unittest.TestResult()
        begun = time.monotonic()
        DesktopTest(name).run(result)
        return name, result, time.monotonic() - begun

    failed = lacking = 0
    with ThreadPoolExecutor(max_workers=len(names)) as pool:
        for name, result, seconds in pool.map(run, names):
            skipped = "".join(f" skipped: {reason}" for _, reason in result.skipped)
            outcome = "ok    " if result.wasSuccessful() else "FAILED"
            print(f"{outcome} {name} ({seconds:.1f} s){skipped}")
            for _, trace in result.failures + result.errors:
                print(trace)
            failed += not result.wasSuccessful()
            lacking += len(result.skipped)
    return 1 if failed else SKIPPED if lacking else 0


if __name__ == "__main__":
    sys.exit(main())
