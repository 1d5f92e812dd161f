"""The typology files: the few numbers and names that turn a template into one building.

Their reader finds a keyword at the first place where its letters stand, so comments and names
keep away from the words in capitals that it looks for.
"""

from dataclasses import dataclass, field

from .text import command, comment, listed, number, quoted

PLAIN = {  # constructions named without quotes: a name without blanks may go without
    "MUROS-FACHADA": "Muro_Fachada_Antiguo", "PARTICION-INTERIOR-VERTICAL": "Partición_Cerámica",
    "MEDIANERA": "Medianera_Ladrillo", "SUELOS": "Solera_Antigua",
    "PARTICION-INTERIOR-HORIZONTAL": "Forjado_Con_Tarima", "CUBIERTAS": "Cubierta_Plana_Antigua"}
INSULATED = {
    "MUROS-FACHADA": quoted("Muro_Fachada_Aislado"),
    "PARTICION-INTERIOR-VERTICAL": quoted("Partición_Acústica"),
    "MEDIANERA": quoted("Medianera_Ladrillo"), "SUELOS": quoted("Solera_Aislada"),
    "PARTICION-INTERIOR-HORIZONTAL": quoted("Forjado_Entre_Plantas"),
    "CUBIERTAS": quoted("Cubierta_Plana_Aislada")}
VENTILATED = {**INSULATED, "MUROS-FACHADA": quoted("Fachada ventilada de cerámica")}
# Inside a house there are only its own thin partitions.
HOUSE = {**INSULATED, "PARTICION-INTERIOR-VERTICAL": quoted("Partición_Cerámica")}
# The sides of a house that stands free take the wall of the facade.
FREE = {**HOUSE, "MEDIANERA": quoted("Muro_Fachada_Aislado")}
FREE_PLAIN = {**PLAIN, "MEDIANERA": "Muro_Fachada_Antiguo"}
FREE_VENTILATED = {**HOUSE, "MUROS-FACHADA": quoted("Fachada ventilada de cerámica"),
                   "MEDIANERA": quoted("Fachada ventilada de cerámica")}

SINGLE, DOUBLE = "Vidrio_Simple_6", quoted("Vidrio_Doble_4-12-4")
LOW_E, SOLAR = quoted("Vidrio_Bajo_Emisivo_4-16-4"), quoted("Vidrio de control solar 6-16-6")

# how a typology names it: (name of the command, keywords)
FRAMES = {
    quoted("Marco_PVC"): ("Marco_PVC", (
        ("FRAME-WIDTH", "0.12"), ("FRAME-CONDUCT", "1.80"), ("FRAME-ABS", "0.30"),
        ("INF-COEF", "9.00"))),
    quoted("Marco_Aluminio_RPT"): ("Marco_Aluminio_RPT", (
        ("FRAME-WIDTH", "0.08"), ("FRAME-CONDUCT", "3.20"), ("FRAME-ABS", "0.65"),
        ("INF-COEF", "27.00"))),
    # Named by its long name: the command itself has a short one.
    quoted("Marco de madera de pino, barnizado"): ("Marco_03", (
        ("LONG-NAME", quoted("Marco de madera de pino, barnizado")), ("FRAME-WIDTH", "0.10"),
        ("FRAME-CONDUCT", "2.00"), ("FRAME-ABS", "0.55"), ("INF-COEF", "50.00"))),
}
SHADES = {
    quoted("Voladizo_60cm"): ("Voladizo_60cm", (
        ("SETBACK", "0.20"), ("OVERHANG-A", "0.10"), ("OVERHANG-B", "0.15"),
        ("OVERHANG-W", "4.00"), ("OVERHANG-D", "0.60"), ("OVERHANG-ANGLE", "90.00"))),
    quoted("Lamas_Verticales"): ("Lamas_Verticales", (
        ("SETBACK", "0.10"), ("POSITION-LAMAS", "VERTICAL"), ("LAMAS-WIDTH", "0.10"),
        ("LAMAS-DISTANCE", "0.10"), ("LAMAS-ANGLE", "30.00"), ("LAMAS-TRANSMISIVITY", "0.00"),
        ("LAMAS-REFLECTIVITY", "0.60"))),
    quoted("Retranqueo_Año_1970"): ("Retranqueo_Año_1970", (
        ("SETBACK", "0.25"), ("LEFT-FIN-A", "0.05"), ("LEFT-FIN-B", "0.05"),
        ("LEFT-FIN-H", "1.40"), ("LEFT-FIN-D", "0.25"), ("RIGHT-FIN-A", "0.05"),
        ("RIGHT-FIN-B", "0.05"), ("RIGHT-FIN-H", "1.40"), ("RIGHT-FIN-D", "0.25"))),
}
PLACES = {  # latitude and longitude in degrees, east positive; altitude in m
    "Valle_interior": ("40.40", "-3.70", "650.0"), "Costa_sur": ("36.70", "-4.40", "10.0"),
    "Costa_norte": ("43.40", "-5.80", "60.0"), "Isla": ("28.10", "-15.40", "20.0"),
}


