#include "desktop/peers/picture_peer.h"

#include "desktop/peers/access.h"
#include "desktop/peers/convert.h"
#include "desktop/peers/keys.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

/// Paints a picture at its top left corner, or stretched, on a ground or on none.
class PictureWidget final : public QWidget, public Pressable {
public:
    using QWidget::QWidget;

    QPixmap picture;
    QColor ground; // not valid for none
    bool stretched = false;
    bool marksFocus = false;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (ground.isValid())
            painter.fillRect(rect(), ground);
        if (stretched) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawPixmap(rect(), picture);
        } else {
            painter.drawPixmap(0, 0, picture);
        }
        if (marksFocus && hasFocus()) {
            QStyleOptionFocusRect mark;
            mark.initFrom(this);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &mark, &painter, this);
        }
    }
};

ImagePeer::ImagePeer(PeerContext& context, Image& control, QWidget& ground)
    : SurfacePeer(context, control, new PictureWidget(&ground))
    , m_image(control)
{
    bool const isButton = control.Click && control.TabStop;
    SetRole(*Widget(), isButton ? QAccessible::Button : QAccessible::Graphic);
    auto& shown = *static_cast<PictureWidget*>(Widget());
    if (isButton)
        shown.press = [this] { Act([this](Input& input) { input.Click(m_image); }); };
    shown.isTabStop = isButton;
}

void ImagePeer::Mirror()
{
    auto& shown = *static_cast<PictureWidget*>(Widget());
    if (std::exchange(m_isStale, false))
        shown.picture = m_context.pictures.Find(m_image.Picture);
    shown.stretched = m_image.Stretch;
    shown.marksFocus = m_image.TabStop;
    MirrorPointer(m_image.Click ? pointerHand : pointerDefault);
    Peer::Mirror();
    shown.update();
}

bool ImagePeer::TakeKey(QKeyEvent& event)
{
    if (KeyCodeOf(event) != keyEnter && event.key() != Qt::Key_Space)
        return false;
    Act([&](Input& input) { input.Click(m_image); });
    return true;
}

/// A line round a box, above everything in the box; the pointer passes through it.
class BorderWidget final : public QWidget {
public:
    explicit BorderWidget(QWidget* box)
        : QWidget(box)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        SetRole(*this, QAccessible::Border);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

PictureBoxPeer::PictureBoxPeer(PeerContext& context, PictureBox& control, QWidget& ground)
    : SurfacePeer(context, control, new PictureWidget(&ground))
    , m_box(control)
    , m_border(*new BorderWidget(Widget()))
{
    Widget()->setAttribute(Qt::WA_OpaquePaintEvent);
    SetRole(*Widget(), QAccessible::Graphic);
}

void PictureBoxPeer::Mirror()
{
    auto& shown = *static_cast<PictureWidget*>(Widget());
    if (std::exchange(m_isStale, false))
        shown.picture = m_context.pictures.Find(m_box.Picture);
    shown.ground = ToQColor(m_box.BackColor);
    MirrorPointer(m_box.MousePointer);
    Peer::Mirror();
    m_border.setGeometry(shown.rect());
    m_border.setVisible(m_box.Border);
    m_border.raise();
    shown.update();
}
