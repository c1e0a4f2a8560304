#include "support/program_fixture.h"

/// What a form is designed with: its border, the buttons of its frame ("-" minimises, "+"
/// maximises), "t" in the task bar, "c" centred, "m" opens maximised; the default button and the
/// one that Escape presses; the controls with bold letters.
static std::string DesignOf(Form const& form)
{
    std::string design = std::to_string(static_cast<int>(form.border)) + ' ';
    design += form.minimiseButton ? "-" : "";
    design += form.maximiseButton ? "+" : "";
    design += form.inTaskbar ? "t" : "";
    design += form.centred ? "c" : "";
    design += form.opensAs == FormState::Maximised ? "m" : "";
    std::string enter, escape, bold;
    for (Control const* control : form.Controls()) {
        auto const* const button = dynamic_cast<CommandButton const*>(control);
        if (button && button->Default)
            enter += control->Name();
        if (button && button->Cancel)
            escape += control->Name();
        auto const* const text = dynamic_cast<TextControl const*>(control);
        if (text && text->FontBold)
            bold += std::string(" ") + control->Name();
    }
    return design + " | " + enter + " | " + escape + " |" + bold;
}

TEST(Design, OfEveryForm)
{
    ProgramFixture bench;
    struct {
        char const *form, *design;
    } const rows[] = {
        { "frmSplash", "0 c |  |  |" },
        { "frmVideo", "2 -+tc |  |  |" },
        { "frmWelcome", "2 tc | Command1 |  |" },
        { "frmGettingStarted", "3 tc | Command1 | Command1 |" },
        { "frmFinalExam", "3 c | Command1 | Command1 |" },
        { "frmAbout", "3 c | cmdOK | cmdOK | lblTitle lblVersion Label2" },
        { "frmContents", "2 -+tcm |  |  |" },
        { "frmMain", "2 -+tcm |  |  | lblStudy lblPageTitle" },
        { "frmAnswer", "3  | OKButton | OKButton |" },
        { "frmBible", "2 -+tcm |  |  |" },
        { "frmMap", "2 -+tm |  |  |" },
    };
    for (auto const& row : rows) {
        Form& form = bench.FormOf(row.form);
        EXPECT_EQ(DesignOf(form), row.design) << row.form;
        bool const isSizable = form.border == BorderStyle::Sizable && form.smallest.width > 0;
        Size const needed = isSizable ? form.smallest : Size { form.Width, form.Height };
        EXPECT_LE(needed.width, roomForAllWindows.width) << row.form;
        EXPECT_LE(needed.height, roomForAllWindows.height) << row.form;
    }
}
