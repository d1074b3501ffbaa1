#!/usr/bin/python3
# Makes the regression inputs written by hand, from the example job's own records and the
# layouts of the record members, so that each one says what it holds. The inputs the
# fuzzers found are kept as they were found and are not made here.
#   tests/fuzz/regressioni/fabbrica.py
import os
import struct

QUI = os.path.dirname(os.path.abspath(__file__))
ESEMPIO = os.path.join(QUI, '..', '..', '..', 'examples', 'RILIEVO')

# The first byte of a `record` input chooses the member: .LLL .LIN .CER .ARC .TES .EQU .CUV.
PUNTI, LINEE, ARCHI = 0, 1, 3


def scrivi(nome, byte):
    with open(os.path.join(QUI, nome), 'wb') as f:
        f.write(byte)


def arco(**campi):
    """The example's arc with some fields changed (offsets of the .ARC record)."""
    r = bytearray(open(ESEMPIO + '.ARC', 'rb').read()[:128])
    offset = {'raggio': 26, 'inizio': 34, 'ampiezza': 42}
    for nome, valore in campi.items():
        struct.pack_into('<d', r, offset[nome], valore)
    return bytes([ARCHI]) + bytes(r)


# An arc of 4e7 gon: a hundred thousand turns drawn one by one.
scrivi('record/arco-ampiezza-4e7-gon', arco(raggio=10.0, ampiezza=4e7))
# A start that is not a number.
scrivi('record/arco-inizio-nan', arco(inizio=float('nan')))

# 150 lines 599 km long of line type 2 (3 m dashes, 3 m gaps in the default linee.ini): each
# stays just under the limit of dashes of one line, together some thirty million.
linea = bytearray(open(ESEMPIO + '.LIN', 'rb').read()[:128])
righe = b''
for k in range(150):
    struct.pack_into('<dddddd', linea, 2, 1725300.0, 5031200.0 + k, 0.0, 1725300.0 + 599000.0, 5031200.0 + k, 0.0)
    struct.pack_into('<h', linea, 52, 2)
    righe += bytes(linea)
scrivi('record/linee-tratteggiate-599-km', bytes([LINEE]) + righe)

# The example's points with labels so large that the redraw thins them out, and moved
# 1e300 m East: the cell of a label is no integer.
punti = bytearray(open(ESEMPIO + '.LLL', 'rb').read())
for k in range(len(punti) // 256):
    struct.pack_into('<d', punti, 256 * k + 114, 50.0)
    struct.pack_into('<d', punti, 256 * k + 158, 1e300)
scrivi('record/punto-etichetta-a-1e300-m', bytes([PUNTI]) + bytes(punti))

# An image scale written with a double's exponent that overflows to infinity.
scrivi('btm/scala-1d726', b'0,"foto.png",1725300,5031200,640,480,0,"MAPPA",0,1d726,0.1\r\n')
