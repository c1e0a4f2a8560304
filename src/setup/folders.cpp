#include "setup/folders.h"

#include "platform/host/descriptor.h"

namespace fs = std::filesystem;

Outcome<Done> MakeFolders(fs::path const& folder)
{
    std::error_code error;
    if (fs::is_directory(folder, error) || !folder.has_relative_path())
        return Done {};
    auto const parent = folder.parent_path();
    if (auto made = MakeFolders(parent); !made)
        return made;
    return MakeFolder(folder.string(), parent.string(), FromUtf8(folder.string()));
}
