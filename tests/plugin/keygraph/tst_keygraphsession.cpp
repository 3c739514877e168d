#include "testing/vxlostrelease.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <cstring>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr VxTime Frame = 160;
constexpr VxTime Duration = Frame * 60;
constexpr int TestCount = 300;

// VX_RANDOM_GESTURES: another number of gestures than the one of an ordinary run. VX_RANDOM_SEED:
// other gestures.
int gestureCount()
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue("VX_RANDOM_GESTURES", &isNumber);
    return isNumber ? count : TestCount;
}

struct Key
{
    VxTime time;
    float value;
    int type;
    VxTcb tcb;

    friend bool operator==(const Key &a, const Key &b)
    {
        return a.time == b.time && std::memcmp(&a.value, &b.value, sizeof a.value) == 0 &&
               a.type == b.type && a.tcb == b.tcb;
    }
};

} // namespace

// A long session of random gestures in the dope sheet and the key graph of one pane, on properties
// with aliases, overriding controls and links, in subtrees that are removed and re-parented. After
// each of them both views show the same keys, selected alike; a drag whose release is lost leaves
// every key as it was; in the end everything can be undone and redone.
//
// The graph's operation that moves a single key past others sends the flags of its two ends only.
// No gesture uses it: a drag sends the whole selection.
class TestKeyGraphSession : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void randomGestures();

private:
    using Scene = std::vector<std::vector<Key>>;

    int below(int limit) { return int(random() % unsigned(limit)); }
    Qt::KeyboardModifiers someModifiers();
    QModelIndex rowOf(const VxProperty *property, const QModelIndex &parent = QModelIndex()) const;
    void showSome();
    bool isInScene(const VxProperty *property) const
    {
        return static_cast<const VxNode *>(property->getOwner())->getScene() == vxScene;
    }
    Scene scene() const;

    QPoint somewhere(const QWidget *widget);
    QPoint someKeyInGraph();
    QPoint someKeyInSheet();
    void click(QWidget *widget, const QPoint &place);
    void drag(QWidget *widget, const QPoint &from, Qt::KeyboardModifiers modifiers,
              int reach = 100);
    void loseRelease(QWidget *widget);
    void changeDependency();
    void changeNodes();
    void gestureInGraph();
    void gestureInSheet();
    void command();
    void gesture();

    void check();
    void checkSelection(const VxKeyGraphChannel *channel);

    std::mt19937 random{9};
    std::unique_ptr<VxMainWindow> window;
    QVector<VxNode *> nodes;               // removed ones are kept by the history
    QVector<VxFloatProperty *> properties; // theirs
    VxDopeSheetView *sheet = nullptr;
    VxKeyGraphView *view = nullptr;
    VxKeyGraph *graph = nullptr;
    QString last; // what was done, for messages
    Scene atPress;
    int indexAtPress = 0;
    int selectedSeen = 0;
    int lostReleases = 0;
    int dependencies = 0;
    int nodeChanges = 0;
};

void TestKeyGraphSession::init()
{
    setUp();
    window = std::make_unique<VxMainWindow>();
    window->getPaneMgr()->addPane(pane.get());
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropRotate |
                                   VxTimePane::PropAlias);
    pane->setViewMode(VxTimePane::AdvancedView);
    vxApp->start();
    vxScene->setPlayRange(VxTimeRange(0, Duration));
    vxScene->setAnimRange(VxTimeRange(0, Duration));
    for (const char *name : {"Hip", "Knee", "Foot"}) {
        auto *node = new VxNode(QLatin1String(name));
        vxScene->addNode(node, nodes.isEmpty() ? nullptr : nodes.last());
        nodes += node;
        properties += {node->getXPosControl(), node->getZRotControl()};
    }
    for (VxFloatProperty *property : qAsConst(properties)) {
        for (int i = 0; i < 8; ++i)
            property->setKey(below(12) * Frame * 5 + below(3) * 40, float(below(20)), below(3),
                             float(below(3)) - 1.0f, 0.0f, 0.5f);
    }
    // Keys of others: the same two and more rows, and as many channels, show them.
    for (VxNode *node : qAsConst(nodes))
        properties += node->getYPosControl();
    QVERIFY(nodes[0]->getYPosControl()->setAliasedProperty(nodes[0]->getXPosControl()));
    QVERIFY(nodes[1]->getYPosControl()->setOverridingControl(nodes[0]->getXPosControl()));
    QVERIFY(nodes[2]->getYPosControl()->setLink(nodes[1]->getXPosControl()));
    showPane(1000, 620);
    sheet = pane->findChild<VxDopeSheetView *>();
    view = pane->findChild<VxKeyGraphView *>();
    graph = pane->findChild<VxKeyGraph *>();
    sheet->expandAll();
    showSome();
    view->frameKeys();
}

