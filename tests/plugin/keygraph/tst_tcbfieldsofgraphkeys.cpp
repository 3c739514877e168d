#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"

#include <QtWidgets/QDoubleSpinBox>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>

// The fields for tension, continuity and bias show the keys selected in the key graph.
class TestTcbFieldsOfGraphKeys : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fieldsFollowTheGraph();
    void commonValues_data();
    void commonValues();
    void fieldsAreUpdatedWhenADragPauses();

private:
    void selectInGraph(const QVector<int> &indexes, bool yesNo = true)
    {
        for (const int index : indexes)
            m_graph->getChannels().at(0)->setKeySelected(index, yesNo);
    }
    bool areEnabled() const
    {
        return m_fields[0]->isEnabled() && m_fields[1]->isEnabled() && m_fields[2]->isEnabled();
    }

    std::unique_ptr<VxMainWindow> m_window;
    VxFloatProperty *m_property = nullptr;
    VxDopeSheetView *m_sheet = nullptr;
    VxKeyGraph *m_graph = nullptr;
    QDoubleSpinBox *m_fields[3] = {};
};

void TestTcbFieldsOfGraphKeys::init()
{
    setUp();
    m_window = std::make_unique<VxMainWindow>();
    m_window->getPaneMgr()->addPane(pane.get());
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate);
    vxApp->start();
    auto *node = new VxNode(QStringLiteral("Hip"));
    vxScene->addNode(node);
    m_property = node->getYPosControl();
    m_property->setKey(0, 1.0f, VxKeyInterp::Tcb, 0.5f, 0.25f, -0.5f);
    m_property->setKey(160, 1.0f, VxKeyInterp::Tcb, 0.5f, -0.25f, -0.5f);
    m_property->setKey(320, 1.0f, VxKeyInterp::Tcb, -0.75f, 0.75f, 1.0f);
    m_property->setKey(480, 1.0f, VxKeyInterp::Linear);
    showPane(1400, 700);
    m_sheet = pane->findChild<VxDopeSheetView *>();
    m_graph = pane->findChild<VxKeyGraph *>();
    m_fields[0] = find<QDoubleSpinBox>("TimelineInterpTensionSBox");
    m_fields[1] = find<QDoubleSpinBox>("TimelineInterpContinuitySBox");
    m_fields[2] = find<QDoubleSpinBox>("TimelineInterpBiasSBox");
    Q_EMIT pane->dopesheetPropertyListChanged({m_property}, false);
    QCOMPARE(m_graph->getChannels().size(), 1);
}

void TestTcbFieldsOfGraphKeys::cleanup()
{
    tearDown();
    m_window.reset();
}

void TestTcbFieldsOfGraphKeys::fieldsFollowTheGraph()
{
    QVERIFY(!areEnabled());
    selectInGraph({0});
    QTRY_VERIFY(areEnabled());
    QCOMPARE(m_fields[0]->value(), 0.5);
    QCOMPARE(m_fields[1]->value(), 0.25);
    QCOMPARE(m_fields[2]->value(), -0.5);
    // Showing them is no edit.
    QCOMPARE(undoTexts(), QStringList());
    selectInGraph({0}, false);
    QTRY_VERIFY(!areEnabled());
}

void TestTcbFieldsOfGraphKeys::commonValues_data()
{
    using Values = QVector<double>;
    QTest::addColumn<QVector<int>>("selected");
    QTest::addColumn<Values>("shown"); // 9 where the field keeps what it had
    QTest::newRow("one") << QVector<int>{2} << Values{-0.75, 0.75, 1.0};
    QTest::newRow("two with the same tension and bias")
        << QVector<int>{0, 1} << Values{0.5, 9.0, -0.5};
    QTest::newRow("all different") << QVector<int>{0, 1, 2} << Values{9.0, 9.0, 9.0};
    QTest::newRow("another type does not count") << QVector<int>{2, 3} << Values{-0.75, 0.75, 1.0};
}

void TestTcbFieldsOfGraphKeys::commonValues()
{
    QFETCH(QVector<int>, selected);
    QFETCH(QVector<double>, shown);
    selectInGraph(selected);
    float values[3] = {9.0f, 9.0f, 9.0f};
    QCOMPARE(m_sheet->getCommonTension(&values[0]), shown.at(0) != 9.0);
    QCOMPARE(m_sheet->getCommonContinuity(&values[1]), shown.at(1) != 9.0);
    QCOMPARE(m_sheet->getCommonBias(&values[2]), shown.at(2) != 9.0);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(double(values[i]), shown.at(i));
}

// A drag reports its keys at every mouse move; the fields are updated when it pauses.
void TestTcbFieldsOfGraphKeys::fieldsAreUpdatedWhenADragPauses()
{
    QSignalSpy written(m_fields[0], QOverload<double>::of(&QDoubleSpinBox::valueChanged));
    selectInGraph({0});
    selectInGraph({0}, false);
    selectInGraph({2});
    QCOMPARE(written.count(), 0);
    QTRY_COMPARE(m_fields[0]->value(), -0.75);
    QCOMPARE(written.count(), 1);
}

VX_TEST_MAIN(TestTcbFieldsOfGraphKeys)
#include "tst_tcbfieldsofgraphkeys.moc"
