#include "support/program_fixture.h"

#include <sstream>

/// What a form is designed with: its border, the buttons of its frame ("-" minimises, "+"
/// maximises), "t" in the task bar, "c" centred, "m" opens maximised; its background; the default
/// button and the one that Escape presses; the controls whose letters are bold ("*") or not of 8.25
/// points.
static std::string DesignOf(Form const& form)
{
    std::string design = std::to_string(static_cast<int>(form.border)) + ' ';
    design += form.minimiseButton ? "-" : "";
    design += form.maximiseButton ? "+" : "";
    design += form.inTaskbar ? "t" : "";
    design += form.centred ? "c" : "";
    design += form.opensAs == FormState::Maximised ? "m" : "";
    std::ostringstream ground;
    ground << std::hex << ' ' << form.BackColor();
    design += ground.str();
    std::string enter, escape, bold;
    for (Control const* control : form.Controls()) {
        auto const* const button = dynamic_cast<CommandButton const*>(control);
        if (button && button->Default)
            enter += control->Name();
        if (button && button->Cancel)
            escape += control->Name();
        auto const* const text = dynamic_cast<TextControl const*>(control);
        if (text && (text->FontBold || text->FontSize != 8.25F)) {
            std::ostringstream size;
            size << ' ' << control->Name() << (text->FontBold ? " *" : " ") << text->FontSize();
            bold += size.str();
        }
    }
    return design + " | " + enter + " | " + escape + " |" + bold;
}

TEST(Design, OfEveryForm)
{
    ProgramFixture bench;
    struct {
        char const *form, *design;
    } const rows[] = {
        { "frmSplash", "0 c 0 |  |  |" },
        { "frmVideo", "2 -+tc f0f0f0 |  |  |" },
        { "frmWelcome", "2 tc f0f0f0 | Command1 |  | Label1 9.75" },
        { "frmGettingStarted", "3 tc f0f0f0 | Command1 | Command1 |" },
        { "frmFinalExam", "3 c f0f0f0 | Command1 | Command1 |" },
        { "frmAbout", "3 c f0f0f0 | cmdOK | cmdOK | lblTitle *9.75 lblVersion *9.75 Label2 *9.75" },
        { "frmContents", "2 -+tcm 0 |  |  | TreeView1 11.25 lblStudy 14.25 txtDesc 14.25" },
        { "frmMain", "2 -+tcm 0 |  |  | lblStudy *12 lblPageTitle *8.25" },
        { "frmAnswer", "3  ffffff | OKButton | OKButton | Label1 9.75" },
        { "frmBible", "2 -+tcm 0 |  |  | txtNotes 9.75" },
        { "frmMap", "2 -+tm e0e0e0 |  |  |" },
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
