// The part of the lesson screen that brings a lesson up.

#include "controls/screen.h"
#include "lesson/frmMain.h"
#include "study/general_texts.h"
#include "study/verse_file.h"

#include <algorithm>
#include <new>
#include <stdexcept>

/// In characters; a shorter introduction is followed by the general one.
static constexpr int shortIntroduction = 120;
/// Line ends after the passages, so that every heading can be scrolled to the top.
static constexpr int linesAfterPassages = 40;
// In twips: the margin of the texts, and the hanging indent of a verse.
static constexpr float textIndent = 150, verseIndent = 210;

/// Appends a text in the format that `format` sets.
template <class Format> static void Append(RichTextBox& box, Format format, TextView text)
{
    box.SelStart = box.Length();
    format();
    box.ReplaceSelection(text);
}

static void IndentAll(RichTextBox& box)
{
    box.SelStart = 0;
    box.SelLength = box.Length();
    box.SelIndent = textIndent;
    box.SelRightIndent = textIndent;
    box.SelLength = 0;
}

Text frmMain::SectionOf(TextView key) const
{
    return m_store.SectionOf(key, [this](TextView file) {
        auto const found = m_files.List(file); // which ignores case
        return std::find(found.begin(), found.end(), file) != found.end();
    });
}

LessonProgress frmMain::ProgressOf(TextView key) const
{
    return m_store.ProgressOf(SectionOf(key));
}

void frmMain::Form_Load()
{
    Frame1.Visible = true;
    pages.clear();
    answers.clear();
    m_answerPage = 0;
    m_store.ForgetBox();
    m_section = SectionOf(studyKey);
    Text4.BackColor = panelColor;
    Text2.BackColor = panelColor;
    Image2.BackColor = panelColor;
    TreeView1.BackColor = panelColor;
    TreeView2.BackColor = panelColor;
    Text const resumeAt = m_store.CurrentPage(m_section);
    Unload(*m_catalogue);
    Form_Resize();
    Show(); // So that the loading panel can be seen.
    GetScreen().GetTurns().Give();
    auto const loaded = TryToLoad();
    if (!IsLoaded())
        return; // The program ended in a turn of the load.
    if (!loaded) {
        GiveUp(loaded.failure());
        return;
    }
    Resume(resumeAt);
    Frame1.Visible = false;
}

/// A lesson too large for the machine is given up like a damaged one.
Outcome<Done> frmMain::TryToLoad()
{
    try {
        return LoadLesson();
    } catch (std::bad_alloc const&) {
    } catch (std::length_error const&) {
    }
    return Failure { studyKey, 0, u"there isn't enough memory for the lesson" };
}

Outcome<Done> frmMain::LoadLesson()
{
    Turns& turns = GetScreen().GetTurns();
    auto reader = LessonReader::Open(m_files, studyKey, turns);
    if (!reader)
        return reader.failure();
    lessonNumber = reader->LessonNumber();
    auto head = reader->ReadHead();
    if (!head)
        return head.failure();
    studyPrefix = head->studyPrefix;
    lblStudy.Caption = head->studyTitle;
    auto const titleLine = reader->ReadTitleLine();
    if (!titleLine)
        return titleLine.failure();
    auto const titles = SplitTitles(*titleLine);
    m_heading = { lessonNumber, reader->PartWord(), Text(titles.title),
        titles.secondTitle ? std::optional<Text>(*titles.secondTitle) : std::nullopt };
    XPContainer3.Caption = u"Lesson " + lessonNumber + u", Part " + m_heading.partWord + u":  "
        + m_heading.title + (m_heading.secondTitle ? u"   " + *m_heading.secondTitle : Text());
    if (auto const found = reader->FindBlock(); !found)
        return found.failure();
    if (auto const loaded = LoadIntroduction(*reader); !loaded)
        return loaded;
    if (auto const loaded = LoadPages(*reader); !loaded)
        return loaded;
    Text1.Text = u"";
    for (auto const fill : { &frmMain::FillMainScriptures, &frmMain::FillSupplementalScriptures }) {
        auto const name = reader->ReadName();
        if (!name)
            return name.failure();
        if (auto const filled = (this->*fill)(*name); !filled)
            return filled;
    }
    for (int i = 0; i < linesAfterPassages; ++i)
        Append(
            Text1, [] {}, u"\r\n");
    IndentAll(Text1);
    Text1.Visible = true;
    return Done();
}

