#include "desktop/qt_printer.h"

#include "desktop/peers/convert.h"

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QPrinterInfo>
#include <QStandardPaths>

static constexpr int twipsPerInch = 1440;

QtPrinter::QtPrinter(std::function<void(Text message)> printedTo)
    : m_printedTo(std::move(printedTo))
{
}

QtPrinter::~QtPrinter() = default;

/// A path in the documents folder at which there is no file, for a job of this title.
static QString FreePath(QString title)
{
    for (QChar& character : title)
        if (!character.isPrint() || QStringLiteral("/\\:*?\"<>|").contains(character))
            character = QLatin1Char('_');
    constexpr int longest = 60; // characters: the name has room for three bytes each
    auto const name = QStringLiteral("Sparrowfield ")
        + (title.isEmpty() ? QStringLiteral("note") : title.left(longest).trimmed());
    QDir const folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    folder.mkpath(QStringLiteral("."));
    auto path = folder.filePath(name + QStringLiteral(".pdf"));
    for (int i = 2; QFile::exists(path); ++i)
        path = folder.filePath(QStringLiteral("%1 %2.pdf").arg(name).arg(i));
    return path;
}

QPrinter& QtPrinter::Device() const
{
    if (m_device)
        return *m_device;
    m_device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    m_device->setDocName(m_title.empty() ? QStringLiteral("Sparrowfield") : ToQString(m_title));
    // A printer that isn't there counts as valid until something is painted on it.
    if (QPrinterInfo::defaultPrinter().isNull()) {
        m_device->setOutputFormat(QPrinter::PdfFormat);
        m_device->setOutputFileName(FreePath(ToQString(m_title)));
    }
    m_device->setResolution(twipsPerInch); // so that a unit is a twip
    return *m_device;
}

void QtPrinter::SetFont(Font const& font)
{
    m_font = font;
}

float QtPrinter::ScaleWidth() const
{
    return static_cast<float>(Device().pageLayout().paintRectPixels(Device().resolution()).width());
}

float QtPrinter::ScaleHeight() const
{
    return static_cast<float>(
        Device().pageLayout().paintRectPixels(Device().resolution()).height());
}

float QtPrinter::TextWidth(TextView text) const
{
    return static_cast<float>(
        QFontMetricsF(ToQFont(m_font), &Device()).horizontalAdvance(ToQString(text)));
}

float QtPrinter::LineHeight() const
{
    return static_cast<float>(QFontMetricsF(ToQFont(m_font), &Device()).lineSpacing());
}

void QtPrinter::Begin()
{
    if (!m_painter)
        m_painter = std::make_unique<QPainter>(&Device());
    if (m_y + LineHeight() > ScaleHeight()) {
        Device().newPage();
        m_y = 0;
    }
}

void QtPrinter::NewPage()
{
    if (!m_painter)
        m_painter = std::make_unique<QPainter>(&Device());
    Device().newPage();
    m_x = m_y = 0;
}

void QtPrinter::Print(TextView text)
{
    Begin();
    QFontMetricsF const metrics(ToQFont(m_font), &Device());
    m_painter->setFont(ToQFont(m_font));
    m_painter->drawText(
        QPointF(static_cast<double>(m_x), static_cast<double>(m_y) + metrics.ascent()),
        ToQString(text));
    m_x += TextWidth(text);
}

void QtPrinter::EndLine()
{
    m_x = 0;
    m_y += LineHeight();
}

void QtPrinter::EndDoc()
{
    if (!m_painter)
        return;
    bool const done = m_painter->isActive() && m_painter->end();
    m_painter.reset();
    auto const file = ToText(Device().outputFileName());
    m_device.reset();
    m_x = m_y = 0;
    Text const what = m_title.empty() ? Text(u"The note") : u'\u201C' + m_title + u'\u201D';
    m_title.clear();
    if (!done)
        m_printedTo(what + u" couldn't be printed.");
    else if (!file.empty())
        m_printedTo(u"There is no printer. " + what + u" was printed to the file " + file + u".");
}
