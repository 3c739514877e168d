#include "firstcolumnonly.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QAbstractItemModelTester>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxundostackhold.h>

namespace {

template <class Change> void asEntry(Change change)
{
    VxUndoStackHold hold;
    change();
    hold.accept(QStringLiteral("Change"));
}

// Rows as text: a name, and in brackets what is below it.
QString drawn(const VxDopeSheetItem *item, bool nodesOnly)
{
    QStringList below;
    for (int i = 0; i < item->childCount(); ++i) {
        if (!nodesOnly || item->child(i)->node())
            below << drawn(item->child(i), nodesOnly);
    }
    const QString text = below.join(QLatin1Char(' '));
    if (!item->parentItem())
        return text;
    return below.isEmpty() ? item->label() : item->label() + '(' + text + ')';
}

} // namespace

// What the rows do when nodes that have some are put into another order, shown or hidden, and when
// properties are added and removed.
class TestDopeSheetFollow : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void siblingsChangeTheirOrder();
    void removalIsUndoneInItsPlace();
    void orderMadeByHandStays();
    void hiddenNodesAreLeftOutOfTheOrder();
    void aNodeThatIsShownGetsItsRow();
    void propertiesAreAddedAndRemoved();
    void objectsAreExchanged();
    void nothingLeadsToARemovedProperty();
    void rowsThatStayKeepTheirSelection();
    void manyPropertiesAreAddedAtOnce();

private:
    VxDopeSheetModel *model() const { return pane->findChild<VxDopeSheetModel *>(); }
    QString nodes() const { return drawn(model()->getRootItem(), true); }
    // The rows below the node's "Properties" row.
    QString properties(VxNode *node) const;
    VxDopeSheetItem *row(const VxProperty *property, VxDopeSheetItem *below = nullptr) const;
    static VxNode *add(const char *name, VxNode *parent = nullptr);
    static VxFloatProperty *addProperty(VxElement *element, const char *name, const char *path);

    FirstColumnOnly m_proxy;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
    VxNode *m_figure = nullptr;
};

void TestDopeSheetFollow::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8});
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate | VxTimePane::PropRotate |
                                   VxTimePane::PropScale | VxTimePane::PropOther);
    showPane();
    m_figure = add("figure");
    for (const char *name : {"a", "b", "c"})
        add(name, m_figure);
    m_proxy.setSourceModel(model());
    m_tester = std::make_unique<QAbstractItemModelTester>(
        &m_proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(nodes(), QString("figure(a b c)"));
}

void TestDopeSheetFollow::cleanup()
{
    m_tester.reset();
    m_proxy.setSourceModel(nullptr);
    tearDown();
}

VxNode *TestDopeSheetFollow::add(const char *name, VxNode *parent)
{
    auto *node = new VxNode(QString::fromLatin1(name));
    vxScene->addNode(node, parent);
    return node;
}

VxFloatProperty *TestDopeSheetFollow::addProperty(VxElement *element, const char *name,
                                                  const char *path)
{
    auto *property = new VxFloatProperty(QString::fromLatin1(name));
    element->addProperty(property, QString::fromLatin1(path));
    return property;
}

QString TestDopeSheetFollow::properties(VxNode *node) const
{
    const VxDopeSheetItem *first = model()->findItem(node)->child(0);
    return first && !first->node() ? drawn(first, false) : QString();
}

VxDopeSheetItem *TestDopeSheetFollow::row(const VxProperty *property, VxDopeSheetItem *below) const
{
    VxDopeSheetItem *item = below ? below : model()->getRootItem();
    if (item->property() == property)
        return item;
    for (int i = 0; i < item->childCount(); ++i) {
        if (VxDopeSheetItem *found = row(property, item->child(i)))
            return found;
    }
    return nullptr;
}

