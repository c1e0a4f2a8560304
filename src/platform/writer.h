#pragma once
// Work on files and the settings store that is done in the background, so that a key that
// the user presses never waits for the disk. All work is done in the order in which it was handed
// over.

#include "base/failure.h"

#include <functional>
#include <optional>

class Writer {
public:
    virtual ~Writer() = default;

    /// Does the work later, or at once. It may run on another thread: it uses nothing but files,
    /// the settings store and what its owner leaves alone until IsIdle or Wait has told that it is
    /// done.
    virtual void Later(std::function<void()> work) = 0;
    /// True if all work is done. Never waits.
    virtual bool IsIdle() const = 0;
    /// Returns when all work is done. Called from within the work itself, returns at once.
    virtual void Wait() = 0;
};

/// What came of handing a text that is being typed to a writer.
struct TypedOutcome {
    bool isOver; ///< false while the writer is at work on it, or on something before it
    std::optional<Failure> failure; ///< to be told the user
};

/// A writer that does all work at once, for hosts without a user who could be kept waiting.
class InlineWriter final : public Writer {
public:
    void Later(std::function<void()> work) override { work(); }
    bool IsIdle() const override { return true; }
    void Wait() override { }
};
