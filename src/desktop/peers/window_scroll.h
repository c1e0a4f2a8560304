#pragma once
// Cuts a window of fixed size that is higher than the screen: a bar at its right edge, the wheel
// and keys then move its client area. Which windows are cut, and to what height, is the form peer's
// decision.

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

    /// The size that the inside of the window gets, in pixels: `whole`, or cut to the height `room`
    /// and wider by the bar.
    QSize Fit(QSize whole, int room);
    bool IsCut() const;
    /// Puts bar and client area where they belong. Only for a window that is cut.
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
