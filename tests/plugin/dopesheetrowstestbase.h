#ifndef DOPESHEETROWSTESTBASE_H
#define DOPESHEETROWSTESTBASE_H

#include "testing/vxscenebuilder.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtTest>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

/// An application with an empty scene, made anew for each test function.
class DopeSheetRowsTest
{
protected:
    static constexpr int TransformTypes = TimelinePropertyTypes::Translation |
                                          TimelinePropertyTypes::Rotation |
                                          TimelinePropertyTypes::Scale;

    void setUp()
    {
        guard = std::make_unique<VxWarningGuard>();
        app = std::make_unique<VxApp>();
        builder = std::make_unique<VxSceneBuilder>(vxScene);
    }

    void tearDown()
    {
        builder.reset();
        app.reset();
        guard.reset();
    }

    static void setKeys(VxFloatProperty *property, std::initializer_list<VxTime> times)
    {
        for (const VxTime time : times)
            property->setKey(time, 1.0f, VxKeyInterp::Linear);
    }

    static QVector<VxTime> keyTimes(const VxDopeSheetItem &item)
    {
        QVector<VxTime> times;
        for (int i = 0; i < item.keyCount(); ++i)
            times.append(item.keyTime(i));
        return times;
    }

    static QVector<VxTime> selectedTimes(const VxDopeSheetItem &item)
    {
        QVector<VxTime> times;
        for (int i = 0; i < item.keyCount(); ++i) {
            if (item.isKeySelected(i))
                times.append(item.keyTime(i));
        }
        return times;
    }

    /// The labels of all rows below, each level with two spaces more in front.
    static QStringList labelsBelow(const VxDopeSheetItem *item, int depth = 0)
    {
        QStringList labels;
        for (int i = 0; i < item->childCount(); ++i) {
            labels += QString(depth * 2, QLatin1Char(' ')) + item->child(i)->label();
            labels += labelsBelow(item->child(i), depth + 1);
        }
        return labels;
    }

    static QStringList labelsAt(const QAbstractItemModel *model,
                                const QModelIndex &parent = QModelIndex())
    {
        QStringList labels;
        for (int i = 0; i < model->rowCount(parent); ++i)
            labels += model->index(i, 0, parent).data().toString();
        return labels;
    }

    /// The row of a property, anywhere below; null when there is none.
    static VxDopeSheetItem *rowOf(VxDopeSheetItem *item, const VxProperty *property)
    {
        if (item->property() == property)
            return item;
        for (int i = 0; i < item->childCount(); ++i) {
            if (VxDopeSheetItem *found = rowOf(item->child(i), property))
                return found;
        }
        return nullptr;
    }

    std::unique_ptr<VxWarningGuard> guard;
    std::unique_ptr<VxApp> app;
    std::unique_ptr<VxSceneBuilder> builder;
};

#endif
