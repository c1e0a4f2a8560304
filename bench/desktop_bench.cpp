// The desktop program on Qt's offscreen platform: from its start to the painted catalogue, beside
// an empty Qt window in the same run; a lesson with 3,000 verses; the way to the next page; a
// resize step with a lesson as long as the demonstration's longest; the memory in use. Starts
// itself for the times of whole processes.

#include "controls/button.h"
#include "controls/rich_text_box.h"
#include "desktop.h"

#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

static constexpr int verses = 3000, bibleVerses = 31'000, pages = 30, starts = 9;
// the longest lesson of the demonstration disc has that many lines of verses
static constexpr int demonstrationVerses = 160;

namespace {

/// A study of one lesson; `name` without "-1.dat", the passages in "V-<name>".
void WriteStudy(std::string const& name, int verseCount)
{
    std::ofstream study(name + "-1.dat", std::ios::binary);
    study << name << ": A study\r\nA description.\r\nThe lesson\r\n-\r\n>1\r\nIntroduction\r\n";
    for (int page = 1; page <= pages; ++page)
        study
            << page
            << ". A question of some length, so that it takes more than a line on the page?/And a "
               "second paragraph.\r\n[Answer]\r\n";
    study << "- Congratulations\r\n" << name << "\r\nshort\r\n";
    std::ofstream main("V-" + name, std::ios::binary);
    main << ">1\r\n";
    for (int verse = 0; verse < verseCount; ++verse) {
        if (verse % 30 == 0)
            main << "Psalms " << verse / 30 + 1 << "\r\n";
        main << verse % 30 + 1
             << " In those days there was a verse of the usual length, which went on for a little "
                "more than a line of text.\r\n";
    }
}

void WriteDisc()
{
    WriteStudy("bench", verses);
    WriteStudy("usual", demonstrationVerses);
    WriteStudy("whole", bibleVerses);
    std::ofstream("V-short", std::ios::binary)
        << ">1\r\nJohn 3:16\r\n16 For God so loved the world.\r\n";
}

/// A process of its own: shows its window and tells when it is painted.
int Start(bool empty)
{
    QWidget window;
    std::unique_ptr<Bench> bench;
    if (empty) {
        window.showMaximized();
    } else {
        SetLook(*qApp);
        bench = std::make_unique<Bench>();
        bench->program.Start(bench->settings.OpeningReport());
    }
    ServeAll();
    std::puts("painted");
    std::fflush(stdout);
    _exit(0);
}

double TimeOfStart(char const* role)
{
    auto const start = Clock::now();
    std::FILE* const child = popen(
        (fs::read_symlink("/proc/self/exe").string() + " " + role + " 2>/dev/null").c_str(), "r");
    char line[32] = "";
    if (!child || !std::fgets(line, sizeof line, child) || std::strcmp(line, "painted\n") != 0)
        std::abort();
    double const time = MillisecondsSince(start);
    pclose(child);
    return time;
}

/// A person drags the border: each step is a size of the window, and the layout and the panels
/// follow.
void MeasureResize(Form& form)
{
    QWidget* window = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->windowTitle() == QString::fromUtf16(form.Caption().c_str()))
            window = each;
    if (!window)
        std::abort();
    // A window that has just come up maximised settles first.
    std::this_thread::sleep_for(std::chrono::seconds(2));
    window->showNormal();
    ServeAll();
    std::vector<double> times;
    for (int step = 0; step < 40; ++step) {
        auto const start = Clock::now();
        window->resize(1900 - 5 * (step % 20), 1000 + 4 * (step % 20));
        ServeAll();
        times.push_back(MillisecondsSince(start));
    }
    if (form.Width < 25000)
        std::abort();
    Print("a resize step of the lesson screen, median", Median(times), "ms", 16);
}

int MeasureUsualLesson()
{
    SetLook(*qApp);
    Bench bench;
    GoToCatalogue(bench);
    auto& tree = bench.Get<TreeView>("frmContents", "TreeView1");
    bench.input.ClickNode(tree, *tree.Find(u"usual-1.dat:1"));
    ServeAll();
    MeasureResize(*bench.program.GetScreen().Find("frmMain"));
    std::fflush(stdout);
    _exit(0);
}

/// Tells when the passages have been painted.
class PaintWatch final : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }
    bool painted = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        painted |= event->type() == QEvent::Paint && watched->parent()
            && watched->parent()->objectName() == QStringLiteral("Text1");
        return false;
    }
};

/// From an act of the user to the painted passages, in milliseconds.
double UntilPainted(std::function<void()> const& act)
{
    PaintWatch watch;
    auto const start = Clock::now();
    act();
    while (!watch.painted)
        QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
    return MillisecondsSince(start);
}

