"""How to provoke the messages of docs/mensajes.md: a table, a row's key to its cases."""

import re
from pathlib import Path
from typing import Callable, NamedTuple

from spoiled_run import (absent, all_of, answer_into, arguments, before, behind, change, cut, folder,
                         last, line, path, pipe, text, tip, without)


class Case(NamedTuple):
    """A run that ends in the row's message. `fills` are what stands in it for its ‹›, with the
    run's paths for {bdl}, {tip} and so on."""
    spoil: Callable
    fills: tuple = ()
    tipo: int = 1  # of the sample; in a table with a column TIPO all of the row's are taken


class Limit(NamedTuple):
    """A number of the row's cause. With it as given to `at` the run ends in the message, and not
    with it as given to `within`."""
    number: int
    at: Callable
    within: Callable
    fills: tuple = ()
    tipo: int = 1


class Fine(NamedTuple):
    """What the row says does not lead to its message: a run that is complete."""
    spoil: Callable
    tipo: int = 1


# Rows that a run of tip2bdl-cli cannot reach, or not at will, and the test that has the message.
ELSEWHERE = {
    "Error al leer fichero: ‹ruta›": "core/fichero_errors_test.cpp",  # a disk that fails
    "Se ha perdido la conexión con la pantalla": "end_to_end/desktop_test.py",
    "No hay memoria suficiente": "app/run_safely_test.cpp",
    "Error inesperado: ‹descripción›": "app/run_safely_test.cpp",
    "Error inesperado: excepción de tipo desconocido": "app/run_safely_test.cpp",
    "Error inesperado: el programa se ha interrumpido (‹señal›)":
        "app_qt/framework_faults_test.cpp",
    "No ha introducido algunos de los ficheros.": "app_qt/frm_calculo_test.cpp",
}


# Limits of lengths. `n` is the document's number.

def long_path(kind, n):
    return path(kind, "x" * (n - 4) + ".bdl")  # the table's path is as long as the template's


def long_folder(kind, name, n):
    """A file in the run's folder whose path, with `name` beside it, has `n` characters."""
    def spoil(run):
        longer = str(run.folder) + "/" * (n - len(f"{run.folder}{name}"))
        run.paths[kind] = longer + Path(run.paths[kind]).name
        run.paths["long"] = longer + name
    return spoil


def defaults_block(n):
    head = "SET-DEFAULT FOR NAME-FRAME "
    return behind("tip", f"\n{head}{'x' * (n - len(head))}..\n")


def solar_position(n):
    return cut("tip", "SOLAR-POSITION", f"SOLAR-POSITION {'x' * (n - 15)}..\n")


def frame_called(name):
    """The typology asks for a frame by a LONG-NAME, and a frame called `name` is among them."""
    return all_of(tip({"VENTANA-MARCO": '"Otro"'}), behind("tip", f'\n{name} = NAME-FRAME\n..\n'))


def unhabitable(names):
    return change("inp", '( "Garaje", "Trastero" )', f"( {', '.join(names)} )")


LONG = ("{long}",)
UNREADABLE = ("{tip}", "VIVIENDA")
WALLS = ("{tip}", "MUROS-FACHADA")