void TestKeyGraphSession::cleanup()
{
    properties.clear();
    nodes.clear();
    tearDown();
    window.reset();
}

QModelIndex TestKeyGraphSession::rowOf(const VxProperty *property, const QModelIndex &parent) const
{
    const QAbstractItemModel *model = sheet->model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        const VxDopeSheetItem *item = sheet->getItem(index);
        if (item && item->property() == property)
            return index;
        const QModelIndex under = rowOf(property, index);
        if (under.isValid())
            return under;
    }
    return QModelIndex();
}

Qt::KeyboardModifiers TestKeyGraphSession::someModifiers()
{
    switch (below(8)) {
    case 0:
    case 1:
        return Qt::ControlModifier;
    case 2:
        return Qt::AltModifier;
    case 3:
        return Qt::ShiftModifier;
    default:
        return Qt::NoModifier;
    }
}

// Other rows are selected, and so the graph shows other curves.
void TestKeyGraphSession::showSome()
{
    last = QStringLiteral("other rows");
    QItemSelection rows;
    for (const VxFloatProperty *property : qAsConst(properties)) {
        const QModelIndex row = rowOf(property);
        if (row.isValid() && below(3) != 0)
            rows.select(row, row);
    }
    sheet->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect |
                                              QItemSelectionModel::Rows);
}

TestKeyGraphSession::Scene TestKeyGraphSession::scene() const
{
    Scene all;
    for (const VxFloatProperty *property : properties) {
        all.emplace_back();
        if (!isInScene(property))
            continue;
        for (int i = 0; i < property->getNumKeys(); ++i) {
            Key key{property->getKeyTime(i), property->getKeyValue(i), 0, {}};
            key.type = property->getKeyInterpolationType(i, &key.tcb.tension, &key.tcb.continuity,
                                                         &key.tcb.bias);
            all.back().push_back(key);
        }
    }
    return all;
}

QPoint TestKeyGraphSession::somewhere(const QWidget *widget)
{
    // Mostly where keys are.
    const int names = widget == sheet->viewport() && below(8) != 0 ? sheet->columnWidth(0) : 0;
    return QPoint(names + below(widget->width() - names), below(widget->height()));
}

// Anywhere when there is none.
QPoint TestKeyGraphSession::someKeyInGraph()
{
    const QVector<VxKeyGraphChannel *> channels = graph->getChannels();
    if (channels.isEmpty())
        return somewhere(view);
    const VxKeyGraphChannel *channel = channels.at(below(channels.size()));
    if (channel->getNumKeys() == 0)
        return somewhere(view);
    const int index = below(channel->getNumKeys());
    const QPoint place(qRound(view->getScale().x(channel->getKeyTime(index))),
                       qRound(view->getScale().y(channel->getKeyValue(index))));
    return view->rect().contains(place) ? place : somewhere(view);
}

QPoint TestKeyGraphSession::someKeyInSheet()
{
    const VxFloatProperty *property = properties.at(below(properties.size()));
    const QRect row = sheet->visualRect(rowOf(property));
    if (property->getNumKeys() == 0 || !sheet->viewport()->rect().intersects(row))
        return somewhere(sheet->viewport());
    const VxTime time = property->getKeyTime(below(property->getNumKeys()));
    const int x = TimelineMetrics::shared().keyMiddle(sheet->columnWidth(0), time,
                                                      vxScene->getPlayRange().getStart());
    return QPoint(x, row.center().y());
}

void TestKeyGraphSession::click(QWidget *widget, const QPoint &place)
{
    VxMouseDriver(widget).click(place, Qt::LeftButton, someModifiers());
}

