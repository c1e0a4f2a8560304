#pragma once
// The dialog that greets the user on the way into the first lesson of a run, and his choice not to
// see it there again.

#include "controls/button.h"
#include "controls/form.h"
#include "controls/label.h"
#include "platform/settings_store.h"

class frmWelcome final : public Form {
public:
    frmWelcome(Screen& screen, SettingsStore& settings); // both outlive the form

private:
    void Form_Load() override;
    void Label2_Click() { Check1.Value = 1 - Check1.Value; }
    void Command1_Click();

    SettingsStore& m_settings;

    Label Label1 { *this, *this, "Label1", { 615, 375, 6240, 840 },
        u"Welcome to the Sparrowfield Interactive Bible Study program.  Click on the Help menu "
        u"and then \"Getting Started\" to learn how to use this software program." };
    // ticked: not to be shown again
    CheckBox Check1 { *this, *this, "Check1", { 195, 1440, 240, 225 } };
    Label Label2 { *this, *this, "Label2", { 450, 1455, 2010, 285 }, u"Don't show me this again" };
    CommandButton Command1 { *this, *this, "Command1", { 6465, 1395, 735, 300 }, u"OK" };
};
