#!/usr/bin/python3
"""Makes the demonstration map extract F12 over the example job: F12.EMP, the vector sheet
(named vertices, parcels, their numbers, the three fiducial points of the job), and F12.PNG,
its raster at half a metre a pixel. Run from this folder; the output is the same every run."""
import math
import struct
import zlib

X0, Y0, SCALA, LATO = 1725000.0, 5031600.0, 0.5, 1500   # top-left corner, m/pixel, pixels
PASSO, N = 25.0, 30                                     # a grid of 31 x 31 vertices
FIDUCIALI = [("PF01/0010/G693", 1725117.59, 5031465.33), ("PF02/0010/G693", 1725612.775, 5031398.64),
             ("PF03/0010/G693", 1725395.12, 5030958.095)]


def vertice(i, j):
    # A regular grid bent a little, as parcels are.
    x = X0 + PASSO * i + 3.0 * math.sin(1.7 * i + 2.3 * j)
    y = Y0 - PASSO * j + 3.0 * math.cos(2.1 * i - 1.3 * j)
    return x, y


def nome(i, j):
    return "%d" % (1000 + j * (N + 1) + i)


righe = ["0|ESTRATTO DI MAPPA|G693|10|", "6|ESTRATTO DI MAPPA|"]
for j in range(N + 1):
    for i in range(N + 1):
        x, y = vertice(i, j)
        righe.append("8|%s|%.2f|%.2f|" % (nome(i, j), y, x))
for n, x, y in FIDUCIALI:
    righe.append("8|%s|%.3f|%.3f|" % (n, y, x))
particelle = []
k = 0
for j in range(N):
    for i in range(N):
        if (i, j) in ((4, 24), (5, 24)):
            continue  # a square left open
        giro = [nome(i, j), nome(i + 1, j), nome(i + 1, j + 1), nome(i, j + 1), nome(i, j)]
        k += 1
        if k % 5 == 0:
            righe.append("7|5|%s|" % "|".join(giro[:3]))
            righe.append("7|0|%s|NC|" % "|".join(giro[2:]))
        else:
            righe.append("7|5|%s|NC|" % "|".join(giro))
        xs = [vertice(a, b) for a, b in ((i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1))]
        particelle.append((100 + k, sum(p[0] for p in xs) / 4, sum(p[1] for p in xs) / 4))
# The road along the twentieth row of the grid, drawn dashed.
righe.append("7|%d|%s|NT|" % (N + 1, "|".join(nome(i, 20) for i in range(N + 1))))
for n, x, y in particelle:
    righe.append("6|%d|T|%.2f|%.2f|" % (n, y + 1.5, x - 3))
righe.append("6|FOGLIO 10|%%|%.2f|%.2f|" % (Y0 - 20, X0 + 20))
righe.append("6|INQUADRAMENTO|%.2f|%.2f|%.2f|" % (Y0, X0, SCALA))
with open("F12.EMP", "wb") as f:
    f.write(("\r\n".join(righe) + "\r\n").encode("cp1252"))

# The raster: paper, the parcels' sides in grey, a few buildings.
carta = bytearray(b"\xf4\xee\xdc" * (LATO * LATO))


def px(x, y):
    return (x - X0) / SCALA, (Y0 - y) / SCALA


def punto(c, r, colore):
    if 0 <= c < LATO and 0 <= r < LATO:
        o = 3 * (r * LATO + c)
        carta[o:o + 3] = colore


def linea(a, b, colore, spessore=1):
    (c1, r1), (c2, r2) = px(*a), px(*b)
    n = int(max(abs(c2 - c1), abs(r2 - r1))) + 1
    for t in range(n + 1):
        c, r = c1 + (c2 - c1) * t / n, r1 + (r2 - r1) * t / n
        for dc in range(-spessore, spessore + 1):
            for dr in range(-spessore, spessore + 1):
                punto(int(round(c)) + dc, int(round(r)) + dr, colore)


for j in range(N + 1):
    for i in range(N + 1):
        if i < N:
            linea(vertice(i, j), vertice(i + 1, j), b"\x70\x70\x70")
        if j < N:
            linea(vertice(i, j), vertice(i, j + 1), b"\x70\x70\x70")
for n, x, y in particelle[::7]:
    c0, r0 = px(x - 5, y + 3.5)
    for r in range(int(r0), int(r0) + 14):
        for c in range(int(c0), int(c0) + 20):
            punto(c, r, b"\xe8\xb4\xa8")

righe_png = b"".join(b"\0" + bytes(carta[3 * r * LATO:3 * (r + 1) * LATO]) for r in range(LATO))


def blocco(tipo, dati):
    return struct.pack(">I", len(dati)) + tipo + dati + struct.pack(">I", zlib.crc32(tipo + dati) & 0xFFFFFFFF)


with open("F12.PNG", "wb") as f:
    f.write(b"\x89PNG\r\n\x1a\n" + blocco(b"IHDR", struct.pack(">IIBBBBB", LATO, LATO, 8, 2, 0, 0, 0)) +
            blocco(b"IDAT", zlib.compress(righe_png, 9)) + blocco(b"IEND", b""))
