#pragma once
// Lists: a drop-down list without typing, and a list of files that is never shown.

#include "controls/control.h"

#include <functional>
#include <vector>

class ComboBox final : public TextControl {
public:
    ComboBox(Form& form, Control& container, char const* name, Bounds bounds,
        std::vector<::Text> entries);

    char const* Kind() const override { return "ComboBox"; }
    bool CanFocus() const override { return true; }

    Property<std::vector<::Text>> List;
    /// The entry chosen, from 0; -1 for none. Setting it raises Click.
    Property<int> ListIndex;
    /// The entry chosen, empty if none is.
    ComputedProperty<::Text> Text;

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
};

/// The files of the current directory that match a pattern, read when the form is loaded.
class FileListBox final : public Control {
public:
    /// `list` gives the matching names in order.
    FileListBox(Form& form, char const* name, TextView pattern,
        std::function<std::vector<::Text>(TextView)> list);

    char const* Kind() const override { return "FileListBox"; }
    void Reset() override;

    Property<::Text> Pattern;
    Property<std::vector<::Text>> List;

private:
    std::function<std::vector<::Text>(TextView)> m_list;
};
