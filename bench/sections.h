// SPDX-License-Identifier: MIT
#pragma once

/// The sections of the table. Each prints its lines, and throws where values are wrong.
namespace kelvarin::bench
{

/// One evaluation of a formula, with the check that everything is finite.
void measure_evaluation();
/// From 30 texts to the form that is evaluated.
void measure_compiling();
/// The Jacobian of 100 equations by forward differences.
void measure_jacobian();
/// Dense systems of linear equations.
void measure_linear_solve();
/// From the start to the solution of a nonlinear system, compiled before.
void measure_newton();
/// Polynomials, fits of columns and nonlinear fits.
void measure_fits();
/// Initial value problems to equal digits, compiled before, and what their right sides take.
void measure_integration();
/// From the start to the minimum of a target, compiled before.
void measure_minimizers();
/// Whole files by the real program, one after the other.
void measure_batch();
/// The same, two at a time; needs two processors.
void measure_jobs();
/// From a graph to the shapes that are painted.
void measure_graph();
/// Edits of data tables and their files.
void measure_table();
/// The memory of one run of 200 equations.
void measure_memory();

} // namespace kelvarin::bench
