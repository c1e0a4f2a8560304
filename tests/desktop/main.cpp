// Runs the tests of the desktop host on Qt's platform without a screen.

#include "desktop/look.h"

#include <QApplication>
#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
/// Of libraries that aren't ours: the player's codecs lose a few bytes with each damaged video, the
/// choice of a font for rare characters some with each font.
extern "C" char const* __lsan_default_suppressions();
char const* __lsan_default_suppressions()
{
    return "leak:libavutil\nleak:libfontconfig\n";
}
#endif

int main(int count, char** words)
{
    testing::InitGoogleTest(&count, words);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_MEDIA_BACKEND", "ffmpeg"); // as the program does
    QApplication application(count, words);
    SetLook(application);
    return RUN_ALL_TESTS();
}
