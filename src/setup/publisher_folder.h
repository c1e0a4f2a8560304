#pragma once
// The folder in which the installed copy lies: held by one Setup at a time, and the place in which
// a new copy grows and an old one goes.

#include "platform/posix/descriptor.h"

#include <filesystem>

class PublisherFolder {
public:
    /// Makes the folder and those above it, private to the user, where they are missing, and
    /// removes the folders that a run that was killed has left. Fails while another Setup holds it,
    /// and where the folder or the one above it is a link.
    static Outcome<PublisherFolder> Hold(std::filesystem::path const& folder);
    PublisherFolder(PublisherFolder&&) noexcept = default;
    PublisherFolder& operator=(PublisherFolder&&) = delete;
    /// Takes the folder away again if nothing is in it.
    ~PublisherFolder();

    /// An empty folder beside the copy, private to the user, which the next Hold would remove.
    Outcome<std::filesystem::path> MakeAside() const;
    /// Puts a folder that MakeAside made at the target. What stood at the target, if anything did,
    /// then stands in its stead or is gone; on a failure it stands where it stood.
    Outcome<Done> Exchange(
        std::filesystem::path const& fresh, std::filesystem::path const& target) const;
    /// Takes what stands at the target away: of a link only the link. On a failure it is either
    /// untouched or no longer at the target.
    Outcome<Done> Remove(std::filesystem::path const& target) const;

private:
    PublisherFolder(std::filesystem::path folder, Descriptor descriptor);

    std::filesystem::path m_folder;
    Descriptor m_descriptor;
};
