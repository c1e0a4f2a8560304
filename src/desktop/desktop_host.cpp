#include "desktop/desktop_host.h"

#include "controls/screen.h"
#include "desktop/peers/browser_peer.h"
#include "desktop/peers/form_peer.h"
#include "desktop/peers/peer_factory.h"

#include <QApplication>
#include <QEventLoop>
#include <QFontDatabase>
#include <QWidget>
#include <QWindow>

#include <algorithm>

/// Turns between two looks at the clock.
static constexpr Turns::Count turnsBetween = 256;

DesktopHost::DesktopHost(
    FileSystem const& files, std::function<Text(TextView path)> placeOf, float missingScale)
    : m_context(files)
    , m_missingScale(missingScale)
    , m_printer([this](Text const& message) { MessageBox(message, u"Sparrowfield"); })
{
    m_context.placeOf = std::move(placeOf);
    m_context.acted = [this](Control& control) {
        // The model may have refused what the widget shows already.
        MarkDirty(control, nullptr);
        Mirror();
        CatchUp();
    };
    turns.Arm(turnsBetween);
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
        [this](QWidget*, QWidget* now) { WidgetFocused(now); });
}

DesktopHost::~DesktopHost()
{
    qApp->removeEventFilter(this);
    disconnect(qApp, nullptr, this, nullptr);
    TakeDown();
}

void DesktopHost::PrepareFirstScreen()
{
    m_context.pictures.DecodeAhead();
    m_fontReader = std::jthread([] { QFontDatabase::families(); });
}

void DesktopHost::TakeDown()
{
    // The forms may be gone already.
    for (auto const& [control, peer] : m_peers)
        peer->isRetired = true;
    for (FormPeer* window : m_windows)
        m_retired.push_back(window->Widget());
    m_peers.clear();
    m_windows.clear();
    m_dirty.clear();
    m_active = m_before = m_toActivate = nullptr;
    for (QWidget* window : std::exchange(m_retired, {}))
        delete window;
}

void DesktopHost::Run()
{
    if (!m_context.screen || m_context.screen->Ended())
        return;
    QApplication::exec();
    TakeDown();
}

void DesktopHost::CloseAll()
{
    if (m_context.screen)
        m_context.screen->CloseAll();
    QuitLoops();
}

bool DesktopHost::MayComeUp() const
{
    return m_context.screen && !m_context.screen->Ended();
}

/// As the user would do; the model is notified by the window system's events.
static void RaiseWindow(QWidget& window)
{
    QWindow* const owner = window.windowHandle()->transientParent();
    if (owner && owner->windowStates() & Qt::WindowMinimized)
        owner->setWindowStates(owner->windowStates() & ~Qt::WindowMinimized);
    if (window.isMinimized())
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
    QApplication::alert(&window); // where a program may not put itself in front
}

void DesktopHost::ComeUp()
{
    Form const* const modal = m_context.screen->Modal();
    Form const* const form = modal ? modal : m_context.screen->Active();
    Peer* const peer = form ? PeerOf(*form) : nullptr;
    QWidget* const window = peer ? peer->Widget() : nullptr;
    if (window && window->isVisible())
        RaiseWindow(*window);
    auto* const message = QApplication::activeModalWidget();
    if (message && message != window)
        RaiseWindow(*message);
}

void DesktopHost::FormLoaded(Form& form)
{
    m_context.screen = &form.GetScreen();
    if (!m_context.input)
        m_context.input.emplace(*m_context.screen);
    PeerContext::Mirroring const ours(m_context);
    auto* const window = new FormPeer(m_context, form);
    m_windows.push_back(window);
    m_peers[&form] = window;
    m_dirty.push_back(window);
    for (Control* control : form.Controls()) {
        Peer* const container = PeerOf(*control->Container());
        Peer* const peer = container ? MakePeer(m_context, *control, *container, *window) : nullptr;
        if (!peer)
            continue;
        m_peers[control] = peer;
        m_dirty.push_back(peer);
    }
}

void DesktopHost::FormUnloaded(Form& form)
{
    if (Peer* const window = PeerOf(form))
        Retire(static_cast<FormPeer&>(*window));
    for (auto const& [modal, loop] : m_modal)
        if (modal == &form)
            loop->quit();
}

