#include "desktop/peers/browser_peer.h"

#include "base/nearest_code_page.h"
#include "controls/page_filter.h"
#include "desktop/peers/convert.h"
#include "desktop/peers/letter_scale.h"

#include <QPixmap>
#include <QTextBrowser>

#include <string>
#include <utility>

/// The path that a file address names, as the program writes paths.
static Text PathOf(TextView url)
{
    constexpr TextView scheme = u"file://";
    return Text(url.starts_with(scheme) ? url.substr(scheme.size()) : url);
}

/// The address of the background as the reader writes it into a page.
static std::string BackgroundAddress(TextView applicationFolder)
{
    return ToNearestCodePage(u"file://" + Text(applicationFolder) + u"\\bg.jpg").bytes;
}

/// A transparent picture. In place of an empty one the view would look for files itself.
static QPixmap NoPicture()
{
    QPixmap picture(1, 1);
    picture.fill(Qt::transparent);
    return picture;
}

/// The background picture of the pages, decoded again only if its file has changed.
class Background {
public:
    QPixmap Find(PeerContext& context)
    {
        auto const name = context.files.ApplicationFolder() + u"\\bg.jpg";
        auto file = context.files.ReadAll(name);
        if (!file)
            return NoPicture();
        if (m_picture.isNull() || *file != m_file) {
            m_picture = context.pictures.Find(name);
            m_file = std::move(*file);
            if (m_picture.isNull())
                m_picture = NoPicture();
        }
        return m_picture;
    }

private:
    std::string m_file;
    QPixmap m_picture;
};

class PageView final : public QTextBrowser {
public:
    PageView(PeerContext& context, QWidget* parent)
        : QTextBrowser(parent)
        , m_context(context)
    {
        setOpenLinks(false);
        setContextMenuPolicy(Qt::NoContextMenu);
        // A bar that came up with a long page would have the page laid out twice.
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        auto marked = palette();
        marked.setColor(QPalette::WindowText, marked.color(QPalette::Highlight)); // of the frame
        setPalette(marked);
        setLineWidth(frameWidth());
        document()->setDefaultFont(ToQFont({ u"Times New Roman", 12, false }));
    }

    void SetLetterScale(double scale) { m_letters.Apply(*this, scale); }

    /// All that a page gets from outside: its background, or something empty.
    QVariant loadResource(int type, QUrl const& name) override
    {
        bool const isBackground = type == QTextDocument::ImageResource
            && name == QUrl(QLatin1String(pageBackground.data()));
        return isBackground ? m_background.Find(m_context) : NoPicture();
    }

protected:
    // A page has no caret: its frame shows that the keys scroll it. Both frames are as wide, so
    // nothing is laid out anew.
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
    PeerContext& m_context;
    Background m_background;
    LetterScale m_letters { *this };
};

BrowserPeer::BrowserPeer(PeerContext& context, WebBrowser& control, QWidget& ground)
    : Peer(context, control, new PageView(context, &ground))
    , m_shown(static_cast<PageView&>(*Widget()))
{
}

void BrowserPeer::Mirror()
{
    m_shown.SetLetterScale(m_control.LetterScale());
    Peer::Mirror();
}

void BrowserPeer::Navigate(TextView url)
{
    auto const page = m_context.files.ReadAll(PathOf(url));
    PeerContext::Mirroring const ours(m_context);
    m_shown.setHtml(page
            ? ToQString(FilterPage(*page, BackgroundAddress(m_context.files.ApplicationFolder())))
            : QString());
}
