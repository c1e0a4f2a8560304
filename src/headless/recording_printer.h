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
        Font font;
    };
    /// The font is the last that was set.
    struct Job {
        Text title; ///< empty for a note
        Text font;
        float size;
        std::vector<std::vector<Piece>> pages;
    };

    void SetTitle(TextView title) override { m_title = title; }
    void SetFont(Font const& font) override { m_font = font; }
    float ScaleLeft() const override { return 0; }
    float ScaleWidth() const override { return 11520; }
    float ScaleHeight() const override { return 15120; }
    float CurrentX() const override { return m_x; }
    void SetCurrentX(float x) override { m_x = x; }
    void SetCurrentY(float y) override { m_y = y; }
    float TextWidth(TextView text) const override;
    float LineHeight() const override;
    void Print(TextView text) override;
    void EndLine() override;
    void NewPage() override;
    void EndDoc() override;

    /// The jobs sent off since the last call.
    std::vector<Job> TakeJobs();

private:
    Text m_title;
    Font m_font;
    float m_x = 0, m_y = 0;
    std::vector<std::vector<Piece>> m_pages { {} };
    std::vector<Job> m_jobs;
};
