#include "controls/log_form.h"

using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(FormsTest, LoadingReturnsTheControlsToTheirDesign)
{
    a.label.Caption = u"design";
    Load(a);
    a.label.Caption = u"changed";
    a.first.Text = u"text";
    a.Show();
    EXPECT_EQ(a.label.Caption(), u"changed") << "showing doesn't load a form that is loaded";
    Unload(a);
    a.Show();
    EXPECT_EQ(a.label.Caption(), u"design");
    EXPECT_EQ(a.first.Length(), 0);
}

TEST_F(FormsTest, AFormCanBeUnloadedFromItsOwnHandlerAndItsOwnLoad)
{
    b.Show();
    a.Show();
    a.onClick = [this] {
        Unload(a);
        a.first.Text = u"still safe";
    };
    TakeLog();
    input.Click(a.label);
    EXPECT_THAT(TakeLog(), ElementsAre("a.label click", "a.first lost", "a.unload", "b.first got"));
    a.onLoad = [this] { Unload(a); };
    a.Show();
    EXPECT_FALSE(a.IsLoaded());
    EXPECT_FALSE(a.Visible);
    EXPECT_EQ(screen.Active(), &b);
    EXPECT_FALSE(screen.Ended());
    Unload(b);
    EXPECT_TRUE(screen.Ended());
}

TEST_F(FormsTest, AModalFormBlocksTheOthersAndItsCallerWaits)
{
    a.Show();
    std::string refusal;
    host.serveModal = [&](Form& form) {
        EXPECT_EQ(&form, &b);
        refusal = input.Click(a.label);
        EXPECT_EQ(input.Click(b.label), "");
        EXPECT_FALSE(b.IsBusy());
        input.Close(b);
    };
    a.onClick = [this] {
        b.ShowModal();
        a.Write("goes on");
    };
    TakeLog();
    input.Click(a.label);
    EXPECT_THAT(refusal, HasSubstr("under the modal form b"));
    EXPECT_THAT(TakeLog(),
        ElementsAre("a.label click", "b.load", "a.first lost", "b.first got", "b.label click",
            "b.first lost", "b.unload", "a.first got", "a.goes on"));
    EXPECT_EQ(screen.Modal(), nullptr);
}

TEST_F(FormsTest, ActionsOnAFormInATurnOfItsOwnHandlerAreDropped)
{
    a.Show();
    b.Show();
    host.onTurn = [this] {
        EXPECT_EQ(input.Click(a.button), "");
        EXPECT_EQ(input.Close(a), "");
        EXPECT_EQ(input.Click(b.button), "");
    };
    a.onClick = [this] {
        host.turns.Arm(2);
        host.turns.GiveMany(2);
    };
    input.Click(a.label);
    TakeLog();
    input.Click(a.label);
    EXPECT_THAT(TakeLog(),
        ElementsAre("b.button lost", "a.first got", "a.label click", "a.first lost", "b.button got",
            "b.button click"));
    EXPECT_TRUE(a.IsLoaded());
}

TEST_F(FormsTest, AFormThatKeepsActionsRunsThemInTheirOrder)
{
    a.queuesActions = true;
    a.Show();
    bool closes = false;
    host.onTurn = [&] {
        EXPECT_EQ(input.Edit(a.second, u"typed", 5, 0), "");
        EXPECT_EQ(input.Click(a.button), "");
        EXPECT_EQ(input.Edit(a.first, u"typed", 5, 0), "");
        if (closes) {
            EXPECT_EQ(input.Close(a), "");
            EXPECT_TRUE(a.IsCloseRequested());
        }
        EXPECT_EQ(a.first.Text(), u"");
    };
    a.onClick = [this] {
        if (a.Focus() == &a.first) {
            host.turns.Arm(1);
            host.turns.Give();
        }
        a.Write("goes on");
    };
    TakeLog();
    input.Click(a.label);
    EXPECT_THAT(TakeLog(),
        ElementsAre("a.label click", "a.goes on", "a.first lost", "a.second got", "a.second lost",
            "a.button got", "a.button click", "a.goes on", "a.button lost", "a.first got",
            "a.first change"));
    a.first.Text = u"";
    closes = true;
    TakeLog();
    input.Click(a.label);
    EXPECT_THAT(TakeLog(), ElementsAre("a.label click", "a.goes on", "a.first lost", "a.unload"));
}

