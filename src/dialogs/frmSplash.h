#pragma once
// The start-up screen: one picture with all choices, a click area over each, and a black cover over
// each that doesn't apply. Except for Install to Disk and Exit, leaving it leads to the catalogue.

#include "controls/form.h"
#include "controls/label.h"
#include "platform/file_system.h"
#include "platform/shell.h"

class frmSplash final : public Form {
public:
    // all outlive the form
    frmSplash(Screen& screen, FileSystem const& files, Shell& shell, Form& video);

    /// The screen that this one leads to: set once, before the first showing.
    void SetCatalogue(Form& catalogue) { frmContents = &catalogue; }

private:
    void Form_Load() override;
    void Form_Click() override { Unload(*this); }
    void Form_KeyPress(char16_t) override { Unload(*this); }
    void Form_Unload() override { frmContents->Show(); }
    void lblInstallToDisk_Click();
    void lblWelcomeVideo_Click() { frmVideo.ShowModal(); }
    void lblRunFromCD_Click() { Unload(*this); }
    void lblEnter_Click() { Unload(*this); }
    void lblExit_Click();
    bool InstalledCopyExists() const;

    FileSystem const& m_files;
    Shell& m_shell;
    Form& frmVideo;
    Form* frmContents = nullptr;

    // These hide Install to Disk, Enter, Run from CD and Welcome Video.
    Shape Shape1 { *this, *this, "Shape1", { 240, 8160, 3135, 345 }, Rgb(0, 0, 0) };
    Shape Shape2 { *this, *this, "Shape2", { 9120, 8160, 1680, 345 }, Rgb(0, 0, 0) };
    Shape Shape3 { *this, *this, "Shape3", { 6000, 8160, 3135, 345 }, Rgb(0, 0, 0) };
    Shape Shape4 { *this, *this, "Shape4", { 3360, 8160, 2415, 375 }, Rgb(0, 0, 0) };
    Label lblInstallToDisk { *this, *this, "lblInstallToDisk", { 240, 8100, 2295, 390 } };
    Label lblWelcomeVideo { *this, *this, "lblWelcomeVideo", { 3360, 8160, 2415, 255 } };
    Label lblRunFromCD { *this, *this, "lblRunFromCD", { 6480, 8130, 2175, 345 } };
    Label lblEnter { *this, *this, "lblEnter", { 9360, 8115, 1050, 345 } };
    Label lblExit { *this, *this, "lblExit", { 10920, 8130, 900, 345 } };
};
