#pragma once
// A control of a form: its place, its state and its events, but not how it is drawn. Lengths are
// twips (1440 to the inch) relative to the container; in a form or picture box with a pixel scale
// they are pixels. Colours are 32-bit values with red in the low byte.

#include "base/text.h"
#include "controls/property.h"

#include <functional>
#include <span>
#include <string_view>
#include <vector>

class Form;

struct Bounds {
    float left = 0, top = 0, width = 0, height = 0;
};

struct Size {
    float width = 0, height = 0;
};

using Colour = std::uint32_t;

/// The colour value of red, green and blue, each 0 to 255.
constexpr Colour Rgb(unsigned red, unsigned green, unsigned blue)
{
    return red | (green << 8) | (blue << 16);
}

/// The modifier keys that are held down, added up.
enum Shift : int { shiftHeld = 1, controlHeld = 2, altHeld = 4 };

using Event = std::function<void()>;
using KeyEvent = std::function<void(int keyCode, int shift)>;
using MouseEvent = std::function<void(float x, float y)>;

class Control {
    friend class PropertyBase;
    friend class Screen;
    friend class Form;
    friend class Input;

    // Before the properties, which enter themselves in the list.
    Form* m_form;
    Control* m_container;
    char const* m_name;
    std::vector<PropertyBase*> m_properties;

public:
    /// `container` is a form, a panel or a picture box, in which the control is above those made
    /// before it. It outlives the control. `name` is a literal.
    Control(Form& form, Control& container, char const* name, Bounds bounds);
    virtual ~Control() = default;
    Control(Control const&) = delete;
    Control& operator=(Control const&) = delete;

    /// The name of the control's kind, such as "RichTextBox".
    virtual char const* Kind() const = 0;
    char const* Name() const { return m_name; }
    Form& ParentForm() const { return *m_form; }
    /// Nothing for a form itself.
    Control* Container() const { return m_container; }

    std::span<PropertyBase* const> Properties() const { return m_properties; }
    /// Nothing if there is no such property. Names match exactly.
    PropertyBase* FindProperty(std::string_view name) const;

    /// True if the control can hold the focus and is in the tab order.
    virtual bool CanFocus() const { return false; }
    /// False if only Tab reaches the control, and a click leaves the focus where it is.
    virtual bool TakesFocusByClick() const { return CanFocus(); }
    /// Moves the focus here if the control can be seen and used.
    void SetFocus();
    /// True if the control and its containers, except the form, are visible.
    bool IsShown() const;
    /// True if the control, its containers and its form are enabled.
    bool IsUsable() const;

    /// Returns to the design state, without events.
    virtual void Reset();
    /// Takes the present state as the design state.
    virtual void SaveDesign();
    /// For docked controls: the new size of the form's client area, in the form's scale.
    virtual void FormResized(Size) { }
    /// Twips in a unit of the control's own scale, that of its children and mouse positions.
    virtual float TwipsPerUnit() const;

    Property<float> Left, Top, Width, Height;
    Property<bool> Visible, Enabled;
    Property<::Text> Tag, ToolTipText;
    /// The place in the form's tab order; equal places in the order of construction.
    Property<int> TabIndex;

    /// For reading: its letters are larger or smaller than designed, as Screen::TextSize says. Set
    /// with the design, never changed.
    bool isReadingPane = false;
    /// By how much, as a factor; 1 for any other control.
    float LetterScale() const;

    /// What assistive tools call the control, such as "Your answer". If empty: its caption, its
    /// tool tip or the caption of its panel.
    ::Text accessibleName;

    Event Click, GotFocus, LostFocus;
    KeyEvent KeyDown, KeyUp;
    std::function<void(char16_t character)> KeyPress;
    /// Positions are in the control's own scale, from its top left corner.
    MouseEvent MouseDown, MouseMove, MouseUp;

protected:
    /// For a form, which is its own form and has no container.
    Control(char const* name, Bounds bounds);

    /// Called after each assignment of a property, after the host has been told.
    virtual void Assigned(PropertyBase const& property, bool changed);
    /// Tells the host that something other than a property changed: text, nodes, entries.
    void ContentChanged();
    /// Runs a handler, if there is one, as an event of the control's form.
    template <class Handler, class... Arguments>
    void Raise(Handler const& handler, Arguments... arguments);

    /// Holds a size at 0 where a formula gives less.
    static float NotBelowZero(Control const&, float value) { return value > 0 ? value : 0; }

private:
    /// Runs the work as a handler of the control's form, if that is loaded.
    void RunHandler(std::function<void()> const& work);
};

template <class Handler, class... Arguments>
void Control::Raise(Handler const& handler, Arguments... arguments)
{
    if (handler)
        RunHandler([&] { handler(arguments...); });
}

/// A control with a text in a font of its own.
class TextControl : public Control {
public:
    TextControl(Form& form, Control& container, char const* name, Bounds bounds);

    Property<::Text> FontName;
    Property<float> FontSize; ///< points
    Property<bool> FontBold;
    Property<Colour> ForeColor, BackColor;
};
