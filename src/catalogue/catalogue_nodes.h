#pragma once
// The nodes of the catalogue's tree: study, lesson, and the two parts of a lesson.

#include "controls/tree_view.h"
#include "platform/file_system.h"

#include <cstddef>
#include <functional>
#include <span>

/// The background of the catalogue's tree and of all its nodes.
inline constexpr Colour catalogueBackColor = 0xFCF4EF;

/// A node as it is to be added; it is valid, with its texts, only until the next one is built.
struct CatalogueNode {
    std::size_t level; ///< 0 for a study, 1 for a lesson, 2 for a part
    /// of a part: its file, ":" and the number of the lesson, and only there with a ":"
    TextParts key;
    TextParts text;
    NodeLook const& look; ///< a study's tag is its description
};
inline constexpr std::size_t catalogueLevels = 3;

/// Builds the nodes of the studies in these files and hands them on in the order in which they are
/// to be added: a node's parent is the last one before it on the level above. A file that isn't a
/// study is left out, and so are lessons after the first 1,000 of a study and the first 50,000 of
/// all.
void BuildCatalogue(FileSystem const& files, std::span<Text const> fileList,
    std::function<void(CatalogueNode const&)> const& add);
