#include "controls/text_box.h"

#include <algorithm>

/// The offset, held within the text, and moved to the start of a line end that it would divide.
static int Within(Text const& text, int offset)
{
    int const held = std::clamp(offset, 0, static_cast<int>(text.size()));
    auto const at = static_cast<std::size_t>(held);
    bool const inLineEnd = at > 0 && at < text.size() && text[at - 1] == u'\r' && text[at] == u'\n';
    return inLineEnd ? held - 1 : held;
}

/// The length of a selection from the caret, held within the text in the same way.
static int LengthWithin(Control const& control, int length)
{
    auto const& box = static_cast<TextInput const&>(control);
    int const room = static_cast<int>(box.Text().size()) - box.SelStart;
    return Within(box.Text, box.SelStart + std::clamp(length, 0, room)) - box.SelStart;
}

TextInput::TextInput(Form& form, Control& container, char const* name, Bounds bounds)
    : TextControl(form, container, name, bounds)
    // NOLINTNEXTLINE(performance-unnecessary-value-param): a property of any type hands over a
    // value
    , Text(*this, "Text", {}, [](Control const&, ::Text text) { return WithLineEnds(text); })
    , Locked(*this, "Locked", false)
    , Border(*this, "Border", true)
    , SelStart(*this, "SelStart", 0,
          [](Control const& control, int start) {
              return Within(static_cast<TextInput const&>(control).Text, start);
          })
    , SelLength(*this, "SelLength", 0, LengthWithin)
{
}

void TextInput::Assigned(PropertyBase const& property, bool)
{
    if (&property == &SelStart) {
        SelLength.AssignSilently(0);
        CaretPlaced();
    }
}

void TextInput::Selected(int start, int length)
{
    SelStart.AssignSilently(Within(Text, start));
    SelLength.AssignSilently(LengthWithin(*this, length));
    CaretPlaced();
}

TextBox::TextBox(Form& form, Control& container, char const* name, Bounds bounds)
    : TextInput(form, container, name, bounds)
    , MultiLine(*this, "MultiLine", false)
    , ScrollBar(*this, "ScrollBar", false)
{
}

void TextBox::ReplaceSelection(TextView text)
{
    auto const start = static_cast<std::size_t>(SelStart());
    ::Text whole = Text;
    auto const inserted = WithLineEnds(text);
    whole.replace(start, static_cast<std::size_t>(SelLength()), inserted);
    Edited(std::move(whole), static_cast<int>(start + inserted.size()), 0);
}

bool TextBox::Edited(::Text text, int start, int length)
{
    text = WithLineEnds(text);
    bool const changed = text != Text();
    Text.AssignSilently(std::move(text));
    Selected(start, length);
    ContentChanged();
    if (changed)
        Raise(Change);
    return changed;
}

void TextBox::Assigned(PropertyBase const& property, bool changed)
{
    TextInput::Assigned(property, changed);
    if (&property == &Text) {
        Selected(0, 0);
        Raise(Change);
    }
}
