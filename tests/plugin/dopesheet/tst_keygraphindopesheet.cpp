#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QSortFilterProxyModel>
#include <functional>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>

// The key graph in the pane, beside the dope sheet: both show the same keys, selected alike.
class TestKeyGraphInDopeSheet : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsTheSelectedRows();
    void selectingInTheGraph();
    void selectingInTheDopeSheet();
    void shownWithSelectedKeys();
    void shownTogetherWithOthers();
    void draggingInTheGraph();
    void draggingPastAnotherKey();
    void nodeRemovedDuringADrag();
    void rowsMadeAnew();
    void rowsRemovedDuringADrag_data();
    void rowsRemovedDuringADrag();
    void clearingReachesRowsLeftOut();
    void namedKeysOfRowsLeftOut();

private:
    QModelIndex rowOf(const VxProperty *property, const QModelIndex &parent = QModelIndex()) const;
    QVector<int> selectedInRow() const;
    QVector<int> selectedInGraph() const;
    QVector<VxTime> timesOfKeys() const;
    QPoint placeOfKey(int index) const;
    void clickRow();
    void clickRows(const QVector<VxProperty *> &properties);

    std::unique_ptr<VxMainWindow> m_window;
    VxNode *m_node = nullptr;
    VxFloatProperty *m_property = nullptr;
    VxDopeSheetView *m_sheet = nullptr;
    VxKeyGraphView *m_view = nullptr;
    VxKeyGraph *m_graph = nullptr;
};

void TestKeyGraphInDopeSheet::init()
{
    setUp();
    m_window = std::make_unique<VxMainWindow>();
    m_window->getPaneMgr()->addPane(pane.get());
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate);
    pane->setViewMode(VxTimePane::AdvancedView);
    vxApp->start();
    vxScene->setPlayRange(VxTimeRange(0, 160 * 60));
    vxScene->setAnimRange(VxTimeRange(0, 160 * 60));
    vxScene->setTime(160 * 55);
    m_node = new VxNode(QStringLiteral("Hip"));
    vxScene->addNode(m_node);
    m_property = m_node->getYPosControl();
    for (int i = 0; i < 4; ++i)
        m_property->setKey(160 * (10 + 10 * i), float(i), VxKeyInterp::Linear);
    showPane(1400, 700);
    m_sheet = pane->findChild<VxDopeSheetView *>();
    m_view = pane->findChild<VxKeyGraphView *>();
    m_graph = pane->findChild<VxKeyGraph *>();
    m_sheet->expandAll();
    clickRow();
    m_view->frameKeys();
}

void TestKeyGraphInDopeSheet::cleanup()
{
    tearDown();
    m_window.reset();
}

QModelIndex TestKeyGraphInDopeSheet::rowOf(const VxProperty *property,
                                           const QModelIndex &parent) const
{
    const QAbstractItemModel *model = m_sheet->model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const VxDopeSheetItem *item = m_sheet->getItem(index);
        if (item && item->property() == property)
            return index;
        const QModelIndex below = rowOf(property, index);
        if (below.isValid())
            return below;
    }
    return QModelIndex();
}

QVector<int> TestKeyGraphInDopeSheet::selectedInRow() const
{
    return m_sheet->getItem(rowOf(m_property))->selectedKeyIndexes();
}

QVector<int> TestKeyGraphInDopeSheet::selectedInGraph() const
{
    QVector<int> indexes;
    const VxKeyGraphChannel *channel = m_graph->getChannels().value(0);
    for (int i = 0; channel && i < channel->getNumKeys(); ++i) {
        if (channel->isKeySelected(i))
            indexes += i;
    }
    return indexes;
}

QVector<VxTime> TestKeyGraphInDopeSheet::timesOfKeys() const
{
    QVector<VxTime> times;
    for (int i = 0; i < m_property->getNumKeys(); ++i)
        times += m_property->getKeyTime(i);
    return times;
}

QPoint TestKeyGraphInDopeSheet::placeOfKey(int index) const
{
    const KeyGraphScale &scale = m_view->getScale();
    return QPoint(qRound(scale.x(m_property->getKeyTime(index))),
                  qRound(scale.y(double(m_property->getKeyValue(index)))));
}

