// SPDX-License-Identifier: MIT
#include "nle/nle_options.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

/// Settings in which every value of the nonlinear methods is another.
settings distinct_settings()
{
    settings store;
    double value = 0.001;
    for (const char* key : {"mnewt_tolx", "mnewt_tolf", "newt_TOLF", "newt_TOLMIN", "newt_TOLX", "broydn_EPS",
                            "broydn_TOLF", "broydn_TOLX", "broydn_TOLMIN", "cnle_tol"}) {
        EXPECT_FALSE(store.set_value(key, std::to_string(value)));
        value += 0.001;
    }
    int count = 11;
    for (const char* key : {"mnewt_n", "newt_MAXITS", "broydn_MAXITS", "cnle_maxiter"})
        EXPECT_FALSE(store.set_value(key, std::to_string(count++)));
    return store;
}

TEST(NleOptions, EachComesFromItsOwnSetting)
{
    const settings store = distinct_settings();
    using values = std::vector<double>;
    const mnewt_options fast = mnewt_options_from(store);
    EXPECT_EQ((values{fast.tolx, fast.tolf}), (values{0.001, 0.002}));
    const newt_options safe = newt_options_from(store);
    EXPECT_EQ((values{safe.TOLF, safe.TOLMIN, safe.TOLX}), (values{0.003, 0.004, 0.005}));
    const broydn_options broyden = broydn_options_from(store);
    EXPECT_EQ((values{broyden.EPS, broyden.TOLF, broyden.TOLX, broyden.TOLMIN}), (values{0.006, 0.007, 0.008, 0.009}));
    const cnle_options constrained = cnle_options_from(store);
    EXPECT_EQ(constrained.tol, 0.01);
    const std::vector counts = {fast.ntrial, safe.MAXITS, broyden.MAXITS, constrained.maxiter};
    EXPECT_EQ(counts, (std::vector{11, 12, 13, 14}));
}

TEST(NleOptions, ASavedTextThatIsNoNumberStillLeavesOneTrial)
{
    memory_registry saved;
    saved.write("Software\\WinKlvn\\settings\\mnewt_n", "value", "many");
    EXPECT_EQ(mnewt_options_from(settings(saved)).ntrial, 1);
}

} // namespace
} // namespace kelvarin
