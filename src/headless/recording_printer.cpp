#include "headless/recording_printer.h"

#include "headless/text_measure.h"

#include <utility>

float RecordingPrinter::TextWidth(TextView text) const
{
    return static_cast<float>(text.size()) * characterWidthPerPoint * m_font.size;
}

void RecordingPrinter::Print(TextView text)
{
    if (m_y > ScaleHeight()) {
        m_pages.emplace_back();
        m_y = 0;
    }
    m_pages.back().push_back({ m_x, m_y, Text(text), m_font });
    m_x += TextWidth(text);
}

void RecordingPrinter::EndLine()
{
    m_x = ScaleLeft();
    m_y += LineHeight();
}

float RecordingPrinter::LineHeight() const
{
    return lineHeightPerPoint * m_font.size;
}

void RecordingPrinter::NewPage()
{
    m_pages.emplace_back();
    m_x = m_y = 0;
}

void RecordingPrinter::EndDoc()
{
    m_jobs.push_back(
        { std::exchange(m_title, {}), m_font.name, m_font.size, std::exchange(m_pages, { {} }) });
    m_x = m_y = 0;
}

std::vector<RecordingPrinter::Job> RecordingPrinter::TakeJobs()
{
    return std::exchange(m_jobs, {});
}
