#pragma once
// How far the windows are enlarged: as far as the user's system asks for, or only as far as the
// largest of them fits its screen.

#include <QByteArray>
#include <QSize>

/// The part of the system's scale at which a window of `wanted` pixels fits into `room`, both at
/// that scale. 1 if it fits, and never so little that the windows get smaller than at 100 %.
double FittingPart(QSize wanted, QSize room, double scale);

/// While it exists, Qt multiplies the system's scale by this part. An application object takes it
/// when it is made; programs started later know nothing of it.
class PartOfScale {
public:
    explicit PartOfScale(double part);
    ~PartOfScale();
    PartOfScale(PartOfScale const&) = delete;
    PartOfScale& operator=(PartOfScale const&) = delete;

private:
    QByteArray m_before;
    bool m_wasSet;
};
