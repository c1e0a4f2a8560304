#include "controls/input.h"

#include "controls/button.h"
#include "controls/key_codes.h"
#include "controls/label.h"
#include "controls/menu.h"
#include "controls/picture.h"
#include "controls/screen.h"

#include <algorithm>

Input::Input(Screen& screen)
    : m_screen(screen)
{
}

Refusal Input::Blocked(Form const& form) const
{
    std::string const name = form.Name();
    if (!form.IsLoaded())
        return name + " isn't loaded";
    if (!form.Visible)
        return name + " is hidden";
    if (!form.Enabled)
        return name + " is disabled";
    Form const* const modal = m_screen.Modal();
    if (modal && modal != &form)
        return name + " stands under the modal form " + modal->Name();
    return {};
}

Refusal Input::Blocked(Control const& control) const
{
    Form const& form = control.ParentForm();
    if (auto refusal = Blocked(form); !refusal.empty())
        return refusal;
    auto const whole = std::string(form.Name()) + "." + control.Name();
    for (Control const* each = &control; each; each = each->Container()) {
        bool const isHidden = !each->Visible;
        if (!isHidden && each->Enabled)
            continue;
        auto refusal = whole;
        if (each != &control)
            refusal.append(" can't be used: its container ").append(each->Name());
        return refusal.append(isHidden ? " is hidden" : " is disabled");
    }
    return {};
}

Refusal Input::Click(Form& form)
{
    return Act(form, [&form] { form.RaiseClick(); });
}

static bool PassesClickOn(Control const& control)
{
    return dynamic_cast<Label const*>(&control) || dynamic_cast<Image const*>(&control)
        || dynamic_cast<PictureBox const*>(&control);
}

/// Covers and rules are painted on the form's ground.
static bool IsGround(Control const& control)
{
    return dynamic_cast<Shape const*>(&control) || dynamic_cast<Line const*>(&control);
}

Refusal Input::Click(Control& control)
{
    bool const passesOn = IsGround(control) || (!control.Enabled && PassesClickOn(control));
    if (passesOn && control.IsShown())
        return Click(control.ParentForm());
    if (auto const* entry = dynamic_cast<MenuEntry const*>(&control); entry && entry->IsSeparator())
        return std::string(control.ParentForm().Name()) + "." + control.Name() + " is a separator";
    return Act(control, control.TakesFocusByClick(), [&control] {
        if (auto* const box = dynamic_cast<CheckBox*>(&control))
            box->Value = 1 - box->Value;
        else
            control.Raise(control.Click);
    });
}

Refusal Input::Focus(Control& control)
{
    if (auto refusal = Blocked(control); !refusal.empty())
        return refusal;
    if (!control.CanFocus())
        return std::string(control.ParentForm().Name()) + "." + control.Name()
            + " can't hold the focus";
    return Act(control, true, [] {});
}

Refusal Input::ClickNode(TreeView& tree, Node& node)
{
    return Act(tree, true, [&tree, &node] {
        for (Node* parent = node.Parent(); parent; parent = parent->Parent())
            if (!parent->Expanded())
                parent->SetExpanded(true);
        tree.Select(&node);
        if (tree.NodeClick)
            tree.Raise(Event([&] { tree.NodeClick(node); }));
    });
}

Refusal Input::Expand(TreeView& tree, Node& node, bool expanded)
{
    return Act(tree, true, [&node, expanded] { node.SetExpanded(expanded); });
}

Refusal Input::Edit(TextInput& box, Text text, int start, int length)
{
    if (auto refusal = Blocked(box); !refusal.empty())
        return refusal;
    if (box.Locked)
        return std::string(box.ParentForm().Name()) + "." + box.Name() + " is read-only";
    return Act(box, true, [&box, text = std::move(text), start, length] {
        if (box.Edited(text, start, length))
            box.Raise(box.Typed);
    });
}

Refusal Input::Select(TextInput& box, int start, int length)
{
    return Act(box, true, [&box, start, length] { box.Selected(start, length); });
}

Refusal Input::Choose(ComboBox& list, int index)
{
    if (index < 0 || index >= static_cast<int>(list.List().size()))
        return std::string(list.Name()) + " has no entry " + std::to_string(index);
    return Act(list, true, [&list, index] { list.ListIndex = index; });
}

