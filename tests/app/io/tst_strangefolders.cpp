// Saving in folders where files cannot be renamed over others, linked or locked, and with an
// operation that fails or a program that is killed at every step: a complete document is always
// there.

#include "document/documentcontroller.h"
#include "io/formats/vxfileformats.h"
#include "io/vxscenereader.h"
#include "io/vxscenewriter.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"
#include "widgets/usermessages.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <cerrno>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vxcore/vxfileexchange.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr VxTime OldStep = 160;
constexpr VxTime NewStep = 320;
constexpr int Backups = 2;
constexpr uid_t Nobody = 65534;
constexpr int MaxSteps = 20; // no save has as many operations

bool saveWithStep(const QString &fileName, VxTime step, QString *message)
{
    VxScene scene;
    VxUndoStack history;
    const UserMessages messages(UserMessages::Mode::Console);
    DocumentController document(&scene, &history, &messages);
    document.setBackups(Backups);
    WalkSample::build(&scene);
    scene.setTimeStep(step);
    const bool done = document.save(fileName);
    *message = document.lastError();
    return done;
}

/// The step in a complete document; -1 for a missing or damaged file.
VxTime stepIn(const QString &fileName)
{
    VxSceneContents contents;
    VxFileError error;
    return VxSceneReader().readFile(fileName, &contents, &error) ? contents.timeStep : -1;
}

struct Run
{
    bool killed = false;
    bool done = false;
    QString message;
};

/// Saves in a program of its own that the shim gives its folder.
Run save(const QString &fileName, const QString &refuses, const char *setting = nullptr, int at = 0,
         const QString &option = "--save")
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", QStringLiteral(VX_BINARY_DIR "/tests/strangefolder.so"));
    environment.insert("VX_FOLDER", QFileInfo(fileName).absolutePath());
    environment.insert("VX_REFUSES", refuses);
    if (setting)
        environment.insert(QLatin1String(setting), QString::number(at));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {option, fileName});
    if (!child.waitForFinished(20000))
        qFatal("the child does not end");
    return {child.exitStatus() == QProcess::CrashExit, child.exitCode() == 0,
            QString::fromLocal8Bit(child.readAllStandardError())};
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

} // namespace

class tst_StrangeFolders : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void savesInFoldersThatRefuse_data();
    void savesInFoldersThatRefuse();
    void aStepThatFails_data() { savesInFoldersThatRefuse_data(); }
    void aStepThatFails();
    void killedAtAStep_data() { savesInFoldersThatRefuse_data(); }
    void killedAtAStep();
    void interruptedSavesAreCompleted_data();
    void interruptedSavesAreCompleted();
    void interruptedOverwritesAreNamed();
    void permissionsAreKept_data();
    void permissionsAreKept();
    void linksStay();
    void pathsThatLeadUpThroughLinks();
    void circlesOfLinksAreRefused();
    void readOnlyFilesAreRefused();
    void filesOfOthers_data();
    void filesOfOthers();
    void copiedBackupsOfOtherGroups();
    void foldersInWhichOnlyOwnFilesAreRenamed();
    void linksInThePlaceOfTheFormerFile();
    void withoutAWindowNothingIsOverwritten_data();
    void withoutAWindowNothingIsOverwritten();
    void changesWhileADocumentIsReadAreNoticed();
    void backupsAreSavedUnderAnotherName();

private:
    QStringList states() const;

    const VxWarningGuard m_guard;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_StrangeFolders::init()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer must be the first library that is loaded");
#endif
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath("walk.vxscene");
    QString message;
    QVERIFY(saveWithStep(m_file, OldStep, &message));
}

