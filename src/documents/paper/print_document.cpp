#include "documents/paper/print_document.h"

#include <algorithm>

namespace {

struct Style {
    float size; ///< points
    bool bold = false;
    float indent = 0; ///< twips
    float before = 0; ///< twips above it
};

constexpr Style titleStyle { 18, true };
constexpr Style sectionStyle { 14, true, 0, 360 };
constexpr Style subtitleStyle { 11, false, 0, 60 };
constexpr Style questionStyle { 11, true, 0, 240 };
constexpr Style plainStyle { 11, false, 0, 240 };
constexpr Style answerStyle { 11, false, 360, 100 };
constexpr Style publisherTitleStyle { 9, true, 720, 120 };
constexpr Style publisherStyle { 10, false, 720, 60 };
constexpr Style footStyle { 9 };

constexpr int linesToWriteOn = 3;

/// Places lines on the pages of a job.
class Layout {
public:
    Layout(Printer& printer, TextView title)
        : m_printer(printer)
        , m_title(title)
        , m_margin(std::min(1080.0F, printer.ScaleWidth() / 8))
        , m_y(m_margin)
    {
    }

    /// Prints a text, wrapped at words. Its line ends count.
    void Print(TextView text, Style const& style);
    /// Starts a new page unless this many lines in a style fit on this one, after its space.
    void KeepTogether(int lines, Style const& style);
    /// Prints lines to write on.
    void PrintRules(Style const& style);
    /// Ends the last page.
    void End() { PrintFoot(); }

private:
    float Left(Style const& style) const { return m_printer.ScaleLeft() + m_margin + style.indent; }
    float Right() const { return m_printer.ScaleLeft() + m_printer.ScaleWidth() - m_margin; }
    float Bottom() const { return m_printer.ScaleHeight() - m_margin; }
    void Use(Style const& style) { m_printer.SetFont({ u"Arial", style.size, style.bold }); }
    void Space(Style const& style);
    void NewPage(Style const& style);
    void PrintLine(TextView line, Style const& style);
    TextView TakeLine(TextView& text, float width) const;
    void PrintFoot();

