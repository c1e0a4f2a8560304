#pragma once
// What the browser control is given of a page. A page holds the text of a Bible as it is in its
// file, unescaped, and that file may come from anywhere. The control would open the files that
// markup names, and some markup would keep it busy for hours. So it is given a copy, written anew
// from what is known to be harmless:
//
//     <P>In <i class="a>b">the</i> <img src="/dev/zero">beginning &amp; 1 < 2   becomes
//     <p>In <i>the</i> beginning &amp; 1 &lt; 2
//
// - p, br, b, i, em, strong, u, sup, sub, span, font and a are kept, with these attributes: size
//   (1 to 7), face (Verdana or Arial) and color (a name or #rrggbb) of font, and the name of a. An
//   anchor is closed where it begins.
// - Kept tags are nested at most 16 deep. Deeper ones are dropped, and so are closing tags without
//   an opening one. A p closes the p before it with everything that was opened inside.
// - Any other tag is dropped and its content kept, except for script, style and title: their
//   content is dropped too, if they are closed. Comments and declarations are dropped.
// - A tag ends at its first ">" outside of quotes, provided that it comes before the next "<". A
//   "<" that opens no tag becomes "&lt;".
// - Everything else is text and is copied, entities too. A word of more than 250 characters may be
//   broken after each 250: the control takes time in proportion to the square of a word's length.
// - One html and one body element contain it all.
//
// This takes time in proportion to the page's length, whatever is in it. Filtering a filtered page
// changes nothing.

#include "base/text.h"

#include <string_view>

/// The address of the background picture in a filtered page: the only file that such a page names.
constexpr std::string_view pageBackground = "bg.jpg";

/// The copy for the control. `page` is in code page 1252. `background` is the address of the
/// background as the page's own head writes it: the copy has a background if the first body tag
/// reads exactly `<body background="ADDRESS">`.
Text FilterPage(std::string_view page, std::string_view background);
