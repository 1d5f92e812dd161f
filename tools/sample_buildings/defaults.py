"""The defaults library, `defectos.inp`.

A keyword is found at the first place where its letters stand, also inside a longer keyword, so
the order of the rows matters: GROUND-R comes before GROUND-RO, GROUND-RV and GROUND-REFLECTANCE,
GROUND-L before GROUND-L2DSTEADY, PERMEABILIDAD before DELTAP-ENSAYO-PERMEABILIDAD.
`check` makes sure of it. Comments stay in small letters for the same reason.
"""

from .text import command, comment, encoded, listed, quoted, section

# title: (keyword, value)
BLOCKS = {
    "Referencia y aire": (
        ("LONGITUD-DE-REFERENCIA", "15.0"), ("ROCP", "1200.0"), ("DELTAT", "3600.0")),
    "Mobiliario": (
        ("FURN-CP", "1200.0"), ("FURN-FRACTION", "0.30"), ("FURN-WEIGHT", "20.0")),
    "Cálculo de los muros": (
        ("NINT-WF", "2"), ("MAX-DEN", "5"), ("MIN-NUM", "1"), ("MAX-NUM", "6"),
        ("NFRMUROS", "100"), ("TAUMUROANCHO", "540000.0"), ("EIGENRATIO", "50.0"),
        ("TINIFINITEDIFFERENCES", "22.0")),
    "Películas interiores y exteriores": (
        ("HCINT", "2.50"), ("HRINT", "5.20"), ("HPINT", "0.0000000250"),
        ("HPOUT", "0.0000000750"), ("HCEXT", "20.0"), ("FF-SKY-C", "0.50"), ("HREXT", "5.00"),
        ("ABS-CORTA", "0.60"), ("EMISIVIDAD", "0.90")),
    "Forjados y permeabilidad": (
        ("ALTURA-FORJADO", "0.30"), ("PERMEABILIDAD", "27.0"),
        ("DELTAP-ENSAYO-PERMEABILIDAD", "100.0"), ("VAPOUR-DIFFUSIVITY-FACTOR", "10.0")),
    "Puertas, ventanas y rendijas": (
        ("ANCHO-P", "0.90"), ("ANCHO-V", "1.20"), ("ALTO-P", "2.05"), ("ALTO-V", "1.20"),
        ("CD-P", "0.62"), ("CD-V", "0.62"), ("H0", "1.10"), ("ARF-P", "0.0030"),
        ("ARF-V", "0.0012"), ("LONG-LEAK", "6.00"), ("C-LEAK", "0.00010"), ("N-LEAK", "0.66"),
        ("H-LEAK", "1.50"), ("SUP-CR", "0.0100"), ("C-CR", "0.0080"), ("N-CR", "0.50"),
        ("H-CR", "2.40")),
    "Pasos de cálculo": (
        ("NUM-HORAS", "24"), ("NUM-PUN-VEN", "5"), ("NUM-PUN-MUR", "9"), ("DISCR-FI", "18"),
        ("DISCR-TE", "9")),
    "Terreno": (
        ("GROUND-K", "2.00"), ("GROUND-L", "1.00"), ("GROUND-SH", "1000.0"),
        ("GROUND-R", "0.50"), ("GROUND-RO", "2000.0"), ("GROUND-RV", "1.00"),
        ("GROUND-REFLECTANCE", "0.20"), ("GROUND-EIT", "0.00"), ("GROUND-L2DSTEADY", "0.00"),
        ("GROUND-ZGROUND", "0.00"), ("GROUND-HEIGHT", "0.00")),
    "Huecos": (
        ("SPACER-TYPE", "METAL"), ("FRAME-WIDTH", "0.10"), ("FRAME-ABS", "0.70"),
        ("FRAME-CONDUCT", "4.00")),
    "Humedad y aire interior": (
        ("RH-MAX", "65.0"), ("RH-MIN", "30.0"), ("AIR-TEMPERATURE", "20.0")),
    "Mallas de cálculo del aire": (
        ("JET-PARTITION", "4"), ("CROSS-PARTITION", "3"), ("X-PARTITION", "6"),
        ("Y-PARTITION", "6"), ("Z-PARTITION", "4")),
    "Tabiquería": (
        ("INTERNAL-PARTITIONS", "DEFAULT-ADDED"), ("RV_PARTITION", "1.00"),
        ("TYPE_PARTITION", "U-VALUE"), ("U_PARTITION", "2.20"), ("ABS_PARTITION", "0.60"),
        ("EMI_PARTITION", "0.90"), ("CON_PARTITION", "0.44"), ("TH_PARTITION", "0.10"),
        ("DEN_PARTITION", "1000.0"), ("SH_PARTITION", "1000.0"), ("RES_PARTITION", "0.18")),
    "Pilares y puentes térmicos": (
        ("PILARES-POR-ZONA", "2"), ("LINEAR-THERMAL-TRANSMITTANCE", "0.10"),
        ("SEVERAL-OPTIONS", "YES"), ("MULTIPLICADOR-CONTORNOS", "4"),
        ("TOLERANCIA-PTL", "0.001"), ("TOL-HOR-FRENTE-FORJADO", "30.0")),
}

