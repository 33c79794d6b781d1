#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Computes expected_units.txt: the size of each unit in base units, apart from Kelvarin's own file of factors.

Each unit is written down here by its definition, as a product of exact fractions of other units: the yard and pound
agreement of 1959, the gallons of 231 cubic inches and of 4.54609 litres, standard gravity, the calories of 4.184 and
4.1868 joules and the British thermal units of one pound and one degree Fahrenheit that belong to them (International
Table, 1956; thermochemical), the definitions of the SI of 2019. Run it to write the table anew: lines
"type|name|size", with 25 digits.
"""

import pathlib
from decimal import Decimal, getcontext
from fractions import Fraction as F

getcontext().prec = 40

pi = F("3.14159265358979323846264338327950288419716939937510")
k, M, G, T = F(10) ** 3, F(10) ** 6, F(10) ** 9, F(10) ** 12
c, m, u, n, p = F(1, 100), F(1, 10**3), F(1, 10**6), F(1, 10**9), F(1, 10**12)
minute, hour, day = F(60), F(3600), F(86400)

inch = F(254, 10) * m
foot, yard, mile = 12 * inch, 36 * inch, 36 * inch * 1760
litre = F(1, 10) ** 3
US_gallon, UK_gallon = 231 * inch**3, F("4.54609") * litre
pound = F("453.59237") * m
grain, ounce = pound / 7000, pound / 16
gravity = F("9.80665")
pound_force, kilogram_force = pound * gravity, gravity
psi = pound_force / inch**2
atmosphere = F(101325)
mmHg, mmH2O = F("13595.1") * gravity * m, 1000 * gravity * m
cal_th, cal_IT = F("4.184"), F("4.1868")
fahrenheit = F(100, 180)
Btu_th, Btu_IT = cal_th / m * pound * fahrenheit, cal_IT / m * pound * fahrenheit
horsepower = 550 * foot * pound_force
poise, stokes = F(1, 10), c**2
elementary_charge, avogadro = F("1.602176634e-19"), F("6.02214076e23")
pound_mole = pound / m

prefixed = lambda unit, names, size=F(1): {name + unit: factor * size for name, factor in names.items()}
square_speeds = {"m2/s": F(1), "cm2/s": c**2, "mm2/s": m**2, "m2/h": 1 / hour, "ft2/s": foot**2,
                 "ft2/h": foot**2 / hour}

types = {
    "Length": {"m": F(1), "km": k, "cm": c, "mm": m, "um": u, "nm": n, "angstrom": n / 10, "in": inch, "ft": foot,
               "yd": yard, "mile": mile, "nautical mile": 1852 * F(1), "mil": inch / 1000,
               "US survey foot": F(1200, 3937), "astronomical unit": F(149597870700),
               "light year": F(299792458) * 365 * day + F(299792458) * day / 4},
    "Area": {"m2": F(1), "km2": k**2, "cm2": c**2, "mm2": m**2, "are": F(10) ** 2, "hectare": F(100) ** 2,
             "in2": inch**2, "ft2": foot**2, "yd2": yard**2, "acre": mile**2 / 640, "mile2": mile**2},
    "Volume": {"m3": F(1), "L": litre, "mL": m * litre, "cm3": c**3, "mm3": m**3, "in3": inch**3, "ft3": foot**3,
               "yd3": yard**3, "US gal": US_gallon, "US quart": US_gallon / 4, "US pint": US_gallon / 8,
               "US fl oz": US_gallon / 128, "UK gal": UK_gallon, "UK pint": UK_gallon / 8,
               "UK fl oz": UK_gallon / 160, "oil barrel": 42 * US_gallon},
    "Mass": {"kg": F(1), "g": m, "mg": u, "ug": n, "t": k, "lb": pound, "oz": ounce, "troy oz": 480 * grain,
             "grain": grain, "short ton": 2000 * pound, "long ton": 20 * 112 * pound, "slug": pound_force / foot,
             "carat": F(200) * u, "u": F("1.66053906892e-27")},
    "Amount of substance": {"mol": F(1), "mmol": m, "kmol": k, "lbmol": pound_mole},
    "Density": {"kg/m3": F(1), "g/cm3": m / c**3, "kg/L": 1 / litre, "g/L": m / litre, "lb/ft3": pound / foot**3,
                "lb/in3": pound / inch**3, "lb/US gal": pound / US_gallon,
                "slug/ft3": pound_force / foot / foot**3},
    "Force": {"N": F(1), "kN": k, "MN": M, "dyn": m * c, "kgf": kilogram_force, "gf": m * kilogram_force,
              "lbf": pound_force, "kip": k * pound_force, "poundal": pound * foot},
    "Pressure": {"Pa": F(1), "kPa": k, "MPa": M, "GPa": G, "bar": 100 * k, "mbar": 100 * k * m, "atm": atmosphere,
                 "at": kilogram_force / c**2, "mmHg": mmHg, "Torr": atmosphere / 760, "inHg": mmHg * inch / m,
                 "mmH2O": mmH2O, "inH2O": mmH2O * inch / m, "mH2O": k * mmH2O, "psi": psi, "ksi": k * psi,
                 "lbf/ft2": pound_force / foot**2, "dyn/cm2": m * c / c**2},
    "Energy": {"J": F(1), "kJ": k, "MJ": M, "GJ": G, "cal": cal_th, "kcal": k * cal_th, "cal (IT)": cal_IT,
               "kcal (IT)": k * cal_IT, "Btu": Btu_IT, "Btu (th)": Btu_th, "Wh": hour, "kWh": k * hour,
               "hp h": horsepower * hour, "ft lbf": foot * pound_force, "kgf m": kilogram_force,
               "L atm": litre * atmosphere, "erg": m * c * c, "eV": elementary_charge},
    "Power": {"W": F(1), "kW": k, "MW": M, "hp": horsepower, "hp (metric)": 75 * kilogram_force,
              "hp (electric)": F(746), "ft lbf/s": foot * pound_force, "kgf m/s": kilogram_force, "cal/s": cal_th,
              "kcal/h": k * cal_th / hour, "kcal/h (IT)": k * cal_IT / hour, "Btu/s": Btu_IT, "Btu/h": Btu_IT / hour,
              "ton of refrigeration": 12000 * Btu_IT / hour},
    "Torque": {"N m": F(1), "kN m": k, "kgf m": kilogram_force, "lbf ft": pound_force * foot,
               "lbf in": pound_force * inch},
    "Temperature difference": {"K": F(1), "deg C": F(1), "deg F": fahrenheit, "R": fahrenheit},
    "Dynamic viscosity": {"Pa s": F(1), "mPa s": m, "uPa s": u, "P": poise, "cP": c * poise, "kg/(m h)": 1 / hour,
                          "lb/(ft s)": pound / foot, "lb/(ft h)": pound / foot / hour,
                          "lbf s/ft2": pound_force / foot**2, "kgf s/m2": kilogram_force},
    "Kinematic viscosity": square_speeds | {"St": stokes, "cSt": c * stokes},
    "Diffusivity": square_speeds | {"in2/s": inch**2},
    "Specific heat capacity": {"J/(kg K)": F(1), "kJ/(kg K)": k, "cal/(g K)": cal_th / m,
                               "kcal/(kg K)": k * cal_th, "cal/(g K) (IT)": cal_IT / m,
                               "Btu/(lb deg F)": Btu_IT / pound / fahrenheit},
    "Specific energy": {"J/kg": F(1), "kJ/kg": k, "MJ/kg": M, "cal/g": cal_th / m, "kcal/kg": k * cal_th,
                        "Btu/lb": Btu_IT / pound, "kWh/kg": k * hour},
    "Thermal conductivity": {"W/(m K)": F(1), "mW/(m K)": m, "W/(cm K)": 1 / c, "cal/(cm s K)": cal_th / c,
                             "kcal/(m h K) (IT)": k * cal_IT / hour,
                             "Btu/(ft h deg F)": Btu_IT / foot / hour / fahrenheit,
                             "Btu in/(ft2 h deg F)": Btu_IT * inch / foot**2 / hour / fahrenheit},
    "Heat transfer coefficient": {"W/(m2 K)": F(1), "kW/(m2 K)": k, "cal/(cm2 s K)": cal_th / c**2,
                                  "kcal/(m2 h K) (IT)": k * cal_IT / hour,
                                  "Btu/(ft2 h deg F)": Btu_IT / foot**2 / hour / fahrenheit},
    "Heat flux": {"W/m2": F(1), "kW/m2": k, "cal/(cm2 s)": cal_th / c**2, "kcal/(m2 h) (IT)": k * cal_IT / hour,
                  "Btu/(ft2 h)": Btu_IT / foot**2 / hour},
    "Surface tension": {"N/m": F(1), "mN/m": m, "dyn/cm": m * c / c, "lbf/ft": pound_force / foot},
    "Mass flow": {"kg/s": F(1), "kg/min": 1 / minute, "kg/h": 1 / hour, "g/s": m, "t/h": k / hour, "t/day": k / day,
                  "lb/s": pound, "lb/min": pound / minute, "lb/h": pound / hour},
    "Volume flow": {"m3/s": F(1), "m3/min": 1 / minute, "m3/h": 1 / hour, "m3/day": 1 / day, "L/s": litre,
                    "L/min": litre / minute, "L/h": litre / hour, "mL/min": m * litre / minute, "ft3/s": foot**3,
                    "ft3/min": foot**3 / minute, "US gal/min": US_gallon / minute, "US gal/h": US_gallon / hour,
                    "UK gal/min": UK_gallon / minute, "oil barrel/day": 42 * US_gallon / day},
    "Molar flow": {"mol/s": F(1), "mol/min": 1 / minute, "mol/h": 1 / hour, "kmol/s": k, "kmol/h": k / hour,
                   "lbmol/h": pound_mole / hour},
    "Molar concentration": {"mol/m3": F(1), "mol/L": 1 / litre, "mmol/L": m / litre, "kmol/m3": k,
                            "mol/cm3": 1 / c**3, "lbmol/ft3": pound_mole / foot**3},
    "Mass concentration": {"kg/m3": F(1), "g/L": m / litre, "mg/L": u / litre, "ug/L": n / litre, "g/m3": m,
                           "mg/m3": u, "g/mL": m / (m * litre), "lb/ft3": pound / foot**3,
                           "lb/US gal": pound / US_gallon, "grain/US gal": grain / US_gallon},
    "Time": {"s": F(1), "ms": m, "us": u, "ns": n, "min": minute, "h": hour, "day": day, "week": 7 * day,
             "year": F(1461, 4) * day},
    "Speed": {"m/s": F(1), "km/h": k / hour, "cm/s": c, "m/min": 1 / minute, "ft/s": foot, "ft/min": foot / minute,
              "mile/h": mile / hour, "knot": 1852 / hour, "c": F(299792458)},
    "Acceleration": {"m/s2": F(1), "cm/s2": c, "ft/s2": foot, "in/s2": inch, "g": gravity},
    "Angle": {"rad": F(1), "mrad": m, "deg": 2 * pi / 360, "arcmin": 2 * pi / 360 / 60,
              "arcsec": 2 * pi / 360 / 3600, "gon": 2 * pi / 400, "turn": 2 * pi},
    "Frequency": prefixed("Hz", {"": F(1), "k": k, "M": M, "G": G}) | {"rpm": 1 / minute, "rad/s": 1 / (2 * pi)},
    "Electric charge": prefixed("C", {"": F(1), "m": m, "u": u, "n": n})
    | {"A h": hour, "mA h": m * hour, "e": elementary_charge, "faraday": elementary_charge * avogadro},
    "Electric current": prefixed("A", {"": F(1), "k": k, "m": m, "u": u, "n": n}),
    "Voltage": prefixed("V", {"": F(1), "k": k, "m": m, "u": u}),
    "Electric resistance": prefixed("ohm", {"": F(1), "m": m, "k": k, "M": M}),
    "Capacitance": prefixed("F", {"": F(1), "m": m, "u": u, "n": n, "p": p}),
    "Inductance": prefixed("H", {"": F(1), "m": m, "u": u, "n": n}),
    "Magnetic flux": prefixed("Wb", {"": F(1), "m": m}) | {"Mx": F(1, 10**4) * c**2},
    "Magnetic flux density": prefixed("T", {"": F(1), "m": m, "u": u}) | {"G": F(1, 10**4)},
    "Magnetic field": {"A/m": F(1), "kA/m": k, "Oe": k / (4 * pi)},
    "Data": {"byte": F(1), "bit": F(1, 8), "kB": k, "MB": M, "GB": G, "TB": T, "KiB": F(2) ** 10, "MiB": F(2) ** 20,
             "GiB": F(2) ** 30, "TiB": F(2) ** 40, "Mbit": M / 8, "Gbit": G / 8},
}


def digits(size):
    return format(Decimal(size.numerator) / Decimal(size.denominator), ".24e")


lines = [f"{kind}|{name}|{digits(size)}" for kind, units in types.items() for name, size in units.items()]
target = pathlib.Path(__file__).with_suffix(".txt")
target.write_text("".join(line + "\n" for line in lines))
print(len(lines), "units")