TEST_F(FormsTest, WhatCannotBeSeenOrUsedCannotBeActedOn)
{
    struct {
        char const* about;
        std::function<void()> arrange;
        char const* refusal;
    } const rows[] = {
        { "not loaded", [] {}, "a isn't loaded" },
        { "hidden form", [this] { Load(a); }, "a is hidden" },
        { "hidden", [this] { a.Show(), a.button.Visible = false; }, "a.button is hidden" },
        { "disabled", [this] { a.Show(), a.button.Enabled = false; }, "a.button is disabled" },
        { "disabled form", [this] { a.Show(), a.Enabled = false; }, "a is disabled" },
    };
    for (auto const& row : rows) {
        row.arrange();
        EXPECT_THAT(input.Click(a.button), HasSubstr(row.refusal)) << row.about;
        Unload(a);
    }
    a.Show();
    a.label.Enabled = false;
    a.entry.Enabled = false;
    TakeLog();
    EXPECT_EQ(input.Click(a.label), "");
    EXPECT_THAT(TakeLog(), ElementsAre("a.click"))
        << "a disabled label passes the click to its form";
    EXPECT_EQ(input.Click(a.entry), "a.entry is disabled");
    EXPECT_EQ(input.FindShortcut(a, u"Ctrl+E"), nullptr);
}

TEST_F(FormsTest, SizesFollowStateAndFormResizeCorrectsThem)
{
    a.onResize = [this] {
        if (a.Width < 2000)
            a.Width = 2000;
    };
    a.Show();
    EXPECT_EQ(a.resizes, 1);
    EXPECT_EQ(a.Width, 3120) << "the client area and the frame";
    EXPECT_EQ(a.Height, 2000 + 405 + 285) << "with a menu bar";
    EXPECT_EQ(a.ScaleWidth, 3000);
    input.Resize(a, 1500, 4000);
    EXPECT_EQ(a.Width, 2000);
    EXPECT_EQ(a.resizes, 2) << "the correction raises no resize of its own";
    input.ChangeState(a, FormState::Maximised);
    EXPECT_EQ(a.Width, 1280 * 15);
    EXPECT_THAT(input.Resize(a, 3000, 3000), HasSubstr("isn't in its normal state"));
    input.ChangeState(a, FormState::Minimised);
    EXPECT_EQ(a.Width, 1280 * 15) << "a minimised form keeps its size";
    input.ChangeState(a, FormState::Normal);
    EXPECT_EQ(a.Height, 4000);
    int const before = a.resizes;
    a.Height = 5000;
    a.Width = 5000;
    a.Width = 5000;
    EXPECT_EQ(a.resizes, before + 2) << "the program may change either";
}

TEST_F(FormsTest, AMinimisedFormThatIsShownReturnsToTheStateItHad)
{
    b.Show();
    for (auto const before : { FormState::Normal, FormState::Maximised })
        for (bool const isHidden : { false, true }) {
            a.Show();
            input.ChangeState(a, FormState::Normal);
            a.Left = 300;
            input.Resize(a, 4000, 3500);
            input.ChangeState(a, before);
            float const width = a.Width;
            input.ChangeState(a, FormState::Minimised);
            if (isHidden)
                a.Hide();
            input.Activate(b);
            a.Show();
            EXPECT_EQ(a.WindowState(), before);
            EXPECT_EQ(a.Width, width);
            EXPECT_EQ(a.Left, 300) << "it returns to where it was";
            EXPECT_EQ(screen.Active(), &a);
        }
    input.ChangeState(a, FormState::Minimised);
    b.Hide();
    host.serveModal = [&](Form& modal) {
        a.Show();
        EXPECT_EQ(a.WindowState(), FormState::Minimised) << "not from under a modal form";
        input.Close(modal);
    };
    b.ShowModal();
}

TEST_F(FormsTest, ClosingAllLeavesNothingOpen)
{
    a.Show();
    a.onUnload = [this] { b.Show(); };
    screen.CloseAll();
    EXPECT_TRUE(screen.Loaded().empty());
    EXPECT_TRUE(screen.Ended());
}
