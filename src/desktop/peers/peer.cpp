#include "desktop/peers/peer.h"

#include "controls/menu.h"
#include "controls/xp_container.h"
#include "desktop/peers/convert.h"
#include "desktop/peers/keys.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QWidget>

Peer::Peer(PeerContext& context, Control& control, QWidget* widget)
    : QObject(widget)
    , m_context(context)
    , m_control(control)
    , m_widget(widget)
{
    widget->setObjectName(QString::fromUtf8(control.Name()));
    widget->setAttribute(Qt::WA_NoMousePropagation);
    // Tab is ours, so no widget is one of Qt's own tab stops.
    widget->setFocusPolicy(control.TakesFocusByClick() ? Qt::ClickFocus : Qt::NoFocus);
    widget->installEventFilter(this);
}

Peer::Peer(PeerContext& context, Control& control, QObject* owner)
    : QObject(owner)
    , m_context(context)
    , m_control(control)
{
}

void Peer::Mirror()
{
    if (!m_widget)
        return;
    MirrorBounds();
    MirrorState();
}

void Peer::MirrorBounds()
{
    float const unit = m_control.Container()->TwipsPerUnit();
    m_widget->setGeometry(
        ToPixels({ m_control.Left, m_control.Top, m_control.Width, m_control.Height }, unit));
}

void Peer::MirrorState()
{
    m_widget->setToolTip(ToToolTip(m_control.ToolTipText));
    NameForAccess();
    m_widget->setEnabled(m_control.Enabled);
    m_widget->setVisible(m_control.Visible);
}

void Peer::NameForAccess()
{
    // A name would hide the text of a control that has one.
    bool const hasText = m_control.FindProperty("Caption");
    if (hasText && m_control.accessibleName.empty())
        return;
    auto name
        = m_control.accessibleName.empty() ? m_control.ToolTipText() : m_control.accessibleName;
    for (Control* each = m_control.Container(); name.empty() && m_control.CanFocus() && each;
         each = each->Container())
        if (auto const* const panel = dynamic_cast<XPContainer*>(each))
            name = panel->Caption;
    if (name.empty() && m_control.CanFocus())
        name = m_control.ParentForm().Caption;
    m_widget->setAccessibleName(ToQString(name));
}

void Peer::MirrorLook(TextControl const& control, QWidget& widget, bool ground)
{
    auto const font = ToQFont({ control.FontName, control.FontSize, control.FontBold });
    if (widget.font() != font)
        widget.setFont(font);
    auto palette = widget.palette();
    palette.setColor(QPalette::Active, widget.foregroundRole(), ToQColor(control.ForeColor));
    palette.setColor(QPalette::Inactive, widget.foregroundRole(), ToQColor(control.ForeColor));
    if (ground)
        palette.setColor(widget.backgroundRole(), ToQColor(control.BackColor));
    if (palette != widget.palette())
        widget.setPalette(palette);
}

bool Peer::eventFilter(QObject* watched, QEvent* event)
{
    // A key that a control doesn't use reaches its containers too: ignored there.
    bool const isOurs = watched == m_widget && m_widget->window()->focusWidget() == m_widget;
    if (!isOurs || isRetired || m_context.IsMirroring() || !m_context.input)
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (!IsUsedByMenu(static_cast<QKeyEvent&>(*event)))
            return false;
        event->ignore();
        return true;
    case QEvent::KeyPress:
        return KeyPressed(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        KeyReleased(static_cast<QKeyEvent const&>(*event));
        return false;
    default:
        return false;
    }
}

bool Peer::IsUsedByMenu(QKeyEvent const& event)
{
    if (!EditsByShortcuts())
        return false;
    auto const shortcut = QKeySequence(event.keyCombination()).toString(QKeySequence::PortableText);
    return m_context.input->FindShortcut(m_control.ParentForm(), ToText(shortcut));
}

bool Peer::MoveFocus(bool backwards)
{
    Form& form = m_control.ParentForm();
    Control* const next = m_context.screen->NextInTabOrder(form, form.Focus(), backwards);
    if (next)
        Act([&](Input& input) { input.Focus(*next); });
    return next != nullptr;
}

bool Peer::KeyPressed(QKeyEvent& event)
{
    bool const isPlain = !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    bool const isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    // Where there is nothing to go to, Tab is a key like any other.
    if (isTab && isPlain
        && MoveFocus(event.key() == Qt::Key_Backtab || (event.modifiers() & Qt::ShiftModifier)))
        return true;
    int const keyCode = KeyCodeOf(event);
    char16_t const character = CharacterOf(event);
    auto const isGone = [&] { return !m_context.input->Blocked(m_control).empty(); };
    if (m_control.KeyDown)
        Act([&](Input& input) { input.KeyDown(m_control, keyCode, ShiftOf(event)); });
    if (isGone())
        return true;
    bool const isForm = &m_control == &m_control.ParentForm(); // which has a handler of its own
    bool const isClose = keyCode == keyF4 && ShiftOf(event) == altHeld;
    // A form also gets keys that type nothing.
    bool const isHeard = isForm ? !IsModifier(event) && !isClose : m_control.KeyPress && character;
    if (isHeard)
        Act([&](Input& input) { input.KeyPress(m_control, character); });
    if (isGone() || TakeKey(event))
        return true;
    bool const isDefault
        = (keyCode == keyEnter || keyCode == keyEscape) && isPlain && !WantsKey(keyCode);
    bool pressed = false;
    if (isDefault)
        Act([&](Input& input) { pressed = input.PressDefault(m_control.ParentForm(), keyCode); });
    // A box would type the letter.
    return pressed || IsTypedWithAlt(event);
}

void Peer::KeyReleased(QKeyEvent const& event)
{
    if (m_control.KeyUp && !event.isAutoRepeat() && m_context.input->Blocked(m_control).empty())
        Act([&](Input& input) { input.KeyUp(m_control, KeyCodeOf(event), ShiftOf(event)); });
}
