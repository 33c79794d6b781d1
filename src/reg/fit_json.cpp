// SPDX-License-Identifier: MIT
#include "reg/fit_json.h"

#include <cstddef>
#include <span>

namespace kelvarin
{

namespace
{

const char* key_of(regression kind)
{
    switch (kind) {
    case regression::polynomial:
        return "polynomial";
    case regression::multiple:
        return "linear";
    case regression::nonlinear:
        break;
    }
    return "nonlinear";
}

void write_parameters(json_writer& writer, const regression_fit& fit)
{
    writer.key("parameters");
    writer.begin_array();
    for (std::size_t j = 0; j < fit.names.size(); ++j) {
        writer.begin_object();
        writer.member("name", fit.names[j]);
        writer.member("value", fit.values[j]);
        writer.member("confidence", fit.conf[j]);
        if (!fit.guesses.empty()) writer.member("guess", fit.guesses[j]);
        writer.end_object();
    }
    writer.end_array();
}

void write_nonlinear(json_writer& writer, const fit_outcome& outcome, const regression_fit& fit)
{
    writer.member("model", outcome.dependent + " = " + outcome.expression);
    writer.member("method", method_text(outcome.method));
    writer.member("iterations", fit.iterations);
    writer.member("limit_reached", fit.limit_reached);
    if (outcome.method != nonlinear_method::mrqmin) return;
    writer.member("chisq", fit.chisq);
    writer.member("alamda", fit.alamda);
}

void write_fit(json_writer& writer, const fit_outcome& outcome, const regression_fit& fit)
{
    writer.member("n", fit.n);
    if (outcome.kind == regression::polynomial) writer.member("degree", fit.degree);
    if (outcome.kind != regression::nonlinear) writer.member("free_parameter", outcome.free_parameter);
    write_parameters(writer, fit);
    writer.member("R2", fit.statistics.R2);
    writer.member("R2adj", fit.statistics.R2adj);
    writer.member("Rmsd", fit.statistics.Rmsd);
    writer.member("Variance", fit.statistics.Variance);
    if (fit.integral) writer.member("integral", *fit.integral);
    if (fit.derivative) writer.member("derivative", *fit.derivative);
    if (outcome.kind == regression::nonlinear) write_nonlinear(writer, outcome, fit);
}

void write_graph(json_writer& writer, const graph_start& graph)
{
    writer.member("title", graph.caption);
    writer.member("x_name", graph.columns.front().name);
    writer.member("x", std::span<const double>(graph.columns.front().values));
    writer.member_objects("series", std::span(graph.columns).subspan(1), [&](const start_column& column) {
        writer.member("name", column.name);
        writer.member("values", std::span<const double>(column.values));
    });
    writer.member("function", graph.function_text);
}

} // namespace

void write_fit_members(json_writer& writer, const fit_problem& problem, const fit_outcome& outcome, bool with_graphs)
{
    writer.member("regression", key_of(problem.request.kind));
    writer.member("dependent", outcome.dependent);
    writer.member("independent", std::span<const std::string>(outcome.independents));
    writer.member_objects("fits", outcome.fits, [&](const regression_fit& fit) { write_fit(writer, outcome, fit); });
    if (with_graphs)
        writer.member_objects("graphs", outcome.graphs, [&](const graph_start& graph) { write_graph(writer, graph); });
    if (!outcome.stored) return;
    writer.key("stored");
    writer.begin_object();
    writer.member("name", outcome.stored->name);
    writer.member("formula", outcome.stored->formula);
    writer.member("cells", std::span<const std::string>(outcome.stored->cells));
    writer.end_object();
}

} // namespace kelvarin
