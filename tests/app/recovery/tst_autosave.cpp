// When a copy of the document is written, deferred and removed.

#include "document/documentcontroller.h"
#include "io/vxscenereader.h"
#include "recovery/autosave.h"
#include "recovery/recoverystore.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"
#include "widgets/usermessages.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>
#include <memory>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int Interval = 60; // milliseconds

class Window : public VxMainWindow
{
public:
    void showStatusMessage(const QString &text, int) override { texts.append(text); }
    QStringList texts;
};

/// Scene files on a machine that is slow to write.
VxFileFormats slowFormats()
{
    VxFileFormats formats;
    VxFileFormat format = *VxFileFormats::standard().find("x.vxscene");
    const VxFileFormat::Writer write = format.write;
    format.write = [write](const QString &file, const VxScene *scene,
                           const VxFileProgress &progress, VxFileError *error) {
        const VxFileProgress slow = [&progress](int percent) {
            QThread::msleep(20);
            return progress(percent);
        };
        return write(file, scene, slow, error);
    };
    formats.add(format);
    return formats;
}

} // namespace

class tst_AutoSave : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void changesAreCopied();
    void nothingIsWrittenWithoutChanges();
    void oneCopyForManyChanges();
    void isDeferredDuringAGesture();
    void isDeferredWhileAButtonIsPressed();
    void isDeferredDuringPlayback();
    void playbackDefersOnceOnly();
    void isDeferredWhileSaving();
    void isRemovedWithTheChanges_data();
    void isRemovedWithTheChanges();
    void staysWhenTheFileCannotBeOpened();
    void canBeTurnedOff();
    void minutesAreKeptInRange();
    void failureIsReportedOnce();
    void isWrittenAtOnceAtTheEnd();
    void namesTheDocumentOfTheCopy();

private:
    void change();
    bool hasCopy() const { return m_store->hasOwn(); }
    int copiedStep() const;
    void build(const VxFileFormats &formats = VxFileFormats::standard());

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<VxUndoStack> m_history;
    std::unique_ptr<VxScene> m_scene;
    std::unique_ptr<Window> m_window;
    std::unique_ptr<UserMessages> m_messages;
    std::unique_ptr<DocumentController> m_document;
    std::unique_ptr<RecoveryStore> m_store;
    std::unique_ptr<AutoSave> m_save;
    std::unique_ptr<QSignalSpy> m_written;
};

void tst_AutoSave::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_dir = std::make_unique<QTemporaryDir>();
    m_history = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    WalkSample::build(m_scene.get());
    m_window = std::make_unique<Window>();
    m_window->resize(200, 200);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_messages = std::make_unique<UserMessages>(UserMessages::Mode::Window);
    m_messages->setWindow(m_window.get());
    build();
}

void tst_AutoSave::build(const VxFileFormats &formats)
{
    m_save.reset();
    m_document = std::make_unique<DocumentController>(m_scene.get(), m_history.get(),
                                                      m_messages.get(), nullptr, formats);
    m_store = std::make_unique<RecoveryStore>(m_dir->filePath("recovery"));
    m_save = std::make_unique<AutoSave>(m_document.get(), m_scene.get(), m_history.get(),
                                        m_store.get(), m_messages.get());
    m_save->setInterval(Interval);
    m_written = std::make_unique<QSignalSpy>(m_save.get(), &AutoSave::written);
}

void tst_AutoSave::cleanup()
{
    m_written.reset();
    m_save.reset();
    m_store.reset();
    m_document.reset();
    m_messages.reset();
    m_window.reset();
    m_history->clear();
    m_scene.reset();
    m_history.reset();
    m_dir.reset();
    m_guard.reset();
}

void tst_AutoSave::change()
{
    VxUndoStackHold hold;
    m_scene->setTimeStep(m_scene->getTimeStep() + 1);
    hold.accept("Change");
}

/** The time step that the copy holds: which of the changes it was made after. */
int tst_AutoSave::copiedStep() const
{
    const QDir folder(m_store->folder());
    const QStringList scenes = folder.entryList({"*.vxscene"}, QDir::Files);
    VxSceneContents contents;
    VxFileError error;
    if (scenes.size() != 1 ||
        !VxSceneReader().readFile(folder.filePath(scenes.constFirst()), &contents, &error))
        return -1;
    return contents.timeStep;
}