void tst_StrangeFolders::savesInFoldersThatRefuse_data()
{
    QTest::addColumn<QString>("refuses");
    QTest::newRow("nothing") << "";
    QTest::newRow("to rename over a file") << QString("over=%1").arg(EEXIST);
    QTest::newRow("to rename over a file, and hard links")
        << QString("over=%1 link=%2").arg(EPERM).arg(EPERM);
    QTest::newRow("to rename a file onto itself, and locks")
        << QString("over=%1 lock=%2").arg(EACCES).arg(ENOLCK);
    QTest::newRow("to rename any file") << QString("rename=%1").arg(EXDEV);
    QTest::newRow("to rename any file, and hard links")
        << QString("rename=%1 link=%2").arg(EPERM).arg(EOPNOTSUPP);
}

void tst_StrangeFolders::savesInFoldersThatRefuse()
{
    QFETCH(QString, refuses);
    const bool renames = !refuses.contains("rename=");
    const Run run = save(m_file, refuses);
    QVERIFY2(run.done, qPrintable(run.message));
    QCOMPARE(stepIn(m_file), NewStep);
    if (renames) {
        QCOMPARE(filesIn(m_folder->path()), QStringList({"walk.bak1.vxscene", "walk.vxscene"}));
        QCOMPARE(stepIn(m_folder->filePath("walk.bak1.vxscene")), OldStep);
    } else {
        // Where nothing can be renamed there is none, and the message says so.
        QCOMPARE(filesIn(m_folder->path()), QStringList{"walk.vxscene"});
        QVERIFY2(run.message.contains("backup could not be made"), qPrintable(run.message));
    }
}

/// Empty when a complete document is under its name and nothing incomplete under any other.
QStringList tst_StrangeFolders::states() const
{
    QStringList faults;
    VxFileExchange::finishInterrupted(m_file);
    const VxTime step = stepIn(m_file);
    const VxTime former = stepIn(VxFileExchange::oldName(m_file));
    if (step != OldStep && step != NewStep && former != OldStep)
        faults.append("no complete document");
    for (int number = 1; number <= Backups; ++number) {
        const QString backup = m_folder->filePath(QString("walk.bak%1.vxscene").arg(number));
        if (QFile::exists(backup) && stepIn(backup) < 0)
            faults.append(backup);
    }
    return faults;
}

void tst_StrangeFolders::aStepThatFails()
{
    QFETCH(QString, refuses);
    int failures = 0;
    for (int step = 1; step <= MaxSteps; ++step) {
        init();
        const Run run = save(m_file, refuses, "VX_FAILS_AT", step);
        QVERIFY(!run.killed);
        const QString place = QString("step %1: %2").arg(step).arg(run.message);
        // What is said is true.
        const QString old = VxFileExchange::oldName(m_file);
        const bool isAside = stepIn(old) == OldStep && run.message.contains(old);
        const VxTime found = stepIn(m_file);
        QVERIFY2(run.done ? found == NewStep : found == OldStep || isAside, qPrintable(place));
        QVERIFY2(states().isEmpty(), qPrintable(place + states().join(' ')));
        QVERIFY2(run.done || run.message.contains(m_file), qPrintable(place));
        failures += !run.done;
        if (!run.message.contains("strangefolder:"))
            break; // the save has no further step
        QVERIFY(step < MaxSteps);
    }
    QVERIFY2(failures >= 2, qPrintable(QString::number(failures)));
}

void tst_StrangeFolders::killedAtAStep()
{
    QFETCH(QString, refuses);
    int kills = 0;
    for (int step = 1; step <= MaxSteps; ++step) {
        init();
        const Run run = save(m_file, refuses, "VX_KILLED_AT", step);
        QVERIFY2(states().isEmpty(),
                 qPrintable(QString("step %1: %2").arg(step).arg(states().join(' '))));
        if (!run.killed)
            break;
        ++kills;
        // The next save works and clears up.
        QString message;
        QVERIFY2(saveWithStep(m_file, NewStep, &message), qPrintable(message));
        QCOMPARE(stepIn(m_file), NewStep);
        QVERIFY(!QFile::exists(m_folder->filePath("walk.bak0.vxscene")));
        QVERIFY(step < MaxSteps);
    }
    QVERIFY2(kills >= 4, qPrintable(QString::number(kills)));
}

