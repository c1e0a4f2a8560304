#pragma once
// Text boxes, and what all controls with a text that the user can edit have in common.

#include "controls/control.h"

/// A control with a text, a caret and a selection. Offsets and lengths count 16-bit characters; a
/// line end is CR LF and counts two.
class TextInput : public TextControl {
public:
    TextInput(Form& form, Control& container, char const* name, Bounds bounds);

    bool CanFocus() const override { return true; }

    virtual bool IsMultiLine() const = 0;
    /// Lone CR or LF in the text become line ends. The caret goes after it; raises Change.
    virtual void ReplaceSelection(TextView text) = 0;
    /// Called by the host: the text, caret and selection after a user action. True if the text has
    /// changed.
    virtual bool Edited(::Text text, int start, int length) = 0;
    /// Called by the host alone: where the user has put the caret; raises no event.
    void Selected(int start, int length);

    /// Lone CR or LF become line ends. Setting it puts the caret at the start and raises Change.
    Property<::Text> Text;
    Property<bool> Locked; ///< can be read, selected and copied, not changed
    Property<bool> Border;
    /// Start of the selection, or the caret. Setting it empties the selection. Held within the
    /// text, and never between the two characters of a line end.
    Property<int> SelStart;
    Property<int> SelLength;

    Event Change;
    Event Typed; ///< after Change, if the user has changed the text, not the program

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
    virtual void CaretPlaced() { }
};

/// A text box with plain text.
class TextBox final : public TextInput {
public:
    TextBox(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "TextBox"; }
    bool IsMultiLine() const override { return MultiLine; }
    void ReplaceSelection(TextView text) override;
    bool Edited(::Text text, int start, int length) override;

    Property<bool> MultiLine;
    Property<bool> ScrollBar; ///< a vertical scroll bar

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
};
