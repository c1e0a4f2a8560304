#include "pictures.h"

#include "papers.h"
#include "scenes.h"
#include "small_pictures.h"

#include <QImageWriter>
#include <QPainter>
#include <QSvgGenerator>

std::span<Picture const> ProgramPictures()
{
    static Picture const pictures[] = {
        { "splash", { 800, 600 }, PaintSplash },
        { "catalogue", { 700, 600 }, PaintCatalogueGround },
        { "lesson-ground", { 700, 600 }, PaintLessonGround },
        { "reader", { 628, 558 }, PaintReaderGround },
        { "logo", { 314, 97 }, PaintLogo },
        { "dialog", { 613, 737 }, PaintDialog },
        { "getting-started", { 700, 842 }, PaintGettingStarted },
        { "answer", { 358, 640 }, PaintAnswer },
        { "loading", { 282, 70 }, PaintLoading },
        { "about", { 40, 30 }, PaintAbout },
        { "lamp", { 35, 21 }, PaintLampPicture },
        { "folder", { 16, 16 }, PaintFolder },
        { "openfolder", { 16, 16 }, PaintOpenFolder },
        { "book", { 16, 16 }, PaintSmallBook },
        { "lesson", { 16, 16 }, PaintLessonDot },
        { "study", { 16, 16 }, PaintStudyTriangle },
        { "hand", { 32, 32 }, PaintHand },
        { "pan", { 32, 32 }, PaintPanArrows },
        { "grip", { 14, 15 }, PaintGrip },
    };
    return pictures;
}

std::span<Picture const> Icons()
{
    static Picture const icons[] = {
        { "icon", { 64, 64 }, PaintIcon },
        { "map-icon", { 64, 64 }, PaintMapIcon },
    };
    return icons;
}

Picture const& PagePicture()
{
    static Picture const page { "bg", { 256, 256 }, PaintPage };
    return page;
}

QImage Draw(Picture const& picture, qreal scale)
{
    QImage image((QSizeF(picture.size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    picture.paint(painter);
    painter.end();
    return image;
}

bool Write(QImage const& image, QString const& file)
{
    QImageWriter writer(file);
    writer.setQuality(file.endsWith(QStringLiteral(".jpg")) ? 90 : -1);
    writer.setCompression(100);
    bool const isOpaque = [&] {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qAlpha(image.pixel(x, y)) != 255)
                    return false;
        return true;
    }();
    return writer.write(
        image.convertToFormat(isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32));
}

bool WriteVector(Picture const& picture, QString const& file)
{
    QSvgGenerator generator;
    generator.setFileName(file);
    generator.setSize(picture.size);
    generator.setViewBox(QRect({ 0, 0 }, picture.size));
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    picture.paint(painter);
    return painter.end();
}
