#!/usr/bin/python3
"""Contour lines at 1 m of the synthetic terrain: Varena against matplotlib's tricontour.

Runs the terrain benchmark, which triangulates the synthetic survey, times the contours of
its facets (GeneraSpezzate: cut, chained, written to .DUE) and leaves the facets in a file;
then contours the very same triangles with matplotlib and prints both times and their ratio.

    /usr/bin/python3 bench/curve_matplotlib.py [BENCH_BINARY] [--punti=N]

The default binary is build-bench/bench/varena_bench_terreno; N defaults to 10^6.
"""
import json
import os
import subprocess
import sys
import tempfile
import time

import numpy as np
import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import matplotlib.tri as mtri  # noqa: E402


def main():
    args = [a for a in sys.argv[1:] if not a.startswith("--")]
    opzioni = [a for a in sys.argv[1:] if a.startswith("--")]
    binario = args[0] if args else "build-bench/bench/varena_bench_terreno"
    if not any(o.startswith("--punti=") for o in opzioni):
        opzioni.append("--punti=1000000")
    with tempfile.TemporaryDirectory() as cartella:
        falde = os.path.join(cartella, "falde.bin")
        risultati = os.path.join(cartella, "risultati.json")
        subprocess.run(
            [binario, "--falde=" + falde, "--benchmark_filter=CurveDiLivello1m",
             "--benchmark_out=" + risultati, "--benchmark_out_format=json"] + opzioni,
            check=True, capture_output=True, text=True)
        with open(risultati) as f:
            dati = json.load(f)
        # Processor time on both sides: on a shared machine the wall clock measures the others.
        varena_ms = dati["benchmarks"][0]["cpu_time"]
        v = np.fromfile(falde, dtype=np.float64).reshape(-1, 3, 3)
    # The shared vertices of the facets, as a triangulation names them once.
    vertici, indici = np.unique(v.reshape(-1, 3), axis=0, return_inverse=True)
    triangoli = indici.reshape(-1, 3)
    x0, y0 = vertici[:, 0].min(), vertici[:, 1].min()
    tri = mtri.Triangulation(vertici[:, 0] - x0, vertici[:, 1] - y0, triangoli)
    z = vertici[:, 2]
    livelli = np.arange(np.ceil(z.min()), np.floor(z.max()) + 1, 1.0)
    fig, ax = plt.subplots()
    migliore = float("inf")
    for _ in range(3):
        inizio = time.process_time()
        ax.tricontour(tri, z, levels=livelli)
        migliore = min(migliore, time.process_time() - inizio)
        ax.cla()
    matplotlib_ms = migliore * 1000
    print(f"facets {len(triangoli)}, levels {len(livelli)}")
    print(f"varena GeneraSpezzate: {varena_ms:.1f} ms of processor time")
    print(f"matplotlib tricontour: {matplotlib_ms:.1f} ms of processor time")
    print(f"ratio: {matplotlib_ms / varena_ms:.2f}x")


if __name__ == "__main__":
    main()
