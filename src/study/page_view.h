#pragma once
// The two parts of a lesson's page, "<label>. <text>", as the screen shows them. "/" separates the
// paragraphs of the text (docs/formats/study-files.md).

#include "base/text.h"

/// The page up to and including its first full stop. Empty without one, and if the page begins with
/// it, which means that there is no label.
TextView PageLabel(TextView page);

/// Everything after the first blank, or the whole page without one. Each paragraph is trimmed and
/// has two line ends after it. Empty if there is no text.
Text PageText(TextView page);
