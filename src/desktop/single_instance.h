#pragma once
// Answers a second start of the program by bringing the running copy to the front.

#include <QObject>

#include <functional>
#include <string>

class QSocketNotifier;
class RunningCopy;

class SingleInstance final : public QObject {
public:
    /// Calls `comeUp` for each start that asks `copy`, as long as `mayComeUp`; after that, starts
    /// aren't answered and run by themselves. `copy` outlives this object.
    SingleInstance(
        RunningCopy& copy, std::function<bool()> mayComeUp, std::function<void()> comeUp);
};

/// A file name that all starts with the same user folder, current directory and display share.
/// Needs an application object.
std::string InstanceName(
    std::string const& userFolderIdentity, std::string const& directoryIdentity);
