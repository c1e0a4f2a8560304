// Runs a fuzz target once on each file of a folder, in the order of their names. A broken rule
// stops it (check.h); the last file named is the one that broke it.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size);

int main(int count, char** words)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", words[0]);
        return 2;
    }
    std::vector<std::filesystem::path> files;
    for (auto const& entry : std::filesystem::directory_iterator(words[1]))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (auto const& path : files) {
        std::printf("%s\n", path.c_str());
        std::fflush(stdout);
        std::ifstream file(path, std::ios::binary);
        std::vector<unsigned char> const bytes { std::istreambuf_iterator<char>(file), {} };
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("%zu files\n", files.size());
    return files.empty() ? 1 : 0;
}
