#include "desktop/browser_peer.h"

#include "base/code_page.h"
#include "desktop/convert.h"

#include <QTextBrowser>

/// The path that a file address names, as the program writes paths.
static Text PathOf(TextView url)
{
    constexpr TextView scheme = u"file://";
    return Text(url.starts_with(scheme) ? url.substr(scheme.size()) : url);
}

class PageView final : public QTextBrowser {
public:
    PageView(Desk& desk, QWidget* parent)
        : QTextBrowser(parent)
        , m_desk(desk)
    {
        setOpenLinks(false);
        setContextMenuPolicy(Qt::NoContextMenu);
        document()->setDefaultFont(ToQFont({ u"Times New Roman", 12, false }));
    }

    QVariant loadResource(int type, QUrl const& name) override
    {
        if (type != QTextDocument::ImageResource)
            return {};
        auto path = PathOf(ToText(QUrl::fromPercentEncoding(name.toString().toUtf8())));
        ReplaceAll(path, u"/", u"\\");
        auto picture = m_desk.files.ApplicationFolder() + u"\\bg.jpg";
        auto const asWritten = picture;
        ReplaceAll(picture, u"/", u"\\");
        return path == picture ? QVariant(m_desk.pictures.Find(asWritten)) : QVariant();
    }

private:
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
    m_shown.setHtml(page ? ToQString(FromCodePage(*page)) : QString());
}
