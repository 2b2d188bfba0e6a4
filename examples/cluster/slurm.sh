#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# One shard of a list of jobs for each task of a Slurm array, whose numbers start at 1:
#
#     sbatch --array=1-16 slurm.sh jobs.jsonl /shared/done
#     freecut batch --merge --state /shared/done --results results.jsonl
#
# A task that is requeued does only what is missing.
#SBATCH --job-name=freecut
#SBATCH --requeue
set -euo pipefail
jobs=${1:?"usage: sbatch --array=1-N slurm.sh JOBS STATE [OPTION...]"}
state=${2:?"the folder that all nodes share"}
shift 2
exec "${FREECUT:-freecut}" batch "$jobs" --state "$state" \
    --shard "$SLURM_ARRAY_TASK_ID/$SLURM_ARRAY_TASK_COUNT" --results /dev/null --quiet "$@"
