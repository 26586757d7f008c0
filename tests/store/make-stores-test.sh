#!/usr/bin/env bash
# make-stores-test.sh MAKE-STORES: what it makes, what it leaves alone, and its exit status.
set -euo pipefail
make=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
Fail() { echo "FAILED: $*" >&2; exit 1; }
Status() { local status=0; "$make" "$@" >"$folder.out" 2>&1 || status=$?; rm -f "$folder.out"; echo "$status"; }

echo "the user's own" >"$folder/track.ovd"
[[ $(Status "$folder") == 0 ]] || Fail "a store is there already"
[[ $(cat "$folder/track.ovd") == "the user's own" ]] || Fail "overwrites a store"
[[ $(ls "$folder") == $'data.ovd\ntrack.ovd' ]] || Fail "makes $(ls "$folder")"
[[ $(Status "$folder" --only Luftraum --only ovdata) == 0 ]] || Fail "--only"
[[ $(ls "$folder" | wc -l) == 4 ]] || Fail "--only makes $(ls "$folder")"
[[ $(Status "$folder/missing") == 1 ]] || Fail "a missing folder"
for call in "" "--only data" "$folder --only" "$folder --only other" "$folder $folder" "$folder --help"; do
    [[ $(Status $call) == 2 ]] || Fail "wrong call: $call"
done