Refusal Input::DragThumb(ScrollBar& bar, int value, bool released)
{
    return Act(bar, true, [this, &bar, value, released] {
        if (m_dragged != &bar)
            m_valueBeforeDrag = bar.Value;
        m_dragged = &bar;
        bar.m_dragging = true;
        bar.Value = static_cast<std::int16_t>(std::clamp(value, INT16_MIN, INT16_MAX));
        bar.m_dragging = false;
        if (!released)
            return;
        m_dragged = nullptr;
        if (bar.Value != m_valueBeforeDrag)
            bar.Raise(bar.Change);
    });
}

Refusal Input::Step(ScrollBar& bar, BarStep step)
{
    return Act(bar, true, [&bar, step] {
        bool const isPage = step == BarStep::PageLess || step == BarStep::PageMore;
        bool const isBack = step == BarStep::Less || step == BarStep::PageLess;
        int const change = isPage ? bar.LargeChange : bar.SmallChange;
        int const value = bar.Value + (isBack == (bar.Max < bar.Min) ? change : -change);
        bar.Value = static_cast<std::int16_t>(std::clamp(value, INT16_MIN, INT16_MAX));
    });
}

Refusal Input::KeyDown(Control& control, int keyCode, int shift)
{
    return Act(control, false,
        [&control, keyCode, shift] { control.Raise(control.KeyDown, keyCode, shift); });
}

Refusal Input::KeyPress(Control& control, char16_t character)
{
    if (&control == &control.ParentForm())
        return Act(control.ParentForm(),
            [&control, character] { control.ParentForm().RaiseKeyPress(character); });
    return Act(
        control, false, [&control, character] { control.Raise(control.KeyPress, character); });
}

Refusal Input::KeyUp(Control& control, int keyCode, int shift)
{
    return Act(control, false,
        [&control, keyCode, shift] { control.Raise(control.KeyUp, keyCode, shift); });
}

bool Input::PressDefault(Form& form, int keyCode)
{
    for (Control* control : form.Controls()) {
        auto* const button = dynamic_cast<CommandButton*>(control);
        bool const meant = button
            && ((keyCode == keyEnter && button->Default)
                || (keyCode == keyEscape && button->Cancel));
        if (!meant || !Blocked(*button).empty())
            continue;
        Act(*button, false, [button] { button->Raise(button->Click); });
        return true;
    }
    return false;
}

MenuEntry* Input::FindShortcut(Form& form, TextView shortcut) const
{
    for (Menu* menu : form.Menus())
        for (MenuEntry* entry : menu->Entries())
            if (entry->Shortcut() == shortcut && Blocked(*entry).empty())
                return entry;
    return nullptr;
}

bool Input::PressShortcut(Form& form, int keyCode, int shift)
{
    auto const* const shortcut = form.FindShortcut(keyCode, shift);
    return shortcut && Act(form, [this, &form, shortcut] {
        m_screen.RunHandler(form, shortcut->pressed);
    }).empty();
}

Refusal Input::Activate(Form& form)
{
    return Act(form, [] {});
}

Refusal Input::Resize(Form& form, float width, float height)
{
    if (form.IsLoaded() && form.WindowState() != FormState::Normal)
        return std::string(form.Name()) + " isn't in its normal state";
    if (form.border != BorderStyle::Sizable)
        return std::string(form.Name()) + " has a fixed size";
    return Act(form, [&form, width, height] {
        form.Resized(std::max(width, 0.0F), std::max(height, 0.0F), FormState::Normal);
    });
}

Refusal Input::ChangeState(Form& form, FormState state)
{
    bool const hasNoButton = (state == FormState::Maximised && !form.maximiseButton)
        || (state == FormState::Minimised && !form.minimiseButton);
    if (hasNoButton)
        return std::string(form.Name()) + " has no button for this state";
    return Act(form, [&form, state] { form.ChangeState(state); });
}

Refusal Input::Close(Form& form)
{
    if (form.queuesActions && form.IsBusy() && Blocked(form).empty())
        form.RequestClose();
    return Act(form, [&form] { Unload(form); });
}
