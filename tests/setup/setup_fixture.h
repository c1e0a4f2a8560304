#pragma once
// A small disc and a user's data in a folder of their own.

#include "platform/posix/posix_fixture.h"
#include "setup/copy_list.h"
#include "setup/install.h"

#include <map>

class SetupTest : public HostTest {
protected:
    SetupTest()
    {
        namespace fs = std::filesystem;
        for (auto const& below : { "disc/kjv/deep", "data home/sparrowfield" })
            fs::create_directories(folder / below);
        Put(disc / "sparrowfield", "program");
        Put(disc / "Setup.exe", "setup");
        Put(disc / "kjv/kjv1", std::string(2'500'000, 'k'));
        Put(disc / "kjv/deep/empty", "");
        for (auto const* program : { "sparrowfield", "Setup.exe" })
            fs::permissions(disc / program, fs::perms { 0555 });
    }

    CopyPlan Plan() const
    {
        auto const plan = PlanCopy(disc);
        EXPECT_TRUE(plan) << (plan ? "" : ToUtf8(plan.failure().Message()));
        return plan ? *plan : CopyPlan();
    }
    Outcome<SetupReport> InstallAll() const
    {
        return Install(places, Plan(), [](CopyProgress const&) { return true; });
    }
    /// An older copy of other files.
    void PutOldCopy() const
    {
        std::filesystem::create_directories(places.target / "old folder");
        Put(places.target / "sparrowfield.exe", "old program");
        Put(places.target / "old folder/old", "old");
    }

    /// Everything below a folder: a file's bytes, a link's target, "/" for a folder.
    static std::map<std::string, std::string> Tree(std::filesystem::path const& of)
    {
        std::map<std::string, std::string> tree;
        for (auto const& entry : std::filesystem::recursive_directory_iterator(of)) {
            auto const name = entry.path().lexically_relative(of).string();
            if (entry.is_symlink())
                tree[name] = "-> " + std::filesystem::read_symlink(entry.path()).string();
            else
                tree[name] = entry.is_directory() ? "/" : Bytes(entry.path());
        }
        return tree;
    }
    /// What a complete installation has in its folder.
    std::map<std::string, std::string> WholeCopy() const
    {
        auto tree = Tree(disc);
        tree[copyListName] = Bytes(places.target / copyListName);
        auto node = tree.extract("sparrowfield");
        node.key() = "sparrowfield.exe";
        tree.insert(std::move(node));
        return tree;
    }

    std::filesystem::path const disc = folder / "disc";
    std::filesystem::path const user = folder / "data home/sparrowfield";
    SetupPlaces const places = FindPlaces(disc, user);
    std::filesystem::path const house = places.target.parent_path();
};
