#ifndef DOPESHEETITEMTESTBASE_H
#define DOPESHEETITEMTESTBASE_H

#include "dopesheetrowstestbase.h"

/// A node "hip" and, after makeTree(), a tree of rows for its X and Y translation.
class DopeSheetItemTest : protected DopeSheetRowsTest
{
protected:
    void setUp()
    {
        DopeSheetRowsTest::setUp();
        m_node = builder->addNode(QStringLiteral("hip"));
        m_x = m_node->getXPosControl();
        m_y = m_node->getYPosControl();
    }

    void tearDown()
    {
        m_root.reset();
        DopeSheetRowsTest::tearDown();
    }

    /// A tree: root, group, rows for m_x and m_y, each with its keys.
    void makeTree(std::initializer_list<VxTime> x, std::initializer_list<VxTime> y)
    {
        setKeys(m_x, x);
        setKeys(m_y, y);
        m_root = std::make_unique<VxDopeSheetItem>();
        m_group = new VxDopeSheetItem;
        m_group->setParent(m_root.get());
        m_rowX = new VxDopeSheetItem;
        m_rowX->setParent(m_group);
        m_rowX->setProperty(m_x);
        m_rowY = new VxDopeSheetItem;
        m_rowY->setParent(m_group);
        m_rowY->setProperty(m_y);
    }

    VxNode *m_node = nullptr;
    VxFloatProperty *m_x = nullptr;
    VxFloatProperty *m_y = nullptr;
    std::unique_ptr<VxDopeSheetItem> m_root;
    VxDopeSheetItem *m_group = nullptr;
    VxDopeSheetItem *m_rowX = nullptr;
    VxDopeSheetItem *m_rowY = nullptr;
};

#endif
