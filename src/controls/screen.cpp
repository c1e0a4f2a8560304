// How a user action becomes a handler. The host calls Input, which checks that the control can be
// used, activates its form, moves the focus and raises the event. For example, the user has typed
// in Text3 and clicks Command1:
//
//     Input::Click(Command1)
//         Text3.LostFocus, Command1.GotFocus     each a handler of its own
//         Command1.Click                         only if Command1 can still be used
//     Host::HandlersEnded                        the host updates its widgets
//
// Handlers may run within handlers, for instance if Command1 shows another form. Only the end of
// the outermost one moves the focus away from a control that was hidden or disabled and tells the
// host. In a turn that long work gives, handlers of other forms may run within it, but none of its
// own form. A modal form is served by a loop of the host within the handler that showed it; its
// handlers count as outermost. Each form remembers which of its controls had the focus. While a
// message is shown or another program is active, the focus is suspended: LostFocus then, GotFocus
// after.

#include "controls/screen.h"

#include "controls/key_codes.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <stdexcept>

/// In percent: small steps near the design, as browsers have them.
static constexpr int textSizes[] = { 50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300 };

/// A plus may be typed with Shift.
static std::vector<KeyShortcut> MakeTextSizeKeys(std::function<void(int step)> const& step)
{
    std::vector<KeyShortcut> keys;
    for (auto const& [keyCode, by] : { std::pair(int { keyPlus }, 1), { keyAdd, 1 },
             { keyMinus, -1 }, { keySubtract, -1 }, { '0', 0 } })
        for (int const shift : { int { controlHeld }, controlHeld | shiftHeld })
            if (shift == controlHeld || keyCode == keyPlus)
                keys.push_back({ keyCode, shift, [step, by = by] { step(by); } });
    return keys;
}

Screen::Screen(Host& host)
    : m_host(host)
    , m_textSizeKeys(MakeTextSizeKeys([this](int step) { StepTextSize(step); }))
{
}

KeyShortcut const* Screen::FindTextSizeKey(int keyCode, int shift) const
{
    auto const found = std::ranges::find_if(m_textSizeKeys,
        [=](auto const& key) { return key.keyCode == keyCode && key.shift == shift; });
    return found == m_textSizeKeys.end() ? nullptr : &*found;
}

void Screen::SetTextSize(int percent)
{
    m_textSize = *std::ranges::min_element(textSizes, {},
        [percent](int size) { return std::abs(static_cast<std::int64_t>(size) - percent); });
    for (Form* form : m_loaded)
        for (Control* control : form->Controls())
            if (control->isReadingPane)
                m_host.ContentChanged(*control);
}

void Screen::StepTextSize(int step)
{
    auto const* const present = std::ranges::find(textSizes, m_textSize);
    auto const* const last = std::end(textSizes) - 1;
    int const wanted = step == 0 ? 100
        : step > 0               ? *std::min(present + 1, last)
                                 : *std::max(present - 1, std::begin(textSizes));
    if (wanted == m_textSize)
        return;
    SetTextSize(wanted);
    if (textSizeStepped)
        textSizeStepped();
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

void Screen::BeginHandler(Form& form)
{
    ++m_depth;
    ++form.m_handlers;
}

void Screen::EndHandler(Form& form)
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
        ReportFailure();
    }
    Try([&form] { form.RunQueuedActions(); });
}

void Screen::RunHandler(Form& form, std::function<void()> const& handler)
{
    BeginHandler(form);
    Try(handler);
    EndHandler(form);
}

/// If memory runs out, or a text gets too long, only this work ends.
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

void Screen::ReportFailure()
{
    if (m_reportsFailure || !std::exchange(m_handlerFailed, false) || !handlerFailed)
        return;
    m_reportsFailure = true;
    Try(handlerFailed);
    m_reportsFailure = false;
    m_handlerFailed = false; // reported once
}

void Screen::SaveDesigns()
{
    for (Form* form : m_made) {
        form->SaveDesign();
        form->m_designSaved = true;
    }
}

void Screen::Load(Form& form)
{
    if (form.m_loaded)
        return;
    BeginHandler(form);
    form.m_loaded = true;
    form.m_wasShown = false;
    form.m_focus = nullptr;
    if (!form.m_designSaved)
        form.SaveDesign();
    form.m_designSaved = true;
    form.Reset();
    form.PlaceAtLoad();
    m_loaded.push_back(&form);
    m_everLoaded = true;
    m_host.FormLoaded(form);
    Try([&form] { form.Form_Load(); });
    EndHandler(form);
}

void Screen::Show(Form& form)
{
    Load(form);
    if (!form.m_loaded)
        return;
    BeginHandler(form);
    if (!form.Visible) {
        form.Visible = true;
        m_zOrder.insert(m_zOrder.begin(), &form);
        if (!form.m_wasShown) {
            form.m_wasShown = true;
            form.RunResize();
        }
    }
    if (form.Visible)
        BringToFront(form);
    EndHandler(form);
}

void Screen::BringToFront(Form& form)
{
    bool const isBlocked = Modal() && Modal() != &form;
    if (form.WindowState() == FormState::Minimised && !isBlocked)
        form.ChangeState(form.m_openState);
    Activate(form);
}

void Screen::ShowModal(Form& form)
{
    Load(form);
    if (!form.m_loaded)
        return;
    if (form.Visible) {
        BringToFront(form);
        return;
    }
    SuspendFocus();
    RunBlockedHandlers(form);
    m_modal.push_back(&form);
    Show(form);
    if (!form.m_loaded)
        return;
    // For the modal form, the handler that waits here isn't the outermost one.
    int const depth = std::exchange(m_depth, 0);
    m_host.HandlersEnded();
    m_host.RunModal(form);
    m_depth = depth;
    std::erase(m_modal, &form);
}

void Screen::RunBlockedHandlers(Form const& modal)
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
    BeginHandler(form);
    if (m_active == &form)
        SuspendFocus();
    form.Visible = false;
    std::erase(m_zOrder, &form);
    if (m_active == &form)
        ActivateLast();
    EndHandler(form);
}

void Screen::Unload(Form& form)
{
    if (!form.m_loaded || form.m_unloading)
        return;
    form.m_unloading = true;
    BeginHandler(form);
    if (m_active == &form)
        SuspendFocus();
    Try([&form] { form.Form_Unload(); });
    form.m_loaded = false;
    form.m_unloading = false;
    form.m_queuedActions.clear();
    form.m_closeRequested = false;
    form.Visible.AssignSilently(false);
    std::erase(m_loaded, &form);
    std::erase(m_zOrder, &form);
    std::erase(m_modal, &form);
    m_host.FormUnloaded(form);
    if (m_active == &form)
        ActivateLast();
    EndHandler(form);
}

void Screen::CloseAll()
{
    while (!m_ended && !m_loaded.empty())
        Unload(m_modal.empty() ? *m_loaded.back() : *m_modal.back());
}

void Screen::Message(TextView text)
{
    bool const held = m_hasFocus;
    SuspendFocus();
    m_host.HandlersEnded();
    m_host.MessageBox(text, u"Sparrowfield");
    if (held)
        ResumeFocus();
}

void Load(Form& form)
{
    form.GetScreen().Load(form);
}

void Unload(Form& form)
{
    form.GetScreen().Unload(form);
}
