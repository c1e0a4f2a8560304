#pragma once
// A form with every kind of control on the desktop host, and what the tests need to act on its
// widgets.

#include "controls/button.h"
#include "controls/label.h"
#include "controls/list.h"
#include "controls/media.h"
#include "controls/menu.h"
#include "controls/picture.h"
#include "controls/rich_text_box.h"
#include "controls/screen.h"
#include "controls/scroll_bar.h"
#include "controls/timer.h"
#include "controls/tree_view.h"
#include "controls/xp_container.h"
#include "desktop/desktop_host.h"
#include "support/memory_file_system.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

class frmKinds final : public Form {
public:
    explicit frmKinds(Screen& screen)
        : Form(screen, "frmKinds", u"Every kind", 9000, 6000)
    {
        for (Control* const control : Stops())
            if (control != &line) {
                control->GotFocus = [this, control] { Note(std::string("+") + control->Name()); };
                control->LostFocus = [this, control] { Note(std::string("-") + control->Name()); };
            }
        answer.Change = [this] { Note("answer changed"); };
        next.Click = [this] {
            Note("next clicked");
            if (onNext)
                onNext();
        };
        tick.Click = [this] { Note("tick clicked"); };
        lamp.Click = [this] { Note("lamp clicked"); };
        name.Click = [this] { Note("name clicked"); };
        copy.Click = [this] { Note("copy clicked"); };
        bar.Change = [this] { Note("bar changed " + std::to_string(bar.Value())); };
        bar.Scroll = [this] { Note("bar scrolled " + std::to_string(bar.Value())); };
        list.Click = [this] { Note("list chosen"); };
        tree.NodeClick = [this](Node& node) { Note("node clicked " + ToUtf8(node.Key())); };
        tree.Images = &pictures;
        line.KeyUp = [this](int keyCode, int) { Note("line key up " + std::to_string(keyCode)); };
        lamp.TabStop = true;
        passage.Locked = true;
    }

    std::string TakeLog()
    {
        std::string whole;
        for (auto const& entry : log)
            whole += (whole.empty() ? "" : ", ") + entry;
        log.clear();
        return whole;
    }
    /// What Tab visits after the passage, and that.
    std::vector<Control*> Stops()
    {
        return { &answer, &line, &next, &tick, &lamp, &bar, &tree, &list, &passage };
    }
    void Form_Click() override { Note("form clicked"); }
    void Form_Resize() override { Note("resized"); }

    std::vector<std::string> log;
    std::function<void()> onNext;

    Menu edit { *this, "mnuEdit", u"&Edit" };
    MenuEntry copy { *this, edit, "mnuEditCopy", u"Copy", u"Ctrl+C" };
    ImageList pictures { *this, "ImageList1", { { "book", ":book" } } };
    XPContainer panel { *this, *this, "XPContainer1", { 120, 120, 4000, 3000 }, u"Scripture" };
    RichTextBox passage { *this, panel, "Text1", { 20, 350, 3900, 2600 } };
    RichTextBox answer { *this, *this, "Text3", { 4500, 120, 3000, 900 } };
    ::TextBox line { *this, *this, "txtVerse", { 4500, 1100, 3000, 300 } };
    CommandButton next { *this, *this, "Command1", { 4500, 1500, 900, 300 }, u"Next >" };
    CheckBox tick { *this, *this, "Check1", { 5600, 1500, 900, 300 }, u"Tick" };
    Image lamp { *this, *this, "Image1", { 6600, 1500, 525, 315 }, u":lamp" };
    HScrollBar bar { *this, *this, "ctlScrollbar", { 4500, 2000, 3000, 255 } };
    TreeView tree { *this, *this, "TreeView1", { 4500, 2400, 3000, 1500 } };
    ComboBox list { *this, *this, "cboVersion", { 4500, 4000, 3000, 315 },
        { u"first", u"second" } };
    Label name { *this, *this, "Label1", { 4500, 4500, 3000, 300 }, u"A & B" };
    Timer timer { *this, "Timer1", 10 };

private:
    void Note(std::string entry) { log.push_back(std::move(entry)); }
};

/// A form with a browser.
class frmPage final : public Form {
public:
    explicit frmPage(Screen& screen)
        : Form(screen, "frmPage", u"Page", 6000, 4000)
    {
    }
    WebBrowser page { *this, *this, "Text1", { 0, 0, 6000, 4000 } };
};

inline std::string Encoded(QImage const& image, char const* format = "JPG")
{
    QBuffer buffer;
    image.save(&buffer, format, 95);
    return buffer.data().toStdString();
}

class DesktopTest : public testing::Test {
protected:
    DesktopTest() { form.timer.Enabled = false; }
    ~DesktopTest() override { host.CloseAll(); }

    void Open()
    {
        form.Show();
        Settle();
        form.log.clear();
    }
    static void Settle()
    {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    template <class Widget = QWidget> Widget& Shown(Control const& control)
    {
        auto const name = QString::fromUtf8(control.Name());
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QString::fromUtf8(control.ParentForm().Name()))
                if (auto* const widget
                    = window->objectName() == name ? window : window->findChild<QWidget*>(name))
                    return dynamic_cast<Widget&>(*widget);
        throw std::runtime_error(std::string("no widget for ") + control.Name());
    }
    void Click(Control const& control) { QTest::mouseClick(&Shown(control), Qt::LeftButton); }
    /// Gives the host time and turns enough to serve events in one of them.
    void GiveTurns()
    {
        QTest::qWait(12);
        for (int i = 0; i < 2000; ++i)
            host.turns.Give();
    }
    /// A click as the window system would send it: through the window.
    void ClickByWindow(Control const& control)
    {
        auto& widget = Shown(control);
        QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
            widget.mapTo(widget.window(), widget.rect().center()));
    }

    MemoryFileSystem files;
    DesktopHost host { files, {} };
    Screen screen { host };
    frmKinds form { screen };
};
