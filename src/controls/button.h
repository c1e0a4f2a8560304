#pragma once
// Buttons and check boxes.

#include "controls/control.h"

class CommandButton final : public TextControl {
public:
    CommandButton(
        Form& form, Control& container, char const* name, Bounds bounds, TextView caption);

    char const* Kind() const override { return "CommandButton"; }
    bool CanFocus() const override { return true; }

    Property<::Text> Caption;
    /// Enter anywhere in the form clicks the default button, Escape the cancel button.
    Property<bool> Default, Cancel;
};

class CheckBox final : public TextControl {
public:
    CheckBox(
        Form& form, Control& container, char const* name, Bounds bounds, TextView caption = {});

    char const* Kind() const override { return "CheckBox"; }
    bool CanFocus() const override { return true; }

    Property<::Text> Caption;
    Property<int> Value; ///< 0 clear, 1 ticked; a change raises Click

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
};
