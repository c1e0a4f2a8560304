// The part of Input that follows the mouse pointer over the controls.

#include "controls/input.h"
#include "controls/screen.h"

struct Place {
    float x = 0, y = 0;
};

/// The control's top left corner in twips from its form's client area.
static Place Corner(Control const& control)
{
    Place corner;
    for (Control const* each = &control; each->Container(); each = each->Container()) {
        float const unit = each->Container()->TwipsPerUnit();
        corner.x += each->Left * unit;
        corner.y += each->Top * unit;
    }
    return corner;
}

Refusal Input::Mouse(Control& control, MouseAction action, float x, float y)
{
    if (auto refusal = Blocked(control); !refusal.empty())
        return refusal;
    auto const corner = Corner(control);
    float const unit = control.TwipsPerUnit();
    m_underPointer = &control;
    m_pointerX = corner.x + x * unit;
    m_pointerY = corner.y + y * unit;
    m_reportedX = x;
    m_reportedY = y;
    bool const isDown = action == MouseAction::Down;
    auto const* const handler = isDown ? &control.MouseDown
        : action == MouseAction::Move  ? &control.MouseMove
                                       : &control.MouseUp;
    return Act(control, isDown && control.TakesFocusByClick(),
        [&control, handler, x, y] { control.Raise(*handler, x, y); });
}

Refusal Input::Fire(Timer& timer)
{
    std::string const name = std::string(timer.ParentForm().Name()) + "." + timer.Name();
    if (!timer.ParentForm().IsLoaded())
        return std::string(timer.ParentForm().Name()) + " isn't loaded";
    if (!timer.Enabled || timer.Interval <= 0)
        return name + " is off";
    if (timer.ParentForm().IsBusy())
        return {};
    timer.Fire();
    ReportRestingPointer();
    return {};
}

void Input::ReportRestingPointer()
{
    if (!m_underPointer || !Blocked(*m_underPointer).empty())
        return;
    auto const corner = Corner(*m_underPointer);
    float const unit = m_underPointer->TwipsPerUnit();
    float const x = (m_pointerX - corner.x) / unit;
    float const y = (m_pointerY - corner.y) / unit;
    if (x == m_reportedX && y == m_reportedY)
        return;
    m_reportedX = x;
    m_reportedY = y;
    m_underPointer->Raise(m_underPointer->MouseMove, x, y);
}
