#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Computes the values of the four built-in examples, apart from Kelvarin.

Each problem is written down here a second time, as Python functions, and solved with 40 digits (mpmath) from starts
of its own: one unknown by bisection, systems by Newton's method, whose residuals are then required to vanish to 30
digits. Run it to write expected_values.txt anew: a line per value, with the example's number and the variable's name.
"""

import pathlib

from mpmath import exp, findroot, log10, mp, mpf, sqrt

mp.dps = 40
m = mpf


def bisect(f, lower, upper):
    assert f(lower) * f(upper) < 0
    for _ in range(140):
        middle = (lower + upper) / 2
        lower, upper = (lower, middle) if f(lower) * f(middle) <= 0 else (middle, upper)
    return (lower + upper) / 2


def solve(f, start):
    x = list(findroot(f, [m(s) for s in start], tol=m("1e-60"), maxsteps=60))
    assert max(abs(r) for r in f(*x)) < m("1e-30"), f(*x)
    return x


def quadratic():
    a, b, c = m(2), m(-3), m(-5)
    disc = b * b - 4 * a * c
    return {"disc": disc, "x1": (-b + sqrt(disc)) / (2 * a), "x2": (-b - sqrt(disc)) / (2 * a)}


def gas_volume():
    R, T, P, Tc, Pc, omega = m("0.0831446261815"), m(300), m(8), m("369.83"), m("42.48"), m("0.152")
    slope = m("0.48") + m("1.574") * omega - m("0.176") * omega**2
    alpha = (1 + slope * (1 - sqrt(T / Tc))) ** 2
    a = m("0.42748") * (R * Tc) ** 2 / Pc
    b = m("0.08664") * R * Tc / Pc
    v = bisect(lambda v: R * T / (v - b) - a * alpha / (v * (v + b)) - P, m(1), m(5))
    return {"v": v, "m": slope, "alpha": alpha, "a": a, "b": b, "z": P * v / (R * T), "rho": m("44.1") / v}


def pipe_diameter():
    dp, L, Q, rho, mu, rough = m(150000), m(350), m("0.012"), m(870), m("0.005"), m("0.000046")
    pi = m("3.14159265358979")  # As the example defines it.
    w = lambda D: 4 * Q / (pi * D**2)
    Re = lambda D: rho * w(D) * D / mu

    def residuals(D, ff):
        colebrook = 1 / (4 * log10(rough / D / m("3.7") + m("1.256") / (Re(D) * sqrt(ff)))) ** 2
        return [2 * ff * rho * w(D) ** 2 * L / D - dp, ff - colebrook]

    D, ff = solve(residuals, ["0.09", "0.007"])
    assert Re(D) > 2100
    return {"D": D, "ff": ff, "w": w(D), "Re": Re(D)}


def bubble_point():
    P, A, B, z1 = m(760), m("3.81"), m("0.876"), m("0.2")
    gamma1 = lambda x: exp(A * (B * (1 - x) / (A * x + B * (1 - x))) ** 2)
    gamma2 = lambda x: exp(B * (A * x / (A * x + B * (1 - x))) ** 2)
    psat1 = lambda T: 10 ** (m("7.42113") - m("1351.555") / (T + m("179.81")))
    psat2 = lambda T: 10 ** (m("8.07131") - m("1730.63") / (T + m("233.426")))
    p = lambda x, T: x * gamma1(x) * psat1(T) + (1 - x) * gamma2(x) * psat2(T)

    def residuals(xa, xb, T):
        return [
            xa * gamma1(xa) - xb * gamma1(xb),
            (1 - xa) * gamma2(xa) - (1 - xb) * gamma2(xb),
            p(xb, T) - P,
        ]

    xa, xb, T = solve(residuals, ["0.02", "0.38", "92"])
    assert xb - xa > m("0.1")
    return {
        "xa": xa,
        "xb": xb,
        "T": T,
        "y1": xa * gamma1(xa) * psat1(T) / P,
        "share": (xb - z1) / (xb - xa),
    }


if __name__ == "__main__":
    lines = []
    for number, values in enumerate([quadratic(), gas_volume(), pipe_diameter(), bubble_point()], 1):
        lines += [f"{number} {name} {mp.nstr(value, 20)}" for name, value in values.items()]
    pathlib.Path(__file__).with_name("expected_values.txt").write_text("\n".join(lines) + "\n")
