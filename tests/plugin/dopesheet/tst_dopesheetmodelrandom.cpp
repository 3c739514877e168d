#include "dopesheetrowstestbase.h"
#include "firstcolumnonly.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/dopesheetfiltertext.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"

#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPointer>
#include <QtTest/QAbstractItemModelTester>
#include <map>
#include <random>
#include <set>
#include <vxcore/vxmorph.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

using Tester = QAbstractItemModelTester;

namespace {

// What the sheet ought to hold, in the plainest way: the nodes below each node, null for the top.
class PlainSheet
{
public:
    const QVector<VxNode *> &below(VxNode *node) { return m_below[node]; }
    bool has(VxNode *node) const { return m_nodes.count(node) > 0; }
    const std::set<VxNode *> &nodes() const { return m_nodes; }

    void add(VxNode *node)
    {
        if (!m_nodes.insert(node).second)
            return;
        if (node->getNodeParent())
            add(node->getNodeParent());
        m_below[node->getNodeParent()].append(node);
    }

    void remove(VxNode *node)
    {
        const QVector<VxNode *> children = m_below[node];
        for (VxNode *child : children)
            remove(child);
        m_below.erase(node);
        m_nodes.erase(node);
        takeOut(node);
    }

    void move(VxNode *node, VxNode *parent)
    {
        if (!has(node))
            return;
        if (parent)
            add(parent);
        takeOut(node);
        m_below[parent].append(node);
    }

    void moveAtTop(VxNode *node, int to)
    {
        QVector<VxNode *> &top = m_below[nullptr];
        const int from = top.indexOf(node);
        if (from >= 0 && to >= 0 && to < top.size())
            top.move(from, to);
    }

private:
    void takeOut(VxNode *node)
    {
        for (auto &entry : m_below)
            entry.second.removeAll(node);
    }

    std::map<VxNode *, QVector<VxNode *>> m_below;
    std::set<VxNode *> m_nodes;
};

} // namespace

// Random sessions with the model, the filter and an open view with a selection: nodes are added,
// removed, moved, renamed, restored and filtered. After each step the rows are those of a naive
// model; the testers watch every signal.
class TestDopeSheetModelRandom : public QObject, private DopeSheetRowsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sessions_data();
    void sessions();

private:
    int below(int limit) { return int(m_random() % unsigned(limit)); }
    QString anyName();
    VxNode *anyNode();
    VxNode *anyNodeOrNone() { return below(4) == 0 ? nullptr : anyNode(); }
    QModelIndex anyRow();

    void step();
    void addNode();
    void removeNode();
    void reparent();
    void rename();
    void moveAtTop();
    void changeKeys();
    void changeObject();
    void changeDependency();
    void changeObjectOrDependency();
    void sendMessage();
    void changeView();
    void changeFilter();
    void travel();

    void settle();
    void checkNodes(VxNode *node, const VxDopeSheetItem *item);
    void checkKeys(const VxDopeSheetItem *item, QMap<VxTime, bool> *above);
    void checkFiltered(const VxDopeSheetItem *item, const QModelIndex &shown);
    bool isShown(const VxDopeSheetItem *item) const;
    void followRows();
    void checkSelection(const QModelIndex &parent);

    // A row, and what follows it through both models.
    struct Followed
    {
        QPointer<VxDopeSheetItem> item;
        QPersistentModelIndex index;
        QPersistentModelIndex shown;
    };

    std::mt19937 m_random;
    PlainSheet m_plain;
    QRegExp m_pattern;
    QVector<Followed> m_followed;
    std::unique_ptr<VxDopeSheetModel> m_model;
    std::unique_ptr<VxDopeSheetFilterModel> m_filter;
    std::unique_ptr<VxDopeSheetView> m_view;
    FirstColumnOnly m_firstColumn;
    std::unique_ptr<Tester> m_tester;
    std::unique_ptr<Tester> m_filterTester;
};