void TestKeyGraphInDopeSheet::clickRow()
{
    const QModelIndex row = rowOf(m_property);
    QVERIFY(row.isValid());
    m_sheet->selectionModel()->select(row, QItemSelectionModel::ClearAndSelect |
                                               QItemSelectionModel::Rows);
    QTRY_COMPARE(m_graph->getChannels().size(), 1);
}

void TestKeyGraphInDopeSheet::clickRows(const QVector<VxProperty *> &properties)
{
    QItemSelection rows;
    for (const VxProperty *property : properties)
        rows.select(rowOf(property), rowOf(property));
    m_sheet->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect |
                                                QItemSelectionModel::Rows);
    QTRY_COMPARE(m_graph->getChannels().size(), properties.size());
}

void TestKeyGraphInDopeSheet::showsTheSelectedRows()
{
    QCOMPARE(m_graph->getChannels().at(0)->getProperty(), m_property);
    QSignalSpy lists(pane.get(), &VxTimePane::graphChannelListChanged);
    m_sheet->clearSelection();
    QTRY_COMPARE(m_graph->getChannels().size(), 0);
    QCOMPARE(lists.size(), 1);
}

void TestKeyGraphInDopeSheet::selectingInTheGraph()
{
    VxMouseDriver mouse(m_view);
    mouse.click(placeOfKey(2));
    QCOMPARE(selectedInRow(), QVector<int>{2});
    mouse.click(placeOfKey(0), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selectedInRow(), QVector<int>({0, 2}));
    mouse.click(placeOfKey(2), Qt::LeftButton, Qt::AltModifier);
    QCOMPARE(selectedInRow(), QVector<int>{0});
    mouse.drag(placeOfKey(1) - QPoint(20, -20), placeOfKey(2) + QPoint(20, -20));
    QCOMPARE(selectedInRow(), QVector<int>({1, 2}));
    QCOMPARE(selectedInGraph(), QVector<int>({1, 2}));
    mouse.click(placeOfKey(0) + QPoint(0, -80));
    QCOMPARE(selectedInRow(), QVector<int>());
}

void TestKeyGraphInDopeSheet::selectingInTheDopeSheet()
{
    const QModelIndex row = rowOf(m_property);
    m_sheet->setKeySelection(true, row, row, 160 * 20, 160 * 31);
    QCOMPARE(selectedInRow(), QVector<int>({1, 2}));
    QCOMPARE(selectedInGraph(), QVector<int>({1, 2}));
    m_sheet->clearSelectedKeys();
    QCOMPARE(selectedInGraph(), QVector<int>());
}

// Keys selected while the graph does not show them.
void TestKeyGraphInDopeSheet::shownWithSelectedKeys()
{
    m_sheet->clearSelection();
    QTRY_COMPARE(m_graph->getChannels().size(), 0);
    const QModelIndex row = rowOf(m_property);
    m_sheet->setKeySelection(true, row, row, 160 * 20, 160 * 31);
    clickRow();
    QCOMPARE(selectedInGraph(), QVector<int>({1, 2}));
    QCOMPARE(selectedInRow(), QVector<int>({1, 2}));
}

// What both sides have selected of a property stays when another one joins it.
void TestKeyGraphInDopeSheet::shownTogetherWithOthers()
{
    VxFloatProperty *other = m_node->getZPosControl();
    other->setKey(160 * 5, 1.0f, VxKeyInterp::Linear);
    other->setKey(160 * 7, 1.0f, VxKeyInterp::Linear);
    const QModelIndex otherRow = rowOf(other);
    m_sheet->setKeySelection(true, otherRow, otherRow, 160 * 7, 160 * 7);
    VxMouseDriver(m_view).click(placeOfKey(3), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selectedInRow(), QVector<int>{3});
    QSignalSpy reported(m_sheet->getKeyCommunication(), &VxKeyCommunication::sent);
    clickRows({m_property, other});
    QCOMPARE(reported.size(), 1);
    QCOMPARE(selectedInGraph(), QVector<int>{3});
    QVERIFY(!m_graph->getChannels().at(1)->isKeySelected(0));
    QVERIFY(m_graph->getChannels().at(1)->isKeySelected(1));
    clickRows({other});
    QCOMPARE(reported.size(), 1);
    QVERIFY(m_graph->getChannels().at(0)->isKeySelected(1));
}

