#pragma once
// Reads a study as its author writes it (docs/formats/study-source.md) into a model, from which
// study_writer.h makes the files.

#include "base/text.h"
#include "kit/bible/bible_texts.h"
#include "kit/common/faults.h"
#include "kit/study/passage.h"
#include "kit/study/source_entries.h"

#include <optional>
#include <string_view>
#include <vector>

/// Texts have "/" between their paragraphs.
struct StudyPage {
    Text label; ///< without its full stop; empty for none
    Text text;
    std::optional<Text> answer;
};

struct PartOfLesson {
    std::optional<Text> introduction;
    std::vector<StudyPage> pages; ///< at least one
    std::optional<Text> closing;
    std::vector<Passage> mainPassages, supplementaryPassages;
};

struct Lesson {
    Text title; ///< with its second title after "/", if it has one
    PartOfLesson parts[2];
};

struct Study {
    Text prefix, title, description;
    std::vector<Lesson> lessons; ///< at least one
};

/// Reads a source. `file` is its name in faults; the passages come from `bible`. Every mistake is a
/// fault; if there is any, no study is given.
std::optional<Study> ReadStudySource(
    std::string_view bytes, std::string const& file, BibleTexts& bible, Faults& faults);
