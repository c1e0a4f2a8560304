#include "kit/bible/sword_export.h"

#include "base/lines.h"
#include "kit/common/utf8.h"

#include <charconv>
#include <optional>

namespace {

constexpr std::string_view keyMark = "$$$";

bool ReadNumber(std::string_view text, int& number)
{
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number >= 0;
}

/// "Genesis 1:1" in its fields.
std::optional<ExportEntry> ReadKey(std::string_view key)
{
    auto const blank = key.rfind(' '), colon = key.rfind(':');
    if (blank == key.npos || colon == key.npos || colon < blank || blank == 0)
        return std::nullopt;
    ExportEntry entry;
    entry.book = key.substr(0, blank);
    if (!ReadNumber(key.substr(blank + 1, colon - blank - 1), entry.chapter)
        || !ReadNumber(key.substr(colon + 1), entry.verse))
        return std::nullopt;
    return entry;
}

} // namespace

void ReadSwordExport(std::string_view bytes, std::string const& file, Faults& faults,
    std::function<void(ExportEntry const&, std::uint64_t)> const& listener)
{
    if (!bytes.starts_with(keyMark)) {
        faults.push_back({ file, 1,
            "expected a line that begins with $$$: this isn't an export of a SWORD module" });
        return;
    }
    bool const isCutOff = !bytes.ends_with('\n');
    if (bytes.ends_with('\r'))
        bytes.remove_suffix(1); // of a line end
    std::optional<ExportEntry> entry;
    auto rest = bytes;
    int number = 0;
    auto const handOn = [&] {
        if (entry)
            listener(*entry, bytes.size() - rest.size());
        entry.reset();
    };
    while (!rest.empty()) {
        auto const line = TakeLine(rest);
        number += 1;
        if (!IsUtf8(line))
            faults.push_back({ file, number, "expected UTF-8" });
        if (line.starts_with(keyMark)) {
            handOn();
            auto const key = line.substr(keyMark.size());
            entry = ReadKey(key);
            if (entry)
                entry->line = entry->lastLine = number;
            else if (!key.starts_with('['))
                faults.push_back(
                    { file, number, "expected a book, a chapter and a verse after $$$" });
        } else if (entry) {
            bool const isFirst = entry->text.empty();
            auto const* const start = isFirst ? line.data() : entry->text.data();
            entry->text = { start, static_cast<std::size_t>(line.data() + line.size() - start) };
            entry->lastLine = number;
        }
    }
    if (isCutOff)
        faults.push_back({ file, number, "the export is cut off: its last line has no end" });
    handOn();
}
