#!/usr/bin/env bash
# Brings every fault of the other side about at every step of every game, in both roles, with the built program over
# real sockets: half an hour. Prints the matrix and writes it to build/faults/matrix.txt, beside pictures of failures.
# usage: scripts/faults.sh [TER|BAR|MES|EST|AJE]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/built_program.sh

try_built_program faults build/faults ${1:+--game "$1"}
