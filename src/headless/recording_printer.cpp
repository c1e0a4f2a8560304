#include "headless/recording_printer.h"

#include "headless/text_measure.h"

#include <utility>

static constexpr float pageHeight = 15120;

float RecordingPrinter::TextWidth(TextView text) const
{
    return static_cast<float>(text.size()) * characterWidthPerPoint * m_font.size;
}

void RecordingPrinter::Print(TextView text)
{
    if (m_y > pageHeight) {
        m_pages.emplace_back();
        m_y = 0;
    }
    m_pages.back().push_back({ m_x, m_y, Text(text) });
    m_x += TextWidth(text);
}

void RecordingPrinter::EndLine()
{
    m_x = ScaleLeft();
    m_y += lineHeightPerPoint * m_font.size;
}

void RecordingPrinter::EndDoc()
{
    m_jobs.push_back({ m_font.name, m_font.size, std::exchange(m_pages, { {} }) });
    m_x = 0;
    m_y = 0;
}

std::vector<RecordingPrinter::Job> RecordingPrinter::TakeJobs()
{
    return std::exchange(m_jobs, {});
}
