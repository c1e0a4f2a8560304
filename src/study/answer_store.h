#pragma once
// The user's answers and the page where he stopped, in the settings store under the section of the
// lesson. How the text in the answer box is kept, even if the store fails, is the work of
// platform/edited_texts.h; keys and rules are in docs/formats/answers.md. The program's other
// settings are platform/settings.h's work.

#include "base/failure.h"
#include "base/text.h"
#include "platform/edited_texts.h"
#include "platform/settings_store.h"
#include "platform/writer.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

/// What is done in one part of a lesson.
struct LessonProgress {
    int answered = 0; ///< pages with an answer of more than white space
    std::optional<std::int64_t> lastPage; ///< the page last shown; nothing if none is stored
};

class AnswerStore : private TextStorage {
public:
    /// Both outlive the store. What is asked of `settings` comes after what `writer` was given
    /// before.
    AnswerStore(SettingsStore& settings, Writer& writer)
        : m_settings(settings)
        , m_texts(*this, writer)
    {
    }

    /// The section with the answers of a lesson: the study key itself or, where nothing is stored
    /// under it, the only section that differs from it in letter case alone and whose own study
    /// file `isThere` doesn't find.
    Text SectionOf(TextView studyKey, std::function<bool(TextView file)> const& isThere) const;

    /// The text for the box of a page, counted from 1. After an answer that couldn't be read, what
    /// is typed is stored as a paragraph of its own, until Fill has been able to show both.
    Text Fill(TextView section, int page) { return m_texts.Fill(PageKey(section, page)); }

    // As in EditedTexts. Where the base is empty and there is no answer, Leave enters an empty one.
    void ForgetBox() { m_texts.ForgetBox(); }
    std::optional<Failure> Leave(TextView text) { return m_texts.Leave(text, true); }
    Outcome<Done> Save(TextView text) { return m_texts.Save(text); }
    TypedOutcome QueueTyped(TextView text) { return m_texts.QueueTyped(text); }
    Outcome<Done> RetryPending() { return m_texts.RetryPending(); }

    /// The store was begun anew: all answers that were shown or stored in this run are filled in
    /// where it has none. Fails silently.
    void RestoreInNewStore();

    /// The page to resume at, as it was stored; "1" if there is none or it can't be read.
    Text CurrentPage(TextView section) const;
    /// Fails silently.
    void SetCurrentPage(TextView section, TextView page);

    /// By what is stored and what waits to be stored. What can't be read counts as missing.
    LessonProgress ProgressOf(TextView section) const;

    /// The answers of a lesson by their pages, as Fill would give them, where the box shows
    /// `boxText`. Fails if they can't be read.
    Outcome<std::map<std::int64_t, Text>> Answers(TextView section, TextView boxText);

    /// Removes all answers and the page of a lesson, pending ones included; the base of the box
    /// becomes empty. If there are any words among them, or in the box, which shows `text`, all is
    /// backed up first. If that can't be done, everything is as before.
    Outcome<Done> DeleteLesson(TextView section, TextView text);

private:
    static Key PageKey(TextView section, int page);

    Outcome<Text> Read(Key const& key) const override;
    Outcome<Done> Write(Key const& key, TextView text) override;
    Outcome<std::optional<Text>> Rescue(Key const& key, TextView text) override;
    void Restore(Key const& key, TextView text) override;
    void Stored(Key const& key, TextView text) override { m_known[key] = text; }

    SettingsStore& m_settings;
    EditedTexts m_texts;
    std::map<Key, Text> m_known; // what the store was known to hold in this run
};
