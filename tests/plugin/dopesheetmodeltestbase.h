#ifndef DOPESHEETMODELTESTBASE_H
#define DOPESHEETMODELTESTBASE_H

#include "dopesheetrowstestbase.h"
#include "firstcolumnonly.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtWidgets/QTreeView>

/// The model alone and, through all that happens, behind the filter and under an open view.
class DopeSheetModelTest : public DopeSheetRowsTest
{
protected:
    using Tester = QAbstractItemModelTester;

    void setUpModel()
    {
        setUp();
        m_model = std::make_unique<VxDopeSheetModel>(int(TransformTypes), 2, nullptr);
        m_filter = std::make_unique<VxDopeSheetFilterModel>();
        m_filter->setRecursiveFilteringEnabled(true);
        m_filter->setDynamicSortFilter(false);
        m_filter->setSourceModel(m_model.get());
        m_view = std::make_unique<QTreeView>();
        m_view->setModel(m_filter.get());
        m_view->show();
        m_firstColumn.setSourceModel(m_model.get());
        m_tester = std::make_unique<Tester>(&m_firstColumn, Tester::FailureReportingMode::QtTest);
        m_filterTester =
            std::make_unique<Tester>(m_filter.get(), Tester::FailureReportingMode::QtTest);
    }

    void tearDownModel()
    {
        m_filterTester.reset();
        m_tester.reset();
        m_firstColumn.setSourceModel(nullptr);
        m_view.reset();
        m_filter.reset();
        m_model.reset();
        tearDown();
    }

    VxNode *node(const char *name, VxNode *parent = nullptr)
    {
        return builder->addNode(QString::fromLatin1(name), parent);
    }

    /// The labels of the node rows below an item.
    static QStringList nodesBelow(const VxDopeSheetItem *item)
    {
        QStringList labels;
        for (int i = 0; i < item->childCount(); ++i) {
            if (item->child(i)->node())
                labels += item->child(i)->label();
        }
        return labels;
    }
    QStringList nodesAtTop() const { return nodesBelow(m_model->getRootItem()); }

    std::unique_ptr<VxDopeSheetModel> m_model;
    std::unique_ptr<VxDopeSheetFilterModel> m_filter;
    std::unique_ptr<QTreeView> m_view;
    FirstColumnOnly m_firstColumn;
    std::unique_ptr<Tester> m_tester;
    std::unique_ptr<Tester> m_filterTester;
};

#endif
