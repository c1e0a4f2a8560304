#include "catalogue/study_head.h"

#include "platform/text_lines.h"
#include "study/codec.h"

#include <algorithm>

std::optional<StudyHead> ReadStudyHead(FileSystem const& files, TextView fileName)
{
    auto lines = TextLines::Open(files, fileName);
    if (!lines)
        return std::nullopt;
    auto const next = [&]() -> std::optional<Text> {
        auto const line = lines->NextBytes();
        if (!line)
            return std::nullopt;
        return DecodeCatalogueLine(*line);
    };
    auto title = next();
    auto description = next();
    if (!title || !description)
        return std::nullopt;
    std::replace(description->begin(), description->end(), u'/', u' ');
    StudyHead head { Text(fileName), *std::move(title), *std::move(description), {} };
    while (auto line = next()) {
        if (line->ends_with(u'/'))
            line->pop_back();
        if (line->starts_with(u'-') || line->starts_with(u'>'))
            break;
        head.lessonTitles.push_back(*std::move(line));
    }
    return head;
}
