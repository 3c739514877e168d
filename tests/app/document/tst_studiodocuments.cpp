// Documents in the program's window: menus, dialogs, questions and dropped files.

#include "dialoganswers.h"
#include "document/documentcontroller.h"
#include "document/importdialog.h"
#include "document/recentfiles.h"
#include "document/recentfilesmenu.h"
#include "io/vxscenereader.h"
#include "shell/commandline.h"
#include "shell/studio.h"
#include "shell/studiowindow.h"
#include "smallmotion.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"
#include "testing/vxwarningguard.h"

#include <QAbstractSpinBox>
#include <QDropEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsidenavpropertylistview.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

bool acceptImport(ImportDialog *dialog)
{
    dialog->accept();
    return true;
}

} // namespace

class tst_StudioDocuments : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void recentFilesAreListedAndKept();
    void aRecentFileIsOpenedAfterAsking();
    void revertReloadsTheFile();
    void revertMayBeCancelled();
    void droppedFilesAreOpened();
    void droppedFilesAreDeferredUntilTheAnswer();
    void otherDropsAreRefused_data();
    void otherDropsAreRefused();
    void closingAsks_data();
    void closingAsks();
    void brokenAndNewerScenesKeepTheDocument_data();
    void brokenAndNewerScenesKeepTheDocument();
    void documentsAreEditedSavedAndReopened_data();
    void documentsAreEditedSavedAndReopened();

private:
    void start();
    QString write(const char *name, const QByteArray &bytes) const;
    void makeChange() const;
    QAction *fileEntry(const QString &text) const;
    bool drop(const QList<QUrl> &urls) const;
    StudioWindow *window() const { return m_studio->window(); }

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<Studio> m_studio;
};

void tst_StudioDocuments::init()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    start();
}

void tst_StudioDocuments::cleanup()
{
    m_studio.reset();
    m_dir.reset();
    m_guard.reset();
}

void tst_StudioDocuments::start()
{
    m_studio.reset();
    const CommandLine line =
        CommandLine::parse({"vxstudio", "--settings", m_dir->filePath("settings.json"),
                            "--plugin-path", VX_PLUGIN_DIR});
    QVERIFY2(line.action == CommandLine::Action::Run, qPrintable(line.errorText));
    m_studio.reset(new Studio(line));
    window()->show();
    QVERIFY(QTest::qWaitForWindowExposed(window()));
}

QString tst_StudioDocuments::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_dir->filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

void tst_StudioDocuments::makeChange() const
{
    VxUndoStackHold hold;
    vxScene->setTimeStep(vxScene->getTimeStep() + 1);
    hold.accept(QStringLiteral("Change"));
}

QAction *tst_StudioDocuments::fileEntry(const QString &text) const
{
    const QMenu *menu = window()->menuBar()->actions().constFirst()->menu();
    for (QAction *action : menu->actions()) {
        if (action->text().remove('&') == text)
            return action;
    }
    return nullptr;
}

/** What the platform does when something is dropped: true when the drop was accepted. */
bool tst_StudioDocuments::drop(const QList<QUrl> &urls) const
{
    QMimeData data;
    data.setUrls(urls);
    const QPoint place = window()->rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window(), &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window(), &event);
    return event.isAccepted();
}

void tst_StudioDocuments::recentFilesAreListedAndKept()
{
    QVERIFY(!fileEntry("Open Recent")->isEnabled());
    const QString motion = write("walk.bvh", smallMotion);
    QVERIFY(window()->document()->open(motion));
    QVERIFY(window()->document()->save(m_dir->filePath("walk.vxscene")));
    const QStringList expected = {m_dir->filePath("walk.vxscene"), motion};
    QCOMPARE(window()->recentFiles()->files(), expected);
    QVERIFY(fileEntry("Open Recent")->isEnabled());
    // Stored at once: a crash does not lose them.
    QFile settings(m_dir->filePath("settings.json"));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    QVERIFY(settings.readAll().contains("walk.vxscene"));
    start();
    QCOMPARE(window()->recentFiles()->files(), expected);
    auto *menu = qobject_cast<RecentFilesMenu *>(fileEntry("Open Recent")->menu());
    QVERIFY(menu);
    Q_EMIT menu->aboutToShow();
    menu->actions().at(1)->trigger();
    QCOMPARE(window()->document()->fileName(), motion);
    QCOMPARE(window()->recentFiles()->files().constFirst(), motion);
    window()->document()->clear();
    QCOMPARE(window()->recentFiles()->files().size(), 2);
}

