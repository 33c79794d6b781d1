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
    const mnewt_options fast = mnewt_options_from(store);
    EXPECT_EQ(fast.tolx, 0.001);
    EXPECT_EQ(fast.tolf, 0.002);
    EXPECT_EQ(fast.ntrial, 11);
    const newt_options safe = newt_options_from(store);
    EXPECT_EQ(safe.TOLF, 0.003);
    EXPECT_EQ(safe.TOLMIN, 0.004);
    EXPECT_EQ(safe.TOLX, 0.005);
    EXPECT_EQ(safe.MAXITS, 12);
    const broydn_options broyden = broydn_options_from(store);
    EXPECT_EQ(broyden.EPS, 0.006);
    EXPECT_EQ(broyden.TOLF, 0.007);
    EXPECT_EQ(broyden.TOLX, 0.008);
    EXPECT_EQ(broyden.TOLMIN, 0.009);
    EXPECT_EQ(broyden.MAXITS, 13);
    const cnle_options constrained = cnle_options_from(store);
    EXPECT_EQ(constrained.tol, 0.01);
    EXPECT_EQ(constrained.maxiter, 14);
}

TEST(NleOptions, ASavedTextThatIsNoNumberStillLeavesOneTrial)
{
    memory_registry saved;
    saved.write("Software\\WinKlvn\\settings\\mnewt_n", "value", "many");
    EXPECT_EQ(mnewt_options_from(settings(saved)).ntrial, 1);
}

} // namespace
} // namespace kelvarin
