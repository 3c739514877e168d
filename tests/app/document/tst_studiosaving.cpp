// No failure to write a file loses work: an unsaved document stays open and stays marked.

#include "document/recentfiles.h"
#include "document/recentfilesmenu.h"
#include "savingtestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QMimeData>
#include <QStatusBar>
#include <csignal>
#include <sys/resource.h>
#include <vxcore/vxfloatproperty.h>

class tst_StudioSaving : public QObject, public SavingTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUpSaving(); }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void theMarkFollowsTheHistory();
    void aSavePointThatWasDropped();
    void savingInAGesture_data();
    void savingInAGesture();
    void savingWhileSomethingIsDragged();
    void saveAsIntoTheOpenFile();
    void aMissingFolder();
    void aFullDisk();
    void openingTheOpenFile_data();
    void openingTheOpenFile();
    void failedSavesStopEverything_data();
    void failedSavesStopEverything();
    void failedRevertKeepsTheChanges();
    void aRecentFileDeletedWhileTheMenuIsOpen();
    void pathsThatAreNoFiles_data();
    void pathsThatAreNoFiles();
    void namesInTheTitle_data();
    void namesInTheTitle();
    void namesAreNoMarkup();
    void suffixes_data();
    void suffixes();
};

void tst_StudioSaving::theMarkFollowsTheHistory()
{
    const QString file = saved();
    QAction *revert = entry("File", "Revert");
    const auto check = [&](bool modified) {
        QCOMPARE(window()->isWindowModified(), modified);
        QCOMPARE(revert->isEnabled(), modified);
    };
    check(false);
    change();
    check(true);
    history()->undo();
    check(false);
    history()->redo();
    change();
    change();
    check(true);
    history()->undo(); // two of three are done
    QVERIFY(document()->save(file));
    check(false);
    QCOMPARE(history()->count(), 3);
    history()->redo();
    check(true);
    history()->setIndex(0);
    check(true);
    history()->setIndex(2);
    check(false);
    QCOMPARE(vxScene->getTimeStep(), stepIn(file));
}

void tst_StudioSaving::aSavePointThatWasDropped()
{
    const QString file = saved();
    change();
    QVERIFY(document()->save(file));
    history()->undo();
    change(); // in the place of what is in the file
    QCOMPARE(history()->count(), 1);
    for (const int index : {1, 0, 1}) {
        history()->setIndex(index);
        QVERIFY(window()->isWindowModified());
    }
}

void tst_StudioSaving::savingInAGesture_data()
{
    QTest::addColumn<bool>("accepts");
    QTest::newRow("that is ended") << true;
    QTest::newRow("that is taken back") << false;
}

/// What the file holds is neither the state before the gesture nor, perhaps, the one after it.
void tst_StudioSaving::savingInAGesture()
{
    QFETCH(bool, accepts);
    const QString file = saved();
    const VxTime before = vxScene->getTimeStep();
    {
        VxUndoStackHold hold;
        vxScene->setTimeStep(before + 40);
        QVERIFY(document()->save(file));
        QCOMPARE(stepIn(file), before + 40);
        QVERIFY(window()->isWindowModified());
        if (accepts) {
            vxScene->setTimeStep(before + 50);
            hold.accept("Change");
        } else {
            vxScene->setTimeStep(before);
            hold.cancel();
        }
    }
    QVERIFY(window()->isWindowModified());
    if (accepts) {
        history()->undo();
        QVERIFY(window()->isWindowModified());
    }
    QVERIFY(document()->save(file));
    QVERIFY(!window()->isWindowModified());
    QCOMPARE(stepIn(file), before);
}

/// The same with the mouse: Ctrl+S while a value is dragged.
void tst_StudioSaving::savingWhileSomethingIsDragged()
{
    const QString file = saved();
    VxUndoStackHold hold; // as a drag of any kind holds it
    VxMouseDriver mouse(window());
    mouse.press({5, 5});
    vxScene->setTimeStep(200);
    type(Qt::Key_S, Qt::ControlModifier);
    mouse.release({5, 5});
    hold.accept("Drag");
    QCOMPARE(stepIn(file), VxTime(200));
    QVERIFY(window()->isWindowModified());
    history()->undo();
    QVERIFY(window()->isWindowModified());
}

void tst_StudioSaving::saveAsIntoTheOpenFile()
{
    const QString file = saved();
    change();
    // The toolkit's own question whether to replace it.
    const DialogAnswer<QMessageBox> question(pressButton(QMessageBox::Yes));
    const DialogAnswer<QFileDialog> answer(typeName(file));
    entry("File", "Save As...")->trigger();
    QVERIFY(answer.met());
    QVERIFY(question.met());
    QVERIFY(!window()->isWindowModified());
    QCOMPARE(document()->fileName(), file);
    QCOMPARE(stepIn(file), vxScene->getTimeStep());
    QCOMPARE(window()->recentFiles()->files().constFirst(), file);
}

