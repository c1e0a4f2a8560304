#pragma once
// Controls that show a picture: a file, ":name" for a built-in picture, or none for an empty name.

#include "controls/form.h"

/// A picture without a window of its own. If `TabStop` is set, Tab reaches it, and Enter and the
/// space bar click it; a mouse click never moves the focus to it.
class Image final : public Control {
public:
    Image(Form& form, Control& container, char const* name, Bounds bounds, TextView picture = {});

    char const* Kind() const override { return "Image"; }
    bool CanFocus() const override { return TabStop; }
    bool TakesFocusByClick() const override { return false; }

    Property<::Text> Picture;
    Property<bool> Stretch;
    Property<bool> TabStop;
};

/// A picture with a window of its own, which can hold controls and, if `TabStop` is set, the focus.
class PictureBox final : public Control {
public:
    PictureBox(
        Form& form, Control& container, char const* name, Bounds bounds, TextView picture = {});

    char const* Kind() const override { return "PictureBox"; }
    bool CanFocus() const override { return TabStop; }
    float TwipsPerUnit() const override;

    Property<::Text> Picture;
    /// Takes the size of its picture.
    Property<bool> AutoSize;
    Property<bool> TabStop;
    Property<Colour> BackColor;
    Property<bool> Border; ///< a single line round it
    Property<int> MousePointer;
    ScaleMode scale; ///< of its own mouse positions and its children; that of the form as designed

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
};

/// Pictures that other controls show by key or by their place, counted from 1.
class ImageList final : public Control {
public:
    struct Entry {
        char const* key; ///< empty for none
        char const* picture;
    };

    /// The entries are literals that outlive the list.
    ImageList(Form& form, char const* name, std::initializer_list<Entry> entries);

    char const* Kind() const override { return "ImageList"; }
    std::vector<Entry> const& Entries() const { return m_entries; }

private:
    std::vector<Entry> m_entries;
};
