#pragma once
// One part of a lesson as a section of a document.

#include "documents/document.h"

#include <cstdint>
#include <map>
#include <optional>

struct LessonHeading {
    Text number; ///< of the lesson, as its key gives it
    Text partWord; ///< "One" or "Two"
    Text title;
    std::optional<Text> secondTitle;
};

/// The user's answers by the numbers of their pages, counted from 1.
using OwnAnswers = std::map<std::int64_t, Text>;

struct DocumentChoice {
    bool withOpenQuestions = false; ///< also questions without an answer
    bool withPublisher = false; ///< with the publisher's answers
};

/// Page n and the publisher's answer to it have index n - 1. Answers to pages that the lesson lacks
/// come as well. The last page, if it asks nothing, is left out unless there is an answer. Where
/// the publisher leaves the answer to the user, there is none of the publisher's.
DocumentSection BuildLessonSection(LessonHeading const& heading, std::vector<Text> const& pages,
    std::vector<Text> const& publisher, OwnAnswers const& own, DocumentChoice choice);
