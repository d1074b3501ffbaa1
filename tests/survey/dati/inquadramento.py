#!/usr/bin/python3
# Expected values of the framing test on five fiducials. The survey is made from the
# official points: moved back by a known turn and shift, plus a few millimetres of noise
# (fixed seed). The best fit is found here by the singular value decomposition of the
# cross-covariance (Kabsch, and Umeyama for the scale), not by the program's closed form on
# the angle; the residuals are official minus framed.
import numpy as np

ufficiali = np.array([[1523.417, -2310.255], [2840.902, -1977.61], [2105.33, -640.125],
                      [980.06, -1104.8], [2410.75, -2950.4]])        # East, North
giro = 0.7318                  # radians, clockwise, survey -> official
sposta = np.array([1500.25, -1750.5])
rng = np.random.default_rng(20261124)
rumore = np.round(rng.normal(0, 0.004, ufficiali.shape), 4)

def ruota(p, r):               # clockwise by r, as azimuths grow
    c, s = np.cos(r), np.sin(r)
    return np.column_stack([p[:, 0] * c + p[:, 1] * s, -p[:, 0] * s + p[:, 1] * c])

rilievo = np.round(np.round(ruota(ufficiali - sposta, -giro), 4) + rumore, 4)

def adatta(p, q, scala):
    cp, cq = p.mean(0), q.mean(0)
    h = (p - cp).T @ (q - cq)
    u, sv, vt = np.linalg.svd(h)
    d = np.sign(np.linalg.det(vt.T @ u.T))
    r = vt.T @ np.diag([1, d]) @ u.T                 # q ~ r p
    s = (sv * [1, d]).sum() / ((p - cp) ** 2).sum() if scala else 1.0
    return lambda x: (s * (r @ (x - cp).T)).T + cq, np.arctan2(r[0, 1], r[0, 0]), s

print("rilievo (Est, Nord):")
for e, n in rilievo: print("  {%.4f, %.4f}," % (e, n))
for scala in (False, True):
    f, rot, s = adatta(rilievo, ufficiali, scala)
    res = ufficiali - f(rilievo)
    dist = np.hypot(res[:, 0], res[:, 1])
    print("scala" if scala else "rigida", "rotazione %.12f scala %.12f sqm %.9f" % (rot, s, np.sqrt((dist ** 2).mean())))
    for (de, dn), d in zip(res, dist): print("  {%.9f, %.9f, %.9f}," % (dn, de, d))
# The fourth point left out.
usati = [0, 1, 2, 4]
f, rot, s = adatta(rilievo[usati], ufficiali[usati], False)
res = ufficiali - f(rilievo)
print("senza il quarto: rotazione %.12f sqm %.9f" % (rot, np.sqrt((np.hypot(res[usati, 0], res[usati, 1]) ** 2).mean())))
for de, dn in res: print("  {%.9f, %.9f, %.9f}," % (dn, de, np.hypot(de, dn)))