void tst_StrangeFolders::interruptedSavesAreCompleted_data()
{
    QTest::addColumn<bool>("hasNew");
    QTest::addColumn<VxTime>("step");
    QTest::newRow("with the new file") << true << NewStep;
    QTest::newRow("without it") << false << OldStep;
}

/// Opening the document completes the save of a killed program and reports it.
void tst_StrangeFolders::interruptedSavesAreCompleted()
{
    QFETCH(bool, hasNew);
    QFETCH(VxTime, step);
    QString message;
    QVERIFY(QFile::rename(m_file, VxFileExchange::oldName(m_file)));
    if (hasNew) {
        const QString next = m_folder->filePath("next.vxscene");
        QVERIFY(saveWithStep(next, NewStep, &message));
        QVERIFY(QFile::rename(next, VxFileExchange::newName(m_file)));
    }
    VxScene scene;
    VxUndoStack history;
    const UserMessages messages(UserMessages::Mode::Console);
    DocumentController document(&scene, &history, &messages);
    QVERIFY2(document.open(m_file), qPrintable(document.lastError()));
    QCOMPARE(scene.getTimeStep(), step);
    QVERIFY2(document.summary().contains("interrupted"), qPrintable(document.summary()));
    QCOMPARE(filesIn(m_folder->path()), QStringList{"walk.vxscene"});
}

/// A file that was being overwritten in place is damaged: both complete ones are named.
void tst_StrangeFolders::interruptedOverwritesAreNamed()
{
    const QString next = VxFileExchange::newName(m_file);
    const QString old = VxFileExchange::oldName(m_file);
    QVERIFY(QFile::copy(m_file, next) && QFile::copy(m_file, old));
    QVERIFY(QFile::resize(m_file, 100));
    VxScene scene;
    VxUndoStack history;
    const UserMessages messages(UserMessages::Mode::Console);
    DocumentController document(&scene, &history, &messages);
    QVERIFY(!document.open(m_file));
    for (const QString &name : {next, old})
        QVERIFY2(document.lastError().contains("rename " + name), qPrintable(document.lastError()));
    QVERIFY(QFile::exists(next) && QFile::exists(old));
}

void tst_StrangeFolders::permissionsAreKept_data()
{
    QTest::addColumn<QString>("refuses");
    QTest::addColumn<int>("mode");
    for (const int mode : {0600, 0640, 0664, 0666, 0755}) {
        QTest::addRow("%o", mode) << QString() << mode;
        QTest::addRow("%o, in steps", mode) << QString("over=%1").arg(EEXIST) << mode;
        QTest::addRow("%o, in place", mode) << QString("rename=%1").arg(EPERM) << mode;
    }
}

void tst_StrangeFolders::permissionsAreKept()
{
    QFETCH(QString, refuses);
    QFETCH(int, mode);
    const QByteArray name = QFile::encodeName(m_file);
    QVERIFY(::chmod(name.constData(), mode_t(mode)) == 0);
    constexpr gid_t OtherGroup = 12345;
    const bool hasOtherGroup = ::chown(name.constData(), uid_t(-1), OtherGroup) == 0;
    const Run run = save(m_file, refuses);
    QVERIFY2(run.done, qPrintable(run.message));
    QCOMPARE(stepIn(m_file), NewStep);
    struct stat status = {};
    QVERIFY(::stat(name.constData(), &status) == 0);
    QCOMPARE(int(status.st_mode & 0777), mode);
    if (hasOtherGroup) // only an administrator can give it
        QCOMPARE(status.st_gid, OtherGroup);
}

