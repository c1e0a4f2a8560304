#include "dialogs/frmSplash.h"

#include "controls/screen.h"
#include "dialogs/start_options.h"

frmSplash::frmSplash(Screen& screen, FileSystem const& files, Shell& shell, Form& video)
    : Form(screen, "frmSplash", u"Sparrowfield Interactive Bible Study", 11910, 8925)
    , m_files(files)
    , m_shell(shell)
    , frmVideo(video)
{
    border = BorderStyle::None;
    minimiseButton = false;
    maximiseButton = false;
    inTaskbar = false;
    centred = true;
    BackColor = Rgb(0, 0, 0);
    Picture = u":splash";
    for (Shape* cover : { &Shape1, &Shape2, &Shape3 })
        cover->Visible = false;
    auto const addChoice = [](Label& label, TextView name, Event clicked) {
        label.MousePointer = pointerHand;
        label.accessibleName = name;
        label.Click = std::move(clicked);
    };
    addChoice(lblInstallToDisk, u"Install to Disk", [this] { lblInstallToDisk_Click(); });
    addChoice(lblWelcomeVideo, u"Welcome Video", [this] { lblWelcomeVideo_Click(); });
    addChoice(lblRunFromCD, u"Run from CD", [this] { lblRunFromCD_Click(); });
    addChoice(lblEnter, u"Enter", [this] { lblEnter_Click(); });
    addChoice(lblExit, u"Exit", [this] { lblExit_Click(); });
}

void frmSplash::Form_Load()
{
    auto const programFolder = m_files.ApplicationFolder();
    auto const options
        = ChooseStartOptions(m_files.FileExists(programFolder + u"\\sparrowfield.wmv"),
            programFolder, InstalledCopyExists());
    Shape1.Visible = !options.install;
    Shape2.Visible = !options.enter;
    Shape3.Visible = !options.runFromCD;
    Shape4.Visible = !options.video;
    lblInstallToDisk.Enabled = options.install;
    lblWelcomeVideo.Enabled = options.video;
    lblRunFromCD.Enabled = options.runFromCD;
    lblEnter.Enabled = options.enter;
}

bool frmSplash::InstalledCopyExists() const
{
    return m_files.FileExists(
        u"C:\\Program Files\\Sparrowfield House\\Sparrowfield Interactive Software\\"
        u"sparrowfield.exe");
}

void frmSplash::lblInstallToDisk_Click()
{
    m_shell.Execute(u"open", u"Setup.exe"); // Where it fails, the program ends all the same.
    GetScreen().End();
}

void frmSplash::lblExit_Click()
{
    GetScreen().End();
}
