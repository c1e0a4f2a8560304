#include "setup/menu_entry.h"

#include "setup/setup_fixture.h"

namespace fs = std::filesystem;

static std::string Line(std::string const& text, std::string const& key)
{
    auto const start = text.find("\n" + key + "=") + 1;
    return text.substr(start, text.find('\n', start) - start);
}

TEST(MenuEntry, QuotesThePathOfTheProgram)
{
    struct {
        char const *folder, *exec, *path;
    } const rows[] = {
        { "/home/ann/Program Files", R"(Exec="/home/ann/Program Files/sparrowfield.exe")",
            "Path=/home/ann/Program Files" },
        { R"(/a"b)", R"(Exec="/a\\"b/sparrowfield.exe")", R"(Path=/a"b)" },
        { "/it's", R"(Exec="/it's/sparrowfield.exe")", "Path=/it's" },
        { "/$HOME/`id`", R"(Exec="/\\$HOME/\\`id\\`/sparrowfield.exe")", "Path=/$HOME/`id`" },
        { R"(/a\b)", R"(Exec="/a\\\\b/sparrowfield.exe")", R"(Path=/a\\b)" },
        { "/100%f", R"(Exec=sh -c "exec ./sparrowfield.exe")", "Path=/100%f" },
        { "/a\nName x\tb", R"(Exec="/a\nName x\tb/sparrowfield.exe")", R"(Path=/a\nName x\tb)" },
    };
    for (auto const& row : rows) {
        auto const entry = MenuEntry(row.folder);
        EXPECT_EQ(Line(entry, "Exec"), row.exec);
        EXPECT_EQ(Line(entry, "Path"), row.path);
        EXPECT_EQ(Line(entry, "Name"), "Name=Sparrowfield Interactive Bible Study");
    }
}

using MenuTest = SetupTest;

TEST_F(MenuTest, APathThatIsNotUtf8GetsNoEntryAndSaysSo)
{
    auto const odd = FindPlaces(disc, folder / "data\xE9" / "sparrowfield");
    auto const report = Install(odd, Plan(), [](CopyProgress const&) { return true; });
    ASSERT_TRUE(report);
    ASSERT_EQ(report->menuFaults.size(), 1U);
    EXPECT_EQ(
        ToUtf8(report->menuFaults[0].reason), "its path isn't UTF-8, so no menu entry was made");
    EXPECT_FALSE(fs::exists(odd.menu));
}

TEST_F(MenuTest, WithoutAnEntryTheInstallationStandsAndTellsWhy)
{
    Put(places.menu, "a file in the folder's place");
    Put(folder / "data home/icons", "and another");
    fs::create_directory(disc / "icons");
    Put(disc / "icons/sparrowfield-32.png", "icon");
    auto const report = InstallAll();
    ASSERT_TRUE(report);
    EXPECT_EQ(Tree(places.target), WholeCopy());
    ASSERT_EQ(report->menuFaults.size(), 2U);
    EXPECT_EQ(ToUtf8(report->menuFaults[0].Message()),
        (folder / "data home/icons: it is not a folder.").string());
    EXPECT_EQ(
        ToUtf8(report->menuFaults[1].Message()), places.menu.string() + ": it is not a folder.");

    auto const removed = Uninstall(places);
    ASSERT_TRUE(removed);
    EXPECT_TRUE(removed->menuFaults.empty()) << "nothing to remove";
}
