#pragma once
// How a second start of the program finds the copy that runs already. Which starts belong together
// is told by a name; what the running copy does when it is asked to come up is left to its owner.

#include "platform/posix/descriptor.h"

#include <chrono>
#include <filesystem>
#include <string>

class RunningCopy {
public:
    /// Asks the copy of this name, whose socket lies in `folder`, to come up. If none answers
    /// within `patience`, this process takes its place. The folder is made if its parent is there;
    /// where it can't be used, or others may enter it, every start runs by itself.
    RunningCopy(std::filesystem::path folder, std::string const& name,
        std::chrono::milliseconds patience = std::chrono::seconds(1));
    ~RunningCopy() { Close(); }
    RunningCopy(RunningCopy const&) = delete;
    RunningCopy& operator=(RunningCopy const&) = delete;

    /// True if another copy has answered: this process has nothing left to do.
    bool HasRaisedAnother() const { return m_raisedAnother; }

    /// Readable when a later start asks; -1 if none can.
    int Socket() const { return m_socket.Number(); }
    /// Tells the start that asks that this copy comes up. True if it heard that: then it ends, and
    /// this copy must come up.
    bool Answer();
    /// Answers no more, and who is still waiting for an answer runs by itself. Nothing if it has
    /// been called before.
    void Close();

private:
    void Listen();

    std::filesystem::path m_folder, m_place;
    Descriptor m_socket;
    std::pair<std::uint64_t, std::uint64_t> m_identity; // of the socket's file
    bool m_raisedAnother = false;
};

/// A private folder for the sockets of running copies: `sparrowfield` in $XDG_RUNTIME_DIR if that
/// is the user's alone, else `running` in the user's data folder. Not made here.
std::filesystem::path RunningCopiesFolder(std::filesystem::path const& userDataFolder);

/// Device and inode of a folder, as a text that is the same however the folder is named; empty if
/// there is none.
std::string FolderIdentity(std::filesystem::path const& folder);
