#!/usr/bin/python3
# Writes the sample drawings with ezdxf, reads them back with ezdxf and writes, for each,
# the rows a job must hold after importing every kind and layer: `attesi.txt`. The rows
# follow the documented rules of the importer (kinds in their fixed order, layers cut to 8
# characters, text heights doubled, angles in gon clockwise from North, polylines as
# chords, closed only by a last group 70 of exactly 1), computed here from what ezdxf
# reads, not by the program under test. Run with /usr/bin/python3 from this folder.
import math
import ezdxf

def disegni():
    d = ezdxf.new('R12')
    m = d.modelspace()
    m.add_line((1725100.25, 5031200.5), (1725110.75, 5031190.125), dxfattribs={'layer': 'STRADE'})
    m.add_line((10, 20, 3.5), (30, 40, 4.5), dxfattribs={'layer': 'LIVELLO_LUNGO_9'})
    m.add_polyline2d([(0, 0), (10, 0), (10, 10)], close=True, dxfattribs={'layer': 'P2'})
    m.add_polyline3d([(0, 0, 1), (5, 0, 2), (5, 5, 3), (0, 5, 4)], dxfattribs={'layer': 'P3'})
    m.add_text('perché', dxfattribs={'layer': 'TESTI', 'height': 1.5, 'rotation': 30,
                                      'insert': (100, 200, 0)})
    m.add_circle((50, 60, 7), 2.5, dxfattribs={'layer': 'C'})
    m.add_arc((70, 80), 4, 10, 100, dxfattribs={'layer': 'A'})
    m.add_arc((71, 81), 3, 300, 45, dxfattribs={'layer': 'A'})
    m.add_point((1.5, 2.5, 3.5), dxfattribs={'layer': 'PUNTI'})
    m.add_point((4, 5, 6), dxfattribs={'layer': 'PUNTI'})
    yield 'r12_lf.dxf', d, '\n'

    d = ezdxf.new('R2000')
    m = d.modelspace()
    m.add_lwpolyline([(0, 0), (3, 0), (3, 4), (0, 4)], dxfattribs={'layer': 'LOTTO'})
    m.add_lwpolyline([(10, 10, 0, 0, 0.5), (20, 10, 0, 0, -1), (20, 20)], format='xyseb', close=True,
                     dxfattribs={'layer': 'CURVE'})
    m.add_line((-5.5, -6.25), (7, 8), dxfattribs={'layer': 'STRADE'})
    m.add_text('Città', dxfattribs={'layer': 'TESTI', 'height': 2, 'insert': (1, 2)})
    m.add_text('Lungo', dxfattribs={'layer': 'TESTI', 'height': 0.5, 'rotation': 90, 'insert': (3, 4)})
    yield 'r2000_crlf.dxf', d, '\r\n'

    d = ezdxf.new('R2018')
    m = d.modelspace()
    m.add_text('Quota 12,5 Ω', dxfattribs={'layer': 'Ω-testi', 'height': 1, 'insert': (5, 6)})
    m.add_line((0, 0, 0), (1, 1, 1), dxfattribs={'layer': '0'})
    m.add_circle((0, 0), 1)
    m.add_arc((2, 2, 1), 1, 0, 270)
    m.add_point((9, 8, 7))
    m.add_lwpolyline([(0, 0), (1, 0), (1, 1)])
    yield 'r2018.dxf', d, '\r\n'

def n(v):
    return repr(float(v))

def righe(doc):
    msp = list(doc.modelspace())
    fuori = []
    taglia = lambda p: p[:8]
    for e in msp:
        if e.dxftype() != 'POLYLINE':
            continue
        vv = [v.dxf.location for v in e.vertices]
        ultimo70 = e.vertices[-1].dxf.flags if len(vv) else e.dxf.flags
        for a, b in zip(vv, vv[1:]):
            fuori.append(['L', n(a[0]), n(a[1]), n(a[2]), n(b[0]), n(b[1]), n(b[2]), taglia(e.dxf.layer)])
        if len(vv) >= 3 and ultimo70 == 1:
            a, b = vv[-1], vv[0]
            fuori.append(['L', n(a[0]), n(a[1]), n(a[2]), n(b[0]), n(b[1]), n(b[2]), taglia(e.dxf.layer)])
    for e in msp:
        if e.dxftype() != 'LWPOLYLINE':
            continue
        vv = list(e.vertices())
        for a, b in zip(vv, vv[1:]):
            fuori.append(['L', n(b[0]), n(b[1]), n(0), n(a[0]), n(a[1]), n(0), taglia(e.dxf.layer)])
    for e in msp:
        if e.dxftype() == 'LINE':
            a, b = e.dxf.start, e.dxf.end
            fuori.append(['L', n(a[0]), n(a[1]), n(a[2]), n(b[0]), n(b[1]), n(b[2]), taglia(e.dxf.layer)])
    for e in msp:
        if e.dxftype() == 'POINT':
            p = e.dxf.location
            fuori.append(['P', n(p[0]), n(p[1]), n(p[2]), taglia(e.dxf.layer)])
    for e in msp:
        if e.dxftype() == 'TEXT':
            p = e.dxf.insert
            gon = 400 - e.dxf.rotation / 0.9
            fuori.append(['T', n(p[0]), n(p[1]), n(2 * e.dxf.height), n(gon), taglia(e.dxf.layer), e.dxf.text])
    for e in msp:
        if e.dxftype() == 'CIRCLE':
            c = e.dxf.center
            fuori.append(['C', n(c[0]), n(c[1]), n(c[2]), n(e.dxf.radius), taglia(e.dxf.layer)])
    for e in msp:
        if e.dxftype() == 'ARC':
            c = e.dxf.center
            # Degrees counter-clockwise from East to gon clockwise from North, a quarter turn
            # on and not brought into one turn; the sweep from end to start, made positive.
            az = lambda g: 500 - g / 0.9
            inizio, fine = az(e.dxf.end_angle), az(e.dxf.start_angle) - az(e.dxf.end_angle)
            if fine < 0:
                fine += 400
            fuori.append(['A', n(c[0]), n(c[1]), n(c[2]), n(e.dxf.radius), n(inizio), n(fine), taglia(e.dxf.layer)])
    return fuori

with open('attesi.txt', 'w', encoding='utf-8', newline='\n') as attesi:
    for nome, doc, fine in disegni():
        doc.saveas(nome)
        testo = open(nome, 'rb').read()
        if fine == '\r\n':
            testo = testo.replace(b'\r\n', b'\n').replace(b'\n', b'\r\n')
        open(nome, 'wb').write(testo)
        letto = ezdxf.readfile(nome)
        attesi.write('# ' + nome + '\n')
        for r in righe(letto):
            attesi.write('\t'.join(r) + '\n')
