#pragma once
// Texts that the user edits in a box, one at a time, and that aren't lost when the disk fails. What
// they are, and where they are stored, is said by a TextStorage. The rules:
//
// - The box has a base: the text that it was filled with or, after a store, the text last stored
//   from it. Leaving the box stores its text, unless that equals the base: then what is stored
//   stays, even if another copy of the program has changed it.
// - A text that is being typed is stored by a Writer, so that no key waits for the disk.
// - A text that can't be stored is pending: Fill gives it as if it had been stored, and each later
//   store tries it again. The user is told once, and again only after everything was stored.
// - A stored text that couldn't be read is never overwritten unseen: before another text takes its
//   place, the storage rescues it.
//
// For example, the disk is full while the user types "Grace" on page 1. Leave gives the failure to
// tell him, Fill of page 1 still gives "Grace", and the Leave of page 2 stores it once there is
// space.

#include "base/failure.h"
#include "base/text.h"
#include "platform/writer.h"

#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

/// Where the texts are stored. `Write` and `Rescue` may run on the writer's thread.
class TextStorage {
public:
    /// A section of the store and a key in it; or a path, and nothing.
    using Key = std::pair<Text, Text>;

    /// The stored text; empty if there is none.
    virtual Outcome<Text> Read(Key const& key) const = 0;
    virtual Outcome<Done> Write(Key const& key, TextView text) = 0;
    /// Saves a stored text that couldn't be read, before `text` is written in its place. Gives the
    /// part of it that is to be written before `text`, as a paragraph of its own; nothing if `text`
    /// isn't to be written at all.
    virtual Outcome<std::optional<Text>> Rescue(Key const& key, TextView text) = 0;
    /// The user has left the box with the text that it was filled with: adds what is missing in the
    /// storage. Fails silently.
    virtual void Restore(Key const& key, TextView text) = 0;
    /// The storage is known to hold this text.
    virtual void Stored(Key const&, TextView) { }

protected:
    ~TextStorage() = default;
};

/// A text that is to be stored.
struct PendingText {
    TextStorage::Key key;
    Text text;
    /// What is to be written before it; nothing while a stored text waits to be rescued.
    std::optional<Text> before;
    Outcome<Done> outcome;

    /// All that is to be written, if `unread` is the stored text that waits to be rescued.
    Text FullText(TextView unread) const;
};

class EditedTexts {
public:
    using Key = TextStorage::Key;

    /// Both outlive this object.
    EditedTexts(TextStorage& storage, Writer& writer)
        : m_storage(storage)
        , m_writer(writer)
    {
    }

    /// The text for the box, with CR LF line ends, which becomes its base: the pending one, else
    /// the stored one; empty if there is neither or it can't be read.
    Text Fill(Key const& key);
    /// From now on there is no box: Leave, Save and QueueTyped do nothing.
    void ForgetBox() { m_box.reset(); }

    /// The user leaves the box with this text. Everything pending is tried again. Gives the failure
    /// to tell the user, if he hasn't been told of one since everything was stored. With `tell`
    /// false he isn't told now, but of the next failure.
    std::optional<Failure> Leave(TextView text, bool tell);
    /// The same for a text that is stored even if it equals the base. Gives any failure.
    Outcome<Done> Save(TextView text);
    /// Hands the text to the writer, by the rule of Leave, but waits for nothing. To be called
    /// again until it is over.
    TypedOutcome QueueTyped(TextView text);
    /// Tries to store everything pending. Gives the first failure.
    Outcome<Done> RetryPending();
    /// Waits until the typed text has been written. Gives its failure.
    Outcome<Done> FinishTyped();

    /// The text as Fill would give it, where the box shows `boxText`. Changes nothing.
    Outcome<Text> Current(Key const& key, TextView boxText);

    /// Everything pending.
    std::vector<PendingText> Pending() const;
    /// Everything pending, and `boxText`, the text in the box, if it has been changed.
    std::vector<PendingText> Unstored(TextView boxText) const;
    /// The texts that `isDeleted` names have been deleted: nothing of them is pending, and the base
    /// of their box is empty.
    void Forget(std::function<bool(Key const&)> const& isDeleted);

private:
    struct Box {
        Key key;
        Text base;
    };

    Text Shown(Key const& key);
    PendingText PendingOf(Key const& key, TextView text) const;
    void Rescue(PendingText& pending);
    void Store(PendingText& pending);
    void Finish(PendingText const& pending);
    std::optional<Failure> ToReport(Outcome<Done> const& outcome, bool tell);

    TextStorage& m_storage;
    Writer& m_writer;
    std::optional<Box> m_box;
    std::map<Key, Text> m_pending;
    // stored texts that couldn't be read; once they have been rescued, with what is to be written
    // before a new text
    std::map<Key, std::optional<Text>> m_unread;
    std::optional<PendingText> m_typed; // handed to the writer
    bool m_isReported = false; // the user knows that something is pending
};
