#!/usr/bin/env bash
# chart-import-test.sh CHART-IMPORT MAKE-STORES: its exit status, what it enters, and that a failure changes nothing.
set -euo pipefail
export LC_ALL=C
import=$1 stores=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
Fail() { echo "FAILED: $*" >&2; exit 1; }
Status() { local status=0; "$import" "$@" >out 2>err || status=$?; echo "$status"; }

mkdir -p P/Karten
"$stores" P >/dev/null
[[ $(Status --help) == 0 ]] || Fail "--help"
for call in "" "P" "--cut 1,2,3 P a" "--cut 8,50,7,51 P a" "--cut-pixels 1,2,0,4 P a" "--dpi x P a" "--other P a" "--name"; do
    [[ $(Status $call) == 2 ]] || Fail "wrong call: $call"
done
[[ $(Status P missing.tif) == 3 ]] || Fail "a missing file: $(cat err)"
[[ $(Status --name a/b P missing.tif) == 3 ]] || Fail "a name that is a path"
printf 'P6\n300 300\n255\n' >-a.ppm
head -c 270000 /dev/zero | tr '\0' '\310' >>-a.ppm
if ! command -v gdalwarp >/dev/null; then
    PATH=/nowhere Status P -- -a.ppm >/dev/null
    grep -q gdal-bin err || Fail "does not name the package"
    echo "SKIPPED: gdal-bin is not installed"
    exit 0
fi
# Lines, for a picture of one colour counts as none.
{ printf 'P6\n300 300\n255\n'; for _ in {1..150}; do head -c 900 /dev/zero | tr '\0' '\310'; head -c 900 /dev/zero | tr '\0' '\200'; done; } >lines.ppm
gdal_translate -q -a_srs EPSG:4326 -a_ullr 7 51 7.5 50.5 lines.ppm "./-it's.tif"
before=$(cksum P/data.ovd)
(PATH=/nowhere; "$import" P -- "-it's.tif" 2>err) && Fail "without programs"
grep -q gdal-bin err || Fail "does not name the package: $(cat err)"
[[ $(cksum P/data.ovd) == "$before" && -z $(ls -A P/Karten) ]] || Fail "a failure changes something"
[[ $(Status --name Rhein P -- "-it's.tif") == 0 ]] || Fail "an import: $(cat err)"
grep -q "^Rhein.jpg: 300 x 300 pixels, 50.5 to 51 N, 7 to 7.5 E$" out || Fail "the report: $(cat out)"
[[ $(ls -A P/Karten) == $'Rhein.crm\nRhein.jpg' ]] || Fail "the folder: $(ls -A P/Karten)"
[[ $(cat P/Karten/Rhein.crm) == $'50.3\r\n51\r\n7\r\n7.3\r' ]] || Fail "the frame: $(cat P/Karten/Rhein.crm)"
after=$(cksum P/data.ovd P/Karten/*)
[[ $(Status --name Rhein P -- "-it's.tif") == 3 ]] || Fail "replaces without being asked"
[[ $(cksum P/data.ovd P/Karten/*) == "$after" ]] || Fail "a refusal changes something"
[[ $(Status --name Rhein --replace P -- "-it's.tif") == 0 ]] || Fail "--replace: $(cat err)"
