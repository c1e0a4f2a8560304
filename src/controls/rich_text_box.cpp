#include "controls/rich_text_box.h"

#include <algorithm>

RichTextBox::RichTextBox(Form& form, Control& container, char const* name, Bounds bounds)
    : TextInput(form, container, name, bounds)
    , SelBold(*this, "SelBold", false)
    , SelFontSize(*this, "SelFontSize", 8.25F)
    , SelCharOffset(*this, "SelCharOffset", 0)
    , SelIndent(*this, "SelIndent", 0)
    , SelRightIndent(*this, "SelRightIndent", 0)
    , SelHangingIndent(*this, "SelHangingIndent", 0)
    , TopOffset(*this, "TopOffset", 0, [](Control const& control, int offset) {
        return std::clamp(offset, 0, static_cast<RichTextBox const&>(control).Length());
    })
{
}

void RichTextBox::Reset()
{
    TextInput::Reset();
    StartAnew();
}

void RichTextBox::StartAnew()
{
    m_runs.clear();
    m_paragraphs = { { 0, {} } };
    ++m_revision;
    ++m_generation;
    TopOffset.AssignSilently(0);
    SelStart.AssignSilently(0);
    SelLength.AssignSilently(0);
    SelBold.AssignSilently(FontBold);
    SelFontSize.AssignSilently(FontSize);
    SelCharOffset.AssignSilently(0);
    if (!Text().empty()) {
        m_runs.push_back({ 0, WantedFormat() });
        SpliceParagraphs(0, 0, Text);
    }
    CaretPlaced();
}

void RichTextBox::ReplaceSelection(TextView text)
{
    int const start = SelStart;
    int const length = SelLength;
    auto const inserted = WithLineEnds(text);
    if (length == 0 && start == Length())
        Append(inserted);
    else
        Splice(start, length, inserted);
    SelStart.AssignSilently(start + static_cast<int>(inserted.size()));
    SelLength.AssignSilently(0);
    ContentChanged();
    Raise(Change);
}

bool RichTextBox::Edited(::Text text, int start, int length)
{
    text = WithLineEnds(text);
    auto const& old = Text();
    auto const shorter = std::min(old.size(), text.size());
    std::size_t head = 0;
    while (head < shorter && old[head] == text[head])
        ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && old[old.size() - 1 - tail] == text[text.size() - 1 - tail])
        ++tail;
    bool const changed = head + tail < old.size() || head + tail < text.size();
    if (changed) {
        auto const removed = static_cast<int>(old.size() - head - tail);
        Splice(static_cast<int>(head), removed,
            TextView(text).substr(head, text.size() - head - tail));
    }
    Selected(start, length);
    ContentChanged();
    if (changed)
        Raise(Change);
    return changed;
}

void RichTextBox::Append(TextView text)
{
    if (text.empty())
        return;
    int const end = Length();
    if (m_runs.empty() || m_runs.back().format != WantedFormat())
        m_runs.push_back({ end, WantedFormat() });
    auto const format = m_paragraphs.back().format;
    for (auto found = text.find(u'\n'); found != TextView::npos;
         found = text.find(u'\n', found + 1))
        m_paragraphs.push_back({ end + static_cast<int>(found) + 1, format });
    Text.Part().append(text);
}

void RichTextBox::Splice(int start, int length, TextView text)
{
    SpliceRuns(start, length, static_cast<int>(text.size()));
    SpliceParagraphs(start, length, text);
    Text.Part().replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), text);
    MergeRuns();
    ++m_revision;
}

void RichTextBox::SpliceRuns(int start, int length, int added)
{
    auto const first = SplitRun(start);
    auto const last = SplitRun(start + length);
    m_runs.erase(m_runs.begin() + static_cast<std::ptrdiff_t>(first),
        m_runs.begin() + static_cast<std::ptrdiff_t>(last));
    for (auto i = first; i < m_runs.size(); ++i)
        m_runs[i].start += added - length;
    if (added > 0)
        m_runs.insert(
            m_runs.begin() + static_cast<std::ptrdiff_t>(first), { start, WantedFormat() });
}

void RichTextBox::SpliceParagraphs(int start, int length, TextView text)
{
    auto const at = ParagraphAt(start);
    auto const format = m_paragraphs[at].format;
    auto const next = m_paragraphs.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    auto const behind = std::find_if(next, m_paragraphs.end(),
        [&](Paragraph const& paragraph) { return paragraph.start > start + length; });
    auto place = m_paragraphs.erase(next, behind);
    int const grown = static_cast<int>(text.size()) - length;
    std::for_each(
        place, m_paragraphs.end(), [&](Paragraph& paragraph) { paragraph.start += grown; });
    std::vector<Paragraph> added;
    for (auto found = text.find(u'\n'); found != TextView::npos;
         found = text.find(u'\n', found + 1))
        added.push_back({ start + static_cast<int>(found) + 1, format });
    m_paragraphs.insert(place, added.begin(), added.end());
}

