// Any study file, with a read that may fail: a whole lesson or a failure with its reason.

#include "check.h"
#include "study/lesson_file.h"
#include "support/memory_file_system.h"

/// The first byte says which lesson, the second which call of the file system fails, the rest is
/// the file.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    if (size < 2)
        return 0;
    std::string const bytes(reinterpret_cast<char const*>(data) + 2, size - 2);
    MemoryFileSystem files;
    files.Put(u"a-1.dat", bytes);
    if (data[1] % 2 == 0)
        files.Put(u"conclusion.txt", bytes.substr(0, 100));
    files.FailAt(data[1]);
    Turns turns;
    auto const block = ParseLessonBlock(files, u"a-1.dat:" + FromNumber(data[0] % 12), turns);
    CHECK(turns.Given() <= 2 * size + 2);
    if (!block) {
        CHECK(!block.failure().file.empty() && !block.failure().reason.empty());
        return 0;
    }
    CHECK(!block->body.pages.empty());
    CHECK(block->body.pages.size() == block->body.answers.size());
    CHECK(block->body.closingLine.starts_with(u'-'));
    CHECK(block->introParagraphs.empty() || block->introParagraphs.front().bold);
    return 0;
}