PATHS_AND_ARGUMENTS = {
    "No existe el fichero de datos *.bdl": [Case(absent("bdl")), Case(folder("bdl"))],
    "No existe el fichero de datos *.tbl": [Case(absent("tbl"))],
    "No existe el fichero de datos *.tip": [Case(absent("tip"))],
    "No existe el fichero de librería defectos.inp": [Case(absent("inp"))],
    "La ruta es demasiado larga (‹n› caracteres; debe tener menos de ‹límite›): ‹ruta›": [
        *(Limit(3000, lambda n, k=kind: long_path(k, n), lambda n, k=kind: long_path(k, n - 1),
                ("3000", "3000", "{" + kind + "}")) for kind in ("bdl", "tip", "out", "fin")),
        Limit(2000, lambda n: long_folder("fin", "Error.log", n),
              lambda n: long_folder("fin", "Error.log", n - 1), ("2000", "2000", *LONG)),
        Limit(2000, lambda n: long_folder("bdl", "defectos.inp", n),
              lambda n: long_folder("bdl", "defectos.inp", n - 1), ("2000", "2000", *LONG)),
    ],
    "La línea de órdenes tiene más de ‹250› elementos": [
        Limit(250, lambda n: arguments("#" + "," * n), lambda n: arguments("#" + "," * (n - 1)),
              ("250",))],
    "El elemento ‹n› de la línea de órdenes es demasiado largo: ‹elemento›": [
        Limit(250, lambda n: arguments("#a," + "x" * n), lambda n: arguments("#a," + "x" * (n - 1)),
              ("2", "x" * 250))],
    "tip2bdl-cli: se esperaban cuatro rutas y se han dado ‹n›": [
        Case(arguments("a.bdl", "a.tip"), ("2",)), Case(arguments(*"abcde"), ("5",))],
    "tip2bdl-cli: se esperaban cuatro rutas y se ha dado 1": [Case(arguments("a.bdl"))],
    "tip2bdl-cli: se esperaban cuatro rutas y se han dado ‹n›; ¿quería decir ‹trabajo›?": [
        Case(arguments("comprobr", "a.tip"), ("2", "comprobar"))],
    "tip2bdl-cli: se esperaban cuatro rutas y se ha dado 1; ¿quería decir ‹trabajo›?": [
        Case(arguments("comprobr"), ("comprobar",))],
    "tip2bdl-cli: opción desconocida: ‹opción›": [
        Case(arguments(*"abcd", "--rapido"), ("--rapido",))],
}

READING_AND_WRITING = {
    "Error al abrir fichero de lectura: ‹ruta›": [
        Case(pipe(kind), ("{" + kind + "}",)) for kind in ("bdl", "tbl", "tip", "inp")],
    "Error en el fichero ‹ruta›, línea ‹n›: contiene un carácter nulo": [
        Case(line(kind, 3, "x\0y"), ("{" + kind + "}", "3")) for kind in ("bdl", "tbl", "tip", "inp")],
    "Error al abrir fichero de escritura: ‹ruta›": [
        *(Case(path(kind, "{folder}/no-existe/x"), ("{" + kind + "}",)) for kind in ("out", "fin")),
        *(Case(folder(kind), ("{" + kind + "}",)) for kind in ("out", "fin"))],
    "Error al escribir fichero: ‹ruta›": [Case(path("out", "/dev/full"), ("/dev/full",))],
    "Error al escribir en la salida estándar": [
        Case(all_of(arguments(question), answer_into("/dev/full")))
        for question in ("--help", "--version")],
}


def mandatory_keywords(row):
    """Those that the row names, and no other of the sample's."""
    named = re.findall(r"`([^`]+)`", row.cause)
    others = ("ALTURA-PLANTA", "CUBIERTA", "ATICO", "SOTANO", "ORIENTACION", "VENTANA-MARCO",
              "VENTANA-SOMBRA", "AIR-CHANGES/HR")
    return [*(Case(without(key), (key,)) for key in named),
            Case(tip({"TIPO": "uno"}), ("TIPO",)), Case(tip({"AREA-PLANTA": "x"}), ("AREA-PLANTA",)),
            *(Fine(without(key)) for key in others)]


def storeys(tipo, number):
    return tip({"TIPO": tipo, "NUMERO-PLANTAS": number})


STOREYS = "En el COMMAND VIVIENDA del fichero *.tip el NUMERO-PLANTAS debe ser "