void tst_StrangeFolders::linksStay()
{
    QVERIFY(QDir(m_folder->path()).mkdir("elsewhere"));
    const QString target = m_folder->filePath("elsewhere/real.vxscene");
    QVERIFY(QFile::rename(m_file, target));
    QVERIFY(QFile::link("elsewhere/second.vxscene", m_file));
    QVERIFY(QFile::link("real.vxscene", m_folder->filePath("elsewhere/second.vxscene")));
    for (const QString &refuses : {QString(), QString("over=%1").arg(EEXIST)}) {
        QString message;
        QVERIFY(saveWithStep(target, OldStep, &message));
        const Run run = save(m_file, refuses);
        QVERIFY2(run.done, qPrintable(run.message));
        QVERIFY(QFileInfo(m_file).isSymLink());
        QVERIFY(QFileInfo(m_folder->filePath("elsewhere/second.vxscene")).isSymLink());
        QVERIFY(!QFileInfo(target).isSymLink());
        QCOMPARE(stepIn(target), NewStep);
    }
}

/// ".." after a link to a folder is the parent of the link's target.
void tst_StrangeFolders::pathsThatLeadUpThroughLinks()
{
    QVERIFY(QDir(m_folder->path()).mkpath("deep/inner"));
    QVERIFY(QFile::link("deep/inner", m_folder->filePath("short")));
    QVERIFY(QFile::link("../walk.vxscene", m_folder->filePath("deep/inner/link.vxscene")));
    const QString target = m_folder->filePath("deep/walk.vxscene");
    for (const char *const path : {"short/link.vxscene", "short/../walk.vxscene"}) {
        QString message;
        QVERIFY(saveWithStep(target, OldStep, &message));
        VxScene scene;
        VxUndoStack history;
        const UserMessages messages(UserMessages::Mode::Console);
        DocumentController document(&scene, &history, &messages);
        QVERIFY(document.open(m_folder->path() + '/' + path));
        scene.setTimeStep(NewStep);
        QVERIFY2(document.save(document.fileName()), qPrintable(document.lastError()));
        QCOMPARE(stepIn(target), NewStep);
        QCOMPARE(stepIn(m_file), OldStep);
    }
}

void tst_StrangeFolders::circlesOfLinksAreRefused()
{
    QVERIFY(QFile::remove(m_file));
    QVERIFY(QFile::link("b.vxscene", m_file));
    QVERIFY(QFile::link("walk.vxscene", m_folder->filePath("b.vxscene")));
    const Run run = save(m_file, QString());
    QVERIFY(!run.done);
    QVERIFY2(run.message.contains("Too many levels of symbolic links"), qPrintable(run.message));
}

void tst_StrangeFolders::readOnlyFilesAreRefused()
{
    QVERIFY(::chmod(QFile::encodeName(m_file).constData(), 0444) == 0);
    const Run run = save(m_file, QString());
    QVERIFY(!run.done);
    QVERIFY2(run.message.startsWith(m_file) && run.message.contains("read-only"),
             qPrintable(run.message));
    QCOMPARE(stepIn(m_file), OldStep);
    QCOMPARE(filesIn(m_folder->path()), QStringList{"walk.vxscene"});
}

void tst_StrangeFolders::filesOfOthers_data()
{
    QTest::addColumn<bool>("isOwn");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("after"); // 0: refused
    // What a group may do that cannot be given is not for the user's own group.
    QTest::newRow("own file of another group") << true << 0660 << 0600;
    QTest::newRow("own file of another group, readable by all") << true << 0664 << 0644;
    QTest::newRow("another's file that all may write") << false << 0666 << 0666;
    QTest::newRow("another's file that all may read") << false << 0644 << 0;
}

