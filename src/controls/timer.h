#pragma once
// A timer: while it is enabled and its interval is above 0, the host fires it.

#include "controls/control.h"

class Timer final : public Control {
public:
    Timer(Form& form, char const* name, int interval);

    char const* Kind() const override { return "Timer"; }
    /// Called by the host: the interval has passed. Does nothing if the timer is off.
    void Fire();

    Property<int> Interval; ///< milliseconds

    Event Tick;
};
