// What a form's window reports of the user and of the window system.

#include "desktop/peers/client_area.h"
#include "desktop/peers/convert.h"
#include "desktop/peers/form_peer.h"
#include "desktop/peers/keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

bool FormPeer::eventFilter(QObject* watched, QEvent* event)
{
    if (isRetired)
        return false;
    // The window is watched from the first, before the client area is there.
    return watched == Widget() ? WindowEvent(*event) : ClientEvent(*event);
}

bool FormPeer::WindowEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::Close:
        event.ignore();
        ReportClose();
        return true;
    case QEvent::Resize:
        Arrange();
        QueueReport();
        return false;
    case QEvent::Move:
    case QEvent::Show:
    case QEvent::WindowStateChange:
        QueueReport();
        return false;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        ReportActivation();
        return false;
    case QEvent::KeyPress:
        return !m_form.Focus() && KeyPressed(static_cast<QKeyEvent&>(event));
    default:
        return false;
    }
}

bool FormPeer::ClientEvent(QEvent& event)
{
    bool const isDown
        = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    bool const isUp = event.type() == QEvent::MouseButtonRelease;
    if ((!isDown && !isUp) || static_cast<QMouseEvent&>(event).button() != Qt::LeftButton)
        return false;
    bool const isClick = isUp && m_pressed
        && m_client.rect().contains(static_cast<QMouseEvent&>(event).position().toPoint());
    m_pressed = isDown;
    if (isClick)
        Act([&](Input& input) { input.Click(m_form); });
    return true;
}

void FormPeer::QueueReport()
{
    // One change of a window comes as several events: state, size, frame.
    if (std::exchange(m_reportQueued, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_reportQueued = false;
        ReportSize();
    });
}

/// True while the window manager may not have maximised the window yet: some report each step, and
/// the form would become a normal one.
bool FormPeer::IsSettling() const
{
    constexpr int settlingTime = 1500; // milliseconds
    auto const& window = *Widget();
    return m_state == FormState::Maximised && !window.isMaximized() && !window.isMinimized()
        && m_sinceShown.isValid() && m_sinceShown.elapsed() < settlingTime;
}

void FormPeer::ReportSize()
{
    auto& window = *Widget();
    if (isRetired || !window.isVisible() || !m_form.Visible)
        return;
    m_sizeMissed = m_form.IsBusy();
    if (m_sizeMissed)
        return;
    bool const isSettling = IsSettling();
    if (isSettling) {
        constexpr int pause = 50; // milliseconds
        QTimer::singleShot(pause, this, [this] { QueueReport(); });
    }
    if (window.isMinimized()) {
        m_state = FormState::Minimised;
        Act([&](Input&) { m_form.Resized(m_form.Width, m_form.Height, m_state); });
        return;
    }
    bool const isMaximised = window.isMaximized() || isSettling;
    m_state = isMaximised ? FormState::Maximised : FormState::Normal;
    if (m_scroll.IsCut()) {
        FixSize();
        Act([&](Input&) { m_form.Resized(m_form.Width, m_form.Height, m_state); });
        return;
    }
    // A size that the screen has cut isn't reported, or the form would ask for its own again.
    if (window.size() == m_agreed && m_state == m_form.WindowState())
        return;
    m_agreed = window.size();
    auto const frame = m_form.FrameSize();
    QSize const client = m_client.size();
    m_placed = { ToTwips(client.width()) + frame.width, ToTwips(client.height()) + frame.height };
    // Within a pixel the form's own figure is kept.
    if (InnerSize({ m_form.Width, m_form.Height }) == m_agreed)
        m_placed = { m_form.Width, m_form.Height };
    Act([&](Input&) { m_form.Resized(m_placed.width, m_placed.height, m_state); });
}

void FormPeer::ReportActivation()
{
    m_activationMissed = m_form.IsBusy();
    if (m_activationMissed)
        return;
    bool const isActive = QApplication::activeWindow() == Widget();
    bool const isModels = m_context.screen->Active() == &m_form;
    Act([&](Input& input) {
        if (isActive && isModels)
            m_context.screen->ResumeFocus();
        else if (isActive)
            input.Activate(m_form);
        else if (isModels)
            m_context.screen->SuspendFocus();
    });
}

/// Unlike other actions, a close isn't dropped while the form is busy, but done as soon as
/// possible.
void FormPeer::ReportClose()
{
    // A form that queues actions is notified at once, so that its work can end.
    bool const isHeldUp = m_context.IsMirroring() || (m_form.IsBusy() && !m_form.queuesActions);
    m_closeMissed = isHeldUp && m_context.input->Blocked(m_form).empty();
    if (!isHeldUp)
        Act([&](Input& input) { input.Close(m_form); });
}

void FormPeer::CatchUp()
{
    if (m_form.IsBusy() || m_context.IsMirroring())
        return;
    if (m_closeMissed)
        ReportClose();
    if (isRetired)
        return;
    if (m_sizeMissed)
        QueueReport();
    if (m_activationMissed)
        ReportActivation();
}
