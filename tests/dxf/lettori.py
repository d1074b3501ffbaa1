#!/usr/bin/python3
# The DXF files the program writes, read by the programs users open them with: ezdxf (load
# and audit), GDAL (ogrinfo -al) and LibreCAD (dxf2pdf). The entities each reader finds, by
# kind and layer, are checked against what the job holds, as `varena-cli dump` lists it.
#
#   lettori.py VARENA-CLI EXAMPLE-JOB-FOLDER
#
# Exit 77 (skipped) with the reason when a reader is not installed.
import collections
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import zlib

SALTA = 77


def manca(motivo):
    print('SALTATO: ' + motivo)
    sys.exit(SALTA)


try:
    import ezdxf
except ImportError:
    manca('python3-ezdxf non installato (scripts/setup.sh lo installa)')
for programma, pacchetto in (('ogrinfo', 'gdal-bin'), ('librecad', 'librecad')):
    if not shutil.which(programma):
        manca(programma + ' non trovato: manca il pacchetto ' + pacchetto)

cli, esempi = sys.argv[1], sys.argv[2]
lavoro = tempfile.mkdtemp(prefix='varena-dxf-')
ambiente = dict(os.environ, VARENA_DOCUMENTI=os.path.join(lavoro, 'doc'),
                VARENA_PROGRAMMA=os.path.join(lavoro, 'prog'), QT_QPA_PLATFORM='offscreen',
                XDG_RUNTIME_DIR=lavoro)
for f in os.listdir(esempi):
    if f.upper().startswith('RILIEVO.'):
        shutil.copy(os.path.join(esempi, f), lavoro)
base = os.path.join(lavoro, 'RILIEVO')
# Without its survey structures: their lines are made at regeneration from the points, not
# listed by `dump`, and the writer's lines are checked well enough by the others.
open(base + '.HAT', 'w').close()


def esegui(*argomenti):
    r = subprocess.run(argomenti, capture_output=True, text=True, env=ambiente, timeout=120)
    if r.returncode != 0:
        sys.exit('%s: stato %d\n%s%s' % (' '.join(argomenti), r.returncode, r.stdout, r.stderr))
    return r.stdout


def righe(slot):
    return [json.loads(r) for r in esegui(cli, 'dump', base, str(slot)).splitlines() if r.strip()]


def pulito(piano):
    # The layer rule of the writer: trimmed, five characters to "_", markers out, "0" if empty.
    p = piano.strip()
    for c in ',. \\/':
        p = p.replace(c, '_')
    for m in ('<PD>', '<PV>', '<P!>', '<00>', '<EL>', '*V*', '*S*', '<8P>', '<8=>', '<8Q>', '[P.A.]'):
        p = p.replace(m, '')
    return p or '0'


punti, linee, cerchi, archi, testi = righe(1), righe(2), righe(3), righe(4), righe(5)
vivi = lambda rr: [r for r in rr if r['Ident'] == 0 and r.get('Congela', 0) == 0]


def attesi(semplificati, colore):
    c = collections.Counter()
    for p in punti:
        if p['Ident'] != 0:
            continue
        for tipo, suffisso, parola in (('POINT', '_S', 'PUNTI'), ('TEXT', '_N', 'NOMI'), ('TEXT', '_Q', 'QUOTE'),
                                       ('TEXT', '_D', 'DESCRIZIONI')):
            c[(tipo, parola if semplificati else pulito(p['Piano'].strip() + suffisso))] += 1
    for tipo, rr in (('LINE', linee), ('CIRCLE', cerchi), ('ARC', archi), ('TEXT', testi)):
        for r in vivi(rr):
            piano = r['Piano']
            if colore:
                piano = str(r['Colore'] * 1000) + ('-%d' % r['Tratteggio'] if tipo != 'TEXT' else '')
            c[(tipo, pulito(piano))] += 1
    return c


def con_ezdxf(percorso):
    doc = ezdxf.readfile(percorso)
    controllo = doc.audit()
    if controllo.has_errors:
        sys.exit('ezdxf: errori di audit in %s: %s' % (percorso, controllo.errors))
    return collections.Counter((e.dxftype(), e.dxf.layer) for e in doc.modelspace())


def con_gdal(percorso):
    testo = subprocess.run(['ogrinfo', '-al', '-q', percorso], capture_output=True, text=True, timeout=120,
                           env=ambiente).stdout
    c = collections.Counter()
    piano = None
    for riga in testo.splitlines():
        m = re.match(r'\s+Layer \(String\) = (.*)$', riga)
        if m:
            piano = m.group(1)
        m = re.match(r'\s+(POINT|LINESTRING|POLYGON|MULTILINESTRING|CIRCULARSTRING|COMPOUNDCURVE)\b', riga)
        if m and piano is not None:
            c[(m.group(1), piano)] += 1
            piano = None
    return c


