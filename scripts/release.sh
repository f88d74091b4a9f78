#!/usr/bin/env bash
# Makes a release of the commit that is checked out: source archive, package for Debian, zip and installer for Windows in
# build/release-VERSION/, and last the tag. The version has to stand in CMakeLists.txt and to have its section in CHANGELOG.md.
# usage: scripts/release.sh [--dry-run] VERSION    --dry-run does all but the tag
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

dry_run=no
if [ "${1:-}" = --dry-run ]; then dry_run=yes && shift; fi
[ $# -eq 1 ] || { sed -n '4s/^# *//p' "$0" >&2 && exit 2; }
version=$1
tag=v$version
name=brontavia-$version

refuse() { echo "No release: $1" >&2; exit 1; }
[[ $version =~ ^[0-9]+(\.[0-9]+){1,2}$ ]] || refuse "\"$version\" is no version."
[ -z "$(git status --porcelain)" ] || refuse "there are changes that are not committed."
! git rev-parse --quiet --verify "refs/tags/$tag" >/dev/null || refuse "$tag exists already."
grep -q "^project(brontavia VERSION $version LANGUAGES" CMakeLists.txt || refuse "CMakeLists.txt has another version."
grep -qE "^## \[${version//./\\.}\] - [0-9]{4}-[0-9]{2}-[0-9]{2}\$" CHANGELOG.md ||
  refuse "CHANGELOG.md has no section \"## [$version] - DATE\"."

release=$PWD/build/release-$version
rm -rf "$release"
mkdir -p "$release"
# The name and time that gzip would note are left out, so that the same commit gives the same archive.
git archive --format=tar --prefix="$name/" HEAD | gzip -9n >"$release/$name.tar.gz"

# From here on only what is in the archive counts.
source=$release/source
mkdir "$source"
tar -x --strip-components=1 -f "$release/$name.tar.gz" -C "$source"
"$source/check" FAST
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
package=$("$source/scripts/package.sh")
cp "$package" "$release"
# The Qt for Windows that is here already serves the archive too, if it is made by the archive's own recipe.
mkdir -p "$source/build/windows" build/windows/qt
ln -s "$PWD/build/windows/qt" "$source/build/windows/qt"
"$source/scripts/windows.sh"
cp "$source/build/windows/Brontavia-$version.zip" "$source/build/windows/Brontavia-$version-instalador.exe" "$release"
rm -rf "$source"

(cd "$release" && sha256sum -- *.tar.gz *.deb *.zip *.exe | tee SHA256SUMS)
if [ "$dry_run" = yes ]; then
  echo "No tag. It would be $tag."
else
  git tag --annotate "$tag" --message "Brontavia $version"
  echo "Tagged $tag. To publish it: git push origin $tag"
fi
