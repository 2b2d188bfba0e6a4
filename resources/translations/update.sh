#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# update.sh LUPDATE FOLDER: brings orbe_en.ts and orbe_de.ts in FOLDER in line with the texts in the
# sources. English has entries only for texts with a number, which take a plural.
set -euo pipefail
lupdate=$1
folder=$2
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.." && pwd)

sources=()
for name in platform host messages drawings cutjobs connectors tools selection display dialogs module app; do
    if [[ -d $root/$name ]]; then
        sources+=("$root/$name")
    fi
done
common=(-no-obsolete -locations none -source-language en -extensions cpp,h)
"$lupdate" "${common[@]}" -target-language de "${sources[@]}" -ts "$folder/orbe_de.ts"
"$lupdate" "${common[@]}" -target-language en -pluralonly "${sources[@]}" -ts "$folder/orbe_en.ts"
