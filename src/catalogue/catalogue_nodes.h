#pragma once
// The nodes of the catalogue's tree: study, lesson, and the two parts of a lesson.

#include "catalogue/study_head.h"
#include "controls/control.h"

#include <cstdint>
#include <vector>

/// The background of the catalogue's tree and of all its nodes.
inline constexpr Colour catalogueBackColor = 0xFCF4EF;

struct CatalogueNode {
    Text key; ///< of a part: its file, ":" and the number of the lesson, and only there with a ":"
    Text parentKey; ///< empty for a study
    Text text;
    std::int16_t image = 0; ///< in the tree's image list, from 1; 0 for none
    bool bold = false;
    Colour backColor = catalogueBackColor;
    Text tag; ///< a study's description
};

/// The nodes of the studies in these files, in the order in which they are to be added. A file that is no study is
/// left out.
std::vector<CatalogueNode> BuildCatalogue(FileSystem const& files, std::vector<Text> const& fileList);
