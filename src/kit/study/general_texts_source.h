#pragma once
// The general texts of a disc, introduction.txt and conclusion.txt, from a readable source
// (docs/formats/study-source.md, "General texts").

#include "kit/common/faults.h"
#include "kit/common/files.h"

#include <string>
#include <string_view>

/// Both files of a source; none if there are faults. `file` is the name of the source in them.
OutputFiles WriteGeneralTexts(
    std::string_view bytes, std::string const& file, bool isPlain, Faults& faults);