void tst_StudioSaving::aMissingFolder()
{
    const QString file = changedInLostFolder();
    QString text;
    {
        const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
        QVERIFY(!window()->save());
        QVERIFY(answer.met());
    }
    QVERIFY2(text.startsWith(file), qPrintable(text));
    QVERIFY2(text.contains("No such file or directory"), qPrintable(text));
    QVERIFY(window()->isWindowModified());
    QCOMPARE(document()->fileName(), file);
    // Elsewhere it can be saved.
    const QString other = folder->filePath("rescued.vxscene");
    const DialogAnswer<QFileDialog> answer(typeName(other));
    QVERIFY(window()->saveWithDialog());
    QCOMPARE(stepIn(other), vxScene->getTimeStep());
    QVERIFY(!window()->isWindowModified());
}

void tst_StudioSaving::aFullDisk()
{
    const QString file = saved();
    const QByteArray former = contents(file);
    change();
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{rlim_t(former.size()) / 2, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    QString text;
    {
        const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
        const bool done = window()->save();
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QVERIFY(!done);
        QVERIFY(answer.met());
    }
    QVERIFY2(text.startsWith(file) && text.contains("too large"), qPrintable(text));
    QVERIFY(contents(file) == former);
    QVERIFY(window()->isWindowModified());
    QVERIFY(window()->save());
    QCOMPARE(stepIn(file), vxScene->getTimeStep());
}

void tst_StudioSaving::openingTheOpenFile_data()
{
    QTest::addColumn<bool>("changed");
    QTest::newRow("as it is in the file") << false;
    QTest::newRow("with changes") << true;
}

void tst_StudioSaving::openingTheOpenFile()
{
    QFETCH(bool, changed);
    const QString file = saved();
    const VxTime step = vxScene->getTimeStep();
    if (changed)
        change();
    {
        const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Cancel));
        window()->openAfterAsking(file);
        QCOMPARE(answer.met(), changed);
        QCOMPARE(vxScene->getTimeStep(), changed ? step + 1 : step);
    }
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Discard));
    window()->openAfterAsking(file);
    QCOMPARE(answer.met(), changed);
    QCOMPARE(vxScene->getTimeStep(), step);
    QVERIFY(!window()->isWindowModified());
    QCOMPARE(window()->recentFiles()->files().count(file), 1);
}

void tst_StudioSaving::failedSavesStopEverything_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"new", "open", "recent", "drop", "quit"})
        QTest::newRow(what) << QString(QLatin1String(what));
}

/// A command that saves first is not carried out when saving fails.
void tst_StudioSaving::failedSavesStopEverything()
{
    QFETCH(QString, what);
    const QString other = saved("other.vxscene");
    const QString file = changedInLostFolder();
    const VxTime step = vxScene->getTimeStep();
    QString error;
    bool failed = false;
    QTimer second; // the error is shown from within the first box's answer
    connect(&second, &QTimer::timeout, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->button(QMessageBox::Ok))
            return;
        second.stop();
        failed = true;
        error = box->text();
        box->button(QMessageBox::Ok)->click();
    });
    second.start(5);
    const DialogAnswer<QMessageBox> first([](QMessageBox *box) {
        if (!box->button(QMessageBox::Save))
            return false;
        box->button(QMessageBox::Save)->click();
        return true;
    });
    if (what == "new") {
        entry("File", "New")->trigger();
    } else if (what == "open") {
        const DialogAnswer<QFileDialog> never(escape<QFileDialog>());
        entry("File", "Open...")->trigger();
        QVERIFY(!never.met());
    } else if (what == "recent") {
        auto *menu = qobject_cast<RecentFilesMenu *>(entry("File", "Open Recent")->menu());
        Q_EMIT menu->aboutToShow();
        for (QAction *action : menu->actions()) {
            if (action->text().contains("other.vxscene")) {
                action->trigger();
                break;
            }
        }
    } else if (what == "drop") {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(other)});
        const QPoint place = window()->rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window(), &enter);
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window(), &event);
    } else {
        QVERIFY(!window()->close());
    }
    QTRY_VERIFY(failed);
    QVERIFY(first.met());
    QVERIFY2(error.startsWith(file), qPrintable(error));
    QCOMPARE(document()->fileName(), file);
    QCOMPARE(vxScene->getTimeStep(), step);
    QVERIFY(window()->isWindowModified());
    QVERIFY(window()->isVisible());
    QCOMPARE(history()->count(), 1);
}

