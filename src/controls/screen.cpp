#include "controls/screen.h"

#include <algorithm>
#include <new>
#include <stdexcept>

Screen::Screen(Host& host)
    : m_host(host)
{
}

static void Remove(std::vector<Form*>& forms, Form& form)
{
    std::erase(forms, &form);
}

Form* Screen::Find(std::string_view name) const
{
    auto const found = std::find_if(
        m_made.begin(), m_made.end(), [&](Form* form) { return form->Name() == name; });
    return found == m_made.end() ? nullptr : *found;
}

bool Screen::IsModal(Form const& form) const
{
    return std::find(m_modal.begin(), m_modal.end(), &form) != m_modal.end();
}

void Screen::EnterHandler(Form& form)
{
    ++m_depth;
    ++form.m_handlers;
}

void Screen::LeaveHandler(Form& form)
{
    --form.m_handlers;
    if (m_depth == 1)
        Try([this] { SettleFocus(); });
    --m_depth;
    if (m_depth == 0) {
        Try([this] {
            m_host.HandlersEnded();
            if (handlersEnded)
                handlersEnded();
        });
        TellOfFailure();
    }
    Try([&form] { form.RunKept(); });
}

void Screen::RunHandler(Form& form, std::function<void()> const& handler)
{
    EnterHandler(form);
    Try(handler);
    LeaveHandler(form);
}

/// Memory that can't be had, and a length that no text can have, end the work and nothing else.
void Screen::Try(std::function<void()> const& work)
{
    try {
        work();
    } catch (std::bad_alloc const&) {
        m_handlerFailed = true;
    } catch (std::length_error const&) {
        m_handlerFailed = true;
    }
}

void Screen::TellOfFailure()
{
    if (m_tellsOfFailure || !std::exchange(m_handlerFailed, false) || !handlerFailed)
        return;
    m_tellsOfFailure = true;
    Try(handlerFailed);
    m_tellsOfFailure = false;
    m_handlerFailed = false; // It is told once.
}

void Screen::SaveDesigns()
{
    for (Form* form : m_made) {
        form->SaveDesign();
        form->m_designKept = true;
    }
}

void Screen::Load(Form& form)
{
    if (form.m_loaded)
        return;
    EnterHandler(form);
    form.m_loaded = true;
    form.m_cameUp = false;
    form.m_focus = nullptr;
    if (!form.m_designKept)
        form.SaveDesign();
    form.m_designKept = true;
    form.Reset();
    form.PlaceAtLoad();
    m_loaded.push_back(&form);
    m_everLoaded = true;
    m_host.FormLoaded(form);
    Try([&form] { form.Form_Load(); });
    LeaveHandler(form);
}

void Screen::Show(Form& form)
{
    Load(form);
    if (!form.m_loaded)
        return;
    EnterHandler(form);
    if (!form.Visible) {
        form.Visible = true;
        m_order.insert(m_order.begin(), &form);
        if (!form.m_cameUp) {
            form.m_cameUp = true;
            form.RunResize();
        }
    }
    if (form.Visible)
        BringUp(form);
    LeaveHandler(form);
}

void Screen::BringUp(Form& form)
{
    bool const isBlocked = Modal() && Modal() != &form;
    if (form.WindowState() == WindowState::Minimised && !isBlocked)
        form.ChangeState(form.m_openState);
    Activate(form);
}

void Screen::ShowModal(Form& form)
{
    Load(form);
    if (!form.m_loaded)
        return;
    if (form.Visible) {
        BringUp(form);
        return;
    }
    LeaveActive();
    TellBlocked(form);
    m_modal.push_back(&form);
    Show(form);
    if (!form.m_loaded)
        return;
    // The handler that waits here is not the outermost one for what happens on the modal form.
    int const depth = std::exchange(m_depth, 0);
    m_host.HandlersEnded();
    m_host.RunModal(form);
    m_depth = depth;
    Remove(m_modal, form);
}

void Screen::TellBlocked(Form const& modal)
{
    for (Form* form : std::vector(m_loaded)) {
        if (form == &modal || !form->m_loaded)
            continue;
        RunHandler(*form, [form] { form->Form_Blocked(); });
    }
}

void Screen::Hide(Form& form)
{
    if (!form.m_loaded || !form.Visible)
        return;
    EnterHandler(form);
    if (m_active == &form)
        LeaveActive();
    form.Visible = false;
    Remove(m_order, form);
    if (m_active == &form)
        ActivateLast();
    LeaveHandler(form);
}

void Screen::Unload(Form& form)
{
    if (!form.m_loaded || form.m_unloading)
        return;
    form.m_unloading = true;
    EnterHandler(form);
    if (m_active == &form)
        LeaveActive();
    Try([&form] { form.Form_Unload(); });
    form.m_loaded = false;
    form.m_unloading = false;
    form.m_queuedActions.clear();
    form.m_closeRequested = false;
    form.Visible.AssignSilently(false);
    Remove(m_loaded, form);
    Remove(m_order, form);
    Remove(m_modal, form);
    m_host.FormUnloaded(form);
    if (m_active == &form)
        ActivateLast();
    LeaveHandler(form);
}

void Screen::CloseAll()
{
    while (!m_ended && !m_loaded.empty())
        Unload(m_modal.empty() ? *m_loaded.back() : *m_modal.back());
}

void Screen::Message(TextView text)
{
    bool const held = m_holding;
    LeaveActive();
    m_host.HandlersEnded();
    m_host.MessageBox(text, u"Sparrowfield");
    if (held)
        EnterActive();
}

void Load(Form& form)
{
    form.GetScreen().Load(form);
}

void Unload(Form& form)
{
    form.GetScreen().Unload(form);
}
