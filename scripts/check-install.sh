#!/usr/bin/env bash
# Installs a build into a staging folder and checks the installed copy: the
# files and their places, the desktop entry and MIME type, the installed
# programs run from a folder they cannot write with an empty home, and the
# Debian package.
#   scripts/check-install.sh [BUILD_DIR]
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "${1:-build}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"
stage="$work/stage"
fail() { echo "check-install: $*" >&2; exit 1; }

DESTDIR="$stage" cmake --install "$build" --prefix /usr --strip >/dev/null
for file in bin/varkesh bin/varkesh-cli share/varkesh/r.opk share/varkesh/ReadMe.txt \
    share/varkesh/help/help.htm share/applications/varkesh.desktop \
    share/mime/packages/varkesh.xml share/icons/hicolor/scalable/apps/varkesh.svg; do
  [ -f "$stage/usr/$file" ] || fail "missing /usr/$file"
done
for size in 16 22 24 32 48 64 128 256; do
  icon="$stage/usr/share/icons/hicolor/${size}x${size}/apps/varkesh.png"
  [ -f "$icon" ] || fail "missing icon of $size pixels"
  file "$icon" | grep -q "$size x $size" || fail "the $size pixel icon has another size"
done
# Nothing of the build tree may leak into the installed programs.
if grep -q "$build" "$stage/usr/bin/varkesh" "$stage/usr/bin/varkesh-cli"; then
  fail "an installed program names the build folder"
fi
desktop-file-validate "$stage/usr/share/applications/varkesh.desktop"
xmllint --noout "$stage/usr/share/mime/packages/varkesh.xml"
echo "installed tree: complete"

# The programs run as a user who may write only in an empty home, from a
# folder nobody may write.
home="$work/home"
jail="$work/readonly"
mkdir -p "$home" "$jail"
chmod 777 "$home"
chmod 555 "$jail"
as_player=()
if [ "$(id -u)" -eq 0 ]; then
  # Root writes anywhere; a plain user shows what a player meets.
  as_player=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi
run() { (cd "$jail" && exec env -i PATH=/usr/bin:/bin HOME="$home" QT_QPA_PLATFORM=offscreen \
  "${as_player[@]}" "$@"); }

run "$stage/usr/bin/varkesh-cli" new >"$work/new.txt" || fail "varkesh-cli new failed"
grep -q . "$work/new.txt" || fail "varkesh-cli new wrote nothing"
run "$stage/usr/bin/varkesh-cli" --version | grep -q "^varkesh-cli " || fail "varkesh-cli --version"
run "$stage/usr/bin/varkesh" --help | grep -q -- "--log N" || fail "varkesh --help"

# One subshell that becomes the game, so that $! is the game itself.
(cd "$jail" && exec env -i PATH=/usr/bin:/bin HOME="$home" QT_QPA_PLATFORM=offscreen \
  "${as_player[@]}" "$stage/usr/bin/varkesh" --log 3 >"$work/game.out" 2>&1) &
game=$!
log="$home/.local/share/varkesh/logs/engine.log"
for _ in $(seq 100); do
  grep -q "titlescreen" "$log" 2>/dev/null && break
  kill -0 "$game" 2>/dev/null || break
  sleep 0.1
done
kill -TERM "$game" 2>/dev/null || true
status=0
wait "$game" || status=$?
[ "$status" -eq 0 ] || { cat "$work/game.out" >&2; fail "varkesh ended with status $status"; }
grep -q "Picture to Load: titlescreen" "$log" || fail "the game did not reach its title screen"
grep -q "General Engine Shutdown" "$log" || fail "the game did not shut down cleanly"
[ -d "$home/.cache/varkesh/temp" ] || fail "no temporary folder under the home"
[ -z "$(ls -A "$jail")" ] || fail "the game wrote in the current folder"
echo "installed programs: run and end cleanly; logs in ~/.local/share/varkesh/logs"

# The Debian package. The tools cpack calls must come from packages the
# set-up script installs: this machine having them by chance proves nothing
# for a fresh one.
listed=$(scripts/install-deps.sh --list)
for tool in file dpkg-shlibdeps dpkg-deb; do
  path=$(command -v "$tool") || fail "$tool is missing: scripts/install-deps.sh must install it"
  owner=$(dpkg -S "$(readlink -f "$path")" 2>/dev/null | head -1 | cut -d: -f1) || owner=""
  [ -n "$owner" ] || owner=$(dpkg -S "$path" 2>/dev/null | head -1 | cut -d: -f1) || true
  [ -n "$owner" ] || fail "no package owns $path"
  [ "$owner" = dpkg ] && continue  # essential: on every Debian system
  grep -qx "$owner" <<<"$listed" || fail "$tool comes from $owner, which scripts/install-deps.sh does not install"
done
rm -f "$build"/varkesh_*.deb
(cd "$build" && cpack -G DEB >/dev/null) || fail "cpack -G DEB failed"
deb=$(ls -t "$build"/varkesh_*.deb 2>/dev/null | head -1)
[ -n "$deb" ] || fail "cpack made no package"
# Its contents and, where lintian is installed, its review.
dpkg-deb --contents "$deb" | awk '{print $6}' >"$work/contents.txt"
for file in ./usr/bin/varkesh ./usr/bin/varkesh-cli ./usr/share/varkesh/r.opk \
    ./usr/share/applications/varkesh.desktop ./usr/share/mime/packages/varkesh.xml; do
  grep -qx "$file" "$work/contents.txt" || fail "the package lacks $file"
done
dpkg-deb --field "$deb" Depends | grep -q libqt6widgets6 || fail "the package's dependencies lack Qt"
echo "package: $(basename "$deb"), depends on: $(dpkg-deb --field "$deb" Depends)"
if command -v lintian >/dev/null; then
  lintian --tag-display-limit 0 "$deb" || true
fi
