// Runs the tests of the desktop host on Qt's platform without a screen.

#include "desktop/look.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int count, char** words)
{
    testing::InitGoogleTest(&count, words);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_MEDIA_BACKEND", "ffmpeg"); // as the program does
    QApplication application(count, words);
    SetLook(application);
    return RUN_ALL_TESTS();
}
