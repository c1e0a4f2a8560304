#pragma once
// Turns of the event loop: long work gives them to the host, which shows the forms. A turn costs
// one decrement while nothing is due; the host decides what happens in a due turn.

#include <cstdint>
#include <functional>
#include <limits>
#include <utility>

/// An inline countdown: the host sets the number of turns after which it wants to be called.
class Turns {
public:
    using Count = std::uint64_t;
    static constexpr Count never = std::numeric_limits<Count>::max();

    Turns() = default;
    /// `due` runs inside the turn that completes the armed count. It may arm the count again; if it
    /// doesn't, no further turn is due.
    explicit Turns(std::function<void()> due)
        : m_due(std::move(due))
    {
    }

    /// Calls the host in the `count`-th turn from now (1: the next one); `never` for none.
    void Arm(Count count)
    {
        m_given += m_armed - m_left;
        m_armed = m_left = count;
    }

    /// How many turns can be given from now on, the due one included: the size of a block for
    /// GiveMany. At least 1.
    Count UntilDue() const { return m_left; }

    /// Gives one turn.
    void Give() { GiveMany(1); }

    /// Gives `count` turns at once, at most UntilDue(); the last one may be the due one.
    void GiveMany(Count count)
    {
        m_left -= count;
        if (m_left == 0)
            Due();
    }

    /// All turns given so far.
    Count Given() const { return m_given + (m_armed - m_left); }

private:
    void Due()
    {
        Arm(never);
        if (m_due)
            m_due();
    }

    std::function<void()> m_due;
    Count m_left = never;
    Count m_armed = never;
    Count m_given = 0;
};
