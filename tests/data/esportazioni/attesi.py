#!/usr/bin/env python3
# The expected exports of the example job, written from the formats' descriptions and the
# job's own point list examples/RILIEVO.L (name, description, East, North, height), never
# from the program. Run again only if the example job changes: /usr/bin/python3 attesi.py
from decimal import Decimal, ROUND_HALF_UP
import csv
import pathlib

qui = pathlib.Path(__file__).resolve().parent
radice = qui.parents[2]
with open(radice / "examples" / "RILIEVO.L", newline="", encoding="cp1252") as f:
    punti = [tuple(r) for r in csv.reader(f)][2:]


def dec(v, n=3):
    return str(Decimal(v).quantize(Decimal(1).scaleb(-n), rounding=ROUND_HALF_UP))


def scrivi(nome, righe):
    (qui / nome).write_bytes("".join(r + "\r\n" for r in righe).encode("cp1252"))


def gsi(p, i, tcr):
    nome, _, est, nord, quota = p

    def parola(v):
        if tcr:  # "00000.000", then sign and the digits without the point
            return "+" + dec(v).replace(".", "").zfill(8)
        return "+" + dec(v).replace(".", "").zfill(16)

    testa = ("11%04d+" % i if tcr else "*11%04d+00000000" % i) + nome[-8:].zfill(8)
    riga = testa + " 81..10" + parola(est) + " 82..10" + parola(nord) + " 83..10" + parola(quota)
    return riga if tcr else riga + " 71....+00000001 "


scrivi("RILIEVO.XYZ", ["%s %s %s" % (dec(e), dec(n), dec(q)) for _, _, e, n, q in punti])
scrivi("RILIEVO_4.XYZ", ["%s %s %s" % (dec(e, 4), dec(n, 4), dec(q, 4)) for _, _, e, n, q in punti])
scrivi("RILIEVO.CSV", [",".join([a, dec(n), dec(e), dec(q), d]) for a, d, e, n, q in punti])
scrivi("RILIEVO.RAW", [",".join([a, dec(e), dec(n), dec(q), d]) for a, d, e, n, q in punti])
scrivi("RILIEVO.PUN", [",".join([a, dec(n), dec(e), dec(q), d]) + "," for a, d, e, n, q in punti])
scrivi("RILIEVO.GSI", [gsi(p, i + 1, False) for i, p in enumerate(punti)])
scrivi("RILIEVO_TCR705.GSI", [gsi(p, i + 1, True) for i, p in enumerate(punti)])
per_nord = sorted(punti, key=lambda p: -float(p[3]))
scrivi("RILIEVO_NORD.GSI", [gsi(p, i + 1, False) for i, p in enumerate(per_nord)])
ril = []
for a, d, e, n, q in punti:
    ril += ["5=" + a, "4=" + d, "37=" + dec(n), "38=" + dec(e)]
scrivi("RILIEVO.RIL", ril)
