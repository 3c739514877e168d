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
#include <array>
#include <vxcore/vxundostack.h>

using Change = std::function<void(VxNode *)>;
Q_DECLARE_METATYPE(Change)

/// Of markers with the given identifiers.
using MarkerEdit = std::function<void(VxMarkers *, const QVector<int> &)>;
Q_DECLARE_METATYPE(MarkerEdit)

namespace {

/// The properties that a property refers to; null for none.
std::array<const VxProperty *, 3> referencesOf(const VxProperty *property)
{
    const auto *number = qobject_cast<const VxNumericProperty *>(property);
    return {property->getAliasedProperty(), property->getOverridingControl(),
            number ? number->getLinkedProperty() : nullptr};
}

const VxNode *topOf(const VxNode *node)
{
    return node->getNodeParent() ? topOf(node->getNodeParent()) : node;
}

/// Whether one of the nodes was removed, and a property in its hierarchy refers to one outside or
/// the other way round.
bool haveRemovedReferences(const QVector<VxNode *> &nodes)
{
    for (const VxNode *node : nodes) {
        for (const VxProperty *property : node->getMadeProperties()) {
            for (const VxProperty *target : referencesOf(property)) {
                const auto *other = target ? qobject_cast<VxNode *>(target->getOwner()) : node;
                const bool isRemoved = !node->getScene() || !other->getScene();
                if (isRemoved && topOf(node) != topOf(other))
                    return true;
            }
        }
    }
    return false;
}

} // namespace

class TestSceneJournal : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void entriesAreAppliedToACopy_data();
    void entriesAreAppliedToACopy();
    void entriesAreReverted_data();
    void entriesAreReverted();
    void undoneEntriesAreWrittenInReverse();
    void keysNextToTheSpanStay();
    void nodesKeepTheirIdentifiers();
    void markersAreFoundByTheirContents();
    void markersKeepTheirOrder_data();
    void markersKeepTheirOrder();
    void removedReferencesCannotBeReverted_data();
    void removedReferencesCannotBeReverted();
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
    bool isRefused(VxJournalReader::Direction direction) const;
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

