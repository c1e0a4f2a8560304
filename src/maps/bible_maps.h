#pragma once
// The nine maps: their menu entries, their titles and their files.

#include "base/text.h"

struct BibleMap {
    int number; ///< 1 to 9, which names the file
    char const* menuEntry;
    TextView title; ///< of the viewer's window
};

inline constexpr BibleMap bibleMaps[] = {
    { 1, "mnuOptionsMapOne", u"The Biblical World of the Patriarchs" },
    { 2, "mnuOptionsMapTwo", u"The Exodus Route and Conquest of Canaan" },
    { 3, "mnuOptionsMapThree", u"The Twelve Tribes of Israel" },
    { 4, "mnuOptionsMapFour", u"The Divided Kingdoms of Israel and Judah" },
    { 5, "mnuOptionsMapFive", u"Palestine in the Time of Christ" },
    { 6, "mnuOptionsMapSix", u"Old Testament Jerusalem" },
    { 7, "mnuOptionsMapSeven", u"New Testament Jerusalem" },
    { 8, "mnuOptionsMapEight", u"The Ministry of Jesus" },
    { 9, "mnuOptionsMapNine", u"The Missionary Journeys of Paul" },
};

/// The file of a map, in the current directory.
inline Text MapFile(int number)
{
    return u"map" + FromNumber(number) + u".jpg";
}
