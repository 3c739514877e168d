#ifndef BALLPANETESTBASE_H
#define BALLPANETESTBASE_H

#include "testing/keytimes.h"
#include "testing/vxmousedriver.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

/// A shown pane with a ball, whose keys and rows are clicked with the mouse. The ball has keys on
/// the frames 0, 10 and 20 of its X translation; the time is frame 10.
class BallPaneTest : protected TimePaneTest
{
protected:
    using Shape = QVector<float>; // type, tension, continuity, bias

    static Shape shapeOf(const VxFloatProperty *property, int key)
    {
        Shape shape(4);
        shape[0] = float(property->getKeyInterpolationType(key, &shape[1], &shape[2], &shape[3]));
        return shape;
    }

    void showBall()
    {
        setUp();
        addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
        addChoices(TimePaneChoice::KeyScopeFamily, {0, 1, 2, 3});
        ball = new VxNode(QStringLiteral("ball"));
        vxScene->addNode(ball);
        for (const VxTime time : {0, 1600, 3200})
            x()->setKey(time, 1.0f, VxKeyInterp::Linear);
        vxScene->setAnimRange(VxTimeRange(0, 9600));
        vxScene->setPlayRange(VxTimeRange(0, 9600));
        vxScene->setTime(1600);
        showPane(1600, 800);
        pane->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pane.get()));
        setTypes(VxTimePane::PropTranslate);
    }

    VxDopeSheetView *view() const { return pane->getDopeSheetView(); }
    VxFloatProperty *x() const { return ball->getXPosControl(); }

    QModelIndex rowOf(const VxProperty *property, const QModelIndex &parent = QModelIndex()) const
    {
        const QAbstractItemModel *model = view()->model();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            if (view()->getItem(index)->property() == property)
                return index;
            const QModelIndex below = rowOf(property, index);
            if (below.isValid())
                return below;
        }
        return QModelIndex();
    }

    /// Scrolls to the row first, as clickName() does.
    void clickKey(const VxProperty *property, VxTime time,
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        const QModelIndex row = rowOf(property);
        QVERIFY(row.isValid());
        view()->scrollTo(row);
        const int left = TimelineMetrics::shared().keyLeft(view()->columnWidth(0), time,
                                                           vxScene->getPlayRange().getStart());
        VxMouseDriver(view()->viewport())
            .click(QPoint(left + 3, view()->visualRect(row).center().y()), Qt::LeftButton,
                   modifiers);
    }

    void clickName(const VxProperty *property,
                   Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        const QModelIndex row = rowOf(property);
        QVERIFY(row.isValid());
        view()->scrollTo(row);
        VxMouseDriver(view()->viewport())
            .click(view()->visualRect(row).center(), Qt::LeftButton, modifiers);
        QVERIFY(view()->selectionModel()->isSelected(row));
    }

    void setTypes(int types) const
    {
        pane->setFilteredPropertyTypes(VxTimePane::PropertyTypes(types));
        QCoreApplication::processEvents();
        view()->expandAll();
    }

    VxNode *ball = nullptr;
};

#endif
