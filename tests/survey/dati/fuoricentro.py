#!/usr/bin/python3
# Expected values of the eccentric-station test, worked forward: the instrument stands at S,
# 2.35 m from the centre C, its circle turned by an arbitrary 123.4567 gon; the directions it
# reads to C and to three orientation points are the azimuths from S (atan2) plus that turn.
# The reduction must give S back from each point, S as the mean, and as orientation
# correction the turn taken back (azimuth = reading + C.O.).
from math import atan2, hypot, pi, sin, cos

E0, N0 = 1700000.0, 5000000.0
C = (E0 + 1000.0, N0 + 2000.0)
E = 2.35
dr = 137.5                     # azimuth from C to S, gon
S = (C[0] + E * sin(dr * pi / 200), C[1] + E * cos(dr * pi / 200))
giro = 123.4567
O = [("O1", E0 + 1350.8, N0 + 2410.3), ("O2", E0 + 620.45, N0 + 2205.7), ("O3", E0 + 1105.0, N0 + 1480.25)]

def az(a, b):
    g = atan2(b[0] - a[0], b[1] - a[1]) * 200 / pi
    return g + 400 if g < 0 else g

print("Centro C Nord %.4f Est %.4f direzione %.10f" % (C[1], C[0], (az(S, C) + giro) % 400))
for n, x, y in O:
    print("%s Nord %.4f Est %.4f direzione %.10f distanza %.4f azimut %.4f" %
          (n, y, x, (az(S, (x, y)) + giro) % 400, hypot(x - C[0], y - C[1]), az(C, (x, y))))
print("S Nord %.5f Est %.5f  D.R. %.4f  C.O. %.4f" % (S[1], S[0], dr, (-giro) % 400))
