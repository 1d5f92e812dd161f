"""A Windows of its own for a test: a wine prefix in a folder that goes with it."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

TOOLS = ("wine", "wineserver")


def missing_tools(*others):
    return [tool for tool in (*TOOLS, *others) if shutil.which(tool) is None]


class Windows:
    def __init__(self, display=None, dpi=96):
        self.folder = Path(tempfile.mkdtemp(prefix="tip2bdl-windows-"))
        self.variables = {key: value for key, value in os.environ.items()
                          if key not in ("DISPLAY", "WAYLAND_DISPLAY", "LC_ALL", "LANG")}
        # A locale without accents would spoil arguments that have some.
        self.variables.update(WINEPREFIX=str(self.folder / "prefix"), WINEDEBUG="-all",
                              LC_ALL="C.UTF-8", WINEDLLOVERRIDES="mscoree,mshtml=")
        if display:
            self.variables["DISPLAY"] = display
        (self.folder / "prefix").mkdir()
        # Stays until it is told to go, so that no program under test begins by starting it: what it
        # starts would keep that program's streams open.
        subprocess.run(["wineserver", "--persistent"], env=self.variables, check=True)
        subprocess.run(["wine", "wineboot", "--init"], env=self.variables, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if dpi != 96:
            self.run("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t",
                     "REG_DWORD", "/d", str(dpi), "/f")
            self.end_all()  # it is read at the start

    def start(self, *command, **options):
        return subprocess.Popen(["wine", *map(str, command)], env=self.variables,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, **options)

    def run(self, *command, **options):
        """Runs a program to its end: exit code, standard output and standard error."""
        process = self.start(*command, **options)
        out, err = process.communicate(timeout=300)
        return process.returncode, out, err

    def path(self, windows_path):
        """The file that a path like C:\\x names."""
        drive, rest = windows_path.split(":", 1)
        return self.folder / "prefix" / f"drive_{drive.lower()}" / rest.strip("\\").replace("\\", "/")

    def end_all(self):
        """Ends the programs of this Windows, its own among them."""
        subprocess.run(["wineserver", "-k"], env=self.variables, check=False)
        subprocess.run(["wineserver", "-w"], env=self.variables, check=False)

    def remove(self):
        self.end_all()
        shutil.rmtree(self.folder, ignore_errors=True)
