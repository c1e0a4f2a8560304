#include "kit/study/general_texts_source.h"

#include "base/code_page.h"
#include "kit/common/utf8.h"
#include "kit/study/scramble.h"
#include "kit/study/source_checks.h"
#include "kit/study/source_entries.h"

namespace {

std::string FileText(std::vector<Text> const& lines, bool isPlain)
{
    std::string bytes;
    for (std::size_t i = 0; i < lines.size(); ++i)
        bytes += FileLine(ToCodePage(lines[i]).value_or(""), i, isPlain) + "\r\n";
    return bytes;
}

/// The paragraphs as lines, an empty one between them.
std::vector<Text> SpacedLines(SourceEntry const& entry)
{
    std::vector<Text> lines;
    for (auto const& paragraph : entry.paragraphs) {
        if (!lines.empty())
            lines.emplace_back();
        lines.push_back(paragraph.Joined());
    }
    return lines;
}

} // namespace

OutputFiles WriteGeneralTexts(
    std::string_view bytes, std::string const& file, bool isPlain, Faults& faults)
{
    auto const faultsBefore = faults.size();
    OutputFiles files;
    for (auto const& entry : ReadEntries(bytes, file, faults)) {
        auto const name = ToUtf8(entry.key) + ".txt";
        bool const isIntroduction = entry.key == u"introduction";
        if (!isIntroduction && entry.key != u"conclusion")
            faults.push_back({ file, entry.line,
                "expected “introduction” or “conclusion”, found " + Quoted(entry.key) });
        else if (files.contains(name))
            faults.push_back({ file, entry.line, Quoted(entry.key) + " a second time" });
        else if (entry.paragraphs.empty())
            CheckHasText(entry, file, faults);
        else
            files[name] = FileText(
                isIntroduction ? SpacedLines(entry) : std::vector { entry.Joined() }, isPlain);
        CheckTexts(entry, file, faults);
    }
    for (auto const* const name : { "introduction", "conclusion" }) {
        if (!files.contains(std::string(name) + ".txt"))
            faults.push_back({ file, 1, std::string("expected an entry “") + name + "”" });
    }
    return faults.size() > faultsBefore ? OutputFiles {} : files;
}
