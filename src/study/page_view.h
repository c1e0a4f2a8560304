#pragma once
// How a page of a lesson stands on the screen: "<label>. <text>", paragraphs of the text at "/"
// (docs/formats/study-files.md).

#include "base/text.h"

/// All up to and including the first full stop; empty without one, and for "." alone, which stands
/// for no label.
TextView PageLabel(TextView page);

/// All behind the first blank (without a blank the whole page), its paragraphs trimmed and each
/// followed by two line ends; empty if nothing stands there.
Text PageText(TextView page);