    Printer& m_printer;
    Text m_title;
    float m_margin; // twips, on all sides
    float m_y;
    int m_page = 1;
};

void Layout::Space(Style const& style)
{
    if (m_y > m_margin) // not at the top of a page
        m_y += style.before;
}

void Layout::NewPage(Style const& style)
{
    PrintFoot();
    m_printer.NewPage();
    ++m_page;
    m_y = m_margin;
    Use(style);
}

void Layout::KeepTogether(int lines, Style const& style)
{
    Use(style);
    float const height = style.before + static_cast<float>(lines) * m_printer.LineHeight();
    if (m_y > m_margin && m_y + height > Bottom())
        NewPage(style);
}

void Layout::PrintLine(TextView line, Style const& style)
{
    if (m_y > m_margin && m_y + m_printer.LineHeight() > Bottom())
        NewPage(style);
    m_printer.SetCurrentX(Left(style));
    m_printer.SetCurrentY(m_y);
    if (!line.empty())
        m_printer.Print(line);
    m_y += m_printer.LineHeight();
}

/// Takes what fits into a line: whole words with the blanks before them, but of a word that is
/// wider than a line as much as fits. The blanks where the line ends are dropped.
TextView Layout::TakeLine(TextView& text, float width) const
{
    std::size_t end = 0;
    float used = 0;
    while (end < text.size()) {
        auto next = text.find_first_not_of(u' ', end);
        next = std::min(text.find(u' ', std::min(next, text.size())), text.size());
        // No line has room for so many characters, and measuring a long text takes long.
        constexpr std::size_t most = 1000;
        auto const word = text.substr(end, std::min(next - end, most));
        float const wide = m_printer.TextWidth(word);
        if (next - end <= most && used + wide <= width) {
            used += wide;
            end = next;
            continue;
        }
        if (end == 0) {
            end = 1;
            while (end < word.size() && m_printer.TextWidth(word.substr(0, end + 1)) <= width)
                ++end;
            if (end < text.size() && text[end] >= 0xDC00 && text[end] < 0xE000)
                ++end; // the second half of a character
        }
        break;
    }
    auto const line = text.substr(0, end);
    text.remove_prefix(std::min(text.find_first_not_of(u' ', end), text.size()));
    return line;
}

void Layout::Print(TextView text, Style const& style)
{
    Use(style);
    Space(style);
    Text lines = WithLineEnds(text);
    ReplaceAll(lines, u"\t", u"    ");
    while (lines.ends_with(u' ') || lines.ends_with(u'\r') || lines.ends_with(u'\n'))
        lines.pop_back();
    lines.erase(0, std::min(lines.find_first_not_of(u"\r\n"), lines.size()));
    for (TextView paragraph : Split(lines, u'\n')) {
        if (paragraph.ends_with(u'\r'))
            paragraph.remove_suffix(1);
        do
            PrintLine(TakeLine(paragraph, Right() - Left(style)), style);
        while (!paragraph.empty());
    }
}

void Layout::PrintRules(Style const& style)
{
    Use(style);
    Space(style);
    auto const count = static_cast<std::size_t>(
        std::max(1.0F, (Right() - Left(style)) / m_printer.TextWidth(u"_")));
    for (int i = 0; i < linesToWriteOn; ++i) {
        m_y += m_printer.LineHeight() / 2;
        PrintLine(Text(count, u'_'), style);
    }
}

void Layout::PrintFoot()
{
    Use(footStyle);
    Text const number = FromNumber(m_page);
    float const y = Bottom() + m_printer.LineHeight();
    auto const room = Right() - Left(footStyle) - m_printer.TextWidth(number + u"  ");
    TextView title = m_title;
    m_printer.SetCurrentX(Left(footStyle));
    m_printer.SetCurrentY(y);
    m_printer.Print(TakeLine(title, room));
    m_printer.SetCurrentX(Right() - m_printer.TextWidth(number));
    m_printer.SetCurrentY(y);
    m_printer.Print(number);
}

/// The lines of a page that belong together: two of the question and one of the answer, or all to
/// write on.
int Beginning(DocumentPage const& page)
{
    return page.isOpen ? 2 + 2 * linesToWriteOn : 3;
}

void PrintPage(Layout& layout, DocumentPage const& page)
{
    bool first = true;
    for (Text const& paragraph : page.text) {
        auto const& style = page.label.empty() ? plainStyle : questionStyle;
        if (first)
            layout.KeepTogether(Beginning(page), style);
        layout.Print(first && !page.label.empty() ? page.label + u' ' + paragraph : paragraph,
            first ? style : Style { style.size, style.bold, style.indent, answerStyle.before });
        first = false;
    }
    if (first && !page.number.empty()) {
        layout.KeepTogether(Beginning(page), questionStyle);
        layout.Print(u"Page " + page.number, questionStyle);
    }
    if (page.isOpen)
        layout.PrintRules(answerStyle);
    else
        layout.Print(page.answer, answerStyle);
    if (page.publisher.empty())
        return;
    layout.KeepTogether(2, publisherTitleStyle);
    layout.Print(publisherHeading, publisherTitleStyle);
    for (Text const& paragraph : page.publisher)
        layout.Print(paragraph, publisherStyle);
}

} // namespace

void PrintDocument(Printer& printer, Document const& document)
{
    printer.SetTitle(document.title);
    Layout layout(printer, document.title);
    layout.Print(document.title, titleStyle);
    for (auto const& section : document.sections) {
        layout.KeepTogether(4, sectionStyle);
        layout.Print(section.title, sectionStyle);
        if (!section.subtitle.empty())
            layout.Print(section.subtitle, subtitleStyle);
        for (auto const& page : section.pages)
            PrintPage(layout, page);
    }
    layout.End();
    printer.EndDoc();
}
