// The host as a whole: what is mirrored when, focus, keys, windows that can't be acted on.

#include "controls/input.h"
#include "desktop/desktop_fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

TEST_F(DesktopTest, HideAndShowInOneHandlerNeverReachTheWidget)
{
    struct Watch final : QObject {
        int hides = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            hides += event->type() == QEvent::Hide;
            return false;
        }
    } watch;
    form.onNext = [this] {
        form.answer.Visible = false;
        form.answer.Visible = true;
        form.lamp.Visible = false;
    };
    Open();
    Shown(form.answer).installEventFilter(&watch);
    Click(form.next);
    EXPECT_EQ(watch.hides, 0);
    EXPECT_FALSE(Shown(form.lamp).isVisible());
}

TEST_F(DesktopTest, ABusyFormTakesNothingButItsClosing)
{
    bool closes = false;
    form.onNext = [this, &closes] {
        QTimer::singleShot(0, &host, [this, &closes] {
            ClickByWindow(form.tick);
            QTest::keyClicks(&Shown(form.line), "lost");
            if (closes)
                Shown(form).close();
        });
        GiveTurns();
        form.line.Text = u"kept";
    };
    Open();
    Click(form.next);
    EXPECT_EQ(form.tick.Value, 0);
    EXPECT_EQ(Shown<QLineEdit>(form.line).text(), "kept");
    EXPECT_EQ(form.TakeLog(), "-Text1, +Command1, next clicked");
    Click(form.tick);
    EXPECT_EQ(form.tick.Value, 1);
    closes = true;
    Click(form.next);
    EXPECT_EQ(form.line.Text(), u"kept") << "the handler came to its end";
    EXPECT_FALSE(form.IsLoaded());
}

TEST_F(DesktopTest, AWindowClosedWhileTheHostIsAtWorkOnItGoes)
{
    struct Closer final : QObject {
        QWidget* window = nullptr;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Hide)
                window->close();
            return false;
        }
    } closer;
    form.onNext = [this] { form.lamp.Visible = false; };
    Open();
    closer.window = &Shown(form);
    Shown(form.lamp).installEventFilter(&closer);
    Click(form.next);
    EXPECT_FALSE(form.IsLoaded());
}

TEST_F(DesktopTest, TurnsShowWhatALongHandlerDoes)
{
    QString seen;
    form.onNext = [&] {
        form.name.Caption = u"half";
        GiveTurns();
        seen = Shown<QLabel>(form.name).text();
    };
    Open();
    Click(form.next);
    EXPECT_EQ(seen, "half");
}

TEST_F(DesktopTest, TabFollowsTheModelsOrder)
{
    Open();
    for (Control* control : form.Stops()) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form.Focus(), control);
        EXPECT_EQ(QApplication::focusWidget(), &Shown(*control));
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.Focus(), &form.list);
}

TEST_F(DesktopTest, HidingTheFocusedControlMovesTheFocusOn)
{
    form.onNext = [this] { form.next.Visible = false; };
    Open();
    Click(form.next);
    EXPECT_EQ(form.TakeLog(), "-Text1, +Command1, next clicked, -Command1, +Check1");
    EXPECT_EQ(QApplication::focusWidget(), &Shown(form.tick));
}

TEST_F(DesktopTest, EnterAndEscapePressTheFormsButtons)
{
    form.next.Default = true;
    form.next.Cancel = true;
    Open();
    struct Row {
        Control& control;
        Qt::Key key;
        char const* log;
    } const rows[] = {
        { form.line, Qt::Key_Return, "next clicked, line key up 13" },
        { form.passage, Qt::Key_Return, "next clicked" },
        { form.answer, Qt::Key_Return, "answer changed" },
        { form.answer, Qt::Key_Escape, "next clicked" },
        { form.tree, Qt::Key_Return, "" },
        { form.lamp, Qt::Key_Return, "lamp clicked" },
        { form.lamp, Qt::Key_Space, "lamp clicked" },
        { form.next, Qt::Key_Return, "next clicked" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.control.Name());
        row.control.SetFocus();
        host.HandlersEnded();
        form.TakeLog();
        QTest::keyClick(QApplication::focusWidget(), row.key);
        EXPECT_EQ(form.TakeLog(), row.log);
    }
}

TEST_F(DesktopTest, AShortcutOfTheFormWorksWhereverTheFocusIs)
{
    int pressed = 0;
    form.shortcuts
        = { { 37, altHeld, [&] { ++pressed; } }, { 'K', controlHeld, [&] { ++pressed; } } };
    Open();
    form.line.Text = u"text";
    form.line.SelStart = 2;
    for (Control* control : form.Stops()) {
        control->SetFocus();
        host.HandlersEnded();
        form.TakeLog();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left, Qt::AltModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_K, Qt::ControlModifier);
        EXPECT_EQ(std::exchange(pressed, 0), 2) << control->Name();
    }
    EXPECT_EQ(form.line.Text(), u"text") << "which a box would delete to its end";
    QTest::keyClick(&Shown(form), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(pressed, 1);
}

