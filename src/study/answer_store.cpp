#include "study/answer_store.h"

/// Both texts, the one behind the other as a paragraph of its own.
static Text Joined(TextView first, TextView second)
{
    TextView const between = first.empty() || second.empty() ? u"" : u"\r\n";
    return Text(first).append(between).append(second);
}

AnswerStore::Key AnswerStore::PageKey(TextView studyKey, int page)
{
    return { Text(studyKey), u"Page" + FromNumber(page) };
}

Outcome<Text> AnswerStore::Stored(Key const& key) const
{
    auto value = m_settings.Read(key.first, key.second);
    if (!value)
        return value.failure();
    return value->value_or(Text());
}

Text AnswerStore::Answer(TextView studyKey, int page)
{
    auto const key = PageKey(studyKey, page);
    auto const pending = m_pending.find(key);
    bool const waits = pending != m_pending.end();
    if (waits && !m_unseen.contains(key))
        return pending->second;
    auto const stored = Stored(key);
    if (!stored) {
        m_unseen.try_emplace(key);
        return waits ? pending->second : Text();
    }
    auto const unseen = m_unseen.extract(key);
    if (!waits)
        return *stored;
    // What is stored may hold an earlier form of the waiting text already; what was there before it
    // doesn't.
    pending->second = Joined(unseen.mapped().value_or(*stored), pending->second);
    return pending->second;
}

std::optional<Failure> AnswerStore::StoreAnswer(TextView studyKey, int page, TextView text)
{
    auto const key = PageKey(studyKey, page);
    auto const unseen = m_unseen.find(key);
    if (text.empty() && unseen != m_unseen.end() && !unseen->second) {
        m_pending.erase(key);
        return std::nullopt;
    }
    m_pending[key] = text;
    // Where the text at hand can't be stored, neither can the others, and each try may take the
    // store's patience.
    auto failure = Store(key);
    if (!failure)
        failure = RetryPending();
    bool const tell = failure && !m_told;
    m_told = failure.has_value();
    return tell ? failure : std::nullopt;
}

std::optional<Failure> AnswerStore::RetryPending()
{
    std::optional<Failure> first;
    for (auto next = m_pending.begin(); next != m_pending.end();) {
        auto const key = (next++)->first;
        auto failure = Store(key);
        if (failure && !first)
            first = std::move(failure);
    }
    return first;
}

/// Stores a waiting text, which then waits no longer.
std::optional<Failure> AnswerStore::Store(Key const& key)
{
    auto const pending = m_pending.find(key);
    Text text = pending->second;
    if (auto const unseen = m_unseen.find(key); unseen != m_unseen.end()) {
        if (!unseen->second) {
            auto const stored = Stored(key);
            if (!stored)
                return stored.failure();
            unseen->second = *stored;
        }
        text = Joined(*unseen->second, text);
    }
    auto const written = m_settings.Write(key.first, key.second, text);
    if (!written)
        return written.failure();
    m_pending.erase(pending);
    return std::nullopt;
}

Text AnswerStore::CurrentPage(TextView studyKey) const
{
    auto const page = m_settings.Read(studyKey, u"currentindex");
    return page && *page ? **page : Text(u"1");
}

void AnswerStore::SetCurrentPage(TextView studyKey, TextView page)
{
    static_cast<void>(m_settings.Write(studyKey, u"currentindex", page));
}

std::optional<Failure> AnswerStore::DeleteLesson(TextView studyKey)
{
    auto const deleted = m_settings.DeleteSection(studyKey);
    if (!deleted)
        return deleted.failure();
    auto const ofLesson = [&](auto const& entry) { return entry.first.first == studyKey; };
    std::erase_if(m_pending, ofLesson);
    std::erase_if(m_unseen, ofLesson);
    return std::nullopt;
}
