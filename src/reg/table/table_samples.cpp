// SPDX-License-Identifier: MIT
#include "reg/table/table_samples.h"

#include "platform/format_mask.h"
#include "platform/run_time_numbers.h"
#include "platform/run_time_text.h"
#include "reg/table/table_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace kelvarin
{

namespace
{

// Texts in the form of files, but with blanks between names and cells.

// Vapour pressure of benzene in mmHg at degrees Celsius.
constexpr std::string_view vapour_pressure = R"(Fitting Polynomials to vapor pressure data
10 9 
TC P TK=TC+273.15 logP=log(P) Trec=1/TK logT=log(TK) T2=TK*TK var11=15917.8-248.69*TK+1.47168*TK^2-0.00391701*TK^3 var1=(P-(var11+3.96315e-06*TK^4))^2/(10-5)
-36.7 1 236.45 0 0.00422922 2.3737393 55908.603 -12386.641 0.01369956
-19.6 5 253.55 0.69897 0.003944 2.4040636 64287.603 -16374.51 0.01002502
-11.5 10 261.65 1 0.0038219 2.4177207 68460.723 -18564.076 0.09668907
-2.6 20 270.55 1.30103 0.00369617 2.4322475 73197.303 -21212.899 0.21825024
7.6 40 280.75 1.60206 0.00356189 2.4483198 78820.563 -24582.289 0.05032251
15.4 60 288.55 1.7781513 0.0034656 2.4602211 83261.103 -27414.131 0.00059932
26.1 100 299.25 2 0.00334169 2.4760342 89550.563 -31680.967 0.10779903
42.2 200 315.35 2.30103 0.00317108 2.4987928 99445.623 -38992.585 0.10277985
60.6 400 333.75 2.60206 0.00299625 2.5234213 111389.06 -48772.586 0.01679867
80.1 760 353.25 2.8808136 0.00283086 2.5480822 124785.56 -60951.285 0.08554146
)";

// T in K, Cp in cal/(mol K).
constexpr std::string_view heat_capacity = R"(Heat capacity of Hydrogen Bromide
18 2 
T Cp
118.99 10.79
120.76 10.80
122.71 10.86
125.48 10.93
127.31 10.99
130.06 10.96
132.41 10.98
135.89 11.03
139.02 11.08
140.25 11.10
145.61 11.19
153.45 11.25
158.03 11.40
162.72 11.61
167.67 11.69
172.86 11.91
177.52 12.07
182.09 12.32
)";

// H. Woods, H. H. Steinour, H. R. Starke, Industrial and Engineering Chemistry 24 (1932) 1207: four compounds in
// percent by weight, and the heat evolved in 180 days in cal/g.
constexpr std::string_view cement_heat = R"(Heat of hardening of portland cement
13 5 
Wpc1 Wpc2 Wpc3 Wpc4 hard_heat
7 26 6 60 78.7
1 29 15 52 74.3
11 56 8 20 104.3
11 31 8 47 87.6
7 52 6 33 95.9
11 55 9 22 109.2
3 71 17 6 102.7
1 31 22 44 72.5
2 54 18 22 93.1
21 47 4 26 115.9
1 40 23 34 83.8
11 66 9 12 113.3
10 68 8 12 109.4
)";

constexpr std::array<std::string_view, 3> file_samples = {vapour_pressure, heat_capacity, cement_heat};

table_content read_sample(std::string_view sample, const table_content& current)
{
    const std::size_t first_line_end = sample.find('\n');
    const std::size_t header = sample.find('\n', first_line_end + 1) + 1;
    std::string text(sample);
    std::replace(text.begin() + static_cast<std::ptrdiff_t>(header), text.end(), ' ', '\t');
    return read_table(text, current).value_or(table_content(current.new_size));
}

table_content make_random_data(const table_content& current, std::uint32_t seed)
{
    constexpr int row_count = 18;
    constexpr const char* mask = "0.000";
    random_generator random;
    random.seed(seed);
    const auto between_0_and_1 = [&random] { return static_cast<double>(random.next(1.0F)); };

    table_content content(current.new_size);
    content.grow({row_count, 5});
    content.calc_digits = current.calc_digits;
    content.title = "Sample random data";
    std::ranges::copy(std::array{"A", "B", "C", "D", "E"}, content.names.begin());
    std::ranges::copy(std::array{"(A - (B ^ 2) / (A ^ 0.5)) / 26 + 10", "3 * A - 4", "A * sin(A)"},
                      content.formulas.begin() + 2);
    cell_editor cells(content.cells);
    for (int row = 0; row < row_count; ++row) {
        cells.set(row, 0, format_masked(row + 1 + between_0_and_1(), mask));
        const double a = cells.number(row, 0).value;
        cells.set(row, 1, format_masked(0.7 * a * a + 18 - 7 * a + between_0_and_1(), mask));
        const double b = cells.number(row, 1).value;
        const std::array calculated = {(a - b * b / std::sqrt(a)) / 26 + 10, 3 * a - 4, a * std::sin(a)};
        for (int column = 0; column < 3; ++column)
            cells.set(row, column + 2,
                      format_digits(calculated[static_cast<std::size_t>(column)], content.calc_digits));
    }
    cells.commit();
    return content;
}

} // namespace

std::vector<std::string> table_sample_titles()
{
    return {"Random data", "Fitting Polynomials", "Heat capacity", "Heat of hardening"};
}

table_content table_sample(int index, const table_content& current, std::uint32_t seed)
{
    if (index == 0) return make_random_data(current, seed);
    return read_sample(file_samples[static_cast<std::size_t>(index - 1)], current);
}

} // namespace kelvarin
