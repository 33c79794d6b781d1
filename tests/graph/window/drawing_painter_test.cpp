// SPDX-License-Identifier: MIT
#include "graph/graph_drawing.h"
#include "graph/window/drawing_painter.h"
#include "support/graphs.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>

#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <variant>
#include <vector>

namespace kelvarin::test
{
namespace
{

constexpr double points_per_pixel = 0.75;

/// Many points: a smooth curve, noise about a level, and a level line with one point far above it.
graph_content many_points(std::size_t spike)
{
    constexpr std::size_t count = 40000;
    std::mt19937 generator(7);
    std::normal_distribution<double> noise;
    std::vector<double> x, smooth, noisy, level;
    for (std::size_t i = 0; i < count; ++i) {
        x.push_back(10.0 * static_cast<double>(i) / count);
        smooth.push_back(6.0 + std::sin(3.0 * x.back()) * x.back() / 4.0);
        noisy.push_back(12.0 + 0.3 * noise(generator));
        level.push_back(i == spike ? 20.0 : 1.0);
    }
    return graph_of({x, smooth, noisy, level});
}

QImage image_of(const graph_content& graph, bool thinned)
{
    const toolkit_metrics metrics;
    const drawing_options page = {.width = 600.0, .height = 450.0, .pixel = thinned ? points_per_pixel : 0.0};
    return picture_image(draw_graph(graph, page, metrics).picture, 1.0 / points_per_pixel);
}

/// The part of the pixels in which two pictures differ by no more than a sixteenth of a colour's range.
double equal_part(const QImage& one, const QImage& other)
{
    constexpr int seen_as_equal = 16;
    int equal = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            const int distance =
                std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
            if (distance <= seen_as_equal) ++equal;
        }
    return static_cast<double>(equal) / (one.width() * one.height());
}

TEST(ThinnedPicture, IsThatOfAllPointsAndLosesNoSpike)
{
    for (const std::size_t spike : {12345U, 23456U, 39998U}) {
        const graph_content graph = many_points(spike);
        const QImage thinned = image_of(graph, true);
        EXPECT_GE(equal_part(thinned, image_of(graph, false)), 0.999) << spike;
        const graph_drawing drawn = draw_graph(graph, {.width = 600.0, .height = 450.0});
        // Below the point, at the height that the noise of the curve under it never reaches.
        const drawn_point top = drawn.mapping->at(graph.columns[0].values[spike], 17.0);
        const QColor seen =
            thinned.pixelColor(static_cast<int>(top.x / points_per_pixel), static_cast<int>(top.y / points_per_pixel));
        EXPECT_LT(seen.lightness(), 250) << spike;
    }
}

TEST(ThinnedPicture, IsThatOfAllPointsWithMarkers)
{
    graph_content graph = many_points(20000);
    graph.draw_points = true;
    graph.scatter_connected = false;
    // Markers painted upon each other in one pixel have harder edges than the one that thinning leaves.
    EXPECT_GE(equal_part(image_of(graph, true), image_of(graph, false)), 0.99);
}

TEST(GraphPdf, HoldsTitlesAndLabelsAsTexts)
{
    const scratch_folder folder;
    graph_content graph = graph_of({{0, 1, 2}, {10, 20, 40}, {5, 30, 25}});
    graph.title = "Decay & growth";
    graph.subtitle = "two curves";
    graph.x_title = "time in seconds";
    graph.y_title = "amount < 50";
    const toolkit_metrics metrics;
    const drawn_picture picture = draw_graph(graph, {}, metrics).picture;
    folder.write("graph.pdf", picture_pdf(picture, QStringLiteral("Graph")));
    ASSERT_EQ(std::system("pdftotext -layout graph.pdf graph.txt"), 0);
    const std::string text = folder.read("graph.txt");
    std::size_t texts = 0;
    for (const drawn_shape& shape : picture.shapes)
        if (const auto* written = std::get_if<drawn_text>(&shape)) {
            EXPECT_THAT(text, testing::HasSubstr(written->text));
            ++texts;
        }
    EXPECT_GE(texts, 4U + 2U + 4U) << "titles, legend and labels";
}

} // namespace
} // namespace kelvarin::test
