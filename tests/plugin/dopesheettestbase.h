#ifndef DOPESHEETTESTBASE_H
#define DOPESHEETTESTBASE_H

#include "testing/vxwarningguard.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"
#include "vxtimeline/time/timelinemetrics.h"

#include <QtTest>
#include <QtWidgets/QApplication>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

/// An application with a scene of four nodes and a dope sheet of their translations, made anew for
/// each test function:
///   hip
///     Properties > General/Transforms/Translation > X, Y, Z
///     leg
///       Properties > ...
///     arm
///       Properties > ...
///   ball
///     Properties > ...
/// The scale is the default one: ten pixels a frame of 160 ticks, time 0 two pixels from the
/// column's edge.
class DopeSheetTest
{
protected:
    void setUp()
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        QApplication::setFont(font);
        TimelineMetrics::shared() = TimelineMetrics();
        guard = std::make_unique<VxWarningGuard>();
        app = std::make_unique<VxApp>();
        hip = addNode("hip");
        leg = addNode("leg", hip);
        arm = addNode("arm", hip);
        ball = addNode("ball");
        vxScene->setAnimRange(VxTimeRange(0, 9600));
        vxScene->setPlayRange(VxTimeRange(0, 9600));

        model = std::make_unique<VxDopeSheetModel>(TimelinePropertyTypes::Translation, 2, nullptr);
        model->addNode(hip, true);
        model->addNode(ball, true);
        view = std::make_unique<VxDopeSheetView>(nullptr);
        header = new VxDopeSheetHeaderView(view.get());
        view->setHeader(header);
        view->setModel(model.get());
        view->setColumnWidth(VxDopeSheetView::NameColumn, 200);
        QObject::connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, view.get(),
                         &VxDopeSheetView::handleSelectionChanged);
    }

    void tearDown()
    {
        view.reset();
        model.reset();
        app.reset();
        guard.reset();
    }

    void showView(int width = 900, int height = 500)
    {
        view->resize(width, height);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    }

    static VxNode *addNode(const char *name, VxNode *parent = nullptr)
    {
        auto *node = new VxNode(QLatin1String(name));
        vxScene->addNode(node, parent);
        return node;
    }

    static void addKeys(VxFloatProperty *property, std::initializer_list<VxTime> times,
                        int type = VxKeyInterp::Linear)
    {
        for (const VxTime time : times)
            property->setKey(time, 1.0f, type);
    }

    QModelIndex rowOf(VxNode *node) const { return model->indexOf(model->findItem(node)); }
    QModelIndex groupOf(VxNode *node) const
    {
        return model->index(0, 0, model->index(0, 0, rowOf(node)));
    }
    /// axis: 0 for X.
    QModelIndex translationOf(VxNode *node, int axis) const
    {
        return model->index(axis, 0, groupOf(node));
    }

    /// The times of the selected keys of a row.
    QVector<VxTime> selected(const QModelIndex &row) const
    {
        QVector<VxTime> times;
        const VxDopeSheetItem *item = model->getItem(row);
        for (int i = 0; i < item->keyCount(); ++i) {
            if (item->isKeySelected(i))
                times.append(item->keyTime(i));
        }
        return times;
    }

    std::unique_ptr<VxWarningGuard> guard;
    std::unique_ptr<VxApp> app;
    std::unique_ptr<VxDopeSheetModel> model;
    std::unique_ptr<VxDopeSheetView> view;
    VxDopeSheetHeaderView *header = nullptr; // the view's
    VxNode *hip = nullptr;                   // the scene's, all of them
    VxNode *leg = nullptr;
    VxNode *arm = nullptr;
    VxNode *ball = nullptr;
};

#endif
