#include "setup/copy_plan.h"

#include "setup/setup_fixture.h"
#include "setup/size_text.h"

#include <sys/stat.h>

namespace fs = std::filesystem;

using CopyPlanTest = SetupTest;

static std::string Dump(Outcome<CopyPlan> const& plan, fs::path const& disc)
{
    if (!plan)
        return ToUtf8(plan.failure().Message());
    std::string dump;
    for (auto const& folder : plan->folders)
        dump += folder.string() + "/ ";
    for (auto const& file : plan->files)
        dump += file.from.lexically_relative(disc).string() + ">" + file.to.string()
            + (file.isProgram ? "*" : "") + ":" + std::to_string(file.size) + " ";
    return dump + "= " + std::to_string(plan->bytes);
}

TEST_F(CopyPlanTest, TakesFilesAndFoldersOfTheDiscAndNothingElse)
{
    Put(folder / "outside", "outside");
    fs::create_directory(folder / "outside folder");
    Put(disc / ".new-left", "left");
    Put(disc / ".hidden", "1");
    Put(disc / "sparrowfield.exe", "another");
    fs::create_symlink("../outside", disc / "leads out");
    fs::create_symlink(folder / "outside folder", disc / "leads to a folder outside");
    fs::create_symlink(".", disc / "kjv/circle");
    fs::create_symlink("nowhere", disc / "leads nowhere");
    fs::create_symlink("kjv1", disc / "kjv/within");
    mkfifo((disc / "pipe").c_str(), 0600);
    EXPECT_EQ(Dump(PlanCopy(disc), disc),
        "kjv/ kjv/deep/ .hidden>.hidden:1 Setup.exe>Setup.exe*:5 kjv/deep/empty>kjv/deep/empty:0 "
        "kjv/kjv1>kjv/kjv1:2500000 kjv/kjv1>kjv/within:2500000 sparrowfield>sparrowfield.exe*:7 "
        "= 5000013");

    fs::remove(disc / "sparrowfield");
    EXPECT_NE(
        Dump(PlanCopy(disc), disc).find("sparrowfield.exe>sparrowfield.exe*:7"), std::string::npos)
        << "a copy of an installed folder is as good a disc";
}

TEST_F(CopyPlanTest, FailsOnWhatIsNoDiscOrCantBeRead)
{
    EXPECT_EQ(Dump(PlanCopy(folder / "data"), disc),
        (folder
            / "data/sparrowfield: the program is missing; please start Setup.exe from the disc.")
            .string());
    fs::permissions(disc / "kjv", fs::perms { 0 });
    EXPECT_TRUE(AsPlainUser(
        [&] { return Dump(PlanCopy(disc), disc) == (disc / "kjv: permission denied.").string(); }));
    fs::permissions(disc / "kjv", fs::perms { 0755 });
}

TEST(SizeText, IsCutOffToWhatAPersonReads)
{
    struct {
        std::uint64_t bytes;
        TextView text;
    } const rows[] = { { 0, u"0 KB" }, { 999, u"0.9 KB" }, { 4'000'000, u"4 MB" },
        { 9'999'999, u"9.9 MB" }, { 999'999'999, u"999 MB" }, { 1'000'000'000, u"1 GB" },
        { 17'400'000'000, u"17 GB" }, { ~std::uint64_t { 0 }, u"18446 PB" } };
    for (auto const& row : rows)
        EXPECT_EQ(ToUtf8(SizeText(row.bytes)), ToUtf8(row.text));
}
