// Boxes with text: offsets, typing, increments, the line at the top.

#include "desktop/desktop_fixture.h"
#include "desktop/peers/rich_text_writer.h"
#include "desktop/peers/text_edit.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>

TEST_F(DesktopTest, OffsetsCountTwoForALineEnd)
{
    Open();
    form.answer.Text = u"ab\r\n\r\ncd";
    host.HandlersEnded();
    auto& box = Shown<TextEdit>(form.answer);
    for (auto const& [offset, position] :
        { std::pair { 0, 0 }, { 2, 2 }, { 4, 3 }, { 6, 4 }, { 8, 6 } }) {
        EXPECT_EQ(box.ToPosition(offset), position);
        EXPECT_EQ(box.ToOffset(position), offset);
    }
}

TEST_F(DesktopTest, TypingArrivesWithCaretAndLineEnds)
{
    Open();
    Click(form.answer);
    form.TakeLog();
    auto& box = Shown<TextEdit>(form.answer);
    QTest::keyClicks(&box, "ab");
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&box, "c");
    EXPECT_EQ(form.answer.Text(), u"ab\r\n\r\nc");
    EXPECT_EQ(form.answer.SelStart, 7);
    EXPECT_EQ(form.TakeLog(),
        "answer changed, answer changed, answer changed, answer changed, answer changed");
    QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(form.answer.SelStart, 4);
    EXPECT_EQ(form.answer.SelLength, 3);
    EXPECT_EQ(form.TakeLog(), "");

    Click(form.line);
    QTest::keyClicks(&Shown(form.line), "Jn");
    QTest::keyClick(&Shown(form.line), Qt::Key_Return);
    EXPECT_EQ(form.line.Text(), u"Jn");
    EXPECT_EQ(form.TakeLog(), "-Text3, line key up 74, line key up 78, line key up 13");
}

TEST_F(DesktopTest, UndoNeverBringsBackATextThatTheProgramReplaced)
{
    Open();
    Click(form.answer);
    auto& box = Shown<TextEdit>(form.answer);
    QTest::keyClicks(&box, "old");
    box.undo();
    EXPECT_EQ(form.answer.Text(), u"");
    QTest::keyClicks(&box, "page one");
    form.answer.Text = u"page two";
    host.HandlersEnded();
    box.undo();
    EXPECT_EQ(form.answer.Text(), u"page two");
    EXPECT_EQ(box.toPlainText(), "page two");
}

TEST_F(DesktopTest, WhatACommandDidWithTheSelectionCanBeUndone)
{
    struct Case {
        TextView text;
        int start, length;
        TextView by;
    };
    for (auto const& [text, start, length, by] :
        { Case { u"one two three", 4, 4, {} }, { u"one two", 7, 0, u" three" },
            { u"one", 0, 3, {} }, { {}, 0, 0, u"pasted\r\nlines" }, { u"a\r\n\r\nb", 1, 2, {} },
            { u"a\r\nb", 1, 2, u"\r\nc\r\n" }, { u"a\r\nb", 3, 0, u"\r\n" },
            { u"a\u2029b", 1, 1, u"\uFDD0\uFDD1" }, { u"aa", 1, 0, u"a" },
            { u"a\U0001F600", 1, 2, u"\U0001F601" }, { u"\U0001F600", 0, 2, u"\U0001F200" },
            { u"same", 1, 2, u"am" } }) {
        SCOPED_TRACE(ToUtf8(Text(text)));
        Open();
        form.answer.Text = Text(text);
        host.HandlersEnded();
        form.answer.SelStart = start;
        form.answer.SelLength = length;
        host.HandlersEnded();
        auto& box = Shown<TextEdit>(form.answer);
        auto const before = box.WholeText();
        form.answer.ReplaceSelection(by);
        host.HandlersEnded();
        auto const after = form.answer.Text();
        EXPECT_EQ(after.size(), text.size() - static_cast<std::size_t>(length) + by.size());
        EXPECT_EQ(box.ToPosition(form.answer.SelStart), box.textCursor().position());
        box.undo();
        EXPECT_EQ(box.WholeText(), before);
        EXPECT_EQ(form.answer.Text(), before);
        box.redo();
        EXPECT_EQ(box.WholeText().size(), after.size());
    }
}

TEST_F(DesktopTest, AFormatReachesATextThatCanBeWrittenInToo)
{
    Open();
    form.answer.Text = u"bold";
    host.HandlersEnded();
    form.answer.SelLength = 4;
    form.answer.SelBold = true;
    host.HandlersEnded();
    auto& box = Shown<TextEdit>(form.answer);
    EXPECT_EQ(box.currentCharFormat().fontWeight(), QFont::Bold);
    form.answer.ReplaceSelection(u"more");
    host.HandlersEnded();
    EXPECT_EQ(
        box.currentCharFormat().fontWeight() == QFont::Bold, form.answer.Runs()[0].format.bold);
}

