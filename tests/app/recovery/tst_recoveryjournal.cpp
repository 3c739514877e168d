// The journal beside the recovery copy: what is recovered of the document and of its history.

#include "document/documentcontroller.h"
#include "io/vxscenereader.h"
#include "randomedits.h"
#include "recovery/journalreplay.h"
#include "recovery/recoveryjournal.h"
#include "scenebytes.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"
#include "widgets/usermessages.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxundostack.h>

namespace {

QByteArray shown(VxScene *scene)
{
    makeAllControls(scene);
    return sceneBytes(scene);
}

/// A program with a document. It ends as if it were killed: nothing is removed.
struct Program
{
    explicit Program(const QString &folder)
        : messages(UserMessages::Mode::Console)
        , document(&scene, &history, &messages, nullptr)
        , store(folder)
        , journal(&document, &scene, &history, &store)
        , synchronized(&journal, &RecoveryJournal::synchronized)
    {
    }

    void build()
    {
        WalkSample::build(&scene);
        makeAllControls(&scene);
        history.setClean();
        history.takeUnrecordedChange();
    }

    void edit(int value)
    {
        VxUndoStackHold hold;
        scene.getNodes().at(value % 7)->getYRotControl()->setKey(value * 10, float(value), 0);
        hold.accept(QStringLiteral("Edit %1").arg(value));
    }

    /// Waits until all changes are on the disk.
    bool waitForDisk()
    {
        return QTest::qWaitFor(
            [this] {
                return !store.isWriting() && store.writer().synchronized() >= journal.position();
            },
            5000);
    }

    VxUndoStack history;
    VxScene scene;
    UserMessages messages;
    DocumentController document;
    RecoveryStore store;
    RecoveryJournal journal;
    QSignalSpy synchronized;
};

/// What a program finds that is started afterwards.
struct Recovery
{
    explicit Recovery(const QString &folder)
        : store(folder)
    {
        const QVector<RecoveryCopy> copies = store.claim();
        numCopies = copies.size();
        VxSceneContents contents;
        VxFileError error;
        if (copies.isEmpty() ||
            !VxSceneReader().readFile(copies.first().sceneFile, &contents, &error))
            return;
        VxSceneReader::install(std::move(contents), &scene);
        isWhole = store.readJournal(copies.first().id, &journal) &&
                  JournalReplay(&scene, &history).run(journal);
    }

    VxUndoStack history;
    VxScene scene;
    RecoveryStore store;
    VxJournalContents journal;
    int numCopies = 0;
    bool isWhole = false;
};

} // namespace

class TestRecoveryJournal : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void documentAndHistoryAreRecovered();
    void changesAreOnTheDiskWithinASecond();
    void aNewCopyKeepsTheLastEntries();
    void damagedRecordsAreDropped_data();
    void damagedRecordsAreDropped();
    void aJournalOfAnotherCopyIsIgnored();
    void whatNeedsACopy_data();
    void whatNeedsACopy();
    void historyBeginsAfterAnEntryThatCannotBeReverted();
    void anAliasIsUndoneWithItsOwnKeys();
    void aFullQueueRefusesChanges();
    void twoProgramsHaveJournalsOfTheirOwn();

private:
    QString journalFile() const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Program> m_program;
};

void TestRecoveryJournal::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_dir = std::make_unique<QTemporaryDir>();
    m_program = std::make_unique<Program>(m_dir->path());
    m_program->build();
}

void TestRecoveryJournal::cleanup()
{
    m_program.reset();
    m_dir.reset();
    m_guard.reset();
}

QString TestRecoveryJournal::journalFile() const
{
    return m_dir->filePath(QDir(m_dir->path()).entryList({QStringLiteral("*.journal")}).value(0));
}

void TestRecoveryJournal::documentAndHistoryAreRecovered()
{
    const QByteArray start = shown(&m_program->scene);
    for (int i = 0; i < 8; ++i)
        m_program->edit(i);
    const QByteArray top = shown(&m_program->scene);
    m_program->history.undo();
    m_program->history.undo();
    const QByteArray end = shown(&m_program->scene);
    QVERIFY(m_program->waitForDisk());
    m_program.reset();

    Recovery found(m_dir->path());
    QVERIFY(found.isWhole);
    QCOMPARE(shown(&found.scene), end);
    QCOMPARE(found.history.count(), 8);
    QCOMPARE(found.history.index(), 6);
    QCOMPARE(found.history.undoText(), QStringLiteral("Edit 5"));
    found.history.setIndex(0);
    QCOMPARE(shown(&found.scene), start);
    found.history.setIndex(8);
    QCOMPARE(shown(&found.scene), top);
}

