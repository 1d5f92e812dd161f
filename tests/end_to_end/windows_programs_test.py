#!/usr/bin/env python3
"""What the finished programs for Windows are, as their files tell.

usage: windows_programs_test.py OBJDUMP VERSION SOURCE_FOLDER BUILD_FOLDER PROGRAM.exe...
"""

import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as xml
from pathlib import Path

OBJDUMP, VERSION, SOURCES, BUILD = sys.argv[1:5]
PROGRAMS = [Path(argument) for argument in sys.argv[5:]]

# What comes with every Windows 10.
SYSTEM = {"advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "user32.dll",
          "uxtheme.dll"}
NO_GUI = {"advapi32.dll", "kernel32.dll", "msvcrt.dll"}
TRAITS = {"DYNAMIC_BASE": "is placed anywhere in memory", "NX_COMPAT": "executes no data",
          "HIGH_ENTROPY_VA": "is placed anywhere in 64 bits"}
SETTINGS = {"activeCodePage": "UTF-8", "longPathAware": "true",
            "dpiAwareness": "PerMonitorV2, PerMonitor"}


def manifest(program):
    found = re.search(rb"<assembly .*?</assembly>", program.read_bytes(), re.DOTALL)
    return xml.fromstring(found[0])


class ProgramsTest(unittest.TestCase):
    def headers(self, program):
        return subprocess.run([OBJDUMP, "-p", program], check=True, capture_output=True,
                              env={"TZ": "UTC", "LC_ALL": "C"}, text=True).stdout

    def test_the_manifest(self):
        for program in PROGRAMS:
            elements = {element.tag.split("}")[1]: element for element in manifest(program).iter()}
            for name, value in SETTINGS.items():
                self.assertEqual(value, elements[name].text)
            self.assertEqual("asInvoker", elements["requestedExecutionLevel"].get("level"))
            names = [element.get("name") for element in manifest(program).iter()
                     if element.tag.endswith("}assemblyIdentity")]
            self.assertEqual([program.stem, "Microsoft.Windows.Common-Controls"], names)

    def test_the_version(self):
        for program in PROGRAMS:
            text = program.read_bytes()
            for key, value in (("ProductVersion", VERSION), ("FileVersion", VERSION),
                               ("OriginalFilename", program.name)):
                at = text.find(key.encode("utf-16-le"))
                self.assertNotEqual(-1, at, key)
                self.assertIn(value.encode("utf-16-le"), text[at:at + 100], key)
            self.assertIn("tipología".encode("utf-16-le"), text)

    def test_imports_come_from_the_system(self):
        for program in PROGRAMS:
            imports = {name.lower() for name in
                       re.findall(r"DLL Name: (\S+)", self.headers(program))}
            self.assertLessEqual(imports, NO_GUI if program.stem.endswith("-cli") else SYSTEM)

    def test_the_hardening(self):
        for program in PROGRAMS:
            headers = self.headers(program)
            for trait, meaning in TRAITS.items():
                self.assertIn(trait, headers, f"it is not so that it {meaning}")

    def test_the_subsystem(self):
        for program in PROGRAMS:
            kind = "CUI" if program.stem.endswith("-cli") else "GUI"
            self.assertRegex(self.headers(program), rf"Subsystem.*\(Windows {kind}\)")

    def test_nothing_tells_where_or_when_it_was_built(self):
        for program in PROGRAMS:
            text = program.read_bytes()
            for folder in (SOURCES, BUILD):
                self.assertNotIn(folder.encode(), text)
                self.assertNotIn(folder.encode("utf-16-le"), text)
            self.assertRegex(self.headers(program), r"Time/Date\s+Thu Jan +1 00:00:00 1970")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
