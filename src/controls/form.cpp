// How a form works. Its controls are members, and its handlers are functions:
//
//     Command1.Click = [this] { Unload(*this); };
//
// What the constructor sets is the design. Load resets every property to it, places the form and
// runs Form_Load; the first showing runs Form_Resize; Unload runs Form_Unload and takes the form
// off the screen, but deletes nothing, so a handler may unload its own form. A new Width, Height or
// WindowState runs Form_Resize, but not from within Form_Resize. Only a loaded form runs handlers,
// and a form that is running one is busy. User actions that come then, in a turn of the event loop,
// are dropped or, with queuesActions, run when it is free.

#include "controls/form.h"

#include "controls/screen.h"

#include <algorithm>

static constexpr float twipsPerPixel = 15;

Form::Form(Screen& screen, char const* name, TextView caption, float clientWidth,
    float clientHeight, ScaleMode scaleMode)
    : Control(name, {})
    , Caption(*this, "Caption", ::Text(caption))
    , BackColor(*this, "BackColor", Rgb(240, 240, 240))
    , Picture(*this, "Picture")
    , WindowState(*this, "WindowState", FormState::Normal)
    , MousePointer(*this, "MousePointer", pointerDefault)
    , MouseIcon(*this, "MouseIcon")
    , ScaleWidth(*this, "ScaleWidth",
          [](Control const& control) {
              auto const& form = static_cast<Form const&>(control);
              return std::max(0.0F, form.Width - form.FrameSize().width) / form.TwipsPerUnit();
          })
    , ScaleHeight(*this, "ScaleHeight",
          [](Control const& control) {
              auto const& form = static_cast<Form const&>(control);
              return std::max(0.0F, form.Height - form.FrameSize().height) / form.TwipsPerUnit();
          })
    , scale(scaleMode)
    , m_screen(screen)
    , m_designClient { clientWidth * Form::TwipsPerUnit(), clientHeight * Form::TwipsPerUnit() }
{
    m_form = this;
    Visible.AssignSilently(false);
    screen.Register(*this);
}

void Form::Show()
{
    m_screen.Show(*this);
}

void Form::ShowModal()
{
    m_screen.ShowModal(*this);
}

void Form::Hide()
{
    m_screen.Hide(*this);
}

bool Form::IsModal() const
{
    return m_screen.IsModal(*this);
}

Control* Form::FindControl(std::string_view name) const
{
    auto const found = std::find_if(m_controls.begin(), m_controls.end(),
        [&](Control* control) { return control->Name() == name; });
    return found == m_controls.end() ? nullptr : *found;
}

float Form::TwipsPerUnit() const
{
    return scale == ScaleMode::Pixels ? twipsPerPixel : 1;
}

bool Form::HasReadingPane() const
{
    return std::ranges::any_of(m_controls, &Control::isReadingPane);
}

KeyShortcut const* Form::FindShortcut(int keyCode, int shift) const
{
    auto const found = std::find_if(shortcuts.begin(), shortcuts.end(),
        [=](auto const& each) { return each.keyCode == keyCode && each.shift == shift; });
    if (found != shortcuts.end())
        return &*found;
    return HasReadingPane() ? m_screen.FindTextSizeKey(keyCode, shift) : nullptr;
}

Size Form::FrameSize() const
{
    float const menuBar = m_menus.empty() ? 0 : 285;
    return border == BorderStyle::None ? Size { 0, menuBar } : Size { 120, 405 + menuBar };
}

void Form::Reset()
{
    Control::Reset();
    for (Control* control : m_controls)
        control->Reset();
}

void Form::SaveDesign()
{
    Control::SaveDesign();
    for (Control* control : m_controls)
        control->SaveDesign();
}

void Form::PlaceAtLoad()
{
    auto const frame = FrameSize();
    auto const whole = m_screen.GetHost().ScreenSize();
    m_normal = { m_designClient.width + frame.width, m_designClient.height + frame.height };
    auto const size = opensAs == FormState::Maximised ? whole : m_normal;
    WindowState.AssignSilently(opensAs);
    m_openState = opensAs;
    Width.AssignSilently(size.width);
    Height.AssignSilently(size.height);
    if (centred && opensAs == FormState::Normal)
        Centre();
    DockControls();
}

void Form::DockControls()
{
    for (Control* control : m_controls)
        control->FormResized({ ScaleWidth, ScaleHeight });
}

void Form::Centre()
{
    auto const whole = m_screen.GetHost().ScreenSize();
    Left.AssignSilently(std::max(0.0F, (whole.width - m_normal.width) / 2));
    Top.AssignSilently(std::max(0.0F, (whole.height - m_normal.height) / 2));
}

void Form::Assigned(PropertyBase const& property, bool changed)
{
    if (!changed || !m_loaded)
        return;
    if (&property == &WindowState) {
        auto const state = WindowState();
        auto const size
            = state == FormState::Maximised ? m_screen.GetHost().ScreenSize() : m_normal;
        if (state != FormState::Minimised) {
            Width.AssignSilently(size.width);
            Height.AssignSilently(size.height);
        }
        bool const wasMaximised = m_openState == FormState::Maximised;
        if (state == FormState::Normal && wasMaximised && centred
            && opensAs == FormState::Maximised)
            Centre();
        RunResize();
    } else if (&property == &Width || &property == &Height) {
        RunResize();
    }
}

void Form::Resized(float width, float height, FormState state)
{
    if (width == Width && height == Height && state == WindowState())
        return;
    Width.AssignSilently(width);
    Height.AssignSilently(height);
    WindowState.AssignSilently(state);
    RunResize();
}

void Form::ChangeState(FormState state)
{
    if (state != WindowState())
        WindowState = state;
}

void Form::RunResize()
{
    if (WindowState() == FormState::Normal)
        m_normal = { Width, Height };
    if (WindowState() != FormState::Minimised)
        m_openState = WindowState();
    DockControls();
    if (m_resizing || !m_loaded)
        return;
    m_resizing = true;
    m_screen.RunHandler(*this, [this] { Form_Resize(); });
    m_resizing = false;
}

void Form::GrowToSmallest()
{
    if (Height < smallest.height)
        Height = smallest.height;
    if (Width < smallest.width)
        Width = smallest.width;
}

void Form::ShrinkToScreen()
{
    float const screenHeight = m_screen.GetHost().ScreenSize().height;
    if (WindowState() != FormState::Maximised && Height > screenHeight)
        Height = screenHeight;
}

void Form::RaiseClick()
{
    m_screen.RunHandler(*this, [this] { Form_Click(); });
}

void Form::RaiseKeyPress(char16_t character)
{
    m_screen.RunHandler(*this, [this, character] { Form_KeyPress(character); });
}

void Form::RequestClose()
{
    m_queuedActions.clear();
    m_closeRequested = true;
}

void Form::RunQueuedActions()
{
    // An action runs handlers too. The next action waits until they have ended.
    if (m_runsQueuedActions)
        return;
    m_runsQueuedActions = true;
    while (m_loaded && !IsBusy() && !m_queuedActions.empty()) {
        auto const action = std::move(m_queuedActions.front());
        m_queuedActions.pop_front();
        action();
    }
    m_runsQueuedActions = false;
}
