#!/usr/bin/env bash
# Makes the Debian package from the build folder, unpacks it into a temporary root and runs the
# installed programs: orvane-cli settings on a new station folder, ktrgen writing a recording.
set -euo pipefail
build=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

(cd "$build" && cpack -G DEB -B "$work/out" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip >/dev/null)
deb=$(ls "$work"/out/orvane_*_amd64.deb)
echo "package: $(basename "$deb")"
[[ $(basename "$deb") =~ ^orvane_[0-9]+\.[0-9]+\.[0-9]+_amd64\.deb$ ]] || { echo "unexpected name $deb"; exit 1; }

depends=$(dpkg-deb -f "$deb" Depends)
echo "depends: $depends"
for lib in libqt6widgets6 libsqlite3-0 qt6-translations-l10n; do
  grep -q "$lib" <<<"$depends" || { echo "missing dependency $lib"; exit 1; }
done

root="$work/root"
dpkg -x "$deb" "$root"
for f in usr/bin/orvane usr/bin/orvane-cli usr/bin/ktrgen usr/share/applications/orvane.desktop \
  usr/share/icons/hicolor/scalable/apps/orvane.svg usr/share/mime/packages/orvane-ktr.xml; do
  [ -e "$root/$f" ] || { echo "not installed: $f"; exit 1; }
done
grep -q '^MimeType=application/x-orvane-ktr;' "$root/usr/share/applications/orvane.desktop"
grep -q '^Exec=orvane %f' "$root/usr/share/applications/orvane.desktop"
grep -q 'glob pattern="\*.ktr"' "$root/usr/share/mime/packages/orvane-ktr.xml"

export ORVANE_HOME="$work/home"
settings=$("$root/usr/bin/orvane-cli" settings)
grep -q '"bxianbackcolor"' <<<"$settings" || { echo "settings without colours: $settings"; exit 1; }
"$root/usr/bin/ktrgen" --preset small --seed 3 -o "$work/small.ktr"
[ -s "$work/small.ktr" ] || { echo "ktrgen wrote nothing"; exit 1; }
"$root/usr/bin/orvane-cli" dump "$work/small.ktr" | grep -q "\"samplecount\""
echo "installed programs run"
