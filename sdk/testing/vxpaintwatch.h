#ifndef VXPAINTWATCH_H
#define VXPAINTWATCH_H

#include <QtCore/QObject>
#include <QtGui/QPaintEvent>
#include <QtGui/QRegion>
#include <QtWidgets/QWidget>

/** Counts how often a widget is painted, and adds up where. */
class VxPaintWatch : public QObject
{
public:
    explicit VxPaintWatch(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            region += static_cast<QPaintEvent *>(event)->region();
        }
        return false;
    }

    int count = 0;
    QRegion region;
};

#endif