// Value and time together; the keys stay selected on both sides, step by step.
void TestKeyGraphInDopeSheet::draggingInTheGraph()
{
    VxMouseDriver mouse(m_view);
    mouse.click(placeOfKey(1));
    mouse.click(placeOfKey(2), Qt::LeftButton, Qt::ControlModifier);
    const QPoint start = placeOfKey(2);
    mouse.press(start);
    for (const int dx : {15, 45, 100, 30}) {
        mouse.moveTo(start + QPoint(dx, -10));
        QCOMPARE(selectedInRow(), QVector<int>({1, 2}));
        QCOMPARE(selectedInGraph(), QVector<int>({1, 2}));
    }
    mouse.release(start + QPoint(30, -10));
    QVERIFY(m_property->getKeyTime(2) > 160 * 30);
    QCOMPARE(undoTexts(), QStringList{"Move Keys"});
    vxApp->getUndoStack()->undo();
    QCOMPARE(m_property->getKeyTime(2), 160 * 30);
    QCOMPARE(selectedInRow(), selectedInGraph());
}

void TestKeyGraphInDopeSheet::draggingPastAnotherKey()
{
    VxMouseDriver mouse(m_view);
    const QPoint start = placeOfKey(0);
    mouse.press(start);
    const int wayPast = placeOfKey(2).x() - start.x() + 40;
    mouse.moveTo(start + QPoint(wayPast, 0));
    QCOMPARE(selectedInRow(), QVector<int>{2});
    QCOMPARE(selectedInGraph(), QVector<int>{2});
    mouse.moveTo(start);
    QCOMPARE(selectedInRow(), QVector<int>{0});
    mouse.release(start);
    QCOMPARE(undoTexts(), QStringList());
}

void TestKeyGraphInDopeSheet::nodeRemovedDuringADrag()
{
    VxMouseDriver mouse(m_view);
    const QPoint start = placeOfKey(0);
    mouse.press(start);
    mouse.moveTo(start + QPoint(30, 0));
    vxScene->removeNode(m_node);
    mouse.moveTo(start + QPoint(60, 0));
    mouse.release(start);
    QCOMPARE(m_graph->getChannels().size(), 0);
    m_view->grab();
}

// Rows that are made anew keep their selected keys, and so does the graph.
void TestKeyGraphInDopeSheet::rowsMadeAnew()
{
    VxMouseDriver mouse(m_view);
    mouse.click(placeOfKey(1));
    QCOMPARE(selectedInRow(), QVector<int>{1});
    m_property->setKeyInterpolation(1, VxKeyInterp::Tcb, 0.5f, 0.0f, 0.0f);
    m_sheet->setKeySelection(true, rowOf(m_property), rowOf(m_property));
    QVERIFY(m_sheet->getCommonTension(nullptr));
    const auto *tension = find<QWidget>("TimelineInterpTensionSBox");
    QVERIFY(tension->isEnabled());
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropRotate);
    QCoreApplication::processEvents();
    QCOMPARE(selectedInRow().size(), m_property->getNumKeys());
    QCOMPARE(selectedInGraph(), selectedInRow());
    QVERIFY(m_sheet->getCommonTension(nullptr));
    QVERIFY(tension->isEnabled());
    // The graph lists a property only while it has a row.
    pane->setFilteredPropertyTypes(VxTimePane::PropScale);
    QCoreApplication::processEvents();
    QVERIFY(!m_sheet->hasSelectedKeys());
    QVERIFY(!tension->isEnabled());
    QCOMPARE(m_graph->getChannels().size(), 0);
}

void TestKeyGraphInDopeSheet::rowsRemovedDuringADrag_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("made anew") << QStringLiteral("refresh");
    QTest::newRow("left out") << QStringLiteral("filter");
    QTest::newRow("with the scene") << QStringLiteral("clear");
}

