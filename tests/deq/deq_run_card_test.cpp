// SPDX-License-Identifier: MIT
#include "deq/deq_run_card.h"
#include "support/deq_problems.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin
{
namespace
{

using test::differential_row;
using test::explicit_row;
using test::integrated;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

deq_run_card card_by(deq_method method, const deq_content& content)
{
    return deq_run_card_of(content, test::run_by(method, content));
}

TEST(DeqRunCard, CountsWhatARunTook)
{
    const deq_content decay = integrated({differential_row("y", "-y")});
    const deq_run_card card = card_by(deq_method::rkf45, decay);
    EXPECT_THAT(card.counts, testing::MatchesRegex("[0-9]+ steps \\(0 rejected\\), [0-9]+ evaluations, step length "
                                                   "1\\.0E-06 to 0\\.008, 0\\.0000 sec"));
    EXPECT_THAT(card.advice, IsEmpty());
    EXPECT_THAT(card_by(deq_method::bs, decay).counts, HasSubstr(" shortened), "));
}

TEST(DeqRunCard, SaysWhatToDoubtAndWhatToTry)
{
    const test::table<deq_method, deq_content, const char*> cases = {
        {deq_method::rkf45, integrated({differential_row("y", "y^2")}, "0", "1.02"),
         "The steps came to nothing at t = "},
        {deq_method::rkf45,
         integrated({differential_row("y", "200*z", "0"), differential_row("z", "-200*y")}, "1000", "1030"),
         "No points were stored between t = "},
        {deq_method::bs,
         integrated({differential_row("y", "200*z", "0"), differential_row("z", "-200*y")}, "1000", "1030"),
         "No points were stored between t = "},
        {deq_method::rkf56, integrated({differential_row("y", "cos(t)*a"), explicit_row("a", "2")}),
         "RKF56 can not see its error if the right sides depend on t alone. Use RKF45."},
        {deq_method::stiff, integrated({differential_row("y", "1", "2 m")}),
         "Row 1 has no number as its initial value; what it begins with was taken, else 0."},
        {deq_method::bs, integrated({differential_row("y", "if t<0.33 then 0 else 1", "0")}, "0", "1e9"),
         "BS can not pass a jump"},
        {deq_method::stiffbs, integrated({differential_row("y", "ln(y-2)")}), "Trial steps of STIFFBS"},
        {deq_method::stiff, integrated({differential_row("y", "1e6*cos(t)")}, "0", "1000"), "The accuracy eps"},
        {deq_method::rkf45, integrated({differential_row("y", "-1e5*(y-cos(t))")}),
         "The problem seems to be stiff: the steps of RKF45 were held down by stability"},
    };
    for (const auto& [method, content, advice] : cases) {
        SCOPED_TRACE(advice);
        const deq_run_card card = card_by(method, content);
        EXPECT_THAT(card.advice, ElementsAre(StartsWith(advice)));
    }
}

} // namespace
} // namespace kelvarin
