#pragma once
// Text boxes, and what every control has that a person types into.

#include "controls/control.h"

/// A control with a text, a caret and a selection. Offsets and lengths count 16-bit characters; a
/// line end is CR LF and counts two.
class TextInput : public TextControl {
public:
    TextInput(Form& form, Control& container, char const* name, Bounds bounds);

    bool CanFocus() const override { return true; }

    virtual ::Text const& CurrentText() const = 0;
    virtual bool IsReadOnly() const = 0;
    virtual bool IsMultiLine() const = 0;
    /// Replaces the selection by a text, whose lone CR or LF become line ends, puts the caret
    /// behind it and raises Change.
    virtual void ReplaceSelection(TextView text) = 0;
    /// The host's own: what the user has made of the text, with the caret and the selection. True
    /// if the text is another.
    virtual bool Edited(::Text text, int start, int length) = 0;
    /// The host's own: where the user has put the caret; no event.
    void Selected(int start, int length);

    /// Start of the selection, or the caret. Setting it empties the selection. Held within the
    /// text, and never between the two characters of a line end.
    Property<int> SelStart;
    Property<int> SelLength;

    Event Change;
    Event Typed; ///< behind Change, where the user has changed the text, and not the program

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
    virtual void CaretPlaced() { }
};

/// A text box with plain text.
class TextBox final : public TextInput {
public:
    TextBox(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "TextBox"; }
    ::Text const& CurrentText() const override { return Text(); }
    bool IsReadOnly() const override { return Locked; }
    bool IsMultiLine() const override { return MultiLine; }
    void ReplaceSelection(TextView text) override;
    bool Edited(::Text text, int start, int length) override;

    /// Setting it puts the caret at the start and raises Change.
    Property<::Text> Text;
    Property<bool> MultiLine;
    Property<bool> Locked; ///< can be read, selected and copied, not changed
    Property<bool> ScrollBar; ///< a vertical scroll bar
    Property<bool> Border;

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
};
