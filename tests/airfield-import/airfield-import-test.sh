#!/usr/bin/env bash
# airfield-import-test.sh AIRFIELD-IMPORT: its exit status.
set -euo pipefail
import=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
Expect() {
    local expected=$1 status=0
    shift
    "$import" "$@" >/dev/null 2>&1 || status=$?
    [[ $status == "$expected" ]] || { echo "FAILED: status $status, not $expected: $*" >&2; exit 1; }
}

printf 'ident,type,latitude_deg,longitude_deg,iso_country\nEDKB,small_airport,50.7,7.1,DE\n' >"$folder/airports.csv"
printf 'airport_ident,length_ft,surface\nEDKB,2625,ASP\n' >"$folder/runways.csv"
Expect 0 "$folder/ovdata.ovd" "$folder"
Expect 3 "$folder/ovdata.ovd" "$folder"
printf 'EDKB,-1,ASP\n' >>"$folder/runways.csv"
Expect 1 --replace "$folder/ovdata.ovd" "$folder"
Expect 3 "$folder/other.ovd" "$folder/missing"
Expect 3 "$folder/missing/ovdata.ovd" "$folder"
Expect 2
Expect 2 "$folder/other.ovd"
Expect 2 "$folder/other.ovd" "$folder" more
Expect 2 --unknown "$folder/other.ovd" "$folder"
[[ ! -e $folder/other.ovd ]]
