// Records of the journal: what an entry changed is applied to a copy of the document, forward and
// backward; a damaged record changes nothing.

#include "io/vxscenejournal.h"
#include "io/vxscenereader.h"
#include "randomedits.h"
#include "scenebytes.h"
#include "testing/vxfilemutations.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"

#include <QtTest>
#include <vxcore/vxundostack.h>

using Change = std::function<void(VxNode *)>;
Q_DECLARE_METATYPE(Change)

class TestSceneJournal : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void entriesAreAppliedToACopy_data();
    void entriesAreAppliedToACopy();
    void entriesAreReverted();
    void undoneEntriesAreWrittenInReverse();
    void keysNextToTheSpanStay();
    void nodesKeepTheirIdentifiers();
    void markersAreFoundByTheirContents();
    void whatCannotBeWritten_data();
    void whatCannotBeWritten();
    void unrecordedChangesAreNoted_data();
    void unrecordedChangesAreNoted();
    void viewChangesAreNotRecorded();
    void aRecordOfAnotherDocumentIsRefused();
    void damagedRecordsChangeNothing();

private:
    bool writeLast();
    bool apply(VxJournalReader::Direction direction, VxScene *scene);
    void copyDocument();
    QByteArray shown(VxScene *scene) const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_history;
    std::unique_ptr<VxScene> m_scene;
    std::unique_ptr<VxScene> m_copy;
    QByteArray m_record;
};

void TestSceneJournal::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_history = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    WalkSample::build(m_scene.get());
    copyDocument();
}

void TestSceneJournal::cleanup()
{
    m_history->clear();
    m_copy.reset();
    m_scene.reset();
    m_history.reset();
    m_guard.reset();
}

void TestSceneJournal::copyDocument()
{
    m_copy = std::make_unique<VxScene>();
    VxSceneContents contents;
    VxFileError error;
    QVERIFY2(VxSceneReader().read(sceneBytes(m_scene.get()), &contents, &error),
             qPrintable(error.text()));
    // Reading a scene clears the history, which is that of the other one here.
    m_copy->setTimeStep(contents.timeStep);
    m_copy->setAnimRange(contents.animRange);
    m_copy->setPlayRange(contents.playRange);
    VxSceneViews::of(m_copy.get())->setViews(contents.views);
    VxMarkers::of(m_copy.get())->replaceAll(contents.markers);
    VxSceneTimeDisplay::of(m_copy.get())->setDisplay(contents.timeDisplay);
    m_copy->setTime(contents.time);
    m_copy->loopPlayback(contents.looping);
    for (auto &node : contents.rootNodes)
        m_copy->addNode(node.release());
}

QByteArray TestSceneJournal::shown(VxScene *scene) const
{
    makeAllControls(scene);
    return sceneBytes(scene);
}

bool TestSceneJournal::writeLast()
{
    VxSceneJournalWriter writer;
    const bool isWritten = m_history->writeEntry(m_history->index() - 1, writer);
    m_record = writer.bytes();
    return isWritten;
}

bool TestSceneJournal::apply(VxJournalReader::Direction direction, VxScene *scene)
{
    return VxSceneJournalReader(m_record, scene).apply(direction);
}

void TestSceneJournal::entriesAreAppliedToACopy_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 6; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestSceneJournal::entriesAreAppliedToACopy()
{
    QFETCH(unsigned, seed);
    RandomEdits edits(m_scene.get(), seed);
    int written = 0;
    for (int i = 0; i < vxSessionLength(300); ++i) {
        const int count = m_history->index();
        edits.edit();
        if (m_history->index() == count)
            continue;
        if (writeLast()) {
            ++written;
            QVERIFY2(apply(VxJournalReader::Forward, m_copy.get()), qPrintable(QString::number(i)));
        } else {
            copyDocument();
        }
        QVERIFY2(shown(m_copy.get()) == shown(m_scene.get()), qPrintable(QString::number(i)));
    }
    QVERIFY2(written * 10 > m_history->index() * 9, qPrintable(QString::number(written)));
}

void TestSceneJournal::entriesAreReverted()
{
    RandomEdits edits(m_scene.get(), 7);
    int reverted = 0;
    for (int i = 0; i < vxSessionLength(200); ++i) {
        const int count = m_history->index();
        const QByteArray before = shown(m_scene.get());
        edits.edit();
        if (m_history->index() == count)
            continue;
        const bool isWritten = writeLast();
        copyDocument();
        if (!isWritten)
            continue;
        QVERIFY2(apply(VxJournalReader::Backward, m_copy.get()), qPrintable(QString::number(i)));
        QVERIFY2(shown(m_copy.get()) == before, qPrintable(QString::number(i)));
        ++reverted;
    }
    QVERIFY2(reverted > vxSessionLength(100), qPrintable(QString::number(reverted)));
}

