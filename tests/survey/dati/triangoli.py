#!/usr/bin/python3
# Expected values of the triangle solver's tests, by another route than the program's:
# the triangle is laid out by coordinates, its angles come from atan2 of the vertex vectors,
# its area from the shoelace, the radii from the incentre and the circumcentre, each
# altitude as the distance of a vertex from the line of the opposite side.
# Prints the texts typed into the boxes and the texts the boxes and the report must show.
from math import atan2, hypot, pi

A, B, C = (0.0, 0.0), (83.25, 0.0), (31.7, 46.4)

def gon(r): return r * 200 / pi
def lung(p, q): return hypot(q[0] - p[0], q[1] - p[1])
def angolo(v, p, q):  # at v between the directions to p and q
    a1 = atan2(p[1] - v[1], p[0] - v[0]); a2 = atan2(q[1] - v[1], q[0] - v[0])
    d = abs(a1 - a2)
    return gon(min(d, 2 * pi - d))
def dist_retta(p, a, b):
    ux, uy = (b[0] - a[0]) / lung(a, b), (b[1] - a[1]) / lung(a, b)
    return abs((p[0] - a[0]) * uy - (p[1] - a[1]) * ux)

a, b, c = lung(B, C), lung(C, A), lung(A, B)
al, be, ga = angolo(A, B, C), angolo(B, C, A), angolo(C, A, B)
area = abs((B[0] - A[0]) * (C[1] - A[1]) - (C[0] - A[0]) * (B[1] - A[1])) / 2
inc = ((a * A[0] + b * B[0] + c * C[0]) / (a + b + c), (a * A[1] + b * B[1] + c * C[1]) / (a + b + c))
r_in = dist_retta(inc, A, B)
# circumcentre: on the axis of AB (x = c/2), equidistant from A and C
cx = c / 2; cy = (C[0] ** 2 + C[1] ** 2 - 2 * cx * C[0]) / (2 * C[1])
r_cir = hypot(cx, cy)
h = [dist_retta(A, B, C), dist_retta(B, C, A), dist_retta(C, A, B)]

print("input   a=%.12f b=%.12f c=%.12f alfa=%.12f beta=%.12f gamma=%.12f" % (a, b, c, al, be, ga))
print("boxes   %.3f %.3f %.3f %.4f %.4f %.4f" % (a, b, c, al, be, ga))
print("area    %.3f" % area)
print("alt     %.3f %.3f %.3f" % tuple(h))
print("radii   %.3f %.3f" % (r_in, r_cir))
