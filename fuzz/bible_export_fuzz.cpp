// Any export of a Bible: entries in the order of their lines, each a piece of the export; verses of
// plain text; and an import or faults, never both.

#include "check.h"
#include "kit/bible/bible_import.h"
#include "kit/bible/osis_text.h"
#include "kit/bible/sword_export.h"

static void CheckVerse(OsisVerse const& verse)
{
    CHECK(!verse.text.starts_with(' ') && !verse.text.ends_with(' '));
    CHECK(verse.text.find("  ") == std::string::npos && verse.text.find('\n') == std::string::npos);
}

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    std::string_view const bytes(reinterpret_cast<char const*>(data), size);
    Faults faults;
    OsisReader reader;
    int line = 0;
    std::uint64_t place = 0;
    ReadSwordExport(bytes, "a.imp", faults, [&](ExportEntry const& entry, std::uint64_t read) {
        CHECK(entry.line > line && entry.lastLine >= entry.line && entry.chapter >= 0
            && entry.verse >= 0);
        CHECK(read >= place && read <= size && !entry.book.empty());
        for (auto const piece : { entry.book, entry.text })
            CHECK(piece.empty()
                || (piece.data() >= bytes.data()
                    && piece.data() + piece.size() <= bytes.data() + size));
        line = entry.lastLine;
        place = read;
        CheckVerse(reader.Read(entry.text));
    });
    if (size % 16 == 0) { // It names each verse that is missing, which takes its time.
        Faults found;
        CHECK(ImportBible(bytes, "a.imp", "kjv", found).has_value() == found.empty());
        CHECK(found.size() >= faults.size());
    }
    OsisReader alone;
    CheckVerse(alone.Read(bytes));
    return 0;
}
