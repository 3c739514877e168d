#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtTest/QAbstractItemModelTester>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

// The text filter as the pane sets it up: which rows a text accepts, and when rows are tested
// again.
class TestDopeSheetFilterModel : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void texts_data();
    void texts();
    void wayToAMatchStays();
    void belowAMatchOnlyMatchesStay();
    void propertyNamesMatch();
    void renamedNodes();
    void renamedProperties();
    void addedNodes();
    void addedBelowAMatch();
    void removedNodes();
    void movedNodes();
    void textSurvivesOtherTypes();
    void openRowsStayOpen();
    void changesOfKeysFilterNothing();
    void withoutAFilterModel();

private:
    VxNode *node(const char *name, VxNode *parent = nullptr)
    {
        auto *made = new VxNode(QString::fromLatin1(name));
        vxScene->addNode(made, parent);
        return made;
    }
    VxDopeSheetView *view() const { return pane->getDopeSheetView(); }
    void filter(const char *text) { view()->applyFilterText(QString::fromLatin1(text)); }
    // What is shown of the node rows, parents before children.
    QStringList shown(const QModelIndex &parent = QModelIndex()) const;

    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void TestDopeSheetFilterModel::init()
{
    setUp();
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4});
    for (const auto &action : actions)
        action->setChecked(true);
    showPane();
    QVERIFY(view()->getFilterModel());
    m_tester = std::make_unique<QAbstractItemModelTester>(
        view()->getFilterModel(), QAbstractItemModelTester::FailureReportingMode::QtTest);
}

void TestDopeSheetFilterModel::cleanup()
{
    m_tester.reset();
    tearDown();
}

QStringList TestDopeSheetFilterModel::shown(const QModelIndex &parent) const
{
    QStringList labels;
    const QAbstractItemModel *model = view()->model();
    for (int i = 0; i < model->rowCount(parent); ++i) {
        const QModelIndex index = model->index(i, 0, parent);
        if (view()->getItem(index)->node())
            labels += index.data().toString();
        labels += shown(index);
    }
    return labels;
}

void TestDopeSheetFilterModel::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("labels");
    QTest::newRow("empty") << QString() << QStringLiteral("lHip,HIP bend,rHip,ci::hip,camera");
    QTest::newRow("anywhere, any case")
        << QStringLiteral("hip") << QStringLiteral("lHip,HIP bend,rHip,ci::hip");
    QTest::newRow("typed wildcards") << QStringLiteral("h?p b") << QStringLiteral("HIP bend");
    QTest::newRow("regular expression")
        << QStringLiteral("rx::^[lr]Hip$") << QStringLiteral("lHip,rHip");
    QTest::newRow("prefix in capitals, pattern minds case")
        << QStringLiteral("RX::^h") << QString();
    QTest::newRow("regular expression of any case")
        << QStringLiteral("rx::CI::^h") << QStringLiteral("HIP bend");
    QTest::newRow("wildcards as typed") << QStringLiteral("wc::l*") << QStringLiteral("lHip");
    QTest::newRow("wildcards match whole names") << QStringLiteral("wc::hip") << QString();
    QTest::newRow("ci:: alone is text") << QStringLiteral("ci::hip") << QStringLiteral("ci::hip");
    QTest::newRow("nothing matches") << QStringLiteral("elbow") << QString();
    QTest::newRow("broken expression") << QStringLiteral("rx::(") << QString();
}

void TestDopeSheetFilterModel::texts()
{
    QFETCH(QString, text);
    QFETCH(QString, labels);
    for (const char *name : {"lHip", "HIP bend", "rHip", "ci::hip", "camera"})
        node(name);
    view()->applyFilterText(text);
    QCOMPARE(shown().join(QLatin1Char(',')), labels);
    view()->applyFilterText(QString());
    QCOMPARE(shown().size(), 5);
}

void TestDopeSheetFilterModel::wayToAMatchStays()
{
    VxNode *top = node("top");
    VxNode *middle = node("middle", top);
    node("hip", middle);
    node("knee", middle);
    node("other");
    filter("hip");
    QCOMPARE(shown(),
             QStringList({QStringLiteral("top"), QStringLiteral("middle"), QStringLiteral("hip")}));
}

void TestDopeSheetFilterModel::belowAMatchOnlyMatchesStay()
{
    VxNode *hip = node("hip");
    node("knee", hip);
    filter("hip");
    QCOMPARE(shown(), QStringList{QStringLiteral("hip")});
    const QAbstractItemModel *model = view()->model();
    QCOMPARE(model->rowCount(model->index(0, 0)), 0);
}

void TestDopeSheetFilterModel::propertyNamesMatch()
{
    VxNode *hip = node("hip");
    hip->getXRotControl()->setLabel(QStringLiteral("Swing"));
    node("knee");
    filter("swing");
    QCOMPARE(shown(), QStringList{QStringLiteral("hip")});
    const QAbstractItemModel *model = view()->model();
    QModelIndex index = model->index(0, 0);
    while (model->rowCount(index) > 0) {
        QCOMPARE(model->rowCount(index), 1);
        index = model->index(0, 0, index);
    }
    QCOMPARE(index.data().toString(), QStringLiteral("Swing"));
}

