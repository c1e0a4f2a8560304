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
    struct Choice {
        Label& label;
        TextView name;
        void (frmSplash::*handler)();
    };
    for (auto const& choice :
        { Choice { lblInstallToDisk, u"Install to Disk", &frmSplash::lblInstallToDisk_Click },
            Choice { lblWelcomeVideo, u"Welcome Video", &frmSplash::lblWelcomeVideo_Click },
            Choice { lblRunFromCD, u"Run from CD", &frmSplash::lblRunFromCD_Click },
            Choice { lblEnter, u"Enter", &frmSplash::lblEnter_Click },
            Choice { lblExit, u"Exit", &frmSplash::lblExit_Click } }) {
        choice.label.MousePointer = pointerHand;
        choice.label.accessibleName = Text(choice.name);
        choice.label.Click = [this, handler = choice.handler] { (this->*handler)(); };
    }
}

void frmSplash::Form_Load()
{
    auto const programFolder = m_files.ApplicationFolder();
    auto const options
        = ChooseStartOptions(m_files.FileExists(programFolder + u"\\sparrowfield.wmv"),
            programFolder, InstalledCopyExists());
    Shape1.Visible = options.coverInstall;
    Shape2.Visible = options.coverEnter;
    Shape3.Visible = options.coverRunFromCD;
    Shape4.Visible = options.coverVideo;
    lblInstallToDisk.Enabled = options.install;
    lblWelcomeVideo.Enabled = options.video;
    lblRunFromCD.Enabled = options.runFromCD;
    lblEnter.Enabled = options.enter;
}

bool frmSplash::InstalledCopyExists() const
{
    return m_files.FileExists(u"C:\\Program Files\\Sparrowfield House\\Sparrowfield Interactive "
                              u"Software\\sparrowfield.exe");
}

void frmSplash::Form_Click()
{
    Unload(*this);
}

void frmSplash::Form_KeyPress(char16_t)
{
    Unload(*this);
}

void frmSplash::Form_Unload()
{
    frmContents->Show();
}

void frmSplash::lblEnter_Click()
{
    Unload(*this);
}

void frmSplash::lblRunFromCD_Click()
{
    Unload(*this);
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

void frmSplash::lblWelcomeVideo_Click()
{
    frmVideo.ShowModal();
}
