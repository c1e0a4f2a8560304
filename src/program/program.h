#pragma once
// The whole program: every form, wired to the others and to what they need of the machine.

#include "bible/chapter_notes.h"
#include "catalogue/frmContents.h"
#include "controls/screen.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmFinalExam.h"
#include "dialogs/frmGettingStarted.h"
#include "dialogs/frmSplash.h"
#include "dialogs/frmVideo.h"
#include "dialogs/frmWelcome.h"
#include "lesson/frmAnswer.h"
#include "lesson/frmMain.h"
#include "maps/frmMap.h"
#include "platform/file_system.h"
#include "platform/ordered_settings_store.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "platform/writer.h"
#include "reader/frmBible.h"
#include "study/answer_store.h"

#include <optional>

/// In twips: on a usable screen of this size every window can be seen whole. The start-up screen is
/// the largest.
inline constexpr Size roomForAllWindows { 11910, 8925 };

class Program {
public:
    /// All outlive the program. `writer` stores what is typed.
    Program(Host& host, FileSystem& files, SettingsStore& settings, Writer& writer, Shell& shell);

    Screen& GetScreen() { return m_screen; }

    /// Shows the first screen and, as a message, what was wrong with the user's data when it was
    /// opened.
    void Start(std::optional<Failure> const& report);

    /// Memory ran out in the middle of something: stores what is typed, and tells the user.
    void ReportOutOfMemory();

    /// Closes what is still open, and tries once more to store what couldn't be stored.
    void Finish();

private:
    void ReportStore();
    void TextSizeStepped();

    Screen m_screen;
    OrderedSettingsStore m_settings;
    AnswerStore m_answers;
    ChapterNotes m_notes;
    frmVideo m_video;
    frmWelcome m_welcome;
    frmGettingStarted m_gettingStarted;
    frmFinalExam m_finalExam;
    frmAbout m_about;
    frmSplash m_splash;
    frmBible m_reader;
    frmMap m_map;
    frmAnswer m_answerForm;
    frmMain m_lesson;
    frmContents m_catalogue;
};
