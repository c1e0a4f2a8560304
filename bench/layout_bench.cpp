// The lesson screen without a screen: a resize step with its panels at 1920x1080, and the repaint
// of all five panels at 3840x2160 beside the filling of the same pixels. The arrangement of a map
// in its viewer.

#include "controls/input.h"
#include "controls/xp_container.h"
#include "headless/headless_host.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/sqlite_settings_store.h"
#include "program/program.h"
#include "ratios.h"
#include "support/pictures.h"
#include "support/test_folder.h"

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

constexpr double repaintAtMost = 3; // times its floor
constexpr double stepAtMost = 8; // milliseconds
constexpr double mapAtMost = 0.02; // milliseconds

/// The lesson screen, maximised on a screen of this size, with a lesson of some pages and passages.
struct Bench {
    explicit Bench(Size pixels)
        : host(files, pixels)
    {
        static_cast<void>(settings.Write(u"Parameters", u"showhelp", u"false"));
        program.Start({});
        input.KeyPress(*screen.Find("frmSplash"), u' ');
        auto& tree = dynamic_cast<TreeView&>(*screen.Find("frmContents")->FindControl("TreeView1"));
        input.ClickNode(tree, *tree.Find(u"bench-1.dat:1"));
    }

    Form& Lesson() { return *screen.Find("frmMain"); }
    std::vector<XPContainer const*> Panels()
    {
        std::vector<XPContainer const*> panels;
        for (Control const* control : Lesson().Controls())
            if (auto const* const panel = dynamic_cast<XPContainer const*>(control))
                panels.push_back(panel);
        return panels;
    }

    PosixFileSystem files { { "/", fs::absolute("user/drive_c") } };
    SqliteSettingsStore settings { fs::absolute("user/settings.db") };
    InlineWriter writer;
    PosixShell shell;
    HeadlessHost host;
    Program program { host, files, settings, writer, shell };
    Screen& screen = program.GetScreen();
    Input input { screen };
};

void Repaint(benchmark::State& state)
{
    Bench bench({ 3840, 2160 });
    for (auto _ : state)
        for (auto const* const panel : bench.Panels())
            benchmark::DoNotOptimize(panel->Surface().Pixels().data());
}

void RepaintFloor(benchmark::State& state)
{
    Bench bench({ 3840, 2160 });
    for (auto _ : state)
        for (auto const* const panel : bench.Panels()) {
            std::vector<Colour> pixels(static_cast<std::size_t>(Pixels(panel->Width))
                    * static_cast<std::size_t>(Pixels(panel->Height)),
                panel->BackLightColor);
            benchmark::DoNotOptimize(pixels.data());
        }
}

void ResizeStep(benchmark::State& state)
{
    Bench bench({ 1920, 1080 });
    bench.input.ChangeState(bench.Lesson(), FormState::Normal);
    float step = 0;
    for (auto _ : state) {
        step = step > 1500 ? 0 : step + 15;
        bench.input.Resize(bench.Lesson(), 1900 * 15 - step, 1000 * 15 + step);
        for (auto const* const panel : bench.Panels())
            benchmark::DoNotOptimize(panel->Surface().Pixels().data());
    }
}

void ArrangeMapView(benchmark::State& state)
{
    Bench bench({ 1920, 1080 });
    bench.input.Click(*bench.Lesson().FindControl("mnuOptionsMapOne"));
    Form& viewer = *bench.screen.Find("frmMap");
    bench.input.ChangeState(viewer, FormState::Normal);
    float step = 0;
    for (auto _ : state) {
        step = step > 1500 ? 0 : step + 15;
        viewer.Resized(1900 * 15 - step, 1000 * 15 + step, FormState::Normal);
    }
    auto const& across = dynamic_cast<HScrollBar&>(*viewer.FindControl("HScroll1"));
    if (!across.Visible || across.Max < 400)
        state.SkipWithError("the map isn't there");
}

void WriteDisc()
{
    std::ofstream("map1.jpg") << JpegHead(2300, 1667);
    std::ofstream("bench-1.dat")
        << "Bench: A study\nA description.\nThe lesson\n-\n>1\nIntroduction\n1. A question\n"
           "[Answer]\n- Congratulations\nBench\nBench\n";
    std::ofstream("V-Bench") << ">1\nJohn 3:16\n16 For God so loved the world.\n";
}

} // namespace

int main(int count, char** arguments)
{
    TestFolder const folder;
    fs::current_path(folder.Path());
    fs::create_directory("user");
    WriteDisc();
    RegisterShort("five panels at 3840x2160", Repaint);
    RegisterShort("five panels at 3840x2160, floor", RepaintFloor);
    RegisterShort("a resize step at 1920x1080", ResizeStep);
    RegisterShort("a map is arranged", ArrangeMapView);
    benchmark::Initialize(&count, arguments);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio(
        "five panels at 3840x2160", "five panels at 3840x2160, floor", repaintAtMost);
    reporter.PrintTime("a resize step at 1920x1080", stepAtMost);
    reporter.PrintTime("a map is arranged", mapAtMost);
}