void TestKeyGraphSession::drag(QWidget *widget, const QPoint &from, Qt::KeyboardModifiers modifiers,
                               int reach)
{
    VxMouseDriver mouse(widget);
    atPress = scene();
    indexAtPress = vxApp->getUndoStack()->index();
    mouse.press(from, Qt::LeftButton, modifiers);
    QPoint to = from;
    for (int steps = 1 + below(3); steps > 0; --steps) {
        to = from + QPoint(below(2 * reach) - reach, below(reach) - reach / 2);
        mouse.moveTo(to, below(3) == 0 ? someModifiers() : modifiers);
    }
    if (below(5) == 0)
        loseRelease(widget);
    mouse.release(to, Qt::LeftButton, modifiers);
}

// The release that follows counts for nothing.
void TestKeyGraphSession::loseRelease(QWidget *widget)
{
    ++lostReleases;
    vxLoseRelease(widget, below(VxLostReleaseWays));
    QVERIFY(!vxApp->getUndoStack()->isRecording());
    QVERIFY(scene() == atPress);
    QCOMPARE(vxApp->getUndoStack()->index(), indexAtPress);
}

void TestKeyGraphSession::changeDependency()
{
    last = QStringLiteral("dependency");
    ++dependencies;
    VxUndoStackHold hold;
    VxFloatProperty *property = nodes[below(nodes.size())]->getYPosControl();
    VxFloatProperty *target = properties[below(properties.size())];
    switch (below(4)) { // refused where it would make a circle
    case 0:
        property->setAliasedProperty(target);
        break;
    case 1:
        property->setOverridingControl(target);
        break;
    case 2:
        property->setLink(target);
        break;
    default:
        property->setAliasedProperty(nullptr);
        property->setOverridingControl(nullptr);
        property->setLink(nullptr);
    }
    hold.accept(last);
}

// The first node stays, so that there is always something to work on.
void TestKeyGraphSession::changeNodes()
{
    VxNode *node = nodes[1 + below(nodes.size() - 1)];
    if (node->getScene() != vxScene)
        return;
    ++nodeChanges;
    VxUndoStackHold hold;
    if (below(3) == 0) {
        last = QStringLiteral("remove");
        vxScene->removeNode(node);
    } else {
        last = QStringLiteral("re-parent");
        VxNode *parent = nodes[below(nodes.size())];
        if (parent->getScene() == vxScene)
            node->setNodeParent(parent); // refused below itself
    }
    hold.accept(last);
}

void TestKeyGraphSession::gestureInGraph()
{
    const int kind = below(8);
    last = QStringLiteral("graph %1").arg(kind);
    switch (kind) {
    case 0:
        click(view, somewhere(view));
        break;
    case 1:
    case 2:
        click(view, someKeyInGraph());
        break;
    case 3:
        drag(view, somewhere(view), someModifiers(), 500);
        break;
    case 4:
        VxMouseDriver(view).doubleClick(someKeyInGraph());
        break;
    case 5:
        if (below(2) == 0)
            VxMouseDriver(view).drag(somewhere(view), somewhere(view), Qt::MiddleButton);
        else
            view->frameKeys(below(2) == 0);
        break;
    default:
        drag(view, someKeyInGraph(), someModifiers());
        break;
    }
}

void TestKeyGraphSession::gestureInSheet()
{
    last = QStringLiteral("sheet");
    switch (below(6)) {
    case 0:
        click(sheet->viewport(), somewhere(sheet->viewport()));
        break;
    case 1:
    case 2:
        click(sheet->viewport(), someKeyInSheet());
        break;
    case 3:
        drag(sheet->viewport(), somewhere(sheet->viewport()), someModifiers(), 500);
        break;
    default:
        drag(sheet->viewport(), someKeyInSheet(), someModifiers());
        break;
    }
}

