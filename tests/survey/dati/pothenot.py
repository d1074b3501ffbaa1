#!/usr/bin/python3
# Expected values of the resection tests: the station is chosen first, the three known
# points around it, and the two angles the instrument would read are worked forward from
# atan2 of the sights (clockwise from North, in gon). The program must find the station back.
# Also the station of a figure on the circle through its three points: the dangerous circle.
import random
from math import atan2, pi, cos, sin, hypot

def az(s, p):
    a = atan2(p[0] - s[0], p[1] - s[1]) * 200 / pi
    return a + 400 if a < 0 else a

def angoli(s, p1, p2, p3):
    return (az(s, p2) - az(s, p1)) % 400, (az(s, p3) - az(s, p2)) % 400

def caso(nome, s, p):
    al, be = angoli(s, *p)
    print("%s: P1=(%.10f, %.10f) P2=(%.10f, %.10f) P3=(%.10f, %.10f) alfa=%.12f beta=%.12f S=(%.4f, %.4f)"
          % (nome, p[0][0], p[0][1], p[1][0], p[1][1], p[2][0], p[2][1], al, be, s[0], s[1]))

# A figure of the grid: three trigonometric points on the hills round a station in the valley.
E0, N0 = 1700000.0, 5000000.0
s = (E0 + 1234.5670, N0 + 2345.6780)
caso("griglia", s, [(E0 + 612.4100, N0 + 3890.1200), (E0 + 2950.7300, N0 + 3105.3300), (E0 + 2011.0500, N0 + 405.9800)])
# The same figure beside the origin.
caso("origine", (1234.5670, 2345.6780), [(612.4100, 3890.1200), (2950.7300, 3105.3300), (2011.0500, 405.9800)])

# A random figure kept only when well shaped: the points spread round the station, and the
# station far from the circle through them.
random.seed(20261123)
while True:
    s = (random.uniform(-500, 500), random.uniform(-500, 500))
    p = [(s[0] + r * sin(t), s[1] + r * cos(t)) for r, t in
         [(random.uniform(200, 900), random.uniform(0, 2 * pi)) for _ in range(3)]]
    (ax, ay), (bx, by), (cx, cy) = p
    d = 2 * (ax * (by - cy) + bx * (cy - ay) + cx * (ay - by))
    if abs(d) < 1e3: continue
    ux = ((ax*ax + ay*ay) * (by - cy) + (bx*bx + by*by) * (cy - ay) + (cx*cx + cy*cy) * (ay - by)) / d
    uy = ((ax*ax + ay*ay) * (cx - bx) + (bx*bx + by*by) * (ax - cx) + (cx*cx + cy*cy) * (bx - ax)) / d
    r = hypot(ax - ux, ay - uy)
    al, be = angoli(s, *p)
    if abs(hypot(s[0] - ux, s[1] - uy) - r) > 0.3 * r and 30 < al < 170 and 30 < be < 170: break
p = [(round(x, 4), round(y, 4)) for x, y in p]
caso("casuale", (round(s[0], 4), round(s[1], 4)), p)

# The dangerous circle: the station on the circle of centre (100, 100) and radius 50
# through the three points.
def sul(t): return (100 + 50 * sin(t * pi / 200), 100 + 50 * cos(t * pi / 200))
caso("pericoloso", sul(250), [sul(0), sul(90), sul(160)])
