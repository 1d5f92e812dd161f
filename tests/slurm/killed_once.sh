#!/usr/bin/env bash
# The program as a machine that dies has it: killed in the midst of one shard, the first time.
#   PROGRAM=... SHARD=K-de-N FOLDER=... ONCE=FILE killed_once.sh ARGUMENTS
# FILE is made when it has been killed so; from then on, and for other shards, nothing happens.
set -u
results=$FOLDER/resultados-$SHARD.csv
if [ -e "$ONCE" ] || [[ " $* " != *" --fragmento ${SHARD/-de-//} "* ]]; then
  exec "$PROGRAM" "$@"
fi
"$PROGRAM" "$@" &
killed=$!
# From its first rows on; it is stopped before its journal is looked at, so that it cannot end.
until [ "$(stat -c %s "$results" 2>/dev/null || echo 0)" -gt 2000 ]; do
  kill -0 "$killed" 2>/dev/null || { echo "ended before it wrote" >&2; exit 99; }
  sleep 0.005
done
kill -STOP "$killed"
if grep -q '^fin;' "$FOLDER/diario-$SHARD.csv"; then
  kill -KILL "$killed"
  echo "ended before it was killed" >&2
  exit 99
fi
touch "$ONCE"
kill -KILL "$killed"
wait "$killed"
