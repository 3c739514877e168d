// Copies of documents in a folder that several programs share, of which some die.

#include "io/vxscenereader.h"
#include "recovery/recoverystore.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>
#include <random>
#include <sys/resource.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

const QString documentFile = QString::fromUtf8("/home/någon/två ord/%1 歩く.vxscene");
const QString documentTitle = QString::fromUtf8("%1 歩く.vxscene");

void mark(const char *text)
{
    std::puts(text);
    std::fflush(stdout);
}

/// Another program: keeps a copy and continues to run, or writes it again and again.
int keepCopies(const QString &folder, bool forever)
{
    VxScene scene;
    WalkSample::build(&scene);
    RecoveryStore store(folder);
    VxFileError error;
    do {
        scene.setTime(scene.getTime() + 160);
        if (!store.write(scene, documentFile, documentTitle, &error))
            return 1;
        mark("written");
    } while (forever);
    return QCoreApplication::exec();
}

/// Another program that looks for copies and keeps their locks until it ends.
int countCopies(const QString &folder)
{
    RecoveryStore store(folder);
    mark(QByteArray::number(store.claim().size()).constData());
    return QCoreApplication::exec();
}

/// A process of this test's program; killed at the end.
class Child
{
public:
    /// refusesLocks: in a folder of a network that has none.
    Child(const char *job, const QString &folder, bool refusesLocks = false)
    {
        if (refusesLocks) {
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert("LD_PRELOAD",
                               QStringLiteral(VX_BINARY_DIR "/tests/strangefolder.so"));
            environment.insert("VX_FOLDER", folder);
            environment.insert("VX_REFUSES", QStringLiteral("lock=%1").arg(ENOLCK));
            m_process.setProcessEnvironment(environment);
        }
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--job"), QLatin1String(job), folder});
        if (!m_process.waitForReadyRead(20000))
            qFatal("the child says nothing");
    }
    ~Child() { kill(); }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    QByteArray firstLine() { return m_process.readLine().trimmed(); }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

} // namespace

class tst_RecoveryStore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aKilledProgramLeavesItsCopy();
    void copiesAreReadableByTheOwnerOnly();
    void aRunningProgramKeepsItsCopy();
    void aCopyIsOfferedByOneProgramOnly();
    void foldersWithoutLocks();
    void aKilledProgramLeavesAWholeCopy();
    void ownCopyIsNotOffered();
    void aProgramThatEndsLeavesItsCopy();
    void removedCopiesLeaveNothing();
    void discardedCopiesLeaveNothing();
    void adoptedCopiesAreOwn();
    void brokenCopiesAreKeptAside();
    void latestFirst();
    void withoutRecord_data();
    void withoutRecord();
    void lockOfAnEndedProgramWithTheSameNumber();
    void incompleteCopiesAreRemoved();
    void theSceneIsCopiedAtTheStart();
    void removalIsDeferredUntilTheDiskAnswers();
    void aFullDiskKeepsTheFormerCopy();
    void foldersThatCannotBeWritten_data();
    void foldersThatCannotBeWritten();
    void withoutFolderNothingIsKept();

private:
    QString folder() const { return m_dir->filePath("settings-recovery"); }
    QStringList files() const
    {
        return QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    bool write(RecoveryStore *store, const QString &title = "walk.vxscene");
    void leaveCopy(const QString &title = "walk.vxscene");

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<VxScene> m_scene;
};

void tst_RecoveryStore::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_dir = std::make_unique<QTemporaryDir>();
    m_scene = std::make_unique<VxScene>();
    WalkSample::build(m_scene.get());
}

void tst_RecoveryStore::cleanup()
{
    m_scene.reset();
    m_dir.reset();
    m_guard.reset();
}

bool tst_RecoveryStore::write(RecoveryStore *store, const QString &title)
{
    VxFileError error;
    return store->write(*m_scene, "/somewhere/" + title, title, &error);
}

/// What a program leaves that ends without anybody having been asked.
void tst_RecoveryStore::leaveCopy(const QString &title)
{
    RecoveryStore store(folder());
    if (!write(&store, title))
        qFatal("no copy can be written");
}

void tst_RecoveryStore::aKilledProgramLeavesItsCopy()
{
    const QDateTime before = QDateTime::currentDateTime().addSecs(-2);
    Child child("keep", folder());
    child.kill();
    QCOMPARE(files().size(), 3);
    RecoveryStore store(folder());
    const QVector<RecoveryCopy> copies = store.claim();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies.at(0).documentFile, documentFile);
    QCOMPARE(copies.at(0).title, documentTitle);
    QVERIFY(copies.at(0).time >= before);
    QVERIFY(copies.at(0).time <= QDateTime::currentDateTime());
    VxSceneContents contents;
    VxFileError error;
    QVERIFY2(VxSceneReader().readFile(copies.at(0).sceneFile, &contents, &error),
             qPrintable(error.text()));
    QCOMPARE(contents.time, 160);
}

