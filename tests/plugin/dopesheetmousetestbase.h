#ifndef DOPESHEETMOUSETESTBASE_H
#define DOPESHEETMOUSETESTBASE_H

#include "dopesheettestbase.h"
#include "testing/keytimes.h"
#include "testing/vxmousedriver.h"
#include "vxtimeline/time/timelineplayback.h"

#include <vxcore/vxundostack.h>

/// The mouse over the dope sheet, with real events: hip's X has keys on the frames 0, 10, 20 and 59
/// of 60, its Y on 10, ball's X on 10. All rows are open; a frame takes ten pixels.
class DopeSheetMouseTest : public DopeSheetTest
{
protected:
    void setUpMouse()
    {
        setUp();
        addKeys(hip->getXPosControl(), {0, 1600, 3200, 9440});
        addKeys(hip->getYPosControl(), {1600});
        addKeys(ball->getXPosControl(), {1600});
        view->expandAll();
        showView(1000, 700);
    }

    void tearDownMouse()
    {
        TimelinePlayback::setPlaysAllFrames(false);
        tearDown();
    }

    int keyX(VxTime time) const
    {
        return TimelineMetrics::shared().keyLeft(view->columnWidth(0), time, 0) + 4;
    }
    QPoint at(const QModelIndex &row, VxTime time) const
    {
        return QPoint(keyX(time), view->visualRect(row).center().y());
    }
    QModelIndex hipX() const { return translationOf(hip, 0); }
    VxMouseDriver mouse() const { return VxMouseDriver(view->viewport()); }
    void click(const QModelIndex &row, VxTime time,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        mouse().click(at(row, time), Qt::LeftButton, modifiers);
    }
    /// Selects by program, so that drags begin with a defined selection.
    void select(const QModelIndex &row, VxTime start, VxTime end)
    {
        view->setKeySelection(true, row, row, start, end);
    }
    void drag(const QPoint &from, int dx, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        VxMouseDriver hand = mouse();
        hand.press(from, Qt::LeftButton, modifiers);
        hand.moveTo(from + QPoint(dx / 2, 0), modifiers);
        hand.moveTo(from + QPoint(dx, 0), modifiers);
        hand.release(from + QPoint(dx, 0), Qt::LeftButton, modifiers);
    }
    /// Moves by a pixel about a position until the dragged keys are shown there.
    void waitForPreview(VxMouseDriver &hand, const QPoint &position, const Times &expected)
    {
        int up = 0;
        const auto isShown = [&] {
            up = 1 - up;
            hand.moveTo(position - QPoint(0, up));
            return keyTimes(hip->getXPosControl()) == expected;
        };
        QTRY_VERIFY(isShown());
    }
    static int undoCount() { return vxApp->getUndoStack()->count(); }
};

#endif
