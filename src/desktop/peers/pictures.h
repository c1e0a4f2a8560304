#pragma once
// Pictures by the names that the forms give them: a file, or ":name" for one of the program's own.

#include "controls/control.h"
#include "platform/file_system.h"

#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QString>

#include <future>
#include <map>
#include <optional>
#include <thread>

class Pictures {
public:
    explicit Pictures(FileSystem const& files); // outlives this object

    /// Decodes the large pictures of the first screens on a thread of its own, in the order in
    /// which they are wanted: this takes longer than all else that the start-up screen waits for.
    void DecodeAhead();
    /// Empty if there is no such picture or it can't be decoded. Only JPEG files are pictures; they
    /// are read at each call. Built-in ones are kept, in the resolution of the finest screen.
    QPixmap Find(TextView name);
    /// An icon of the program's own, such as "icon", in all its sizes.
    QIcon Icon(char const* name) const;
    /// In pixels; nothing if it can't be decoded, or only with too much work (platform/jpeg.h). The
    /// picture of a file is kept for the next call of `Find`.
    std::optional<Size> SizeOf(TextView name);

private:
    QPixmap Load(TextView name);

    FileSystem const& m_files;
    std::map<Text, QPixmap, std::less<>> m_own;
    Text m_heldName;
    QPixmap m_held; // the file that was decoded for its size
    std::map<QString, std::future<QImage>> m_ahead; // by the name of the resource
    std::jthread m_decoder; // the last member, so that it ends first
};

/// The resource of the built-in picture ":name"; empty for any other name.
QString ResourceOf(TextView name);
