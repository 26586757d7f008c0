#!/usr/bin/env python3
"""What the leg displays must show in each redraw of a recorded flight along a route.

The numbers in RouteFlightTest.cpp come from here. This file shares nothing with the program: it goes through
the sentences, redraws at the first position with a fix and at every 21st after it, and computes distance,
course, time to go, remaining distance and the active point from the formulas.

  ornivane-receiver --fly POINTS --speed 200 --altitude 1000 --descent 700 --start 2024-05-01T09:30:00 \\
                    --write flight.nmea
  route-flight.py flight.nmea 50.36,6.30 50.408,6.39 50.48,6.39 50.456,6.282 50.528,6.27

POINTS are those of the test. The points of the route follow in flying order, latitude and longitude as the store
holds them: whole degrees, then minutes as decimals (50.408 is 50 degrees 40.8 minutes). One line per redraw:
  number | active point before and after it | lblDistanz | lblTrueBearing | lblTime | lblRemDist
"""
import sys
from decimal import ROUND_HALF_UP, Decimal
from math import atan, cos, floor, sin, sqrt

PI = 3.14159265  # as short as the program's: a better one changes the last digits
FIRST, EVERY = -1, 20  # start of the count; above it there is a redraw


def degrees(deg_min):
    return floor(deg_min) + (deg_min - floor(deg_min)) * 10 / 6


def radians(x):
    return x * PI / 180


def arccos(x):
    return atan(-x / sqrt(-x * x + 1)) + 2 * atan(1) if abs(x) < 1 else 0


def angle(a, b):
    return arccos(sin(a[0]) * sin(b[0]) + cos(a[0]) * cos(b[0]) * cos(b[1] - a[1]))


def miles(a, b):
    return angle(a, b) * 60 * 180 / PI


def course(a, b):
    d = angle(a, b)
    east = a[1] < b[1]
    here, there = (a, b) if east else (b, a)  # westbound it is measured at the target
    x = (sin(there[0]) - cos(d) * sin(here[0])) / (sin(d) * cos(here[0]))
    return (180 if x <= -1 else arccos(x) * 180 / PI) + (0 if east else 180)


def picture(x, places):
    exact = Decimal("%.14e" % x)
    return str(exact.quantize(Decimal(1).scaleb(-places), ROUND_HALF_UP))


def time_to_go(distance, speed):
    hours = distance / speed if speed > 10 else 0
    whole = int(hours)
    minutes = int((hours - whole) * 60)
    if whole == 0 and minutes == 0:
        return "00:" + picture(hours * 3600, 0).zfill(2)
    return "%02d:%02d" % (whole, minutes)


class Flight:
    def __init__(self, route):
        self.route = route
        self.active = 0  # None when the route has ended
        self.last = 0.0
        self.chosen = True  # by hand, and nothing computed for it since: it cannot be passed yet
        self.shown = ["", "", "", ""]
        self.speed = None  # as the label shows it
        self.fix = False
        self.count = FIRST
        self.redraws = 0

    def sentence(self, fields):
        kind = fields[0][3:]
        if kind == "RMC":
            self.fix = fields[2] == "A"
            self.position(fields[3:7])
            if self.fix:
                self.speed = int(picture(float(fields[7]), 0))
        elif kind == "GGA":
            self.position(fields[2:6])
        elif kind == "GLL":
            self.position(fields[1:5])

    def position(self, fields):
        if not self.fix:
            return
        assert fields[1] == "N" and fields[3] == "E"
        self.here = [radians(degrees(float(fields[i]) / 100)) for i in (0, 2)]
        self.count += 1
        if self.count == 0:
            self.redraw()
        if self.count > EVERY:
            self.redraw()
            self.count = 0

    def redraw(self):
        self.redraws += 1
        before = self.active
        if before is None:
            return
        target = self.route[before]
        if target != self.here:
            distance = miles(self.here, target)
            if not self.chosen and distance < 5 and -1 < self.last - distance < 0:
                self.active = before + 1 if before + 1 < len(self.route) else None
            self.chosen = False
            self.last = distance
            self.shown[0] = picture(distance, 1) + " NM"
            self.shown[1] = picture(course(self.here, target), 0) + " °"
            self.shown[2] = time_to_go(distance, self.speed or 0)
        # The row stays on the last point when the route ends.
        row = self.active if self.active is not None else before
        legs = zip(self.route[row:], self.route[row + 1:])
        self.shown[3] = picture(self.last + sum(miles(a, b) for a, b in legs), 1) + " NM"
        after = "end" if self.active is None else str(self.active + 1)
        print(self.redraws, "%d>%s" % (before + 1, after), *self.shown, sep=" | ")


def main():
    points = [p.split(",") for p in sys.argv[2:]]
    flight = Flight([[radians(degrees(float(x))) for x in p] for p in points])
    with open(sys.argv[1], encoding="ascii") as lines:
        for line in lines:
            flight.sentence(line.split("*")[0].split(","))


main()
