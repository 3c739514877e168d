#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QTreeView>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnodeisolation.h>
#include <vxcore/vxpanesearch.h>

/// One bone's rows alone in the dope sheet and its curves alone in the key graph.
class tst_Isolation : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void altClickIsolates();
    void actionToggles();
    void ends_data();
    void ends();
    void removedNodesAreReportedTogether();
    void withTheTextFilter();
    void aPlainClickIsolatesNothing();

private:
    QTreeView *sheet() const { return inTimePane<QTreeView>("TimelineDopeSheetTView"); }
    void clickNode(const VxNode *node, Qt::KeyboardModifiers modifiers) const;
    /// The names of all listed rows, opened or not, in their order.
    QStringList rows(const QModelIndex &parent = QModelIndex()) const
    {
        QStringList names;
        for (int i = 0; i < sheet()->model()->rowCount(parent); ++i) {
            const QModelIndex row = sheet()->model()->index(i, 0, parent);
            names += row.data().toString();
            names += rows(row);
        }
        return names;
    }
    /// The names of the nodes and properties whose curves the graph shows.
    QStringList curves() const
    {
        QStringList names;
        if (m_channels->isEmpty())
            return names;
        for (const VxProperty *property : m_channels->last()[0].value<QVector<VxProperty *>>())
            names << property->getOwner()->getName() + '.' + property->getName();
        return names;
    }
    VxAction *isolate() const { return action("VxKeyToolsIsolateAction"); }

    std::unique_ptr<QSignalSpy> m_channels;
    VxNode *m_thigh = nullptr;
};

void tst_Isolation::init()
{
    setUpShared();
    openSample();
    QCoreApplication::processEvents();
    window()->viewport()->grab();
    m_thigh = vxScene->findNode("lThigh");
    QVERIFY(m_thigh);
    m_channels = std::make_unique<QSignalSpy>(
        timePane(), SIGNAL(graphChannelListChanged(QVector<VxProperty *>)));
    QVERIFY(m_channels->isValid());
}

/** On the middle of the bone, where no other joint is near. */
void tst_Isolation::clickNode(const VxNode *node, Qt::KeyboardModifiers modifiers) const
{
    const QVector3D middle =
        node->getWorldTransform(vxScene->getTime()).map(node->getEndPoint() * 0.5F);
    const auto pixel = window()->viewport()->camera().project(middle);
    QVERIFY(pixel.has_value());
    VxMouseDriver(window()->viewport()).click(pixel->toPoint(), Qt::LeftButton, modifiers);
    QCoreApplication::processEvents();
}

void tst_Isolation::altClickIsolates()
{
    const QStringList all = rows();
    clickNode(m_thigh, Qt::AltModifier);
    QVERIFY(m_thigh->isSelected());
    QCOMPARE(rows().mid(0, 5),
             QStringList({"Walker", "Hip", "Pelvis", "Left Thigh", "Properties"}));
    QVERIFY(!rows().contains("Left Shin"));
    QCOMPARE(rows().count("X Rotate"), 1);
    QCOMPARE(curves(), QStringList({"lThigh.XRotate", "lThigh.YRotate", "lThigh.ZRotate"}));
    QVERIFY(isolate()->isChecked());
    // Another node replaces it; nothing that an undo would revert was changed.
    clickNode(vxScene->findNode("rShin"), Qt::AltModifier);
    QVERIFY(rows().contains("Right Shin"));
    QVERIFY(!rows().contains("Left Thigh"));
    QCOMPARE(curves(), QStringList({"rShin.XRotate", "rShin.YRotate", "rShin.ZRotate"}));
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    // Beside all nodes.
    VxMouseDriver(window()->viewport()).click({3, 60}, Qt::LeftButton, Qt::AltModifier);
    QCOMPARE(rows(), all);
}

void tst_Isolation::actionToggles()
{
    const QStringList all = rows();
    m_thigh->select();
    vxScene->findNode("rShin")->select();
    isolate()->trigger();
    QCoreApplication::processEvents();
    QVERIFY(isolate()->isChecked());
    QVERIFY(rows().contains("Left Thigh") && rows().contains("Right Shin"));
    QVERIFY(!rows().contains("Left Shin"));
    QCOMPARE(curves().size(), 6);
    isolate()->trigger();
    QVERIFY(!isolate()->isChecked());
    QCOMPARE(rows(), all);
    vxScene->selectAllNodes(false);
    isolate()->trigger();
    QVERIFY(!isolate()->isChecked());
    QCOMPARE(rows(), all);
}