BRIDGE_DEFAULTS = (("TTL", "0.30"), ("ANGLE-MIN", "0.0"), ("ANGLE-MAX", "360.0"),
                   ("TYPE", "MASONRY"), ("PARTITION", "BOTH"))

# name: what differs from the defaults; TTL in W/(m K), angles in degrees between the two walls
BRIDGES = {
    "Frente_de_forjado": (("TTL", "0.42"), ("ANGLE-MIN", "135.0"), ("ANGLE-MAX", "225.0"),
                          ("PARTITION", "HORIZONTAL")),
    "Encuentro_con_cubierta": (("TTL", "0.38"), ("ANGLE-MIN", "80.0"), ("ANGLE-MAX", "100.0"),
                               ("PARTITION", "HORIZONTAL")),
    "Encuentro_con_solera": (("TTL", "0.14"), ("ANGLE-MIN", "80.0"), ("ANGLE-MAX", "100.0"),
                             ("PARTITION", "HORIZONTAL")),
    "Esquina_saliente": (("TTL", "0.08"), ("ANGLE-MIN", "45.0"), ("ANGLE-MAX", "135.0"),
                         ("PARTITION", "VERTICAL")),
    "Esquina_entrante": (("TTL", "-0.06"), ("ANGLE-MIN", "225.0"), ("ANGLE-MAX", "315.0"),
                         ("PARTITION", "VERTICAL")),
    "Pilar_en_fachada": (("TTL", "0.45"), ("TYPE", "CONCRETE")),
    "Contorno_de_hueco": (),
}

SHUTTERS = (("AUTOMATIC-SHUTTER", "YES"), ("SHUTTER-CONDUCTANCE-MULTIPLIER-WINTER", "0.70"),
            ("SHUTTER-CONDUCTANCE-MULTIPLIER-SUMMER", "1.00"),
            ("SHUTTER-TRANSMITTANCE-MULTIPLIER-SUMMER", "0.30"))


def library_file(non_habitable):
    out = comment("Biblioteca de valores por defecto", "Valores inventados como ejemplo")
    out += ["", '"Valores_por_defecto" = DEFAULT-VALUES']
    for title, rows in BLOCKS.items():
        out += ["", *comment(title), *(f"   {key} = {value}" for key, value in rows)]
    out += ["", *comment("Persianas automáticas"),
            *(f"   {key} = {value}" for key, value in SHUTTERS)]
    out += ["", *comment("Espacios no habitables"),
            f"   NO-HABITABLES = {listed(map(quoted, non_habitable))}", "   .."]
    out += section("Puentes térmicos")
    out += ["SET-DEFAULT FOR THERMAL-BRIDGE",
            *(f"   {key} = {value}" for key, value in BRIDGE_DEFAULTS), "   ..", ""]
    for name, rows in BRIDGES.items():
        out += command(name, "THERMAL-BRIDGE", rows)
    check(encoded(out).decode("cp1252"))
    return out


def check(text):
    """Every keyword must be found first at its own line."""
    for rows in (*BLOCKS.values(), SHUTTERS):
        for key, value in rows:
            found = text[text.index(key):].split("\n", 1)[0]
            if found != f"{key} = {value}":
                raise SystemExit(f"defectos.inp: {key} is found at '{found}'")
