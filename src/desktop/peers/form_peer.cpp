#include "desktop/peers/form_peer.h"

#include "controls/menu.h"
#include "desktop/peers/access.h"
#include "desktop/peers/client_area.h"
#include "desktop/peers/convert.h"
#include "desktop/peers/surface_peer.h"
#include "desktop/peers/window_hints.h"

#include <QApplication>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>

static Qt::WindowFlags FlagsOf(Form const& form)
{
    if (form.border == BorderStyle::None)
        return Qt::Window | Qt::FramelessWindowHint;
    Qt::WindowFlags flags = form.inTaskbar ? Qt::Window : Qt::Dialog;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
        | Qt::WindowCloseButtonHint;
    flags.setFlag(Qt::WindowMinimizeButtonHint, form.minimiseButton);
    flags.setFlag(Qt::WindowMaximizeButtonHint, form.maximiseButton);
    return flags;
}

static int MenuBarHeight(QMenuBar const* bar)
{
    return bar ? bar->sizeHint().height() : 0;
}

FormPeer::FormPeer(PeerContext& context, Form& form)
    : Peer(context, form, new QWidget(nullptr, FlagsOf(form)))
    , m_form(form)
    , m_menuBar(form.Menus().empty() ? nullptr : new QMenuBar(Widget()))
    , m_client(*new ClientArea(Widget()))
    , m_scroll(*new WindowScroll(*Widget(), m_client))
{
    if (m_menuBar)
        m_menuBar->setNativeMenuBar(false);
    bool const isDialog
        = form.border == BorderStyle::None || form.border == BorderStyle::Dialog || !form.inTaskbar;
    SetRole(*Widget(), isDialog ? QAccessible::Dialog : QAccessible::Window);
    SetRole(m_client, QAccessible::Pane);
    m_client.installEventFilter(this);
    Widget()->setWindowIcon(m_context.pictures.Icon(form.icon));
}

QWidget* FormPeer::Ground() const
{
    return &m_client;
}

void FormPeer::PropertyAssigned(PropertyBase const& property)
{
    m_pictureIsStale |= &property == &m_form.Picture;
    m_moveWanted |= &property == &m_form.Left || &property == &m_form.Top;
}

void FormPeer::Mirror()
{
    auto& window = *Widget();
    window.setWindowTitle(ToQString(m_form.Caption));
    auto const ground = ToQColor(m_form.BackColor);
    if (m_pictureIsStale || m_client.ground != ground)
        m_client.update();
    m_client.ground = ground;
    if (std::exchange(m_pictureIsStale, false))
        m_client.picture = m_context.pictures.Find(m_form.Picture);
    if (m_form.MousePointer == pointerDefault)
        window.unsetCursor();
    else
        window.setCursor(CursorOf(m_context.pictures, m_form.MousePointer, m_form.MouseIcon));
    Place();
}

/// The window's size without its frame, with its menu bar.
QSize FormPeer::InnerSize(Size const& outer) const
{
    auto const frame = m_form.FrameSize();
    QSize const client(Pixels(outer.width - frame.width), Pixels(outer.height - frame.height));
    return QSize(client.width(), client.height() + MenuBarHeight(m_menuBar)).expandedTo({ 1, 1 });
}

/// What the window manager draws around the window, as far as it is known.
QMargins FormPeer::RealFrame() const
{
    if (m_form.border == BorderStyle::None)
        return {};
    auto const* const handle = Widget()->windowHandle();
    auto const margins = handle ? handle->frameMargins() : QMargins();
    return margins.top() > 0 ? margins : QMargins(4, 23, 4, 4);
}

/// The largest size of the window's inside that the screen has room for.
QSize FormPeer::Room() const
{
    return Widget()->screen()->availableSize().shrunkBy(RealFrame()).expandedTo({ 1, 1 });
}

