// SPDX-License-Identifier: MIT
#include "nle/nle_options.h"

#include <algorithm>

namespace kelvarin
{

mnewt_options mnewt_options_from(const settings& store)
{
    mnewt_options options;
    // Saved values are not checked, and without a trial there would be no residuals to judge.
    options.ntrial = std::max(1, store.whole_number("mnewt_n"));
    options.tolx = store.number("mnewt_tolx");
    options.tolf = store.number("mnewt_tolf");
    return options;
}

newt_options newt_options_from(const settings& store)
{
    newt_options options;
    options.MAXITS = store.whole_number("newt_MAXITS");
    options.TOLF = store.number("newt_TOLF");
    options.TOLMIN = store.number("newt_TOLMIN");
    options.TOLX = store.number("newt_TOLX");
    return options;
}

broydn_options broydn_options_from(const settings& store)
{
    broydn_options options;
    options.MAXITS = store.whole_number("broydn_MAXITS");
    options.EPS = store.number("broydn_EPS");
    options.TOLF = store.number("broydn_TOLF");
    options.TOLX = store.number("broydn_TOLX");
    options.TOLMIN = store.number("broydn_TOLMIN");
    return options;
}

cnle_options cnle_options_from(const settings& store)
{
    cnle_options options;
    options.tol = store.number("cnle_tol");
    options.maxiter = store.whole_number("cnle_maxiter");
    return options;
}

} // namespace kelvarin
