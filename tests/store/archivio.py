#!/usr/bin/python3
"""The job archive read by other ZIP tools, and theirs read by us.

The archive `varena-cli archivia` writes of the example job must pass Python's
zipfile.testzip() and `unzip -t`, and expand to the job's members byte for byte; an
archive made by `zip -X` (or by zipfile where zip is missing) of those members opens as
the same job; an archive whose member name climbs out of the folder is refused and writes
nothing. Arguments: varena-cli, the examples folder."""
import os
import shutil
import subprocess
import sys
import tempfile
import zipfile

cli, esempi = sys.argv[1], sys.argv[2]
tmp = tempfile.mkdtemp(prefix="varena-archivio-")
os.environ["VARENA_DOCUMENTI"] = os.path.join(tmp, "doc")
os.environ["VARENA_PROGRAMMA"] = os.path.join(tmp, "prog")
lavoro = os.path.join(tmp, "lavoro")
os.makedirs(lavoro)
for n in os.listdir(esempi):
    if n.startswith("RILIEVO."):
        shutil.copy(os.path.join(esempi, n), lavoro)
membri = {n: open(os.path.join(lavoro, n), "rb").read() for n in os.listdir(lavoro)}
errori = []


def esegui(*argomenti):
    r = subprocess.run([cli, *argomenti], capture_output=True, text=True)
    return r.returncode, r.stdout, r.stderr


vrz = os.path.join(tmp, "RILIEVO.VRZ")
rc, _, err = esegui("archivia", os.path.join(lavoro, "RILIEVO.CFG"), vrz)
if rc != 0:
    errori.append("archivia: %d %s" % (rc, err))
with zipfile.ZipFile(vrz) as z:
    if z.testzip() is not None:
        errori.append("testzip: " + z.testzip())
    letti = {i.filename: z.read(i) for i in z.infolist()}
    if {(i.compress_type, i.flag_bits) for i in z.infolist()} != {(zipfile.ZIP_DEFLATED, 2)}:
        errori.append("metodo o flag inattesi")
if letti != {n: b for n, b in membri.items() if b}:
    errori.append("membri diversi: %s" % sorted(letti))
if shutil.which("unzip"):
    r = subprocess.run(["unzip", "-t", vrz], capture_output=True, text=True)
    if r.returncode != 0:
        errori.append("unzip -t: " + r.stdout)

# An archive of another tool opens as the job.
altro = os.path.join(tmp, "ALTRO.VRZ")
if shutil.which("zip"):
    subprocess.run(["zip", "-X", "-q", altro, *sorted(membri)], cwd=lavoro, check=True)
else:
    with zipfile.ZipFile(altro, "w", zipfile.ZIP_DEFLATED) as z:
        for n in sorted(membri):
            z.write(os.path.join(lavoro, n), n)
info = [esegui("info", p)[1].splitlines()[1:] for p in (os.path.join(lavoro, "RILIEVO.CFG"), altro)]
if not info[0] or info[0] != info[1]:
    errori.append("info diverso:\n%s\n%s" % info)

# A name that leads out of the folder: refused, nothing written anywhere.
cattivo = os.path.join(tmp, "CATTIVO.VRZ")
with zipfile.ZipFile(cattivo, "w") as z:
    z.writestr("../../FUORI.LLL", b"x" * 256)
prima = sorted(os.listdir(tmp))
rc, _, err = esegui("info", cattivo)
if rc == 0 or "../../FUORI.LLL esce dalla cartella del Lavoro" not in err:
    errori.append("archivio cattivo accettato: %d %s" % (rc, err))
fuori = [os.path.join(d, *[".."] * k, "FUORI.LLL") for d in (tmp, tempfile.gettempdir()) for k in range(4)]
if sorted(os.listdir(tmp)) != prima or any(os.path.exists(f) for f in fuori):
    errori.append("l'archivio cattivo ha scritto qualcosa")

shutil.rmtree(tmp)
for e in errori:
    print(e)
print("%d passed, %d failed" % (0 if errori else 1, 1 if errori else 0))
sys.exit(1 if errori else 0)
