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

/// A name in the documents folder that no file has.
static QString FreeName()
{
    QDir const folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    folder.mkpath(QStringLiteral("."));
    auto name = folder.filePath(QStringLiteral("Sparrowfield note.pdf"));
    for (int i = 2; QFile::exists(name); ++i)
        name = folder.filePath(QStringLiteral("Sparrowfield note %1.pdf").arg(i));
    return name;
}

QPrinter& QtPrinter::Device() const
{
    if (m_device)
        return *m_device;
    m_device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    m_device->setDocName(QStringLiteral("Sparrowfield"));
    // A printer that isn't there counts as valid until something is painted on it.
    if (QPrinterInfo::defaultPrinter().isNull()) {
        m_device->setOutputFormat(QPrinter::PdfFormat);
        m_device->setOutputFileName(FreeName());
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
    float const page
        = static_cast<float>(Device().pageLayout().paintRectPixels(Device().resolution()).height());
    if (!m_painter)
        m_painter = std::make_unique<QPainter>(&Device());
    if (m_y + LineHeight() <= page)
        return;
    Device().newPage();
    m_y = 0;
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
    if (!done)
        m_printedTo(u"The note couldn't be printed.");
    else if (!file.empty())
        m_printedTo(u"There is no printer. The note was printed to the file " + file + u".");
}
