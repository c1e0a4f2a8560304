#include "controls/control.h"

#include "controls/form.h"
#include "controls/screen.h"

PropertyBase::PropertyBase(Control& owner, char const* name)
    : m_owner(owner)
    , m_name(name)
{
    owner.m_properties.push_back(this);
}

void PropertyBase::NotifyAssigned(bool changed)
{
    Form& form = m_owner.ParentForm();
    if (form.IsLoaded())
        form.GetScreen().GetHost().Assigned(m_owner, *this);
    m_owner.Assigned(*this, changed);
}

Control::Control(Form& form, Control& container, char const* name, Bounds bounds)
    : Control(name, bounds)
{
    m_form = &form;
    m_container = &container;
    form.m_controls.push_back(this);
    TabIndex.AssignSilently(static_cast<int>(form.m_controls.size()));
}

Control::Control(char const* name, Bounds bounds)
    : m_form(nullptr)
    , m_container(nullptr)
    , m_name(name)
    , Left(*this, "Left", bounds.left)
    , Top(*this, "Top", bounds.top)
    , Width(*this, "Width", bounds.width, NotBelowZero)
    , Height(*this, "Height", bounds.height, NotBelowZero)
    , Visible(*this, "Visible", true)
    , Enabled(*this, "Enabled", true)
    , Tag(*this, "Tag")
    , ToolTipText(*this, "ToolTipText")
    , TabIndex(*this, "TabIndex", 0)
{
}

PropertyBase* Control::FindProperty(std::string_view name) const
{
    for (PropertyBase* property : m_properties)
        if (property->Name() == name)
            return property;
    return nullptr;
}

void Control::SetFocus()
{
    m_form->GetScreen().SetFocus(*this);
}

float Control::LetterScale() const
{
    Screen const& screen = ParentForm().GetScreen();
    return isReadingPane
        ? static_cast<float>(screen.TextSize()) / 100 * screen.GetHost().MissingScale()
        : 1;
}

bool Control::IsShown() const
{
    for (Control const* control = this; control->m_container; control = control->m_container)
        if (!control->Visible)
            return false;
    return true;
}

bool Control::IsUsable() const
{
    for (Control const* control = this; control; control = control->m_container)
        if (!control->Enabled)
            return false;
    return true;
}

void Control::Reset()
{
    for (PropertyBase* property : m_properties)
        property->RestoreDesign();
}

void Control::SaveDesign()
{
    for (PropertyBase* property : m_properties)
        property->SaveDesign();
}

float Control::TwipsPerUnit() const
{
    return m_form->TwipsPerUnit();
}

void Control::Assigned(PropertyBase const&, bool) { }

void Control::ContentChanged()
{
    if (m_form->IsLoaded())
        m_form->GetScreen().GetHost().ContentChanged(*this);
}

void Control::RunHandler(std::function<void()> const& work)
{
    if (m_form->IsLoaded())
        m_form->GetScreen().RunHandler(*m_form, work);
}

TextControl::TextControl(Form& form, Control& container, char const* name, Bounds bounds)
    : Control(form, container, name, bounds)
    , FontName(*this, "FontName", u"MS Sans Serif")
    , FontSize(*this, "FontSize", 8.25F)
    , FontBold(*this, "FontBold", false)
    , ForeColor(*this, "ForeColor", Rgb(0, 0, 0))
    , BackColor(*this, "BackColor", Rgb(255, 255, 255))
{
}
