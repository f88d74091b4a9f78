#!/usr/bin/env bash
# Floods the built program from the wire for a minute of each kind (a quarter of an hour), and prints how it stood them.
# usage: scripts/floods.sh [SECONDS]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/built_program.sh

try_built_program floods ${1:+--seconds "$1"}
