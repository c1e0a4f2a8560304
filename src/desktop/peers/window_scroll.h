#pragma once
// Cuts a window of fixed size that is higher than the screen: a bar at its right edge, the wheel
// and keys then move its client area. The form peer decides which windows are cut.

#include <QObject>
#include <QSize>

class QKeyEvent;
class QScrollBar;
class QWheelEvent;
class QWidget;

class WindowScroll final : public QObject {
public:
    /// `client` is in `window`, which has no menu bar; both outlive this object.
    WindowScroll(QWidget& window, QWidget& client);

    /// The size of the window's inside, in pixels: `whole`, or cut to the height `room` and wider
    /// by the bar.
    QSize Fit(QSize whole, int room);
    bool IsCut() const;
    /// Places bar and client area of a window that is cut.
    void Arrange();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool KeyPressed(QKeyEvent const& event);
    bool Wheeled(QWheelEvent const& event);
    void Move();
    void ShowFocus();

    QWidget& m_window;
    QWidget& m_client;
    QScrollBar& m_bar;
    QSize m_whole;
};
