#include "platform/posix/background_writer.h"

#include <csignal>

BackgroundWriter::BackgroundWriter()
{
    // Signals are for the thread of the screen.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    m_thread = std::thread([this] { Run(); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

BackgroundWriter::~BackgroundWriter()
{
    {
        std::lock_guard const lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void BackgroundWriter::Later(std::function<void()> work)
{
    {
        std::lock_guard const lock(m_mutex);
        m_queue.push_back(std::move(work));
    }
    m_changed.notify_all();
}

bool BackgroundWriter::IsIdle() const
{
    std::lock_guard const lock(m_mutex);
    return !HasWork();
}

void BackgroundWriter::Wait()
{
    if (std::this_thread::get_id() == m_thread.get_id())
        return;
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !HasWork(); });
}

void BackgroundWriter::Run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_isEnding || !m_queue.empty(); });
        if (m_queue.empty())
            return;
        auto const work = std::move(m_queue.front());
        m_queue.pop_front();
        m_isWorking = true;
        lock.unlock();
        work();
        lock.lock();
        m_isWorking = false;
        m_changed.notify_all();
    }
}
