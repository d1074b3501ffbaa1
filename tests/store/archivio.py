#!/usr/bin/python3
"""The job archive and the ZIP tools users have. The archive of the example job passes
zipfile.testzip() and `unzip -t` and holds its members byte for byte; one made by `zip -X`
(zipfile where zip is missing) opens as the same job; a member name climbing out of the
folder is refused and writes nothing. Arguments: varena-cli, the examples folder."""
import os, shutil, subprocess, sys, tempfile, zipfile

cli, esempi = sys.argv[1], sys.argv[2]
tmp = tempfile.mkdtemp(prefix="varena-archivio-")
os.environ.update(VARENA_DOCUMENTI=tmp + "/doc", VARENA_PROGRAMMA=tmp + "/prog")
lavoro = tmp + "/lavoro"
os.makedirs(lavoro)
for n in os.listdir(esempi):
    if n.startswith("RILIEVO."):
        shutil.copy(os.path.join(esempi, n), lavoro)
membri = {n: open(os.path.join(lavoro, n), "rb").read() for n in os.listdir(lavoro)}
cli_run = lambda *a: subprocess.run([cli, *a], capture_output=True, text=True)
errori = []

r = cli_run("archivia", lavoro + "/RILIEVO.CFG", tmp + "/R.VRZ")
with zipfile.ZipFile(tmp + "/R.VRZ") as z:
    letti = {i.filename: z.read(i) for i in z.infolist()}
    if r.returncode or z.testzip() or {(i.compress_type, i.flag_bits) for i in z.infolist()} != {(8, 2)}:
        errori.append("archivia: " + r.stderr)
if letti != {n: b for n, b in membri.items() if b}:
    errori.append("membri diversi: %s" % sorted(letti))
if shutil.which("unzip") and subprocess.run(["unzip", "-tq", tmp + "/R.VRZ"]).returncode:
    errori.append("unzip -t")

altro = tmp + "/ALTRO.VRZ"
if shutil.which("zip"):
    subprocess.run(["zip", "-X", "-q", altro, *sorted(membri)], cwd=lavoro, check=True)
else:
    with zipfile.ZipFile(altro, "w", zipfile.ZIP_DEFLATED) as z:
        for n in sorted(membri):
            z.write(os.path.join(lavoro, n), n)
info = [cli_run("info", p).stdout.splitlines()[1:] for p in (lavoro + "/RILIEVO.CFG", altro)]
if not info[0] or info[0] != info[1]:
    errori.append("info diverso:\n%s\n%s" % tuple(info))

with zipfile.ZipFile(tmp + "/CATTIVO.VRZ", "w") as z:
    z.writestr("../../FUORI.LLL", b"x" * 256)
prima = sorted(os.listdir(tmp))
r = cli_run("info", tmp + "/CATTIVO.VRZ")
fuori = [os.path.join(d, *[".."] * k, "FUORI.LLL") for d in (tmp, tempfile.gettempdir()) for k in range(4)]
if not r.returncode or "../../FUORI.LLL esce dalla cartella del Lavoro" not in r.stderr:
    errori.append("archivio cattivo accettato: " + r.stderr)
if sorted(os.listdir(tmp)) != prima or any(os.path.exists(f) for f in fuori):
    errori.append("l'archivio cattivo ha scritto qualcosa")

shutil.rmtree(tmp)
print("\n".join(errori + ["%d passed, %d failed" % (not errori, bool(errori))]))
sys.exit(1 if errori else 0)