void TestRecoveryJournal::changesAreOnTheDiskWithinASecond()
{
    m_program->edit(0);
    QVERIFY(m_program->waitForDisk());
    QElapsedTimer clock;
    for (int i = 1; i < 4; ++i) {
        m_program->synchronized.clear();
        clock.start();
        m_program->edit(i);
        const QSignalSpy &written = m_program->synchronized;
        QVERIFY(QTest::qWaitFor(
            [&] {
                return !written.isEmpty() &&
                       written.last().first().toULongLong() == m_program->journal.position();
            },
            1000));
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    }
}

void TestRecoveryJournal::aNewCopyKeepsTheLastEntries()
{
    m_program->journal.setKeptEntries(5);
    for (int i = 0; i < 12; ++i)
        m_program->edit(i);
    VxFileError error;
    QVERIFY(m_program->journal.compact(&error));
    m_program->edit(12); // while the copy is written
    QVERIFY(m_program->waitForDisk());
    m_program->edit(13);
    const QByteArray end = shown(&m_program->scene);
    QVERIFY(m_program->waitForDisk());
    m_program.reset();

    Recovery found(m_dir->path());
    QVERIFY(found.isWhole);
    QCOMPARE(found.journal.kept, 5);
    QCOMPARE(shown(&found.scene), end);
    QCOMPARE(found.history.count(), 7);
    QCOMPARE(found.history.text(0), QStringLiteral("Edit 7"));
    found.history.setIndex(0);
    found.history.setIndex(7);
    QCOMPARE(shown(&found.scene), end);
}

void TestRecoveryJournal::damagedRecordsAreDropped_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("entries");
    QTest::newRow("the last record is torn") << -1 << 3;
    QTest::newRow("the last record is altered") << -2 << 3;
    QTest::newRow("a record in the middle is altered") << 0 << 1;
    QTest::newRow("something follows the last record") << 1 << 4;
}

void TestRecoveryJournal::damagedRecordsAreDropped()
{
    QFETCH(int, place);
    QVector<QByteArray> states{shown(&m_program->scene)};
    QVector<qint64> ends{0};
    for (int i = 0; i < 4; ++i) {
        m_program->edit(i);
        states.append(shown(&m_program->scene));
        QVERIFY(m_program->waitForDisk());
        ends.append(QFileInfo(journalFile()).size());
    }
    m_program.reset();
    QFile file(journalFile());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    if (place == -1)
        bytes.chop(3);
    else if (place == 1)
        bytes.append("vxjournal");
    else
        bytes.data()[place == -2 ? bytes.size() - 40 : ends.at(1) + 20] ^= 4;
    QVERIFY(file.resize(0) && file.seek(0) && file.write(bytes) == bytes.size());
    file.close();

    Recovery found(m_dir->path());
    QVERIFY(found.isWhole);
    QTEST(found.history.count(), "entries");
    QCOMPARE(shown(&found.scene), states.at(found.history.count()));
}

void TestRecoveryJournal::aJournalOfAnotherCopyIsIgnored()
{
    m_program->edit(1);
    QVERIFY(m_program->waitForDisk());
    const QByteArray copied = shown(&m_program->scene);
    m_program->edit(2);
    QVERIFY(m_program->waitForDisk());
    m_program.reset();
    QFile file(journalFile());
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(20) && file.write("x") == 1);
    file.close();
    Recovery found(m_dir->path());
    QCOMPARE(found.numCopies, 1);
    QVERIFY(!found.isWhole);
    QCOMPARE(shown(&found.scene), copied);
}

void TestRecoveryJournal::whatNeedsACopy_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("history");
    QTest::newRow("an item that cannot be written") << 0 << 0;
    QTest::newRow("a change outside of any hold") << 1 << 0;
    QTest::newRow("a record larger than the document") << 2 << 0;
    QTest::newRow("none") << 3 << 3;
}