def tratti_librecad(percorso):
    # The PDF takes the drawing's name in the folder given (-o takes no value here).
    cartella = os.path.join(lavoro, 'pdf')
    pdf = os.path.join(cartella, os.path.splitext(os.path.basename(percorso))[0] + '.pdf')
    if os.path.exists(pdf):
        os.remove(pdf)
    esegui('librecad', 'dxf2pdf', '-a', '-t', cartella, percorso)
    if not os.path.exists(pdf):
        sys.exit('LibreCAD non ha scritto il PDF di ' + percorso)
    tratti = 0
    for m in re.finditer(rb'stream\r?\n(.*?)endstream', open(pdf, 'rb').read(), re.S):
        try:
            contenuto = zlib.decompress(m.group(1))
        except zlib.error:
            continue
        tratti += len(re.findall(rb'(?m)^S$', contenuto))
    return tratti


# What GDAL makes of each kind: lines and curves are strings of points, texts and points
# are points.
GEOMETRIA = {'LINE': 'LINESTRING', 'CIRCLE': 'LINESTRING', 'ARC': 'LINESTRING', 'POINT': 'POINT', 'TEXT': 'POINT'}

prove = [
    ('nomi-quote-descrizioni', ['--simboli', '--nomi', '--quote', '--descrizioni', '--escludi-simboli'], False, False),
    ('3d-font-coincidenti', ['--simboli', '--nomi', '--quote', '--descrizioni', '--escludi-simboli', '--3d',
                             '--font', 'Arial', '--coincidenti'], False, False),
    ('piani-standard-colori', ['--simboli', '--nomi', '--quote', '--descrizioni', '--escludi-simboli',
                               '--piani-semplificati', '--assegna-colore', '--assegna-tratteggio'], True, True),
]
guasti = []
for nome, argomenti, semplificati, colore in prove:
    percorso = os.path.join(lavoro, nome + '.dxf')
    esegui(cli, 'dxf-out', base, percorso, *argomenti)
    atteso = attesi(semplificati, colore)
    letto = con_ezdxf(percorso)
    if letto != atteso:
        guasti.append('%s, ezdxf: letti %s, attesi %s' % (nome, sorted(letto.items()), sorted(atteso.items())))
    per_gdal = collections.Counter()
    for (tipo, piano), n in atteso.items():
        per_gdal[(GEOMETRIA[tipo], piano)] += n
    letto = con_gdal(percorso)
    if letto != per_gdal:
        guasti.append('%s, GDAL: letti %s, attesi %s' % (nome, sorted(letto.items()), sorted(per_gdal.items())))
    # LibreCAD paints: every line, circle and arc is at least one stroke, texts and points more.
    minimo = sum(n for (tipo, _), n in atteso.items())
    tratti = tratti_librecad(percorso)
    if tratti < minimo:
        guasti.append('%s, LibreCAD: %d tratti nel PDF, almeno %d attesi' % (nome, tratti, minimo))
    print('%s: ezdxf, GDAL e LibreCAD concordi (%d entità, %d tratti)' % (nome, sum(atteso.values()), tratti))

# A job of lines, circles and arcs alone, brought in from a drawing ezdxf wrote: LibreCAD must
# paint each of them as exactly one stroke.
disegno = ezdxf.new('R2000')
m = disegno.modelspace()
for k in range(5):
    m.add_line((k, 0), (k, 10), dxfattribs={'layer': 'RETE'})
m.add_lwpolyline([(0, 0), (4, 0), (4, 4)], dxfattribs={'layer': 'LOTTO'})
m.add_circle((2, 2), 1.5, dxfattribs={'layer': 'POZZI'})
m.add_arc((2, 2), 3, 30, 120, dxfattribs={'layer': 'CURVE'})
disegno.saveas(os.path.join(lavoro, 'rete.dxf'))
shutil.copy(base + '.CFG', os.path.join(lavoro, 'RETE.CFG'))
esegui(cli, 'dxf-in', os.path.join(lavoro, 'RETE'), os.path.join(lavoro, 'rete.dxf'))
uscita = os.path.join(lavoro, 'rete-uscita.dxf')
esegui(cli, 'dxf-out', os.path.join(lavoro, 'RETE'), uscita)
atteso = collections.Counter({('LINE', 'RETE'): 5, ('LINE', 'LOTTO'): 2, ('CIRCLE', 'POZZI'): 1, ('ARC', 'CURVE'): 1})
if con_ezdxf(uscita) != atteso:
    guasti.append('rete, ezdxf: letti %s' % sorted(con_ezdxf(uscita).items()))
tratti = tratti_librecad(uscita)
if tratti != sum(atteso.values()):
    guasti.append('rete, LibreCAD: %d tratti, attesi %d' % (tratti, sum(atteso.values())))
print('rete: ezdxf e LibreCAD concordi (%d entità, %d tratti)' % (sum(atteso.values()), tratti))

shutil.rmtree(lavoro, ignore_errors=True)
if guasti:
    sys.exit('\n'.join(guasti))
