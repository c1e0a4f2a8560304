// Runs the tests of the desktop host on Qt's platform without a screen.

#include "desktop/look.h"

#include <QApplication>
#include <gtest/gtest.h>

#ifdef __SANITIZE_ADDRESS__
/// The player's codecs, which aren't ours, lose a few bytes with each damaged video.
extern "C" char const* __lsan_default_suppressions();
char const* __lsan_default_suppressions()
{
    return "leak:libavutil\n";
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
