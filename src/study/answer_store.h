#pragma once
// The user's answers and the page where he stopped, kept in the settings store in the section of
// the lesson. It knows the box in which an answer is typed: what stands in it is stored when it is
// left, unless the user has left it as it was filled. No answer is lost when the store fails: what
// can't be stored is kept here and tried again, and what couldn't be read is never overwritten
// unseen. Keys and rules stand in docs/formats/answers.md. The program's other settings are
// platform/settings.h's work.

#include "base/failure.h"
#include "base/text.h"
#include "platform/settings_store.h"
#include "platform/writer.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <utility>

/// What is done in one part of a lesson.
struct LessonProgress {
    int answered = 0; ///< pages with an answer of more than white space
    std::optional<std::int64_t> lastPage; ///< the page last shown; nothing if none is stored
};

class AnswerStore {
public:
    /// Both outlive the store. What is asked of `settings` comes behind what `writer` was given
    /// before.
    AnswerStore(SettingsStore& settings, Writer& writer)
        : m_settings(settings)
        , m_writer(writer)
    {
    }

    /// The section in which the answers of a lesson lie: the study key itself, or, where nothing is
    /// stored under it, the only section that differs from it in letter case alone and whose own
    /// study file `isThere` doesn't find.
    Text SectionOf(TextView studyKey, std::function<bool(TextView file)> const& isThere) const;

    /// The text for the box of a page, counted from 1, with CR LF line ends: one that waits to be
    /// stored, else the stored answer; empty if there is neither or it can't be read. It becomes
    /// the base of the box. A stored answer that couldn't be read stays whole: any text is stored
    /// behind it, as a paragraph of its own, until Fill has been able to show it.
    Text Fill(TextView section, int page);
    /// From here on there is no box: what is left, saved or typed goes nowhere.
    void ForgetBox() { m_box.reset(); }

    /// The user leaves the box with this text. It is stored and becomes the base; but if it equals
    /// the base, what is stored stays, be it another copy's, and a missing answer becomes an empty
    /// one. All that waits is tried again. Gives the failure that the user is to be told: the first
    /// one since nothing waited.
    std::optional<Failure> Leave(TextView text);
    /// The same for a text that is stored whatever the base is, and any failure.
    std::optional<Failure> Save(TextView text);

    /// Hands a text that is being typed to the writer, by the rule of Leave, but waits for nothing.
    /// To be asked again as long as that isn't over.
    TypedOutcome QueueTyped(TextView text);

    /// Tries to store all that waits. Gives the first failure.
    std::optional<Failure> RetryPending();

    /// The store was begun anew: all answers that were shown or stored in this run are filled in
    /// where it has none. Fails silently.
    void FillAnew();

    /// The page to resume at, as it was stored; "1" if there is none or it can't be read.
    Text CurrentPage(TextView section) const;
    /// Fails silently.
    void SetCurrentPage(TextView section, TextView page);

    /// By what is stored and what waits to be stored. What can't be read counts as missing.
    LessonProgress ProgressOf(TextView section) const;

    /// Removes all answers and the page of a lesson, waiting ones included; the base of the box
    /// becomes empty. If there are any words among them, or in the box, which shows `text`, all
    /// goes into a backup first. Gives the failure, for the user, if that can't be done; then
    /// everything is as before.
    std::optional<Failure> DeleteLesson(TextView section, TextView text);

private:
    using Key = std::pair<Text, Text>; // section and key of the store
    struct Box {
        Key key;
        Text base;
    };
    /// A text on its way into the store.
    struct Storing {
        Key key;
        Text text;
        bool isBehindUnseen; // the stored answer couldn't be shown
        std::optional<Text> unseen; // that answer, if it is known
        std::optional<Failure> failure;
    };

    static Key PageKey(TextView section, int page);
    static void Write(SettingsStore& settings, Storing& storing);
    Outcome<Text> Stored(Key const& key) const;
    Text Shown(Key const& key);
    Storing StoringOf(Key const& key) const;
    void Finish(Storing const& storing);
    std::optional<Failure> Collect();
    std::optional<Failure> ToBeTold(std::optional<Failure> failure);
    std::optional<Failure> StoreBox(TextView text);
    void EnterIfMissing(Key const& key);
    std::map<Key, Text> PendingWithBox(TextView boxText) const;
    std::vector<SettingsStore::Entry> WithNewer(std::vector<SettingsStore::Entry> stored,
        TextView section, std::map<Key, Text> const& newer) const;

    SettingsStore& m_settings;
    Writer& m_writer;
    std::optional<Box> m_box;
    std::map<Key, Text> m_pending; // what was typed and isn't known to be stored
    // answers that couldn't be shown; their text as soon as it is known
    std::map<Key, std::optional<Text>> m_unseen;
    std::deque<Storing> m_typed; // in the writer's hands
    std::map<Key, Text> m_known; // what the store has given or taken in this run
    bool m_told = false;
};
