#include "desktop/peers/surface_peer.h"

#include "desktop/peers/access.h"
#include "desktop/peers/convert.h"
#include "desktop/peers/keys.h"

#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <bit>

/// In the resolution of the screen: pointers aren't scaled by the window system.
static QPixmap PointerPicture(Pictures& pictures, TextView name)
{
    auto picture = pictures.Find(name);
    if (picture.isNull() || picture.devicePixelRatio() <= qApp->devicePixelRatio())
        return picture;
    auto const size = picture.deviceIndependentSize() * qApp->devicePixelRatio();
    picture = picture.scaled(size.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(qApp->devicePixelRatio());
    return picture;
}

QCursor CursorOf(Pictures& pictures, int pointer, TextView icon)
{
    if (pointer == pointerHourglass)
        return Qt::WaitCursor;
    if (pointer == pointerSizeDiagonal)
        return Qt::SizeFDiagCursor;
    if (pointer == pointerHand) {
        auto const hand = PointerPicture(pictures, u":hand");
        return hand.isNull() ? QCursor(Qt::PointingHandCursor) : QCursor(hand, 5, 0);
    }
    if (pointer != pointerCustom)
        return Qt::ArrowCursor;
    auto const picture = PointerPicture(pictures, icon);
    return picture.isNull() ? QCursor(Qt::SizeAllCursor) : QCursor(picture, 16, 16);
}

void SurfacePeer::MirrorPointer(int pointer, TextView icon)
{
    if (pointer == pointerDefault)
        Widget()->unsetCursor();
    else
        Widget()->setCursor(CursorOf(m_context.pictures, pointer, icon));
    if (m_control.MouseMove)
        Widget()->setMouseTracking(true);
}

bool SurfacePeer::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return watched == Widget() && PointerActed(static_cast<QMouseEvent const&>(*event));
    default:
        return Peer::eventFilter(watched, event);
    }
}

bool SurfacePeer::PointerActed(QMouseEvent const& event)
{
    bool const isUp = event.type() == QEvent::MouseButtonRelease;
    bool const isMove = event.type() == QEvent::MouseMove;
    if (HasMouseEvents()) {
        auto const action = isUp ? MouseAction::Up : isMove ? MouseAction::Move : MouseAction::Down;
        float const scale = 15 / m_control.TwipsPerUnit();
        auto const at = event.position();
        Act([&](Input& input) {
            input.Mouse(m_control, action, static_cast<float>(at.x()) * scale,
                static_cast<float>(at.y()) * scale);
        });
    }
    if (isMove || event.button() != Qt::LeftButton)
        return true;
    bool const isClick = isUp && m_pressed && Widget()->rect().contains(event.position().toPoint());
    m_pressed = !isUp;
    if (isClick)
        Act([&](Input& input) { input.Click(m_control); });
    return true;
}

/// A label without a text over something that is painted.
class ClickArea final : public QLabel, public Pressable {
public:
    using QLabel::QLabel;
};

static QLabel* MakeLabel(Label const& control, QWidget& ground)
{
    if (control.accessibleName.empty())
        return new QLabel(&ground);
    return new ClickArea(&ground);
}

LabelPeer::LabelPeer(PeerContext& context, Label& control, QWidget& ground)
    : SurfacePeer(context, control, MakeLabel(control, ground))
    , m_label(control)
    , m_shown(static_cast<QLabel&>(*Widget()))
{
    if (auto* const area = dynamic_cast<ClickArea*>(&m_shown)) {
        area->press = [this] { Act([this](Input& input) { input.Click(m_control); }); };
        SetRole(m_shown, QAccessible::Button);
    }
    m_shown.setTextFormat(Qt::PlainText);
    m_shown.setMargin(0);
    m_shown.setIndent(0);
}

void LabelPeer::Mirror()
{
    auto const across = m_label.Alignment() == TextAlignment::Left ? Qt::AlignLeft
        : m_label.Alignment() == TextAlignment::Right              ? Qt::AlignRight
                                                                   : Qt::AlignHCenter;
    m_shown.setAlignment(across | Qt::AlignTop);
    // A label of a fixed size wraps its text as one with WordWrap does.
    m_shown.setWordWrap(m_label.WordWrap || !m_label.AutoSize);
    auto text = ToQString(m_label.Caption);
    m_shown.setText(text.remove(u'\r'));
    m_shown.setAutoFillBackground(!m_label.Transparent);
    MirrorLook(m_label, m_shown);
    if (m_label.isReadingPane)
        m_shown.setFont(ToQFont(
            { m_label.FontName, m_label.FontSize * m_label.LetterScale(), m_label.FontBold }));
    MirrorPointer(m_label.MousePointer);
    Peer::Mirror();
}

class FillWidget final : public QWidget {
public:
    using QWidget::QWidget;
    QColor colour;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), colour); }
};

FillPeer::FillPeer(
    PeerContext& context, Control& control, Property<Colour> const& colour, QWidget& ground)
    : Peer(context, control, new FillWidget(&ground))
    , m_colour(colour)
{
    Widget()->setAttribute(Qt::WA_TransparentForMouseEvents);
    SetRole(*Widget(), QAccessible::Graphic);
}

void FillPeer::Mirror()
{
    static_cast<FillWidget*>(Widget())->colour = ToQColor(m_colour);
    Peer::Mirror();
    // A rule without a width is a pixel wide.
    Widget()->resize(Widget()->size().expandedTo({ 1, 1 }));
    Widget()->update();
}

/// Shows the panel's surface, which is painted when the panel is seen, and kept.
class CanvasWidget final : public QWidget {
public:
    CanvasWidget(XPContainer& panel, QWidget* parent)
        : QWidget(parent)
        , m_panel(panel)
    {
    }
    void Renew()
    {
        m_isPainted = false;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (!m_isPainted)
            m_panel.PaintOn(m_canvas);
        m_isPainted = true;
        // A colour value has red in the low byte: the bytes of a pixel lie as red, green, blue and
        // one unused.
        static_assert(std::endian::native == std::endian::little);
        QImage const image(reinterpret_cast<uchar const*>(m_canvas.Pixels().data()),
            m_canvas.Width(), m_canvas.Height(), m_canvas.Width() * 4, QImage::Format_RGBX8888);
        QPainter painter(this);
        for (QRect const& part : event->region())
            painter.drawImage(part.topLeft(), image, part);
    }

private:
    XPContainer& m_panel;
    Canvas m_canvas { 0, 0, 0 };
    bool m_isPainted = false;
};

XPContainerPeer::XPContainerPeer(PeerContext& context, XPContainer& control, QWidget& ground)
    : SurfacePeer(context, control, new CanvasWidget(control, &ground))
    , m_panel(control)
    , m_caption(*new QLabel(Widget()))
{
    SetRole(*Widget(), QAccessible::Grouping);
    m_caption.setTextFormat(Qt::PlainText);
    m_caption.setFont(ToQFont({ u"Tahoma", 8.25F, true }));
    m_caption.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void XPContainerPeer::Mirror()
{
    Peer::Mirror();
    m_caption.setText(ToQString(m_panel.Caption));
    auto palette = m_caption.palette();
    palette.setColor(QPalette::WindowText, ToQColor(m_panel.TextColor));
    m_caption.setPalette(palette);
    int const room = std::max(0, Widget()->width() - 2 * XPContainer::captionLeft);
    m_caption.setGeometry(XPContainer::captionLeft, 1, room, XPContainer::headerHeight);
    m_caption.setVisible(m_panel.Style == 0);
    Widget()->setAccessibleName(m_caption.text());
    static_cast<CanvasWidget*>(Widget())->Renew();
}