TEST_F(DesktopTest, ALetterWithAltIsNoText)
{
    Open();
    struct {
        Qt::KeyboardModifiers modifiers;
        TextView typed;
    } const rows[] = { { Qt::AltModifier, u"" }, { Qt::AltModifier | Qt::ShiftModifier, u"" },
        { Qt::GroupSwitchModifier, u"q" }, { Qt::AltModifier | Qt::GroupSwitchModifier, u"q" },
        { Qt::ControlModifier | Qt::AltModifier, u"q" } };
    for (TextInput* const box :
        { static_cast<TextInput*>(&form.answer), static_cast<TextInput*>(&form.line) })
        for (auto const& row : rows) {
            Input(screen).Edit(*box, u"", 0, 0);
            host.HandlersEnded();
            QTest::sendKeyEvent(
                QTest::Click, &Shown(*box), Qt::Key_Q, QStringLiteral("q"), row.modifiers);
            EXPECT_EQ(box->Text(), row.typed) << box->Name() << ' ' << row.modifiers;
        }
}

class frmPlain final : public Form {
public:
    explicit frmPlain(Screen& screen)
        : Form(screen, "frmPlain", u"Plain", 3000, 2000)
    {
        centred = true;
        ok.Click = [this] { Unload(*this); };
    }
    void Form_KeyPress(char16_t character) override { pressed += character ? character : u'*'; }
    Text pressed;
    CommandButton ok { *this, *this, "OK", { 100, 100, 900, 300 }, u"OK" };
};

TEST_F(DesktopTest, KeysGoToAFormWithoutFocus)
{
    frmPlain plain(screen);
    plain.ok.Enabled = false;
    Open();
    plain.Show();
    Settle();
    struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        TextView heard;
    } const rows[] = { { Qt::Key_A, {}, u"a" }, { Qt::Key_Escape, {}, u"\x1B" },
        { Qt::Key_Tab, {}, u"\t" }, { Qt::Key_F5, {}, u"*" }, { Qt::Key_Down, {}, u"*" },
        { Qt::Key_Delete, {}, u"*" }, { Qt::Key_Shift, Qt::ShiftModifier, u"" },
        { Qt::Key_Alt, Qt::AltModifier, u"" }, { Qt::Key_Super_L, Qt::MetaModifier, u"" },
        { Qt::Key_CapsLock, {}, u"" }, { Qt::Key_F4, Qt::AltModifier, u"" } };
    for (auto const& row : rows) {
        plain.pressed.clear();
        QTest::keyClick(Shown(plain).windowHandle(), row.key, row.modifiers);
        EXPECT_EQ(plain.pressed, row.heard) << row.key;
    }
    Unload(plain);
}

TEST_F(DesktopTest, AModalFormHoldsItsCallerUntilItIsGone)
{
    frmPlain plain(screen);
    form.onNext = [&] {
        QTimer::singleShot(0, &host, [&] {
            Settle();
            EXPECT_TRUE(Shown(plain).isModal());
            ClickByWindow(form.tick);
            EXPECT_EQ(form.tick.Value, 0);
            Shown(form).close();
            Click(plain.ok);
        });
        plain.ShowModal();
        EXPECT_FALSE(plain.IsLoaded());
        form.name.Caption = u"after";
    };
    Open();
    Click(form.next);
    Settle();
    EXPECT_EQ(Shown<QLabel>(form.name).text(), "after");
    EXPECT_EQ(screen.Active(), &form) << "its closing was none while another form stood above it";
    EXPECT_EQ(QApplication::activeWindow(), &Shown(form));
}

TEST_F(DesktopTest, WindowAndFormAgreeOnSizeAndClosing)
{
    frmPlain plain(screen);
    Open();
    plain.Show();
    Settle();
    auto& window = Shown(plain);
    EXPECT_EQ(Pixels(plain.ScaleWidth), 200);
    EXPECT_EQ(window.size(), QSize(200, Pixels(2000)));
    window.resize(300, 250);
    Settle();
    EXPECT_EQ(plain.ScaleWidth, 4500);
    plain.Height = plain.Height - 750;
    host.HandlersEnded();
    Settle();
    EXPECT_EQ(window.size(), QSize(300, 200));
    EXPECT_EQ(plain.ScaleHeight, 3000);
    window.close();
    EXPECT_FALSE(plain.IsLoaded());
    EXPECT_TRUE(form.IsLoaded());
}

