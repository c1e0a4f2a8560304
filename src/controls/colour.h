#pragma once
// Colour values that name a colour of the system.

#include "controls/control.h"

/// A plain colour for a colour value. 0x80000000 plus a number from 0 (the scroll bar) to 24 (the
/// ground of tool tips) names a colour of the system, always that of the light look; a higher
/// number gives black. Of any other value the three lower bytes count.
Colour ResolvedColour(Colour colour);
