#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs a list of jobs as a Slurm array and by itself, and compares what both tell:
#
#     tests/cluster/slurm_array.sh build/release/bin/freecut
#
# Starts a controller and a node with two slots, with keys, ports and folders of their own, in a scratch folder that
# is removed at the end. It takes the Debian packages slurmctld, slurmd, slurm-client and munge, and root. One task
# is killed with what it runs, and requeued. Ends with 77 where Slurm cannot start.
set -euo pipefail

freecut=$(readlink -f "${1:?"usage: slurm_array.sh FREECUT"}")
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
tasks=200
victim=77
scratch=$(mktemp -d)
export SLURM_CONF=$scratch/slurm.conf

say() { printf '%s\n' "$*" >&2; }
fail() { say "FAILED: $*"; exit 1; }
skip() { say "SKIPPED: $*"; exit 77; }

daemons=()
finish() {
    local daemon
    for daemon in "${daemons[@]}"; do
        kill "$daemon" 2> /dev/null || true
    done
    wait 2> /dev/null || true
    rm -rf "$scratch"
}
trap finish EXIT

# Waits up to so many seconds until a command succeeds.
await() {
    local end=$((SECONDS + $1))
    shift
    until "$@" > /dev/null 2>&1; do
        ((SECONDS < end)) || return 1
        sleep 0.2
    done
}

free_port() {
    python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])'
}

require_programs() {
    local program
    for program in munged slurmctld slurmd sbatch squeue scontrol sinfo; do
        PATH=$PATH:/usr/sbin type -P "$program" > /dev/null || skip "$program is not installed."
    done
    [[ $(id -u) == 0 ]] || skip "slurmd has to be run by root."
}

start_keys() {
    mkdir -m 700 "$scratch/munge"
    (umask 077 && head -c 1024 /dev/urandom > "$scratch/munge/key")
    munged --foreground --force --key-file="$scratch/munge/key" --socket="$scratch/munge/socket" \
        --pid-file="$scratch/munge/pid" --seed-file="$scratch/munge/seed" \
        --log-file="$scratch/munge/log" > "$scratch/munge.out" 2>&1 &
    daemons+=($!)
    await 10 test -S "$scratch/munge/socket" || skip "munged does not start: $(cat "$scratch/munge.out")"
}

write_settings() {
    local name
    name=$(hostname -s)
    mkdir "$scratch/state" "$scratch/spool"
    cat > "$SLURM_CONF" << END
ClusterName=scratch
SlurmctldHost=$name(127.0.0.1)
SlurmctldPort=$(free_port)
SlurmdPort=$(free_port)
SlurmUser=root
SlurmdUser=root
AuthType=auth/munge
AuthInfo=socket=$scratch/munge/socket,cred_expire=5
StateSaveLocation=$scratch/state
SlurmdSpoolDir=$scratch/spool
SlurmctldPidFile=$scratch/slurmctld.pid
SlurmdPidFile=$scratch/slurmd.pid
SlurmctldLogFile=$scratch/slurmctld.log
SlurmdLogFile=$scratch/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
MpiDefault=none
MailProg=/bin/true
ReturnToService=2
SlurmdParameters=config_overrides
SchedulerParameters=sched_interval=2,batch_sched_delay=0
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
NodeName=$name NodeAddr=127.0.0.1 CPUs=2 State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP
END
}

is_node_idle() { sinfo --noheader --format=%T | grep -qx idle; }

start_slurm() {
    start_keys
    write_settings
    PATH=$PATH:/usr/sbin slurmctld -D > "$scratch/slurmctld.out" 2>&1 &
    daemons+=($!)
    PATH=$PATH:/usr/sbin slurmd -D > "$scratch/slurmd.out" 2>&1 &
    daemons+=($!)
    await 40 is_node_idle || skip "Slurm does not start: $(tail -n 3 "$scratch"/slurm*.{log,out} 2> /dev/null)"
}

# A folder with a list of jobs, two for each task.
make_jobs() {
    mkdir "$1"
    cp "$here/../../examples/vase.stl" "$1"
    local i
    for ((i = 0; i < 2 * tasks; ++i)); do
        printf '{"command":"zcut","files":"vase.stl","height":%d.%02d,"output":"pieces/%d"}\n' \
            $((1 + i / 5)) $((i % 5 * 20)) "$i"
    done > "$1/jobs.jsonl"
}

# freecut as the tasks run it: that of one task is killed while it works, and then the task, once.
make_freecut() {
    cat > "$scratch/freecut" << END
#!/usr/bin/env bash
if [[ \$SLURM_ARRAY_TASK_ID == $victim && ! -e $scratch/killed ]]; then
    "$freecut" "\$@" &
    until compgen -G "$scratch/array/state/*" > /dev/null; do sleep 0.001; done
    kill -9 \$!
    touch "$scratch/killed"
    kill -9 \$\$
fi
exec "$freecut" "\$@"
END
    chmod +x "$scratch/freecut"
}

is_queue_empty() { [[ -z $(squeue --noheader) ]]; }
has_victim_ended() { [[ -e $scratch/killed ]] && scontrol show job "${array}_$victim" | grep -q 'JobState=FAILED'; }

run_array() {
    array=$(cd "$scratch/array" && FREECUT=$scratch/freecut sbatch --parsable --array="1-$tasks" \
        --output=/dev/null "$here/../../examples/cluster/slurm.sh" jobs.jsonl state)
    await 300 has_victim_ended || fail "The task that is killed did not fail: $(squeue --long)"
    scontrol requeue "${array}_$victim"
    await 300 is_queue_empty || fail "The array does not end: $(squeue --long)"
    (cd "$scratch/array" && "$freecut" batch --merge --state state --results results.jsonl --stable --quiet) \
        || fail "The shards' results cannot be merged."
}

run_locally() {
    (cd "$scratch/local" && "$freecut" batch jobs.jsonl --state state --results results.jsonl --stable --quiet) \
        || fail "The local run failed."
}

compare() {
    [[ $(wc -l < "$scratch/local/results.jsonl") == $((2 * tasks)) ]] || fail "The local run told too little."
    cmp "$scratch/local/results.jsonl" "$scratch/array/results.jsonl" || fail "The results differ."
    diff -r "$scratch/local/pieces" "$scratch/array/pieces" || fail "The pieces differ."
}

require_programs
start_slurm
make_jobs "$scratch/array"
make_jobs "$scratch/local"
make_freecut
run_array
run_locally
compare
say "$tasks tasks, one of them killed and requeued: results and pieces are those of a local run."
