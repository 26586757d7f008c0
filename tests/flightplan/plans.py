#!/usr/bin/env python3
"""Works out the plans of FlightPlanTest by hand: the rules of the navigation log, written down a second time.

Prints one line a cell: plan, row, field, value. `plans.py > plans.txt` renews the numbers of the test.
Round is ties-to-even on the value as a person would write it (15 digits)."""
import math
from decimal import Decimal, ROUND_HALF_EVEN, ROUND_HALF_UP

PI = 3.14159265


def rnd(x, places=0):
    exact = Decimal(repr(float("%.15g" % x)))
    return float(exact.quantize(Decimal(1).scaleb(-places), ROUND_HALF_EVEN))


def whole(x):  # the picture "##0"
    return float(Decimal(repr(float("%.15g" % x))).quantize(Decimal(1), ROUND_HALF_UP))


def decimal(v):  # 50.30 is 50 degrees 30 minutes
    return math.floor(v) + (v - math.floor(v)) * 10 / 6


def arccos(x):
    return 0 if abs(x) >= 1 else math.atan(-x / math.sqrt(1 - x * x)) + 2 * math.atan(1)


def angle(x):  # of a course, in degrees: due north and south keep their side whatever rounding does
    return 180 if x <= -1 else arccos(x) * 180 / PI


def leg(a, b, course):
    (la, ga), (lb, gb) = [[decimal(v) * PI / 180 for v in p] for p in (a, b)]
    if a == b or 0 in map(decimal, a + b):
        return 0.0, course
    d = arccos(math.sin(la) * math.sin(lb) + math.cos(la) * math.cos(lb) * math.cos(ga - gb))
    if ga < gb:
        c = angle((math.sin(lb) - math.cos(d) * math.sin(la)) / (math.sin(d) * math.cos(la)))
    else:
        c = angle((math.sin(la) - math.cos(d) * math.sin(lb)) / (math.sin(d) * math.cos(lb))) + 180
    return d * 60 * 180 / PI, c


def clock(minutes):
    hours = minutes / 60
    h = math.floor(hours)
    m = rnd((hours - h) * 60)
    return h * 60 + m, "%02d:%02d" % (h, m)


def complete(row, length, flow, sums):
    angle = (row["Windrichtung"] - row["TC"]) * PI / 180
    cross = rnd(math.sin(angle) * row["Windstärke"], 2)
    tail = -rnd(math.cos(angle) * row["Windstärke"], 2)
    row["Wind"] = "%.15g / %.15g" % (row["Windrichtung"], row["Windstärke"])
    row["GS"] = row["TAS"] + tail
    row["MH"] = row["TC"] + cross * 60 / row["TAS"] - row["VAR"]
    minutes = length * 60 / row["GS"]
    row["Zeit"] = rnd(minutes, 2)
    counted, row["ZeitDisplay"] = clock(minutes)
    sums["minutes"] += counted
    row["FFm"] = rnd(flow / 60 * minutes, 1)
    sums["fuel"] += row["FFm"]
    row["FFmAcc"] = rnd(sums["fuel"], 1)
    sums["wind"] = rnd(minutes * tail + sums["wind"])
    row["ZeitAcc"] = clock(sums["minutes"])[1]


def totals(name, sums, distance=None):
    if distance is not None:
        print(name, "-", "lblDistanz", "%.15g NM" % rnd(distance, 1), sep="\t")
    print(name, "-", "lblFF", "%.15g" % rnd(sums["fuel"], 1), sep="\t")
    print(name, "-", "lblZeit", clock(sums["minutes"])[1], sep="\t")
    w = int(rnd(sums["wind"] / sums["minutes"]))
    print(name, "-", "lblAvgWind",
          ("TWC" if w >= 0 else "HWC") + " %d kt%s" % (abs(w), "" if abs(w) == 1 else "s"), sep="\t")


def show(name, rows):
    for i, row in enumerate(rows, 2):
        for field in ("TC", "Distanz", "DistanzAcc", "VAR", "TAS", "Wind", "GS", "MH", "Zeit", "ZeitDisplay",
                      "ZeitAcc", "FFh", "FFm", "FFmAcc"):
            value = row[field]
            print(name, i, field, value if isinstance(value, str) else "%.12g" % value, sep="\t")


def plan(name, points, var, flow, tas, direction, speed):
    rows, sums, distance, course = [], dict(minutes=0, fuel=0, wind=0), 0, 0
    for a, b in zip(points, points[1:]):
        length, course = leg(a, b, course)
        distance += length
        row = {"TC": whole(course), "Distanz": rnd(length, 2), "DistanzAcc": rnd(distance, 2), "VAR": var,
               "TAS": tas, "Windrichtung": direction, "Windstärke": speed, "FFh": flow}
        complete(row, length, flow, sums)
        rows.append(row)
    show(name, rows)
    totals(name, sums, distance)
    return rows


def edit(name, rows, number, **changes):
    rows[number - 2].update({k.replace("Windstaerke", "Windstärke"): v for k, v in changes.items()})
    sums = dict(minutes=0, fuel=0, wind=0)
    for row in rows:
        complete(row, row["Distanz"], row["FFh"], sums)
    show(name, rows)
    totals(name, sums)

#All round the compass, in the north - east; and across the meridian into the west, with a place twice.
ROUND = [(50.46, 7.08), (51.2, 7.3), (51.05, 8.15), (50.3, 8.0), (50.3, 6.3), (50.46, 7.08)]
WEST = [(49.12, 0.3), (48.3, -1.4), (48.3, -1.4), (47.0, -2.0), (49.0, -1.15)]
rows = plan("north", ROUND, -5, 20, 120, 124, 20)
edit("north edited", rows, 4, TAS=95, Windrichtung=345, Windstaerke=35.5, FFh=31, VAR=2.5)
rows = plan("west", WEST, 8, 17.5, 88.5, 360, 33)
edit("west edited", rows, 2, FFh=40)