std::size_t RichTextBox::RunAt(int offset) const
{
    auto const behind = std::upper_bound(m_runs.begin(), m_runs.end(), offset,
        [](int at, Run const& run) { return at < run.start; });
    return behind == m_runs.begin() ? 0 : static_cast<std::size_t>(behind - m_runs.begin()) - 1;
}

std::size_t RichTextBox::ParagraphAt(int offset) const
{
    auto const behind = std::upper_bound(m_paragraphs.begin(), m_paragraphs.end(), offset,
        [](int at, Paragraph const& paragraph) { return at < paragraph.start; });
    return static_cast<std::size_t>(behind - m_paragraphs.begin()) - 1;
}

CharacterFormat RichTextBox::WantedFormat() const
{
    return { SelBold, SelFontSize, SelCharOffset };
}

/// Makes a run begin at the offset and gives its index; the number of runs at the text's end.
std::size_t RichTextBox::SplitRun(int offset)
{
    if (offset >= Length() || m_runs.empty())
        return m_runs.size();
    auto const at = RunAt(offset);
    if (m_runs[at].start == offset)
        return at;
    m_runs.insert(
        m_runs.begin() + static_cast<std::ptrdiff_t>(at) + 1, { offset, m_runs[at].format });
    return at + 1;
}

void RichTextBox::MergeRuns()
{
    auto const same = [](Run const& left, Run const& right) { return left.format == right.format; };
    m_runs.erase(std::unique(m_runs.begin(), m_runs.end(), same), m_runs.end());
}

void RichTextBox::FormatRuns(PropertyBase const& property)
{
    auto const first = SplitRun(SelStart);
    auto const last = SplitRun(SelStart + SelLength);
    for (auto i = first; i < last; ++i) {
        if (&property == &SelBold)
            m_runs[i].format.bold = SelBold;
        else if (&property == &SelFontSize)
            m_runs[i].format.size = SelFontSize;
        else
            m_runs[i].format.raise = SelCharOffset;
    }
    MergeRuns();
    ++m_revision;
    ContentChanged();
}

void RichTextBox::FormatParagraphs(PropertyBase const& property)
{
    auto const first = ParagraphAt(SelStart);
    auto const last = ParagraphAt(SelLength > 0 ? SelStart + SelLength - 1 : SelStart());
    // The last line, still empty, belongs to what is yet to be appended, unless everything is
    // selected with it.
    bool const toEnd = SelLength > 0 && SelStart + SelLength == Length();
    bool const nothingShown = SelLength == 0 && m_paragraphs[first].start == Length();
    for (auto i = first; i <= (toEnd ? m_paragraphs.size() - 1 : last); ++i) {
        if (&property == &SelIndent)
            m_paragraphs[i].format.left = SelIndent;
        else if (&property == &SelRightIndent)
            m_paragraphs[i].format.right = SelRightIndent;
        else
            m_paragraphs[i].format.hanging = SelHangingIndent;
    }
    if (!nothingShown)
        ++m_revision;
    ContentChanged();
}

void RichTextBox::CaretPlaced()
{
    if (!m_runs.empty()) {
        auto const& format = m_runs[RunAt(std::max(0, SelStart - 1))].format;
        SelBold.AssignSilently(format.bold);
        SelFontSize.AssignSilently(format.size);
        SelCharOffset.AssignSilently(format.raise);
    }
    auto const& format = m_paragraphs[ParagraphAt(SelStart)].format;
    SelIndent.AssignSilently(format.left);
    SelRightIndent.AssignSilently(format.right);
    SelHangingIndent.AssignSilently(format.hanging);
}

void RichTextBox::Assigned(PropertyBase const& property, bool changed)
{
    TextInput::Assigned(property, changed);
    if (&property == &Text) {
        StartAnew();
        Raise(Change);
    } else if (&property == &SelBold || &property == &SelFontSize || &property == &SelCharOffset) {
        if (SelLength > 0)
            FormatRuns(property);
    } else if (&property == &SelIndent || &property == &SelRightIndent
        || &property == &SelHangingIndent) {
        FormatParagraphs(property);
    }
}
