// Pages and tool tips that name files or are made to keep the program busy: nothing is opened but
// the page's background.

#include "desktop/desktop_fixture.h"

#include <QHelpEvent>
#include <QLabel>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextDocumentFragment>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A folder with a picture, a style sheet and a FIFO that nobody writes to; it knows whether
/// anything in it was opened.
class WatchedFolder {
public:
    WatchedFolder()
    {
        std::ofstream(Path("style.css")) << "p { color: red }";
        for (char const* name : { "secret.png", "bg.jpg" })
            QPixmap(9, 9).save(QString::fromStdString(Path(name)), "PNG");
        EXPECT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);
        m_watch = inotify_init1(IN_NONBLOCK);
        EXPECT_GE(inotify_add_watch(m_watch, m_folder.path().toUtf8().constData(), IN_OPEN), 0);
        std::filesystem::current_path(m_folder.path().toStdString());
    }
    ~WatchedFolder()
    {
        std::filesystem::current_path("/");
        close(m_watch);
    }
    std::string Path(std::string const& name) const
    {
        return m_folder.filePath(QString::fromStdString(name)).toStdString();
    }
    bool WasOpened() const
    {
        char events[4096];
        return read(m_watch, events, sizeof events) > 0;
    }

private:
    QTemporaryDir m_folder;
    int m_watch = -1;
};

std::string Times(int count, std::string const& part)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += part;
    return all;
}

/// Ends the process should an opened FIFO hold it up.
struct Alarm {
    Alarm() { alarm(60); }
    ~Alarm() { alarm(0); }
};

TEST_F(DesktopTest, AHostilePageOpensNothingAndIsSoonThere)
{
    Alarm const alarm;
    WatchedFolder folder;
    std::vector<std::string> pages = { Times(20, "<table><tr><td>") + "x",
        Times(3000, "<table><tr><td>x"), Times(100000, "<b><i><font size=7>") + "x",
        Times(300000, "x"), Times(100000, "<b>x</b>"), Times(3000, "<ul><li>x") };
    for (int i = 0; i < 20000; ++i)
        pages.back() += "<a name=n" + std::to_string(i) + ">x ";
    for (std::string const& file : { folder.Path("secret.png"), folder.Path("style.css"),
             std::string("secret.png"), folder.Path("fifo") })
        for (std::string const& address : { file, "file://" + file })
            for (std::string const& page :
                { "<img src=\"" + address + "\">", "<IMG\nalt='>' src='" + address + "'>",
                    "<table background=\"" + address + "\"><tr><td background=\"" + address
                        + "\">x</table>",
                    "<body background=\"" + address + "\">x",
                    "<style>p { background-image: url(" + address + ") } @import url(" + address
                        + ");</style><p>x",
                    "<p style=\"background-image: url('" + address + "')\">x",
                    "<ul style=\"list-style-image: url(" + address + ")\"><li>x</ul>",
                    "<link rel=stylesheet type=text/css href=\"" + address + "\"><p>x",
                    "<a href=\"" + address + "\">" + Times(200, "link ") + "</a>",
                    "<scr<script></script><img src=\"" + address + "\">",
                    "<p title=\"<img src='" + address + "'>\">x",
                    "<!DOCTYPE x><meta name=\"qrichtext\" content=\"1\" /><base href=\"" + address
                        + "\"><img src=x>" })
                pages.push_back(page);
    frmPage reader(screen);
    reader.Show();
    Settle();
    auto& shown = Shown<QTextBrowser>(reader.page);
    for (auto const& page : pages) {
        SCOPED_TRACE(page.substr(0, 100));
        files.Put(u"C:\\Temp\\p.htm",
            "<html><body background=\"file:///app\\bg.jpg\">" + page
                + "</body></html>"); // there is no such file
        auto const start = std::clock(); // of this process, whatever else the machine does
        reader.page.Navigate(u"file://C:\\Temp\\p.htm");
        Settle();
        shown.grab();
        QTest::mouseClick(shown.viewport(), Qt::LeftButton, {}, { 30, 15 });
        Settle();
        EXPECT_FALSE(folder.WasOpened());
        EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC);
    }
    for (int const type : { 1, 2, 3, 4, 100 }) // of a resource, as QTextDocument numbers them
        EXPECT_FALSE(shown.loadResource(type, QUrl(QStringLiteral("secret.png"))).isNull())
            << "Qt would look for it by itself";
    EXPECT_FALSE(folder.WasOpened());
    Unload(reader);
    Settle();
}

TEST_F(DesktopTest, AToolTipShowsItsTextAsItIs)
{
    Alarm const alarm;
    WatchedFolder folder;
    for (std::string const& text : { std::string("Answers & notes"), std::string("1 < 2 &amp; 3"),
             "<b>bold</b> <img src='" + folder.Path("fifo") + "'>",
             "<p><img src=\"file://" + folder.Path("secret.png") + "\"> &lt;" }) {
        form.lamp.ToolTipText = FromUtf8(text);
        Open();
        auto& lamp = Shown(form.lamp);
        QHelpEvent event(QEvent::ToolTip, { 3, 3 }, lamp.mapToGlobal(QPoint(3, 3)));
        QApplication::sendEvent(&lamp, &event);
        Settle();
        QLabel* tip = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String("qtooltip_label") && window->isVisible())
                tip = qobject_cast<QLabel*>(window);
        ASSERT_TRUE(tip);
        tip->grab();
        bool const isRich = Qt::mightBeRichText(tip->text());
        EXPECT_EQ(
            (isRich ? QTextDocumentFragment::fromHtml(tip->text()).toPlainText() : tip->text())
                .toStdString(),
            text);
        EXPECT_FALSE(folder.WasOpened());
        tip->close();
        Settle();
    }
}

} // namespace