TYPOLOGY = {
    "En el fichero *.tip debe existir un COMMAND VIVIENDA": [
        Case(change("tip", "VIVIENDA", "VIVENDA")), Case(before("tip", "VIVIENDA\n"))],
    "En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD ‹dato›": mandatory_keywords,
    STOREYS + "mayor que 0": [
        Limit(0, lambda n: storeys(1, n), lambda n: storeys(1, n + 1)), Case(storeys(1, -1))],
    STOREYS + "1": [Limit(1, lambda n: storeys(n, n + 1), lambda n: storeys(n, 1))],
    STOREYS + "2": [
        Limit(2, lambda n: storeys(n, 3), lambda n: storeys(n - 1, 3)), Case(storeys(2, 1)),
        Limit(9, lambda n: storeys(n, 3), lambda n: storeys(n + 1, 3))],
    STOREYS + "mayor que 2": [Limit(10, lambda n: storeys(n, 2), lambda n: storeys(n - 1, 2))],
    "En el COMMAND VIVIENDA del fichero *.tip la ALTURA-PLANTA debe ser mayor que 0": [
        Limit(0, lambda n, k=key: tip({k: n}), lambda n, k=key: tip({k: n + 0.01}))
        for key in ("ALTURA-PLANTA", "LONGITUD-FACHADA")],
    ": ": [Limit(24, lambda n: storeys(n, 3), lambda n: storeys(n - 1, 3))],
    " ": [Limit(25, lambda n: storeys(n, 3), lambda n: storeys(n + 1, 3))],
    "": [Limit(26, lambda n: storeys(n, 3), lambda n: storeys(n - 1, 3)), Case(storeys(1000, 3))],
    "Error en el fichero ‹ruta›: el valor de ‹dato› en la salida no es un número finito: ‹valor›": [
        Case(tip({"ORIENTACION": "nan"}), ("{tip}", "AZIMUTH", "nan")),
        Case(tip({"ALTURA-PLANTA": "inf"}), ("{tip}", "FLOOR-HEIGHT", "inf"))],
}

TEXTS = {
    'Error en el fichero ‹ruta›: ‹comando›: falta el cierre ".."': [
        Case(change("tip", "..", ""), UNREADABLE),
        Case(cut("tip", '"Marco_PVC" = NAME-FRAME', '"Marco_PVC" = NAME-FRAME\n'),
             ("{tip}", '"Marco_PVC" = NAME-FRAME')),
        Case(cut("tip", '"Valle_interior"', '"S" = SOLAR-POSITION\n'), ("{tip}", "SOLAR-POSITION")),
        Case(behind("tip", "SET-DEFAULT FOR NAME-FRAME\n"),
             ("{tip}", "SET-DEFAULT FOR NAME-FRAME")),
        Case(behind("inp", '"Ultimo" = THERMAL-BRIDGE\n'), ("{inp}", '"Ultimo" = THERMAL-BRIDGE'))],
    "Error en el fichero ‹ruta›: ‹comando›: el bloque es demasiado largo": [
        Limit(10000, solar_position, lambda n: solar_position(n - 1), ("{tip}", "SOLAR-POSITION")),
        Case(tip({"ATICO": "NO " + "x" * 10000}), UNREADABLE),
        Limit(1000, defaults_block, lambda n: defaults_block(n - 1),
              ("{tip}", "SET-DEFAULT FOR NAME-FRAME")),
        *(Fine(change(kind, command, command + "\n" + "x" * 20000)) for kind, command in (
            ("tip", "= NAME-FRAME"), ("tip", "= VENTANA-SOMBRA"),
            ("inp", '"Frente_de_forjado" = THERMAL-BRIDGE')))],
    "Error en el fichero ‹ruta›: ‹dato›: falta el valor": [Case(last("MUROS-FACHADA", "= "), WALLS)],
    "Error en el fichero ‹ruta›: ‹dato›: hay demasiados blancos delante del valor": [
        Limit(100, lambda n: last("MUROS-FACHADA", "=" + "\t" * n + '"M" '),
              lambda n: last("MUROS-FACHADA", "=" + "\t" * (n - 1) + '"M" '), WALLS),
        Fine(last("MUROS-FACHADA", "=" + " " * 1000 + '"M" '))],
    "Error en el fichero ‹ruta›: ‹dato›: faltan las comillas de cierre del valor": [
        Case(last("MUROS-FACHADA", '= "M '), WALLS)],
    "Error en el fichero ‹ruta›: ‹dato›: el valor es demasiado largo": [
        Limit(250, lambda n: tip({"MUROS-FACHADA": "x" * n}),
              lambda n: tip({"MUROS-FACHADA": "x" * (n - 1)}), WALLS),
        Limit(200, lambda n: change("inp", "U-VALUE", "x" * n),
              lambda n: change("inp", "U-VALUE", "x" * (n - 1)), ("{inp}", "TYPE_PARTITION")),
        Fine(change("inp", "SPACER-TYPE = METAL", "SPACER-TYPE = " + "x" * 1000)),
        Fine(change("inp", "AUTOMATIC-SHUTTER = YES", "AUTOMATIC-SHUTTER = " + "x" * 1000))],
    "Error en el fichero ‹ruta›: ‹dato›: falta la lista de valores entre paréntesis": [
        Case(tip({"PORCENTAJE-FACHADA": "20"}), ("{tip}", "PORCENTAJE-FACHADA")),
        Case(change("inp", '( "Garaje", "Trastero" )', '"Garaje"'), ("{inp}", "NO-HABITABLES"))],
    "Error en el fichero ‹ruta›: ‹dato›: la lista debe tener como máximo ‹n› valores": [
        Limit(4, lambda n: tip({"PORCENTAJE-FACHADA": f"( 20{', 20' * n} )"}),
              lambda n: tip({"PORCENTAJE-FACHADA": f"( 20{', 20' * (n - 1)} )"}),
              ("{tip}", "PORCENTAJE-FACHADA", "4")),
        Limit(100, lambda n: unhabitable(['"G"'] * (n + 1)), lambda n: unhabitable(['"G"'] * n),
              ("{inp}", "NO-HABITABLES", "100"))],
    "Error en el fichero ‹ruta›: ‹dato›: faltan comillas en la lista de valores": [
        Case(all_of(change("inp", "NO-HABITABLES", "NADA"),
                    behind("inp", 'NO-HABITABLES = ( "Garaje )\n')), ("{inp}", "NO-HABITABLES"))],
    "Error en el fichero ‹ruta›: ‹dato›: un valor de la lista es demasiado largo": [
        Limit(100, lambda n: unhabitable([f'"{"x" * (n - 2)}"']),
              lambda n: unhabitable([f'"{"x" * (n - 3)}"']), ("{inp}", "NO-HABITABLES"))],
    "Error en el fichero ‹ruta›: ‹comando›: falta el nombre entre comillas de un comando": [
        Case(before("inp", '\n" = THERMAL-BRIDGE\n..\n'), ("{inp}", "THERMAL-BRIDGE"))],
    "Error en el fichero ‹ruta›: ‹comando›: el nombre de un comando es demasiado largo": [
        Limit(250, lambda n: frame_called(f'"{"x" * (n - 2)}"'),
              lambda n: frame_called(f'"{"x" * (n - 3)}"'), ("{tip}", "NAME-FRAME")),
        Limit(200, lambda n: behind("inp", f'"{"x" * (n - 2)}" = THERMAL-BRIDGE\n..\n'),
              lambda n: behind("inp", f'"{"x" * (n - 3)}" = THERMAL-BRIDGE\n..\n'),
              ("{inp}", "THERMAL-BRIDGE"))],
    "No se encuentra: ‹nombre›": [
        Case(all_of(frame_called('"M"'), before("tip", '"Primero" = NAME-FRAME ..\n')),
             ('"Primero"',)),
        Case(frame_called('"M = 1"'), ('"M = 1"',)),
        Case(before("inp", '"Primero" = THERMAL-BRIDGE ..\n'), ('"Primero"',))],
}

