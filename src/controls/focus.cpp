// The part of Screen that knows which form is active and where the focus is.

#include "controls/screen.h"

#include <algorithm>

void Screen::Activate(Form& form)
{
    if (m_active == &form) {
        ResumeFocus();
        return;
    }
    if (!form.Visible || (Modal() && Modal() != &form))
        return;
    SuspendFocus();
    Form* const left = m_active;
    if (!form.m_loaded || !form.Visible || m_active != left)
        return; // The handler of LostFocus closed the form, or activated another.
    m_active = &form;
    std::erase(m_zOrder, &form);
    m_zOrder.push_back(&form);
    m_host.FormActivated(&form);
    ResumeFocus();
}

void Screen::ActivateLast()
{
    m_active = nullptr;
    m_hasFocus = false;
    auto const last = std::find_if(m_zOrder.rbegin(), m_zOrder.rend(),
        [this](Form* form) { return form->Visible && (!Modal() || Modal() == form); });
    if (last != m_zOrder.rend())
        Activate(**last);
    else
        m_host.FormActivated(nullptr);
}

void Screen::SuspendFocus()
{
    if (!m_active || !m_hasFocus)
        return;
    m_hasFocus = false;
    if (Control* const control = m_active->m_focus)
        control->Raise(control->LostFocus);
}

void Screen::ResumeFocus()
{
    if (!m_active || m_hasFocus)
        return;
    m_hasFocus = true;
    Form& form = *m_active;
    if (!form.m_focus || !CanTakeFocus(*form.m_focus))
        form.m_focus = NextInTabOrder(form, nullptr);
    if (form.m_focus) {
        m_host.FocusMoved(form);
        form.m_focus->Raise(form.m_focus->GotFocus);
    }
}

void Screen::SetFocus(Control& control)
{
    Form& form = control.ParentForm();
    if (!CanTakeFocus(control) || form.m_focus == &control)
        return;
    MoveFocus(form, &control);
}

void Screen::MoveFocus(Form& form, Control* control)
{
    bool const holding = m_active == &form && m_hasFocus;
    Control* const left = form.m_focus;
    if (holding && left) {
        m_hasFocus = false;
        left->Raise(left->LostFocus);
        if (form.m_focus != left || m_active != &form || m_hasFocus)
            return; // The handler of LostFocus moved the focus, or left the form.
    }
    form.m_focus = control;
    m_host.FocusMoved(form);
    if (!holding)
        return;
    m_hasFocus = true;
    if (control)
        control->Raise(control->GotFocus);
}

bool Screen::CanTakeFocus(Control const& control) const
{
    return control.CanFocus() && control.ParentForm().IsLoaded() && control.IsShown()
        && control.IsUsable();
}

Control* Screen::NextInTabOrder(Form const& form, Control const* from, bool backwards) const
{
    std::vector<Control*> stops;
    for (Control* control : form.Controls())
        if (control == from || CanTakeFocus(*control))
            stops.push_back(control);
    std::stable_sort(stops.begin(), stops.end(),
        [](Control* left, Control* right) { return left->TabIndex < right->TabIndex; });
    if (backwards)
        std::reverse(stops.begin(), stops.end());
    auto const found = std::find(stops.begin(), stops.end(), from);
    if (found != stops.end())
        std::rotate(stops.begin(), found + 1, stops.end());
    auto const next = std::find_if(
        stops.begin(), stops.end(), [this](Control* control) { return CanTakeFocus(*control); });
    return next == stops.end() ? nullptr : *next;
}

void Screen::SettleFocus()
{
    // Each move runs handlers, which can hide or disable the next control: give up after some.
    for (int tries = 0; tries < 8 && m_active && m_hasFocus; ++tries) {
        Form& form = *m_active;
        if (form.m_focus && CanTakeFocus(*form.m_focus))
            return;
        Control* const next = NextInTabOrder(form, form.m_focus);
        if (next == form.m_focus)
            return;
        MoveFocus(form, next);
    }
}
