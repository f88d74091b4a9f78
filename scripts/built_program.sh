# Sourced by the commands that try the built program for long: builds it and runs a script of tests/reliability/ on a
# virtual screen.
source scripts/packages.sh

try_built_program() {
  install_missing "${build_packages[@]}" "${screen_packages[@]}"
  cmake --preset check >/dev/null
  cmake --build build/check --target brontavia
  BRONTAVIA_BINARY=$PWD/build/check/bin/brontavia PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=tests/e2e \
    scripts/on_virtual_screen.sh /usr/bin/python3 "tests/reliability/$1.py" "${@:2}"
}
