// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include <array>

namespace kelvarin
{

namespace
{

using enum setting_type;

constexpr std::string_view first_step =
    "The first step, in units of the independent variable; the error decides on the "
    "others. With 0 a run fails.";
constexpr std::string_view relative_error =
    "The largest error of a step, relative to each variable. A smaller one gives "
    "more digits and takes more steps.";
constexpr std::string_view absolute_error =
    "The largest error of a step, in hundredths for every variable: 1E-05 stands "
    "for 0.0000001. With variables of thousands and more take a larger one.";
constexpr std::string_view shortest_step =
    "The shortest next step, in units of the independent variable. A run that comes "
    "down to it goes on with it, and with a thousandfold eps if that is below "
    "1E-05.";

// One row per setting; window, store and options use these rows. The upper bound 0.1 of all tolerances and steps is
// intended.
constexpr std::array table = std::to_array<setting_row>({
    {"general_show_status_bar", boolean, "True", 0, 0, "General", "Show status bar"},
    {"general_show_background_pictures", boolean, "False", 0, 0, "General", "Show background pictures"},
    {"table_cols", integer, "30", 2, 120, "Data table", "Initial # Columns"},
    {"table_rows", integer, "300", 10, 600, "Data table", "Initial # Rows"},
    {"Graph_ver_gridline", boolean, "False", 0, 0, "Graph", "Use vertical gridlines"},
    {"Graph_hor_gridline", boolean, "False", 0, 0, "Graph", "Use horizontal gridlines"},
    {"Graph_default_marker_size", integer, "40", 30, 200, "Graph", "Default marker size "},
    {"Graph_default_title", string, "Graph Title", 0, 0, "Graph", "Default title "},
    {"Graph_default_sub_title", string, " ", 0, 0, "Graph", "Default sub title "},
    {"Graph_query_unload_save", boolean, "False", 0, 0, "Graph", "Query for save on close "},
    {"mnewt_n", integer, "150", 10, 300, "Nonlinear equations / Fast Newton", "N Trial = "},
    {"mnewt_tolx", floating, "1E-07", 0, 0.1, "Nonlinear equations / Fast Newton", "Tolerance total x = "},
    {"mnewt_tolf", floating, "1E-07", 0, 0.1, "Nonlinear equations / Fast Newton", "Tolerance total f = "},
    {"newt_MAXITS", integer, "150", 10, 300, "Nonlinear equations / Safe Newton", "Max # of iterations = "},
    {"newt_TOLF", floating, "1E-07", 0, 0.1, "Nonlinear equations / Safe Newton", "Tolerance f = "},
    {"newt_TOLMIN", floating, "1E-07", 0, 0.1, "Nonlinear equations / Safe Newton", "Tolerance min = "},
    {"newt_TOLX", floating, "1E-07", 0, 0.1, "Nonlinear equations / Safe Newton", "Tolerance x = "},
    {"broydn_MAXITS", integer, "150", 10, 300, "Nonlinear equations / Safe Broydn", "Max # of iterations = "},
    {"broydn_EPS", floating, "1E-07", 0, 0.1, "Nonlinear equations / Safe Broydn", "eps = "},
    {"broydn_TOLF", floating, "1E-07", 0, 0.1, "Nonlinear equations / Safe Broydn", "Tolerance f = "},
    {"broydn_TOLX", floating, "1E-07", 0, 0.1, "Nonlinear equations / Safe Broydn", "Tolerance x = "},
    {"broydn_TOLMIN", floating, "1E-07", 0, 0.1, "Nonlinear equations / Safe Broydn", "Tolerance min = "},
    {"cnle_maxiter", integer, "150", 10, 300, "Nonlinear equations / Constr NLE", "Maximum number of iterations = "},
    {"cnle_tol", floating, "1E-07", 0, 0.1, "Nonlinear equations / Constr NLE", "Convergence tolerance = "},
    {"opt_cg_MAXITER", integer, "100", 10, 300, "", ""},
    {"opt_cg_eps", floating, "1E-09", 0, 0.1, "", ""},
    {"opt_qn_MAXITER", integer, "100", 10, 300, "", ""},
    {"opt_qn_eps", floating, "1E-09", 0, 0.1, "", ""},
    {"deq_Intermediate_data_points", integer, "100", 20, 500, "Ordinary differential equations",
     "Intermediate data points",
     "About so many points of a run are kept for table, graph and report. No step is longer than 0.8 of their "
     "distance, so that fewer points may mean fewer steps."},
    {"rkf45_h", floating, "1E-06", 0, 0.1, "Ordinary differential equations / RKF45", "Initial step size", first_step},
    {"rkf45_tetol", floating, "1E-06", 0, 0.1, "Ordinary differential equations / RKF45", "Truncation error tolerance",
     relative_error},
    {"rkf56_h", floating, "1E-06", 0, 0.1, "Ordinary differential equations / RKF56", "Initial step size", first_step},
    {"rkf56_tetol", floating, "1E-06", 0, 0.1, "Ordinary differential equations / RKF56", "Truncation error tolerance",
     "The largest error of a step, relative to each variable. Where the right sides depend on the independent variable "
     "alone the method does not see its error."},
    {"rk5_eps", floating, "1E-05", 0, 0.1, "", ""},
    {"rk5_h1", floating, "0.0001", 0, 0.1, "", ""},
    {"rk5_hmin", floating, "0", 0, 0.1, "", ""},
    {"BS_eps", floating, "1E-05", 0, 0.1, "Ordinary differential equations / BS", "Indep variable accuracy",
     "The largest error of a step, relative to each variable and what it changes by. A smaller one gives more digits "
     "and takes more steps."},
    {"BS_h1", floating, "0.001", 0, 0.1, "Ordinary differential equations / BS", "Initial step size",
     "The first step as a part of the range, though the caption does not say so."},
    {"BS_hmin", floating, "1E-15", 0, 0.1, "Ordinary differential equations / BS", "Minimum allowed stepsize",
     "A step that comes down to this part of the range ends the run."},
    {"stiff_eps", floating, "1E-05", 0, 0.1, "Ordinary differential equations / Stiff", "Indep variable accuracy",
     absolute_error},
    {"stiff_h1", floating, "0.0001", 0, 0.1, "Ordinary differential equations / Stiff", "Initial step size",
     first_step},
    {"stiff_hmin", floating, "1E-08", 0, 0.1, "Ordinary differential equations / Stiff", "Minimum allowed stepsize",
     shortest_step},
    {"stiffBS_eps", floating, "1E-05", 0, 0.1, "Ordinary differential equations / Stiff-BS", "Indep variable accuracy",
     absolute_error},
    {"stiffBS_h1", floating, "0.001", 0, 0.1, "Ordinary differential equations / Stiff-BS", "Initial step size / range",
     "The first step, in units of the independent variable and not as a part of the range, whatever the caption says."},
    {"stiffBS_hmin", floating, "1E-05", 0, 0.1, "Ordinary differential equations / Stiff-BS",
     "Minimum allowed stepsize / range",
     "The shortest next step, in units of the independent variable and not as a part of the range, whatever the "
     "caption "
     "says. A run that comes down to it goes on with it, and with a thousandfold eps if that is below 1E-05."},
    {"nonlinearreg_maxiter", integer, "64", 10, 300, "Regression / Nonlinear / mrqmin", "Max # iterations"},
    {"nonlinearreg_tol", floating, "0.0001", 0, 0.1, "Regression / Nonlinear / mrqmin", "Tolerance"},
    {"nonlinearreg_lm_maxiter", integer, "64", 10, 300, "Regression / Nonlinear / LM", "Max # iterations"},
});

} // namespace

std::span<const setting_row> settings_table()
{
    return table;
}

} // namespace kelvarin
