#pragma once
// The keys in a lesson's section of the settings store: one for the answer on each page, and one
// for the page where the user stopped (docs/formats/answers.md). The section is the study key
// (study_key.h).

#include "base/text.h"

inline constexpr TextView currentPageKey = u"currentindex";
inline constexpr TextView answerKeyStart = u"Page";

/// The key of the answer on a page, counted from 1.
inline Text AnswerKey(int page)
{
    return Text(answerKeyStart) + FromNumber(page);
}

inline bool IsAnswerKey(TextView key)
{
    return key.starts_with(answerKeyStart);
}

/// The page whose answer has this key; nothing for any other key.
inline std::optional<std::int64_t> PageOf(TextView key)
{
    return IsAnswerKey(key) ? ToInteger(key.substr(answerKeyStart.size())) : std::nullopt;
}