/// Whatever the folder and the copies were before.
void tst_RecoveryStore::copiesAreReadableByTheOwnerOnly()
{
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    for (const bool wasOpen : {false, true}) {
        if (wasOpen) {
            QFile::setPermissions(folder(), QFile::permissions(folder()) | others);
            for (const QString &file : files())
                QFile::setPermissions(folder() + '/' + file, QFile::permissions(file) | others);
        }
        RecoveryStore store(folder());
        QVERIFY(write(&store));
        QCOMPARE(QFile::permissions(folder()) & others, QFile::Permissions());
        for (const char *suffix : {".vxscene", ".ini"}) {
            const QStringList found = files().filter(QString::fromLatin1(suffix));
            QVERIFY(!found.isEmpty());
            const QString newest = folder() + '/' + found.last();
            QCOMPARE(QFile::permissions(newest) & others, QFile::Permissions());
            QVERIFY(QFile::permissions(newest) & QFile::WriteOwner);
        }
        store.removeOwn();
    }
}

void tst_RecoveryStore::aRunningProgramKeepsItsCopy()
{
    Child child("keep", folder());
    RecoveryStore store(folder());
    QVERIFY(store.claim().isEmpty());
    QCOMPARE(files().size(), 3); // nor is anything swept
    child.kill();
    QCOMPARE(store.claim().size(), 1);
}

void tst_RecoveryStore::aCopyIsOfferedByOneProgramOnly()
{
    leaveCopy();
    {
        Child first("count", folder());
        QCOMPARE(first.firstLine(), QByteArray("1"));
        Child second("count", folder());
        QCOMPARE(second.firstLine(), QByteArray("0"));
        RecoveryStore third(folder());
        QVERIFY(third.claim().isEmpty());
        first.kill();
        QCOMPARE(third.claim().size(), 1);
        third.release();
    }
    RecoveryStore later(folder());
    QCOMPARE(later.claim().size(), 1);
}

/// Of a living program no copy is offered, that of a killed one is.
void tst_RecoveryStore::foldersWithoutLocks()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer must be the first library that is loaded");
#endif
    Child keeper("keep", folder(), true);
    {
        Child first("count", folder(), true);
        QCOMPARE(first.firstLine(), QByteArray("0"));
    }
    keeper.kill();
    Child second("count", folder(), true);
    QCOMPARE(second.firstLine(), QByteArray("1"));
    Child third("count", folder(), true);
    QCOMPARE(third.firstLine(), QByteArray("0"));
}

void tst_RecoveryStore::aKilledProgramLeavesAWholeCopy()
{
    std::mt19937 random(3);
    for (int round = 0; round < 25; ++round) {
        {
            Child child("forever", folder());
            QThread::msleep(random() % 30);
        }
        RecoveryStore store(folder());
        const QVector<RecoveryCopy> copies = store.claim();
        QCOMPARE(copies.size(), 1);
        QCOMPARE(copies.at(0).documentFile, documentFile);
        VxSceneContents contents;
        VxFileError error;
        QVERIFY2(VxSceneReader().readFile(copies.at(0).sceneFile, &contents, &error),
                 qPrintable(error.text()));
        store.discard(copies.at(0).id);
        store.claim(); // sweeps what a write was in the middle of
        QVERIFY2(files().isEmpty(), qPrintable(files().join(' ')));
    }
}

void tst_RecoveryStore::ownCopyIsNotOffered()
{
    RecoveryStore store(folder());
    QVERIFY(!store.hasOwn());
    QVERIFY(write(&store));
    QVERIFY(store.hasOwn());
    QVERIFY(store.claim().isEmpty());
    QVERIFY(store.hasOwn());
    // Written again it is still one, and under the new name.
    QVERIFY(write(&store, "run.vxscene"));
    QCOMPARE(files().size(), 3);
}

void tst_RecoveryStore::aProgramThatEndsLeavesItsCopy()
{
    leaveCopy();
    QCOMPARE(files().size(), 2); // without a lock
    RecoveryStore store(folder());
    const QVector<RecoveryCopy> copies = store.claim();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies.at(0).title, QString("walk.vxscene"));
}

void tst_RecoveryStore::removedCopiesLeaveNothing()
{
    RecoveryStore store(folder());
    for (int i = 0; i < 3; ++i) {
        QVERIFY(write(&store));
        store.removeOwn();
        QVERIFY(!store.hasOwn());
        QVERIFY2(files().isEmpty(), qPrintable(files().join(' ')));
    }
}