void TestDopeSheetModelRandom::init()
{
    setUp();
    m_plain = PlainSheet();
    m_pattern = QRegExp();
    QFETCH(int, types);
    m_model = std::make_unique<VxDopeSheetModel>(types, 2, nullptr);
    m_filter = std::make_unique<VxDopeSheetFilterModel>();
    m_filter->setRecursiveFilteringEnabled(true);
    m_filter->setDynamicSortFilter(false);
    m_filter->setSourceModel(m_model.get());
    m_view = std::make_unique<VxDopeSheetView>(nullptr);
    m_view->setFilterModel(m_filter.get());
    m_view->setModel(m_filter.get());
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, m_view.get(),
            &VxDopeSheetView::handleSelectionChanged);
    m_view->show();
    m_firstColumn.setSourceModel(m_model.get());
    m_tester = std::make_unique<Tester>(&m_firstColumn, Tester::FailureReportingMode::QtTest);
    m_filterTester = std::make_unique<Tester>(m_filter.get(), Tester::FailureReportingMode::QtTest);

    connect(m_model.get(), &VxDopeSheetModel::namesChanged, this, [this] {
        if (!m_pattern.isEmpty())
            m_filter->invalidate();
    });
    // Some nodes have a row only because nodes below them have one.
    connect(vxScene, &VxScene::nodeAdded, m_model.get(), [this](VxNode *node) {
        if (node->isIkNode())
            return;
        m_model->addNode(node);
        m_plain.add(node);
    });
    connect(vxScene, &VxScene::aboutToRemoveNode, m_model.get(), [this](VxNode *node) {
        m_model->removeNode(node);
        m_plain.remove(node);
    });
    connect(vxScene, &VxScene::nodeParentChanged, m_model.get(),
            [this](VxNode *node, VxNode *, VxNode *parent) { m_plain.move(node, parent); });
}

void TestDopeSheetModelRandom::cleanup()
{
    m_followed.clear();
    m_filterTester.reset();
    m_tester.reset();
    m_firstColumn.setSourceModel(nullptr);
    m_view.reset();
    m_filter.reset();
    m_model.reset();
    tearDown();
}

QString TestDopeSheetModelRandom::anyName()
{
    const char *const names[] = {"hip", "lHip", "knee", "Hip bend", "foot", "ankle"};
    return QString::fromLatin1(names[below(6)]);
}

VxNode *TestDopeSheetModelRandom::anyNode()
{
    QVector<VxNode *> nodes;
    VxNodeListIterator all = vxScene->nodeListIterator();
    while (all.hasNext())
        nodes.append(all.next());
    return nodes.isEmpty() ? nullptr : nodes.at(below(nodes.size()));
}

QModelIndex TestDopeSheetModelRandom::anyRow()
{
    QModelIndex index;
    for (;;) {
        const int rows = m_filter->rowCount(index);
        if (rows == 0 || (index.isValid() && below(4) == 0))
            return index;
        index = m_filter->index(below(rows), 0, index);
    }
}

void TestDopeSheetModelRandom::addNode()
{
    auto *node = new VxNode(anyName());
    node->setIkNode(below(5) == 0);
    VxNode *last = node;
    for (int i = below(6); i >= 4 - below(2); --i) {
        auto *child = new VxNode(anyName());
        last->addNodeChild(child);
        last = child;
    }
    // A node without keys gets its property rows later.
    if (below(2) == 0)
        setKeys(node->getXPosControl(), {VxTime(below(20)), VxTime(below(20))});
    vxScene->addNode(node, anyNodeOrNone());
}

void TestDopeSheetModelRandom::removeNode()
{
    if (VxNode *node = anyNode())
        vxScene->removeNode(node);
}

void TestDopeSheetModelRandom::reparent()
{
    if (VxNode *node = anyNode())
        node->setNodeParent(anyNodeOrNone());
}

void TestDopeSheetModelRandom::rename()
{
    if (VxNode *node = anyNode())
        node->setLabel(anyName());
}

void TestDopeSheetModelRandom::moveAtTop()
{
    VxNode *node = anyNode();
    const int row = m_plain.below(nullptr).indexOf(node);
    switch (below(4)) {
    case 0:
        m_model->moveRootRowToTop(node);
        m_plain.moveAtTop(node, 0);
        break;
    case 1:
        m_model->moveRootRowUp(node);
        m_plain.moveAtTop(node, row - 1);
        break;
    case 2:
        m_model->moveRootRowDown(node);
        m_plain.moveAtTop(node, row + 1);
        break;
    default:
        m_model->moveRootRowToBottom(node);
        m_plain.moveAtTop(node, m_plain.below(nullptr).size() - 1);
    }
}

void TestDopeSheetModelRandom::changeKeys()
{
    VxNode *node = anyNode();
    if (!node)
        return;
    VxFloatProperty *property = below(2) == 0 ? node->getXPosControl() : node->getYPosControl();
    if (below(3) > 0)
        setKeys(property, {VxTime(below(20))});
    else
        property->deleteKeys(VxTimeRange(VxTime(below(20)), 20));
    if (VxDopeSheetItem *row = rowOf(m_model->getRootItem(), property))
        row->setKeysSelected(below(2) == 0, VxTime(below(20)), VxTime(below(40)));
}

