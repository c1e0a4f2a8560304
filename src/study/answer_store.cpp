#include "study/answer_store.h"

#include <algorithm>

/// Both texts, the one behind the other as a paragraph of its own.
static Text Joined(TextView first, TextView second)
{
    TextView const between = first.empty() || second.empty() ? u"" : u"\r\n";
    return Text(first).append(between).append(second);
}

AnswerStore::Key AnswerStore::PageKey(TextView section, int page)
{
    return { Text(section), u"Page" + FromNumber(page) };
}

Text AnswerStore::SectionOf(
    TextView studyKey, std::function<bool(TextView file)> const& isThere) const
{
    auto const page
        = m_settings.Read(studyKey, u"currentindex"); // which every lesson that was shown has
    if (!page || *page)
        return Text(studyKey);
    auto const sections = m_settings.Sections();
    if (!sections || std::find(sections->begin(), sections->end(), studyKey) != sections->end())
        return Text(studyKey);
    std::vector<Text> alike;
    for (Text const& section : *sections)
        if (ToLower(section) == ToLower(studyKey)
            && !isThere(TextView(section).substr(0, section.find(u':'))))
            alike.push_back(section);
    return alike.size() == 1 ? alike.front() : Text(studyKey);
}

Outcome<Text> AnswerStore::Stored(Key const& key) const
{
    auto value = m_settings.Read(key.first, key.second);
    if (!value)
        return value.failure();
    return value->value_or(Text());
}

Text AnswerStore::Fill(TextView section, int page)
{
    Collect();
    auto const key = PageKey(section, page);
    m_box = Box { key, WithLineEnds(Shown(key)) };
    return m_box->base;
}

Text AnswerStore::Shown(Key const& key)
{
    auto const pending = m_pending.find(key);
    bool const waits = pending != m_pending.end();
    if (waits && !m_unseen.contains(key))
        return pending->second;
    auto const stored = Stored(key);
    if (!stored) {
        m_unseen.try_emplace(key);
        return waits ? pending->second : Text();
    }
    m_known[key] = *stored;
    auto const unseen = m_unseen.extract(key);
    if (!waits)
        return *stored;
    // What is stored may hold an earlier form of the waiting text already; what was there before it
    // doesn't.
    pending->second = Joined(unseen.mapped().value_or(*stored), pending->second);
    return pending->second;
}

std::optional<Failure> AnswerStore::Leave(TextView text)
{
    Collect();
    if (!m_box)
        return std::nullopt;
    if (text == m_box->base && !m_pending.contains(m_box->key)) {
        if (text.empty())
            EnterIfMissing(m_box->key);
        static_cast<void>(RetryPending());
        return std::nullopt;
    }
    return ToBeTold(StoreBox(text));
}

/// The first failure since nothing waited.
std::optional<Failure> AnswerStore::ToBeTold(std::optional<Failure> failure)
{
    bool const isNews = failure && !m_told;
    m_told = failure.has_value();
    return isNews ? std::move(failure) : std::nullopt;
}

std::optional<Failure> AnswerStore::Save(TextView text)
{
    Collect();
    if (!m_box)
        return std::nullopt;
    auto failure = StoreBox(text);
    m_told = failure.has_value();
    return failure;
}

std::optional<Failure> AnswerStore::StoreBox(TextView text)
{
    m_pending[m_box->key] = text;
    return RetryPending();
}

/// Fails silently: nothing was typed.
void AnswerStore::EnterIfMissing(Key const& key)
{
    auto const stored = m_settings.Read(key.first, key.second);
    if (stored && !*stored)
        static_cast<void>(
            m_settings.WriteAll({ { key.first, key.second, {} } }, SettingsStore::Existing::Stays));
}

TypedOutcome AnswerStore::QueueTyped(TextView text)
{
    if (!m_writer.IsIdle())
        return { false, {} };
    bool isNews = !m_typed.empty();
    auto failure = Collect();
    auto const pending = m_box ? m_pending.find(m_box->key) : m_pending.end();
    if (m_box && text != (pending == m_pending.end() ? m_box->base : pending->second)) {
        m_pending[m_box->key] = text;
        Storing& storing = m_typed.emplace_back(StoringOf(m_box->key));
        m_writer.Later([&settings = m_settings, &storing] { Write(settings, storing); });
        isNews = m_writer.IsIdle();
        if (isNews)
            failure = Collect();
    }
    return { m_typed.empty(), isNews ? ToBeTold(std::move(failure)) : std::nullopt };
}

/// Takes up what became of the texts that the writer was given, and gives the first failure.
std::optional<Failure> AnswerStore::Collect()
{
    m_writer.Wait();
    std::optional<Failure> first;
    for (Storing const& storing : m_typed) {
        Finish(storing);
        if (storing.failure && !first)
            first = storing.failure;
    }
    m_typed.clear();
    return first;
}

AnswerStore::Storing AnswerStore::StoringOf(Key const& key) const
{
    auto const unseen = m_unseen.find(key);
    bool const isUnseen = unseen != m_unseen.end();
    return { key, m_pending.at(key), isUnseen, isUnseen ? unseen->second : std::nullopt, {} };
}

