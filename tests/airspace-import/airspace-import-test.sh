#!/usr/bin/env bash
# airspace-import-test.sh AIRSPACE-IMPORT: its exit status, its report, and that a failure leaves the store alone.
set -euo pipefail
export LC_ALL=C
import=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
Fail() { echo "FAILED: $*" >&2; exit 1; }
Status() { local status=0; "$import" "$@" >out 2>err || status=$?; echo "$status"; }

printf 'AC Q\r\nAN Good\r\nAL GND\r\nAH FL 95\r\nV X=48:00:00 N 17:00:00 E\r\nDC 2\r\n' >good.txt
printf 'AC Q\nAN Bad\nAL GND\nAH FL 95\nDC 2\n' >bad.txt
day="--date 2026-04-01"

[[ $(Status $day Luftraum.ovd good.txt good.txt) == 0 ]] || Fail "two good files"
grep -q "^Luftraum.ovd: 2 airspaces, data of 2026-04-01$" out || Fail "the report: $(cat out)"
[[ $(Status $day Luftraum.ovd good.txt) == 3 ]] || Fail "replaces without being asked"
[[ $(Status $day --replace Luftraum.ovd good.txt bad.txt) == 1 ]] || Fail "a refusal"
[[ $(cat err) == "bad.txt:5: Bad: a circle or an arc without a centre" ]] || Fail "the refusal: $(cat err)"
before=$(cksum Luftraum.ovd)
[[ $(Status $day --replace Luftraum.ovd bad.txt) == 3 ]] || Fail "replaces by nothing"
[[ $(Status $day --replace Luftraum.ovd good.txt missing.txt) == 3 ]] || Fail "leaves a missing file out"
[[ $(cksum Luftraum.ovd) == "$before" ]] || Fail "a failure changes the store"
[[ $(Status --help) == 0 ]] || Fail "--help"
for call in "" "$day" "$day a" "a good.txt" "--date 2026-02-30 a good.txt" "--date 1.4.2026 a good.txt" "$day --other a good.txt"; do
    [[ $(Status $call) == 2 ]] || Fail "wrong call: $call"
done
[[ $(ls) == $'Luftraum.ovd\nbad.txt\nerr\ngood.txt\nout' ]] || Fail "leaves behind: $(ls)"
