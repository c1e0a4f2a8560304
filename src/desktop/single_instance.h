#pragma once
// Answers a second start of the program as an ordinary event, so that the copy that runs comes up
// instead of another.

#include <QObject>

#include <functional>
#include <string>

class QSocketNotifier;
class RunningCopy;

class SingleInstance final : public QObject {
public:
    /// Answers, while this object lives, the starts that ask `copy`. `mayComeUp` is false when the
    /// program is about to end: then nothing is answered any more, and the start runs by itself.
    /// Else `comeUp` runs. Both, and `copy`, outlive this object.
    SingleInstance(
        RunningCopy& copy, std::function<bool()> mayComeUp, std::function<void()> comeUp);
};

/// What all starts with the same user folder, current directory and display have in common, as a
/// name for a file. Qt's platform must be up.
std::string InstanceName(
    std::string const& userFolderIdentity, std::string const& directoryIdentity);