void tst_RecoveryStore::discardedCopiesLeaveNothing()
{
    leaveCopy("one");
    leaveCopy("two");
    RecoveryStore store(folder());
    const QVector<RecoveryCopy> copies = store.claim();
    QCOMPARE(copies.size(), 2);
    store.discard(copies.at(0).id);
    store.release();
    const QVector<RecoveryCopy> left = store.claim();
    QCOMPARE(left.size(), 1);
    QCOMPARE(left.at(0).id, copies.at(1).id);
    store.discard(left.at(0).id);
    QVERIFY(files().isEmpty());
}

void tst_RecoveryStore::adoptedCopiesAreOwn()
{
    leaveCopy("theirs");
    RecoveryStore store(folder());
    QVERIFY(write(&store, "mine"));
    store.adopt(store.claim().at(0).id);
    QVERIFY(store.hasOwn());
    QCOMPARE(files().size(), 3); // the former copy is removed
    QVERIFY(store.claim().isEmpty());
    store.release();
    {
        RecoveryStore other(folder());
        QVERIFY(other.claim().isEmpty()); // held
    }
    QVERIFY(write(&store, "theirs"));
    QCOMPARE(files().size(), 3);
    store.removeOwn();
    QVERIFY(files().isEmpty());
}

void tst_RecoveryStore::brokenCopiesAreKeptAside()
{
    leaveCopy();
    QString kept;
    {
        RecoveryStore store(folder());
        const RecoveryCopy copy = store.claim().at(0);
        QFile scene(copy.sceneFile);
        QVERIFY(scene.open(QIODevice::WriteOnly) && scene.write("torn") == 4);
        scene.close();
        kept = store.setAside(copy.id);
    }
    QCOMPARE(files(), QStringList{QFileInfo(kept).fileName()});
    QVERIFY(kept.endsWith(".vxscene"));
    QFile file(kept);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("torn"));
    RecoveryStore again(folder());
    QVERIFY(again.claim().isEmpty());
    QCOMPARE(files().size(), 1);
}

void tst_RecoveryStore::latestFirst()
{
    for (const char *title : {"b", "c", "a"})
        leaveCopy(QLatin1String(title));
    const auto age = [this](const QString &title, int days) {
        RecoveryStore store(folder());
        for (const RecoveryCopy &copy : store.claim()) {
            QFile file(copy.sceneFile);
            if (copy.title == title && file.open(QIODevice::ReadWrite))
                file.setFileTime(QDateTime::currentDateTime().addDays(-days),
                                 QFileDevice::FileModificationTime);
        }
    };
    age("a", 3);
    age("b", 2);
    age("c", 1);
    RecoveryStore store(folder());
    QStringList titles;
    for (const RecoveryCopy &copy : store.claim())
        titles.append(copy.title);
    QCOMPARE(titles, QStringList({"c", "b", "a"}));
}

void tst_RecoveryStore::withoutRecord_data()
{
    QTest::addColumn<bool>("missing");
    QTest::newRow("missing") << true;
    QTest::newRow("damaged") << false;
}

void tst_RecoveryStore::withoutRecord()
{
    QFETCH(bool, missing);
    leaveCopy();
    const QString record = folder() + '/' + files().filter(".ini").constFirst();
    if (missing) {
        QVERIFY(QFile::remove(record));
    } else {
        QFile file(record);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(50, '\0')) == 50);
    }
    RecoveryStore store(folder());
    const QVector<RecoveryCopy> copies = store.claim();
    QCOMPARE(copies.size(), 1);
    QVERIFY(copies.at(0).documentFile.isEmpty());
    QCOMPARE(copies.at(0).title, QString("Untitled"));
}

/// In a container programs get the same numbers again: such a lock has no owner.
void tst_RecoveryStore::lockOfAnEndedProgramWithTheSameNumber()
{
    leaveCopy();
    const QString scene = files().filter(".vxscene").constFirst();
    QFile lock(folder() + '/' + QFileInfo(scene).completeBaseName() + ".lock");
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray::number(QCoreApplication::applicationPid()) + '\n' +
               QFileInfo(QCoreApplication::applicationFilePath()).fileName().toUtf8() + '\n' +
               QSysInfo::machineHostName().toUtf8() + '\n');
    lock.close();
    RecoveryStore store(folder());
    QCOMPARE(store.claim().size(), 1);
    store.discard(store.claim().at(0).id);
    QVERIFY(files().isEmpty());
}