// The rows of a node's object are added and removed with it; where only transform controls are
// listed there are none.
void TestDopeSheetModelRandom::changeObject()
{
    VxNode *node = anyNode();
    if (!node)
        return;
    if (node->getObject() && below(2) == 0) {
        node->setObject(nullptr);
        return;
    }
    for (const VxMorph *morph : builder->addMorphs(node, 1 + below(2)))
        setKeys(morph->getValueControl(), {VxTime(below(20))});
    if (VxDopeSheetItem *row = rowOf(m_model->getRootItem(), node->getXPosControl()))
        row->setKeysSelected(true, 0, 10);
}

// Aliases, overriding controls and links: rows show the keys of another property, and those are
// removed with subtrees and restored by undo.
void TestDopeSheetModelRandom::changeDependency()
{
    VxNode *node = anyNode();
    VxNode *other = anyNode();
    if (!node || node == other)
        return;
    VxFloatProperty *property = node->getYPosControl();
    VxFloatProperty *target = below(4) == 0 ? nullptr : other->getXPosControl();
    switch (below(3)) {
    case 0:
        property->setAliasedProperty(target);
        break;
    case 1:
        property->setOverridingControl(target);
        break;
    default:
        property->setLink(target);
    }
}

// As the key graph does, for a row that may be shown, left out or not there at all.
void TestDopeSheetModelRandom::sendMessage()
{
    VxNode *node = anyNode();
    if (!node)
        return;
    VxFloatProperty *property = node->getXPosControl();
    const bool selects = below(2) == 0;
    const int index = below(3);
    VxKeyMessage message;
    message.clearSelection = below(3) == 0;
    (selects ? message.selectedKeys : message.deselectedKeys).insert(property, {index});
    m_view->handleKeyMessage(message);
    if (const VxDopeSheetItem *row = rowOf(m_model->getRootItem(), property))
        QCOMPARE(row->isKeySelected(index), selects && index < row->keyCount());
    if (message.clearSelection && !selects)
        QVERIFY(!m_model->hasSelectedKeys());
}

void TestDopeSheetModelRandom::changeView()
{
    const QModelIndex row = anyRow();
    switch (below(5)) {
    case 0:
        m_view->expandAll();
        break;
    case 1:
        m_view->selectAll();
        break;
    case 2:
        m_view->setExpanded(row, !m_view->isExpanded(row));
        break;
    default:
        m_view->selectionModel()->setCurrentIndex(row, QItemSelectionModel::Toggle |
                                                           QItemSelectionModel::Rows);
    }
}

void TestDopeSheetModelRandom::changeFilter()
{
    const char *const texts[] = {"", "", "hip", "rx::^hip", "wc::*e", "x trans", "nothing"};
    const QString text = QString::fromLatin1(texts[below(7)]);
    m_pattern = dopeSheetFilterPattern(text);
    m_view->applyFilterText(text);
}

void TestDopeSheetModelRandom::travel()
{
    if (below(3) == 0)
        vxApp->getUndoStack()->redo();
    else
        vxApp->getUndoStack()->undo();
}

void TestDopeSheetModelRandom::changeObjectOrDependency()
{
    const int kind = below(4);
    if (kind == 0)
        changeObject();
    else if (kind == 1)
        sendMessage();
    else
        changeDependency();
}

// Hardly more nodes are added than removed, so that a session has few nodes and many conflicts.
void TestDopeSheetModelRandom::step()
{
    const auto hold = below(3) > 0 ? std::make_unique<VxUndoStackHold>() : nullptr;
    const int kind = below(20);
    if (kind < 5)
        addNode();
    else if (kind < 8)
        removeNode();
    else if (kind < 11)
        reparent();
    else if (kind < 12)
        rename();
    else if (kind < 14)
        moveAtTop();
    else if (kind < 15)
        changeKeys();
    else if (kind < 16)
        changeObjectOrDependency();
    else if (kind < 18)
        changeView();
    else if (kind < 19)
        changeFilter();
    if (hold)
        hold->accept(QStringLiteral("step"));
    if (kind == 19)
        travel();
}

void TestDopeSheetModelRandom::settle()
{
    QCoreApplication::processEvents();
    if (below(8) == 0)
        m_view->grab();
}

void TestDopeSheetModelRandom::checkNodes(VxNode *node, const VxDopeSheetItem *item)
{
    QVector<VxNode *> nodes;
    for (int i = 0; i < item->childCount(); ++i) {
        const VxDopeSheetItem *child = item->child(i);
        QCOMPARE(child->row(), i);
        QCOMPARE(child->parentItem(), item);
        const QModelIndex index = m_model->indexOf(child);
        QCOMPARE(m_model->getItem(index), const_cast<VxDopeSheetItem *>(child));
        QCOMPARE(index.parent(), m_model->indexOf(item));
        if (!child->node()) {
            QCOMPARE(i, 0);
            continue;
        }
        nodes.append(child->node());
        QCOMPARE(m_model->findItem(child->node()), const_cast<VxDopeSheetItem *>(child));
        checkNodes(child->node(), child);
    }
    QCOMPARE(nodes, m_plain.below(node));
}

