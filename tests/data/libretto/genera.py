#!/usr/bin/env python3
"""Writes the field book of a real-sized survey, byte by byte, and what a surveyor expects
the drawing to take from it, from the intent of each row rather than from the program:

  RILIEVO.TXT   the book: CR LF ends, Windows-1252
  punti.txt     name TAB east TAB north TAB height: the job's points
  atteso.txt    SETTE TAB kind TAB vertices TAB label   records, in order of creation
                HP TAB name TAB height                  prism heights after the book
                DESC TAB name TAB description           tags after the book
                LINK TAB station TAB point              lines of the scheme, in order
Run it again after a change and commit the three files.
"""
import os

righe, punti = [], {}
hp, tag, legami, sette = {}, {}, [], []


def punto(nome):
    k = len(punti)
    punti.setdefault(nome, (1000.0 + 7 * k, 2000.0 + 3 * (k % 17), 10.0 + k % 5))


def etichetta(nome, t):
    tag.setdefault(nome, set()).add(t)


righe.append("0|010199|1|G693|0010|1|ROSSI MARIO|GEOMETRA|PADOVA|")
righe.append("9|20|10|20|1070|9.00-G|FR|rilievo celerimetrico|")
righe.append("6|<EST>ESTRATTO01|")
righe.append("6|<COD>ABC123|")
righe.append("6|<ISC>42|")
for pf in ("PF01/0010/G693", "PF02/0010/G693"):
    punto(pf)
    righe.append(f"8|{pf}|5031200.000|1725100.000|")

# Four stations of 55 readings each: the points of a station's hundred-block carry no link
# of the scheme; other stations, fiducial points and the odd names do.
extra = {100: ["205", "PF09/0010/G693"], 200: ["1000"], 300: ["3001"], 400: []}
for s in (100, 200, 300, 400):
    punto(str(s))
    h = f"1.{500 + s // 100:03d}"
    righe.append(f"1|{s}|{h}|")
    hp[str(s)] = h
    for i in range(1, 56):
        n = str(s + i)
        punto(n)
        az, zen, d, pr = f"{(i * 7.1234) % 400:.4f}", f"{99 + i / 100:.4f}", f"{10 + i * 1.37:.3f}", f"1.{300 + i % 5 * 100:03d}"
        k = i % 11
        if k == 3:  # plan reading: no zenith, no prism
            righe.append(f"2|{n}|{az}|{d}|")
            etichetta(n, "<P!>")
        elif k == 5:  # plan reading of no distance, with a note
            righe.append(f"2|{n}|{az}|0|direzione|")
            etichetta(n, "<P!>")
            etichetta(n, "<00>")
        elif k == 7:  # full reading of no distance
            righe.append(f"2|{n}|{az}|{zen}|0|{pr}|")
            etichetta(n, "<00>")
            hp[n] = pr
        elif k == 9:  # full reading with a note
            righe.append(f"2|{n}|{az}|{zen}|{d}|{pr}|spigolo|")
            hp[n] = pr
        else:
            righe.append(f"2|{n}|{az}|{zen}|{d}|{pr}|")
            hp[n] = pr
    # The next station, the fiducial points and the odd names: all tied by the scheme.
    others = [str(s + 100)] + ["PF01/0010/G693", "PF02/0010/G693"] + extra[s]
    for n in others:
        righe.append(f"2|{n}|123.4567|100.1234|250.000|1.800|")
        if n != "PF09/0010/G693":  # no such point: its link is skipped
            punto(n)
            hp[n] = "1.800"
            legami.append((str(s), n))
righe.append("1|500|stazione nord|")  # a station of no height
punto("500")
etichetta("500", "<P!>")
# A row with commas is of another form: no height, no tag, no link comes of it.
righe.append("2|150|12,5|100|30,2|9.999|")

righe.append("3|1|100|200|300|400|100|")
sette.append(("POLIGONALE", "|100|200|300|400|100|", ""))

# Contours with every line code, one title each.
codici = ["NC", "NT", "NP", "RC", "RT", "RP", "VC", "VT", "VP"]
for j, c in enumerate(codici):
    b = 100 * (j % 4 + 1) + 20 + j
    v = [str(b + q) for q in range(4)] + [str(b)]
    righe.append(f"6|FABBRICATO {j + 1}|")
    righe.append("7|%d|%s|%s|" % (len(v), "|".join(v), c))
    sette.append((f"FABBRICATO {j + 1}", "|" + "|".join(v) + f"|{c}|", ""))
righe.append("6|CONFINE|")
righe.append("7|3|110|111|112|")
righe.append("7|0|113|114|RT|")
sette.append(("CONFINE", "|110|111|112|113|114|RT|", ""))
righe.append("6|RECINZIONE|")
righe.append("7|0|120|121|")
righe.append("7|0|122|NP|")
sette.append(("RECINZIONE", "|120|121|122|NP|", ""))
righe.append("7|1|130|PV|")
etichetta("130", "<PV>")
righe.append("7|1|131|pd|")
etichetta("131", "<PD>")
righe.append("6|DUE|")
righe.append("7|3|140|141|142|NC|")
righe.append("7|3|143|144|145|RC|")
sette.append(("DUE", "|140|141|142|NC|", ""))
sette.append(("DUE", "|143|144|145|RC|", ""))

# A right-angle traverse marked "*S*"; the point read twice is listed once. A start that is
# not marked opens none.
righe.append("4|201|202|0.000|*S*|")
for n in ("203", "204", "203"):
    righe.append(f"5|{n}|10.000|2.000|0.000|")
sette.append(("SQUADRO", "|201|202|203|204|", "*S*"))
righe.append("4|301|302|0.000|12.500|")
righe.append("5|303|10.000|2.000|0.000|")

# Levellings: from the middle between two points, and a fan from the first.
righe.append("4|100|200|1.234|1.100|0.134|")
for n in ("101", "102", "103"):
    righe.append(f"5|{n}|1.200|0.300|")
righe.append("4|300|400|1.000|1.000|0.000|")
sette.append(("LIVELLAZIONE DAL MEZZO", "|100|200|", ""))
sette.append(("LIVELLAZIONE DAL MEZZO", "|300|400|", ""))
sette.append(("LIVELLAZIONE RAGGIANTE", "|100|101|102|103|", ""))

# Rows nobody reads, and long notes that hold "|" and a letter of the code page.
righe.append("X|riga sconosciuta|")
righe.append("12|a|b|")
righe.append("6|proprietà Bianchi: confine | lato nord | verso il fosso demaniale|")

qui = os.path.dirname(os.path.abspath(__file__))
with open(os.path.join(qui, "RILIEVO.TXT"), "wb") as f:
    f.write("".join(r + "\r\n" for r in righe).encode("cp1252"))
with open(os.path.join(qui, "punti.txt"), "w") as f:
    for n, (x, y, z) in punti.items():
        f.write(f"{n}\t{x}\t{y}\t{z}\n")
with open(os.path.join(qui, "atteso.txt"), "w") as f:
    for k, c, p in sette:
        f.write(f"SETTE\t{k}\t{c}\t{p}\n")
    for n, h in hp.items():
        f.write(f"HP\t{n}\t{h}\n")
    ordine = ["<P!>", "<00>", "<PV>", "<PD>"]
    for n in punti:
        f.write(f"DESC\t{n}\t{''.join(t for t in ordine if t in tag.get(n, ()))}\n")
    for a, b in legami:
        f.write(f"LINK\t{a}\t{b}\n")
