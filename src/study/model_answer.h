#pragma once
// What the user gets to read when he asks for the publisher's answer.

#include "base/text.h"

/// Said when he asks for an answer, or wants to go on, without having written one.
inline constexpr TextView askForAnswer
    = u"Please enter your answer in the text box provided.\r\n\r\n";

/// The publisher's answer as shown: its paragraphs (at "/") each followed by two line ends; where
/// it leaves the answer to the user, an encouragement in its place.
Text ModelAnswer(TextView answer);
