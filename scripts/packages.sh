# Sourced by ./play, ./check and what else needs something: what each of them needs from Debian, and how it gets there.

build_packages=(cmake g++ libfontconfig-dev lowdown ninja-build libqt6svg6 qt6-base-dev qt6-multimedia-dev qt6-translations-l10n)
# A virtual screen with a window manager, keys and clicks, pictures, and the accessibility bus.
screen_packages=(xvfb openbox xdotool imagemagick x11-utils dbus-daemon at-spi2-core python3-pyatspi fonts-dejavu-core)
# The private headers let a test stand where the platform hears what screen readers are told.
# valgrind counts instructions: benchmarks/counts.py.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev qt6-base-private-dev valgrind)
# xboard is what the start is measured beside.
bench_packages=(libbenchmark-dev valgrind xboard)
screen_reader_packages=(orca)
lint_packages=(clang-format clang-tidy cppcheck)
package_packages=(dpkg-dev file git gzip)
# What judges a package, and what makes the clean system that it is tried in.
package_check_packages=(appstream binutils desktop-file-utils groff lintian man-db mmdebstrap)
# The fuzzer comes with clang; llvm names the lines of what it finds.
fuzz_packages=(clang llvm)

# The cross compiler with what it needs to build Qt; icons; the installer. GoogleTest comes as sources with libgtest-dev.
windows_packages=(binutils-mingw-w64-x86-64 dpkg-dev g++-mingw-w64-x86-64-posix icoutils nsis patch xz-utils zip)
windows_check_packages=(libgtest-dev wine wine64 xclip)

# Runs a command with root's rights.
as_root() { if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi; }

# Installs those of the named packages that are missing. Without the rights to do so it prints the command and stops.
install_missing() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local install="apt-get update && apt-get install --yes --no-install-recommends ${missing[*]}"
  echo "Installing ${missing[*]}"
  if ! as_root env DEBIAN_FRONTEND=noninteractive sh -c "${install//apt-get/apt-get --quiet --quiet}"; then
    echo "These packages are missing and could not be installed. As root, run:" >&2
    echo "  $install" >&2
    exit 1
  fi
}
