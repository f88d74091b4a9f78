#!/usr/bin/env bash
# A long evening of the built program: many rematches in one window, many openings of each window between two copies.
# Prints whether memory, descriptors, threads and an idle copy stayed as they were. Hours; two numbers make it shorter.
# usage: scripts/evening.sh [REMATCHES [OPENINGS]]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/built_program.sh

try_built_program evening ${1:+--rematches "$1"} ${2:+--openings "$2"}