void TestSceneJournal::undoneEntriesAreWrittenInReverse()
{
    const QByteArray start = shown(m_scene.get());
    {
        VxUndoStackHold hold;
        VxFloatProperty *property = m_scene->getNodes().at(1)->getXRotControl();
        property->setKey(3333, 12, VxKeyInterp::Tcb);
        m_scene->getNodes().at(2)->setLabel(QStringLiteral("Other"));
        hold.accept(QStringLiteral("Edit"));
    }
    QVERIFY(writeLast() && apply(VxJournalReader::Forward, m_copy.get()));
    QCOMPARE(shown(m_copy.get()), shown(m_scene.get()));
    m_history->undo();
    VxSceneJournalWriter writer;
    QVERIFY(m_history->writeEntry(0, writer));
    m_record = writer.bytes();
    QVERIFY(apply(VxJournalReader::Forward, m_copy.get()));
    QCOMPARE(shown(m_copy.get()), start);
}

/// A record holds the changed span alone: keys outside of it are not in it, and stay.
void TestSceneJournal::keysNextToTheSpanStay()
{
    VxFloatProperty *property = m_scene->getNodes().at(1)->getXPosControl();
    for (int i = 0; i < 2000; ++i)
        property->setKey(i * 160, float(i), 0);
    copyDocument();
    {
        VxUndoStackHold hold;
        property->setKey(160 * 160, -5, 0);
        hold.accept(QStringLiteral("Edit"));
    }
    QVERIFY(writeLast());
    QVERIFY2(m_record.size() < 200, qPrintable(QString::number(m_record.size())));
    VxFloatProperty *copied = m_copy->getNodes().at(1)->getXPosControl();
    copied->setKey(200, 77, 0);
    QVERIFY(apply(VxJournalReader::Forward, m_copy.get()));
    QCOMPARE(copied->getValue(160 * 160), -5.0f);
    QCOMPARE(copied->getValue(200), 77.0f);
    QCOMPARE(copied->getNumKeys(), property->getNumKeys() + 1);
}

void TestSceneJournal::nodesKeepTheirIdentifiers()
{
    auto *node = new VxNode(QStringLiteral("new"));
    {
        VxUndoStackHold hold;
        m_scene->addNode(node);
        // Nodes that are added or moved below later in the hold have items of their own.
        m_scene->addNode(new VxNode(QStringLiteral("below")), node);
        VxNode *moved = m_scene->getNodes().at(3);
        QVERIFY(moved->setNodeParent(node));
        hold.accept(QStringLiteral("Add"));
    }
    QVERIFY(writeLast() && apply(VxJournalReader::Forward, m_copy.get()));
    QCOMPARE(shown(m_copy.get()), shown(m_scene.get()));
    const VxNode *added = m_copy->findNodeById(node->getId());
    QVERIFY(added);
    QCOMPARE(added->getName(), QStringLiteral("new"));
}

void TestSceneJournal::markersAreFoundByTheirContents()
{
    VxMarkers *markers = VxMarkers::of(m_scene.get());
    markers->replaceAll({});
    const int a = markers->add({0, QStringLiteral("a"), VxTimeRange(10, 10)});
    markers->remove({a});
    // Other identifiers than in the copy, which counts its own.
    const int b = markers->add({0, QStringLiteral("a"), VxTimeRange(10, 10)});
    markers->add({0, QStringLiteral("a"), VxTimeRange(10, 10)});
    copyDocument();
    {
        VxUndoStackHold hold;
        markers->set({b, QStringLiteral("b"), VxTimeRange(20, 30)});
        markers->add({0, QStringLiteral("c"), VxTimeRange(5, 5)});
        hold.accept(QStringLiteral("Edit"));
    }
    QVERIFY(writeLast() && apply(VxJournalReader::Forward, m_copy.get()));
    QCOMPARE(shown(m_copy.get()), shown(m_scene.get()));
    QVERIFY(apply(VxJournalReader::Backward, m_copy.get()));
    m_history->undo();
    QCOMPARE(shown(m_copy.get()), shown(m_scene.get()));
}

void TestSceneJournal::whatCannotBeWritten_data()
{
    QTest::addColumn<int>("edit");
    QTest::newRow("a property that is added") << 0;
    QTest::newRow("an object that is exchanged") << 1;
    QTest::newRow("an added node that follows another one") << 2;
}

void TestSceneJournal::whatCannotBeWritten()
{
    QFETCH(int, edit);
    VxUndoStackHold hold;
    VxNode *node = m_scene->getNodes().at(1);
    if (edit == 0)
        node->addProperty(new VxFloatProperty(QStringLiteral("new")), QString());
    else if (edit == 1)
        node->setObject(new VxObject(QStringLiteral("new")));
    auto follower = std::make_unique<VxNode>(QStringLiteral("new"));
    if (edit == 2) {
        follower->getXPosControl()->setLink(node->getXPosControl(), false, 1, 0);
        m_scene->addNode(follower.release());
    }
    hold.accept(QStringLiteral("Edit"));
    QCOMPARE(m_history->count(), 1);
    QVERIFY(!writeLast());
}