// The keys under the mouse lose their rows, or are removed, before the button is released.
void TestKeyGraphInDopeSheet::rowsRemovedDuringADrag()
{
    QFETCH(QString, what);
    const QVector<VxTime> before = timesOfKeys();
    const int x = TimelineMetrics::shared().keyMiddle(m_sheet->columnWidth(0), before.at(1),
                                                      vxScene->getPlayRange().getStart());
    const QPoint start(x, m_sheet->visualRect(rowOf(m_property)).center().y());
    VxMouseDriver mouse(m_sheet->viewport());
    mouse.press(start);
    QCOMPARE(selectedInRow(), QVector<int>{1});
    mouse.moveTo(start + QPoint(40, 0));
    if (what == QLatin1String("refresh"))
        pane->refreshDopesheet();
    else if (what == QLatin1String("filter"))
        m_sheet->applyFilterText(QStringLiteral("nothing of the kind"));
    else
        vxScene->clear();
    QCoreApplication::processEvents();
    mouse.moveTo(start + QPoint(3000, 0));
    mouse.release(start + QPoint(3000, 0));
    pane->grab();
    if (what == QLatin1String("clear")) {
        QVERIFY(!pane->hasSelectedKeys());
        return;
    }
    // Up to the end of the range, and no further.
    QCOMPARE(timesOfKeys(), QVector<VxTime>({160 * 10, 160 * 30, 160 * 40, 160 * 60}));
    while (vxApp->getUndoStack()->canUndo())
        vxApp->getUndoStack()->undo();
    QCOMPARE(timesOfKeys(), before);
}

// What the text filter leaves out still has its keys selected, and is cleared with the rest.
void TestKeyGraphInDopeSheet::clearingReachesRowsLeftOut()
{
    auto *knee = new VxNode(QStringLiteral("Knee"));
    vxScene->addNode(knee);
    VxKeyMessage message;
    message.clearSelection = true;
    const std::function<void()> ways[] = {
        [this, message] { m_graph->getKeyCommunication()->send(message); },
        [this] { m_sheet->clearSelectedKeys(); },
        [this, knee] {
            const QRect row = m_sheet->visualRect(m_sheet->findNodeIndex(knee));
            VxMouseDriver(m_sheet->viewport())
                .click(QPoint(m_sheet->columnWidth(0) + 5, row.center().y()));
        }};
    for (const auto &clear : ways) {
        const QModelIndex row = rowOf(m_property);
        m_sheet->setKeySelection(true, row, row, 160 * 20, 160 * 31);
        m_sheet->applyFilterText(QStringLiteral("knee"));
        QVERIFY(!rowOf(m_property).isValid());
        QVERIFY(pane->hasSelectedKeys());
        clear();
        QVERIFY(!pane->hasSelectedKeys());
        m_sheet->applyFilterText(QString());
        QCOMPARE(selectedInRow(), QVector<int>());
    }
}

void TestKeyGraphInDopeSheet::namedKeysOfRowsLeftOut()
{
    m_sheet->applyFilterText(QStringLiteral("nothing of the kind"));
    VxKeyMessage message;
    message.selectedKeys[m_property] = {1, 3};
    m_graph->getKeyCommunication()->send(message);
    m_sheet->applyFilterText(QString());
    QCOMPARE(selectedInRow(), QVector<int>({1, 3}));
    // A row that is added and removed while it is filtered out.
    m_sheet->applyFilterText(QStringLiteral("nothing of the kind"));
    auto *other = new VxNode(QStringLiteral("Knee"));
    vxScene->addNode(other);
    VxFloatProperty *property = other->getYPosControl();
    property->setKey(160, 1.0f, VxKeyInterp::Linear);
    message = VxKeyMessage();
    message.selectedKeys[property] = {0};
    m_graph->getKeyCommunication()->send(message);
    m_sheet->applyFilterText(QString());
    QCOMPARE(m_sheet->getItem(rowOf(property))->selectedKeyIndexes(), QVector<int>{0});
    m_sheet->applyFilterText(QStringLiteral("nothing of the kind"));
    message.selectedKeys.clear();
    message.deselectedKeys[property] = {0};
    vxScene->removeNode(other);
    m_graph->getKeyCommunication()->send(message);
    QVERIFY(pane->hasSelectedKeys());
}

VX_TEST_MAIN(TestKeyGraphInDopeSheet)
#include "tst_keygraphindopesheet.moc"
