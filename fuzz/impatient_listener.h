// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_listener.h"
#include "promise.h"

namespace kelvarin::fuzz
{

/// Cuts runs short after a number of questions: the promise is that they end without harm, not what they find.
class impatient_listener final : public run_listener
{
public:
    explicit impatient_listener(int patience) : patience_(patience) {}

    void fraction_done(double fraction) override { promise(fraction <= 1.0, "no more than all is done"); }
    bool stop_asked() const override { return ++questions_ > patience_; }

private:
    int patience_;
    mutable int questions_ = 0;
};

} // namespace kelvarin::fuzz
