#!/usr/bin/env bash
# The example for Slurm on a real cluster of this machine alone: an array of four shards, one of them
# killed and submitted again, joined: the bytes of a serial run.
#   slurm_test.sh PROGRAM SOURCES
set -euo pipefail
program=$1
export TIP2BDL_CLI=$program
sources=$2
for tool in slurmctld slurmd munged sbatch; do
  command -v "$tool" >/dev/null && continue
  echo "$tool is missing"
  [ -z "${CI:-}" ] || exit 1
  exit 77 # skipped
done
D=$(mktemp -d)
pids=()
finish() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${pids[@]}"; do wait "$pid" 2>/dev/null || true; done
  rm -rf "$D"
}
trap finish EXIT

host=$(hostname -s)
user=$(id -un)
cat >"$D/slurm.conf" <<CONF
ClusterName=probe
SlurmctldHost=$host(127.0.0.1)
SlurmUser=$user
SlurmdUser=$user
AuthType=auth/munge
AuthInfo=socket=$D/munge.socket
SlurmctldPort=26827
SlurmdPort=26828
SlurmctldPidFile=$D/slurmctld.pid
SlurmdPidFile=$D/slurmd.pid
StateSaveLocation=$D/state
SlurmdSpoolDir=$D/spool
SlurmctldLogFile=$D/slurmctld.log
SlurmdLogFile=$D/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
MailProg=/bin/true
ReturnToService=2
SchedulerType=sched/backfill
SchedulerParameters=sched_interval=1,bf_interval=1,sched_min_interval=0,batch_sched_delay=0
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
JobAcctGatherType=jobacct_gather/none
NodeName=$host NodeAddr=127.0.0.1 CPUs=2 State=UNKNOWN
PartitionName=debug Nodes=$host Default=YES MaxTime=INFINITE State=UP
CONF
export SLURM_CONF=$D/slurm.conf
mkdir "$D/state" "$D/spool"
head -c 128 /dev/urandom >"$D/munge.key"
chmod 400 "$D/munge.key"
chmod 755 "$D"
munged --foreground --force --key-file="$D/munge.key" --socket="$D/munge.socket" \
  --pid-file="$D/munge.pid" --log-file="$D/munge.log" --seed-file="$D/munge.seed" 2>/dev/null &
pids+=($!)
until [ -S "$D/munge.socket" ]; do sleep 0.1; done
slurmctld -D -c -f "$D/slurm.conf" >/dev/null 2>&1 &
pids+=($!)
slurmd -D -f "$D/slurm.conf" >/dev/null 2>&1 &
pids+=($!)

# wait_for SECONDS COMMAND ...: until the command succeeds.
wait_for() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    if [ $SECONDS -ge $end ]; then
      echo "not in time: $*"
      tail -5 "$D"/*.log "$D"/jobs/*.out 2>/dev/null || true
      exit 1
    fi
    sleep 0.2
  done
}
idle() { [ "$(sinfo -h -o %t 2>/dev/null)" = idle ]; }
wait_for 60 idle

mkdir "$D/jobs"
cd "$D/jobs"
rows=${SLURM_TEST_ROWS:-4000}
python3 "$sources/bench/make_list" . "$sources/samples" "$rows" 50
"$TIP2BDL_CLI" lote lista.csv --salida entera --trabajos 1 --quiet 2>/dev/null || [ $? -eq 1 ]

export LISTA=lista.csv CARPETA=resultados FRAGMENTOS=4
cp "$sources"/examples/slurm/*.sbatch .
export PROGRAM=$TIP2BDL_CLI SHARD=3-de-4 FOLDER=$PWD/resultados ONCE=$PWD/once
export TIP2BDL_CLI=$sources/tests/slurm/killed_once.sh
array=$(sbatch --parsable --array=1-4 --cpus-per-task=1 lote.sbatch)
join=$(sbatch --parsable --dependency=afterok:"$array" unir.sbatch)
finished() { [ "$(grep -c '^fin;' resultados/diario-[124]-de-4.csv 2>/dev/null | grep -c ':1')" -eq 3 ]; }
wait_for 300 finished
gone() { [ -z "$(squeue -h -j "$array" 2>/dev/null)" ]; }
wait_for 60 gone
[ -e once ]
[ ! -e resultados/resultados.csv ] || { echo "joined without a shard"; exit 1; }
no_longer_waiting() { [ -z "$(squeue -h -j "$join" 2>/dev/null)" ]; }
wait_for 60 no_longer_waiting

again=$(sbatch --parsable --array=3 --cpus-per-task=2 lote.sbatch)
sbatch --dependency=afterok:"$again" unir.sbatch >/dev/null
joined() { [ -e resultados/resultados.csv ]; }
wait_for 240 joined
cmp entera/resultados.csv resultados/resultados.csv
for folder in entera/0*; do diff -rq "$folder" "resultados/${folder#entera/}"; done

# As its page says, word for word.
export -n PROGRAM SHARD FOLDER ONCE
export TIP2BDL_CLI=$program
mkdir "$D/page"
cd "$D/page"
python3 "$sources/bench/make_list" . "$sources/samples" 400 50
mv lista.csv parque.csv
"$TIP2BDL_CLI" lote parque.csv --salida entera --trabajos 1 --quiet 2>/dev/null || [ $? -eq 1 ]
cp "$sources"/examples/slurm/*.sbatch .
awk '/^```sh$/ {on = 1; next} /^```$/ && on {exit} on' "$sources/examples/slurm/README.md" >orders
grep -q sbatch orders
# shellcheck disable=SC1091 # made here
source ./orders >/dev/null
wait_for 240 joined
cmp entera/resultados.csv resultados/resultados.csv
echo "the same bytes: $rows rows, four shards, one killed; 400 rows as the page says"
