#include "headless/text_keys.h"

#include "controls/key_codes.h"

#include <algorithm>

Refusal ReplaceByUser(Input& input, TextInput& box, TextView text)
{
    Text whole = box.Text();
    auto const start = static_cast<std::size_t>(box.SelStart());
    whole.replace(start, static_cast<std::size_t>(box.SelLength()), text);
    return input.Edit(box, std::move(whole), static_cast<int>(start + text.size()), 0);
}

static bool IsLineEnd(Text const& text, int at)
{
    return at >= 0 && static_cast<std::size_t>(at) + 1 < text.size()
        && text[static_cast<std::size_t>(at)] == u'\r'
        && text[static_cast<std::size_t>(at) + 1] == u'\n';
}

/// True if two 16-bit characters begin here that no key separates: a line end, or the halves of
/// one character.
static bool IsPair(Text const& text, int at)
{
    if (at < 0 || static_cast<std::size_t>(at) + 1 >= text.size())
        return false;
    char16_t const first = text[static_cast<std::size_t>(at)],
                   second = text[static_cast<std::size_t>(at) + 1];
    return IsLineEnd(text, at) || ((first & 0xFC00) == 0xD800 && (second & 0xFC00) == 0xDC00);
}

static int Before(Text const& text, int at)
{
    return std::max(0, at - (IsPair(text, at - 2) ? 2 : 1));
}

static int After(Text const& text, int at)
{
    return std::min(static_cast<int>(text.size()), at + (IsPair(text, at) ? 2 : 1));
}

static int LineStart(Text const& text, int at)
{
    auto const found = at == 0 ? Text::npos : text.rfind(u'\n', static_cast<std::size_t>(at) - 1);
    return found == Text::npos ? 0 : static_cast<int>(found) + 1;
}

static int LineEnd(Text const& text, int at)
{
    auto const found = text.find(u"\r\n", static_cast<std::size_t>(at));
    return static_cast<int>(std::min(found, text.size()));
}

/// The caret's place a line further up or down, in the same column as far as that line reaches.
static int Vertical(Text const& text, int at, bool isDown)
{
    int const start = LineStart(text, at);
    int const column = at - start;
    if (isDown) {
        int const lineEnd = LineEnd(text, at);
        if (!IsLineEnd(text, lineEnd))
            return at;
        return std::min(lineEnd + 2 + column, LineEnd(text, lineEnd + 2));
    }
    if (start == 0)
        return at;
    return std::min(LineStart(text, start - 2) + column, start - 2);
}

static int CaretAfterKey(Text const& text, int at, int keyCode, bool control)
{
    switch (keyCode) {
    case keyLeft:
        return Before(text, at);
    case keyRight:
        return After(text, at);
    case keyUp:
    case keyDown:
        return Vertical(text, at, keyCode == keyDown);
    case keyHome:
        return control ? 0 : LineStart(text, at);
    case keyEnd:
        return control ? static_cast<int>(text.size()) : LineEnd(text, at);
    default: // A page reaches further than any text of a test.
        return keyCode == keyPageUp ? 0 : static_cast<int>(text.size());
    }
}

static void MoveCaret(Input& input, TextInput& box, int keyCode, int shift)
{
    auto const& text = box.Text();
    int const selectionEnd = box.SelStart + box.SelLength;
    bool const forwards
        = keyCode == keyRight || keyCode == keyDown || keyCode == keyEnd || keyCode == keyPageDown;
    bool const control = (shift & controlHeld) != 0;
    // The end of the selection in the key's direction moves.
    int const moved
        = CaretAfterKey(text, forwards ? selectionEnd : box.SelStart(), keyCode, control);
    if ((shift & shiftHeld) != 0) {
        int const start = forwards ? box.SelStart() : moved;
        input.Select(box, start, (forwards ? moved : selectionEnd) - start);
    } else if (box.SelLength > 0 && (keyCode == keyLeft || keyCode == keyRight)) {
        input.Select(box, keyCode == keyLeft ? box.SelStart() : selectionEnd, 0);
    } else {
        input.Select(box, moved, 0);
    }
}

static void Erase(Input& input, TextInput& box, bool backwards)
{
    auto const& text = box.Text();
    if (box.SelLength == 0) {
        int const other = backwards ? Before(text, box.SelStart) : After(text, box.SelStart);
        int const start = std::min(other, box.SelStart());
        input.Select(box, start, std::max(other, box.SelStart()) - start);
    }
    if (box.SelLength > 0)
        ReplaceByUser(input, box, {});
}

static bool PressClipboardKey(Input& input, Host& host, TextInput& box, int keyCode)
{
    auto const selected = TextView(box.Text())
                              .substr(static_cast<std::size_t>(box.SelStart()),
                                  static_cast<std::size_t>(box.SelLength()));
    switch (keyCode) {
    case 'A':
        input.Select(box, 0, static_cast<int>(box.Text().size()));
        return true;
    case 'C':
    case 'X':
        if (!selected.empty())
            host.SetClipboardText(selected);
        if (keyCode == 'X' && !selected.empty() && !box.Locked)
            ReplaceByUser(input, box, {});
        return true;
    case 'V':
        if (!box.Locked)
            ReplaceByUser(input, box, WithLineEnds(host.ClipboardText()));
        return true;
    default:
        return false;
    }
}

bool PressInText(Input& input, Host& host, TextInput& box, int keyCode, int shift)
{
    if (shift == controlHeld && PressClipboardKey(input, host, box, keyCode))
        return true;
    if (keyCode >= keyPageUp && keyCode <= keyDown) {
        MoveCaret(input, box, keyCode, shift);
        return true;
    }
    if ((keyCode != keyBackspace && keyCode != keyDelete) || box.Locked)
        return false;
    Erase(input, box, keyCode == keyBackspace);
    return true;
}
