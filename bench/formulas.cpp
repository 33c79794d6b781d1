// SPDX-License-Identifier: MIT
#include "formulas.h"

#include <cmath>

namespace kelvarin::bench
{

namespace
{

double native_cubic(double* s)
{
    const double x = s[0];
    return 2 * (x * x * x) - 3 * (x * x) + 4 * x - 5;
}

double native_rate(double* s)
{
    return s[0] * s[1] * std::exp(-s[2] / (s[3] * s[4]));
}

double native_chain(double* s)
{
    s[1] = s[0] * 1.5 + 0.25;
    s[2] = s[1] * s[0] - s[1] / (1 + s[0] * s[0]);
    s[3] = (s[2] + s[1]) * 0.5;
    s[4] = s[3] * s[3] + s[2];
    s[5] = s[4] / (1 + s[3] * s[3]);
    s[6] = s[5] - s[4] * 0.1;
    s[7] = s[6] * s[1] + s[0];
    s[8] = s[7] / (2 + s[6] * s[6]);
    s[9] = s[8] + s[7] * s[0];
    s[10] = s[9] - s[8] * s[8];
    s[11] = s[10] * 0.3 + s[9];
    s[12] = s[11] / (1 + s[10] * s[10]);
    s[13] = s[12] * s[1] - s[11];
    s[14] = (s[13] + s[12]) * (s[11] - s[10]);
    s[15] = s[14] * 0.01 + s[13];
    s[16] = s[15] / (3 + s[14] * s[14]);
    s[17] = s[16] + s[15];
    s[18] = s[17] * s[16] - s[2];
    s[19] = s[18] * 0.2 + s[3];
    s[20] = s[19] / (1 + s[18] * s[18]);
    s[21] = s[20] - s[19];
    s[22] = s[21] * s[20] + s[4];
    s[23] = s[22] * 0.7;
    s[24] = s[23] + s[22] / 4;
    s[25] = s[24] * s[1] - s[23];
    s[26] = s[25] / (5 + s[24] * s[24]);
    s[27] = s[26] + s[25] * s[0];
    s[28] = s[27] * 0.9 - s[26];
    s[29] = s[28] + s[27];
    s[30] = s[29] * s[28] / (1 + s[27] * s[27]);
    return s[30];
}

std::string unknown(int i)
{
    return "x" + std::to_string(i);
}

} // namespace

formula cubic()
{
    return {"cubic", {{"x", 1.3}}, {{"y", "2*x^3-3*x^2+4*x-5"}}, native_cubic};
}

formula rate()
{
    return {"rate",
            {{"k1", 2.0}, {"ca", 1.5}, {"e", 30000.0}, {"r", 8.314}, {"t", 350.0}},
            {{"v", "k1*ca*exp(-e/(r*t))"}},
            native_rate};
}

formula chain()
{
    const std::vector<std::string> texts = {
        "x*1.5+0.25", "s1*x-s1/(1+x*x)",     "(s2+s1)*0.5",  "s3*s3+s2",        "s4/(1+s3*s3)", "s5-s4*0.1",
        "s6*s1+x",    "s7/(2+s6*s6)",        "s8+s7*x",      "s9-s8*s8",        "s10*0.3+s9",   "s11/(1+s10*s10)",
        "s12*s1-s11", "(s13+s12)*(s11-s10)", "s14*0.01+s13", "s15/(3+s14*s14)", "s16+s15",      "s17*s16-s2",
        "s18*0.2+s3", "s19/(1+s18*s18)",     "s20-s19",      "s21*s20+s4",      "s22*0.7",      "s23+s22/4",
        "s24*s1-s23", "s25/(5+s24*s24)",     "s26+s25*x",    "s27*0.9-s26",     "s28+s27",      "s29*s28/(1+s27*s27)"};
    formula made = {"chain of 30", {{"x", 0.7}}, {}, native_chain};
    for (const std::string& text : texts)
        made.equations.push_back({"s" + std::to_string(made.equations.size() + 1), text});
    return made;
}

std::vector<std::string> broyden_unknowns(int n)
{
    std::vector<std::string> names;
    for (int i = 1; i <= n; ++i)
        names.push_back(unknown(i));
    return names;
}

std::vector<std::string> broyden_texts(int n)
{
    std::vector<std::string> texts;
    for (int i = 1; i <= n; ++i) {
        std::string text = "(3-2*" + unknown(i) + ")*" + unknown(i);
        if (i > 1) text += "-" + unknown(i - 1);
        if (i < n) text += "-2*" + unknown(i + 1);
        texts.push_back(text + "+1");
    }
    return texts;
}

void broyden_native(std::span<const double> x, std::span<double> f)
{
    const std::size_t n = x.size();
    for (std::size_t i = 0; i < n; ++i) {
        double residual = (3 - 2 * x[i]) * x[i];
        if (i > 0) residual -= x[i - 1];
        if (i + 1 < n) residual -= 2 * x[i + 1];
        f[i] = residual + 1;
    }
}

} // namespace kelvarin::bench
