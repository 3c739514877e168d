// Saving over a file: its former versions, and what other programs did to it meanwhile.

#include "savingtestbase.h"
#include "testing/vxtestmain.h"

#include <QStatusBar>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

/// Changes a file as another program does; returns what it contains then.
QByteArray changedByOthers(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::Append) || file.write("x") != 1)
        qFatal("cannot change the file");
    file.close();
    return contents(name);
}

} // namespace

class tst_StudioBackups : public QObject, public SavingTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUpSaving(); }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void aRemovedFile();
    void aReplacedFile();
    void aChangedFileIsSavedUnderAnotherName();
    void othersChangedTheFile();
    void aChangeIsNoticedWhenTheWindowIsUsedAgain();
    void backupsOfADocument();
    void savesWithoutChanges();
    void aChangeThatNoEntryHolds();
    void aSaveWithoutItsBackup();
    void theNumberOfBackupsIsASetting();
};

void tst_StudioBackups::aRemovedFile()
{
    const QString file = saved();
    change();
    QVERIFY(QFile::remove(file));
    QString text;
    {
        const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Cancel));
        QVERIFY(!window()->save());
        QVERIFY(answer.met());
    }
    QVERIFY2(text.contains("\"walk.vxscene\" was removed or renamed"), qPrintable(text));
    QVERIFY(!QFile::exists(file));
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Save));
    QVERIFY(window()->save());
    QVERIFY(answer.met());
    QCOMPARE(stepIn(file), vxScene->getTimeStep());
}

void tst_StudioBackups::aReplacedFile()
{
    const QString file = saved();
    change();
    // Of the same size and time: only the file itself is another one.
    struct stat former = {};
    QVERIFY(::stat(QFile::encodeName(file).constData(), &former) == 0);
    QVERIFY(QFile::copy(file, folder->filePath("other")));
    const timespec times[] = {former.st_atim, former.st_mtim};
    QVERIFY(::utimensat(AT_FDCWD, QFile::encodeName(folder->filePath("other")).constData(), times,
                        0) == 0);
    QVERIFY(std::rename(QFile::encodeName(folder->filePath("other")).constData(),
                        QFile::encodeName(file).constData()) == 0);
    const QByteArray theirs = contents(file);
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Cancel));
    QVERIFY(!window()->save());
    QVERIFY(answer.met());
    QVERIFY(contents(file) == theirs);
}

/// The answer opens the dialog for another name, and the file of the other program is unchanged.
void tst_StudioBackups::aChangedFileIsSavedUnderAnotherName()
{
    const QString file = saved();
    change();
    const QByteArray theirs = changedByOthers(file);
    const QString mine = folder->filePath("mine.vxscene");
    const DialogAnswer<QMessageBox> question([](QMessageBox *box) {
        box->findChild<QPushButton *>("SaveAsButton")->click();
        return true;
    });
    const DialogAnswer<QFileDialog> dialog(typeName(mine));
    QVERIFY(window()->save());
    QVERIFY(question.met() && dialog.met());
    QVERIFY(contents(file) == theirs);
    QCOMPARE(stepIn(mine), vxScene->getTimeStep());
    QCOMPARE(document()->fileName(), mine);
    QVERIFY(!window()->isWindowModified());
}

void tst_StudioBackups::othersChangedTheFile()
{
    const QString file = saved();
    change();
    const QByteArray theirs = changedByOthers(file);
    QString text;
    {
        const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Cancel));
        QVERIFY(!window()->save());
        QVERIFY(answer.met());
    }
    QVERIFY2(text.contains("\"walk.vxscene\" was changed by another program"), qPrintable(text));
    QVERIFY(contents(file) == theirs);
    QVERIFY(window()->isWindowModified());
    // Under another name there is nothing to ask.
    QVERIFY(document()->save(folder->filePath("mine.vxscene")));
    QVERIFY(document()->open(folder->filePath("mine.vxscene")));
    QVERIFY(document()->save(folder->filePath("mine.vxscene")));
    QVERIFY(QFile::remove(file) && QFile::copy(folder->filePath("mine.vxscene"), file));
    QVERIFY(document()->open(file));
    change();
    changedByOthers(file);
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Save));
    QVERIFY(window()->save());
    QVERIFY(answer.met());
    QCOMPARE(stepIn(file), vxScene->getTimeStep());
    change();
    QVERIFY(window()->save()); // asked once
}

