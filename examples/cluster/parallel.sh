#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The shards of a list of jobs by GNU parallel, one at a time on each machine, since a shard uses all cores:
#
#     parallel.sh jobs.jsonl /shared/done 16 --sshlogin node1,node2 --workdir .
set -euo pipefail
jobs=${1:?"usage: parallel.sh JOBS STATE SHARDS [OPTION OF PARALLEL...]"}
state=${2:?"the folder that all machines share"}
shards=${3:?"how many shards"}
shift 3
freecut=${FREECUT:-freecut}
parallel --jobs 1 --retries 3 "$@" \
    "$freecut" batch "$jobs" --state "$state" --shard "{}/$shards" --results /dev/null --quiet \
    ::: $(seq "$shards") || true
# Whatever has failed is told by the results.
exec "$freecut" batch --merge --state "$state"
