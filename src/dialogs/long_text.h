#pragma once
// The long texts of the help dialogs, as paragraphs with a style, and the writing of one to a box.

#include "base/text.h"
#include "controls/rich_text_box.h"

#include <span>

enum class LongTextStyle { Title, Heading, Paragraph, Indented, Quotation, Numbered };

struct LongTextParagraph {
    LongTextStyle style;
    TextView text; ///< a passage between two asterisks is bold
};

extern std::span<LongTextParagraph const> const gettingStartedText;
extern std::span<LongTextParagraph const> const finalExamText;

/// Makes the text the whole content of the box, an empty line after each paragraph; the caret
/// is at the start.
void WriteLongText(RichTextBox& box, std::span<LongTextParagraph const> text);
