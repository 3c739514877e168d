#ifndef VXKEYMARKPAINTER_H
#define VXKEYMARKPAINTER_H

#include <QtGui/QPixmap>
#include <QtWidgets/QStyle>
#include <vxcore/vxstyle.h>

/// The look of a key mark: everything that determines its pixmap, except the size.
struct VxKeyMarkLook
{
    enum Shape : quint8 { Diamond, Square, Circle, Aggregate, Plain, ShapeCount };

    Shape shape = Plain;
    bool selected = false;
    bool enabled = true;
    VxStyle::ColorScheme scheme = VxStyle::ColorScheme::Dark;

    static VxKeyMarkLook fromState(QStyle::State state, VxStyle::ColorScheme scheme);

    /// All looks are numbered from 0 to LookCount - 1.
    static constexpr int SchemeCount = 3;
    static constexpr int LookCount = ShapeCount * 4 * SchemeCount;
    int index() const
    {
        return ((shape * 2 + (selected ? 1 : 0)) * 2 + (enabled ? 1 : 0)) * SchemeCount +
               static_cast<int>(scheme);
    }
};

/// Draws one key mark into its own pixmap. The mark is fitted into the largest square in the
/// middle, or at the bottom of a rectangle that is higher than wide; of a square with an even side
/// the first column and row stay free, so that the mark's middle is in the column of its frame's
/// tick. Positions and line widths are whole device pixels.
QPixmap vxRenderKeyMark(const VxKeyMarkLook &look, const QSize &size, qreal devicePixelRatio);

#endif
