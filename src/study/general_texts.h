#pragma once
// The two texts that all lessons share, in the current directory: introduction.txt, shown with a
// lesson that has no introduction of its own or a short one, and conclusion.txt, its last page.
// Their lines are those of study files (docs/formats/study-files.md).

#include "base/text.h"
#include "base/turns.h"
#include "platform/file_system.h"

#include <functional>
#include <optional>

/// Calls the listener with each line of the general introduction, decoded and with book names
/// expanded. Gives turns as DecodeLine does. A missing file has no lines; one that can't be read to
/// its end has the lines up to there.
void ReadIntroduction(
    FileSystem const& files, Turns& turns, std::function<void(TextView)> const& listener);

/// The conclusion: the last line of its file, decoded, book names expanded; empty for an empty
/// file. Nothing if the file is missing or can't be read to its end.
std::optional<Text> ReadConclusion(FileSystem const& files, Turns& turns);
