#pragma once
// The pictures of the light kind, on which dark text stands: dialogs, loading panel, answer window,
// the pages of the reader.

#include <QPainter>

void PaintDialog(QPainter& painter); ///< 613 x 737
void PaintGettingStarted(QPainter& painter); ///< 700 x 842
void PaintAnswer(QPainter& painter); ///< 358 x 640, white at its foot as the window below it
void PaintLoading(QPainter& painter); ///< 282 x 70
void PaintAbout(QPainter& painter); ///< 40 x 30
void PaintPage(QPainter& painter); ///< 256 x 256, a tile that joins itself on all sides
