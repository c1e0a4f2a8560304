#include "desktop/scale.h"

#include <algorithm>

static constexpr char const* factor = "QT_SCALE_FACTOR"; // Qt's, which a user may have set

double FittingPart(QSize wanted, QSize room, double scale)
{
    double const part = std::min(static_cast<double>(room.width()) / wanted.width(),
        static_cast<double>(room.height()) / wanted.height());
    return std::min(1.0, std::max(part, 1 / std::max(scale, 1.0)));
}

PartOfScale::PartOfScale(double part)
    : m_before(qgetenv(factor))
    , m_wasSet(qEnvironmentVariableIsSet(factor))
{
    double const before = m_before.toDouble();
    qputenv(factor, QByteArray::number(part * (before > 0 ? before : 1)));
}

PartOfScale::~PartOfScale()
{
    if (m_wasSet)
        qputenv(factor, m_before);
    else
        qunsetenv(factor);
}
