#pragma once
// The large pictures of the dark kind: start-up screen, grounds of the main screens, logo, and the
// sill that the film uses too.

#include <QPainter>

void PaintSplash(QPainter& painter); ///< 800 x 600, the five choices in a black strip at its foot
void PaintCatalogueGround(QPainter& painter); ///< 700 x 600, black at its right and lower edge
void PaintLessonGround(QPainter& painter); ///< 700 x 600, the same
void PaintReaderGround(QPainter& painter); ///< 628 x 558, the same
void PaintLogo(QPainter& painter); ///< 314 x 97, clear around it

/// The country at daybreak, seen over a window sill with lamp and book: 800 x 528. `flicker` sways
/// the lamp's flame and light.
void PaintSill(QPainter& painter, qreal flicker);
/// The sparrow and the two lines of the name, centred on a point; `size` is that of the large line
/// in pixels.
void PaintName(QPainter& painter, QPointF const& centre, qreal size);