void TestDopeSheetFilterModel::renamedNodes()
{
    VxNode *hip = node("hip");
    VxNode *knee = node("knee", node("leg"));
    filter("hip");
    QCOMPARE(shown(), QStringList{QStringLiteral("hip")});
    hip->setLabel(QStringLiteral("pelvis"));
    QTRY_COMPARE(shown(), QStringList());
    knee->setLabel(QStringLiteral("lower hip"));
    QTRY_COMPARE(shown(), QStringList({QStringLiteral("leg"), QStringLiteral("lower hip")}));
}

void TestDopeSheetFilterModel::renamedProperties()
{
    VxNode *hip = node("hip");
    filter("swing");
    QCOMPARE(shown(), QStringList());
    hip->getXRotControl()->setLabel(QStringLiteral("Swing"));
    QTRY_COMPARE(shown(), QStringList{QStringLiteral("hip")});
}

void TestDopeSheetFilterModel::addedNodes()
{
    VxNode *leg = node("leg");
    filter("hip");
    QCOMPARE(shown(), QStringList());
    node("hip", leg);
    QTRY_COMPARE(shown(), QStringList({QStringLiteral("leg"), QStringLiteral("hip")}));
    node("knee", leg);
    node("other hip");
    QTRY_COMPARE(shown(), QStringList({QStringLiteral("leg"), QStringLiteral("hip"),
                                       QStringLiteral("other hip")}));
}

void TestDopeSheetFilterModel::addedBelowAMatch()
{
    VxNode *hip = node("hip");
    filter("hip");
    node("hip 2", hip);
    node("knee", hip);
    QTRY_COMPARE(shown(), QStringList({QStringLiteral("hip"), QStringLiteral("hip 2")}));
}

void TestDopeSheetFilterModel::removedNodes()
{
    VxNode *leg = node("leg");
    VxNode *hip = node("hip", leg);
    node("other hip");
    filter("hip");
    view()->expandAll();
    view()->selectAll();
    vxScene->removeNode(hip);
    QTRY_COMPARE(shown(), QStringList{QStringLiteral("other hip")});
    filter("");
    QCOMPARE(shown(), QStringList({QStringLiteral("leg"), QStringLiteral("other hip")}));
}

void TestDopeSheetFilterModel::movedNodes()
{
    VxNode *a = node("a");
    VxNode *b = node("b");
    VxNode *hip = node("hip", a);
    filter("hip");
    QCOMPARE(shown(), QStringList({QStringLiteral("a"), QStringLiteral("hip")}));
    QVERIFY(hip->setNodeParent(b));
    QTRY_COMPARE(shown(), QStringList({QStringLiteral("b"), QStringLiteral("hip")}));
}

void TestDopeSheetFilterModel::textSurvivesOtherTypes()
{
    node("hip");
    node("knee");
    filter("hip");
    pane->refreshDopesheet();
    QCOMPARE(shown(), QStringList{QStringLiteral("hip")});
    vxScene->clear();
    node("hip 2");
    node("knee 2");
    QTRY_COMPARE(shown(), QStringList{QStringLiteral("hip 2")});
}

void TestDopeSheetFilterModel::openRowsStayOpen()
{
    VxNode *leg = node("leg");
    VxNode *hip = node("hip", leg);
    VxNode *other = node("other");
    node("other hip", other);
    const auto isOpen = [this](VxNode *of) {
        return view()->isExpanded(view()->findNodeIndex(of));
    };
    // The lower row is open although the one above is not.
    view()->expand(view()->findNodeIndex(hip));
    view()->expand(view()->findNodeIndex(other));
    filter("hip");
    QVERIFY(isOpen(other));
    QVERIFY(isOpen(leg)); // leads to a match
    filter("");
    QVERIFY(isOpen(other));
    QVERIFY(!isOpen(leg));
    view()->expandAll();
    filter("i");
    QVERIFY(isOpen(leg));
    filter("");
    QVERIFY(isOpen(leg));
    QVERIFY(isOpen(other));
}

// Rows report changes in the thousands: none may make the filter look at all rows again.
void TestDopeSheetFilterModel::changesOfKeysFilterNothing()
{
    VxNode *hip = node("hip");
    node("knee");
    filter("hip");
    QCoreApplication::processEvents();
    int layouts = 0;
    connect(view()->model(), &QAbstractItemModel::layoutChanged, this, [&layouts] { ++layouts; });
    const QSignalSpy changes(view()->model(), &QAbstractItemModel::dataChanged);
    hip->getXPosControl()->setKey(10, 1.0f, VxKeyInterp::Linear);
    QCoreApplication::processEvents();
    QCOMPARE(layouts, 0);
    QCOMPARE(changes.count(), 2);
    QVERIFY(!view()->getFilterModel()->dynamicSortFilter());
}

void TestDopeSheetFilterModel::withoutAFilterModel()
{
    node("hip");
    VxDopeSheetView plain(nullptr);
    plain.applyFilterText(QStringLiteral("hip"));
    QVERIFY(!plain.getFilterModel());
}

VX_TEST_MAIN(TestDopeSheetFilterModel)
#include "tst_vxdopesheetfiltermodel.moc"
