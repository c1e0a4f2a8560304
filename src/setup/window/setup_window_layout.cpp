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
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

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

void SetupWindow::Build()
{
    setWindowTitle(tr("Sparrowfield Setup"));
    constexpr int margin = 20; // pixels, for the frame of the window
    setMinimumWidth(std::min(
        fontMetrics().averageCharWidth() * 92, screen()->availableGeometry().width() - margin));
    resize(minimumWidth(), 0); // the texts say how high it becomes
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 16);
    column->setSpacing(14);
    column->addLayout(BuildHead());
    column->addLayout(BuildFacts());

    m_stage = new QStackedWidget;
    m_stage->addWidget(m_message = WrappedLabel());
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_message->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_stage->addWidget(BuildProgress());
    column->addWidget(m_stage, 1);

    auto* const line = new QFrame;
    line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
    column->addWidget(line);
    column->addLayout(BuildButtons());
}

QWidget* SetupWindow::BuildProgress()
{
    auto* const page = new QWidget;
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    m_bar = new QProgressBar;
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(tr("Progress"));
    m_file = new QLabel;
    m_file->setTextFormat(Qt::PlainText);
    m_file->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // A long name is cut off.
    column->addWidget(m_bar);
    column->addWidget(m_file);
    column->addStretch(1);
    return page;
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
           "runs without it, and adds it to your application menu."));
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
    auto* const folder = WrappedLabel();
    folder->setText(PlaceText(m_places.target));
    m_size = WrappedLabel();
    m_copy = WrappedLabel();
    if (!m_runsFromCopy) {
        auto* const disc = WrappedLabel();
        disc->setText(PlaceText(m_places.disc));
        form->addRow(tr("From:"), disc);
    }
    form->addRow(m_runsFromCopy ? tr("Folder:") : tr("To:"), folder);
    form->addRow(tr("Space:"), m_size);
    form->addRow(tr("Now:"), m_copy);
    for (int row = 0; row < form->rowCount(); ++row)
        static_cast<QLabel*>(form->itemAt(row, QFormLayout::LabelRole)->widget())
            ->setAlignment(Qt::AlignTop);
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
    m_size->setText(m_plan && !m_runsFromCopy ? tr("%1 for %2 files, %3 are free")
                                                    .arg(size(m_plan->bytes))
                                                    .arg(m_plan->files.size())
                                                    .arg(free)
                                              : tr("%1 are free").arg(free));
    m_copy->setText(isInstalled ? tr("A copy is installed.") : tr("Not installed."));
    m_stage->setCurrentIndex(isBusy ? 1 : 0);
    m_uninstall->setVisible(isInstalled && !isBusy && !m_isInstalledNow);
    m_install->setText(isInstalled ? tr("&Repair") : tr("&Install"));
    m_install->setVisible(m_plan && !m_runsFromCopy && !isBusy && !m_isInstalledNow);
    m_start->setVisible(m_isInstalledNow && !isBusy);
    m_cancel->setVisible(isBusy);
    m_cancel->setEnabled(m_task == Task::Install);
    m_close->setVisible(!isBusy);
    FitHeight();
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
    m_stage->updateGeometry(); // or its height is the one of the text before
    FitHeight();
}

/// The layout alone would squeeze texts of several lines.
void SetupWindow::FitHeight()
{
    if (int const needed = layout()->totalHeightForWidth(width()); needed > height())
        resize(width(), needed);
}
