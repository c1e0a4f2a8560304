#include "controls/xp_container.h"
#include "support/program_fixture.h"

#include <gtest/gtest.h>

namespace {

/// A place in twips that a layout has to give.
struct Place {
    char const* control;
    char const* property;
    float value;
};

class LayoutTest : public StudyTest {
protected:
    void Expect(std::string const& form, std::vector<Place> const& places)
    {
        for (auto const& [control, property, value] : places) {
            auto const path = form + '.' + control;
            EXPECT_NEAR(std::get<float>(Get(path).FindProperty(property)->Get()), value, 0.01F)
                << path << '.' << property;
        }
    }
    void Restore(std::string const& form, float width, float height)
    {
        EXPECT_EQ(input.ChangeState(FormOf(form), FormState::Normal), "");
        EXPECT_EQ(input.Resize(FormOf(form), width, height), "");
    }
};

TEST_F(LayoutTest, TheLessonScreenFillsItsSmallestSize)
{
    Open(u"james-1.dat:1");
    Restore("frmMain", 11000, 8000);
    Expect("frmMain",
        { { "XPContainer3", "Left", 240 }, { "XPContainer3", "Top", 480 },
            { "XPContainer3", "Width", 5140 }, { "XPContainer3", "Height", 2104.2F },
            { "Text4", "Top", 350 }, { "Text4", "Left", 20 }, { "Text4", "Width", 5100 },
            { "Text4", "Height", 1734.2F }, { "XPContainer2", "Left", 240 },
            { "XPContainer2", "Top", 2824.2F }, { "XPContainer2", "Width", 5140 },
            { "XPContainer2", "Height", 3895.8F }, { "Image2", "Left", 20 },
            { "Image2", "Top", 350 }, { "Image2", "Width", 5100 }, { "Image2", "Height", 3525.8F },
            { "XPContainer4", "Left", 5620 }, { "XPContainer4", "Top", 480 },
            { "XPContainer4", "Width", 2450 }, { "XPContainer4", "Height", 1673.6F },
            { "TreeView1", "Top", 350 }, { "TreeView1", "Left", 70 },
            { "TreeView1", "Width", 2360 }, { "TreeView1", "Height", 1303.6F },
            { "XPContainer5", "Left", 8190 }, { "XPContainer5", "Width", 2450 },
            { "XPContainer5", "Height", 1673.6F }, { "TreeView2", "Top", 350 },
            { "TreeView2", "Left", 70 }, { "TreeView2", "Width", 2360 },
            { "TreeView2", "Height", 1303.6F }, { "XPContainer1", "Left", 5620 },
            { "XPContainer1", "Top", 2393.6F }, { "XPContainer1", "Width", 5020 },
            { "XPContainer1", "Height", 4336.4F }, { "Text1", "Top", 350 }, { "Text1", "Left", 20 },
            { "Text1", "Width", 4980 }, { "Text1", "Height", 3966.4F }, { "Command2", "Left", 20 },
            { "Command2", "Top", 3280.8F }, { "Command1", "Left", 4425 },
            { "Command1", "Top", 3280.8F }, { "Command1", "Height", 255 },
            { "ctlScrollbar", "Left", 429 }, { "ctlScrollbar", "Top", 3280.8F },
            { "ctlScrollbar", "Width", 4242 }, { "ctlScrollbar", "Height", 255 },
            { "Text2", "Left", 480 }, { "Text2", "Top", 110 }, { "Text2", "Width", 4300 },
            { "Text2", "Height", 1297.9F }, { "lblPageTitle", "Left", 15 },
            { "lblPageTitle", "Top", 110 }, { "Image1", "Left", 3895 },
            { "Image1", "Top", 2865.8F }, { "Text3", "Left", 480 }, { "Text3", "Top", 1512.9F },
            { "Text3", "Width", 4300 }, { "Text3", "Height", 1352.9F },
            { "lblStudy", "Width", 10300 }, { "Frame1", "Left", 3385 }, { "Frame1", "Top", 3475 },
            { "ProgressBar1", "Left", 6675 }, { "ProgressBar1", "Top", 6987.5F } });
}

TEST_F(LayoutTest, TheLessonScreenKeepsItsLimits)
{
    Open(u"james-1.dat:1");
    struct Row {
        float width, height, thenWidth, thenHeight;
    };
    EXPECT_EQ(input.ChangeState(FormOf("frmMain"), FormState::Normal), "");
    for (auto const& row : { Row { 9000, 7000, 11000, 8000 }, Row { 30000, 30000, 30000, 15360 },
             Row { 11001, 100, 11001, 8000 } }) {
        EXPECT_EQ(input.Resize(FormOf("frmMain"), row.width, row.height), "");
        EXPECT_EQ(FormOf("frmMain").Width(), row.thenWidth);
        EXPECT_EQ(FormOf("frmMain").Height(), row.thenHeight);
        Expect("frmMain", { { "lblStudy", "Width", row.thenWidth - 700 } });
        auto const height = std::min(3200.0F, Get("frmMain.XPContainer2").Height() / 2 - 650);
        Expect("frmMain", { { "Text2", "Height", height }, { "Text3", "Top", height + 215 } });
    }
}

TEST_F(LayoutTest, AResizeKeepsPageAnswerAndWhatIsHidden)
{
    Open(u"james-1.dat:1");
    Write("frmMain.Text3", u"typed");
    EXPECT_EQ(input.ChangeState(FormOf("frmMain"), FormState::Normal), "");
    for (bool const isShown : { false, true }) {
        for (auto const* const path : { "frmMain.Image1", "frmMain.Text3" })
            Get(path).Visible = isShown;
        Get("frmMain.Text4").Visible = false;
        EXPECT_EQ(input.Resize(FormOf("frmMain"), isShown ? 12000 : 13000, 9000), "");
        EXPECT_EQ(Get("frmMain.Image1").Visible(), isShown);
        EXPECT_EQ(Get("frmMain.Text3").Visible(), isShown);
        EXPECT_TRUE(Get("frmMain.Text4").Visible()); // these always come up again
        EXPECT_EQ(Get("frmMain.Text3").Tag(), isShown ? u"True" : u"False");
    }
    EXPECT_EQ(TextOf("frmMain.Text3"), u"typed");
    auto const width = Get("frmMain.XPContainer3").Width();
    EXPECT_EQ(input.ChangeState(FormOf("frmMain"), FormState::Minimised), "");
    EXPECT_EQ(Get("frmMain.XPContainer3").Width(), width);
}

TEST_F(LayoutTest, TheCatalogueFillsItsSmallestSize)
{
    Start();
    Restore("frmContents", 8000, 6700);
    std::vector<Place> const places { { "Image2", "Left", 2555 }, { "XPContainer1", "Left", 840 },
        { "XPContainer1", "Top", 1980 }, { "XPContainer1", "Width", 6320 },
        { "XPContainer1", "Height", 3320 }, { "TreeView1", "Left", 30 },
        { "TreeView1", "Top", 370 }, { "TreeView1", "Width", 3106 },
        { "TreeView1", "Height", 2930 }, { "lblBack", "Left", 3107 }, { "lblBack", "Top", 370 },
        { "lblBack", "Width", 3209 }, { "lblBack", "Height", 2900 }, { "Picture1", "Left", 3276 },
        { "Picture1", "Top", 510 }, { "lblStudy", "Left", 3851 }, { "lblStudy", "Top", 510 },
        { "lblStudy", "Width", 2429 }, { "txtDesc", "Left", 3276 }, { "txtDesc", "Width", 2984 } };
    Expect("frmContents", places);
    Expect("frmContents", { { "txtDesc", "Top", 370 }, { "txtDesc", "Height", 2900 } });
    for (int click = 0; click < 2; ++click) {
        Node("frmContents.TreeView1", u"james-1.dat");
        Expect("frmContents", places);
        Expect("frmContents", { { "txtDesc", "Top", 1250 }, { "txtDesc", "Height", 2020 } });
    }
}

TEST_F(LayoutTest, TheCatalogueKeepsItsLimits)
{
    Start();
    EXPECT_EQ(input.ChangeState(FormOf("frmContents"), FormState::Normal), "");
    EXPECT_EQ(input.Resize(FormOf("frmContents"), 7000, 20000), "");
    EXPECT_EQ(FormOf("frmContents").Width(), 8000);
    EXPECT_EQ(FormOf("frmContents").Height(), 15360);
    EXPECT_EQ(input.Resize(FormOf("frmContents"), 30000, 6000), "");
    EXPECT_EQ(FormOf("frmContents").Width(), 30000);
    EXPECT_EQ(FormOf("frmContents").Height(), 6700);
}

TEST_F(LayoutTest, ThePanelsHaveTheirColours)
{
    constexpr Colour white = Rgb(255, 255, 255), blue = Rgb(0, 0, 192),
                     usualBorder = Rgb(0xAD, 0xC1, 0xDC);
    struct {
        char const* form;
        char const* panel;
        Colour border;
    } const rows[] = {
        { "frmMain", "XPContainer1", blue },
        { "frmMain", "XPContainer2", blue },
        { "frmMain", "XPContainer3", blue },
        { "frmMain", "XPContainer4", Rgb(0, 0, 255) },
        { "frmMain", "XPContainer5", blue },
        { "frmContents", "XPContainer1", blue },
        { "frmBible", "XPContainer1", usualBorder },
        { "frmBible", "XPContainer2", usualBorder },
        { "frmBible", "XPContainer3", usualBorder },
        { "frmBible", "XPContainer4", usualBorder },
    };
    for (auto const& row : rows) {
        auto const path = std::string(row.form) + '.' + row.panel;
        auto const& panel = Get<XPContainer>(path);
        EXPECT_EQ(panel.HeaderLightColor(), white) << path;
        EXPECT_EQ(panel.BorderColor(), row.border) << path;
        EXPECT_EQ(panel.BackLightColor(),
            row.form == std::string("frmContents") ? white : Rgb(0xEF, 0xF4, 0xFC))
            << path;
    }
}
} // namespace
