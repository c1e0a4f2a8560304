#include "dialogs/frmWelcome.h"

#include "platform/settings.h"

frmWelcome::frmWelcome(Screen& screen, SettingsStore& settings)
    : Form(screen, "frmWelcome", u"Welcome", 7545, 1860)
    , m_settings(settings)
{
    minimiseButton = false;
    maximiseButton = false;
    centred = true;
    Picture = u":dialog";
    Label1.WordWrap = true;
    Label1.FontSize = 9.75F;
    Check1.ToolTipText = Label2.Caption();
    Check1.accessibleName = Label2.Caption();
    Command1.TabIndex = 0;
    Command1.Default = true;
    Label2.Click = [this] { Label2_Click(); };
    Command1.Click = [this] { Command1_Click(); };
}

void frmWelcome::Form_Load()
{
    Check1.Value = ReadSetting(m_settings, u"Parameters", u"showhelp", u"") == u"false" ? 1 : 0;
}

void frmWelcome::Command1_Click()
{
    WriteSetting(m_settings, u"Parameters", u"showhelp", Check1.Value == 1 ? u"false" : u"true");
    Unload(*this);
}
