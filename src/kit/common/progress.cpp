#include "kit/common/progress.h"

#include "platform/posix/console.h"

#include <algorithm>
#include <cstdio>

using namespace std::chrono_literals;

Progress::Progress(std::string title, std::uint64_t total)
    : m_title(std::move(title))
    , m_total(total)
    , m_isTerminal(IsErrorTerminal())
    , m_nextShowing(Clock::now() + 200ms)
{
}

Progress::~Progress()
{
    if (m_isShown)
        std::fputs("\r\x1B[K", stderr);
}

void Progress::At(std::uint64_t done)
{
    if (!m_isTerminal || Clock::now() < m_nextShowing)
        return;
    auto const percent = std::min<std::uint64_t>(100, done * 100 / m_total);
    std::fprintf(stderr, "\r\x1B[K%s %3u %%", m_title.c_str(), static_cast<unsigned>(percent));
    std::fflush(stderr);
    m_isShown = true;
    m_nextShowing = Clock::now() + 100ms;
}