void tst_StudioDocuments::aRecentFileIsOpenedAfterAsking()
{
    const QString motion = write("walk.bvh", smallMotion);
    QVERIFY(window()->document()->open(motion));
    window()->document()->clear();
    makeChange();
    auto *menu = qobject_cast<RecentFilesMenu *>(fileEntry("Open Recent")->menu());
    Q_EMIT menu->aboutToShow();
    {
        const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Cancel));
        menu->actions().at(0)->trigger();
        QVERIFY(answer.met());
    }
    QVERIFY(window()->document()->fileName().isEmpty());
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Discard));
    menu->actions().at(0)->trigger();
    QVERIFY(answer.met());
    QCOMPARE(window()->document()->fileName(), motion);
}

void tst_StudioDocuments::revertReloadsTheFile()
{
    QAction *revert = fileEntry("Revert");
    QVERIFY(revert && !revert->isEnabled());
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    QVERIFY(!revert->isEnabled());
    const VxTime step = vxScene->getTimeStep();
    makeChange();
    QVERIFY(revert->isEnabled());
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Discard));
    revert->trigger();
    QVERIFY(answer.met());
    QCOMPARE(vxScene->getTimeStep(), step);
    QVERIFY(!window()->isWindowModified());
    QVERIFY(!revert->isEnabled());
}

void tst_StudioDocuments::revertMayBeCancelled()
{
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    makeChange();
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Cancel));
    fileEntry("Revert")->trigger();
    QVERIFY(answer.met());
    QVERIFY(window()->isWindowModified());
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    vxApp->getUndoStack()->setClean();
}

void tst_StudioDocuments::droppedFilesAreOpened()
{
    const QString motion = write("walk.BVH", smallMotion);
    const DialogAnswer<ImportDialog> how(acceptImport);
    QVERIFY(drop({QUrl::fromLocalFile(motion)}));
    QTRY_COMPARE(window()->document()->fileName(), motion);
    QVERIFY(how.met());
    QVERIFY(window()->document()->save(m_dir->filePath("walk.vxscene")));
    window()->document()->clear();
    QVERIFY(drop({QUrl::fromLocalFile(m_dir->filePath("walk.vxscene"))}));
    QTRY_COMPARE(vxScene->getNumNodes(), 2);
}

void tst_StudioDocuments::droppedFilesAreDeferredUntilTheAnswer()
{
    const QString motion = write("walk.bvh", smallMotion);
    makeChange();
    const DialogAnswer<QMessageBox> answer(pressButton(QMessageBox::Cancel));
    QVERIFY(drop({QUrl::fromLocalFile(motion)})); // returns before the question is asked
    QVERIFY(!answer.met());
    QTRY_VERIFY(answer.met());
    QVERIFY(window()->document()->fileName().isEmpty());
    vxApp->getUndoStack()->setClean();
}

void tst_StudioDocuments::otherDropsAreRefused_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::newRow("nothing") << QList<QUrl>();
    QTest::newRow("another kind") << QList<QUrl>{QUrl::fromLocalFile("/tmp/picture.png")};
    QTest::newRow("two files") << QList<QUrl>{QUrl::fromLocalFile("/tmp/a.bvh"),
                                              QUrl::fromLocalFile("/tmp/b.bvh")};
    QTest::newRow("a page") << QList<QUrl>{QUrl("http://localhost/walk.bvh")};
    QTest::newRow("a folder") << QList<QUrl>{QUrl::fromLocalFile("/tmp")};
}

void tst_StudioDocuments::otherDropsAreRefused()
{
    QFETCH(QList<QUrl>, urls);
    QVERIFY(!drop(urls));
}

void tst_StudioDocuments::closingAsks_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("closes");
    QTest::newRow("discard") << int(QMessageBox::Discard) << true;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false;
    QTest::newRow("save") << int(QMessageBox::Save) << true;
}

void tst_StudioDocuments::closingAsks()
{
    QFETCH(int, button);
    QFETCH(bool, closes);
    const QString scene = m_dir->filePath("walk.vxscene");
    QVERIFY(window()->document()->save(scene));
    makeChange();
    const VxTime step = vxScene->getTimeStep();
    const auto answerWith = pressButton(static_cast<QMessageBox::StandardButton>(button));
    const DialogAnswer<QMessageBox> answer(answerWith);
    QCOMPARE(window()->close(), closes);
    QVERIFY(answer.met());
    VxSceneContents contents;
    VxFileError error;
    QVERIFY(VxSceneReader().readFile(scene, &contents, &error));
    QCOMPARE(contents.timeStep == step, button == QMessageBox::Save);
    vxApp->getUndoStack()->setClean();
}

void tst_StudioDocuments::brokenAndNewerScenesKeepTheDocument_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("message");
    QTest::newRow("newer") << QByteArray("gversion\x01") << QByteArray("gversion\x09")
                           << "version 9 of the scene format";
    QTest::newRow("another format")
        << QByteArray("vxscene") << QByteArray("vxother") << "not a scene file";
}