TABLE = {
    "Error en el fichero ‹ruta›, línea ‹3›: debe contener el número de superficies y el de zonas": [
        Case(line("tbl", 3, counts), ("{tbl}", "3")) for counts in ("11", "-1 1", "11 -1", "x")],
    "Error en el fichero ‹ruta›, línea ‹n›: el fichero tiene menos líneas de las anunciadas": [
        Case(text("tbl", "una\ndos\n"), ("{tbl}", "2")),
        Case(line("tbl", 3, "12 1"), ("{tbl}", "27"))],
    "Error en el fichero ‹ruta›, línea ‹n›: los datos de una superficie deben ser siete números "
    "reales y su clase": [Case(line("tbl", 5, "1 1 1 1 1 180 90"), ("{tbl}", "5"))],
    "Error en el fichero ‹ruta›, línea ‹n›: el nombre es demasiado largo": [
        *(Limit(200, lambda n, i=number: line("tbl", i, "x" * n),
                lambda n, i=number: line("tbl", i, "x" * (n - 1)), ("{tbl}", str(number)))
          for number in (4, 26))],
}


def window_of_table(old, new):
    """Changes the data of the sample's first window."""
    return change("tbl", f"\n5.040 9.000 3.040 2.400 2.100 {old} 1 1 0",
                  f"\n5.040 9.000 3.040 2.400 2.100 {new} 1 1 0")


