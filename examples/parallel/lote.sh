#!/usr/bin/env bash
# A list of dwellings in shards handed out by GNU parallel. See README.md beside it.
#   lote.sh LISTA.csv CARPETA PARTES [OPTION OF PARALLEL ...]
set -euo pipefail
list=${1:?la lista} folder=${2:?la carpeta de los resultados} shards=${3:?cuántas partes}
shift 3
program=${TIP2BDL_CLI:-tip2bdl-cli}
mkdir -p "$folder"

# Refused dwellings (1) stand in the results and are no fault of the shard.
shard() {
  local status=0
  "$1" lote "$2" --salida "$3" --fragmento "$4" --trabajos 1 --quiet --reanudar || status=$?
  [ "$status" -eq 1 ] || return "$status"
}
export -f shard

# What was done was done of this list, in so many shards; each goes on by itself where it is another.
print=$(sha256sum <"$list")$shards
if [ "$(cat "$folder/partes.lista" 2>/dev/null)" != "$print" ]; then
  rm -f "$folder/partes.log"
  # Results of another number of shards could not be joined with these.
  for file in "$folder"/{resultados,diario}-*-de-*.csv; do
    [[ $file == *"-de-$shards.csv" ]] || rm -f "$file"
  done
  echo "$print" >"$folder/partes.lista"
fi

# A shard that failed or was killed is done again by the same order.
parallel --joblog "$folder/partes.log" --resume-failed "$@" \
  shard "$program" "$list" "$folder" "{}/$shards" ::: $(seq "$shards")
exec "$program" lote --unir --salida "$folder"