void DesktopHost::Retire(FormPeer& window)
{
    Form& form = window.ParentForm();
    auto const forget = [this](Control& control) {
        Peer* const peer = PeerOf(control);
        if (!peer)
            return;
        peer->isRetired = true;
        m_peers.erase(&control);
        std::erase(m_dirty, peer);
    };
    for (Control* control : form.Controls())
        forget(*control);
    forget(form);
    std::erase(m_windows, &window);
    for (FormPeer** const kept : { &m_active, &m_before, &m_toActivate })
        if (*kept == &window)
            *kept = nullptr;
    m_retired.push_back(window.Widget());
}

void DesktopHost::FormActivated(Form* form)
{
    m_toActivate = form ? static_cast<FormPeer*>(PeerOf(*form)) : nullptr;
    if (m_toActivate != m_active)
        m_before = std::exchange(m_active, m_toActivate);
}

void DesktopHost::MarkDirty(Control const& control, PropertyBase const* property)
{
    Peer* const peer = PeerOf(control);
    if (!peer)
        return;
    if (property)
        peer->PropertyAssigned(*property);
    if (!std::exchange(peer->isDirty, true))
        m_dirty.push_back(peer);
}

void DesktopHost::HandlersEnded()
{
    Mirror();
    CatchUp();
    if (m_context.screen && m_context.screen->Ended())
        QuitLoops();
}

void DesktopHost::CatchUp()
{
    for (FormPeer* window : std::vector(m_windows))
        if (std::find(m_windows.begin(), m_windows.end(), window) != m_windows.end())
            window->CatchUp();
}

void DesktopHost::QuitLoops()
{
    for (auto const& [form, loop] : m_modal)
        loop->quit();
    QCoreApplication::quit();
}

void DesktopHost::Mirror()
{
    if (m_context.IsMirroring())
        return;
    PeerContext::Mirroring const ours(m_context);
    for (Peer* peer : std::exchange(m_dirty, {})) {
        peer->isDirty = false;
        peer->Mirror();
    }
    MirrorWindows();
    Reap();
}

/// The window from which the user opened another. He may have gone to another program since.
QWidget* DesktopHost::OwnerOfNewWindows() const
{
    bool const isUp = m_before && m_before->ParentForm().Visible && m_before->Widget()->isVisible();
    return isUp ? m_before->Widget() : QApplication::activeWindow();
}

void DesktopHost::MirrorWindows()
{
    // First what comes up, so that no other program's window gets the focus for a moment.
    auto* const owner = OwnerOfNewWindows();
    for (FormPeer* window : m_windows)
        window->MirrorShown(owner);
    for (FormPeer* window : m_windows) {
        Control const* const focus = window->ParentForm().Focus();
        window->MirrorFocus(focus ? PeerOf(*focus) : nullptr);
    }
    if (m_toActivate && m_toActivate->Widget()->isVisible()) {
        m_toActivate->Widget()->raise();
        // Two windows whose reports cross would otherwise activate each other for ever.
        if (QApplication::activeWindow() != m_toActivate->Widget())
            m_toActivate->Widget()->activateWindow();
        m_toActivate = nullptr;
    }
    for (FormPeer* window : m_windows)
        window->MirrorHidden();
}

void DesktopHost::Reap()
{
    for (QWidget* window : m_retired)
        window->hide();
    // The widget through which the user acted may still be in use.
    if (!m_context.IsActing())
        for (QWidget* window : std::exchange(m_retired, {}))
            window->deleteLater();
}

void DesktopHost::TurnDue()
{
    constexpr std::chrono::milliseconds pause { 8 };
    turns.Arm(turnsBetween);
    if (std::chrono::steady_clock::now() - m_served < pause)
        return;
    Mirror();
    // Actions that a busy form queues stay in the event queue.
    auto const& forms = m_context.screen->Loaded();
    bool const isKept = std::any_of(forms.begin(), forms.end(),
        [](Form const* form) { return form->queuesActions && form->IsBusy(); });
    QCoreApplication::processEvents(
        isKept ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
    m_served = std::chrono::steady_clock::now();
}

void DesktopHost::RunModal(Form& form)
{
    QEventLoop loop;
    m_modal.emplace_back(&form, &loop);
    if (form.IsLoaded() && !m_context.screen->Ended())
        loop.exec();
    m_modal.pop_back();
}

Peer* DesktopHost::PeerOf(Control const& control) const
{
    auto const found = m_peers.find(&control);
    return found == m_peers.end() ? nullptr : found->second;
}

void DesktopHost::Navigate(WebBrowser& browser, TextView url)
{
    if (Peer* const peer = PeerOf(browser))
        static_cast<BrowserPeer*>(peer)->Navigate(url);
}
