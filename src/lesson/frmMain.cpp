#include "lesson/frmMain.h"

#include "controls/screen.h"
#include "documents/paper/print_document.h"
#include "study/model_answer.h"
#include "study/page_view.h"

frmMain::frmMain(Screen& screen, FileSystem& files, AnswerStore& store, frmAnswer& answer,
    ReferenceForms const& reference)
    : MainScreen(screen, "frmMain", u"Sparrowfield Interactive Bible Study", { 11745, 8310 },
        Role::Lesson, reference)
    , m_files(files)
    , m_store(store)
    , m_answerForm(answer)
{
    Design();
    ConnectHandlers();
}

void frmMain::Design()
{
    smallest = { 11000, 8000 };
    Picture = u":lesson-ground";
    Frame1.Picture = u":loading";
    lblStudy.ForeColor = Rgb(255, 255, 255);
    lblStudy.FontBold = true;
    lblStudy.FontSize = 12;
    lblStudy.Alignment = TextAlignment::Centre;
    for (XPContainer* panel :
        { &XPContainer1, &XPContainer2, &XPContainer3, &XPContainer4, &XPContainer5 }) {
        panel->HeaderLightColor = Rgb(255, 255, 255);
        panel->BorderColor = panel == &XPContainer4 ? Rgb(0, 0, 255) : Rgb(0, 0, 192);
    }
    for (Control* pane : std::initializer_list<Control*> { &Text1, &Text2, &Text3, &Text4 })
        pane->isReadingPane = true;
    Image2.BackColor = panelColor;
    lblPageTitle.FontBold = true;
    Text2.MultiLine = true;
    Text2.Locked = true;
    Text2.ScrollBar = true;
    Text2.Border = false;
    Text1.Locked = true;
    Text4.Locked = true;
    Text1.Border = false;
    Text4.Border = false;
    for (Control* control : { static_cast<Control*>(&Text3), static_cast<Control*>(&Image1),
             static_cast<Control*>(&Frame1) })
        control->Visible = false;
    Frame1.Border = true;
    ctlScrollbar.Min = 1;
    ctlScrollbar.Max = 1;
    ctlScrollbar.Value = 1;
    tmrStore.Enabled = false;
    TreeView1.Images = &ImageList2;
    TreeView2.Images = &ImageList2;
    StatusBar1.Panel1 = u"Lesson progress:";
    SetNamesAndTabOrder();
}

/// What assistive tools call the controls, and the order in which Tab visits them.
void frmMain::SetNamesAndTabOrder()
{
    Image1.ToolTipText = u"Click here for answers from Sparrowfield";
    Image1.TabStop = true;
    Text1.accessibleName = u"Scripture passage";
    Text2.accessibleName = u"Question";
    Text3.accessibleName = u"Your answer";
    Text4.accessibleName = u"Lesson and introduction";
    ctlScrollbar.accessibleName = u"Page";
    ProgressBar1.accessibleName = u"Progress of the lesson";
    int place = 0;
    for (Control* control : { static_cast<Control*>(&Text3), static_cast<Control*>(&Image1),
             static_cast<Control*>(&Command2), static_cast<Control*>(&ctlScrollbar),
             static_cast<Control*>(&Command1), static_cast<Control*>(&TreeView1),
             static_cast<Control*>(&TreeView2), static_cast<Control*>(&Text1),
             static_cast<Control*>(&Text4), static_cast<Control*>(&Text2) })
        control->TabIndex = place++;
}

