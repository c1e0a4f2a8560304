#include "dialogs/frmGettingStarted.h"

frmGettingStarted::frmGettingStarted(Screen& screen)
    : LongTextDialog(screen,
        { "frmGettingStarted", u"Getting Started", { 9900, 8205 }, { 165, 255, 9570, 7320 },
            { 8895, 7755, 840, 315 }, gettingStartedText })
{
    Picture = u":getting-started";
    RichTextBox1.FontName = u"Arial";
}
