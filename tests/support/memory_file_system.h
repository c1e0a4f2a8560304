#pragma once
// A file system in memory that fails on demand.

#include "platform/file_system.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>

/// Files by their names, which match ignoring case. Every call that can fail is counted; the one
/// that FailAt names, and those on files that are marked unreadable or lie below a path that is
/// marked unwritable, fail.
class MemoryFileSystem final : public FileSystem {
public:
    Text applicationFolder = u"/app";

    void Put(TextView path, std::string bytes)
    {
        m_files[ToLowerLatin(path)] = { Text(path), std::move(bytes) };
    }
    void Remove(TextView path) { m_files.erase(ToLowerLatin(path)); }
    void MakeUnreadable(TextView path) { m_unreadable.insert(ToLowerLatin(path)); }
    /// Reading the file throws, as where there is no memory for it.
    void RunOutOfMemoryAt(TextView path) { m_tooLarge = ToLowerLatin(path); }
    /// Whether the file is there can't be told, until MakeVisible.
    void MakeInvisible(TextView path) { m_invisible.insert(ToLowerLatin(path)); }
    void MakeVisible(TextView path) { m_invisible.erase(ToLowerLatin(path)); }
    void RemoveFolder(TextView path) { m_folders.erase(ToLowerLatin(path)); }
    /// The `call`-th call from now on (1: the next one) fails; 0 for none.
    void FailAt(int call) { m_failAt = call == 0 ? 0 : m_calls + call; }
    /// While set, every call that can fail does.
    bool failing = false;
    /// While set, nothing whose path begins with it can be written, renamed, made or deleted.
    Text unwritable;
    int Calls() const { return m_calls; }
    /// The bytes of a file; empty if there is none.
    std::string Bytes(TextView path) const
    {
        auto const found = m_files.find(ToLowerLatin(path));
        return found == m_files.end() ? std::string() : found->second.bytes;
    }

    Presence LookFor(TextView path) const override
    {
        if (m_invisible.contains(ToLowerLatin(path)))
            return Presence::Unknown;
        return m_files.contains(ToLowerLatin(path)) ? Presence::There : Presence::Absent;
    }
    bool FolderExists(TextView path) const override
    {
        return m_folders.contains(ToLowerLatin(path));
    }
    Outcome<std::uint64_t> FileSize(TextView path) const override
    {
        auto const file = Find(path);
        return file ? Outcome<std::uint64_t>((*file)->bytes.size()) : file.failure();
    }
    Outcome<std::unique_ptr<InputFile>> Open(TextView path) const override
    {
        auto const file = Find(path);
        if (!file)
            return file.failure();
        return std::unique_ptr<InputFile>(
            std::make_unique<Reader>(*this, (*file)->name, (*file)->bytes));
    }
    Outcome<std::string> ReadAll(TextView path, std::uint64_t atMost = largestWhole) const override
    {
        auto const file = Find(path);
        if (file && (*file)->bytes.size() > atMost)
            return Failure { Text(path), 0, u"it is too large" };
        return file ? Outcome<std::string>((*file)->bytes) : file.failure();
    }
    Outcome<Done> Write(TextView path, std::string_view bytes) override
    {
        if (FailsAt(path))
            return Failure { Text(path), 0, u"it can't be written" };
        Put(path, std::string(bytes));
        return Done {};
    }
    Outcome<bool> Create(TextView path, std::string_view bytes) override
    {
        if (LookFor(path) != Presence::Absent)
            return false;
        auto const written = Write(path, bytes);
        return written ? Outcome<bool>(true) : written.failure();
    }
    Outcome<Done> WriteTemporary(TextView path, std::string_view bytes) override
    {
        return Write(path, bytes);
    }
    Outcome<Done> SetAside(TextView path) override
    {
        auto const found = m_files.find(ToLowerLatin(path));
        if (FailsAt(path) || found == m_files.end())
            return Failure { Text(path), 0, u"it can't be renamed" };
        Put(Text(path) + u".aside", found->second.bytes);
        Remove(path);
        m_unreadable.erase(ToLowerLatin(path));
        m_invisible.erase(ToLowerLatin(path));
        return Done {};
    }
    Outcome<Done> CreateFolder(TextView path) override
    {
        if (FailsAt(path))
            return Failure { Text(path), 0, u"it can't be made" };
        m_folders.insert(ToLowerLatin(path));
        return Done {};
    }
    Outcome<Done> Delete(TextView path) override
    {
        if (FailsAt(path) || !FileExists(path))
            return Failure { Text(path), 0, u"it can't be deleted" };
        Remove(path);
        return Done {};
    }
    std::vector<Text> List(TextView pattern) const override
    {
        std::vector<Text> names;
        auto const folder = pattern.rfind(u'\\') + 1; // 0 without one
        for (auto const& [key, file] : m_files)
            if (key.find_last_of(u"\\/") + 1 == folder && Matches(key, ToLowerLatin(pattern)))
                names.push_back(file.name.substr(folder));
        return names;
    }
    Text ApplicationFolder() const override { return applicationFolder; }
    Text TemporaryFolder() const override { return u"C:\\Temp"; }
    Text TemporaryName() override { return u"tmp" + FromNumber(++m_names); }

private:
    struct File {
        Text name;
        std::string bytes;
    };

    /// Reads a few bytes at a time, so that a failure can come in the middle of a file.
    class Reader final : public InputFile {
    public:
        Reader(MemoryFileSystem const& files, Text name, std::string bytes)
            : m_files(files)
            , m_name(std::move(name))
            , m_bytes(std::move(bytes))
        {
        }
        Outcome<std::size_t> Read(std::span<char> block) override
        {
            if (m_files.Fails())
                return Failure { m_name, 0, u"it can't be read" };
            auto const size = std::min({ block.size(), m_bytes.size() - m_at, std::size_t { 64 } });
            std::memcpy(block.data(), m_bytes.data() + m_at, size);
            m_at += size;
            return size;
        }

    private:
        MemoryFileSystem const& m_files;
        Text m_name;
        std::string m_bytes;
        std::size_t m_at = 0;
    };

    bool Fails() const { return ++m_calls == m_failAt || failing; }
    bool FailsAt(TextView path) const
    {
        return Fails() || (!unwritable.empty() && path.starts_with(unwritable));
    }

    Outcome<File const*> Find(TextView path) const
    {
        auto const found = m_files.find(ToLowerLatin(path));
        if (found == m_files.end())
            return Failure { Text(path), 0, u"the file doesn't exist" };
        if (Fails() || m_unreadable.contains(found->first))
            return Failure { Text(path), 0, u"it can't be read" };
        if (found->first == m_tooLarge)
            throw std::bad_alloc();
        return &found->second;
    }

    static bool Matches(TextView name, TextView pattern)
    {
        auto const star = pattern.find(u'*');
        if (star == TextView::npos)
            return name == pattern;
        return name.size() + 1 >= pattern.size() && name.starts_with(pattern.substr(0, star))
            && name.ends_with(pattern.substr(star + 1));
    }

    std::map<Text, File> m_files;
    std::set<Text> m_folders { u"c:\\temp", u"c:\\program files" };
    std::set<Text> m_unreadable, m_invisible;
    Text m_tooLarge;
    mutable int m_calls = 0;
    int m_failAt = 0;
    int m_names = 0;
};
