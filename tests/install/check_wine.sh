#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Paginox beside a real Veltrane under Wine: a prefix made by wineboot, the host's settings and
# a small installation put in it (its user folder on an extra drive D:), then paginox-tool with
# --host: the folder table, the catalogue, the library, a page whose picture is named by a
# Windows path in another letter case drawn as the same page with the picture beside it, and
# paths both ways against winepath.
#   check_wine.sh TOOL SAMPLE_DIR
set -euo pipefail
tool=$1
sample=$2
for w in wine wineboot winepath wineserver; do
  if ! command -v "$w" >/dev/null; then
    echo "skipped: $w is missing (scripts/install-deps.sh installs Debian's wine and wine64)"
    exit 77
  fi
done
root=$(mktemp -d)
export WINEPREFIX=$root/prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" HOME=$root/home
mkdir -p "$HOME"
cleanup() { wineserver -k 2>/dev/null || true; rm -rf "$root"; }
trap cleanup EXIT
wineboot -i >/dev/null 2>&1
wineserver -w
failed=0
fail() { echo "FAILED: $*"; failed=1; }

# The installation: system data in Program Files (x86), user files on drive D:.
c=$WINEPREFIX/drive_c
system="$c/Program Files (x86)/Quillon/Veltrane/v9"
mkdir -p "$system" "$root/astro"
cp -r "$sample/System/." "$system/"
cp -r "$sample/User Files" "$root/astro/Veltrane"
ln -s "$root/astro" "$WINEPREFIX/dosdevices/d:"
printf '[Veltrane]\r\nSystemDataPath=C:\\Program Files (x86)\\Quillon\\Veltrane\\v9\\\r\nUserFolder=d:\\VELTRANE\\\r\n' \
  >"$c/windows/Veltrane9.ini"
user=$(ls "$c/users" | grep -v '^Public$' | head -n 1)
mkdir -p "$c/users/$user/Pictures"
cp "$sample/User Files/Pages/Sunburst.bmp" "$c/users/$user/Pictures/sunburst.bmp"

pt() { "$tool" --host "$WINEPREFIX" "$@"; }
folders=$(pt folders)
grep -q "^Installation	chosen	$WINEPREFIX\$" <<<"$folders" || fail "installation line: $folders"
pages=$(awk -F'\t' '$1 == 10 { print $2 }' <<<"$folders")
[ "$(realpath "$pages")" = "$(realpath "$root/astro/Veltrane/Pages")" ] || fail "pages folder $pages"
[ "$(pt classes | grep -c '"ClassID"')" -ge 20 ] || fail "classes from the prefix's system folder"
pt library | grep -q '"File": "Poster.pag"' || fail "library of the installation"

# A picture named by a Windows path in another letter case draws as the bare name beside it.
page=$pages/Poster.pag
windows="C:\\USERS\\${user^^}\\pictures\\SUNBURST.BMP"
cp "$page" "$root/named.pag"
offset=$(grep -obUa 'Sunburst.bmp' "$root/named.pag" | head -n 1 | cut -d: -f1)
printf '%s' "$windows" | dd of="$root/named.pag" bs=1 seek="$offset" conv=notrunc 2>/dev/null
pt render "$page" -o "$root/beside.png" --size 400
pt render "$root/named.pag" -o "$root/named.png" --size 400 2>"$root/named.err"
cmp -s "$root/beside.png" "$root/named.png" || fail "picture by Windows path: $(cat "$root/named.err")"

# Paths both ways, as winepath gives them.
for p in 'C:\windows' 'c:\WINDOWS\system32' 'Z:\tmp' 'D:\veltrane\pages\' \
  'C:\Program Files (x86)\..\users' 'C:\users\'"$user"'\Pictures\' 'C:\Program Files (x86)'; do
  mine=$(pt path "$p")
  wine=$(winepath -u "$p")
  [ "$(realpath -m "$mine")" = "$(realpath -m "$wine")" ] || fail "path $p: $mine, winepath $wine"
done
for p in "$c/windows" "$root/astro/Veltrane/Pages/Poster.pag" /usr/share /tmp; do
  mine=$(pt path "$p")
  wine=$(winepath -w "$p")
  [ "$mine" = "$wine" ] || fail "path $p: $mine, winepath $wine"
done
exit $failed