void tst_AutoSave::changesAreCopied()
{
    QElapsedTimer clock;
    clock.start();
    change();
    QVERIFY(!hasCopy());
    QVERIFY(m_written->wait());
    QVERIFY(clock.elapsed() >= Interval - 5);
    QVERIFY(hasCopy());
    QCOMPARE(copiedStep(), m_scene->getTimeStep());
    change();
    QVERIFY(m_written->wait());
    QCOMPARE(copiedStep(), m_scene->getTimeStep());
    m_history->undo(); // is a change, too
    QVERIFY(m_written->wait());
    QCOMPARE(copiedStep(), m_scene->getTimeStep());
}

void tst_AutoSave::nothingIsWrittenWithoutChanges()
{
    QVERIFY(!m_written->wait(Interval * 4));
    change();
    QVERIFY(m_written->wait());
    QVERIFY(!m_written->wait(Interval * 4));
    m_scene->setTime(1600); // nothing that one would undo
    QVERIFY(!m_written->wait(Interval * 4));
}

/// The time runs from the first change on: whoever works without a pause gets copies, too.
void tst_AutoSave::oneCopyForManyChanges()
{
    QElapsedTimer clock;
    clock.start();
    int changes = 0;
    QTimer busy;
    connect(&busy, &QTimer::timeout, this, [&] {
        change();
        ++changes;
    });
    busy.start(5);
    QTRY_COMPARE(m_written->count(), 3);
    busy.stop();
    QVERIFY(clock.elapsed() >= 3 * (Interval - 5));
    QVERIFY2(changes >= 9, qPrintable(QString::number(changes)));
}

void tst_AutoSave::isDeferredDuringAGesture()
{
    change();
    const int before = m_scene->getTimeStep();
    VxUndoStackHold hold;
    m_scene->setTimeStep(999);
    QVERIFY(!m_written->wait(Interval * 5));
    m_scene->setTimeStep(before);
    hold.cancel();
    QVERIFY(m_written->wait());
    QCOMPARE(copiedStep(), before);
}

void tst_AutoSave::isDeferredWhileAButtonIsPressed()
{
    change();
    VxMouseDriver mouse(m_window.get());
    mouse.press({50, 50});
    QCOMPARE(QGuiApplication::mouseButtons(), Qt::MouseButtons(Qt::LeftButton));
    QVERIFY(!m_written->wait(Interval * 5));
    mouse.release({50, 50});
    QVERIFY(m_written->wait());
}

void tst_AutoSave::isDeferredDuringPlayback()
{
    m_save->setInterval(2000);
    m_scene->loopPlayback(true);
    change();
    m_save->setInterval(400); // restarts the time that runs
    m_scene->play();
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!m_written->wait(600));
    QVERIFY(m_scene->isPlaying());
    m_scene->pause();
    QVERIFY(m_written->wait());
    QVERIFY(clock.elapsed() >= 600);
}

void tst_AutoSave::playbackDefersOnceOnly()
{
    m_scene->loopPlayback(true);
    m_scene->play();
    QElapsedTimer clock;
    clock.start();
    change();
    QVERIFY(m_written->wait());
    QVERIFY(m_scene->isPlaying());
    QVERIFY2(clock.elapsed() >= 2 * (Interval - 5), qPrintable(QString::number(clock.elapsed())));
}

void tst_AutoSave::isDeferredWhileSaving()
{
    build(slowFormats());
    change();
    bool copiedMeanwhile = false;
    int turns = 0;
    QTimer observer;
    connect(&observer, &QTimer::timeout, this, [&] {
        ++turns;
        copiedMeanwhile |= m_document->isBusy() && hasCopy();
    });
    observer.start(5);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(m_document->save(m_dir->filePath("slow.vxscene")));
    QVERIFY(clock.elapsed() > 4 * Interval);
    QVERIFY(turns > 5);
    QVERIFY(!copiedMeanwhile);
    QVERIFY(!m_written->wait(Interval * 4)); // saved: there is nothing left to copy
}

void tst_AutoSave::isRemovedWithTheChanges_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how :
         {"saved", "undone", "another file", "the same file", "a new scene", "given up"})
        QTest::newRow(how) << QString(QLatin1String(how));
}

