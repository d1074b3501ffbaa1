#!/usr/bin/env python3
"""Writes a realistic map extract and what a surveyor reads on it, from the sheet's geometry
and its legend rather than from the program:

  F12.EMP      the extract: a grid of 20 x 10 vertices 20 m apart, three of them fiducial
               points, and 60 parcels on the cells of its first 12 columns and 5 rows, each
               walked clockwise, so that two neighbours meet their common side in opposite
               directions; then other chains, a measured distance, labels and the frame row.
               CR LF ends, the last row ended too.
  atteso.txt   one element a line, in the order drawn: primitive, X1, Y1, X2, Y2, pen, line
               type, width, height, rotation, text, font, separated by TAB. The sides of the
               parcels once each in the order first walked, the other chains, the measured
               distance, the fiducial points and the texts.
Run it again after a change and commit the two files.
"""
import math
import os

PENNA = 5


def nome(i, j):
    return {(0, 0): "PF01", (19, 0): "PF02", (0, 9): "PF03"}.get((i, j), "V%03d" % (j * 20 + i + 1))


def X(i):
    return 1000.0 + 20.0 * i


def Y(j):
    return 5000.0 + 20.0 * j


def f6(v):
    return "%.6f" % v


righe = ["0|ESTRATTO DI MAPPA|G693|12|", "6|ESTRATTO DI MAPPA|"]
for j in range(10):
    for i in range(20):
        # Some names carry the sheet's "%", which rows 7 leave out.
        segno = "%" if (j * 20 + i) % 10 == 9 else ""
        righe.append("8|%s%s|%s|%s|0|" % (nome(i, j), segno, f6(Y(j)), f6(X(i))))
k = 0
for j in range(5):
    for i in range(12):
        a, b, c, d = nome(i, j), nome(i, j + 1), nome(i + 1, j + 1), nome(i + 1, j)
        if k % 4 == 3:  # some parcels in two pieces
            righe += ["7|5|%s|%s|%s|" % (a, b, c), "7|0|%s|%s|%s|NC|" % (c, d, a)]
        else:
            righe.append("7|5|%s|%s|%s|%s|%s|NC|" % (a, b, c, d, a))
        k += 1
righe += ["7|2|%s|%s|NT|" % (nome(14, 7), nome(15, 7)),
          "7|3|%s|%s|%s|NP|" % (nome(14, 8), nome(15, 8), nome(16, 8)),
          "7|2|%s|%s|+|" % (nome(14, 9), nome(15, 9)),
          "7|2|%s|%s|-|" % (nome(16, 9), nome(17, 9)),
          "7|2|%s|%s|NC|" % (nome(17, 7), nome(16, 7)),
          "7|2|%s|%s|NC|" % (nome(16, 7), nome(17, 7)),
          "6|DISTANZA|%s|%s|100.00|" % (nome(0, 7), nome(5, 7))]
for p in range(60):
    righe.append("6|%d|T|%s|%s|" % (p + 1, f6(Y(p // 12) + 10), f6(X(p % 12) + 10)))
righe += ["6|FOGLIO 12|%|5190|1100|", "6|A|L|" + nome(18, 8) + "|", "6|X|S|5170|1300|6|50|",
          "6|INQUADRAMENTO|5300.5|990.25|0.25|"]

attesi = []


def elemento(prim, x1, y1, x2, y2, tratto=0, spessore=1.0, altezza=0.0, rot=0.0, testo="", font=""):
    attesi.append((prim, x1, y1, x2, y2, PENNA, tratto, spessore, altezza, rot, testo, font))


def lato(stile, i1, j1, i2, j2):
    # The smaller name first; pens, styles and widths as the sheet's legend gives them.
    if nome(i2, j2) < nome(i1, j1):
        i1, j1, i2, j2 = i2, j2, i1, j1
    elemento(2, X(i1), Y(j1), X(i2), Y(j2), tratto={0: 1, 5: 2}.get(stile, 0),
             spessore=2.0 if stile in (3, 4) else 1.0)


def scritta(testo, x, y, h, font, rot=0.0):
    # A text runs 0.6 of its height a character, along its rotation in gon.
    l, a = 0.6 * h * len(testo), rot * 3.14159265358979323846 / 200.0
    elemento(5, x, y, x + l * math.cos(a), y + l * math.sin(a), altezza=h, rot=rot, testo=testo, font=font)


visti = set()
for j in range(5):
    for i in range(12):
        giro = [(i, j), (i, j + 1), (i + 1, j + 1), (i + 1, j), (i, j)]
        for k in range(4):
            chiave = tuple(sorted((nome(*giro[k]), nome(*giro[k + 1]))))
            if chiave not in visti:
                visti.add(chiave)
                lato(1, *giro[k], *giro[k + 1])
for l in [(0, 14, 7, 15, 7), (5, 14, 8, 15, 8), (5, 15, 8, 16, 8), (3, 14, 9, 15, 9), (4, 16, 9, 17, 9),
          (1, 16, 7, 17, 7), (0, 0, 7, 5, 7)]:
    lato(*l)
scritta("100.00", 1050.0, 5140.0, 2.0, "Arial")
for i, j in [(0, 0), (19, 0), (0, 9)]:
    elemento(0, X(i), Y(j), X(i), Y(j), altezza=1.0)  # the ring of a fiducial point
    scritta(nome(i, j), X(i) + 1.5, Y(j) + 1.5, 2.0, "Arial")
for p in range(60):
    scritta(str(p + 1), X(p % 12) + 10, Y(p // 12) + 10, 3.0, "Arial")
scritta("FOGLIO 12", 1100.0, 5190.0, 4.0, "Courier New")
scritta("A", X(18), Y(8), 2.0, "Arial")
scritta("X", 1300.0, 5170.0, 6.0, "Courier New", 50.0)

qui = os.path.dirname(os.path.abspath(__file__))
with open(os.path.join(qui, "F12.EMP"), "wb") as f:
    f.write("".join(r + "\r\n" for r in righe).encode("cp1252"))
with open(os.path.join(qui, "atteso.txt"), "w", newline="\n") as f:
    for e in attesi:
        f.write("\t".join(repr(v) if isinstance(v, float) else str(v) for v in e) + "\n")