TEST_F(DesktopTest, AWindowChosenAgainComesUpInItsFormerState)
{
    frmPlain plain(screen);
    Open();
    for (auto const before : { FormState::Normal, FormState::Maximised }) {
        plain.Show();
        Settle();
        Input(screen).ChangeState(plain, before);
        Settle();
        Shown(plain).showMinimized();
        Settle();
        Shown(form).activateWindow();
        Settle();
        plain.Show();
        Settle();
        EXPECT_FALSE(Shown(plain).isMinimized());
        EXPECT_EQ(Shown(plain).isMaximized(), before == FormState::Maximised);
        EXPECT_EQ(plain.WindowState(), before);
        EXPECT_EQ(QApplication::activeWindow(), &Shown(plain));
    }
    Unload(plain);
}

class frmTall final : public Form {
public:
    explicit frmTall(Screen& screen)
        : Form(screen, "frmTall", u"Tall", 3000, 18000)
    {
        border = BorderStyle::Dialog;
        inTaskbar = false;
        ok.Default = true;
    }
    CommandButton ok { *this, *this, "OK", { 100, 17000, 900, 300 }, u"OK" };
};

TEST_F(DesktopTest, AWindowHigherThanTheScreenScrolls)
{
    frmTall tall(screen);
    Open();
    tall.Top = -3000;
    tall.Show();
    Settle();
    float const height = tall.Height;
    auto& window = Shown(tall);
    auto const screenHeight = window.screen()->availableSize().height();
    ASSERT_LT(screenHeight, 1200);
    auto const isSeen = [&] {
        return window.rect().contains(
            Shown(tall.ok).geometry().translated(Shown(tall.ok).parentWidget()->pos()));
    };
    EXPECT_LE(window.frameGeometry().height(), screenHeight);
    EXPECT_GE(window.pos().y(), 0);
    EXPECT_FALSE(isSeen());
    struct {
        Qt::Key key;
        bool reaches;
    } const keys[] = { { Qt::Key_Down, false }, { Qt::Key_End, true }, { Qt::Key_Home, false },
        { Qt::Key_PageDown, true }, { Qt::Key_PageUp, false }, { Qt::Key_Tab, true } };
    for (auto const& row : keys) {
        QTest::keyClick(window.windowHandle(), row.key);
        Settle();
        EXPECT_EQ(isSeen(), row.reaches) << row.key;
    }
    QTest::keyClick(window.windowHandle(), Qt::Key_Home);
    auto const middle = QPointF(window.rect().center());
    QWheelEvent wheel(
        middle, window.mapToGlobal(middle), {}, { 0, -120 * 20 }, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window.windowHandle(), &wheel);
    EXPECT_TRUE(isSeen());
    EXPECT_EQ(tall.Height, height) << "the form keeps its measures";
    EXPECT_EQ(tall.ScaleHeight, 18000);

    tall.Height = tall.Height - 15000;
    host.HandlersEnded();
    Settle();
    EXPECT_EQ(window.size(), QSize(200, 200)) << "what fits isn't cut any more";
    EXPECT_EQ(Shown(tall.ok).parentWidget()->pos(), QPoint(0, 0));
    Unload(tall);
}

TEST_F(DesktopTest, AMessageTakesTheFocusForItsTime)
{
    Open();
    QTimer::singleShot(0, &host, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        EXPECT_EQ(box->text(), "<b>plain</b>");
        EXPECT_EQ(form.TakeLog(), "-Text1");
        box->accept();
    });
    screen.Message(u"<b>plain</b>");
    EXPECT_EQ(form.TakeLog(), "+Text1");
}

TEST_F(DesktopTest, MeasuresTextAsALabelShowsIt)
{
    Open();
    Text const texts[] = { u"one", u"several words that need more than a single line of the label",
        u"two\r\n\r\n" };
    for (auto const& text : texts) {
        QLabel label;
        QFont font("MS Sans Serif");
        font.setPointSizeF(8.25);
        label.setFont(font);
        label.setWordWrap(true);
        label.setText(QString::fromStdU16String(text).remove('\r'));
        auto const size = host.MeasureText({ u"MS Sans Serif", 8.25F, false }, text, 2000);
        EXPECT_GE(size.height, static_cast<float>(label.heightForWidth(133)) * 15) << ToUtf8(text);
        EXPECT_LE(size.width, 2000);
    }
    EXPECT_LT(host.MeasureText({}, u"a", 0).height, host.MeasureText({}, u"a\r\n", 0).height);
}
