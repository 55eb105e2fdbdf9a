#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the build into a temporary DESTDIR under the prefix /usr and checks what a desktop
# needs of it: the files are there, the desktop entry and the AppStream metadata validate, the
# page file type registers, and the installed tool finds its sample data under the prefix and
# makes thumbnails the way the thumbnailer entry asks for them.
#   check_install.sh BUILD_DIR
set -euo pipefail
build=$1
for tool in desktop-file-validate appstreamcli update-mime-database; do
  if ! command -v "$tool" >/dev/null; then
    echo "skipped: $tool is missing (scripts/install-deps.sh installs it)"
    exit 77
  fi
done

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR="$root/dest" cmake --install "$build" --prefix /usr >/dev/null
usr=$root/dest/usr
id=org.paginox.Paginox
failed=0
fail() { echo "FAILED: $*"; failed=1; }

# Width and height from a PNG's header.
png_size() {
  local b
  read -ra b < <(od -An -tu1 -j16 -N8 "$1")
  echo "$(((b[0] << 24) | (b[1] << 16) | (b[2] << 8) | b[3]))x$(((b[4] << 24) | (b[5] << 16) | (b[6] << 8) | b[7]))"
}

for f in bin/paginox bin/paginox-tool share/applications/$id.desktop \
  share/metainfo/$id.metainfo.xml share/mime/packages/$id.xml share/thumbnailers/paginox.thumbnailer \
  share/icons/hicolor/scalable/apps/$id.svg share/paginox/screenshots/editor.jpg \
  share/man/man1/paginox.1.gz share/man/man1/paginox-tool.1.gz share/paginox/sample/System/objects.dfn \
  share/paginox/guide/user-guide.html share/paginox/guide/zoom.png share/doc/paginox/copyright \
  share/doc/paginox/changelog.gz; do
  [ -s "$usr/$f" ] || fail "$f is not installed"
done
for s in 16 24 32 48 64 128 256; do
  png=$usr/share/icons/hicolor/${s}x$s/apps/$id.png
  [ -f "$png" ] && [ "$(png_size "$png")" = "${s}x$s" ] || fail "no ${s}x$s icon"
done

desktop-file-validate "$usr/share/applications/$id.desktop" || fail "desktop entry"
appstreamcli validate --no-net "$usr/share/metainfo/$id.metainfo.xml" || fail "metainfo"
XDG_DATA_DIRS=$usr/share update-mime-database "$usr/share/mime" || fail "update-mime-database"
grep -q ':application/x-paginox-page:\*\.pag$' "$usr/share/mime/globs2" || fail "*.pag type"
for f in applications/$id.desktop thumbnailers/paginox.thumbnailer; do
  grep -qx 'MimeType=application/x-paginox-page;' "$usr/share/$f" || fail "$f handles no pages"
done

# Installed into a live prefix (no DESTDIR), the desktop learns of .pag files at once.
cmake --install "$build" --prefix "$root/live" >/dev/null 2>&1
grep -q ':application/x-paginox-page:\*\.pag$' "$root/live/share/mime/globs2" 2>/dev/null ||
  fail "install into a live prefix left the MIME cache without *.pag"

# A fresh user without a host installation: the installed tool seeds the demo environment from
# the prefix's sample data (nothing else is reachable from DESTDIR).
export HOME=$root/home PATH=$usr/bin:$PATH QT_QPA_PLATFORM=offscreen
unset XDG_CONFIG_HOME XDG_DATA_HOME
pages=$(paginox-tool folders | awk -F'\t' '$1 == 10 { print $2 }')
case $pages in
  "$HOME/.local/share/Paginox/Demo/"*) [ -f "${pages}Poster.pag" ] || fail "no sample pages in $pages" ;;
  *) fail "pages folder is $pages, not in the demo environment" ;;
esac

# The thumbnailer's command line, as a file manager fills it in for a 128-pixel thumbnail of
# the 705 x 581 sample poster.
exec_line=$(sed -n 's/^Exec=//p' "$usr/share/thumbnailers/paginox.thumbnailer")
read -ra words <<<"$exec_line"
command=()
for w in "${words[@]}"; do
  case $w in
    %i) command+=("${pages}Poster.pag") ;;
    %o) command+=("$root/thumb.png") ;;
    %s) command+=(128) ;;
    *) command+=("$w") ;;
  esac
done
"${command[@]}" || fail "thumbnailer: ${command[*]}"
[ -f "$root/thumb.png" ] && [ "$(png_size "$root/thumb.png")" = 128x105 ] || fail "thumbnail size"

exit $failed
