#!/usr/bin/env python3
"""The checker itself: silent on what is right, and of one planted fault it says just that one.

    checker_test.py [-v]
"""

import io
import random
import tempfile
import unittest
from contextlib import redirect_stdout
from pathlib import Path

import check_building
import plan
import sampler
from check_building import faults_of, read_bytes
from planted import PLANTS, WALL, WINDOW, command, latin
from typology import Typology

HERE = Path(__file__).resolve().parent
SAMPLES, GOLDENS = HERE.parent.parent / "samples", HERE.parent / "golden"


def texts(sample):
    """Template, table, typology and golden output."""
    folder, name = sample.split("/")
    building = SAMPLES / folder
    paths = (building / f"{folder}.bdl", building / f"{folder}.tbl", building / f"{name}.tip",
             GOLDENS / folder / f"{name}.bdl")
    return tuple(map(read_bytes, paths))


def told(faults):
    return sorted((fault.kind, fault.place) for fault in faults)


class GoldenOutputs(unittest.TestCase):
    def test_have_no_faults(self):
        goldens = sorted(GOLDENS.glob("*/*.bdl"))
        self.assertTrue(goldens)
        for golden in goldens:
            with self.subTest(golden.stem):
                self.assertEqual([], told(faults_of(*texts(f"{golden.parent.name}/{golden.stem}"))))


class PlantedFaults(unittest.TestCase):
    def test_are_reported_and_nothing_else(self):
        for plant in PLANTS:
            with self.subTest(plant.why):
                template, table, typology, output = texts(plant.sample)
                altered = plant.alter(output, template)
                self.assertNotEqual(output, altered)
                expected = sorted((kind, latin(place)) for kind, place in plant.faults)
                self.assertEqual(expected, told(faults_of(template, table, typology, altered)))


class FaultyInputs(unittest.TestCase):
    """Faults that template and output share, or that lie in the table."""

    def setUp(self):
        self.template, self.table, self.typology, self.output = texts("bloque-patio/tipo-13")

    def test_construction_that_nothing_defines(self):
        lost = '"Cubierta_Plana_Aislada"'
        template, output = (text.replace(command(text, lost), "", 1)
                            for text in (self.template, self.output))
        roofs = [latin(f'"P03_E0{n}_Última_{letter}_CU01"') for n, letter in enumerate("ABCD", 1)]
        self.assertEqual([("reference", roof) for roof in roofs],
                         told(faults_of(template, self.table, self.typology, output)))

    def test_wall_that_faces_another_way_than_the_table_says(self):
        row = f"{WALL}\n" + self.table.split(f"{WALL}\n")[1].split("\n")[0]
        table = self.table.replace(row, row.replace("180.000 90.000", "170.000 90.000"))
        self.assertEqual([("wall", WALL)],
                         told(faults_of(self.template, table, self.typology, self.output)))

    def test_window_that_faces_no_side(self):
        row = f"{WINDOW}\n" + self.table.split(f"{WINDOW}\n")[1].split("\n")[0]
        table = self.table.replace(row, row.replace("180.000 90.000", "170.000 90.000"))
        self.assertEqual([("count", "south, street"), ("window", WINDOW)],
                         told(faults_of(self.template, table, self.typology, self.output)))

    def test_window_that_the_table_does_not_list(self):
        row = f"{WINDOW}\n" + self.table.split(f"{WINDOW}\n")[1].split("\n")[0] + "\n"
        table = self.table.replace(row, "").replace("\n220 ", "\n219 ")
        self.assertEqual([("count", "south, street"), ("order", WINDOW)],
                         told(faults_of(self.template, table, self.typology, self.output)))

    def test_wall_to_a_space_that_has_no_edge_along_it(self):
        neighbour = '"P01_E02_Bajo_B"'
        wall = '"P01_E01_Bajo_A_PV04"'
        template, output = (
            text.replace(command(text, wall), command(text, wall).replace(
                neighbour, '"P01_E03_Bajo_C"')) for text in (self.template, self.output))
        self.assertEqual([("wall", wall)],
                         told(faults_of(template, self.table, self.typology, output)))

    def test_edge_without_a_wall(self):
        wall = '"P01_E01_Bajo_A_PV04"'
        template, output = (text.replace(command(text, wall), "", 1)
                            for text in (self.template, self.output))
        row = f"{wall}\n" + self.table.split(f"{wall}\n")[1].split("\n")[0] + "\n"
        table = self.table.replace(row, "").replace("\n220 ", "\n219 ")
        self.assertEqual([("wall", '"P01_E01_Bajo_A"'), ("wall", '"P01_E02_Bajo_B"')],
                         told(faults_of(template, table, self.typology, output)))

    def test_files_that_cannot_be_read(self):
        cases = {"rows missing": (self.table.replace("\n220 ", "\n221 "), self.typology),
                 "a number missing": (self.table.replace(" 1 1 0\n", " 1 1\n", 1), self.typology),
                 "no main command": (self.table, "$ nothing"),
                 "unknown typology": (self.table, self.typology.replace("= 13", "= 24"))}
        for why, (table, typology) in cases.items():
            with self.subTest(why):
                faults = faults_of(self.template, table, typology, self.output)
                self.assertEqual(["input"], [fault.kind for fault in faults])


