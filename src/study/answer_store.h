#pragma once
// The user's answers and the page where he stopped, kept in the settings store under the study key
// of the lesson. No answer is lost when the store fails: what can't be stored is kept here and
// tried again, and what couldn't be read is never overwritten unseen. The keys stand in
// docs/formats/answers.md. The program's other settings are platform/settings.h's work.

#include "base/failure.h"
#include "base/text.h"
#include "platform/settings_store.h"

#include <map>
#include <optional>
#include <utility>

class AnswerStore {
public:
    /// `settings` outlives the store.
    explicit AnswerStore(SettingsStore& settings)
        : m_settings(settings)
    {
    }

    /// The answer to a page, counted from 1: a text that waits to be stored, else the stored one;
    /// empty if there is neither or it can't be read. A stored answer that couldn't be read stays
    /// whole: an empty text doesn't replace it, and any other is stored behind it, as a paragraph
    /// of its own, until Answer has been able to show it.
    Text Answer(TextView studyKey, int page);

    /// Stores the answer to a page, and with it all that waits. A text that can't be stored waits
    /// here. Gives the failure that the user is to be told: the first one since nothing waited.
    std::optional<Failure> StoreAnswer(TextView studyKey, int page, TextView text);

    /// Tries to store all that waits, for the end of the program. Gives the first failure.
    std::optional<Failure> RetryPending();

    /// The page to resume at, as it was stored; "1" if there is none or it can't be read.
    Text CurrentPage(TextView studyKey) const;
    /// Fails silently.
    void SetCurrentPage(TextView studyKey, TextView page);

    /// Removes all answers and the page of a lesson, waiting ones included. Gives the failure, for
    /// the user, if that can't be done; then everything is as before.
    std::optional<Failure> DeleteLesson(TextView studyKey);

private:
    using Key = std::pair<Text, Text>; // section and key of the store
    static Key PageKey(TextView studyKey, int page);
    Outcome<Text> Stored(Key const& key) const;
    std::optional<Failure> Store(Key const& key);

    SettingsStore& m_settings;
    std::map<Key, Text> m_pending; // what was typed and isn't stored yet
    std::map<Key, std::optional<Text>>
        m_unseen; // answers that couldn't be shown; their text as soon as it is known
    bool m_told = false;
};
