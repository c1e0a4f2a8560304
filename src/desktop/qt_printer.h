#pragma once
// The default printer. Without one, each job is written as a PDF to the user's documents folder.

#include "controls/printer.h"

#include <QPainter>
#include <QPrinter>

#include <functional>
#include <memory>

class QtPrinter final : public Printer {
public:
    /// `printedTo` is called for each job that was written to a file, or failed.
    explicit QtPrinter(std::function<void(Text message)> printedTo);
    ~QtPrinter() override;

    void SetTitle(TextView title) override { m_title = title; }
    void SetFont(Font const& font) override;
    float ScaleLeft() const override { return 0; }
    float ScaleWidth() const override;
    float ScaleHeight() const override;
    float CurrentX() const override { return m_x; }
    void SetCurrentX(float x) override { m_x = x; }
    void SetCurrentY(float y) override { m_y = y; }
    float TextWidth(TextView text) const override;
    float LineHeight() const override;
    void Print(TextView text) override;
    void EndLine() override;
    void NewPage() override;
    void EndDoc() override;

private:
    QPrinter& Device() const;
    void Begin();

    std::function<void(Text message)> m_printedTo;
    mutable std::unique_ptr<QPrinter> m_device; // made when it is first asked for anything
    std::unique_ptr<QPainter> m_painter; // while a job is under way
    Text m_title;
    Font m_font;
    float m_x = 0, m_y = 0;
};
