#pragma once
// A writer whose work can be held back, and that tells who waited for it.

#include "platform/writer.h"

#include <utility>
#include <vector>

class HeldWriter final : public Writer {
public:
    /// While set, work stays undone until somebody waits for it.
    bool isHolding = false;
    int waits = 0; ///< how often work was waited for

    void Later(std::function<void()> work) override
    {
        m_queue.push_back(std::move(work));
        if (!isHolding)
            Work();
    }
    bool IsIdle() const override { return m_queue.empty(); }
    void Wait() override
    {
        waits += !m_queue.empty();
        Work();
    }

    /// Does what was held back, as if the disk had come to it.
    void Work()
    {
        for (auto& work : std::exchange(m_queue, {}))
            work();
    }

private:
    std::vector<std::function<void()>> m_queue;
};