void TestRecoveryJournal::whatNeedsACopy()
{
    QFETCH(int, change);
    m_program->edit(1);
    m_program->edit(2);
    QVERIFY(m_program->waitForDisk());
    if (change == 0) {
        RandomEdits(&m_program->scene, 1).unwritableEdit();
    } else if (change == 1) {
        m_program->scene.getNodes().at(1)->getXPosControl()->setKey(5, 5, 0);
        QCoreApplication::sendPostedEvents(&m_program->history);
    } else if (change == 2) {
        VxUndoStackHold hold;
        for (int i = 0; i < 60000; ++i)
            m_program->scene.getNodes().at(1)->getXPosControl()->setKey(i, float(i), 0);
        hold.accept(QStringLiteral("Large"));
    } else {
        m_program->edit(3);
    }
    const QByteArray end = shown(&m_program->scene);
    QVERIFY(m_program->waitForDisk());
    m_program.reset();
    Recovery found(m_dir->path());
    QVERIFY(found.isWhole);
    QTEST(found.history.count(), "history");
    QCOMPARE(shown(&found.scene) == end, true);
}

/// A record cannot hold a removed node that refers to another one: the history of a recovery begins
/// after that entry.
void TestRecoveryJournal::historyBeginsAfterAnEntryThatCannotBeReverted()
{
    m_program->edit(0);
    {
        VxUndoStackHold hold;
        VxNode *node = m_program->scene.getNodes().last();
        VxNode *other = m_program->scene.getNodes().at(1);
        node->getXScaleControl()->setLink(other->getXScaleControl());
        m_program->scene.removeNode(node);
        hold.accept(QStringLiteral("Remove"));
    }
    m_program->edit(1);
    VxFileError error;
    QVERIFY(m_program->waitForDisk() && m_program->journal.compact(&error));
    QVERIFY(m_program->waitForDisk());
    m_program->history.undo();
    m_program->edit(2);
    m_program->edit(3);
    const QByteArray end = shown(&m_program->scene);
    QVERIFY(m_program->waitForDisk());
    m_program.reset();
    Recovery found(m_dir->path());
    QVERIFY(found.isWhole);
    QCOMPARE(shown(&found.scene), end);
    QCOMPARE(found.history.count(), 2);
    QCOMPARE(found.history.text(0), QStringLiteral("Edit 2"));
}

/// The copy has the keys that an alias hides: a recovery can undo the entry that made the alias.
void TestRecoveryJournal::anAliasIsUndoneWithItsOwnKeys()
{
    const QVector<VxNode *> nodes = m_program->scene.getNodes();
    nodes.at(1)->getXScaleControl()->setKey(160, 3, 0);
    m_program->edit(0);
    const QByteArray before = shown(&m_program->scene);
    {
        VxUndoStackHold hold;
        nodes.at(1)->getXScaleControl()->setAliasedProperty(nodes.at(2)->getXScaleControl());
        hold.accept(QStringLiteral("Alias"));
    }
    VxFileError error;
    QVERIFY(m_program->waitForDisk() && m_program->journal.compact(&error));
    m_program->edit(1);
    const QByteArray end = shown(&m_program->scene);
    QVERIFY(m_program->waitForDisk());
    m_program.reset();
    Recovery found(m_dir->path());
    QVERIFY(found.isWhole);
    QCOMPARE(shown(&found.scene), end);
    QCOMPARE(found.history.undoText(), QStringLiteral("Edit 1"));
    found.history.undo();
    QCOMPARE(found.history.undoText(), QStringLiteral("Alias"));
    found.history.undo();
    QCOMPARE(shown(&found.scene), before);
}

void TestRecoveryJournal::aFullQueueRefusesChanges()
{
    m_program->edit(1);
    QVERIFY(m_program->waitForDisk());
    RecoveryWriter &writer = m_program->store.writer();
    const QByteArray large(int(RecoveryWriter::MaxQueuedBytes), 'x');
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!writer.append(90, {VxJournalRecord::Entry, large + 'x'}));
    QVERIFY2(clock.elapsed() < 500, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(writer.append(91, {VxJournalRecord::Entry, QByteArray("y")}));
}

void TestRecoveryJournal::twoProgramsHaveJournalsOfTheirOwn()
{
    m_program->edit(1);
    QVERIFY(m_program->waitForDisk());
    const RecoveryStore other(m_dir->path());
    QVERIFY(RecoveryStore(m_dir->path()).claim().isEmpty());
    VxJournalContents contents;
    QVERIFY(!other.readJournal(QStringLiteral("none"), &contents));
    m_program.reset();
    RecoveryStore claiming(m_dir->path());
    QCOMPARE(claiming.claim().size(), 1);
    QVERIFY(RecoveryStore(m_dir->path()).claim().isEmpty());
}

VX_TEST_MAIN(TestRecoveryJournal)
#include "tst_recoveryjournal.moc"
