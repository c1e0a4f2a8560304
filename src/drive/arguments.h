#pragma once
// The words of a command, converted to the types that the command needs.

#include "controls/screen.h"
#include "controls/tree_view.h"
#include "drive/json.h"
#include "drive/words.h"

#include <span>

class Arguments {
public:
    /// The words after the command's name. All functions throw CommandError if a word is missing or
    /// of another kind.
    Arguments(Screen& screen, std::span<Word const> words)
        : m_screen(screen)
        , m_words(words)
    {
    }

    std::size_t Count() const { return m_words.size(); }
    /// Fails unless there are at least `fewest` and at most `most` words.
    void ExpectCount(std::size_t fewest, std::size_t most) const;

    std::string const& StringAt(std::size_t index) const;
    Text TextAt(std::size_t index) const;
    int IntegerAt(std::size_t index) const;
    float NumberAt(std::size_t index) const;
    bool BooleanAt(std::size_t index) const;

    /// FORM, or FORM.CONTROL: a form is a control too.
    Form& FormAt(std::size_t index) const;
    Control& ControlAt(std::size_t index) const;
    template <class Kind> Kind& ControlOf(std::size_t index) const
    {
        Control& control = ControlAt(index);
        if (auto* const found = dynamic_cast<Kind*>(&control))
            return *found;
        throw CommandError(StringAt(index) + " is a " + control.Kind());
    }
    /// The node of the tree that the word at `index` names, by its key, the next word.
    Node& NodeAt(std::size_t index) const;
    /// FORM.PROPERTY or FORM.CONTROL.PROPERTY.
    PropertyBase& PropertyAt(std::size_t index, Control** owner = nullptr) const;
    /// A word as a value of the property's type.
    Value ValueAt(std::size_t index, PropertyBase const& property) const;

private:
    Form& FindForm(std::string_view name) const;

    Screen& m_screen;
    std::span<Word const> m_words;
};
