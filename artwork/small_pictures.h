#pragma once
// Pictures of a few pixels: trees, pointers, the size grip, the icons.

#include <QPainter>

void PaintLampPicture(QPainter& painter); ///< 35 x 21
void PaintFolder(QPainter& painter); ///< 16 x 16
void PaintOpenFolder(QPainter& painter); ///< 16 x 16
void PaintSmallBook(QPainter& painter); ///< 16 x 16
void PaintLessonDot(QPainter& painter); ///< 16 x 16
void PaintStudyTriangle(QPainter& painter); ///< 16 x 16
void PaintHand(QPainter& painter); ///< 32 x 32, its finger tip at (5, 0)
void PaintPanArrows(QPainter& painter); ///< 32 x 32, arrows in four directions from (16, 16)
void PaintGrip(QPainter& painter); ///< 14 x 15
void PaintIcon(QPainter& painter); ///< 64 x 64, the program
void PaintMapIcon(QPainter& painter); ///< 64 x 64, the map window
