#include "dialogs/long_text.h"

namespace {

/// Sizes in points, indents in twips.
struct Look {
    float size;
    bool bold;
    float left, right, hanging;
};

constexpr Look LookOf(LongTextStyle style)
{
    switch (style) {
    case LongTextStyle::Title:
        return { 15, true, 0, 0, 0 };
    case LongTextStyle::Heading:
        return { 11.25F, true, 0, 0, 0 };
    case LongTextStyle::Indented:
        return { 9.75F, false, 360, 360, 0 };
    case LongTextStyle::Quotation:
        return { 9.75F, false, 720, 720, 0 };
    case LongTextStyle::Numbered:
        return { 9.75F, false, 180, 180, 300 };
    case LongTextStyle::Paragraph:
        break;
    }
    return { 9.75F, false, 0, 0, 0 };
}

void Append(RichTextBox& box, Look const& look, bool bold, TextView text)
{
    box.SelStart = box.Length();
    box.SelBold = bold;
    box.SelFontSize = look.size;
    box.SelIndent = look.left;
    box.SelRightIndent = look.right;
    box.SelHangingIndent = look.hanging;
    box.ReplaceSelection(text);
}

} // namespace

void WriteLongText(RichTextBox& box, std::span<LongTextParagraph const> text)
{
    box.Text = u"";
    for (auto const& paragraph : text) {
        auto const look = LookOf(paragraph.style);
        bool bold = look.bold;
        for (auto const part : Split(paragraph.text, u'*')) {
            if (!part.empty())
                Append(box, look, bold, part);
            bold = !bold;
        }
        Append(box, look, false, u"\r\n\r\n");
    }
    box.SelStart = 0;
}
