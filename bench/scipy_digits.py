# SPDX-License-Identifier: MIT
"""Prints the digits of the worst parameter that SciPy's curve_fit shows on the certified problems of tests/data/nist,
from start 1 and start 2 with its defaults (MINPACK's Levenberg-Marquardt, forward differences)."""
import math
import pathlib
import warnings

import numpy
import scipy
from scipy.optimize import curve_fit

warnings.simplefilter("ignore")


def read(path):
    model, parameters, rows = "", [], []
    for line in path.read_text().splitlines():
        fields = line.split("\t")
        if line.startswith("#") or fields[0] in ("n", "rss"):
            continue
        if fields[0] == "model":
            model = fields[1].partition("=")[2]
        elif fields[0] == "parameter":
            parameters.append((fields[1], [float(field) for field in fields[2:]]))
        elif fields[0] == "data":
            names = fields[1:]
        else:
            rows.append([float(field) for field in fields])
    return model, parameters, dict(zip(names, numpy.array(rows).T))


def digits(found, certified):
    worst = 17.0
    for a, b in zip(found, certified):
        error = abs(a - b) / abs(b)
        worst = min(worst, 17.0 if error == 0.0 else max(0.0, -math.log10(error)))
    return f"{worst:.1f}"


def fitted(model, parameters, data, start):
    functions = {"exp": numpy.exp, "cos": numpy.cos, "sin": numpy.sin, "arctan": numpy.arctan}
    names = [name for name, _ in parameters]
    code = compile(model.replace("^", "**").strip(), "model", "eval")

    def value(x, *a):
        return eval(code, functions | dict(zip(names, a)) | {"x": x})

    try:
        found, _ = curve_fit(value, data["x"], data["y"], [numbers[start] for _, numbers in parameters])
    except RuntimeError:
        return "ends with a message"
    return digits(found, [numbers[2] for _, numbers in parameters])


print("SciPy", scipy.__version__)
for path in sorted((pathlib.Path(__file__).parent.parent / "tests/data/nist").glob("*.txt")):
    model, parameters, data = read(path)
    if model and len(parameters[0][1]) == 4:
        print("|", path.stem, "|", ", ".join(fitted(model, parameters, data, start) for start in (0, 1)), "|")
