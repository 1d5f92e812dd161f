"""A typology file: the numbers and names that the output must show."""

import re

from reader import read, squeezed

CONSTRUCTIONS = ("MUROS-FACHADA", "PARTICION-INTERIOR-VERTICAL", "MEDIANERA", "SUELOS",
                 "PARTICION-INTERIOR-HORIZONTAL", "CUBIERTAS")


class Typology:
    """Names stay as written, with their quotes or without."""

    def __init__(self, text):
        self.text = text
        self._read = read(text)
        mains = self._read.of("VIVIENDA")
        if not mains:
            raise ValueError("the typology file has no VIVIENDA")
        self._main = mains[0]
        self.number = int(self._main.value("TIPO"))
        self.storeys = int(self._main.value("NUMERO-PLANTAS"))
        self.height = self.real("ALTURA-PLANTA", 3.0)  # m, floor to floor
        self.turned = self.real("ORIENTACION", 0.0)  # degrees
        self.air_changes = self.real("AIR-CHANGES/HR", 1.0)  # 1/h
        self.street = self.percentages("PORCENTAJE-FACHADA")  # south, east, north, west
        self.courtyard = self.percentages("PORCENTAJE-PATIO")
        self.glass = self._main.value("VENTANA-VIDRIO")
        self.constructions = {key: self._main.value(key) for key in CONSTRUCTIONS}

    def real(self, key, default=0.0):
        value = self._main.value(key)
        return default if value is None else float(value)

    def percentages(self, key):
        value = self._main.value(key)
        if value is None:
            return (0.0, 0.0, 0.0, 0.0)
        return tuple(map(float, re.findall(r"[^\s(),]+", value)))

    def frame(self):
        return self._part("VENTANA-MARCO", "NAME-FRAME")

    def shade(self):
        return self._part("VENTANA-SOMBRA", "VENTANA-SOMBRA")

    def place(self):
        """The solar position on one line, from its type word on; empty when there is none."""
        for command in self._read.of("SOLAR-POSITION"):
            return command.one_line().split(" = ", 1)[1]
        return ""

    def _part(self, key, kind):
        """The command that `key` names, by its own name or its long one, on one line."""
        wanted = self._main.value(key)
        for command in self._read.of(kind):
            if wanted in (command.name, command.value("LONG-NAME")):
                return squeezed(command.one_line())
        return ""