void tst_StudioDocuments::brokenAndNewerScenesKeepTheDocument()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QString, message);
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    const QString good = m_dir->filePath("good.vxscene");
    QVERIFY(window()->document()->save(good));
    makeChange();
    QFile file(good);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    QVERIFY(bytes.contains(from));
    const QString bad = write("bad.vxscene", bytes.replace(bytes.indexOf(from), from.size(), to));
    QString text;
    const auto read = [&text](QMessageBox *box) {
        text = box->text();
        box->button(QMessageBox::Ok)->click();
        return true;
    };
    const DialogAnswer<QMessageBox> answer(read);
    QVERIFY(!window()->document()->open(bad));
    QVERIFY2(text.contains("bad.vxscene, byte "), qPrintable(text));
    QVERIFY2(text.contains(message), qPrintable(text));
    QCOMPARE(window()->document()->fileName(), good);
    QCOMPARE(vxScene->getNumNodes(), 2);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QVERIFY(window()->isWindowModified());
    QVERIFY(!window()->recentFiles()->files().contains(bad));
    vxApp->getUndoStack()->setClean();
}

void tst_StudioDocuments::documentsAreEditedSavedAndReopened_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("the sample scene") << VX_SOURCE_DIR "/samples/walk.vxscene";
    QTest::newRow("the sample motion") << VX_SOURCE_DIR "/samples/walk.bvh";
    for (const char *name : {"01_01.bvh", "01_03.bvh", "Boxing_Toes.bvh"})
        QTest::newRow(name) << vxTestModels(QLatin1String("BVH/") + QLatin1String(name));
}

/// Open a file, change a value at a later frame, save under a new name, open again, compare.
void tst_StudioDocuments::documentsAreEditedSavedAndReopened()
{
    QFETCH(QString, file);
    QVERIFY2(QFile::exists(file), "the package assimp-testmodels is missing");
    {
        const DialogAnswer<ImportDialog> how(acceptImport);
        const DialogAnswer<QFileDialog> answer(typeName(file));
        fileEntry("Open...")->trigger();
        QVERIFY(answer.met());
        QCOMPARE(how.met(), file.endsWith(".bvh"));
    }
    QCOMPARE(window()->document()->fileName(), file);
    QVERIFY(vxScene->getNumNodes() > 10);

    VxNode *node = vxScene->getNodes().at(2);
    node->select();
    const VxTime time = 10 * vxScene->getTimeStep();
    vxScene->setTime(time);
    auto *pane =
        qobject_cast<VxParametersPane *>(window()->getPaneMgr()->findPane("VxParametersPane"));
    VxSideNavPropertyListView *list = pane->getPropertyListView();
    const QModelIndex row = list->getPropertyListModel()->findProperty(node->getYRotControl());
    QVERIFY(row.isValid());
    const QModelIndex value = row.sibling(row.row(), VxPropertyListItemModel::ValueColumn);
    list->scrollTo(value);
    VxMouseDriver(list->viewport()).click(list->visualRect(value).center());
    QTRY_VERIFY(list->findChild<QAbstractSpinBox *>());
    auto *field = list->findChild<QAbstractSpinBox *>();
    QTest::keyClicks(field, "33.25");
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(node->getYRotControl()->getValue(time), 33.25f);
    QVERIFY(node->getYRotControl()->hasKey(time));
    QVERIFY(window()->isWindowModified());
    QCOMPARE(vxApp->getUndoStack()->count(), 1);

    const QString saved = m_dir->filePath("mine.vxscene");
    {
        const DialogAnswer<QFileDialog> answer(typeName(saved));
        fileEntry("Save As...")->trigger();
        QVERIFY(answer.met());
    }
    QVERIFY(!window()->isWindowModified());
    QCOMPARE(window()->document()->fileName(), saved);
    const int nodes = vxScene->getNumNodes();
    const QString again = m_dir->filePath("again.vxscene");

    fileEntry("New")->trigger();
    QCOMPARE(vxScene->getNumNodes(), 0);
    {
        const DialogAnswer<QFileDialog> answer(typeName(saved));
        fileEntry("Open...")->trigger();
        QVERIFY(answer.met());
    }
    QCOMPARE(vxScene->getNumNodes(), nodes);
    QCOMPARE(vxScene->getTime(), time);
    QCOMPARE(vxScene->getNodes().at(2)->getYRotControl()->getValue(time), 33.25f);
    QVERIFY(window()->document()->save(again));
    QFile first(saved), second(again);
    QVERIFY(first.open(QIODevice::ReadOnly) && second.open(QIODevice::ReadOnly));
    QVERIFY(first.readAll() == second.readAll());
    QCOMPARE(window()->recentFiles()->files(), QStringList({again, saved, file}));
}

VX_TEST_MAIN(tst_StudioDocuments)
#include "tst_studiodocuments.moc"
