#!/usr/bin/env python3
"""The installer and the archive for Windows, tried under wine.

usage: windows_package_test.py SOURCE_FOLDER BUILD_FOLDER VERSION [TEST...]
"""

import re
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
PAGE = SOURCES / "docs" / "manual" / "primer-edificio.md"
PATH_KEY = r"HKLM\System\CurrentControlSet\Control\Session Manager\Environment"


def files_of_the_packages():
    samples = SOURCES / "samples"
    yield from ("tip2bdl.exe", "tip2bdl-cli.exe", "LEEME.txt", "LICENSE.txt")
    for sample in samples.glob("*/*"):
        yield f"ejemplos/{sample.relative_to(samples).as_posix()}"
    with tempfile.TemporaryDirectory() as manual:
        subprocess.run(["/usr/bin/python3", SOURCES / "packaging" / "manual" / "make_manual.py",
                        SOURCES, manual], check=True)
        for page in Path(manual).iterdir():
            yield f"manual/{page.name}"


def files_in(folder):
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()}


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="tip2bdl-package-")
        cls.addClassCleanup(folder.cleanup)
        cls.packages = Path(folder.name)
        cls.files = set(files_of_the_packages())
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
        return files_in(self.drive / "Program Files" / "tip2bdl")

    def search_path(self):
        """The folders of the machine's PATH."""
        _, out, _ = self.windows.run("reg", "query", PATH_KEY, "/v", "PATH")
        value = out.decode().split("REG_EXPAND_SZ", 1)[1].strip()
        # Wine leaves the separator of what it takes out.
        return [folder for folder in value.split(";") if folder]

    def page_commands(self):
        """What the manual's first page says for Windows, but the programs that open a window, and
        the installer, which is there already."""
        blocks = re.findall(r"```bat\n(.*?)```", PAGE.read_text(encoding="utf-8"), re.S)
        lines = [line for block in blocks for line in block.splitlines()]
        return [line for line in lines if not line.startswith(("msiexec ", "notepad ", "start "))]

    def all_files(self):
        """Without what Windows notes of a device (inf/*.pnf) whenever it gets round to it."""
        notes = self.drive / "windows" / "inf"
        return {path for path in self.drive.rglob("*") if path.is_file()
                and not (path.parent == notes and path.suffix == ".pnf")}

    def assert_runs(self, program):
        output = self.windows.folder / "salida.bdl"
        status, out, err = self.windows.run(
            program, HOUSE / "casa-adosada.bdl", HOUSE / "tipo-03.tip", output,
            self.windows.folder / "fin.txt")
        self.assertEqual((0, b"", b""), (status, out, err))
        self.assertEqual(GOLDEN.read_bytes(), output.read_bytes().replace(b"\r\n", b"\n"))

    def assert_installed(self, path):
        self.assertEqual(self.files, self.installed())
        self.assertEqual([*path, "C:\\Program Files\\tip2bdl\\"], self.search_path())
        entries = list(self.drive.rglob("Manual de tip2bdl.lnk"))
        self.assertEqual(1, len(entries))
        self.assertIn("tip2bdl\\manual\\index.html", entries[0].read_bytes().decode("utf-16-le", "ignore")
                      + entries[0].read_bytes().decode("latin-1"))
        self.assertEqual(0, self.windows.run("reg", "query", "HKLM\\Software\\tip2bdl")[0])
        self.assert_runs("C:\\Program Files\\tip2bdl\\tip2bdl-cli.exe")

    def assert_gone(self, files, path):
        self.assertEqual(set(), self.all_files() - files)
        self.assertEqual(path, self.search_path())
        self.assertEqual([], list(self.drive.rglob("*tip2bdl*")))
        self.assertNotEqual(0, self.windows.run("reg", "query", "HKLM\\Software\\tip2bdl")[0])

    def test_it_installs_upgrades_and_leaves_nothing(self):
        files, path = self.all_files(), self.search_path()
        self.msiexec("/i", VERSION)
        self.assert_installed(path)
        self.assert_the_page_leads_to_a_building()
        self.msiexec("/x", VERSION)
        self.assert_gone(files, path)
        self.msiexec("/i", EARLIER)
        self.assert_installed(path)
        self.msiexec("/i", VERSION)
        self.assert_installed(path)
        self.assertIn(VERSION, (self.drive / "Program Files" / "tip2bdl" / "LEEME.txt").read_text())
        self.msiexec("/x", VERSION)
        self.assert_gone(files, path)

    def assert_the_page_leads_to_a_building(self):
        commands = self.page_commands()
        self.assertEqual(6, len(commands))
        folder = self.windows.folder / "en casa"
        folder.mkdir()
        for line in commands:
            (folder / "orden.bat").write_text(f"@{line}\r\n", newline="")
            status, out, err = self.windows.run("cmd", "/c", "orden.bat", cwd=folder)
            self.assertEqual((0, b""), (status, err), f"{line}\n{out}")
        self.assertIn(b"MULTIPLIER = 2", (folder / "edificio.bdl").read_bytes())
        self.assertTrue((folder / "fin.txt").exists())
        self.assertIn(b"</html>", (folder / "informe.html").read_bytes())
        self.assertIn(b"</svg>", (folder / "plano.svg").read_bytes())

    def test_the_archive_holds_the_same(self):
        folder = self.windows.folder / "zip"
        with zipfile.ZipFile(self.packages / f"tip2bdl-{VERSION}.zip") as archive:
            archive.extractall(folder)
        self.assertEqual([f"tip2bdl-{VERSION}"], [path.name for path in folder.iterdir()])
        unpacked = folder / f"tip2bdl-{VERSION}"
        self.assertEqual(self.files, files_in(unpacked))
        self.assertTrue((unpacked / "LEEME.txt").read_bytes().startswith(b"\xef\xbb\xbftip2bdl"))
        self.assert_runs(unpacked / "tip2bdl-cli.exe")


if __name__ == "__main__":
    lacking = missing_tools("wixl", "zip")
    if lacking:
        print("missing:", ", ".join(lacking))
        sys.exit(77)
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