void tst_AutoSave::isRemovedWithTheChanges()
{
    QFETCH(QString, how);
    const QString file = m_dir->filePath("walk.vxscene");
    QVERIFY(m_document->save(file));
    change();
    QVERIFY(m_written->wait());
    QVERIFY(hasCopy());
    if (how == "saved")
        QVERIFY(m_document->save(file));
    else if (how == "undone")
        m_history->undo();
    else if (how == "another file")
        QVERIFY(m_document->open(VX_SOURCE_DIR "/samples/walk.bvh"));
    else if (how == "the same file")
        QVERIFY(m_document->open(file));
    else if (how == "a new scene")
        m_document->clear();
    else
        m_save->dropCopy();
    QVERIFY(!hasCopy());
    QVERIFY(QDir(m_store->folder()).entryList(QDir::Files).isEmpty());
    QVERIFY(!m_written->wait(Interval * 3));
    change();
    QVERIFY(m_written->wait());
    QVERIFY(hasCopy());
}

void tst_AutoSave::staysWhenTheFileCannotBeOpened()
{
    change();
    QVERIFY(m_written->wait());
    const UserMessages console(UserMessages::Mode::Console);
    DocumentController document(m_scene.get(), m_history.get(), &console);
    QVERIFY(!document.open(m_dir->filePath("gone.vxscene")));
    QVERIFY(hasCopy());
}

void tst_AutoSave::canBeTurnedOff()
{
    change();
    QVERIFY(m_written->wait());
    QSignalSpy reported(m_save.get(), &AutoSave::minutesChanged);
    m_save->setMinutes(0);
    QCOMPARE(reported.count(), 1);
    QVERIFY(!hasCopy());
    change();
    QVERIFY(!m_written->wait(Interval * 4));
    // Turned on again it copies the earlier changes.
    m_save->setInterval(Interval);
    QVERIFY(m_written->wait());
    QVERIFY(hasCopy());
}

void tst_AutoSave::minutesAreKeptInRange()
{
    QCOMPARE(m_save->minutes(), 3);
    m_save->setMinutes(-5);
    QCOMPARE(m_save->minutes(), 0);
    m_save->setMinutes(2000000000);
    QCOMPARE(m_save->minutes(), 1440);
}

void tst_AutoSave::failureIsReportedOnce()
{
    QFile inTheWay(m_dir->filePath("recovery"));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    change();
    QTRY_COMPARE(m_window->texts.size(), 1);
    QVERIFY2(m_window->texts.at(0).contains("Cannot make a recovery copy: " +
                                            m_dir->filePath("recovery")),
             qPrintable(m_window->texts.at(0)));
    QVERIFY(!m_written->wait(Interval * 4)); // tries again, quietly
    QCOMPARE(m_window->texts.size(), 1);
    QVERIFY(inTheWay.remove());
    QVERIFY(m_written->wait());
    QVERIFY(hasCopy());
}

void tst_AutoSave::isWrittenAtOnceAtTheEnd()
{
    m_save->setInterval(60000);
    m_save->writeNow();
    QVERIFY(!hasCopy()); // nothing to lose
    change();
    m_save->writeNow();
    QCOMPARE(copiedStep(), m_scene->getTimeStep());
    m_history->undo();
    QVERIFY(!hasCopy());
    {
        VxUndoStackHold hold; // in the middle of the first change
        m_scene->setTimeStep(999);
        m_save->writeNow();
        QCOMPARE(copiedStep(), 999);
    }
    m_save->dropCopy();
    m_save->setInterval(0);
    change();
    m_save->writeNow();
    QVERIFY(!hasCopy());
}

void tst_AutoSave::namesTheDocumentOfTheCopy()
{
    const QString file = m_dir->filePath("walk.vxscene");
    QVERIFY(m_document->save(file));
    change();
    QVERIFY(m_written->wait());
    m_save.reset();
    m_store = std::make_unique<RecoveryStore>(m_dir->filePath("recovery"));
    const QVector<RecoveryCopy> copies = m_store->claim();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies.at(0).documentFile, file);
    QCOMPARE(copies.at(0).title, QString("walk.vxscene"));
}

VX_TEST_MAIN(tst_AutoSave)
#include "tst_autosave.moc"
