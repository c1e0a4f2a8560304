#pragma once
// Filters a page for the browser control. A page holds the text of a Bible file unescaped, and that
// file may come from anywhere. The control would open the files that markup names, and some markup
// would keep it busy for hours. So it gets a copy of what is known to be harmless:
//
//     <P>In <i class="a>b">the</i> <img src="/dev/zero">beginning &amp; 1 < 2   becomes
//     <p>In <i>the</i> beginning &amp; 1 &lt; 2
//
// - p, br, b, i, em, strong, u, sup, sub, span, font and a are kept, with these attributes: size
//   (1 to 7), face (Verdana or Arial) and color (a name or #rrggbb) of font, and the name of a. An
//   anchor is closed where it begins.
// - Kept tags are nested at most 16 deep. Deeper ones are dropped, and so are closing tags without
//   an opening one. A p closes the p before it with everything that was opened inside.
// - Any other tag is dropped and its content kept; of script, style and title, if they are closed,
//   the content is dropped too. Comments and declarations are dropped.
// - A tag ends at its first ">" outside of quotes, if that comes before the next "<". A "<" that
//   opens no tag becomes "&lt;".
// - Everything else is text and is copied, entities too. Words of more than 250 characters may be
//   broken (page_words.h).
// - One html and one body element contain it all.
//
// This takes linear time. Filtering a filtered page changes nothing.

#include "base/text.h"

#include <string_view>

/// The address of the background picture in a filtered page: the only file that such a page names.
constexpr std::string_view pageBackground = "bg.jpg";

/// `page` is in code page 1252. The copy has a background if the page's first body tag reads
/// exactly
/// `<body background="ADDRESS">`, where ADDRESS is `background`.
Text FilterPage(std::string_view page, std::string_view background);
