// What the window of Setup looks like, and what of it is offered when.

#include "setup/window/setup_window.h"

#include "setup/size_text.h"

#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

static QString PlaceText(std::filesystem::path const& place)
{
    return QString::fromStdU16String(place.u16string());
}

static QLabel* WrappedLabel()
{
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// A path may be longer than the window is wide; it may break behind each separator.
static QString Breakable(QString path)
{
    return path.replace(u'/', QStringLiteral("/\u200B"));
}

void SetupWindow::Build()
{
    setWindowTitle(tr("Sparrowfield Setup"));
    setMinimumWidth(fontMetrics().averageCharWidth() * 84);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 16);
    column->setSpacing(14);
    column->addLayout(BuildHead());
    column->addLayout(BuildFacts());

    m_bar = new QProgressBar;
    m_bar->setTextVisible(false);
    m_file = new QLabel;
    m_file->setTextFormat(Qt::PlainText);
    m_message = WrappedLabel();
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_message->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_message->setMinimumHeight(fontMetrics().lineSpacing() * 2); // or the window would jump
    for (QWidget* const widget : { static_cast<QWidget*>(m_bar), static_cast<QWidget*>(m_file) }) {
        auto policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
        column->addWidget(widget);
    }
    column->addWidget(m_message, 1);

    auto* const line = new QFrame;
    line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
    column->addWidget(line);
    column->addLayout(BuildButtons());
}

QLayout* SetupWindow::BuildHead()
{
    auto* const row = new QHBoxLayout;
    row->setSpacing(14);
    QIcon icon;
    for (char const* const size : { "64", "128" })
        icon.addFile(
            PlaceText(m_places.disc / "icons" / (std::string("sparrowfield-") + size + ".png")));
    if (auto const picture = icon.pixmap(64); !picture.isNull()) {
        setWindowIcon(icon);
        auto* const label = new QLabel;
        label->setPixmap(picture);
        row->addWidget(label, 0, Qt::AlignTop);
    }
    auto* const texts = new QVBoxLayout;
    auto* const title = new QLabel(tr("Sparrowfield Interactive Bible Study"));
    auto font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    title->setFont(font);
    auto* const purpose = WrappedLabel();
    purpose->setText(
        tr("Setup copies the disc to this computer, for you alone, so that the program "
           "runs without it, and adds the program to your application menu."));
    texts->addWidget(title);
    texts->addWidget(purpose);
    row->addLayout(texts, 1);
    return row;
}

QLayout* SetupWindow::BuildFacts()
{
    auto* const form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(6);
    auto* const disc = WrappedLabel();
    disc->setText(Breakable(PlaceText(m_places.disc)));
    m_folder = WrappedLabel();
    m_folder->setText(Breakable(PlaceText(m_places.target)));
    m_size = WrappedLabel();
    m_copy = WrappedLabel();
    form->addRow(tr("From:"), disc);
    form->addRow(tr("To:"), m_folder);
    form->addRow(tr("Space:"), m_size);
    form->addRow(tr("Now:"), m_copy);
    return form;
}

QPushButton* SetupWindow::AddButton(QLayout& row, char const* text, void (SetupWindow::*clicked)())
{
    auto* const button = new QPushButton(tr(text));
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, clicked);
    row.addWidget(button);
    return button;
}

QLayout* SetupWindow::BuildButtons()
{
    auto* const row = new QHBoxLayout;
    m_uninstall = AddButton(*row, "&Uninstall...", &SetupWindow::Uninstall_Click);
    row->addStretch(1);
    m_install = AddButton(*row, "&Install", &SetupWindow::Install_Click);
    m_start = AddButton(*row, "&Start Sparrowfield", &SetupWindow::Start_Click);
    m_cancel = AddButton(*row, "Cancel", &SetupWindow::Cancel_Click);
    m_close = AddButton(*row, "&Close", &SetupWindow::End);
    return row;
}

void SetupWindow::ShowState()
{
    bool const isBusy = m_worker.IsBusy();
    bool const isInstalled = IsInstalled(m_places);
    auto const size
        = [](std::uint64_t bytes) { return QString::fromStdU16String(SizeText(bytes)); };
    auto const free = size(FreeSpace(m_places.target));
    m_size->setText(m_plan ? tr("%1 for %2 files, %3 are free")
                                 .arg(size(m_plan->bytes))
                                 .arg(m_plan->files.size())
                                 .arg(free)
                           : tr("%1 are free").arg(free));
    m_copy->setText(isInstalled ? tr("A copy is installed.") : tr("Not installed."));
    m_bar->setVisible(isBusy);
    m_file->setVisible(isBusy);
    m_uninstall->setVisible(isInstalled && !isBusy && !m_isInstalledNow);
    m_install->setText(isInstalled ? tr("&Repair") : tr("&Install"));
    m_install->setVisible(m_plan && !RunsFromCopy(m_places) && !isBusy && !m_isInstalledNow);
    m_start->setVisible(m_isInstalledNow && !isBusy);
    m_cancel->setVisible(isBusy);
    m_cancel->setEnabled(m_task == Task::Install);
    m_close->setVisible(!isBusy);
    for (auto* const button : { m_close, m_cancel, m_install, m_start })
        if (button->isVisibleTo(this)) {
            button->setDefault(true);
            button->setFocus();
        }
}

void SetupWindow::Say(QString const& text, bool isFault)
{
    m_message->setText(text);
    m_message->setStyleSheet(isFault ? QStringLiteral("color: #a01010") : QString());
}