void tst_StudioSaving::failedRevertKeepsTheChanges()
{
    const QString file = changedInLostFolder();
    const VxTime step = vxScene->getTimeStep();
    QString error;
    QTimer second;
    connect(&second, &QTimer::timeout, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box && box->button(QMessageBox::Ok)) {
            second.stop();
            error = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    second.start(5);
    const DialogAnswer<QMessageBox> answer([](QMessageBox *box) {
        if (!box->button(QMessageBox::Discard))
            return false;
        box->button(QMessageBox::Discard)->click();
        return true;
    });
    entry("File", "Revert")->trigger();
    QVERIFY2(error.startsWith(file), qPrintable(error));
    QCOMPARE(vxScene->getTimeStep(), step);
    QVERIFY(window()->isWindowModified());
    QCOMPARE(history()->count(), 1);
}

void tst_StudioSaving::aRecentFileDeletedWhileTheMenuIsOpen()
{
    const QString gone = saved("gone.vxscene");
    const QString file = saved();
    auto *menu = qobject_cast<RecentFilesMenu *>(entry("File", "Open Recent")->menu());
    Q_EMIT menu->aboutToShow();
    QVERIFY(QFile::remove(gone)); // while the menu is open
    QString text;
    const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
    for (QAction *action : menu->actions()) {
        if (action->text().contains("gone.vxscene")) {
            action->trigger();
            break;
        }
    }
    QVERIFY(answer.met());
    QVERIFY2(text.startsWith(gone) && text.contains("No such file"), qPrintable(text));
    QCOMPARE(document()->fileName(), file);
    Q_EMIT menu->aboutToShow();
    bool grey = false;
    for (const QAction *action : menu->actions())
        grey |= action->text().contains("gone.vxscene") && !action->isEnabled();
    QVERIFY(grey);
}

void tst_StudioSaving::pathsThatAreNoFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder") << "folder.vxscene";
    QTest::newRow("a folder of a motion's name") << "folder.bvh";
    QTest::newRow("a pipe") << "pipe.vxscene";
    QTest::newRow("a pipe of a motion's name") << "pipe.bvh";
    QTest::newRow("a link to nowhere") << "link.vxscene";
}

/// A clear message, and at once: reading a pipe would block for ever.
void tst_StudioSaving::pathsThatAreNoFiles()
{
    QFETCH(QString, name);
    const QString file = saved();
    const QString path = folder->filePath(name);
    if (name.startsWith("folder"))
        QVERIFY(QDir().mkdir(path));
    else if (name.startsWith("pipe"))
        QVERIFY(mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
    else
        QVERIFY(QFile::link(folder->filePath("nowhere.vxscene"), path));
    QString text;
    const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
    QVERIFY(!document()->open(path));
    QVERIFY(answer.met());
    QVERIFY2(text.startsWith(path), qPrintable(text));
    QCOMPARE(document()->fileName(), file);
}

void tst_StudioSaving::namesInTheTitle_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "walk.vxscene";
    QTest::newRow("blanks") << "my  walk .vxscene";
    QTest::newRow("the mark's placeholder") << "walk[*].vxscene";
    QTest::newRow("percent signs") << "100%1 %2.vxscene";
    QTest::newRow("other scripts") << QString::fromUtf8("gång 歩く \U0001F6B6.vxscene");
    QTest::newRow("very long") << QString(230, 'n') + ".vxscene";
}

void tst_StudioSaving::namesInTheTitle()
{
    QFETCH(QString, name);
    const QString file = saved(name);
    QCOMPARE(window()->document()->displayName(), name);
    // What the platform's window shows: the placeholder replaced or removed.
    QCOMPARE(window()->windowHandle()->title(), name + " - VxStudio");
    change();
    QCOMPARE(window()->windowHandle()->title(), name + "* - VxStudio");
    window()->document()->clear();
    QVERIFY(document()->open(file));
    QCOMPARE(window()->recentFiles()->files().constFirst(), file);
}

void tst_StudioSaving::namesAreNoMarkup()
{
    saved("<b>bold<br>.vxscene");
    change();
    QString text;
    Qt::TextFormat format = Qt::AutoText;
    const DialogAnswer<QMessageBox> answer([&](QMessageBox *box) {
        text = box->text();
        format = box->textFormat();
        box->button(QMessageBox::Cancel)->click();
        return true;
    });
    QVERIFY(!window()->close());
    QVERIFY2(text.contains("<b>bold<br>"), qPrintable(text));
    QCOMPARE(format, Qt::PlainText);
}

void tst_StudioSaving::suffixes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << "walk"
                          << "walk.vxscene";
    QTest::newRow("its own") << "walk.vxscene"
                             << "walk.vxscene";
    QTest::newRow("its own in capitals") << "walk.VXSCENE"
                                         << "walk.VXSCENE";
    QTest::newRow("a number after a dot is no suffix") << "take 1.5"
                                                       << "take 1.5.vxscene";
    QTest::newRow("that of a motion") << "walk.bvh"
                                      << "walk.bvh.vxscene";
}

void tst_StudioSaving::suffixes()
{
    QFETCH(QString, typed);
    QFETCH(QString, name);
    openSample();
    const DialogAnswer<QFileDialog> answer(typeName(folder->filePath(typed)));
    QVERIFY(window()->saveWithDialog());
    QCOMPARE(document()->fileName(), folder->filePath(name));
    QVERIFY(stepIn(folder->filePath(name)) > 0);
}

VX_TEST_MAIN(tst_StudioSaving)
#include "tst_studiosaving.moc"
