#!/usr/bin/env bash
# Builds Qt for Windows from Debian's sources into build/windows/qt/installed, with what Brontavia needs of it and no
# more. Does nothing when it is there and neither this recipe nor Debian's versions have changed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages.sh
install_missing "${build_packages[@]}" "${windows_packages[@]}"

qt=$PWD/build/windows/qt
toolchain=$PWD/cmake/mingw.cmake
recipe=$PWD/packaging/windows/qt

# The tools of this machine's Qt run in the build, so it has to be the same version.
version=$(dpkg-query --show --showformat='${source:Version}' qt6-base-dev)
compiler=$(dpkg-query --show --showformat='${Version}' g++-mingw-w64-x86-64-posix)
key=$({ echo "$version $compiler" && cat "$0" "$toolchain" "$recipe"/*; } | sha256sum)
[ "$(cat "$qt/installed/recipe" 2>/dev/null)" != "$key" ] || exit 0

echo "Building Qt $version for Windows: a quarter of an hour on two processors"
rm -rf "$qt"
mkdir -p "$qt/lists/partial"
cd "$qt"

# A source list of its own: the system's may have no sources, and stays as it is.
mirror=http://deb.debian.org
signed="[signed-by=/usr/share/keyrings/debian-archive-keyring.gpg]"
printf '%s\n' "deb-src $signed $mirror/debian bookworm main" "deb-src $signed $mirror/debian bookworm-updates main" \
  "deb-src $signed $mirror/debian-security bookworm-security main" >sources.list
apt() {
  apt-get --quiet --quiet -o "Dir::Etc::SourceList=$qt/sources.list" -o Dir::Etc::SourceParts=/dev/null \
    -o "Dir::State::Lists=$qt/lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= "$@"
}
# as_sources(directory package): what Debian builds the package from, with Debian's patches.
as_sources() {
  apt source --download-only "$2"
  dpkg-source --no-check --extract "${2%%=*}"_*.dsc "$1" >/dev/null
}
apt update
as_sources base "qt6-base=$version"
as_sources svg qtsvg-opensource-src
# Qt 6 has one class where Qt 5 had two; what else it says in other words stands in the patch.
sed --in-place --regexp-extended 's/QXmlStreamStringRef|QStringRef/QStringView/g' svg/src/svg/*.{cpp,h}
patch --quiet --directory svg --strip 1 <"$recipe/qtsvg.patch"

# The log is long and of interest where it ends alone.
logged() { "$@" >>build.log 2>&1 || { tail -n 30 build.log >&2 && return 1; }; }

off=(
  # neither used by the program nor by its tests
  brotli concurrent dbus http openssl printsupport schannel sql xml
  # Debian's source lacks the header for tablets; without OpenGL and Vulkan Direct2D there is no driver to blame
  tabletevent opengl vulkan direct2d directwrite3
  # this machine's libraries are not for Windows, those that Qt brings are
  fontconfig glib icu pkg_config system_doubleconversion system_freetype system_harfbuzz system_jpeg system_pcre2
  system_png system_zlib zstd
)
# Accessibility is what screen readers are told by; Qt Test is for the tests alone and not delivered.
on=(accessibility style_windowsvista testlib)
on=("${on[@]/%/=ON}") off=("${off[@]/%/=OFF}")
logged cmake -S base -B base-build -G Ninja --log-level=ERROR -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
  -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$qt/installed" -DBUILD_SHARED_LIBS=ON -DQT_HOST_PATH=/usr \
  -DQt6HostInfo_DIR=/usr/lib/x86_64-linux-gnu/cmake/Qt6HostInfo \
  -DINPUT_opengl=no -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
  "${on[@]/#/-DFEATURE_}" "${off[@]/#/-DFEATURE_}"
logged ninja -C base-build install/strip

logged cmake -S "$recipe" -B svg-build -G Ninja -DQTSVG="$qt/svg" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
  -DCMAKE_PREFIX_PATH="$qt/installed" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$qt/installed"
logged ninja -C svg-build install/strip

# Spanish texts of the standard buttons, and the licences that are delivered with the libraries.
mkdir -p installed/translations installed/licences
cp /usr/share/qt6/translations/qtbase_es.qm installed/translations
cp base/LICENSES/{GPL-3.0-only,LGPL-3.0-only}.txt installed/licences
cp base/debian/copyright installed/licences/qtbase.txt
cp svg/debian/copyright installed/licences/qtsvg.txt

rm -rf base-build svg-build
echo "$key" >installed/recipe