void tst_StrangeFolders::filesOfOthers()
{
    QFETCH(bool, isOwn);
    QFETCH(int, mode);
    QFETCH(int, after);
    if (::getuid() != 0)
        QSKIP("only an administrator can act as another user");
    const QByteArray name = QFile::encodeName(m_file);
    QVERIFY(::chmod(QFile::encodeName(m_folder->path()).constData(), 0777) == 0);
    QVERIFY(::chown(name.constData(), isOwn ? Nobody : 0, 12345) == 0);
    QVERIFY(::chmod(name.constData(), mode_t(mode)) == 0);
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {"--save-as-nobody", m_file});
    QVERIFY(child.waitForFinished(20000));
    const QString message = QString::fromLocal8Bit(child.readAllStandardError());
    QVERIFY2((child.exitCode() == 0) == (after != 0), qPrintable(message));
    QCOMPARE(stepIn(m_file), after != 0 ? NewStep : OldStep);
    struct stat status = {};
    QVERIFY(::stat(name.constData(), &status) == 0);
    QCOMPARE(int(status.st_mode & 0777), after != 0 ? after : mode);
    if (after == 0)
        QVERIFY2(message.contains("it is read-only"), qPrintable(message));
}

/// Without hard links: a group that cannot be set gets no more permissions than others have.
void tst_StrangeFolders::copiedBackupsOfOtherGroups()
{
    if (::getuid() != 0)
        QSKIP("only an administrator can act as another user");
    const QByteArray name = QFile::encodeName(m_file);
    QVERIFY(::chmod(QFile::encodeName(m_folder->path()).constData(), 0777) == 0);
    QVERIFY(::chown(name.constData(), Nobody, 12345) == 0);
    QVERIFY(::chmod(name.constData(), 0660) == 0);
    const Run run = save(m_file, QString("link=%1").arg(EPERM), nullptr, 0, "--save-as-nobody");
    QVERIFY2(run.done, qPrintable(run.message));
    const QString backup = m_folder->filePath("walk.bak1.vxscene");
    QCOMPARE(stepIn(backup), OldStep);
    struct stat status = {};
    QVERIFY(::stat(QFile::encodeName(backup).constData(), &status) == 0);
    QCOMPARE(int(status.st_mode & 0777), 0600);
}

/// Another's file is overwritten in place there: its backup is no link to it.
void tst_StrangeFolders::foldersInWhichOnlyOwnFilesAreRenamed()
{
    if (::getuid() != 0)
        QSKIP("only an administrator can act as another user");
    QVERIFY(::chmod(QFile::encodeName(m_folder->path()).constData(), 01777) == 0);
    QVERIFY(::chmod(QFile::encodeName(m_file).constData(), 0666) == 0);
    const Run run = save(m_file, QString(), nullptr, 0, "--save-as-nobody");
    QVERIFY2(run.done && !run.message.contains("backup"), qPrintable(run.message));
    QCOMPARE(stepIn(m_file), NewStep);
    QCOMPARE(stepIn(m_folder->filePath("walk.bak1.vxscene")), OldStep);
    QCOMPARE(filesIn(m_folder->path()), QStringList({"walk.bak1.vxscene", "walk.vxscene"}));
}

/// Nothing is written through a link that another user has put there.
void tst_StrangeFolders::linksInThePlaceOfTheFormerFile()
{
    if (::getuid() != 0)
        QSKIP("only an administrator can act as another user");
    QVERIFY(::chmod(QFile::encodeName(m_folder->path()).constData(), 01777) == 0);
    QVERIFY(::chmod(QFile::encodeName(m_file).constData(), 0666) == 0);
    const QString own = m_folder->filePath("own.vxscene");
    QString message;
    QVERIFY(saveWithStep(own, NewStep + 1, &message));
    QVERIFY(::chown(QFile::encodeName(own).constData(), Nobody, Nobody) == 0);
    QVERIFY(QFile::link(own, VxFileExchange::oldName(m_file)));
    const Run run = save(m_file, QString(), nullptr, 0, "--save-as-nobody");
    QVERIFY2(!run.done && run.message.contains(m_file), qPrintable(run.message));
    QCOMPARE(stepIn(own), NewStep + 1);
    QCOMPARE(stepIn(m_file), OldStep);
}

