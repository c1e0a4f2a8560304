#pragma once
// The background of a form: a colour and a picture at the top left corner.

#include <QPainter>
#include <QPixmap>
#include <QWidget>

class ClientArea final : public QWidget {
public:
    using QWidget::QWidget;

    QColor ground;
    QPixmap picture;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), ground);
        painter.drawPixmap(0, 0, picture);
    }
};
