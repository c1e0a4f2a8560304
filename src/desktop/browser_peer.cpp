#include "desktop/browser_peer.h"

#include "base/code_page.h"
#include "base/nearest_form.h"
#include "desktop/convert.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBrowser>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

/// The path that a file address names, as the program writes paths.
static Text PathOf(TextView url)
{
    constexpr TextView scheme = u"file://";
    return Text(url.starts_with(scheme) ? url.substr(scheme.size()) : url);
}

/// What the view is told instead of the address of the background.
static constexpr auto backgroundName = "bg.jpg";

/// The page with another address of its background: many a path, such as one with a drive or with
/// "#", makes an address that the view can't read.
static std::string WithReadableBackground(std::string page, TextView applicationFolder)
{
    auto const written
        = NearestCodePage(u" background=\"file://" + Text(applicationFolder) + u"\\bg.jpg\"").bytes;
    if (auto const at = page.find(written); at != page.npos)
        page.replace(at, written.size(), std::string(" background=\"") + backgroundName + '"');
    return page;
}

class PageView final : public QTextBrowser {
public:
    PageView(Desk& desk, QWidget* parent)
        : QTextBrowser(parent)
        , m_desk(desk)
    {
        setOpenLinks(false);
        setContextMenuPolicy(Qt::NoContextMenu);
        // A bar that came up with a long page would have the page laid out twice.
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        auto marked = palette();
        marked.setColor(QPalette::WindowText, marked.color(QPalette::Highlight)); // of the frame
        setPalette(marked);
        setLineWidth(frameWidth());
        ApplyZoom();
    }

    QVariant loadResource(int type, QUrl const& name) override
    {
        if (type != QTextDocument::ImageResource || name != QUrl(QLatin1String(backgroundName)))
            return {};
        return m_desk.pictures.Find(m_desk.files.ApplicationFolder() + u"\\bg.jpg");
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        bool const isPlain = event->modifiers().testFlag(Qt::ControlModifier)
            && !event->modifiers().testAnyFlags(Qt::AltModifier | Qt::MetaModifier);
        if (isPlain && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal))
            Zoom(m_desk.pageZoom + 1);
        else if (isPlain && event->key() == Qt::Key_Minus)
            Zoom(m_desk.pageZoom - 1);
        else if (isPlain && event->key() == Qt::Key_0)
            Zoom(0);
        else
            QTextBrowser::keyPressEvent(event);
    }

    void wheelEvent(QWheelEvent* event) override
    {
        if (!event->modifiers().testFlag(Qt::ControlModifier))
            QTextBrowser::wheelEvent(event);
        else if (int const turn = event->angleDelta().y(); turn != 0)
            Zoom(m_desk.pageZoom + (turn > 0 ? 1 : -1));
    }

    // A page has no caret: its frame shows that the keys scroll it. Both frames are as wide, so nothing is laid out anew.
    void focusInEvent(QFocusEvent* event) override
    {
        QTextBrowser::focusInEvent(event);
        setFrameStyle(QFrame::Box | QFrame::Plain);
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        QTextBrowser::focusOutEvent(event);
        setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    }

private:
    static constexpr int mostZoom = 10;

    /// In steps of a tenth more or less. The place in the text stays, as near as the lines allow.
    void Zoom(int step)
    {
        auto* const bar = verticalScrollBar();
        double const place = bar->maximum() > 0 ? double(bar->value()) / bar->maximum() : 0;
        m_desk.pageZoom = std::clamp(step, -mostZoom / 2, mostZoom);
        ApplyZoom();
        bar->setValue(qRound(place * bar->maximum()));
    }

    void ApplyZoom()
    {
        auto const size = static_cast<float>(12 * std::pow(1.1, m_desk.pageZoom));
        document()->setDefaultFont(ToQFont({ u"Times New Roman", size, false }));
    }

    Desk& m_desk;
};

BrowserPeer::BrowserPeer(Desk& desk, WebBrowser& control, QWidget& ground)
    : Peer(desk, control, new PageView(desk, &ground))
    , m_shown(static_cast<PageView&>(*Widget()))
{
}

void BrowserPeer::Navigate(TextView url)
{
    auto const page = m_desk.files.ReadAll(PathOf(url));
    Desk::Mirroring const ours(m_desk);
    m_shown.setHtml(page ? ToQString(FromCodePage(
                        WithReadableBackground(*page, m_desk.files.ApplicationFolder())))
                         : QString());
}