void tst_RecoveryStore::incompleteCopiesAreRemoved()
{
    leaveCopy("kept");
    QVERIFY(QDir(folder()).mkpath("."));
    for (const char *name : {"copy-dead.ini", "copy-gone.lock", "copy-torn.vxscene.AbCdEf"}) {
        QFile file(folder() + '/' + QLatin1String(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QFile foreign(folder() + "/notes.txt");
    QVERIFY(foreign.open(QIODevice::WriteOnly));
    RecoveryStore store(folder());
    QCOMPARE(store.claim().size(), 1);
    store.release();
    const QStringList left = files();
    QCOMPARE(left.size(), 3); // the copy, its record and what is not ours
    QVERIFY(left.contains("notes.txt"));
}

/// What changes once writing has begun belongs to the next copy.
void tst_RecoveryStore::theSceneIsCopiedAtTheStart()
{
    RecoveryStore store(folder());
    VxFileError error;
    m_scene->setTime(480);
    VxMarker marker;
    marker.name = "Contact";
    VxMarkers::of(m_scene.get())->add(marker);
    VxSceneTimeDisplay::of(m_scene.get())->setDisplay({VxTimeDisplay::Timecode, {25, 1}, true});
    QVERIFY(!store.isWriting());
    QVERIFY(store.beginWrite(*m_scene, QString(), "walk", &error));
    m_scene->setTime(1600);
    m_scene->clear();
    QVERIFY2(store.endWrite(&error), qPrintable(error.text()));
    QVERIFY(!store.isWriting());
    QVERIFY(store.endWrite(&error)); // the same answer until the next one
    VxSceneContents contents;
    const QString name = folder() + '/' + files().filter(".vxscene").constFirst();
    QVERIFY(VxSceneReader().readFile(name, &contents, &error));
    QCOMPARE(contents.time, 480);
    QCOMPARE(contents.markers.value(0).name, QString("Contact"));
    QCOMPARE(contents.timeDisplay.rate.frames, 25);
    QVERIFY(!contents.rootNodes.empty());
}

void tst_RecoveryStore::removalIsDeferredUntilTheDiskAnswers()
{
    RecoveryStore store(folder());
    VxFileError error;
    for (int i = 0; i < 20; ++i) {
        QVERIFY(store.beginWrite(*m_scene, QString(), "walk", &error));
        store.removeOwn();
        QVERIFY2(files().isEmpty(), qPrintable(files().join(' ')));
    }
    QVERIFY(store.beginWrite(*m_scene, QString(), "walk", &error));
    QVERIFY(store.beginWrite(*m_scene, QString(), "walk", &error)); // waits for the first
    QVERIFY(store.endWrite(&error));
    QVERIFY(store.hasOwn());
}

void tst_RecoveryStore::aFullDiskKeepsTheFormerCopy()
{
    RecoveryStore store(folder());
    QVERIFY(write(&store));
    const QString name = folder() + '/' + files().filter(".vxscene").constFirst();
    const qint64 size = QFileInfo(name).size();
    m_scene->setTime(1600);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{rlim_t(size) / 2, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    VxFileError error;
    const bool done = store.write(*m_scene, "/somewhere/walk.vxscene", "walk.vxscene", &error);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    QVERIFY(!done);
    QVERIFY2(error.text().startsWith(name), qPrintable(error.text()));
    QVERIFY2(error.text().contains("File too large"), qPrintable(error.text()));
    VxSceneContents contents;
    QVERIFY(VxSceneReader().readFile(name, &contents, &error));
    QCOMPARE(contents.time, 0);
    QCOMPARE(files().size(), 3);
}

void tst_RecoveryStore::foldersThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("place");
    QTest::newRow("a file") << "plain.txt";
    QTest::newRow("below a file") << "plain.txt/below";
    QTest::newRow("a system folder") << "/proc/recovery";
}

void tst_RecoveryStore::foldersThatCannotBeWritten()
{
    QFETCH(QString, place);
    QFile plain(m_dir->filePath("plain.txt"));
    QVERIFY(plain.open(QIODevice::WriteOnly));
    const QString name = QDir(m_dir->path()).absoluteFilePath(place);
    RecoveryStore store(name);
    VxFileError error;
    QVERIFY(!store.write(*m_scene, QString(), "walk", &error));
    QVERIFY2(error.text().contains(name), qPrintable(error.text()));
    QVERIFY(!store.hasOwn());
    QVERIFY(store.claim().isEmpty());
}

void tst_RecoveryStore::withoutFolderNothingIsKept()
{
    RecoveryStore store((QString()));
    QVERIFY(!store.isEnabled());
    QVERIFY(!write(&store));
    QVERIFY(store.claim().isEmpty());
}

static int runRecoveryStore(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--job")) {
        const QString job = arguments.value(2);
        const QString folder = arguments.value(3);
        return job == "count" ? countCopies(folder) : keepCopies(folder, job == "forever");
    }
    tst_RecoveryStore test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runRecoveryStore)

#include "tst_recoverystore.moc"
