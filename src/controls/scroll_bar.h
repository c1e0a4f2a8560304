#pragma once
// Scroll bars, and bars and panels that show a state.

#include "controls/control.h"

#include <cstdint>

/// Runs from `Min` at its left or upper end to `Max`, which may be below `Min`. Assigning `Value`
/// holds it between them; assigning `Min` or `Max` neither changes `Value` nor raises an event.
class ScrollBar : public Control {
public:
    ScrollBar(Form& form, Control& container, char const* name, Bounds bounds);

    bool CanFocus() const override { return true; }
    virtual bool IsHorizontal() const = 0;

    Property<std::int16_t> Min, Max, Value, SmallChange, LargeChange;

    Event Change; ///< after every change of `Value`
    Event Scroll; ///< while the thumb is being dragged

protected:
    void Assigned(PropertyBase const& property, bool changed) override;

private:
    friend class Input;
    bool m_dragging = false; // the user holds the thumb: Scroll instead of Change
};

class HScrollBar final : public ScrollBar {
public:
    using ScrollBar::ScrollBar;
    char const* Kind() const override { return "HScrollBar"; }
    bool IsHorizontal() const override { return true; }
};

class VScrollBar final : public ScrollBar {
public:
    using ScrollBar::ScrollBar;
    char const* Kind() const override { return "VScrollBar"; }
    bool IsHorizontal() const override { return false; }
};

/// A bar that fills from `Min` to `Max`. `Value` is held within them.
class ProgressBar final : public Control {
public:
    ProgressBar(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "ProgressBar"; }

    Property<std::int64_t> Min, Max, Value;
};

/// A bar along the bottom of the form, which keeps its height and takes the form's width, with up
/// to two texts.
class StatusBar final : public TextControl {
public:
    StatusBar(Form& form, char const* name, Bounds bounds);

    char const* Kind() const override { return "StatusBar"; }
    void FormResized(Size client) override;

    Property<::Text> Panel1, Panel2;
    Property<float> Panel1Width; ///< 0 for the whole bar; else the second panel takes the rest
};
