#include "platform/edited_texts.h"

#include <algorithm>

Text PendingText::FullText(TextView unread) const
{
    TextView const first = before ? TextView(*before) : unread;
    TextView const between = first.empty() || text.empty() ? u"" : u"\r\n";
    return Text(first).append(between).append(text);
}

Text EditedTexts::Fill(Key const& key)
{
    static_cast<void>(FinishTyped());
    m_box = Box { key, WithLineEnds(Shown(key)) };
    return m_box->base;
}

Text EditedTexts::Shown(Key const& key)
{
    if (auto const found = m_pending.find(key); found != m_pending.end()) {
        auto pending = PendingOf(key, found->second);
        Rescue(pending);
        if (pending.before) {
            found->second = pending.FullText({});
            m_unread.erase(key);
        }
        return found->second;
    }
    auto stored = m_storage.Read(key);
    if (!stored) {
        m_unread[key].reset();
        return {};
    }
    m_unread.erase(key);
    m_storage.Stored(key, *stored);
    return *std::move(stored);
}

std::optional<Failure> EditedTexts::Leave(TextView text, bool tell)
{
    static_cast<void>(FinishTyped());
    if (!m_box)
        return std::nullopt;
    if (text != m_box->base || m_pending.contains(m_box->key)) {
        m_pending[m_box->key] = text;
        return ToReport(RetryPending(), tell);
    }
    if (PendingOf(m_box->key, text).before)
        m_storage.Restore(m_box->key, text);
    static_cast<void>(RetryPending());
    return std::nullopt;
}

Outcome<Done> EditedTexts::Save(TextView text)
{
    static_cast<void>(FinishTyped());
    if (!m_box)
        return Done();
    m_pending[m_box->key] = text;
    auto outcome = RetryPending();
    static_cast<void>(ToReport(outcome, true)); // The caller does.
    return outcome;
}

/// The failure, if the user is to be told of it.
std::optional<Failure> EditedTexts::ToReport(Outcome<Done> const& outcome, bool tell)
{
    if (outcome || !tell || std::exchange(m_isReported, true))
        return std::nullopt;
    return outcome.failure();
}

TypedOutcome EditedTexts::QueueTyped(TextView text)
{
    if (!m_writer.IsIdle())
        return { false, {} };
    auto outcome = FinishTyped();
    auto const pending = m_box ? m_pending.find(m_box->key) : m_pending.end();
    if (m_box && text != (pending == m_pending.end() ? m_box->base : pending->second)) {
        m_pending[m_box->key] = text;
        m_typed = PendingOf(m_box->key, text);
        m_writer.Later([this, &typed = *m_typed] { Store(typed); });
        if (m_writer.IsIdle())
            outcome = FinishTyped();
    }
    return { !m_typed, m_typed ? std::nullopt : ToReport(outcome, true) };
}

Outcome<Done> EditedTexts::FinishTyped()
{
    if (!m_typed)
        return Done();
    m_writer.Wait();
    auto const typed = *std::exchange(m_typed, std::nullopt);
    Finish(typed);
    return typed.outcome;
}

PendingText EditedTexts::PendingOf(Key const& key, TextView text) const
{
    auto const unread = m_unread.find(key);
    // Only where memory runs out does a text come back without having been written.
    return { key, Text(text), unread == m_unread.end() ? Text() : unread->second,
        Failure { {}, 0, u"there isn't enough memory" } };
}

/// Rescues the stored text that couldn't be read, if there is one. What comes of it is the outcome.
void EditedTexts::Rescue(PendingText& pending)
{
    pending.outcome = Done();
    if (pending.before)
        return;
    auto rescued = m_storage.Rescue(pending.key, pending.text);
    if (rescued)
        pending.before = *std::move(rescued);
    else
        pending.outcome = rescued.failure();
}

void EditedTexts::Store(PendingText& pending)
{
    Rescue(pending);
    if (pending.before)
        pending.outcome = m_storage.Write(pending.key, pending.FullText({}));
}

/// Once a text is stored, it is the base of its box and no longer pending.
void EditedTexts::Finish(PendingText const& pending)
{
    if (auto const unread = m_unread.find(pending.key); unread != m_unread.end())
        unread->second = pending.before;
    if (!pending.outcome)
        return;
    if (pending.before)
        m_storage.Stored(pending.key, pending.FullText({}));
    if (m_box && m_box->key == pending.key)
        m_box->base = pending.text;
    m_pending.erase(pending.key);
    m_isReported = m_isReported && !m_pending.empty();
}

Outcome<Done> EditedTexts::RetryPending()
{
    static_cast<void>(FinishTyped());
    Outcome<Done> first = Done();
    for (auto next = m_pending.begin(); next != m_pending.end();) {
        auto pending = PendingOf(next->first, next->second);
        ++next;
        Store(pending);
        Finish(pending);
        if (first)
            first = pending.outcome;
    }
    return first;
}

Outcome<Text> EditedTexts::Current(Key const& key, TextView boxText)
{
    static_cast<void>(FinishTyped());
    auto const unstored = Unstored(boxText);
    auto const found = std::ranges::find(unstored, key, &PendingText::key);
    auto stored = m_storage.Read(key);
    if (found != unstored.end())
        return found->FullText(stored ? *stored : Text());
    return stored;
}

std::vector<PendingText> EditedTexts::Pending() const
{
    std::vector<PendingText> pending;
    for (auto const& [key, text] : m_pending)
        pending.push_back(PendingOf(key, text));
    return pending;
}

std::vector<PendingText> EditedTexts::Unstored(TextView boxText) const
{
    auto unstored = Pending();
    if (!m_box || (boxText == m_box->base && !m_pending.contains(m_box->key)))
        return unstored;
    std::erase_if(unstored, [&](auto const& text) { return text.key == m_box->key; });
    unstored.push_back(PendingOf(m_box->key, boxText));
    return unstored;
}

void EditedTexts::Forget(std::function<bool(Key const&)> const& isDeleted)
{
    auto const isOfDeleted = [&](auto const& entry) { return isDeleted(entry.first); };
    std::erase_if(m_pending, isOfDeleted);
    std::erase_if(m_unread, isOfDeleted);
    if (m_box && isDeleted(m_box->key))
        m_box->base.clear();
}
