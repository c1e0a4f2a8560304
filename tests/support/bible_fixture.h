#pragma once
// The Bible reader in the whole program, over two small translations.

#include "controls/media.h"
#include "controls/tree_view.h"
#include "support/program_fixture.h"

#include <algorithm>
#include <cctype>

/// Each chapter has the verses 1 and 16, of two lines each, which name themselves: "k-John-3:16" in
/// the first translation, "n-..." in the second. The books of the second are others, and so are
/// their numbers.
class BibleFixture : public ProgramFixture {
public:
    static constexpr char const* box = "frmBible.txtVerse";
    static constexpr char const* notes = "frmBible.txtNotes";
    static constexpr char const* tree = "frmBible.TreeView1";

    BibleFixture()
    {
        PutBible(u"kjv", { "Genesis|2", "Job|2", "John|4", "Jude|1", "1 John|2", "..\\Evil|1" });
        PutBible(u"nasb", { "Genesis|2", "John|5", "Jude|1" });
    }

    void PutBible(TextView translation, Lines const& index)
    {
        PutLines(u"/app\\bible" + Text(translation) + u".idx", index);
        for (std::size_t book = 0; book < index.size(); ++book) {
            auto const bar = index[book].find('|');
            auto name = index[book].substr(0, bar);
            std::erase_if(name, [](char character) {
                return !std::isalnum(static_cast<unsigned char>(character));
            });
            Lines lines { name };
            for (int chapter = 1; chapter <= std::stoi(index[book].substr(bar + 1)); ++chapter)
                for (auto const* const verse : { "001", "016" })
                    lines.insert(lines.end(),
                        { "00" + std::to_string(chapter) + ' ' + verse + ' '
                                + static_cast<char>(translation[0]) + '-' + name + '-'
                                + std::to_string(chapter) + ':' + std::to_string(std::stoi(verse)),
                            " more", "" });
            PutLines(u"/app\\" + Text(translation) + u"\\" + Text(translation)
                    + FromNumber(static_cast<int>(book) + 1),
                lines);
        }
    }

    void Store(TextView key, TextView value)
    {
        EXPECT_TRUE(settings.Write(u"biblereader", key, value));
    }
    void OpenReader()
    {
        if (!FormOf("frmContents").IsLoaded())
            Start();
        Click("frmContents.mnuBibleReader");
    }
    void CloseReader() { EXPECT_EQ(input.Close(FormOf("frmBible")), ""); }
    /// The user has changed the text of a box to this one.
    Refusal Change(char const* path, TextView text)
    {
        return input.Edit(Get<TextInput>(path), Text(text), static_cast<int>(text.size()), 0);
    }
    void LookUp(TextView reference)
    {
        EXPECT_EQ(Change(box, reference), "");
        EXPECT_EQ(input.KeyUp(Get(box), 13, 0), "");
    }
    void WriteNote(TextView text) { EXPECT_EQ(Change(notes, text), ""); }
    void Translate(int index)
    {
        EXPECT_EQ(input.Choose(Get<ComboBox>("frmBible.cboVersion"), index), "");
    }

    /// The verses of the page on show.
    std::string Shown()
    {
        auto const page = ToUtf8(host.Html(Get<WebBrowser>("frmBible.Text1")));
        std::string verses;
        for (std::size_t at = 0; at < page.size(); ++at)
            if (auto const size = VerseAt(page, at); size > 0)
                verses += (verses.empty() ? "" : " ") + page.substr(at, size);
        return verses;
    }
    /// The length of a verse's name at a place, such as "k-John-3:16"; 0 if there is none.
    static std::size_t VerseAt(std::string const& page, std::size_t at)
    {
        if (page[at] != 'k' && page[at] != 'n')
            return 0;
        auto const run = [&](std::size_t from, int (*belongs)(int)) {
            return static_cast<std::size_t>(
                std::find_if_not(page.begin() + static_cast<std::ptrdiff_t>(from), page.end(),
                    [belongs](unsigned char c) { return belongs(c) != 0; })
                - page.begin());
        };
        auto const is = [&](std::size_t place, char mark) {
            return place < page.size() && page[place] == mark;
        };
        if (!is(at + 1, '-'))
            return 0;
        auto const name = run(at + 2, [](int c) { return std::isalnum(c); });
        if (name == at + 2 || !is(name, '-'))
            return 0;
        auto const chapter = run(name + 1, [](int c) { return std::isdigit(c); });
        if (chapter == name + 1 || !is(chapter, ':'))
            return 0;
        auto const verse = run(chapter + 1, [](int c) { return std::isdigit(c); });
        return verse == chapter + 1 ? 0 : verse - at;
    }
    /// The tool tip of a chapter button, "-" if the button is disabled.
    std::string Leads(char const* path)
    {
        auto const tip = ToUtf8(std::get<Text>(Get(path).FindProperty("ToolTipText")->Get()));
        EXPECT_EQ(Get(path).Enabled(), !tip.empty()) << path;
        return tip.empty() ? "-" : tip;
    }
    /// "box | verses | caption of the page | caption of the note | note | previous, next".
    std::string State() { return ToUtf8(TextOf(box)) + " | " + StateBesideBox(); }
    std::string StateBesideBox()
    {
        return Shown() + " | " + ToUtf8(CaptionOf("frmBible.XPContainer2")) + " | "
            + ToUtf8(CaptionOf("frmBible.XPContainer4")) + " | " + ToUtf8(TextOf(notes)) + " | "
            + Leads("frmBible.cmdPrev") + ", " + Leads("frmBible.cmdNext");
    }
    std::string Panel(char const* panel)
    {
        return ToUtf8(std::get<Text>(Get("frmBible.StatusBar1").FindProperty(panel)->Get()));
    }
    /// The books that stand open in the tree.
    std::string Expanded()
    {
        std::string books;
        for (auto const& node : Get<TreeView>(tree).Nodes())
            if (node.Expanded())
                books += ToUtf8(node.Caption()) + ' ';
        return books;
    }

    static Text NotePath(TextView name)
    {
        return u"C:\\Program Files\\Sparrowfield Interactive Software\\notes\\" + Text(name)
            + u".dat";
    }
    /// The bytes of a note file, such as "John3"; "(none)" without one.
    std::string Stored(TextView name)
    {
        return files.FileExists(NotePath(name)) ? files.Bytes(NotePath(name)) : "(none)";
    }
    /// The one temporary page of the first opening.
    bool HasPage() { return files.FileExists(u"C:\\Temp\\tmp1.htm"); }
};

class BibleTest : public testing::Test, protected BibleFixture { };
