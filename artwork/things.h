#pragma once
// The things that return in the pictures, each drawn into a box of its own size, to be moved and
// scaled by the caller.

#include <QPainter>

/// A clay oil lamp with a burning wick, 700 x 420; the flame's heart lies at (118, 110). `flicker`,
/// about 0, sways the flame.
void DrawLamp(QPainter& painter, qreal flicker = 0);
/// The same lamp with few, strong forms, for very small pictures.
void DrawPlainLamp(QPainter& painter);
/// An open book seen from the reader's chair, 800 x 400, lit from the left.
void DrawBook(QPainter& painter);
/// A sparrow perched on a stalk, looking left, 300 x 300. One colour only for a silhouette, else
/// its own.
void DrawSparrow(QPainter& painter);
void DrawSparrowSilhouette(QPainter& painter, QColor const& colour);
/// A flying bird far away, 100 x 40.
void DrawFarBird(QPainter& painter, QColor const& colour);
/// An ear of wheat on its stalk, 60 x 300, leaning by `lean` pixels at its tip.
void DrawWheat(QPainter& painter, QColor const& colour, qreal lean);