@dataclass(frozen=True)
class Typology:
    number: int
    variant: str  # "" or what follows the number in the file's name
    about: str
    storeys: int
    size: dict
    street: tuple  # glazing, % of each side: south, east, north, west
    names: dict = field(default_factory=lambda: INSULATED)
    inner: tuple = None
    turned: float = None  # orientation, degrees
    height: float = None  # m, floor to floor
    glass: str = DOUBLE
    frame: str = ""
    shade: str = ""
    place: str = ""
    air: float = None  # 1/h
    tabs: bool = False  # between the keyword and its "="
    parts_first: bool = False  # frame, shade and place before the main command

    @property
    def file(self):
        return f"tipo-{self.number:02d}{'-' + self.variant if self.variant else ''}.tip"


SIZE_KEYWORDS = (("A", "AREA-PLANTA"), ("Ap", "AREA-PATIO"), ("Ae", "AREA-ESCALERA"),
                 ("L", "LONGITUD-FACHADA"), ("Pp", "PROFUNDIDAD-PATIO"),
                 ("Pe", "PROFUNDIDAD-ESCALERA"))


def typology_file(family, typology):
    t = typology
    size = {**family.size, **t.size}
    rows = [("TIPO", str(t.number)), ("NUMERO-PLANTAS", str(t.storeys))]
    if t.height is not None:
        rows.append(("ALTURA-PLANTA", number(t.height, 2)))
    rows += [(keyword, format(size[key], ".6g")) for key, keyword in SIZE_KEYWORDS if key in size]
    rows += [("CUBIERTA", "PLANA"), ("ATICO", "NO"), ("SOTANO", "NO"),
             ("PORCENTAJE-FACHADA", listed(format(p, "g") for p in t.street))]
    if t.inner is not None:
        rows.append(("PORCENTAJE-PATIO", listed(format(p, "g") for p in t.inner)))
    if t.turned is not None:
        rows.append(("ORIENTACION", number(t.turned, 1)))
    rows += list(t.names.items()) + [("VENTANA-VIDRIO", t.glass)]
    rows += [("VENTANA-MARCO", t.frame)] if t.frame else []
    rows += [("VENTANA-SOMBRA", t.shade)] if t.shade else []
    rows += [("AIR-CHANGES/HR", number(t.air, 2))] if t.air is not None else []
    main = command(f"{family.folder}-{t.number:02d}", "VIVIENDA", rows)
    if t.tabs:
        main = [line.replace("   ", "\t", 1).replace(" = ", "\t=\t", 1)
                if line.startswith("   ") and " = " in line else line for line in main]
    parts = parts_of(t)
    return comment(t.about) + [""] + (parts + main if t.parts_first else main + parts)


def parts_of(t):
    out = []
    if t.frame:
        name, keywords = FRAMES[t.frame]
        out += command(name, "NAME-FRAME", keywords)
    if t.shade:
        name, keywords = SHADES[t.shade]
        out += command(name, "VENTANA-SOMBRA", keywords)
    if t.place:
        latitude, longitude, altitude = PLACES[t.place]
        out += command(t.place, "SOLAR-POSITION", (
            ("LATITUDE", latitude), ("LONGITUDE", longitude), ("ALTITUDE", altitude)))
    return out
