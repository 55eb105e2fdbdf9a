#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package into a temporary folder and checks it as a distribution would:
# lintian finds no error, the licence and changes are where Debian keeps them, each Qt library
# is depended on once, and the programs are hardened (PIE, bound at start, read-only
# relocations, fortified calls).
#   check_package.sh BUILD_DIR
set -euo pipefail
build=$1
for tool in cpack lintian dpkg-deb readelf; do
  if ! command -v "$tool" >/dev/null; then
    echo "skipped: $tool is missing (scripts/install-deps.sh installs it)"
    exit 77
  fi
done
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
(cd "$build" && cpack -G DEB -B "$out" --config CPackConfig.cmake >/dev/null)
deb=$(ls "$out"/paginox_*.deb)
failed=0
fail() { echo "FAILED: $*"; failed=1; }

lintian --fail-on error "$deb" || fail "lintian reports errors"
contents=$(dpkg-deb -c "$deb")
for f in ./usr/share/doc/paginox/copyright ./usr/share/doc/paginox/changelog.gz; do
  grep -q " $f\$" <<<"$contents" || fail "$f is not in the package"
done
depends=$(dpkg-deb -f "$deb" Depends)
[ "$(grep -o 'libqt6svg6' <<<"$depends" | wc -l)" = 1 ] || fail "libqt6svg6 in: $depends"

dpkg-deb -x "$deb" "$out/root"
for program in paginox paginox-tool; do
  exe=$out/root/usr/bin/$program
  # Read whole first: grep -q ending early would fail the pipe.
  header=$(readelf -h -l -d "$exe")
  symbols=$(readelf --dyn-syms --wide "$exe")
  grep -q 'Type:.*DYN' <<<"$header" || fail "$program is not PIE"
  grep -q 'BIND_NOW\|FLAGS_1.*NOW' <<<"$header" || fail "$program is not bound at start"
  grep -q GNU_RELRO <<<"$header" || fail "$program has no RELRO"
  grep -q '__[a-z]*_chk@' <<<"$symbols" || fail "$program calls no fortified function"
done
exit $failed