void frmMain::ConnectHandlers()
{
    Text3.GotFocus = [this] { Text3_GotFocus(); };
    Text3.LostFocus = [this] { Text3_LostFocus(); };
    Text3.Change = [this] { Text3_Change(); };
    Text3.Typed = [this] { StartStoreTimer(); };
    Text3.KeyDown = [this](int, int) { ShowSaved(false); };
    tmrStore.Tick = [this] { tmrStore_Timer(); };
    Image1.Click = [this] { Image1_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    ctlScrollbar.Change = [this] { ctlScrollbar_Change(); };
    ctlScrollbar.Scroll = [this] { TellPage(); };
    TreeView1.NodeClick = [this](Node& node) { ShowPassage(node); };
    TreeView2.NodeClick = [this](Node& node) { ShowPassage(node); };
    mnuFileSave.Click = [this] { mnuFileSave_Click(); };
    mnuFileClose.Click = [this] { mnuFileClose_Click(); };
    mnuFileExit.Click = [this] { mnuFileExit_Click(); };
    mnuEditCut.Click = [this] { mnuEditCut_Click(); };
    mnuEditCopy.Click = [this] { mnuEditCopy_Click(); };
    mnuEditPaste.Click = [this] { mnuEditPaste_Click(); };
    mnuEditDeleteLesson.Click = [this] { mnuEditDeleteLesson_Click(); };
    shortcuts = { { 'P', controlHeld, [this] { PrintLesson(false); } },
        { 'P', controlHeld | shiftHeld, [this] { PrintLesson(true); } } };
}

void frmMain::ShowLessonPage(int page)
{
    Text const& text = pages[static_cast<std::size_t>(page) - 1];
    lblPageTitle.Caption = Text(PageLabel(text));
    Text2.Visible = false;
    Text2.Text = PageText(text);
    SetPageTextHeight();
    Text2.Visible = true;

    Text3.Visible = false;
    Text3.Width = Text2.Width;
    Text3.Top = Text2.Height + 15 + Text2.Top + 90;
    Text3.Height = Image1.Top - Text3.Top;
    m_answerPage = ctlScrollbar.Value;
    TellPage();
    Text3.Text = m_store.Fill(m_section, m_answerPage);
    tmrStore.Enabled = false;
    ShowSaved(false);
    if (!Visible)
        Show();
    Text3.Visible = true;
    Text3.SelStart = Text3.Length();
    Text3.SetFocus();
    Image1.Visible = true;

    Command1.Enabled = page != ctlScrollbar.Max && HasAnswer();
    Command2.Enabled = page != ctlScrollbar.Min;
    EnableClipboardEntries(true);
    m_store.SetCurrentPage(m_section, FromNumber(page));
    Text2.Width = Image2.Width - Text2.Left - 320;
}

void frmMain::Command1_Click()
{
    if (!HasAnswer())
        GetScreen().Message(askForAnswer);
    else if (ctlScrollbar.Value < ctlScrollbar.Max)
        ctlScrollbar.Value = static_cast<std::int16_t>(ctlScrollbar.Value + 1);
    Unload(m_answerForm);
}

void frmMain::Command2_Click()
{
    if (ctlScrollbar.Value > ctlScrollbar.Min)
        ctlScrollbar.Value = static_cast<std::int16_t>(ctlScrollbar.Value - 1);
    Unload(m_answerForm);
}

void frmMain::ctlScrollbar_Change()
{
    Unload(m_answerForm);
    ShowLessonPage(ctlScrollbar.Value);
    ProgressBar1.Min = ctlScrollbar.Min();
    ProgressBar1.Max = ctlScrollbar.Max();
    ProgressBar1.Value = ctlScrollbar.Value();
}

/// Also while the thumb is dragged, before the page is shown.
void frmMain::TellPage()
{
    ctlScrollbar.ToolTipText
        = u"Page " + FromNumber(ctlScrollbar.Value) + u" of " + FromNumber(ctlScrollbar.Max);
}

void frmMain::Image1_Click()
{
    Text message(askForAnswer);
    if (HasAnswer())
        message = ModelAnswer(answers[static_cast<std::size_t>(ctlScrollbar.Value()) - 1]);
    m_answerForm.SetText(message);
    m_answerForm.Left = XPContainer1.Left - 100;
    m_answerForm.Top = (ScaleHeight - m_answerForm.Height) / 2;
    m_answerForm.Show();
}

void frmMain::Text3_LostFocus()
{
    StoreAnswer();
    EnableClipboardEntries(false);
}

void frmMain::StoreAnswer()
{
    tmrStore.Enabled = false;
    if (auto const failure = m_store.Leave(Text3.Text))
        GetScreen().Message(failure->Message());
}

/// The user has changed the answer: it is stored a second later, even while he is typing.
void frmMain::StartStoreTimer()
{
    tmrStore.Enabled = true;
    ShowSaved(false);
}

/// Beside the caption of the progress, until the next key or page.
void frmMain::ShowSaved(bool isSaved)
{
    constexpr float progressCaption = 1800; // twips
    StatusBar1.Panel1Width = isSaved ? progressCaption : 0;
    StatusBar1.Panel2 = isSaved ? u"Saved" : u"";
}

void frmMain::tmrStore_Timer()
{
    auto const [isOver, failure] = m_store.QueueTyped(Text3.Text);
    tmrStore.Enabled = !isOver;
    if (failure)
        GetScreen().Message(failure->Message());
}

void frmMain::RestoreInNewStore()
{
    m_store.RestoreInNewStore();
    if (m_answerPage != 0)
        m_store.SetCurrentPage(m_section, FromNumber(m_answerPage));
}

void frmMain::EnableClipboardEntries(bool enabled)
{
    mnuEditCopy.Enabled = enabled;
    mnuEditPaste.Enabled = enabled;
    mnuEditCut.Enabled = enabled;
}

void frmMain::ShowPassage(Node const& node)
{
    auto const offset = static_cast<int>(ToInteger(node.Tag()).value_or(0));
    Text1.SelLength = Text1.Length() + offset;
    Text1.SelStart = offset;
    Text1.TopOffset = offset;
}

void frmMain::mnuFileSave_Click()
{
    if (m_answerPage == 0)
        return;
    tmrStore.Enabled = false;
    if (auto const saved = m_store.Save(Text3.Text); !saved) {
        GetScreen().Message(saved.failure().Message());
        return;
    }
    // An answer that couldn't be read before comes before what was typed now.
    auto const stored = m_store.Fill(m_section, m_answerPage);
    if (stored != Text3.Text())
        Text3.Text = stored;
    ShowSaved(true);
}

/// All questions of this part with the user's answers.
void frmMain::PrintLesson(bool withPublisher)
{
    if (m_answerPage == 0)
        return;
    auto const own = m_store.Answers(m_section, Text3.Text);
    if (!own) {
        GetScreen().Message(u"The lesson hasn't been printed.\r\n\r\n" + own.failure().Message());
        return;
    }
    MousePointer = pointerHourglass;
    PrintDocument(GetScreen().GetHost().DefaultPrinter(),
        { {}, lblStudy.Caption(),
            { BuildLessonSection(m_heading, pages, answers, *own, { true, withPublisher }) } });
    MousePointer = pointerDefault;
}

void frmMain::mnuFileClose_Click()
{
    Hide();
    m_catalogue->Show();
    Unload(*this);
}

void frmMain::mnuFileExit_Click()
{
    Unload(*m_catalogue);
    Unload(*this);
}

void frmMain::mnuEditCut_Click()
{
    mnuEditCopy_Click();
    Text3.ReplaceSelection({});
    StartStoreTimer();
}

void frmMain::mnuEditCopy_Click()
{
    Host& host = GetScreen().GetHost();
    auto const start = static_cast<std::size_t>(Text3.SelStart());
    host.SetClipboardText(
        TextView(Text3.Text).substr(start, static_cast<std::size_t>(Text3.SelLength())));
}

void frmMain::mnuEditPaste_Click()
{
    Text3.ReplaceSelection(GetScreen().GetHost().ClipboardText());
    StartStoreTimer();
}

void frmMain::mnuEditDeleteLesson_Click()
{
    tmrStore.Enabled = false;
    if (auto const deleted = m_store.DeleteLesson(m_section, Text3.Text); !deleted) {
        GetScreen().Message(u"The answers of this lesson have not been deleted.\r\n\r\n"
            + deleted.failure().Message());
        return;
    }
    Text3.Text = u"";
    ShowSaved(false);
}