void TestDopeSheetFollow::siblingsChangeTheirOrder()
{
    asEntry([this] { vxScene->findNode("c")->setNodeParent(m_figure, 0); });
    QCOMPARE(nodes(), QString("figure(c a b)"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(nodes(), QString("figure(a b c)"));
    asEntry([this] { vxScene->findNode("a")->setNodeParent(m_figure); });
    QCOMPARE(nodes(), QString("figure(b c a)"));
    asEntry([this] { vxScene->findNode("b")->setNodeParent(nullptr, 0); });
    QCOMPARE(nodes(), QString("b figure(c a)"));
    asEntry([this] { m_figure->setNodeParent(nullptr, 0); });
    QCOMPARE(nodes(), QString("figure(c a) b"));
    for (const char *state : {"b figure(c a)", "figure(b c a)", "figure(a b c)"}) {
        vxApp->getUndoStack()->undo();
        QCOMPARE(nodes(), QString(state));
    }
    // The properties' row stays the first one.
    QVERIFY(!model()->findItem(m_figure)->child(0)->node());
}

void TestDopeSheetFollow::removalIsUndoneInItsPlace()
{
    asEntry([] { vxScene->removeNode(vxScene->findNode("b")); });
    QCOMPARE(nodes(), QString("figure(a c)"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(nodes(), QString("figure(a b c)"));
}

void TestDopeSheetFollow::orderMadeByHandStays()
{
    add("light");
    VxNode *camera = add("camera");
    model()->moveRootRowToTop(camera);
    QCOMPARE(nodes(), QString("camera figure(a b c) light"));
    vxScene->findNode("c")->setNodeParent(m_figure, 1);
    vxScene->findNode("light")->setNodeParent(nullptr, 0);
    QCOMPARE(nodes(), QString("light camera figure(a c b)"));
}

void TestDopeSheetFollow::hiddenNodesAreLeftOutOfTheOrder()
{
    auto *hidden = new VxNode("hidden");
    hidden->setVisible(false);
    vxScene->addNode(hidden, m_figure);
    hidden->setNodeParent(m_figure, 0);
    QCOMPARE(nodes(), QString("figure(a b c)"));
    vxScene->findNode("c")->setNodeParent(m_figure, 1);
    QCOMPARE(nodes(), QString("figure(c a b)"));
    // A descendant that is added inserts it at its index.
    add("leaf", hidden);
    QCOMPARE(nodes(), QString("figure(hidden(leaf) c a b)"));
}

void TestDopeSheetFollow::aNodeThatIsShownGetsItsRow()
{
    auto *hidden = new VxNode("hidden");
    hidden->setVisible(false);
    vxScene->addNode(hidden, m_figure);
    hidden->setNodeParent(m_figure, 1);
    hidden->setVisible(true);
    QCOMPARE(nodes(), QString("figure(a hidden b c)"));
    hidden->setVisible(false);
    QCOMPARE(nodes(), QString("figure(a hidden b c)"));
}

void TestDopeSheetFollow::propertiesAreAddedAndRemoved()
{
    VxNode *a = vxScene->findNode("a");
    const QString before = properties(a);
    VxFloatProperty *grip = nullptr;
    asEntry([&] {
        grip = addProperty(a, "grip", "/Pose");
        addProperty(a, "bend", "/Pose/Deep");
    });
    QTRY_VERIFY(row(grip));
    QVERIFY2(properties(a).contains("Pose(grip Deep(bend))"), qPrintable(properties(a)));
    grip->setKey(160, 1, 0);
    QCOMPARE(row(grip)->keyCount(), 1);
    QCOMPARE(model()->findItem(a)->keyCount(), 1);
    asEntry([&] { a->removeProperty(grip); });
    QVERIFY(!row(grip)); // at once
    QCOMPARE(model()->findItem(a)->keyCount(), 0);
    QVERIFY(properties(a).contains("Pose(Deep(bend))"));
    vxApp->getUndoStack()->undo();
    QTRY_VERIFY(row(grip));
    QCOMPARE(model()->findItem(a)->keyCount(), 1);
    QVERIFY2(properties(a).contains("Pose(grip Deep(bend))"), qPrintable(properties(a)));
    vxApp->getUndoStack()->undo();
    QCOMPARE(properties(a), before);
}

void TestDopeSheetFollow::objectsAreExchanged()
{
    VxNode *a = vxScene->findNode("a");
    auto *face = new VxObject("face");
    auto *smile = new VxMorph("smile");
    face->addSubElement(smile);
    asEntry([&] { a->setObject(face); });
    QTRY_VERIFY(row(smile->getValueControl()));
    smile->getValueControl()->setKey(320, 1, 0);
    QCOMPARE(model()->findItem(m_figure)->keyCount(), 1);
    asEntry([&] { a->setObject(new VxObject("mask")); });
    QVERIFY(!row(smile->getValueControl()));
    QCOMPARE(model()->findItem(m_figure)->keyCount(), 0);
    vxApp->getUndoStack()->undo();
    QTRY_VERIFY(row(smile->getValueControl()));
    QCOMPARE(model()->findItem(m_figure)->keyCount(), 1);
    // The row of a destroyed morph is removed.
    const VxProperty *value = smile->getValueControl();
    delete smile;
    QTRY_VERIFY(!properties(a).contains("smile"));
    QVERIFY(!row(value));
}

void TestDopeSheetFollow::nothingLeadsToARemovedProperty()
{
    VxNode *a = vxScene->findNode("a");
    VxFloatProperty *grip = addProperty(a, "grip", "/Pose");
    grip->setKey(0, 1, 0);
    QTRY_VERIFY(row(grip));
    row(grip)->setKeysSelected(true, 0, 1);
    QVERIFY(model()->hasSelectedKeys());
    asEntry([&] { a->removeProperty(grip); });
    QVERIFY(!model()->hasSelectedKeys());
    QVERIFY(!row(grip));
    QCoreApplication::processEvents();
    QVERIFY(!properties(a).contains("Pose"));
    QVERIFY(properties(a).contains("Transforms"));
}

void TestDopeSheetFollow::rowsThatStayKeepTheirSelection()
{
    VxNode *a = vxScene->findNode("a");
    VxFloatProperty *turn = a->getXRotControl();
    turn->setKey(0, 1, 0);
    turn->setKey(160, 2, 0);
    VxDopeSheetItem *kept = row(turn);
    kept->setKeysSelected(true, 160, 160);
    const VxFloatProperty *grip = addProperty(a, "grip", "/Pose");
    QTRY_VERIFY(row(grip));
    QCOMPARE(row(turn), kept);
    QCOMPARE(kept->selectedKeyIndexes(), QVector<int>({1}));
}

void TestDopeSheetFollow::manyPropertiesAreAddedAtOnce()
{
    VxNode *a = vxScene->findNode("a");
    const QSignalSpy inserted(model(), &QAbstractItemModel::rowsInserted);
    for (int i = 0; i < 400; ++i)
        addProperty(a, qPrintable(QString::number(i)), "/Pose");
    QTRY_VERIFY(properties(a).contains(" 399"));
    QCOMPARE(inserted.count(), 1); // the group, with all that is in it
}

VX_TEST_MAIN(TestDopeSheetFollow)
#include "tst_dopesheetfollow.moc"
