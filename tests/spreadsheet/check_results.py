#!/usr/bin/env python3
"""Opens a results file of `lote` in a spreadsheet, as in Spain, and reads what came of it.

    check_results.py SOFFICE RESULTADOS.csv

The file is converted to a spreadsheet's own format, where every cell is looked at (texts as they
were written, numbers as numbers), and from there back to CSV. Exit code 1 and a line for each kind
of finding; otherwise a line that says what was compared.
"""
import csv
import io
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
import zipfile

OFFICE = '{urn:oasis:names:tc:opendocument:xmlns:office:1.0}'
TABLE = '{urn:oasis:names:tc:opendocument:xmlns:table:1.0}'
TEXT = '{urn:oasis:names:tc:opendocument:xmlns:text:1.0}'
# Separator, quote, UTF-8, first line, columns as they come, Spanish of Spain, quoted cells not
# forced to text, and dates and the like looked for, as who opens a file by a double click has it.
AS_IN_SPAIN = 'CSV:59,34,76,1,,3082,false,true'
NUMBER = re.compile(r'-?\d+(,\d+)?\Z')
TEXT_COLUMNS = ('ID', 'ESTADO', 'CODIGO', 'MENSAJE', 'LUGAR', 'AVISOS', 'SALIDA', 'huella', 'version')


def convert(soffice, source, to, folder, *options):
    subprocess.run([soffice, f'-env:UserInstallation=file://{folder}/profile', '--headless',
                    *options, '--convert-to', to, '--outdir', str(folder / 'out'), str(source)],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300,
                   env={**os.environ, 'LC_ALL': 'es_ES.UTF-8', 'LANG': 'es_ES.UTF-8'})
    return folder / 'out' / (source.stem + '.' + to.split(':')[0])


def cells_of(row):
    """The cells of a row of a sheet: texts as str, numbers as float."""
    cells = []
    for cell in row:
        if cell.tag != TABLE + 'table-cell':
            continue
        kind = cell.get(OFFICE + 'value-type')
        if kind == 'float':
            value = float(cell.get(OFFICE + 'value'))
        elif kind in (None, 'string'):
            value = '\n'.join(''.join(paragraph.itertext()) for paragraph in cell.findall(TEXT + 'p'))
        else:
            value = f'<{kind}>'
        repeated = int(cell.get(TABLE + 'number-columns-repeated', '1'))
        cells += [value] * (min(repeated, 100) if value == '' else repeated)
    while cells and cells[-1] == '':
        cells.pop()
    return cells


def sheet_of(path):
    with zipfile.ZipFile(path) as archive:
        content = ElementTree.fromstring(archive.read('content.xml'))
    rows = [cells_of(row) for row in content.iter(TABLE + 'table-row')]
    while rows and not rows[-1]:
        rows.pop()
    return rows


def read(text):
    return list(csv.reader(io.StringIO(text, newline=''), delimiter=';'))


def expected_of(text, column):
    if column in TEXT_COLUMNS or text == '':
        return text
    return float(text.replace(',', '.')) if NUMBER.match(text) else f'<no number: {text}>'


def differences(rows, sheet):
    """What a kind of difference is, with its first place, once a kind."""
    found = {}
    if len(rows) != len(sheet):
        found['rows'] = f'{len(rows)} rows became {len(sheet)}'
    heads = rows[0]
    for number, (row, cells) in enumerate(zip(rows, sheet), start=1):
        cells = cells + [''] * (len(row) - len(cells))
        if len(cells) > len(row):
            found.setdefault('columns', f'row {number}: {len(row)} columns became {len(cells)}')
        for head, text, cell in zip(heads, row, cells):
            wanted = text if number == 1 else expected_of(text, head)
            if wanted != cell:
                found.setdefault(head, f'row {number}, {head}: {text!r} became {cell!r}')
    return found.values()


def as_value(text):
    return float(text.replace(',', '.')) if NUMBER.match(text) else text


def main(soffice, path):
    source = pathlib.Path(path)
    # As the reader wrote them: the mark at the front is no part of the first heading.
    original = source.read_bytes()
    found = []
    if not original.startswith(b'\xef\xbb\xbf'):
        found.append('there is no mark of UTF-8 at the front')
    try:
        rows = read(original.decode('utf-8-sig'))
    except UnicodeDecodeError as error:
        print(f'{path}: is not UTF-8: {error}')
        return 1
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        opened = convert(soffice, source, 'ods', folder, f'--infilter={AS_IN_SPAIN}')
        found += differences(rows, sheet_of(opened))
        written = convert(soffice, opened, 'csv:' + AS_IN_SPAIN.replace('CSV:', 'Text - txt - csv '
                                                                        '(StarCalc):'), folder)
        back = read(written.read_bytes().decode('utf-8-sig'))
        if len(back) != len(rows):
            found.append(f'written back as CSV it has {len(back)} rows instead of {len(rows)}')
        for number, (before, after) in enumerate(zip(rows, back), start=1):
            if [as_value(cell) for cell in before] != [as_value(cell) for cell in after]:
                found.append(f'written back as CSV, row {number} is {after} instead of {before}')
                break
    for finding in found:
        print(f'{path}: {finding}')
    if not found:
        accents = sum(cell != cell.encode('ascii', 'ignore').decode() for row in rows for cell in row)
        numbers = sum(isinstance(expected_of(cell, head), float)
                      for row in rows[1:] for head, cell in zip(rows[0], row))
        print(f'{path}: {len(rows) - 1} rows of {len(rows[0])} columns, {numbers} numbers and '
              f'{accents} cells with accents are as they were')
        if not accents or not numbers:
            print(f'{path}: which proves nothing')
            return 1
    return 1 if found else 0


if __name__ == '__main__':
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
