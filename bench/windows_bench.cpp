// The Bible reader and the maps on Qt's offscreen platform, with the demonstration disc: from what
// a person does to the painted window, and the memory in use; a long page beside the same in a bare
// browser of Qt's. Takes the folder of the disc.

#include "desktop.h"

#include "base/code_page.h"
#include "controls/media.h"
#include "desktop/peers/convert.h"
#include "maps/bible_maps.h"
#include "reader/frmBible.h"

#include <QTextBrowser>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <unistd.h>

namespace {

constexpr int times = 9, keyEnter = 13;

/// The median of several runs; what `prepare` does isn't counted.
double Measure(std::function<void()> const& prepare, std::function<void()> const& act)
{
    std::vector<double> taken;
    for (int i = 0; i < times; ++i) {
        prepare();
        ServeAll();
        auto const start = Clock::now();
        act();
        ServeAll();
        taken.push_back(MillisecondsSince(start));
    }
    return Median(taken);
}

void LookUp(Bench& bench, TextView reference)
{
    auto& box = bench.Get<TextBox>("frmBible", "txtVerse");
    bench.input.Edit(box, Text(reference), static_cast<int>(reference.size()), 0);
    bench.input.KeyUp(box, keyEnter, 0);
}

void Expect(bool holds)
{
    if (!holds)
        std::abort();
}

/// The page that the reader shows, set once more, and in a browser of the same size that is given
/// it as it is.
void MeasurePage(Bench& bench)
{
    auto& page = bench.Get<WebBrowser>("frmBible", "Text1");
    QTextBrowser* ours = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* const found = window->findChild<QTextBrowser*>(page.Name());
            found && found->isVisible())
            ours = found;
    Expect(ours);
    QTextBrowser bare;
    bare.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    bare.document()->setDefaultFont(ours->document()->defaultFont());
    bare.resize(ours->size());
    bare.show();
    Text const url = page.Url;
    auto const path = url.substr(TextView(u"file://").size());
    auto const html = ToQString(FromCodePage(*bench.files.ReadAll(path)));
    std::vector<double> shown, set;
    for (int i = 0; i < times; ++i) { // by turns: what else the machine does hits both
        auto start = Clock::now();
        page.Navigate(url);
        ServeAll();
        shown.push_back(MillisecondsSince(start));
        start = Clock::now();
        bare.setHtml(html);
        ServeAll();
        set.push_back(MillisecondsSince(start));
    }
    Expect(bare.toPlainText() == ours->toPlainText());
    double const best = *std::min_element(shown.begin(), shown.end()),
                 bareBest = *std::min_element(set.begin(), set.end());
    std::printf(
        "the page of Psalms set and painted, the fastest of %d: %.1f ms, in a bare browser %.1f "
        "ms\n",
        times, best, bareBest);
    Print("the page of Psalms beside the bare browser", best / bareBest, "times", 1.25);
}

void MeasureReader(Bench& bench)
{
    auto& screen = bench.program.GetScreen();
    Form& reader = *screen.Find("frmBible");
    auto const open
        = [&] { bench.input.Click(bench.Get<MenuEntry>("frmContents", "mnuBibleReader")); };
    open();
    ServeAll();
    auto const close = [&] { bench.input.Close(reader); };
    Print("the reader, from the menu to its painted page", Measure(close, open), "ms", 120);
    // The longest chapter of all; a chapter of the usual length; the longest book.
    auto const& page = bench.Get<TextBox>("frmBible", "txtVerse");
    auto const leave = [&] { LookUp(bench, u"Jude 1"); };
    leave();
    Expect(page.Text() == u"Jude 1");
    Print("John 3, from Enter to its painted page",
        Measure(leave, [&] { LookUp(bench, u"John 3"); }), "ms", 10);
    Print("Psalm 119, the longest chapter", Measure(leave, [&] { LookUp(bench, u"Psalms 119"); }),
        "ms", 30);
    Print("the whole of Psalms", Measure(leave, [&] { LookUp(bench, u"Psalms"); }), "ms", 150);
    Expect(page.Text() == u"Psalms");
    MeasurePage(bench);
    Print("resident memory with Psalms on show", ResidentMegabytes(), "MB", 110);
    close();
    ServeAll();
}

void MeasureMaps(Bench& bench)
{
    Form& viewer = *bench.program.GetScreen().Find("frmMap");
    auto const open = [&](int number) {
        bench.input.Click(bench.Get<MenuEntry>("frmContents", bibleMaps[number - 1].menuEntry));
    };
    constexpr int widest = 9; // 2500 pixels
    auto const close = [&] { bench.input.Close(viewer); };
    open(widest);
    ServeAll();
    Print("the widest map, from the menu to the painted window",
        Measure(close, [&] { open(widest); }), "ms", 120);
    Print("the longest map, likewise", Measure(close, [&] { open(8); }), "ms", 120);
    close();
    open(widest);
    ServeAll();
    viewer.ChangeState(FormState::Normal);
    ServeAll();
    viewer.Resized(1920 * 15, 1080 * 15, FormState::Normal);
    QWidget* const window = QApplication::activeWindow();
    Expect(window);
    window->resize(1920, 1080);
    ServeAll();
    auto& across = bench.Get<HScrollBar>("frmMap", "HScroll1");
    auto& down = bench.Get<VScrollBar>("frmMap", "VScroll1");
    auto& map = bench.Get<PictureBox>("frmMap", "Picture2");
    auto& timer = bench.Get<Timer>("frmMap", "Timer1");
    Expect(map.Width == 2500 && across.Visible && down.Visible);
    bench.input.Mouse(map, MouseAction::Down, 900, 700);
    float x = 900, y = 700;
    double const step = Measure(
        [&] {
            x -= 31;
            y -= 17;
            bench.input.Mouse(map, MouseAction::Move, x - map.Left, y - map.Top);
        },
        [&] { bench.input.Fire(timer); });
    Expect(across.Value == 31 * times && down.Value == 17 * times);
    bench.input.Mouse(map, MouseAction::Up, x, y);
    Print("a step of a drag to the repainted map", step, "ms", 8);
    Print("resident memory with a map", ResidentMegabytes(), "MB", 110);
}

} // namespace

int main(int count, char** words)
{
    fs::path const disc = count == 2 ? words[1] : "";
    if (!fs::exists(disc / "map9.jpg") || !fs::exists(disc / "biblekjv.idx")) {
        std::fputs("windows_bench DISC_FOLDER   (packaging/make_disc.sh makes one)\n", stderr);
        return 2;
    }
    auto const folder = fs::temp_directory_path() / ("windows_bench-" + std::to_string(getpid()));
    fs::copy(disc, folder, fs::copy_options::recursive);
    fs::create_directories(folder / "user");
    fs::current_path(folder);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int one = 1;
    QApplication application(one, words);
    SetLook(application);
    {
        Bench bench;
        GoToCatalogue(bench);
        MeasureReader(bench);
        MeasureMaps(bench);
    }
    fs::current_path("/");
    fs::remove_all(folder);
    return 0;
}
