#include "controls/log_form.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FormsTest, ShowingGivesTheFocusToTheFirstControlOfTheTabOrder)
{
    a.second.TabIndex = 0;
    a.Show();
    EXPECT_THAT(TakeLog(), ElementsAre("a.load", "a.second got"));
}

TEST_F(FormsTest, WhatIsActedOnTakesTheFocusFirst)
{
    a.Show();
    TakeLog();
    EXPECT_EQ(input.Click(a.button), "");
    EXPECT_THAT(TakeLog(), ElementsAre("a.first lost", "a.button got", "a.button click"));
    EXPECT_EQ(input.Click(a.label), "");
    EXPECT_EQ(input.Click(a.entry), "");
    EXPECT_THAT(TakeLog(), ElementsAre("a.label click", "a.entry click"))
        << "labels and menus leave the focus alone";
}

TEST_F(FormsTest, AnotherFormTakesTheFocusAndGivesItBack)
{
    a.Show();
    input.Focus(a.second);
    TakeLog();
    b.Show();
    EXPECT_THAT(TakeLog(), ElementsAre("b.load", "a.second lost", "b.first got"));
    EXPECT_EQ(input.Click(a.label), "");
    EXPECT_THAT(TakeLog(), ElementsAre("b.first lost", "a.second got", "a.label click"));
    input.Click(b.label);
    TakeLog();
    Unload(b);
    EXPECT_THAT(TakeLog(), ElementsAre("b.first lost", "b.unload", "a.second got"));
    EXPECT_EQ(screen.Active(), &a);
}

TEST_F(FormsTest, HidingTheFocusedControlIsSettledWhenTheOutermostHandlerEnds)
{
    a.Show();
    TakeLog();
    a.onClick = [this] {
        a.first.Visible = false;
        a.first.Visible = true;
    };
    input.Click(a.label);
    EXPECT_THAT(TakeLog(), ElementsAre("a.label click")) << "shown again, it never lost the focus";
    a.onClick = [this] { a.first.Enabled = false; };
    input.Click(a.label);
    EXPECT_THAT(TakeLog(), ElementsAre("a.label click", "a.first lost", "a.second got"));
}

TEST_F(FormsTest, AMessageBoxTakesTheFocusAndReturnsIt)
{
    a.Show();
    a.onClick = [this] { screen.Message(u"Hello"); };
    TakeLog();
    input.Click(a.label);
    EXPECT_THAT(TakeLog(), ElementsAre("a.label click", "a.first lost", "a.first got"));
    auto const messages = host.TakeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, u"Sparrowfield");
}

TEST_F(FormsTest, AMessageFromLostFocusIsShownOnceAndTheFocusMovesOn)
{
    a.Show();
    a.first.LostFocus = [this] {
        a.Write("first lost");
        screen.Message(u"Not stored");
    };
    TakeLog();
    input.Click(a.button);
    EXPECT_THAT(TakeLog(), ElementsAre("a.first lost", "a.button got", "a.button click"));
    EXPECT_EQ(host.TakeMessages().size(), 1U);
}

TEST_F(FormsTest, TheWindowSystemCanTakeTheFocusAway)
{
    a.Show();
    TakeLog();
    screen.SuspendFocus();
    screen.SuspendFocus();
    screen.ResumeFocus();
    EXPECT_THAT(TakeLog(), ElementsAre("a.first lost", "a.first got"));
}

TEST_F(FormsTest, TheTabOrderGoesRoundAndPassesWhatCannotTakeTheFocus)
{
    a.Show();
    EXPECT_EQ(screen.NextInTabOrder(a, &a.first), &a.second);
    EXPECT_EQ(screen.NextInTabOrder(a, &a.first, true), &a.button);
    a.second.Visible = false;
    EXPECT_EQ(screen.NextInTabOrder(a, &a.first), &a.button);
    EXPECT_EQ(screen.NextInTabOrder(a, &a.button), &a.first);
}

TEST_F(FormsTest, SettingTheFocusOfAFormThatIsNotActiveRaisesNothing)
{
    a.Show();
    b.Show();
    TakeLog();
    a.button.SetFocus();
    EXPECT_THAT(TakeLog(), IsEmpty());
    Unload(b);
    EXPECT_THAT(TakeLog(), ElementsAre("b.first lost", "b.unload", "a.button got"));
}
