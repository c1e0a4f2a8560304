// The part of Screen that knows which form is active and where the focus is.

#include "controls/screen.h"

#include <algorithm>

void Screen::Activate(Form& form)
{
    if (m_active == &form) {
        EnterActive();
        return;
    }
    if (!form.Visible || (Modal() && Modal() != &form))
        return;
    LeaveActive();
    Form* const left = m_active;
    if (!form.m_loaded || !form.Visible || m_active != left)
        return; // The handler of LostFocus closed the form, or activated another.
    m_active = &form;
    std::erase(m_order, &form);
    m_order.push_back(&form);
    m_host.FormActivated(&form);
    EnterActive();
}

void Screen::ActivateLast()
{
    m_active = nullptr;
    m_holding = false;
    auto const last = std::find_if(m_order.rbegin(), m_order.rend(),
        [this](Form* form) { return form->Visible && (!Modal() || Modal() == form); });
    if (last != m_order.rend())
        Activate(**last);
    else
        m_host.FormActivated(nullptr);
}

void Screen::LeaveActive()
{
    if (!m_active || !m_holding)
        return;
    m_holding = false;
    if (Control* const control = m_active->m_focus)
        control->Raise(control->LostFocus);
}

void Screen::EnterActive()
{
    if (!m_active || m_holding)
        return;
    m_holding = true;
    Form& form = *m_active;
    if (!form.m_focus || !CanTake(*form.m_focus))
        form.m_focus = NextInTabOrder(form, nullptr);
    if (form.m_focus) {
        m_host.FocusMoved(form);
        form.m_focus->Raise(form.m_focus->GotFocus);
    }
}

void Screen::SuspendFocus()
{
    LeaveActive();
}

void Screen::ResumeFocus()
{
    EnterActive();
}

void Screen::SetFocus(Control& control)
{
    Form& form = control.ParentForm();
    if (!CanTake(control) || form.m_focus == &control)
        return;
    MoveFocus(form, &control);
}

void Screen::MoveFocus(Form& form, Control* control)
{
    bool const holding = m_active == &form && m_holding;
    Control* const left = form.m_focus;
    if (holding && left) {
        m_holding = false;
        left->Raise(left->LostFocus);
        if (form.m_focus != left || m_active != &form || m_holding)
            return; // The handler of LostFocus moved the focus, or left the form.
    }
    form.m_focus = control;
    m_host.FocusMoved(form);
    if (!holding)
        return;
    m_holding = true;
    if (control)
        control->Raise(control->GotFocus);
}

bool Screen::CanTake(Control const& control) const
{
    return control.CanFocus() && control.ParentForm().IsLoaded() && control.IsShown()
        && control.IsUsable();
}

Control* Screen::NextInTabOrder(Form const& form, Control const* from, bool backwards) const
{
    std::vector<Control*> stops;
    for (Control* control : form.Controls())
        if (control == from || CanTake(*control))
            stops.push_back(control);
    std::stable_sort(stops.begin(), stops.end(),
        [](Control* left, Control* right) { return left->TabIndex < right->TabIndex; });
    if (backwards)
        std::reverse(stops.begin(), stops.end());
    auto const found = std::find(stops.begin(), stops.end(), from);
    if (found != stops.end())
        std::rotate(stops.begin(), found + 1, stops.end());
    auto const next = std::find_if(
        stops.begin(), stops.end(), [this](Control* control) { return CanTake(*control); });
    return next == stops.end() ? nullptr : *next;
}

void Screen::SettleFocus()
{
    // Each move runs handlers, which can hide or disable the next control; a form that never comes
    // to rest is left as it is.
    for (int tries = 0; tries < 8 && m_active && m_holding; ++tries) {
        Form& form = *m_active;
        if (form.m_focus && CanTake(*form.m_focus))
            return;
        Control* const next = NextInTabOrder(form, form.m_focus);
        if (next == form.m_focus)
            return;
        MoveFocus(form, next);
    }
}
