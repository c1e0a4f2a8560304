#include "platform/posix/temporary_folder.h"

#include <stdlib.h>

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder()
{
    std::error_code error;
    auto pattern = (fs::temp_directory_path(error) / "sparrowfield-XXXXXX").string();
    if (!error && ::mkdtemp(pattern.data()))
        m_path = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    if (!m_path.empty())
        fs::remove_all(m_path, ignored);
}