// The keys of a row and of all below, gathered anew, which are added to those of the row above.
void TestDopeSheetModelRandom::checkKeys(const VxDopeSheetItem *item, QMap<VxTime, bool> *above)
{
    QMap<VxTime, bool> keys;
    for (int i = 0; item->property() && i < item->property()->getNumKeys(); ++i)
        keys.insert(item->property()->getKeyTime(i), item->isKeySelected(i));
    for (int i = 0; i < item->childCount(); ++i)
        checkKeys(item->child(i), &keys);
    QCOMPARE(keyTimes(*item), keys.keys().toVector());
    for (int i = 0; i < item->keyCount(); ++i)
        QCOMPARE(item->isKeySelected(i), keys.value(item->keyTime(i)));
    QCOMPARE(item->hasSelectedKeys(), keys.values().contains(true));
    for (auto key = keys.cbegin(); key != keys.cend(); ++key)
        (*above)[key.key()] |= key.value();
}

bool TestDopeSheetModelRandom::isShown(const VxDopeSheetItem *item) const
{
    if (m_pattern.isEmpty() || item->label().contains(m_pattern))
        return true;
    for (int i = 0; i < item->childCount(); ++i) {
        if (isShown(item->child(i)))
            return true;
    }
    return false;
}

void TestDopeSheetModelRandom::checkFiltered(const VxDopeSheetItem *item, const QModelIndex &shown)
{
    QVector<const VxDopeSheetItem *> expected;
    for (int i = 0; i < item->childCount(); ++i) {
        if (isShown(item->child(i)))
            expected.append(item->child(i));
    }
    QVector<const VxDopeSheetItem *> found;
    for (int i = 0; i < m_filter->rowCount(shown); ++i)
        found.append(m_filter->index(i, 1, shown).data(Qt::UserRole).value<VxDopeSheetItem *>());
    QCOMPARE(found, expected);
    for (int i = 0; i < found.size(); ++i)
        checkFiltered(found.at(i), m_filter->index(i, 0, shown));
}

// The selection model finds rows in a way of its own.
void TestDopeSheetModelRandom::checkSelection(const QModelIndex &parent)
{
    const auto *model = qobject_cast<DopeSheetSelectionModel *>(m_view->selectionModel());
    const QItemSelection selection = model->selection();
    for (int row = 0; row < m_filter->rowCount(parent); ++row) {
        const QModelIndex index = m_filter->index(row, 0, parent);
        QCOMPARE(model->isRowSelected(index), selection.contains(index));
        checkSelection(index);
    }
}

// An index follows its row through moves and becomes invalid with it; in the filter it also ends
// when the row is left out.
void TestDopeSheetModelRandom::followRows()
{
    for (const Followed &followed : qAsConst(m_followed)) {
        QCOMPARE(followed.index.isValid(), !followed.item.isNull());
        if (followed.item)
            QCOMPARE(m_model->getItem(followed.index), followed.item.data());
        if (followed.shown.isValid())
            QCOMPARE(m_filter->mapToSource(followed.shown), QModelIndex(followed.index));
    }
    if (m_followed.size() > 20)
        m_followed.remove(0, 10);
    const QModelIndex shown = anyRow();
    const QModelIndex index = m_filter->mapToSource(shown);
    if (index.isValid())
        m_followed.append({m_model->getItem(index), index, shown});
}

void TestDopeSheetModelRandom::sessions_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("types");
    const int translation = TimelinePropertyTypes::Translation | TimelinePropertyTypes::Alias;
    for (quint32 seed = 1; seed <= 2; ++seed) {
        QTest::addRow("translations, seed %u", seed) << seed << translation;
        QTest::addRow("others, too, seed %u", seed)
            << seed << (translation | TimelinePropertyTypes::Other);
    }
}

void TestDopeSheetModelRandom::sessions()
{
    QFETCH(quint32, seed);
    m_random.seed(seed);
    for (int i = 0; i < vxSessionLength(250) && !QTest::currentTestFailed(); ++i) {
        step();
        settle();
        const VxDopeSheetItem *root = m_model->getRootItem();
        checkNodes(nullptr, root);
        checkFiltered(root, QModelIndex());
        QMap<VxTime, bool> all;
        checkKeys(root, &all);
        followRows();
        checkSelection(QModelIndex());
    }
}

VX_TEST_MAIN(TestDopeSheetModelRandom)
#include "tst_dopesheetmodelrandom.moc"