class Program(unittest.TestCase):
    def run_on(self, output):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "salida.bdl"
            path.write_bytes(output.encode("latin-1"))
            said = io.StringIO()
            with redirect_stdout(said):
                status = check_building.main([SAMPLES / "bloque-patio" / "bloque-patio.bdl",
                                              SAMPLES / "bloque-patio" / "tipo-13.tip", path])
        return status, said.getvalue()

    def test_says_nothing_of_a_good_building(self):
        self.assertEqual((0, ""), self.run_on(texts("bloque-patio/tipo-13")[3]))

    def test_names_the_fault_and_ends_with_1(self):
        output = texts("bloque-patio/tipo-13")[3].replace("TIPOLOGIA = 6", "TIPOLOGIA = 5")
        self.assertEqual((1, 'number: "Parámetros_del_edificio": TIPOLOGIA is 5, the typology'
                             " gives 6.000000\n"), self.run_on(output))


class Plans(unittest.TestCase):
    def test_parts_add_up_to_the_block(self):
        for path in sorted(SAMPLES.glob("*/*.tip")):
            drawn = plan.plan_of(Typology(read_bytes(path)))
            if len(drawn.shapes) == 1 or drawn.is_winged:
                continue
            with self.subTest(path.name):
                parts = sum(shape.area for shape in drawn.shapes[1:])
                courts = sum(map(plan.box_area, drawn.courts))
                self.assertAlmostEqual(drawn.shapes[0].area, parts + courts)


class Sampler(unittest.TestCase):
    def test_same_seed_gives_the_same_file(self):
        template = texts("bloque-xpala/tipo-22")[0]
        family = sampler.FAMILIES["bloque-xpala"]
        one, same, other = (sampler.typology_file(random.Random(seed), family, 22, template)
                            for seed in (1, 1, 2))
        self.assertEqual(one, same)
        self.assertNotEqual(one, other)

    def test_covers_what_a_typology_may_say(self):
        """Over many files each of these stands in some and not in all."""
        template = texts("bloque-patio/tipo-13")[0]
        rng, family = random.Random(1), sampler.FAMILIES["bloque-patio"]
        files = [sampler.typology_file(rng, family, number, template)
                 for number in family.types * 20]
        for words in ("NUMERO-PLANTAS =   6", "NUMERO-PLANTAS = 3", "VENTANA-MARCO", "NAME-FRAME",
                      "= VENTANA-SOMBRA", "SOLAR-POSITION", "LONG-NAME", "ALTURA-PLANTA",
                      '"Muro_Fachada_Aislado"', " Muro_Fachada_Aislado\n", "ORIENTACION",
                      "( 0, ", "( 100, ", "\tTIPO\t=\t19", "TIPO = 13"):
            with self.subTest(words):
                count = sum(words in text for text in files)
                self.assertTrue(0 < count < len(files), count)


if __name__ == "__main__":
    unittest.main()
