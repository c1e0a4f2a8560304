#pragma once
// The nodes of the catalogue's tree: study, lesson, and the two parts of a lesson.

#include "catalogue/study_head.h"
#include "controls/control.h"

#include <cstdint>
#include <functional>
#include <span>

/// The background of the catalogue's tree and of all its nodes.
inline constexpr Colour catalogueBackColor = 0xFCF4EF;

/// A node as it is to be added; its texts stand only until the next one is built.
struct CatalogueNode {
    TextView key; ///< of a part: its file, ":" and the number of the lesson, and only there with a ":"
    TextView parentKey; ///< empty for a study
    TextView text;
    std::int16_t image = 0; ///< in the tree's image list, from 1; 0 for none
    bool bold = false;
    Colour backColor = catalogueBackColor;
    TextView tag = {}; ///< a study's description
};

/// Builds the nodes of the studies in these files and hands them on in the order in which they are to be added: a node's parent is
/// the node before it or one of that node's ancestors. A file that is no study is left out.
void BuildCatalogue(FileSystem const& files, std::span<Text const> fileList,
    std::function<void(CatalogueNode const&)> const& add);