void TestKeyGraphSession::command()
{
    VxUndoStack *stack = vxApp->getUndoStack();
    switch (below(20)) {
    case 0:
        last = QStringLiteral("delete");
        if (below(3) == 0)
            pane->deleteSelectedKeys();
        break;
    case 1:
        last = QStringLiteral("copy");
        pane->copySelectedKeys();
        break;
    case 2:
        last = QStringLiteral("paste");
        pane->pasteKeys();
        break;
    case 3:
        last = QStringLiteral("type");
        pane->setInterpType(below(3));
        break;
    case 4:
        last = QStringLiteral("clear");
        sheet->clearSelectedKeys();
        break;
    case 5:
        showSome();
        break;
    case 6:
        vxScene->setTime(below(60) * Frame);
        break;
    case 7:
    case 8:
        last = QStringLiteral("undo");
        for (int i = below(4); i >= 0; --i)
            stack->undo();
        break;
    case 9:
        last = QStringLiteral("redo");
        for (int i = below(4); i >= 0; --i)
            stack->redo();
        break;
    case 10:
    case 11:
        changeDependency();
        break;
    case 12:
        changeNodes();
        break;
    default:
        last = QStringLiteral("select");
        const QModelIndex row = rowOf(properties.at(below(properties.size())));
        if (!row.isValid())
            break;
        const VxTime start = below(60) * Frame;
        sheet->setKeySelection(below(3) != 0, row, row, start, start + below(20) * Frame);
        break;
    }
}

void TestKeyGraphSession::gesture()
{
    if (graph->getChannels().isEmpty() && below(2) == 0)
        showSome();
    switch (below(5)) {
    case 0:
    case 1:
        gestureInGraph();
        break;
    case 2:
    case 3:
        gestureInSheet();
        break;
    default:
        command();
        break;
    }
    QCoreApplication::processEvents();
}

void TestKeyGraphSession::checkSelection(const VxKeyGraphChannel *channel)
{
    const VxDopeSheetItem *item = sheet->getItem(rowOf(channel->getProperty()));
    QVERIFY(item);
    QVector<int> inGraph;
    for (int i = 0; i < channel->getNumKeys(); ++i) {
        if (channel->isKeySelected(i))
            inGraph += i;
    }
    QCOMPARE(inGraph, item->selectedKeyIndexes());
    selectedSeen += inGraph.size();
}

void TestKeyGraphSession::check()
{
    for (const VxFloatProperty *property : qAsConst(properties)) {
        if (!isInScene(property)) {
            QVERIFY(!rowOf(property).isValid());
            continue;
        }
        const VxDopeSheetItem *item = sheet->getItem(rowOf(property));
        if (!item) // a property that is linked has no row
            continue;
        QCOMPARE(item->keyCount(), property->getNumKeys());
        for (int i = 0; i < property->getNumKeys(); ++i) {
            QVERIFY(i == 0 || property->getKeyTime(i - 1) < property->getKeyTime(i));
            QCOMPARE(item->keyTime(i), property->getKeyTime(i));
        }
    }
    for (const VxKeyGraphChannel *channel : graph->getChannels())
        checkSelection(channel);
    QVERIFY(!QWidget::mouseGrabber());
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestKeyGraphSession::randomGestures()
{
    VxUndoStack *stack = vxApp->getUndoStack();
    stack->clear();
    const Scene start = scene();
    check();
    const int count = gestureCount();
    bool hasSeed = false;
    const int seed = qEnvironmentVariableIntValue("VX_RANDOM_SEED", &hasSeed);
    if (hasSeed)
        random.seed(unsigned(seed));
    int edits = 0;
    Scene former = start;
    for (int i = 0; i < count; ++i) {
        gesture();
        check();
        Scene now = scene();
        edits += now == former ? 0 : 1;
        former.swap(now);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("after gesture %1, %2").arg(i).arg(last)));
    }
    const Scene end = scene();
    const int done = stack->index();
    while (stack->index() > 0)
        stack->undo();
    QVERIFY(scene() == start);
    check();
    while (stack->index() < done)
        stack->redo();
    QVERIFY(scene() == end);
    check();
    QVERIFY2(selectedSeen > count / 4, qPrintable(QString::number(selectedSeen)));
    QVERIFY2(edits > count / 20, qPrintable(QString::number(edits)));
    QVERIFY2(lostReleases > count / 50, qPrintable(QString::number(lostReleases)));
    QVERIFY2(dependencies > 0, qPrintable(QString::number(dependencies)));
    QVERIFY2(nodeChanges > 0, qPrintable(QString::number(nodeChanges)));
}

VX_TEST_MAIN(TestKeyGraphSession)
#include "tst_keygraphsession.moc"
