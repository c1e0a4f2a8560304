#pragma once
// The publisher's answer to a page, and what the user sees when he asks for it.

#include "base/text.h"

/// The answer to a page for which the study file has none.
inline constexpr TextView answersVary = u"Answers will vary.";

/// True if the publisher leaves the answer to the user: it says "answers will vary", with a small
/// or a capital first letter.
bool LeavesAnswerToUser(TextView answer);

/// Shown when the user asks for the publisher's answer, or wants to go on, before he has written
/// his own.
inline constexpr TextView askForAnswer
    = u"Please enter your answer in the text box provided.\r\n\r\n";

/// The publisher's answer as it is shown: each of its paragraphs (split at "/") with two line ends
/// after it. If it leaves the answer to the user, an encouragement takes its place.
Text ModelAnswer(TextView answer);
