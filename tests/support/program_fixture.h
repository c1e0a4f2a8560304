#pragma once
// The whole program on the headless host, driven as a person drives it. Controls are named
// "frmMain.Text3"; an action that a person couldn't take fails the test.

#include "controls/button.h"
#include "controls/input.h"
#include "controls/label.h"
#include "controls/rich_text_box.h"
#include "headless/headless_host.h"
#include "headless/keyboard.h"
#include "program/program.h"
#include "support/held_writer.h"
#include "support/memory_file_system.h"
#include "support/memory_settings_store.h"
#include "support/memory_shell.h"

#include <gmock/gmock.h>

#include <string>

/// A lesson file's lines; the bench writes them with CR LF.
using Lines = std::vector<std::string>;

class ProgramFixture {
public:
    MemoryFileSystem files;
    MemorySettingsStore settings;
    HeadlessHost host { files };
    HeldWriter writer;
    MemoryShell shell;
    Program program { host, files, settings, writer, shell };
    Screen& screen = program.GetScreen();
    Input input { screen };

    void PutLines(TextView name, Lines const& lines)
    {
        std::string bytes;
        for (auto const& line : lines)
            bytes += line + "\r\n";
        files.Put(name, bytes);
    }

    Form& FormOf(std::string_view path) { return *screen.Find(path.substr(0, path.find('.'))); }

    template <class Kind = Control> Kind& Get(std::string_view path)
    {
        Control* const control = FormOf(path).FindControl(path.substr(path.find('.') + 1));
        EXPECT_NE(control, nullptr) << path;
        return dynamic_cast<Kind&>(*control);
    }

    void Click(std::string_view path) { EXPECT_EQ(input.Click(Get(path)), "") << path; }
    void Node(std::string_view path, TextView key)
    {
        auto& tree = Get<TreeView>(path);
        ASSERT_NE(tree.Find(key), nullptr) << ToUtf8(key);
        EXPECT_EQ(input.ClickNode(tree, *tree.Find(key)), "") << path;
    }
    void Write(std::string_view path, TextView text)
    {
        EXPECT_EQ(Type(input, Get<TextInput>(path), text), "") << path;
    }
    Text TextOf(std::string_view path) { return Get<TextInput>(path).Text(); }
    Text CaptionOf(std::string_view path)
    {
        return std::get<Text>(Get(path).FindProperty("Caption")->Get());
    }
    bool IsOpen(std::string_view form) { return FormOf(form).IsLoaded() && FormOf(form).Visible; }

    /// Starts the program and leaves the start-up screen for the catalogue.
    void Start()
    {
        program.Start({});
        EXPECT_EQ(input.KeyPress(FormOf("frmSplash"), u' '), "");
    }

    /// Opens a part of a lesson from the catalogue, and answers the welcome dialog if it comes.
    void Open(TextView studyKey)
    {
        host.serveModal = [this](Form& form) { EXPECT_EQ(input.Close(form), ""); };
        if (!IsOpen("frmContents"))
            Start();
        Node("frmContents.TreeView1", studyKey);
    }
    void GoTo(int page)
    {
        EXPECT_EQ(input.DragThumb(Get<ScrollBar>("frmMain.ctlScrollbar"), page, true), "");
    }
    /// The texts of the message boxes since the last call.
    std::vector<std::string> Messages()
    {
        std::vector<std::string> texts;
        for (auto& message : host.TakeMessages())
            texts.push_back(ToUtf8(message.text));
        return texts;
    }
};

/// A bench with a study of two lessons in two parts, its verse files and the general texts.
class StudyTest : public testing::Test, protected ProgramFixture {
protected:
    StudyTest() { PutStudy(); }

    void PutStudy()
    {
        PutLines(u"james-1.dat", partOne);
        PutLines(u"james-2.dat",
            { "James: A Working Faith", "Dropped.", "Faith Under Trial", "Hearing", "-", ">1",
                "Short intro", "1. Only page", "- Well done. Congratulations on the lesson",
                "James1", "James1s", ">2", "Intro", "1. Page", "-", "James1", "James1s" });
        PutLines(u"V-James1",
            { ">1", "James 1:1", "1 James, a servant of God.", "12 Blessed is the man.", "1a", ">2",
                "James 2:1", "1 My brethren." });
        PutLines(u"V-James1s", { ">1", "^Jn. 3:16", "16 For God so loved." });
        PutLines(u"introduction.txt", { "General, see Rom. 8.", "", "!afd" });
        PutLines(u"conclusion.txt", { "dropped", "The end./Go on." });
    }

    Lines const partOne = { "James: A Working Faith ", "Two lessons./For one reader.",
        "Faith Under Trial/James 1/more", "Hearing", "-", ">1",
        "Faith/^Read Jn. twice./Then take the first question, and take your time with every one "
        "of the verses that are named in it, for they "
        "were chosen with care.",
        "1. Who wrote this?/Look at the greeting.", "[James, a servant./Of God.]", "# remark",
        "2. How will you use it?", "xx", "Blankless", "[Some Answers will vary here]", ". No label",
        "-", "^James1", "James1s", ">2", "Own", "1. Page", "-", "James1", "James1s" };
};
