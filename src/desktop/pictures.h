#pragma once
// Pictures by the names that the forms give them: a file, or ":name" for one of the program's own.

#include "controls/control.h"
#include "platform/file_system.h"

#include <QIcon>
#include <QPixmap>
#include <QString>

#include <map>
#include <optional>

class Pictures {
public:
    explicit Pictures(FileSystem const& files); // outlives this object

    /// Empty if there is no such picture or it can't be decoded. The program's own come in the
    /// resolution that the finest screen can show and are kept; a file is read at each call.
    QPixmap Find(TextView name);
    /// The program's icon in all its sizes.
    QIcon const& ProgramIcon();
    /// In pixels, from the picture's head alone; nothing for what is no picture, and for one that
    /// claims to need more than `largestBytes` of memory.
    std::optional<Size> SizeOf(TextView name) const;

    static constexpr std::int64_t largestBytes = std::int64_t { 512 } << 20;

private:
    QPixmap Load(TextView name) const;

    FileSystem const& m_files;
    std::map<Text, QPixmap, std::less<>> m_own;
    QIcon m_programIcon;
};

/// Where the program's own picture ":name" lies among the resources; empty for any other name.
QString ResourceOf(TextView name);