Outcome<Done> frmMain::LoadIntroduction(LessonReader& reader)
{
    Text4.Text = u"";
    auto const read = reader.ReadIntroduction([this](IntroParagraph const& paragraph) {
        Append(
            Text4, [&] { Text4.SelBold = paragraph.bold; }, paragraph.text + u"\r\n\r\n");
    });
    if (!read)
        return read.failure();
    if (Text4.Length() < shortIntroduction)
        AppendIntroduction();
    IndentAll(Text4);
    return Done();
}

void frmMain::AppendIntroduction()
{
    ReadIntroduction(m_files, GetScreen().GetTurns(), [this](TextView line) {
        Append(
            Text4, [this] { Text4.SelBold = false; }, Text(line) + u"\r\n");
    });
}

Outcome<Done> frmMain::LoadPages(LessonReader& reader)
{
    auto body = reader.ReadBody();
    if (!body)
        return body.failure();
    pages = std::move(body->pages);
    answers = std::move(body->answers);
    ctlScrollbar.Min = 1;
    ctlScrollbar.Max = static_cast<std::int16_t>(std::min<std::size_t>(pages.size(), INT16_MAX));
    return Done();
}

Outcome<Done> frmMain::FillMainScriptures(TextView name)
{
    Label1.Caption = studyPrefix + u": " + lblStudy.Caption();
    return FillScriptures(TreeView1, name);
}

Outcome<Done> frmMain::FillSupplementalScriptures(TextView name)
{
    Label1.Caption = u"Supplemental Scriptures...";
    return FillScriptures(TreeView2, name);
}

Outcome<Done> frmMain::FillScriptures(TreeView& tree, TextView name)
{
    int headings = 0;
    VerseFileListener listener;
    listener.size = [this](std::uint64_t bytes) {
        ProgressBar2.Min = 0;
        ProgressBar2.Max = static_cast<std::int64_t>(bytes);
        ProgressBar2.Value = 0;
    };
    listener.line = [this](std::size_t bytes) {
        ProgressBar2.Value = ProgressBar2.Value + static_cast<std::int64_t>(bytes);
    };
    listener.item = [&](VerseFileItem const& item) {
        if (item.kind == VerseFileItem::Kind::Heading)
            AddHeading(tree, ++headings, item.text);
        else
            AppendVerse(item);
    };
    return ReadVerseSection(m_files, name, lessonNumber, GetScreen().GetTurns(), listener);
}

void frmMain::AddHeading(TreeView& tree, int number, TextView heading)
{
    Node& node = tree.Add(u"item" + FromNumber(number), Text(heading));
    node.SetImage("book");
    node.SetExpanded(true);
    node.SetBackColor(panelColor);
    node.SetTag(FromNumber(Text1.Length()));
    Append(
        Text1, [this] { Text1.SelBold = true; }, Text(heading) + u"\r\n\r\n");
}

void frmMain::AppendVerse(VerseFileItem const& item)
{
    bool const isNumbered = item.kind == VerseFileItem::Kind::NumberedVerse;
    auto const startVerse = [&] {
        Text1.SelBold = false;
        Text1.SelHangingIndent = isNumbered ? verseIndent : 0;
        if (isNumbered) {
            Text1.SelCharOffset = 35;
            Text1.SelFontSize = 4;
        }
    };
    if (!isNumbered) {
        Append(Text1, startVerse, item.text + u"\r\n\r\n");
        return;
    }
    auto const plainText = [&] {
        Text1.SelBold = false;
        Text1.SelCharOffset = 0;
        Text1.SelFontSize = 8;
    };
    Append(Text1, startVerse, item.number);
    Append(Text1, plainText, item.text + u"\r\n\r\n");
}

/// Shows the page at which the user stopped, or the nearest one.
void frmMain::Resume(TextView storedPage)
{
    auto const digits = Trim(storedPage);
    bool const isBeyondAll = !digits.empty() && CountDigits(digits) == digits.size();
    auto const stored = ToInteger(storedPage).value_or(isBeyondAll ? INT64_MAX : 1);
    auto const page = std::clamp<std::int64_t>(stored, 1, ctlScrollbar.Max);
    ShowLessonPage(static_cast<int>(page));
    ctlScrollbar.Value = static_cast<std::int16_t>(page);
}

void frmMain::GiveUp(Failure const& failure)
{
    GetScreen().Message(u"This lesson can't be shown.\r\n\r\n" + failure.Message());
    m_catalogue->Show();
    Unload(*this);
}
