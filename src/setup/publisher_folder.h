#pragma once
// The folder that contains the installed copy. One Setup at a time holds it, makes a new copy in
// it, and removes the old one.

#include "platform/posix/descriptor.h"

#include <filesystem>

class PublisherFolder {
public:
    /// Makes the folder and those above it, private to the user, where they are missing, and
    /// removes what a killed run has left. Fails while another Setup holds it, and if the folder or
    /// the one above it is a link.
    static Outcome<PublisherFolder> Hold(std::filesystem::path const& folder);
    PublisherFolder(PublisherFolder&&) noexcept = default;
    PublisherFolder& operator=(PublisherFolder&&) = delete;
    /// Removes the folder if it is empty.
    ~PublisherFolder();

    /// An empty folder beside the copy, private to the user, which the next Hold would remove.
    Outcome<std::filesystem::path> MakeAside() const;
    /// Moves a folder made by MakeAside to the target. What was at the target, if anything, is then
    /// at `fresh` or removed; on a failure it is where it was.
    Outcome<Done> Exchange(
        std::filesystem::path const& fresh, std::filesystem::path const& target) const;
    /// Removes what is at the target; of a link, only the link. On a failure it is either untouched
    /// or no longer at the target.
    Outcome<Done> Remove(std::filesystem::path const& target) const;

private:
    PublisherFolder(std::filesystem::path folder, Descriptor descriptor);

    std::filesystem::path m_folder;
    Descriptor m_descriptor;
};
