// SPDX-License-Identifier: MIT
#include "nle/nle_samples.h"

#include "nle/equations/sample_rows.h"

#include <initializer_list>
#include <string_view>

namespace kelvarin
{

namespace
{

nle_content sample_of(std::string_view title, nle_method method, std::initializer_list<sample_row> rows)
{
    nle_content content;
    content.title = title;
    content.method = method;
    content.rows = rows_of_sample(rows);
    return content;
}

nle_content quadratic_equation()
{
    constexpr std::string_view constant = "constant of the equation: ax^2+bx+c=0";
    return sample_of(
        "Example 1 - Solution of a quadratic equation", nle_method::fastnewt,
        {{"a = 2", constant},
         {"b = -3", constant},
         {"c = -5", constant},
         {"disc = b^2-4*a*c", "discriminant; below 0 the roots are complex"},
         {"x1 = if disc>=0 then (-b+sqrt(disc))/(2*a) else -b/(2*a)", "first root; of complex roots their real part"},
         {"x2 = if disc>=0 then (-b-sqrt(disc))/(2*a) else -b/(2*a)",
          "second root; of complex roots their real part"}});
}

/// Soave-Redlich-Kwong equation of state: propane as a vapour below its saturation pressure at 300 K, about 10 bar.
nle_content gas_volume()
{
    nle_content content = sample_of(
        "Example 2 - Gas volume from SRK equation of state", nle_method::safenewt,
        {{"f(v) = R*T/(v-b)-a*alpha/(v*(v+b))-P", "balance of pressures, bar; v is the molar volume, L/mol", "3"},
         {"R = 0.0831446261815", "gas constant, L bar/(mol K)"},
         {"T = 300", "temperature, K"},
         {"P = 8", "pressure, bar"},
         {"Tc = 369.83", "critical temperature of propane, K"},
         {"Pc = 42.48", "critical pressure of propane, bar"},
         {"omega = 0.152", "acentric factor of propane"},
         {"m = 0.48+1.574*omega-0.176*omega^2", "slope of the temperature function"},
         {"alpha = (1+m*(1-sqrt(T/Tc)))^2", "temperature function of the attraction"},
         {"a = 0.42748*R^2*Tc^2/Pc", "attraction, L^2 bar/mol^2"},
         {"b = 0.08664*R*Tc/Pc", "volume of the molecules, L/mol"},
         {"z = P*v/(R*T)", "compressibility factor"},
         {"rho = 44.1/v", "density, g/L"}});
    content.lower_bound = "1";
    content.upper_bound = "5";
    return content;
}

/// Colebrook's equation for rough pipes in turbulent flow, in the form for Fanning's friction factor.
nle_content pipe_diameter()
{
    return sample_of(
        "Example 3 - Calculation of pipe diameter", nle_method::safenewt,
        {{"f(D) = 2*ff*rho*w^2*L/D-dp", "balance of the pressure drop, Pa; D is the inner diameter, m", "0.1"},
         {"f(ff) = if Re<2100 then ff-16/Re else ff-1/(4*log(rough/D/3.7+1.256/(Re*sqrt(ff))))^2",
          "Fanning friction factor, laminar or turbulent", "0.01"},
         {"dp = 150000", "allowed pressure drop, Pa"},
         {"L = 350", "length of the pipe, m"},
         {"Q = 0.012", "volume flow, m^3/s"},
         {"rho = 870", "density, kg/m^3"},
         {"mu = 0.005", "viscosity, Pa s"},
         {"rough = 0.000046", "roughness of the wall, m"},
         {"pi = 3.14159265358979", "circle constant"},
         {"w = 4*Q/(pi*D^2)", "mean velocity, m/s"},
         {"Re = rho*w*D/mu", "Reynolds number"}});
}

/// Heterogeneous azeotrope of 1-butanol (1) and water (2): two liquids that boil below the boiling points of both. The
/// van Laar constants follow from the mutual solubilities near the boiling point.
nle_content three_phase_bubble_point()
{
    return sample_of(
        "Example 4 - Three phase bubble point", nle_method::safenewt,
        {{"f(xa) = xa*gamma1a-xb*gamma1b", "butanol: equal activities; xa is its mole fraction in the watery liquid",
          "0.03"},
         {"f(xb) = (1-xa)*gamma2a-(1-xb)*gamma2b",
          "water: equal activities; xb is the mole fraction of butanol in the other liquid", "0.4"},
         {"f(T) = xb*gamma1b*psat1+(1-xb)*gamma2b*psat2-P", "sum of the partial pressures, mmHg; T in deg C", "95"},
         {"P = 760", "pressure, mmHg"},
         {"z1 = 0.2", "mole fraction of butanol in both liquids together"},
         {"A12 = 3.81", "van Laar constant"},
         {"A21 = 0.876", "van Laar constant"},
         {"gamma1a = exp(A12*(A21*(1-xa)/(A12*xa+A21*(1-xa)))^2)", "activity coefficient of butanol, watery liquid"},
         {"gamma2a = exp(A21*(A12*xa/(A12*xa+A21*(1-xa)))^2)", "activity coefficient of water, watery liquid"},
         {"gamma1b = exp(A12*(A21*(1-xb)/(A12*xb+A21*(1-xb)))^2)", "activity coefficient of butanol, other liquid"},
         {"gamma2b = exp(A21*(A12*xb/(A12*xb+A21*(1-xb)))^2)", "activity coefficient of water, other liquid"},
         {"psat1 = 10^(7.42113-1351.555/(T+179.81))", "vapour pressure of butanol, mmHg"},
         {"psat2 = 10^(8.07131-1730.63/(T+233.426))", "vapour pressure of water, mmHg"},
         {"y1 = xa*gamma1a*psat1/P", "mole fraction of butanol in the vapour"},
         {"share = (xb-z1)/(xb-xa)", "share of the watery liquid in both liquids"}});
}

} // namespace

std::array<nle_content, nle_sample_count> nle_samples()
{
    return {quadratic_equation(), gas_volume(), pipe_diameter(), three_phase_bubble_point()};
}

} // namespace kelvarin
