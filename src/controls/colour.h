#pragma once
// Colour values that name a colour of the system.

#include "controls/control.h"

/// A plain colour for a colour value: one with the highest bit set and nothing but a number below
/// it names a colour of the system, by the numbers of the platform's own list (0 the scroll bar to
/// 24 the ground of tool tips). They are those of the light look that every host gives the program,
/// whatever the desktop's theme. A number without a colour gives black; of any other value the
/// three lower bytes count.
Colour ResolvedColour(Colour colour);
