// Any verse file, with a read that may fail: items of the promised form, and a progress within the
// file's size.

#include "check.h"
#include "study/verse_file.h"
#include "support/memory_file_system.h"

static void Check(VerseFileItem const& item)
{
    using Kind = VerseFileItem::Kind;
    CHECK(item.number.size() <= 2 && !item.number.ends_with(u' '));
    CHECK(item.number.empty() == (item.kind != Kind::NumberedVerse));
    CHECK(item.kind != Kind::NumberedVerse || item.text.starts_with(u' '));
    CHECK(!Contains(item.text, u'>'));
}

/// The first byte says which lesson, the second which call of the file system fails, the rest is
/// the file.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    if (size < 2)
        return 0;
    MemoryFileSystem files;
    files.Put(u"V-a", std::string(reinterpret_cast<char const*>(data) + 2, size - 2));
    files.FailAt(data[1]);
    std::uint64_t left = 0;
    Turns turns;
    auto const read = ReadVerseSection(files, u"^a ", FromNumber(data[0] % 12), turns,
        { [&](std::uint64_t bytes) { left = bytes; },
            [&](std::size_t bytes) {
                CHECK(bytes <= left);
                left -= bytes;
            },
            Check });
    CHECK(read || data[1] == 1 || data[1] == 2);
    return 0;
}