void FormPeer::Place()
{
    auto& window = *Widget();
    bool const isNormal = m_form.WindowState() == FormState::Normal;
    bool const isOther = m_placed.width != m_form.Width || m_placed.height != m_form.Height;
    bool const isFixed = m_form.border != BorderStyle::Sizable;
    if (isNormal && isOther) {
        m_placed = { m_form.Width, m_form.Height };
        if (isFixed) {
            FixSize();
        } else {
            m_agreed = InnerSize(m_placed).boundedTo(Room());
            window.resize(m_agreed);
        }
    }
    if (m_form.smallest.width > 0)
        window.setMinimumSize(InnerSize(m_form.smallest).boundedTo(Room()));
    if (isNormal && std::exchange(m_moveWanted, false))
        window.move(Corner());
    if (window.isVisible() && m_state != m_form.WindowState()) {
        m_state = m_form.WindowState();
        if (m_state == FormState::Maximised)
            window.showMaximized();
        else if (m_state == FormState::Minimised)
            window.showMinimized();
        else
            window.showNormal();
    }
    Arrange();
}

/// A window that is higher than the screen is cut; the form keeps its size.
void FormPeer::FixSize()
{
    auto const whole = InnerSize({ m_form.Width, m_form.Height });
    m_agreed = m_menuBar ? whole : m_scroll.Fit(whole, Room().height());
    Widget()->setFixedSize(m_agreed);
}

QPoint FormPeer::Corner() const
{
    return { Pixels(m_form.Left),
        m_scroll.IsCut() ? Widget()->screen()->availableGeometry().top() : Pixels(m_form.Top) };
}

QPoint FormPeer::CentredCorner(QSize const& inner) const
{
    auto const place = Widget()->screen()->availableGeometry();
    auto const outer = inner.grownBy(RealFrame());
    return place.topLeft()
        + QPoint(std::max(0, place.width() - outer.width()) / 2,
            std::max(0, place.height() - outer.height()) / 2);
}

void FormPeer::Arrange()
{
    if (m_scroll.IsCut()) {
        m_scroll.Arrange();
        return;
    }
    int const height = MenuBarHeight(m_menuBar);
    auto const size = Widget()->size();
    if (m_menuBar)
        m_menuBar->setGeometry(0, 0, size.width(), height);
    m_client.setGeometry(0, height, size.width(), std::max(0, size.height() - height));
}

void FormPeer::MirrorShown(QWidget* owner)
{
    auto& window = *Widget();
    if (!m_form.Visible || window.isVisible())
        return;
    window.setWindowModality(m_form.IsModal() ? Qt::ApplicationModal : Qt::NonModal);
    m_state = m_form.WindowState();
    if (m_form.centred && m_state == FormState::Normal)
        window.move(CentredCorner(m_agreed));
    m_sinceShown.start();
    window.winId(); // makes the window, so that it can be owned
    bool const isOwned = owner && owner != &window && (m_form.IsModal() || !m_form.inTaskbar);
    if (isOwned)
        window.windowHandle()->setTransientParent(owner->windowHandle());
    if (!m_form.inTaskbar)
        HideFromTaskBar(*window.windowHandle());
    if (m_state == FormState::Maximised) {
        // Where the window returns to when it is restored.
        auto const normal = InnerSize(m_form.NormalSize()).boundedTo(Room());
        window.resize(normal);
        window.move(CentredCorner(normal));
        window.showMaximized();
    } else if (m_state == FormState::Minimised) {
        window.showMinimized();
    } else {
        window.show();
    }
    if (isOwned)
        TellOwner(*window.windowHandle(), *owner->windowHandle());
    Arrange();
    QueueReport();
}

void FormPeer::MirrorHidden()
{
    if (!m_form.Visible && Widget()->isVisible())
        Widget()->hide();
}

void FormPeer::MirrorFocus(Peer const* focus)
{
    auto* const present = Widget()->focusWidget();
    // While the user goes through the menu bar by keys, the focus stays there.
    if (qobject_cast<QMenuBar*>(present) && present->hasFocus())
        return;
    auto* const wanted = focus ? focus->Widget() : nullptr;
    if (wanted && present != wanted)
        wanted->setFocus();
    else if (!wanted && present)
        present->clearFocus();
}
