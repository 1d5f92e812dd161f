#!/usr/bin/env bash
# The example for GNU parallel: shards, one of them killed, the same order again: the bytes of a
# serial run.
#   parallel_test.sh PROGRAM SOURCES
set -euo pipefail
program=$1
sources=$2
if ! command -v parallel >/dev/null; then
  echo "parallel is missing"
  [ -z "${CI:-}" ] || exit 1
  exit 77 # skipped
fi
D=$(mktemp -d)
trap 'rm -rf "$D"' EXIT
cd "$D"
python3 "$sources/bench/make_list" . "$sources/samples" 4000 50
"$program" lote lista.csv --salida entera --trabajos 1 --quiet 2>/dev/null || [ $? -eq 1 ]

export PROGRAM=$program SHARD=2-de-4 FOLDER=resultados ONCE=$D/once
export TIP2BDL_CLI=$sources/tests/slurm/killed_once.sh
if "$sources/examples/parallel/lote.sh" lista.csv resultados 4 -j2; then
  echo "a killed shard counts as good"
  exit 1
fi
[ -e once ]
[ ! -e resultados/resultados.csv ]
"$sources/examples/parallel/lote.sh" lista.csv resultados 4 -j2
[ "$(tail -n +2 resultados/partes.log | wc -l)" -eq 5 ] # only the killed one was done again
cmp entera/resultados.csv resultados/resultados.csv
diff -rq entera/000000 resultados/000000

# Of a list that has changed all shards are looked at again.
head -n 101 lista.csv >otra.csv
"$program" lote otra.csv --salida otra --trabajos 1 --quiet 2>/dev/null || [ $? -eq 1 ]
mv otra.csv lista.csv
"$sources/examples/parallel/lote.sh" lista.csv resultados 4 -j2
[ "$(wc -l <resultados/resultados.csv)" -eq "$(wc -l <otra/resultados.csv)" ]
[ "$(wc -l <otra/resultados.csv)" -eq 101 ]

# And with another number of shards.
"$sources/examples/parallel/lote.sh" lista.csv resultados 3 -j2
"$program" lote lista.csv --salida corta --trabajos 1 --quiet 2>/dev/null || [ $? -eq 1 ]
cmp corta/resultados.csv resultados/resultados.csv
echo "the same bytes: 4000 rows, four shards, one killed"
