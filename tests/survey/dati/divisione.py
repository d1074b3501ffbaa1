#!/usr/bin/python3
# Expected values of the area-division test, by clipping instead of the program's walk along
# the sides: the parcel is cut by the half-plane left of a line of azimuth 50 gon through P
# (Sutherland-Hodgman), the pieces measured by the shoelace. A bisection on the offset of P
# finds where the part is one third of the whole; the test clicks P there.
from math import sin, cos, pi

E0, N0 = 1700000.0, 5000000.0
parcella = [(10.0, 5.0), (95.5, 12.25), (120.75, 60.5), (80.0, 110.0), (35.5, 96.0), (2.0, 48.75)]
parcella = [(x + E0, y + N0) for x, y in parcella]
az = 50 * pi / 200
u = (sin(az), cos(az))            # along the line
m = (cos(az), -sin(az))           # square to its right

def area(poly):
    s = 0.0
    x0, y0 = poly[0]
    for (x1, y1), (x2, y2) in zip(poly, poly[1:] + poly[:1]):
        s += (x1 - x0) * (y2 - y0) - (x2 - x0) * (y1 - y0)
    return abs(s) / 2

def sinistra(poly, p):
    # the piece whose points lie left of the line through p (offset along m below 0)
    d = lambda q: (q[0] - p[0]) * m[0] + (q[1] - p[1]) * m[1]
    out = []
    for a, b in zip(poly, poly[1:] + poly[:1]):
        da, db = d(a), d(b)
        if da <= 0: out.append(a)
        if (da < 0) != (db < 0) and da != db:
            f = da / (da - db)
            out.append((a[0] + (b[0] - a[0]) * f, a[1] + (b[1] - a[1]) * f))
    return out

tot = area(parcella)
base = (E0 + 60.0, N0 + 55.0)      # a point inside the parcel
def a_offset(t):
    p = (base[0] + t * m[0], base[1] + t * m[1])
    return p, area(sinistra(parcella, p))
lo, hi = -80.0, 80.0
for _ in range(200):
    mid = (lo + hi) / 2
    if a_offset(mid)[1] < tot / 3: lo = mid
    else: hi = mid
p, a = a_offset(lo)
print("totale %.4f terzo %.4f due_terzi %.4f" % (tot, tot / 3, 2 * tot / 3))
print("P = (%.10f, %.10f) left area %.4f" % (p[0], p[1], a))
# one step of 0.5 m North from there: the line moves, the left piece shrinks
p2 = (p[0], p[1] + 0.5)
print("after North +0.5: left %.4f right %.4f" % (area(sinistra(parcella, p2)), tot - area(sinistra(parcella, p2))))