int MeasureLesson()
{
    SetLook(*qApp);
    Bench bench;
    static_cast<void>(bench.settings.DeleteSection(u"bench-1.dat:1", SettingsStore::NoBackup));
    GoToCatalogue(bench);
    auto& tree = bench.Get<TreeView>("frmContents", "TreeView1");
    auto start = Clock::now();
    double const painted
        = UntilPainted([&] { bench.input.ClickNode(tree, *tree.Find(u"bench-1.dat:1")); });
    ServeAll();
    Print("a lesson with 3,000 verses shows its first page", painted, "ms", 60);
    Print("all of it is there", MillisecondsSince(start), "ms", 200);
    if (bench.Get<RichTextBox>("frmMain", "Text1").Length() < verses * 100)
        std::abort();
    auto& answer = bench.Get<RichTextBox>("frmMain", "Text3");
    auto& next = bench.Get<CommandButton>("frmMain", "Command1");
    std::vector<double> times;
    for (int page = 1; page < pages; ++page) {
        bench.input.Edit(answer, u"An answer", 9, 0);
        ServeAll();
        start = Clock::now();
        bench.input.Click(next);
        ServeAll();
        times.push_back(MillisecondsSince(start));
    }
    Print("\"Next >\" to the repainted page, median", Median(times), "ms", 16);
    Print("resident memory with that lesson", ResidentMegabytes(), "MB", 80);
    std::fflush(stdout);
    _exit(0);
}

/// As ServeAll; gives the longest time that an event had to wait, in milliseconds.
double ServeCounting()
{
    auto* const dispatcher = QAbstractEventDispatcher::instance();
    double longest = 0;
    for (bool isBusy = true; isBusy;) {
        auto const step = Clock::now();
        isBusy = dispatcher->processEvents(QEventLoop::AllEvents);
        longest = std::max(longest, MillisecondsSince(step));
    }
    return longest;
}

/// A lesson with the whole Bible: its first page is there long before all of it is, and so is a
/// heading that is clicked at once; and no key waits for the rest.
int MeasureWholeBible(bool clicksHeading)
{
    SetLook(*qApp);
    Bench bench;
    GoToCatalogue(bench);
    auto& tree = bench.Get<TreeView>("frmContents", "TreeView1");
    double const first
        = UntilPainted([&] { bench.input.ClickNode(tree, *tree.Find(u"whole-1.dat:1")); });
    auto& headings = bench.Get<TreeView>("frmMain", "TreeView1");
    auto& last = *headings.Find(u"item" + FromNumber(bibleVerses / 30 + 1));
    if (clicksHeading)
        Print("the last of 31,000 verses, its heading clicked at once",
            UntilPainted([&] { bench.input.ClickNode(headings, last); }), "ms", 100);
    else
        Print("a lesson with 31,000 verses shows its first page", first, "ms", 500);
    auto const start = Clock::now();
    double const longest = ServeCounting();
    Print("all of it is there", MillisecondsSince(start), "ms", 3000);
    Print("the longest that a key waits meanwhile", longest, "ms", clicksHeading ? 50 : 16);
    Print("resident memory with that lesson", ResidentMegabytes(), "MB", 120);
    std::fflush(stdout);
    _exit(0);
}

} // namespace

int main(int count, char** words)
{
    std::string const role = count > 1 ? words[1] : "";
    if (role.empty()) {
        auto const folder
            = fs::temp_directory_path() / ("desktop_bench-" + std::to_string(getpid()));
        fs::create_directories(folder / "user");
        fs::current_path(folder);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        WriteDisc();
        std::vector<double> empty, splash;
        for (int i = 0; i < starts; ++i) {
            empty.push_back(TimeOfStart("empty"));
            splash.push_back(TimeOfStart("splash"));
        }
        std::printf(
            "from start to painted, median: an empty window %.1f ms, the start-up screen %.1f ms\n",
            Median(empty), Median(splash));
        Print("the start-up screen beyond the empty window", Median(splash) - Median(empty), "ms",
            150);
        std::fflush(stdout);
        auto const self = fs::read_symlink("/proc/self/exe").string();
        bool isDone = true;
        for (char const* each : { " usual", " lesson", " bible", " heading" })
            isDone = isDone && std::system((self + each + " 2>/dev/null").c_str()) == 0;
        fs::current_path("/");
        fs::remove_all(folder);
        return isDone ? 0 : 1;
    }
    int one = 1;
    QApplication application(one, words);
    if (role == "bible")
        return MeasureWholeBible(false);
    if (role == "heading")
        return MeasureWholeBible(true);
    if (role == "usual")
        return MeasureUsualLesson();
    return role == "lesson" ? MeasureLesson() : Start(role == "empty");
}