void tst_StudioBackups::aChangeIsNoticedWhenTheWindowIsUsedAgain()
{
    const QString file = saved();
    const auto activate = [this] {
        window()->showStatusMessage(QString());
        QEvent event(QEvent::WindowActivate);
        QApplication::sendEvent(window(), &event);
        return window()->statusBar()->currentMessage();
    };
    QCOMPARE(activate(), QString());
    changedByOthers(file);
    QVERIFY2(activate().contains("was changed by another program"), "no notice");
    QCOMPARE(activate(), QString()); // once
    QVERIFY(QFile::remove(file));
    QVERIFY2(activate().contains("was removed or renamed"), "no notice");
    QVERIFY(document()->save(folder->filePath("mine.vxscene")));
    QCOMPARE(activate(), QString());
}

void tst_StudioBackups::backupsOfADocument()
{
    document()->setBackups(2);
    const QString file = saved();
    QVector<QByteArray> versions{contents(file)};
    for (int i = 0; i < 3; ++i) {
        change();
        QVERIFY(window()->save());
        versions.prepend(contents(file));
    }
    QVERIFY(contents(file) == versions.at(0));
    QVERIFY(contents(folder->filePath("walk.bak1.vxscene")) == versions.at(1));
    QVERIFY(contents(folder->filePath("walk.bak2.vxscene")) == versions.at(2));
    QCOMPARE(QDir(folder->path()).entryList({"walk*"}).size(), 3);
    // They are documents like any other.
    QVERIFY(document()->open(folder->filePath("walk.bak2.vxscene")));
    QCOMPARE(vxScene->getTimeStep() + 2, stepIn(file));
}

/// The former version is in the file already: pressing Ctrl+S again and again pushes out no backup.
void tst_StudioBackups::savesWithoutChanges()
{
    document()->setBackups(2);
    const QString file = saved();
    const QByteArray first = contents(file);
    change();
    QVERIFY(window()->save());
    for (int i = 0; i < 3; ++i)
        QVERIFY(window()->save());
    QVERIFY(contents(folder->filePath("walk.bak1.vxscene")) == first);
    QVERIFY(!QFile::exists(folder->filePath("walk.bak2.vxscene")));
    // What another program wrote meanwhile is a version of its own.
    const QByteArray theirs = changedByOthers(file);
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Save));
    QVERIFY(window()->save());
    QVERIFY(answer.met());
    QVERIFY(contents(folder->filePath("walk.bak1.vxscene")) == theirs);
    QVERIFY(contents(folder->filePath("walk.bak2.vxscene")) == first);
}

/// Such as one by a script with "Undo" in it, outside of its holds.
void tst_StudioBackups::aChangeThatNoEntryHolds()
{
    const QString file = saved();
    const VxTime former = vxScene->getTimeStep();
    vxScene->setTimeStep(former + 1);
    QVERIFY(history()->isClean());
    QVERIFY(window()->save());
    QCOMPARE(stepIn(folder->filePath("walk.bak1.vxscene")), former);
    QVERIFY(window()->save());
    QVERIFY(!QFile::exists(folder->filePath("walk.bak2.vxscene")));
    QVERIFY(document()->open(file));
    QVERIFY(window()->save());
    QVERIFY(!QFile::exists(folder->filePath("walk.bak2.vxscene")));
}

void tst_StudioBackups::aSaveWithoutItsBackup()
{
    const QString file = saved();
    change();
    QVERIFY(QDir().mkpath(folder->filePath("walk.bak0.vxscene/full"))); // in the way
    for (int number = 1; number <= 3; ++number)
        QVERIFY(QDir().mkpath(folder->filePath(QString("walk.bak%1.vxscene/full").arg(number))));
    QVERIFY(window()->save());
    QCOMPARE(stepIn(file), vxScene->getTimeStep());
    QVERIFY(!window()->isWindowModified());
    const QString message = window()->statusBar()->currentMessage();
    QVERIFY2(message.contains("Saved walk.vxscene, but its backup could not be made."),
             qPrintable(message));
    QVERIFY2(message.contains("walk.bak"), qPrintable(message));
}

void tst_StudioBackups::theNumberOfBackupsIsASetting()
{
    restartShared();
    QCOMPARE(document()->backups(), VxBackups::DefaultCount);
    document()->setBackups(7);
    start();
    QCOMPARE(document()->backups(), 7);
    document()->setBackups(-1);
    QCOMPARE(document()->backups(), 0);
    document()->setBackups(1000);
    QCOMPARE(document()->backups(), VxBackups::MaxCount);
}

VX_TEST_MAIN(tst_StudioBackups)
#include "tst_studiobackups.moc"