void tst_Isolation::ends_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("Escape in the viewport") << "viewport";
    QTest::newRow("Escape in the dope sheet") << "sheet";
    QTest::newRow("the node is deleted") << "node";
    QTest::newRow("a node above it is deleted") << "above";
    QTest::newRow("another scene") << "scene";
}

void tst_Isolation::ends()
{
    QFETCH(QString, how);
    const int before = rows().size();
    m_thigh->select();
    isolate()->trigger();
    QCoreApplication::processEvents();
    QVERIFY(rows().size() < before);
    if (how == "viewport" || how == "sheet") {
        (how == "sheet" ? static_cast<QWidget *>(sheet()) : window()->viewport())->setFocus();
        type(Qt::Key_Escape);
        QCOMPARE(rows().size(), before);
    } else if (how == "node") {
        vxScene->removeNode(m_thigh);
    } else if (how == "above") {
        vxScene->removeNode(m_thigh->getNodeParent());
    } else {
        openSample();
        QCoreApplication::processEvents();
        QCOMPARE(rows().size(), before);
    }
    QVERIFY(!isolate()->isChecked());
    QVERIFY(rows().contains("Hip") || how == "above");
}

// Removed one by one: one report for all of them, and at once when none is left.
void tst_Isolation::removedNodesAreReportedTogether()
{
    VxNodeIsolation *isolation = VxNodeIsolation::current();
    VxNode *const hand = vxScene->findNode("lHand");
    VxNode *const forearm = vxScene->findNode("rForearm");
    VxNode *const shin = vxScene->findNode("lShin");
    QVERIFY(hand && forearm && shin);
    isolation->setNodes({hand, shin, forearm, shin, nullptr, m_thigh});
    QCOMPARE(isolation->nodes(), QVector<VxNode *>({hand, shin, forearm, m_thigh}));
    QCoreApplication::processEvents();
    const QSignalSpy changes(isolation, &VxNodeIsolation::changed);
    vxScene->removeNode(hand);
    vxScene->removeNode(vxScene->findNode("rHand"));
    QCOMPARE(isolation->nodes(), QVector<VxNode *>({shin, forearm, m_thigh}));
    vxScene->removeNode(forearm);
    QCOMPARE(changes.size(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 1);
    QVERIFY(rows().contains("Left Shin") && !rows().contains("Left Hand"));
    QVERIFY(isolate()->isChecked());
    vxScene->removeNode(m_thigh); // with the shin below it
    QCOMPARE(changes.size(), 2);
    QVERIFY(!isolation->isActive());
    QVERIFY(isolation->nodes().isEmpty());
    QVERIFY(!isolate()->isChecked());
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 2);
}

// The text filters the isolated rows; each of the two ends by itself.
void tst_Isolation::withTheTextFilter()
{
    const QStringList all = rows();
    m_thigh->select();
    isolate()->trigger();
    QCoreApplication::processEvents();
    VxPaneSearch *search = VxPaneSearch::of(timePane());
    search->setText("rotate");
    QCOMPARE(rows(), QStringList({"Walker", "Hip", "Pelvis", "Left Thigh", "Properties", "General",
                                  "Transforms", "Rotation", "X Rotate", "Y Rotate", "Z Rotate"}));
    isolate()->trigger();
    QVERIFY(rows().count("X Rotate") > 5);
    QCOMPARE(rows().count("X Translate"), 0);
    search->setText("");
    QCOMPARE(rows(), all);
}

void tst_Isolation::aPlainClickIsolatesNothing()
{
    const int before = rows().size();
    clickNode(m_thigh, Qt::NoModifier);
    QVERIFY(m_thigh->isSelected());
    QVERIFY(!isolate()->isChecked());
    QCOMPARE(rows().size(), before);
}

VX_TEST_MAIN(tst_Isolation)
#include "tst_isolation.moc"
