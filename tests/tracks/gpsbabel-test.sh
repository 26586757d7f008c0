#!/usr/bin/env bash
# gpsbabel-test.sh: another program reads the exported files, and finds in them what is in the store.
set -euo pipefail
cd "$(dirname "$0")"

# Latitude, longitude and altitude of every point, as unicsv has them.
read_points() { gpsbabel "$1" -i gpx -f "$2" -o unicsv -F - | tr -d '\r' | awk -F, '
    NR == 1 { for (i = 1; i <= NF; i++) column[$i] = i; next }
    { print $column["Latitude"], $column["Longitude"], ("Altitude" in column ? $column["Altitude"] + 0 : "") }'; }

want=$'47.000000 0.500000 1234\n-33.123500 151.500000 12\n50.978400 -0.050000 0'
status=0
for call in "-t track.gpx" "-w waypoints.gpx" "-t both.gpx" "-w both.gpx"; do
    # shellcheck disable=SC2086
    got=$(read_points $call)
    if [[ $got != "$want" ]]; then
        echo "gpsbabel $call reads:"
        echo "$got"
        status=1
    fi
done
exit $status
