#include "controls/log_form.h"
#include "headless/keyboard.h"

namespace {

class KeyboardTest : public FormsTest {
protected:
    KeyboardTest() { a.Show(); }

    void Strike(int keyCode, int shift = 0)
    {
        EXPECT_EQ(Press(input, screen, a.first, keyCode, shift), "");
    }
};

enum : int { end = 35, home, left, up, right, down, del = 46, back = 8, enter = 13 };

} // namespace

TEST_F(KeyboardTest, EditingKeysWorkOnTextWithLineEnds)
{
    struct {
        char const* about;
        std::vector<std::pair<int, int>> keys; // with their shifts, from the end of "one\r\ntwo" on
        TextView text;
        int caret, length;
    } const rows[] = {
        { "backspace", { { back, 0 } }, u"one\r\ntw", 7, 0 },
        { "backspace over a line end", { { home, 0 }, { back, 0 } }, u"onetwo", 3, 0 },
        { "backspace over two 16-bit halves", { { 'V', controlHeld }, { back, 0 } }, u"one\r\ntwo",
            8, 0 },
        { "delete a line end", { { up, 0 }, { end, 0 }, { del, 0 } }, u"onetwo", 3, 0 },
        { "enter", { { home, 0 }, { enter, 0 } }, u"one\r\n\r\ntwo", 7, 0 },
        { "arrows pass a line end at once", { { home, 0 }, { left, 0 }, { left, 0 } },
            u"one\r\ntwo", 2, 0 },
        { "up and down keep the column", { { up, 0 }, { left, 0 }, { down, 0 } }, u"one\r\ntwo", 7,
            0 },
        { "select and replace", { { left, shiftHeld }, { left, shiftHeld }, { 'Q', 0 } },
            u"one\r\ntq", 7, 0 },
        { "select all", { { 'A', controlHeld } }, u"one\r\ntwo", 0, 8 },
        { "cut and paste",
            { { 'A', controlHeld }, { 'X', controlHeld }, { 'V', controlHeld },
                { 'V', controlHeld } },
            u"one\r\ntwoone\r\ntwo", 16, 0 },
        { "capital", { { 'Z', shiftHeld } }, u"one\r\ntwoZ", 9, 0 },
    };
    for (auto const& row : rows) {
        a.first.Text = u"";
        host.SetClipboardText(u"\U0001F54A");
        EXPECT_EQ(Type(input, a.first, u"one\r\ntwo"), "") << row.about;
        for (auto const& [key, shift] : row.keys)
            Strike(key, shift);
        EXPECT_EQ(a.first.Text(), row.text) << row.about;
        EXPECT_EQ(a.first.SelStart, row.caret) << row.about;
        EXPECT_EQ(a.first.SelLength, row.length) << row.about;
    }
}

TEST_F(KeyboardTest, TypingRaisesAChangeForEachCharacter)
{
    TakeLog();
    Type(input, a.first, u"ab\nc");
    EXPECT_EQ(TakeLog().size(), 4U);
    a.first.Locked = true;
    EXPECT_EQ(Type(input, a.first, u"x"), "a.first is read-only");
}

TEST_F(KeyboardTest, AFormThatAKeyBringsUpStaysInFront)
{
    a.button.KeyUp = [this](int, int) { a.Write("button up"); };
    TakeLog();
    EXPECT_EQ(Press(input, screen, a.button, enter, 0), "");
    EXPECT_EQ(TakeLog().back(), "a.button up");
    a.onClick = [this] { b.Show(); };
    EXPECT_EQ(Press(input, screen, a.button, enter, 0), "");
    EXPECT_EQ(screen.Active(), &b);
    EXPECT_EQ(TakeLog().back(), "b.first got");
    EXPECT_EQ(Press(input, screen, b, 115, altHeld), "");
    EXPECT_FALSE(b.IsLoaded()) << "Alt+F4";
}

TEST_F(KeyboardTest, TabShortcutsAndDefaultButtonsAct)
{
    a.button.Default = true;
    a.first.Locked = true;
    TakeLog();
    Strike(9);
    EXPECT_EQ(a.Focus(), &a.second);
    EXPECT_EQ(Press(input, screen, a.second, 9, shiftHeld), "");
    EXPECT_EQ(a.Focus(), &a.first);
    TakeLog();
    Strike('E', controlHeld);
    Strike(enter);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("a.entry click", "a.button click"));
    a.first.KeyUp = [this](int keyCode, int) { a.Write("first up " + std::to_string(keyCode)); };
    a.shortcuts = { { left, altHeld, [this] { a.Write("back"); } } };
    Strike(left, altHeld);
    Strike(left, altHeld | shiftHeld);
    a.Enabled = false;
    EXPECT_EQ(Press(input, screen, a, left, altHeld), "a is disabled");
    EXPECT_THAT(TakeLog(), testing::ElementsAre("a.back", "a.first up 37"));
}
