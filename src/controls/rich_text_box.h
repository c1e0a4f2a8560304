#pragma once
// A text box whose characters have a size, a weight and a raise, and whose paragraphs have indents.

#include "controls/text_box.h"

#include <vector>

/// The look of a run of characters.
struct CharacterFormat {
    bool bold = false;
    float size = 8.25F; ///< points
    float raise = 0; ///< twips above the line
    bool operator==(CharacterFormat const&) const = default;
};

/// The indents of a paragraph, in twips. `hanging` is added for all lines but the first.
struct ParagraphFormat {
    float left = 0, right = 0, hanging = 0;
    bool operator==(ParagraphFormat const&) const = default;
};

/// Setting the text sets it in the format of the design. A paragraph includes its line end; the
/// last one may be empty. Inserted text takes the format before the caret, unless another was set
/// since the caret was placed. Appending takes time in proportion to what is appended.
class RichTextBox final : public TextInput {
public:
    struct Run {
        int start;
        CharacterFormat format;
    };
    struct Paragraph {
        int start;
        ParagraphFormat format;
    };

    RichTextBox(Form& form, Control& container, char const* name, Bounds bounds);

    char const* Kind() const override { return "RichTextBox"; }
    bool IsMultiLine() const override { return true; }
    void ReplaceSelection(TextView text) override;
    bool Edited(::Text text, int start, int length) override;
    /// Length of the text in 16-bit characters.
    int Length() const { return static_cast<int>(Text().size()); }

    /// Each run reaches to the start of the next; empty if the text is.
    std::vector<Run> const& Runs() const { return m_runs; }
    /// Always at least one, which starts at 0.
    std::vector<Paragraph> const& Paragraphs() const { return m_paragraphs; }
    /// Counts changes other than appending: until the next one, a host needs to show only what is
    /// appended, and the format of the paragraph in which that begins.
    unsigned Revision() const { return m_revision; }
    /// Counts how often the whole text was set: the user can't undo across that.
    unsigned Generation() const { return m_generation; }

    /// Of the selection, or, if that is empty, of what is inserted next.
    Property<bool> SelBold;
    Property<float> SelFontSize, SelCharOffset;
    /// Of the paragraphs that the selection touches, or of the caret's.
    Property<float> SelIndent, SelRightIndent, SelHangingIndent;
    /// The offset that is shown in the top line. Setting it scrolls there, even to the same value.
    Property<int> TopOffset;

    void Reset() override;

protected:
    void Assigned(PropertyBase const& property, bool changed) override;
    void CaretPlaced() override;

private:
    void StartAnew();
    void Splice(int start, int length, TextView text);
    void Append(TextView text);
    void SpliceRuns(int start, int length, int added);
    void SpliceParagraphs(int start, int length, TextView text);
    void FormatRuns(PropertyBase const& property);
    void FormatParagraphs(PropertyBase const& property);
    std::size_t RunAt(int offset) const;
    std::size_t ParagraphAt(int offset) const;
    CharacterFormat WantedFormat() const;
    std::size_t SplitRun(int offset);
    void MergeRuns();

    std::vector<Run> m_runs;
    std::vector<Paragraph> m_paragraphs { { 0, {} } };
    unsigned m_revision = 0;
    unsigned m_generation = 0;
};