void TestSceneJournal::unrecordedChangesAreNoted_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("a key") << Change([](VxNode *node) { node->getXPosControl()->setKey(5, 5, 0); });
    QTest::newRow("a stored value")
        << Change([](VxNode *node) { node->getScaleControl()->setStoredValue(3); });
    QTest::newRow("a label") << Change([](VxNode *node) { node->setLabel("x"); });
    QTest::newRow("a removed node")
        << Change([](VxNode *node) { node->getScene()->removeNode(node); });
    QTest::newRow("a destroyed node") << Change([](VxNode *node) { delete node; });
    QTest::newRow("an added node")
        << Change([](VxNode *node) { node->getScene()->addNode(new VxNode("x")); });
    QTest::newRow("a marker") << Change([](VxNode *node) {
        VxMarkers::of(node->getScene())->add({0, "x", VxTimeRange()});
    });
    QTest::newRow("the range of the animation")
        << Change([](VxNode *node) { node->getScene()->setAnimRange(VxTimeRange(1, 2)); });
    QTest::newRow("limits, within a hold") << Change([](VxNode *node) {
        VxUndoStackHold hold;
        node->getXPosControl()->setMinMax(0, 1, false);
        hold.accept("Edit");
    });
    QTest::newRow("a cancelled hold") << Change([](VxNode *node) {
        VxUndoStackHold hold;
        node->getXPosControl()->setKey(5, 5, 0);
        hold.cancel();
    });
}

void TestSceneJournal::unrecordedChangesAreNoted()
{
    QFETCH(Change, change);
    m_history->takeUnrecordedChange();
    QCoreApplication::processEvents();
    QSignalSpy noted(m_history.get(), &VxUndoStack::unrecordedChange);
    change(m_scene->getNodes().at(4));
    QTRY_COMPARE(noted.count(), 1);
    QVERIFY(m_history->takeUnrecordedChange());
    QVERIFY(!m_history->takeUnrecordedChange());
}

void TestSceneJournal::viewChangesAreNotRecorded()
{
    m_history->takeUnrecordedChange();
    m_scene->setTime(999);
    m_scene->setPlayRange(VxTimeRange(100, 200));
    m_scene->selectAllNodes(true);
    VxNode outside(QStringLiteral("x"));
    outside.getXPosControl()->setKey(5, 5, 0);
    outside.setLabel(QStringLiteral("y"));
    {
        VxUndoStackHold hold;
        VxFloatProperty *property = m_scene->getNodes().at(1)->getXPosControl();
        property->setKey(5, 5, 0);
        hold.accept(QStringLiteral("Edit"));
        VxUndoStackHold rolledBack;
        property->setKey(9, 9, 0);
        rolledBack.rollBack();
    }
    m_history->undo();
    m_history->redo();
    QVERIFY(!m_history->takeUnrecordedChange());
}

void TestSceneJournal::aRecordOfAnotherDocumentIsRefused()
{
    VxNode *node = m_scene->getNodes().at(2);
    {
        VxUndoStackHold hold;
        node->getXPosControl()->setKey(5, 5, 0);
        hold.accept(QStringLiteral("Edit"));
    }
    QVERIFY(writeLast());
    VxScene empty;
    QVERIFY(!apply(VxJournalReader::Forward, &empty));
    QCOMPARE(empty.getNumNodes(), 0);
}

void TestSceneJournal::damagedRecordsChangeNothing()
{
    RandomEdits edits(m_scene.get(), 3);
    QVector<QByteArray> records;
    while (records.size() < 60) {
        const int count = m_history->index();
        edits.edit();
        if (m_history->index() > count && writeLast())
            records.append(m_record);
    }
    const QByteArray before = shown(m_copy.get());
    const int entries = m_history->count();
    int refused = 0;
    for (int i = 0; i < vxSessionLength(3000); ++i) {
        m_record = VxFileMutations::mutant(records.at(i % records.size()), unsigned(i));
        VxUndoStackHold hold;
        refused += !apply(VxJournalReader::Forward, m_copy.get());
        QVERIFY2(keyFault(m_copy.get()).isEmpty(), qPrintable(keyFault(m_copy.get())));
        QVERIFY(hold.rollBack());
        QVERIFY2(shown(m_copy.get()) == before, qPrintable(QString::number(i)));
    }
    QVERIFY(refused > 100);
    QCOMPARE(m_history->count(), entries);
}

VX_TEST_MAIN(TestSceneJournal)
#include "tst_vxscenejournal.moc"
