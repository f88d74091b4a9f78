#!/usr/bin/env bash
# Plays all games between two copies of the built program with a relay between them that delays what they say, takes it
# apart, joins or swallows it, and prints what held: five to eight minutes.
# usage: scripts/relay.sh [TER|BAR|MES|EST|AJE]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/built_program.sh

try_built_program relayed ${1:+--game "$1"}