void tst_StrangeFolders::withoutAWindowNothingIsOverwritten_data()
{
    QTest::addColumn<bool>("removes");
    QTest::addColumn<QString>("savedAs");
    QTest::addColumn<QString>("text");
    QTest::newRow("a changed file") << false << "walk.vxscene"
                                    << "was changed by another program";
    QTest::newRow("a changed file, by the name of a link") << false << "link.vxscene"
                                                           << "was changed by another program";
    QTest::newRow("a removed file") << true << "walk.vxscene"
                                    << "was removed or renamed by another program";
}

void tst_StrangeFolders::withoutAWindowNothingIsOverwritten()
{
    QFETCH(bool, removes);
    QFETCH(QString, savedAs);
    QFETCH(QString, text);
    QVERIFY(QFile::link("walk.vxscene", m_folder->filePath("link.vxscene")));
    VxScene scene;
    VxUndoStack history;
    const UserMessages messages(UserMessages::Mode::Console);
    DocumentController document(&scene, &history, &messages);
    QVERIFY(document.open(m_file));
    QString message;
    if (removes)
        QVERIFY(QFile::remove(m_file));
    else
        QVERIFY(saveWithStep(m_file, NewStep, &message));
    const QString name = m_folder->filePath(savedAs);
    QVERIFY(!document.save(name));
    QVERIFY2(document.lastError().startsWith(name) && document.lastError().contains(text) &&
                 document.lastError().endsWith("It was not saved."),
             qPrintable(document.lastError()));
    QCOMPARE(stepIn(m_file), removes ? -1 : NewStep);
    QVERIFY(document.save(m_folder->filePath("other.vxscene")));
}

void tst_StrangeFolders::changesWhileADocumentIsReadAreNoticed()
{
    VxFileFormat format = *VxFileFormats::standard().find(m_file);
    format.read = [read = format.read](const QString &fileName, VxScene *scene,
                                       const VxFileProgress &progress, QString *summary,
                                       VxFileError *error) {
        const bool isRead = read(fileName, scene, progress, summary, error);
        QString message;
        return isRead && saveWithStep(fileName, NewStep, &message);
    };
    VxFileFormats formats;
    formats.add(format);
    VxScene scene;
    VxUndoStack history;
    const UserMessages messages(UserMessages::Mode::Console);
    DocumentController document(&scene, &history, &messages, nullptr, formats);
    QVERIFY(document.open(m_file));
    QCOMPARE(scene.getTimeStep(), OldStep);
    QVERIFY(!document.save(m_file));
    QCOMPARE(stepIn(m_file), NewStep);
}

/// Later saves of the document would remove what was saved in its backup.
void tst_StrangeFolders::backupsAreSavedUnderAnotherName()
{
    QString message;
    QVERIFY(saveWithStep(m_file, NewStep, &message));
    VxScene scene;
    VxUndoStack history;
    const UserMessages messages(UserMessages::Mode::Console);
    DocumentController document(&scene, &history, &messages);
    QVERIFY(document.open(m_file) && document.hasWritableFile());
    QVERIFY(document.open(m_folder->filePath("walk.bak1.vxscene")));
    QVERIFY(!document.hasWritableFile());
    QVERIFY(QFile::remove(m_file)); // now it is a document like others
    QVERIFY(document.hasWritableFile());
}

static int runStrangeFolders(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool asNobody = arguments.value(1) == QLatin1String("--save-as-nobody");
    if (asNobody &&
        (::setgroups(0, nullptr) != 0 || ::setgid(Nobody) != 0 || ::setuid(Nobody) != 0))
        return 2;
    if (asNobody || arguments.value(1) == QLatin1String("--save")) {
        QString message;
        return saveWithStep(arguments.value(2), NewStep, &message) ? 0 : 1;
    }
    tst_StrangeFolders test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runStrangeFolders)
#include "tst_strangefolders.moc"
