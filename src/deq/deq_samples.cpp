// SPDX-License-Identifier: MIT
#include "deq/deq_samples.h"

#include "nle/equations/sample_rows.h"

#include <initializer_list>
#include <string_view>

namespace kelvarin
{

namespace
{

struct sample_range
{
    std::string_view initial;
    std::string_view final;
};

/// A sample over the time t.
deq_content sample_of(std::string_view title, const sample_range& range, std::initializer_list<sample_row> rows)
{
    deq_content content;
    content.title = title;
    content.rows = rows_of_sample(rows);
    content.independent = "t";
    content.initial_value = range.initial;
    content.final_value = range.final;
    return content;
}

deq_content series_of_tanks()
{
    return sample_of("Example 1 - Heat Exchange in a Series of Tanks", {"0", "60"},
                     {{"d(T1)/d(t) = (W*Cp*(Tfeed-T1)+UA*(Tsteam-T1))/(M*Cp)",
                       "oil in the first tank, deg C; the time is in minutes", "15"},
                      {"d(T2)/d(t) = (W*Cp*(T1-T2)+UA*(Tsteam-T2))/(M*Cp)", "second tank", "15"},
                      {"d(T3)/d(t) = (W*Cp*(T2-T3)+UA*(Tsteam-T3))/(M*Cp)", "third tank", "15"},
                      {"W = 110", "flow of oil through all tanks, kg/min"},
                      {"Cp = 2.1", "heat capacity of the oil, kJ/(kg K)"},
                      {"M = 900", "oil in each tank, kg"},
                      {"UA = 14", "heat transfer of each steam coil, kJ/(min K)"},
                      {"Tsteam = 230", "steam, deg C"},
                      {"Tfeed = 15", "oil that flows into the first tank, deg C"}});
}

deq_content baseball()
{
    return sample_of("Example 2 - Baseball Trajectory in New York", {"0", "4.4"},
                     {{"d(x)/d(t) = vx", "distance from the plate, m", "0"},
                      {"d(y)/d(t) = vy", "height, m", "1"},
                      {"d(vx)/d(t) = -b*v*vx", "velocity, m/s: hit with 48 m/s at 32 degrees", "40.7"},
                      {"d(vy)/d(t) = -b*v*vy-g", "velocity upward, m/s", "25.4"},
                      {"v = sqrt(vx^2+vy^2)", "speed, m/s"},
                      {"b = rho*cd*area/(2*mass)", "air resistance of the ball, 1/m"},
                      {"rho = P*Mair/(Rgas*T)", "density of the air, kg/m^3"},
                      {"P = 101325", "air pressure in New York, at sea level, Pa; in Denver 83400"},
                      {"T = 298", "temperature, K"},
                      {"Mair = 0.02896", "molar mass of air, kg/mol"},
                      {"Rgas = 8.314462618", "gas constant, J/(mol K)"},
                      {"cd = 0.35", "drag coefficient of the ball"},
                      {"area = pi*dia^2/4", "cross section of the ball, m^2"},
                      {"dia = 0.0732", "diameter of the ball, m"},
                      {"mass = 0.145", "mass of the ball, kg"},
                      {"pi = 3.14159265358979", "circle constant"},
                      {"g = 9.8027", "gravity in New York, m/s^2"}});
}

deq_content tank_heater()
{
    return sample_of("Example 3 - Closed loop dynamics of a stirred tank heater", {"0", "60"},
                     {{"d(T)/d(t) = (WCp*(Tin-T)+q)/MCp", "liquid in the tank, deg C; the time is in minutes", "75"},
                      {"d(Tm)/d(t) = (T-Tm)/tauM", "what the thermocouple shows, deg C", "75"},
                      {"d(sum)/d(t) = Tset-Tm", "integral of the control error, K min", "0"},
                      {"q = qs+Kc*(Tset-Tm)+Kc/tauI*sum", "heat that the controller calls for, kJ/min"},
                      {"Tin = if t<10 then 55 else 42", "feed, deg C: colder from the tenth minute on"},
                      {"Tset = 75", "set point, deg C"},
                      {"qs = WCp*(Tset-55)", "heat in the steady state, kJ/min"},
                      {"WCp = 400", "flow times heat capacity, kJ/(min K)"},
                      {"MCp = 3200", "content of the tank times heat capacity, kJ/K"},
                      {"tauM = 1", "time constant of the thermocouple, min"},
                      {"Kc = 1600", "gain of the controller, kJ/(min K)"},
                      {"tauI = 2", "integral time of the controller, min"}});
}

/// Absorption into a liquid at rest with a reaction of first order, by finite differences at 15 nodes. Danckwerts
/// (1950) gives the profile in closed form.
deq_content reacting_slab()
{
    return sample_of("Example 4 - Unsteady-state Diffusion and Reaction in a Semi-Infinite Slab", {"0", "2500"},
                     {{"d(c1)/d(t) = r*(cs-2*c1+c2)-k*c1",
                       "concentration 0.25 mm below the surface, mol/m^3; the time is in seconds", "0"},
                      {"d(c2)/d(t) = r*(c1-2*c2+c3)-k*c2", "0.5 mm below the surface", "0"},
                      {"d(c3)/d(t) = r*(c2-2*c3+c4)-k*c3", "0.75 mm", "0"},
                      {"d(c4)/d(t) = r*(c3-2*c4+c5)-k*c4", "1 mm", "0"},
                      {"d(c5)/d(t) = r*(c4-2*c5+c6)-k*c5", "1.25 mm", "0"},
                      {"d(c6)/d(t) = r*(c5-2*c6+c7)-k*c6", "1.5 mm", "0"},
                      {"d(c7)/d(t) = r*(c6-2*c7+c8)-k*c7", "1.75 mm", "0"},
                      {"d(c8)/d(t) = r*(c7-2*c8+c9)-k*c8", "2 mm", "0"},
                      {"d(c9)/d(t) = r*(c8-2*c9+c10)-k*c9", "2.25 mm", "0"},
                      {"d(c10)/d(t) = r*(c9-2*c10+c11)-k*c10", "2.5 mm", "0"},
                      {"d(c11)/d(t) = r*(c10-2*c11+c12)-k*c11", "2.75 mm", "0"},
                      {"d(c12)/d(t) = r*(c11-2*c12+c13)-k*c12", "3 mm", "0"},
                      {"d(c13)/d(t) = r*(c12-2*c13+c14)-k*c13", "3.25 mm", "0"},
                      {"d(c14)/d(t) = r*(c13-2*c14+c15)-k*c14", "3.5 mm", "0"},
                      {"d(c15)/d(t) = r*(c14-2*c15)-k*c15", "3.75 mm; nothing arrives below", "0"},
                      {"cs = 12", "concentration at the surface, mol/m^3"},
                      {"r = D/dx^2", "exchange between neighbours, 1/s"},
                      {"D = 1.2e-9", "diffusivity, m^2/s"},
                      {"dx = 0.00025", "distance of the nodes, m"},
                      {"k = 0.0015", "rate constant, 1/s"},
                      {"flux = 1e6*D*(cs-c1)/dx", "what the surface takes up, umol/(m^2 s)"}});
}

} // namespace

std::array<deq_content, deq_sample_count> deq_samples()
{
    return {series_of_tanks(), baseball(), tank_heater(), reacting_slab()};
}

} // namespace kelvarin
