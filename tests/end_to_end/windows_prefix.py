"""A Windows for a test (a wine prefix): one of its own, or the one that the build's tests share and
that has been started for them."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

TOOLS = ("wine", "wineserver")


def missing_tools(*others):
    return [tool for tool in (*TOOLS, *others) if shutil.which(tool) is None]


class Windows:
    """`prefix`: of the shared one. `folder` is the test's own in either case, and goes with it."""

    def __init__(self, prefix=None, display=None):
        self.is_own = prefix is None
        self.folder = Path(tempfile.mkdtemp(prefix="tip2bdl-windows-"))
        self.variables = {key: value for key, value in os.environ.items()
                          if key not in ("DISPLAY", "WAYLAND_DISPLAY", "LC_ALL", "LANG")}
        self.prefix = Path(prefix or self.folder / "prefix").resolve()
        # A locale without accents would spoil arguments that have some.
        self.variables.update(WINEPREFIX=str(self.prefix), WINEDEBUG="-all", LC_ALL="C.UTF-8",
                              WINEDLLOVERRIDES="mscoree,mshtml=")
        if display:
            self.variables["DISPLAY"] = display
        if self.is_own:
            self.begin()

    def begin(self):
        self.prefix.mkdir()
        # Stays until it is told to go, so that no program under test begins by starting it: what it
        # starts would keep that program's streams open.
        subprocess.run(["wineserver", "--persistent"], env=self.variables, check=True)
        subprocess.run(["wine", "wineboot", "--init"], env=self.variables, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

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
        return self.prefix / f"drive_{drive.lower()}" / rest.strip("\\").replace("\\", "/")

    def end_all(self):
        """Ends the programs of this Windows, its own among them."""
        subprocess.run(["wineserver", "-k"], env=self.variables, check=False)
        subprocess.run(["wineserver", "-w"], env=self.variables, check=False)

    def remove(self):
        if self.is_own:
            self.end_all()
        shutil.rmtree(self.folder, ignore_errors=True)
