#!/usr/bin/python3
# Expected rows of the staking-out test: azimuths by atan2 (clockwise from North, gon),
# distances by hypot, the angle to set = azimuth to the point - azimuth to the orientation +
# the reading on it, brought into 0..400. A point on the station takes the program's
# convention of an azimuth of 200 gon.
from math import atan2, hypot, pi

E0, N0 = 1700000.0, 5000000.0
S = (E0 + 500.0, N0 + 500.0)
O = (E0 + 640.25, N0 + 610.5)
punti = [("1", 512.3, 640.1), ("2", 610.0, 495.5), ("3", 480.75, 380.2), ("4", 350.0, 505.0),
         ("5", 420.4, 640.9), ("6", 500.0, 560.0), ("7", 560.0, 500.0), ("8", 500.0, 430.0),
         ("9", 500.0, 500.0), ("10", 655.55, 700.05)]

def az(a, b):
    if a == b: return 200.0
    g = atan2(b[0] - a[0], b[1] - a[1]) * 200 / pi
    return g + 400 if g < 0 else g

a0 = az(S, O)
for lettura in (350.0, 0.0):
    print("lettura %.4f direzione %.4f distanza %.3f" % (lettura, a0, hypot(O[0] - S[0], O[1] - S[1])))
    for n, x, y in punti:
        p = (E0 + x, N0 + y)
        ang = (az(S, p) - a0 + lettura) % 400
        print("%s\t%.3f\t%.3f\t%.4f\t%.3f" % (n, p[1], p[0], ang, hypot(p[0] - S[0], p[1] - S[1])))
