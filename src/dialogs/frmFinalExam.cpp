#include "dialogs/frmFinalExam.h"

frmFinalExam::frmFinalExam(Screen& screen)
    : LongTextDialog(screen,
        { "frmFinalExam", u"The Final Exam", { 9165, 7335 }, { 240, 195, 8670, 6450 },
            { 8145, 6840, 735, 315 }, finalExamText })
{
    Picture = u":dialog";
    inTaskbar = false;
}