def courtyard_window(run):
    """The first window looks into a courtyard, which the house hasn't."""
    for kind in ("tbl", "bdl"):
        change(kind, "ME01_V1", "Med_V1")(run)
    tip({"PORCENTAJE-PATIO": "( 20, 0, 0, 0 )"})(run)


TEMPLATE = {
    "Error en el fichero ‹ruta›, línea ‹n›: la línea es demasiado larga": [
        Limit(3000, lambda n: line("bdl", 2, "$" * (n + 1)), lambda n: line("bdl", 2, "$" * n),
              ("{bdl}", "2"))],
    "Error al generar el edificio. No se ha encontrado la clave: ‹comando›": [
        Case(change("bdl", "= POLYGON", "= POLIGONO"), ("POLYGON",)),
        Case(change("bdl", "= BUILD-PARAMETERS", "= PARAMETROS"), ("BUILD-PARAMETERS",)),
        *(Limit(tipo, lambda n: all_of(tip({"TIPO": n}),
                                       change("bdl", "= BUILDING-SHADE", "= SOMBRA")),
                lambda n: all_of(tip({"TIPO": n - 1}),
                                 change("bdl", "= BUILDING-SHADE", "= SOMBRA")),
                ("BUILDING-SHADE",), 15) for tipo in (15, 18, 21))],
    "La versión actual del ZELTA no contempla ventanas en cubiertas o suelos": [
        Case(window_of_table("180.000 90.000", f"180.000 {tilt}")) for tilt in ("0", "180")],
    "Error en el fichero ‹ruta›, línea ‹n›: la ventana ‹nombre› está en la fachada ‹orientación› "
    "del patio, que no tiene huecos en esta tipología": [
        Limit(3, lambda n: change("bdl", "HEIGHT = 2.10", f"HEIGHT = {n}"),
              lambda n: change("bdl", "HEIGHT = 2.10", f"HEIGHT = {n - 0.01}"),
              ("{bdl}", "536", '"P01_E01_Salón_Dormitorios_ME01_V1"', "sur")),
        Case(courtyard_window, ("{bdl}", "536", '"P01_E01_Salón_Dormitorios_Med_V1"', "sur")),
        Fine(all_of(courtyard_window, tip({"PORCENTAJE-PATIO": "( 0, 20, 20, 20 )"})))],
}


# The plan's measures. Each is met at its limit, and then a hundredth inside.

def over(key):
    return lambda n: tip({key: n}), lambda n: tip({key: n + 0.01})


def under(key):
    return lambda n: tip({key: n}), lambda n: tip({key: n - 0.01})


def under_part(key, value, whole):
    """`key` below `whole` / n, with `value` for it."""
    return (lambda n: tip({whole: value * n, key: value}),
            lambda n: tip({whole: value * n, key: value - 0.01}))


def under_plan_less(key):
    """`key` below AREA-PLANTA - n."""
    return (lambda n: tip({key: lambda run: run.value("AREA-PLANTA") - n}),
            lambda n: tip({key: lambda run: run.value("AREA-PLANTA") - n - 0.01}))


def between(key, low, high):
    return [Limit(low, *over(key)), Limit(high, *under(key))]


def facade(low, part):
    return [Limit(low, *over("LONGITUD-FACHADA")),
            Limit(part, *under_part("LONGITUD-FACHADA", 60, "AREA-PLANTA"))]


def area(key, low):
    return [Limit(low, *over(key)), Limit(120, *under_plan_less(key))]


def depth(key, low, whole, part):
    return [Limit(low, *over(key)), Limit(part, *under_part(key, 10, whole))]


def patio(size, deep):
    return Case(tip({"AREA-PATIO": size, "PROFUNDIDAD-PATIO": deep}))


def escalera(size, deep):
    return Case(tip({"AREA-ESCALERA": size, "PROFUNDIDAD-ESCALERA": deep}))


def square_core(n):
    """Four wings 10 wide around a core of 4 x 4; their sides between them measure `n`."""
    return tip({"AREA-ESCALERA": 16, "PROFUNDIDAD-ESCALERA": 4, "LONGITUD-FACHADA": 24,
                "AREA-PLANTA": 16 + 40 * (14 - n)})