/// Whether the record cannot be applied to the copy, and changes nothing then.
bool TestSceneJournal::isRefused(VxJournalReader::Direction direction) const
{
    const QByteArray before = shown(m_copy.get());
    VxUndoStackHold hold;
    const bool isApplied = VxSceneJournalReader(m_record, m_copy.get()).apply(direction);
    return hold.rollBack() && !isApplied && shown(m_copy.get()) == before;
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

void TestSceneJournal::entriesAreReverted_data()
{
    QTest::addColumn<unsigned>("seed");
    for (const unsigned seed : {7, 10, 28, 43, 59})
        QTest::addRow("seed %u", seed) << seed;
}

void TestSceneJournal::entriesAreReverted()
{
    QFETCH(unsigned, seed);
    RandomEdits edits(m_scene.get(), seed);
    int reverted = 0;
    for (int i = 0; i < vxSessionLength(200); ++i) {
        const int count = m_history->index();
        const QByteArray before = shown(m_scene.get());
        const QVector<VxNode *> nodes = m_scene->getNodes();
        edits.edit();
        if (m_history->index() == count)
            continue;
        const bool isWritten = writeLast();
        copyDocument();
        if (!isWritten)
            continue;
        if (haveRemovedReferences(nodes)) {
            QVERIFY2(isRefused(VxJournalReader::Backward), qPrintable(QString::number(i)));
            continue;
        }
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

void TestSceneJournal::markersKeepTheirOrder_data()
{
    QTest::addColumn<MarkerEdit>("edit");
    const auto move = [](VxMarkers *markers, int id, VxTime time) {
        VxMarker marker = *markers->find(id);
        marker.span = VxTimeRange(time, time);
        markers->set(marker);
    };
    // Added as c and d at 20, a and b at 10.
    QTest::newRow("the first of two is removed") << MarkerEdit(
        [](VxMarkers *markers, const QVector<int> &ids) { markers->remove({ids[2]}); });
    QTest::newRow("the first of two is moved away") << MarkerEdit(
        [=](VxMarkers *markers, const QVector<int> &ids) { move(markers, ids[2], 15); });
    QTest::newRow("one is moved to two others, before them") << MarkerEdit(
        [=](VxMarkers *markers, const QVector<int> &ids) { move(markers, ids[0], 10); });
    QTest::newRow("two are exchanged")
        << MarkerEdit([=](VxMarkers *markers, const QVector<int> &ids) {
               move(markers, ids[0], 10);
               move(markers, ids[2], 20);
           });
    QTest::newRow("one of two is renamed")
        << MarkerEdit([](VxMarkers *markers, const QVector<int> &ids) {
               VxMarker marker = *markers->find(ids[2]);
               marker.name = QStringLiteral("new");
               markers->set(marker);
           });
    QTest::newRow("another one is added")
        << MarkerEdit([](VxMarkers *markers, const QVector<int> &) {
               markers->add({0, QStringLiteral("new"), VxTimeRange(10, 10)});
           });
}

/// Markers at one time are listed, drawn and saved in the order of their identifiers, which are not
/// those of the copy.
void TestSceneJournal::markersKeepTheirOrder()
{
    QFETCH(MarkerEdit, edit);
    VxMarkers *markers = VxMarkers::of(m_scene.get());
    markers->replaceAll({});
    QVector<int> ids;
    for (const auto &[name, time] : {std::pair("c", 20), {"d", 20}, {"a", 10}, {"b", 10}})
        ids += markers->add({0, QString::fromLatin1(name), VxTimeRange(time, time)});
    copyDocument();
    const QByteArray before = shown(m_scene.get());
    {
        VxUndoStackHold hold;
        edit(markers, ids);
        hold.accept(QStringLiteral("Edit"));
    }
    QVERIFY(writeLast());
    {
        VxUndoStackHold hold; // as a recovery does
        QVERIFY(apply(VxJournalReader::Forward, m_copy.get()));
        hold.accept(QStringLiteral("Edit"));
    }
    QCOMPARE(shown(m_copy.get()), shown(m_scene.get()));
    m_history->undo();
    QCOMPARE(shown(m_copy.get()), before);
    m_history->redo();
    QCOMPARE(shown(m_copy.get()), shown(m_scene.get()));
    QVERIFY(apply(VxJournalReader::Backward, m_copy.get()));
    QCOMPARE(shown(m_copy.get()), before);
}

void TestSceneJournal::removedReferencesCannotBeReverted_data()
{
    QTest::addColumn<bool>("refersToOther");
    QTest::newRow("the removed node follows another one") << true;
    QTest::newRow("another one follows the removed node") << false;
}

void TestSceneJournal::removedReferencesCannotBeReverted()
{
    QFETCH(bool, refersToOther);
    VxFloatProperty *follower = m_scene->getNodes().at(1)->getXPosControl();
    auto *removed = new VxNode(QStringLiteral("removed"));
    m_scene->addNode(removed);
    if (refersToOther)
        removed->getXPosControl()->setLink(follower, false, 1, 0);
    else
        follower->setLink(removed->getXPosControl(), false, 1, 0);
    const QVector<VxNode *> nodes = m_scene->getNodes();
    {
        VxUndoStackHold hold;
        m_scene->setTimeStep(m_scene->getTimeStep() + 1);
        m_scene->removeNode(removed);
        m_scene->setTimeStep(m_scene->getTimeStep() + 1);
        hold.accept(QStringLiteral("Remove"));
    }
    QVERIFY(haveRemovedReferences(nodes));
    QVERIFY(writeLast());
    copyDocument();
    QVERIFY(isRefused(VxJournalReader::Backward));
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
