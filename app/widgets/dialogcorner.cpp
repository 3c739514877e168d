#include "widgets/dialogcorner.h"

#include <QDialog>
#include <QScreen>

namespace {

constexpr int CornerMargin = 12; // pixels; with room for a window frame

} // namespace

void placeInCorner(QDialog *dialog, const QWidget *widget)
{
    dialog->adjustSize();
    const QSize size = dialog->size() + QSize(CornerMargin, CornerMargin);
    const QPoint corner = widget->mapToGlobal(widget->rect().bottomRight());
    QPoint at = corner - QPoint(size.width(), size.height());
    if (const QScreen *screen = widget->screen()) {
        const QRect area = screen->availableGeometry();
        at.setX(qBound(area.left(), at.x(), qMax(area.left(), area.right() - size.width())));
        at.setY(qBound(area.top(), at.y(), qMax(area.top(), area.bottom() - size.height())));
    }
    dialog->move(at);
}
