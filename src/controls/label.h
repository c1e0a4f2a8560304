#pragma once
// Controls that show a text or a shape and take no focus.

#include "controls/control.h"

enum class TextAlignment : int { Left = 0, Right = 1, Centre = 2 };

/// A text that is only shown. With `AutoSize` its size follows its caption; with `WordWrap` too,
/// only its height.
class Label final : public TextControl {
public:
    Label(Form& form, Control& container, char const* name, Bounds bounds, TextView caption = {});

    char const* Kind() const override { return "Label"; }

    Property<::Text> Caption;
    Property<TextAlignment> Alignment;
    Property<bool> Transparent, AutoSize, WordWrap;
    Property<int> MousePointer;

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
};

/// A filled rectangle without events.
class Shape final : public Control {
public:
    Shape(Form& form, Control& container, char const* name, Bounds bounds, Colour fill);

    char const* Kind() const override { return "Shape"; }

    Property<Colour> FillColor;
};

/// A straight rule without events; `Width` or `Height` may be 0.
class Line final : public Control {
public:
    Line(Form& form, Control& container, char const* name, Bounds bounds, Colour colour);

    char const* Kind() const override { return "Line"; }

    Property<Colour> BorderColor;
};
