#include "controls/timer.h"

#include "controls/form.h"

Timer::Timer(Form& form, char const* name, int interval)
    : Control(form, form, name, {})
    , Interval(*this, "Interval", interval)
{
    Visible.AssignSilently(false);
}

void Timer::Fire()
{
    if (Enabled && Interval > 0)
        Raise(Tick);
}
