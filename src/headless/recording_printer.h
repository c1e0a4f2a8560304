#pragma once
// A printer that records what is printed, on pages of 11520 by 15120 twips, with the measures of
// text_measure.h.

#include "controls/printer.h"

#include <vector>

class RecordingPrinter final : public Printer {
public:
    /// A text and where it was printed, in twips.
    struct Piece {
        float x, y;
        Text text;
    };
    struct Job {
        Text font;
        float size;
        std::vector<std::vector<Piece>> pages;
    };

    void SetFont(Font const& font) override { m_font = font; }
    float ScaleLeft() const override { return 0; }
    float ScaleWidth() const override { return 11520; }
    float CurrentX() const override { return m_x; }
    void SetCurrentX(float x) override { m_x = x; }
    void SetCurrentY(float y) override { m_y = y; }
    float TextWidth(TextView text) const override;
    void Print(TextView text) override;
    void EndLine() override;
    void EndDoc() override;

    /// The jobs sent off since the last call.
    std::vector<Job> TakeJobs();

private:
    Font m_font;
    float m_x = 0, m_y = 0;
    std::vector<std::vector<Piece>> m_pages { {} };
    std::vector<Job> m_jobs;
};