TEST_F(DesktopTest, ChangeHandlerMayReplaceWhatIsBeingTyped)
{
    form.answer.Change = [this] {
        if (form.answer.Text() == u"x")
            form.answer.Text = u"whole";
    };
    Open();
    Click(form.answer);
    QTest::keyClicks(&Shown(form.answer), "x");
    EXPECT_EQ(Shown<TextEdit>(form.answer).toPlainText(), "whole");
}

TEST_F(DesktopTest, PastesPlainTextAlone)
{
    form.copy.Enabled = false;
    Open();
    auto* const rich = new QMimeData;
    rich->setHtml("<b>bold</b>");
    rich->setText("plain\nlines");
    QApplication::clipboard()->setMimeData(rich);
    Click(form.answer);
    QTest::keyClick(&Shown(form.answer), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.answer.Text(), u"plain\r\nlines");
    EXPECT_EQ(host.ClipboardText(), u"plain\r\nlines");
}

TEST_F(DesktopTest, ShortcutGoesToTheEnabledEntryElseToTheBox)
{
    form.passage.Text = u"In the beginning";
    Open();
    auto& box = Shown<TextEdit>(form.passage);
    Click(form.passage);
    box.selectAll();
    EXPECT_EQ(form.passage.SelLength, 16);
    for (bool const enabled : { true, false }) {
        form.copy.Enabled = enabled;
        host.HandlersEnded();
        host.SetClipboardText(u"");
        form.TakeLog();
        QTest::keyClick(box.window()->windowHandle(), Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(form.TakeLog(), enabled ? "copy clicked" : "");
        EXPECT_EQ(host.ClipboardText(), enabled ? u"" : u"In the beginning");
    }
}

TEST_F(DesktopTest, FormatsReachTheDocument)
{
    Open();
    form.passage.SelHangingIndent = 210;
    form.passage.SelCharOffset = 35;
    form.passage.SelFontSize = 4;
    form.passage.ReplaceSelection(u"12");
    form.passage.SelCharOffset = 0;
    form.passage.SelFontSize = 8;
    form.passage.SelBold = true;
    form.passage.ReplaceSelection(u"text\r\n");
    host.HandlersEnded();
    form.passage.ReplaceSelection(u"more");
    host.HandlersEnded();
    auto& box = Shown<TextEdit>(form.passage);
    auto const block = box.document()->firstBlock();
    EXPECT_EQ(block.text(), "12text");
    EXPECT_EQ(block.blockFormat().leftMargin(), 14);
    EXPECT_EQ(block.blockFormat().textIndent(), -14);
    auto const number = block.begin().fragment().charFormat();
    EXPECT_EQ(number.fontPointSize(), 4);
    EXPECT_NEAR(
        number.baselineOffset() / 100 * QFontMetricsF(number.font()).height(), 35 / 15.0, 0.01);
    EXPECT_EQ(block.next().text(), "more");
    EXPECT_TRUE(block.next().begin().fragment().charFormat().font().bold());
}

class PassageTest : public DesktopTest {
protected:
    /// Verses with a heading before every tenth; gives where the headings start.
    std::vector<int> Fill(int verses)
    {
        std::vector<int> headings;
        for (int i = 0; i < verses; ++i) {
            form.passage.SelStart = form.passage.Length();
            if (i % 10 == 0) {
                headings.push_back(form.passage.Length());
                form.passage.SelBold = true;
                form.passage.ReplaceSelection(u"Heading\r\n\r\n");
            }
            form.passage.SelBold = false;
            form.passage.ReplaceSelection(
                u"And it came to pass in those days that a long verse wrapped.\r\n\r\n");
        }
        return headings;
    }
    void ServeUntilWhole()
    {
        auto& box = Shown<TextEdit>(form.passage);
        (void)QTest::qWaitFor(
            [&] { return box.WholeText().size() == form.passage.Text().size(); }, 60'000);
        EXPECT_EQ(box.WholeText(), form.passage.Text());
    }
};

TEST_F(PassageTest, HeadingStandsExactlyInTheTopLine)
{
    Open();
    auto const headings = Fill(120);
    host.HandlersEnded();
    auto& box = Shown<TextEdit>(form.passage);
    auto const top = [&] { return box.verticalScrollBar()->value(); };
    for (int const heading : { headings[4], headings.back(), headings[0], headings[4] }) {
        form.passage.TopOffset = heading;
        host.HandlersEnded();
        auto const block = box.document()->findBlock(box.ToPosition(heading));
        EXPECT_EQ(block.text(), "Heading");
        auto const y = heading == 0
            ? 0
            : qRound(box.document()->documentLayout()->blockBoundingRect(block).top());
        EXPECT_EQ(top(), y);
    }
    int const kept = top();
    box.verticalScrollBar()->setValue(0);
    form.passage.TopOffset = headings[4]; // the same again
    host.HandlersEnded();
    EXPECT_EQ(top(), kept);
}

TEST_F(PassageTest, LettersOfAnotherSizeLeaveTheTextWhereItIs)
{
    form.passage.isReadingPane = form.answer.isReadingPane = true;
    Open();
    auto const headings = Fill(120);
    form.passage.TopOffset = headings[4];
    host.HandlersEnded();
    Click(form.answer);
    auto& answer = Shown<TextEdit>(form.answer);
    auto& passage = Shown<TextEdit>(form.passage);
    QTest::keyClicks(&answer, "typed");
    auto const widthOf = [](TextEdit& box) {
        auto const line = box.document()->lastBlock().previous().isValid()
            ? box.document()->firstBlock().layout()->lineAt(0)
            : box.document()->lastBlock().layout()->lineAt(0);
        return line.naturalTextWidth();
    };
    auto const answerWidth = widthOf(answer), passageWidth = widthOf(passage);
    auto const turnWheel = [&](int delta) {
        QWheelEvent wheel({ 5, 5 }, answer.viewport()->mapToGlobal(QPointF(5, 5)), {}, { 0, delta },
            Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(answer.viewport(), &wheel);
    };
    for (int i = 0; i < 24; ++i)
        turnWheel(15); // an eighth of a notch
    EXPECT_EQ(screen.TextSize(), 150);
    EXPECT_NEAR(widthOf(answer) / answerWidth, 1.5, 0.1);
    EXPECT_NEAR(widthOf(passage) / passageWidth, 1.5, 0.1);
    EXPECT_EQ(
        passage.ToOffset(passage.cursorForPosition({ 1, 1 }).block().position()), headings[4]);
    auto const middle = passage.document()->findBlockByNumber(100);
    auto& bar = *passage.verticalScrollBar();
    bar.setSliderPosition(
        qRound(passage.document()->documentLayout()->blockBoundingRect(middle).top()));
    bar.triggerAction(QAbstractSlider::SliderMove);
    turnWheel(-120);
    EXPECT_EQ(passage.cursorForPosition({ 1, 3 }).block(), middle) << "where the user has scrolled";
    QTest::keyClick(&answer, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(screen.TextSize(), 100);
    EXPECT_EQ(widthOf(answer), answerWidth);
    answer.undo();
    EXPECT_EQ(form.answer.Text(), u"") << "what was typed before can be undone";
}

TEST_F(PassageTest, ALongTextGrowsByWhatIsAppended)
{
    Open();
    Fill(3000);
    host.HandlersEnded();
    auto* const document = Shown<TextEdit>(form.passage).document();
    for (int i = 0; i < 3; ++i) {
        form.passage.SelStart = form.passage.Length();
        form.passage.ReplaceSelection(u"one more\r\n");
        host.HandlersEnded();
    }
    ServeUntilWhole();
    EXPECT_EQ(Shown<TextEdit>(form.passage).document(), document);
    for (char const digit : { '1', '2' }) { // anew, each time in a document of its own
        form.passage.Text = Text(3, static_cast<char16_t>(digit));
        host.HandlersEnded();
        EXPECT_EQ(Shown<TextEdit>(form.passage).WholeText(), form.passage.Text());
    }
}

TEST_F(PassageTest, AHeadingFarDownIsThereAtOnceAndTheRestFollows)
{
    Open();
    auto const headings = Fill(3000);
    host.HandlersEnded();
    auto& box = Shown<TextEdit>(form.passage);
    EXPECT_LT(box.WholeText().size(), form.passage.Text().size() / 2);
    for (int const heading : { headings[290], headings[1], headings[200] }) {
        form.passage.TopOffset = heading;
        host.HandlersEnded();
        EXPECT_LT(box.WholeText().size(), form.passage.Text().size());
        auto const topLine = [&] {
            auto const block = box.document()->findBlock(box.ToPosition(heading));
            EXPECT_EQ(block.text(), "Heading");
            EXPECT_EQ(box.ToOffset(block.position()), heading);
            return qRound(box.document()->documentLayout()->blockBoundingRect(block).top());
        };
        EXPECT_EQ(box.verticalScrollBar()->value(), topLine());
        QCoreApplication::processEvents();
        EXPECT_EQ(box.verticalScrollBar()->value(), topLine());
    }
    ServeUntilWhole();
    EXPECT_EQ(box.cursorForPosition({ 1, 1 }).block().text(), "Heading");
    QTextDocument straight;
    straight.setDefaultFont(box.document()->defaultFont());
    RichTextWriter(form.passage, straight).WriteTo(form.passage.Length());
    EXPECT_EQ(box.document()->toHtml(), straight.toHtml());
}

TEST_F(PassageTest, ACommandAboutTheWholeTextWaitsForAllOfIt)
{
    Open();
    Fill(3000);
    host.HandlersEnded();
    auto& box = Shown<TextEdit>(form.passage);
    Click(form.passage);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.passage.SelLength, form.passage.Length());
}
