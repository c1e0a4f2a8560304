#pragma once
// The two pages that the benchmarks of the Bible build, from the book files of a disc.

#include "base/turns.h"
#include "platform/posix/posix_file_system.h"
#include "reader/chapter_page.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

struct Passage {
    char const* name;
    TextView bookFile; // below the disc folder
    TextView reference;
};

constexpr Passage john3 { "John 3", u"\\kjv\\kjv43", u"John 3" };
constexpr Passage psalms { "Psalms", u"\\kjv\\kjv19", u"Psalms" };

/// The disc folder of the command line, or else build/disc. If it has no Bible, prints a message
/// and exits.
inline std::filesystem::path DiscFolder(int count, char** arguments)
{
    std::filesystem::path disc = count > 1 ? arguments[1] : SPARROWFIELD_SOURCE_DIR "/build/disc";
    if (!std::filesystem::exists(disc / "kjv" / "kjv43")) {
        std::printf(
            "%s: no King James text in this folder. Make the disc first (run.sh), or name its "
            "folder:\n    %s FOLDER\n",
            disc.c_str(), arguments[0]);
        std::exit(2);
    }
    return std::filesystem::canonical(disc);
}

/// The disc as the program's folder.
class Disc {
public:
    explicit Disc(std::filesystem::path const& folder)
        : m_files({ folder, std::filesystem::temp_directory_path() / "sparrowfield-bible-bench" })
    {
    }

    Text Folder() const { return m_files.ApplicationFolder(); }

    std::string ReadBook(Passage const& passage) const
    {
        auto bytes = m_files.ReadAll(m_files.ApplicationFolder() + Text(passage.bookFile));
        return bytes ? std::move(*bytes) : std::string();
    }

    /// From the book file on the disk to the page's text, with a listener that follows it as the
    /// reader does.
    Text Page(Passage const& passage) const
    {
        PageRequest const request { m_files.ApplicationFolder(), false,
            ReadWantedVerses(passage.reference) };
        int progress = 0;
        Turns turns;
        PageListener const listener { [&](int) { progress = 0; },
            [&](int line) { progress = line; },
            [&] {
                turns.Give();
                return progress >= 0;
            } };
        return *BuildChapterPage(ReadBook(passage), request, listener);
    }

private:
    PosixFileSystem m_files;
};

inline void Page(benchmark::State& state, Disc const& disc, Passage const& passage)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(disc.Page(passage).data());
}
