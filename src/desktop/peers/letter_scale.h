#pragma once
// Letters of a reading pane larger or smaller than their formats say.

#include <QPaintDevice>

class QTextEdit;
class QWidget;

/// What a document is laid out for: a screen with more or fewer pixels to the inch than that of the
/// widget. So all letters and indents grow alike, and the document itself stays as it is, with all
/// that can be undone.
class LetterScale final : public QPaintDevice {
public:
    /// The widget outlives this object.
    explicit LetterScale(QWidget const& widget)
        : m_widget(widget)
    {
    }

    /// Lays out the document of a view anew if the scale is another. The line at the top stays
    /// there, as far as the text reaches.
    void Apply(QTextEdit& view, double scale);
    /// The view has been given another document, still empty.
    void ApplyToNew(QTextEdit& view);

    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    QWidget const& m_widget;
    double m_scale = 1;
};
