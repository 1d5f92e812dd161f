#!/usr/bin/env python3
"""The installer and the archive for Windows, tried under wine.

usage: windows_package_test.py SOURCE_FOLDER BUILD_FOLDER VERSION [TEST...]
"""

import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

from windows_prefix import Windows, missing_tools

SOURCES, BUILD = (Path(argument).resolve() for argument in sys.argv[1:3])
VERSION = sys.argv[3]
EARLIER = "0.0.1"
HOUSE = SOURCES / "samples" / "casa-adosada"
GOLDEN = SOURCES / "tests" / "golden" / "casa-adosada" / "tipo-03.bdl"
FILES = {"tip2bdl.exe", "tip2bdl-cli.exe", "manual.txt", "LICENSE.txt"}


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="tip2bdl-package-")
        cls.addClassCleanup(folder.cleanup)
        cls.packages = Path(folder.name)
        for version in (EARLIER, VERSION):
            subprocess.run([SOURCES / "scripts" / "package-windows", BUILD, cls.packages, version],
                           check=True, stdout=subprocess.DEVNULL)
        cls.windows = Windows()
        cls.addClassCleanup(cls.windows.remove)
        cls.drive = cls.windows.path("C:\\")

    def msiexec(self, option, version):
        package = "Z:" + str(self.packages / f"tip2bdl-{version}.msi").replace("/", "\\")
        self.assertEqual(0, self.windows.run("msiexec", option, package, "/qn")[0])

    def installed(self):
        return {path.name for path in (self.drive / "Program Files" / "tip2bdl").glob("*")}

    def all_files(self):
        return {path for path in self.drive.rglob("*") if path.is_file()}

    def assert_runs(self, program):
        output = self.windows.folder / "salida.bdl"
        status, out, err = self.windows.run(
            program, HOUSE / "casa-adosada.bdl", HOUSE / "tipo-03.tip", output,
            self.windows.folder / "fin.txt")
        self.assertEqual((0, b"", b""), (status, out, err))
        self.assertEqual(GOLDEN.read_bytes(), output.read_bytes().replace(b"\r\n", b"\n"))

    def test_it_installs_upgrades_and_leaves_nothing(self):
        before = self.all_files()
        self.msiexec("/i", EARLIER)
        self.assertEqual(FILES, self.installed())
        self.msiexec("/i", VERSION)
        self.assertEqual(FILES, self.installed())
        self.assertIn(VERSION, (self.drive / "Program Files" / "tip2bdl" / "manual.txt").read_text())
        self.assertEqual(1, len(list(self.drive.rglob("Manual de tip2bdl.lnk"))))
        self.assertEqual(0, self.windows.run("reg", "query", "HKLM\\Software\\tip2bdl")[0])
        self.assert_runs("C:\\Program Files\\tip2bdl\\tip2bdl-cli.exe")
        self.msiexec("/x", VERSION)
        self.assertEqual(set(), self.all_files() - before)
        self.assertEqual([], list(self.drive.rglob("*tip2bdl*")))
        self.assertNotEqual(0, self.windows.run("reg", "query", "HKLM\\Software\\tip2bdl")[0])

    def test_the_archive_holds_the_same(self):
        folder = self.windows.folder / "zip"
        with zipfile.ZipFile(self.packages / f"tip2bdl-{VERSION}.zip") as archive:
            archive.extractall(folder)
        self.assertEqual([f"tip2bdl-{VERSION}"], [path.name for path in folder.iterdir()])
        unpacked = folder / f"tip2bdl-{VERSION}"
        self.assertEqual(FILES, {path.name for path in unpacked.iterdir()})
        self.assertTrue((unpacked / "manual.txt").read_bytes().startswith(b"\xef\xbb\xbftip2bdl"))
        self.assert_runs(unpacked / "tip2bdl-cli.exe")


if __name__ == "__main__":
    lacking = missing_tools("wixl", "zip")
    if lacking:
        print("missing:", ", ".join(lacking))
        sys.exit(77)
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