void AnswerStore::Write(SettingsStore& settings, Storing& storing)
{
    auto const& [section, key] = storing.key;
    Text text = storing.text;
    if (storing.isBehindUnseen) {
        if (!storing.unseen) {
            auto const stored = settings.Read(section, key);
            if (!stored) {
                storing.failure = stored.failure();
                return;
            }
            storing.unseen = stored->value_or(Text());
        }
        text = Joined(*storing.unseen, text);
    }
    auto const written = settings.Write(section, key, text);
    storing.failure = written ? std::nullopt : std::optional(written.failure());
}

/// Takes up what became of a text: stored, it is the base of its box and waits no longer.
void AnswerStore::Finish(Storing const& storing)
{
    if (auto const unseen = m_unseen.find(storing.key); unseen != m_unseen.end() && storing.unseen)
        unseen->second = storing.unseen;
    if (storing.failure)
        return;
    m_known[storing.key] = storing.isBehindUnseen
        ? Joined(storing.unseen.value_or(Text()), storing.text)
        : storing.text;
    if (m_box && m_box->key == storing.key)
        m_box->base = storing.text;
    auto const pending = m_pending.find(storing.key);
    if (pending != m_pending.end() && pending->second == storing.text)
        m_pending.erase(pending);
}

std::optional<Failure> AnswerStore::RetryPending()
{
    Collect();
    std::optional<Failure> first;
    for (auto next = m_pending.begin(); next != m_pending.end();) {
        auto storing = StoringOf((next++)->first);
        Write(m_settings, storing);
        Finish(storing);
        if (storing.failure && !first)
            first = storing.failure;
    }
    return first;
}

void AnswerStore::FillAnew()
{
    static_cast<void>(Collect());
    std::vector<SettingsStore::Entry> entries;
    for (auto const& [key, text] : m_known)
        if (!text.empty())
            entries.push_back({ key.first, key.second, text });
    static_cast<void>(m_settings.WriteAll(entries, SettingsStore::Existing::Stays));
    static_cast<void>(RetryPending());
}

Text AnswerStore::CurrentPage(TextView section) const
{
    auto const page = m_settings.Read(section, u"currentindex");
    return page && *page ? **page : Text(u"1");
}

void AnswerStore::SetCurrentPage(TextView section, TextView page)
{
    static_cast<void>(m_settings.Write(section, u"currentindex", page));
}

/// The texts that wait, and that in the box if it isn't stored.
std::map<AnswerStore::Key, Text> AnswerStore::PendingWithBox(TextView boxText) const
{
    auto newer = m_pending;
    if (m_box && (boxText != m_box->base || newer.contains(m_box->key)))
        newer[m_box->key] = boxText;
    return newer;
}

/// What is stored in a section, with the newer texts in its place.
std::vector<SettingsStore::Entry> AnswerStore::WithNewer(std::vector<SettingsStore::Entry> stored,
    TextView section, std::map<Key, Text> const& newer) const
{
    for (auto const& [key, text] : newer) {
        if (key.first != section)
            continue;
        auto const isThis = [&key = key](auto const& entry) { return entry.key == key.second; };
        auto const found = std::find_if(stored.begin(), stored.end(), isThis);
        auto const unseen = m_unseen.find(key);
        if (found == stored.end())
            stored.push_back({ key.first, key.second, text });
        else if (unseen != m_unseen.end())
            found->value = Joined(unseen->second.value_or(found->value), text);
        else
            found->value = text;
    }
    return stored;
}

/// True for an answer with more than white space in it.
static bool HoldsWords(SettingsStore::Entry const& entry)
{
    return entry.key.starts_with(u"Page")
        && entry.value.find_first_not_of(u" \t\r\n") != Text::npos;
}

LessonProgress AnswerStore::ProgressOf(TextView section) const
{
    auto stored = m_settings.InSection(section);
    LessonProgress progress;
    for (auto const& entry : WithNewer(
             stored ? std::move(*stored) : std::vector<SettingsStore::Entry>(), section, m_pending))
        if (entry.key == u"currentindex")
            progress.lastPage = ToInteger(entry.value);
        else
            progress.answered += HoldsWords(entry);
    if (progress.lastPage < 1)
        progress.lastPage.reset();
    return progress;
}

std::optional<Failure> AnswerStore::DeleteLesson(TextView section, TextView text)
{
    Collect();
    auto const deleted = m_settings.DeleteSection(section, [&](auto const& stored) {
        auto all = WithNewer(stored, section, PendingWithBox(text));
        bool const holdWords = std::any_of(all.begin(), all.end(), HoldsWords);
        return holdWords ? all : std::vector<SettingsStore::Entry>();
    });
    if (!deleted)
        return deleted.failure();
    auto const ofLesson = [&](auto const& entry) { return entry.first.first == section; };
    std::erase_if(m_pending, ofLesson);
    std::erase_if(m_unseen, ofLesson);
    std::erase_if(m_known, ofLesson);
    if (m_box && m_box->key.first == section)
        m_box->base.clear();
    return std::nullopt;
}
