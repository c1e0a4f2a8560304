#include "study/answer_store.h"

#include "study/answer_keys.h"
#include "study/study_key.h"

#include <algorithm>

AnswerStore::Key AnswerStore::PageKey(TextView section, int page)
{
    return { Text(section), AnswerKey(page) };
}

Text AnswerStore::SectionOf(
    TextView studyKey, std::function<bool(TextView file)> const& isThere) const
{
    auto const page
        = m_settings.Read(studyKey, currentPageKey); // which every lesson that was shown has
    if (!page || *page)
        return Text(studyKey);
    auto const sections = m_settings.Sections();
    if (!sections || std::find(sections->begin(), sections->end(), studyKey) != sections->end())
        return Text(studyKey);
    std::vector<Text> alike;
    for (Text const& section : *sections)
        if (ToLower(section) == ToLower(studyKey) && !isThere(SplitStudyKey(section).fileName))
            alike.push_back(section);
    return alike.size() == 1 ? alike.front() : Text(studyKey);
}

Outcome<Text> AnswerStore::Read(Key const& key) const
{
    auto value = m_settings.Read(key.first, key.second);
    if (!value)
        return value.failure();
    return value->value_or(Text());
}

Outcome<Done> AnswerStore::Write(Key const& key, TextView text)
{
    return m_settings.Write(key.first, key.second, text);
}

/// The answer that couldn't be read before stays in front of the new text, if it can be read now.
Outcome<std::optional<Text>> AnswerStore::Rescue(Key const& key, TextView)
{
    auto stored = Read(key);
    if (!stored)
        return stored.failure();
    return std::optional(*std::move(stored));
}

void AnswerStore::Restore(Key const& key, TextView text)
{
    auto const stored = m_settings.Read(key.first, key.second);
    if (text.empty() && stored && !*stored)
        static_cast<void>(
            m_settings.WriteAll({ { key.first, key.second, {} } }, SettingsStore::Existing::Stays));
}

void AnswerStore::RestoreInNewStore()
{
    static_cast<void>(m_texts.FinishTyped());
    std::vector<SettingsStore::Entry> entries;
    for (auto const& [key, text] : m_known)
        if (!text.empty())
            entries.push_back({ key.first, key.second, text });
    static_cast<void>(m_settings.WriteAll(entries, SettingsStore::Existing::Stays));
    static_cast<void>(RetryPending());
}

Text AnswerStore::CurrentPage(TextView section) const
{
    auto const page = m_settings.Read(section, currentPageKey);
    return page && *page ? **page : Text(u"1");
}

void AnswerStore::SetCurrentPage(TextView section, TextView page)
{
    static_cast<void>(m_settings.Write(section, currentPageKey, page));
}

/// Puts a text that isn't stored yet among what is stored.
static void Enter(std::vector<SettingsStore::Entry>& stored, PendingText const& pending)
{
    auto const& [section, key] = pending.key;
    auto const isThis = [&key = key](auto const& entry) { return entry.key == key; };
    auto const found = std::find_if(stored.begin(), stored.end(), isThis);
    if (found == stored.end())
        stored.push_back({ section, key, pending.text });
    else
        found->value = pending.FullText(found->value);
}

/// True for an answer with more than white space in it.
static bool HoldsWords(SettingsStore::Entry const& entry)
{
    return IsAnswerKey(entry.key) && entry.value.find_first_not_of(u" \t\r\n") != Text::npos;
}

LessonProgress AnswerStore::ProgressOf(TextView section) const
{
    auto const stored = m_settings.InSection(section);
    auto entries = stored ? *stored : std::vector<SettingsStore::Entry>();
    for (PendingText const& pending : m_texts.Pending())
        if (pending.key.first == section)
            Enter(entries, pending);
    LessonProgress progress;
    for (auto const& entry : entries)
        if (entry.key == currentPageKey)
            progress.lastPage = ToInteger(entry.value);
        else
            progress.answered += HoldsWords(entry);
    if (progress.lastPage < 1)
        progress.lastPage.reset();
    return progress;
}

Outcome<std::map<std::int64_t, Text>> AnswerStore::Answers(TextView section, TextView boxText)
{
    static_cast<void>(m_texts.FinishTyped());
    auto entries = m_settings.InSection(section);
    if (!entries)
        return entries.failure();
    for (PendingText const& pending : m_texts.Unstored(boxText))
        if (pending.key.first == section)
            Enter(*entries, pending);
    std::map<std::int64_t, Text> answers;
    for (auto& entry : *entries)
        if (auto const page = PageOf(entry.key))
            answers[*page] = std::move(entry.value);
    return answers;
}

Outcome<Done> AnswerStore::DeleteLesson(TextView section, TextView text)
{
    static_cast<void>(m_texts.FinishTyped());
    auto const deleted = m_settings.DeleteSection(section, [&](auto all) {
        for (PendingText const& pending : m_texts.Unstored(text))
            if (pending.key.first == section)
                Enter(all, pending);
        bool const holdWords = std::any_of(all.begin(), all.end(), HoldsWords);
        return holdWords ? all : std::vector<SettingsStore::Entry>();
    });
    if (!deleted)
        return deleted;
    m_texts.Forget([&](Key const& key) { return key.first == section; });
    std::erase_if(m_known, [&](auto const& entry) { return entry.first.first == section; });
    return Done();
}
