#pragma once
// A writer with a thread of its own.

#include "platform/writer.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

class BackgroundWriter final : public Writer {
public:
    BackgroundWriter();
    /// Waits for all work.
    ~BackgroundWriter() override;
    BackgroundWriter(BackgroundWriter const&) = delete;
    BackgroundWriter& operator=(BackgroundWriter const&) = delete;

    void Later(std::function<void()> work) override;
    bool IsIdle() const override;
    void Wait() override;

private:
    void Run();
    bool HasWork() const { return !m_queue.empty() || m_isWorking; }

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_queue;
    bool m_isWorking = false;
    bool m_isEnding = false;
    std::thread m_thread; // made last: it uses all the others
};
