#!/usr/bin/env python3
"""The example of a watched folder: what its service does, and what systemd says of its units.

    watched_folder_test.py PROGRAM SOURCES

Exit status 77, skipped, without systemd-analyze; on a build server (CI) that is a failure.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM, SOURCES = (Path(argument).resolve() for argument in sys.argv[1:3])
EXAMPLE = SOURCES / "examples" / "systemd"
SAMPLE = SOURCES / "samples" / "bloque-patio"
SCRIPT = "/usr/local/lib/tip2bdl/tip2bdl-carpeta"


class WatchedFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        for name in ("entrada", "salida", "hechas", "rechazadas"):
            (self.folder / name).mkdir()
        for name, sample in (("plantilla.bdl", "bloque-patio.bdl"),
                             ("plantilla.tbl", "bloque-patio.tbl"),
                             ("defectos.inp", "defectos.inp")):
            shutil.copy(SAMPLE / sample, self.folder / name)
        self.typology = (SAMPLE / "tipo-13.tip").read_bytes()

    def put(self, name, content):
        (self.folder / "entrada" / name).write_bytes(content)

    def serve(self):
        subprocess.run([EXAMPLE / "tip2bdl-carpeta", self.folder], check=True, cwd="/",
                       env={"PATH": "/usr/bin:/bin", "TIP2BDL_CLI": str(PROGRAM), "LC_ALL": "C.UTF-8"})

    def names(self, folder):
        return sorted(path.name for path in (self.folder / folder).iterdir())

    def test_a_typology_becomes_its_building(self):
        self.put("mi bloque.tip", self.typology)
        self.serve()
        self.assertEqual(["Error.log", "mi bloque.bdl", "mi bloque.fin"], self.names("salida"))
        self.assertEqual((SOURCES / "tests/golden/bloque-patio/tipo-13.bdl").read_bytes(),
                         (self.folder / "salida/mi bloque.bdl").read_bytes())
        self.assertEqual(["mi bloque.tip"], self.names("hechas"))
        self.assertEqual([], self.names("entrada"))

    def test_a_faulty_one_leaves_its_message_and_nothing_of_an_earlier_building(self):
        self.put("casa.tip", self.typology)
        self.serve()
        self.put("casa.tip", self.typology.replace(b"AREA-PLANTA = 454", b"AREA-PLANTA = 45"))
        self.put("otra.tip", self.typology)
        self.serve()
        self.assertEqual(["Error.log", "casa.txt", "otra.bdl", "otra.fin"], self.names("salida"))
        self.assertIn("Se ha producido un error: ",
                      (self.folder / "salida/casa.txt").read_text(encoding="utf-8"))
        self.assertEqual(["casa.tip"], self.names("rechazadas"))
        self.assertEqual([], self.names("entrada"))

    def test_what_is_still_being_copied_stays(self):
        self.put("casa.tip.parte", self.typology)
        self.serve()
        self.assertEqual(["casa.tip.parte"], self.names("entrada"))
        self.assertEqual([], self.names("salida"))

    def test_systemd_takes_the_units(self):
        for unit in EXAMPLE.glob("*@.*"):
            text = unit.read_text(encoding="utf-8")
            if unit.suffix == ".service":
                self.assertIn(f"ExecStart={SCRIPT} ", text)
                text = text.replace(SCRIPT, str(EXAMPLE / "tip2bdl-carpeta"))
            # With a name, as they are started.
            (self.folder / unit.name.replace("@", "@bloque-patio")).write_text(text, encoding="utf-8")
        units = sorted(map(str, self.folder.glob("*@*.*")))
        self.assertEqual(2, len(units))
        done = subprocess.run(["systemd-analyze", "verify", "--man=no", *units],
                              env=os.environ | {"SYSTEMD_UNIT_PATH": f"{self.folder}:"},
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual((0, ""), (done.returncode, done.stdout))
        # What a service may do beyond its own folder, in tenths; 100 is everything.
        subprocess.run(["systemd-analyze", "security", "--offline=true", "--threshold=10", units[1]],
                       stdout=subprocess.DEVNULL, check=True)


if __name__ == "__main__":
    if shutil.which("systemd-analyze") is None:
        print("skipped: systemd is missing")
        sys.exit(1 if os.environ.get("CI") else 77)
    unittest.main(argv=sys.argv[:1])