def wing_width(n):
    """Four wings `n` wide around a core 4 long and 12 deep."""
    return tip({"AREA-ESCALERA": 48, "PROFUNDIDAD-ESCALERA": 12, "LONGITUD-FACHADA": 24,
                "AREA-PLANTA": 48 + 40 * 3 * n})


PLAN_AREA = "Área de planta no válida. Debe ser "
FACADE = "Longitud de fachada no válida. Debe ser >14 y la profundidad >3"
STAIR_AREA = "Área de escalera no válida. Debe ser >4 y < area de planta - 120"
STAIR_DEPTH = "Profundidad de escalera no válida. Debe ser >2 al igual que la longitud"
STAIR_BLOCKS = "14, 15, 17, 18, 20, 21, 23"

PLAN = {
    ("hasta 9", PLAN_AREA + ">30 y <1000"): between("AREA-PLANTA", 30, 1000),
    ("hasta 9", "Longitud de fachada no válida. Debe ser >3 al igual que la profundidad"):
        facade(3, 3),
    ("10, 11, 12", PLAN_AREA + ">126 y <4000"): between("AREA-PLANTA", 126, 4000),
    ("13 a 21", PLAN_AREA + ">124 y <4000"): between("AREA-PLANTA", 124, 4000),
    ("22", PLAN_AREA + ">124 y <4000"): between("AREA-PLANTA", 125, 4000),
    ("23", PLAN_AREA + ">120 y <4000"): between("AREA-PLANTA", 120, 4000),
    ("10, 11, 12", FACADE): facade(14, 3),
    ("13 a 21 y 23", FACADE): facade(6, 6),
    ("22", FACADE): facade(9, 9),
    ("13 a 21", "Área de patio no válida. Debe ser >4 y < area de planta - 120"):
        area("AREA-PATIO", 4),
    ("13 a 21", "Profundidad de patio no válida. Debe ser >2 al igual que la longitud"):
        depth("PROFUNDIDAD-PATIO", 2, "AREA-PATIO", 2),
    ("10, 11, 12", "Área de escalera no válida. Debe ser >6 y < area de planta-120"):
        area("AREA-ESCALERA", 6),
    (STAIR_BLOCKS, STAIR_AREA): area("AREA-ESCALERA", 4),
    ("22", STAIR_AREA): area("AREA-ESCALERA", 6),
    (STAIR_BLOCKS, STAIR_DEPTH): depth("PROFUNDIDAD-ESCALERA", 2, "AREA-ESCALERA", 2),
    ("22", STAIR_DEPTH): depth("PROFUNDIDAD-ESCALERA", 3, "AREA-ESCALERA", 3),
    ("13, 16, 19", "La distancia de la fachada al patio debe ser >0"): [patio(60, 25)],
    ("13, 16, 19", "La distancia horizontal de la fachada al patio debe ser >0"): [patio(100, 3)],
    (STAIR_BLOCKS, "La distancia de la fachada a la escalera debe ser >0"): [escalera(60, 25)],
    ("23", "La distancia horizontal de la fachada a la escalera debe ser >0"): [escalera(100, 3)],
    ("14, 17, 20",
     "La profundidad del patio debe ser menor que la distancia de la fachada a la escalera"):
        [patio(40, 9)],
    ("15, 18, 21", "La profundidad del patio debe ser menor que la del bloque"): [patio(60, 25)],
    ("14, 17, 20", "La longitud del patio debe ser menor que la de la fachada"): [patio(200, 3)],
    ("15, 18, 21", "La longitud del patio debe ser menor que la de la fachada"): [patio(200, 5)],
    ("14, 17, 20", "La distancia del patio a la escalera debe ser >0"): [escalera(100, 3)],
    ("15, 18, 21", "La distancia del patio a la escalera debe ser >0"): [escalera(60, 3)],
    ("22", "Para el área de planta y de escalera, la longitud de la fachada debe ser mayor."):
        [Limit(2, square_core, lambda n: square_core(n + 0.01))],
    ("22", "La longitud Xpala debe ser > 0"):
        [Limit(2, wing_width, lambda n: wing_width(n + 0.01))],
}

PROVOKED = PLAN | {
    ("", message): cases
    for table in (PATHS_AND_ARGUMENTS, READING_AND_WRITING, TYPOLOGY, TEXTS, TABLE, TEMPLATE)
    for message, cases in table.items()
}
