// Motion in and out of a scene, by menu, dialog and drop.

#include "bvhimport.h"
#include "dialoganswers.h"
#include "document/exportdialog.h"
#include "document/figurechoice.h"
#include "document/importdialog.h"
#include "io/formats/vxmotionimport.h"
#include "smallmotion.h"
#include "studiotestbase.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QStatusBar>
#include <sys/stat.h>
#include <utility>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxskeleton.h>

class tst_MotionCommands : public QObject, public StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        setUpShared();
    }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void targetFigure();
    void exportedMotionRoundTrips();
    void exportBySuffix();
    void exportOfASelectedFigure();
    void exportAsksWhichFigure_data();
    void exportAsksWhichFigure();
    void theFigureIsRemovedDuringAnExport_data();
    void theFigureIsRemovedDuringAnExport();
    void exportOfAnEmptyScene();
    void exportOfPartsByTheWindow_data();
    void exportOfPartsByTheWindow();
    void exportFailuresAreReported_data();
    void exportFailuresAreReported();
    void exportCanBeCancelled();
    void namesWithDotsGetTheSuffix();
    void importIsOneEntry();
    void importCanBeUndoneWholly();
    void importOfABrokenFile();
    void importIntoAnEmptyScene();
    void choicesAreAskedFor_data();
    void choicesAreAskedFor();
    void droppedMotion_data();
    void droppedMotion();

private:
    QString write(const char *name, const QByteArray &bytes) const
    {
        QFile file(folder->filePath(QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", name);
        return file.fileName();
    }
    /// With its dialog, unless the file is broken.
    void importByMenu(
        const QString &file, bool isGood = true,
        const std::function<void(ImportDialog *)> &choose = [](ImportDialog *) {},
        const char *command = "Import Motion...") const
    {
        const DialogAnswer<ImportDialog> how([&](ImportDialog *dialog) {
            choose(dialog);
            dialog->accept();
            return true;
        });
        const DialogAnswer<QFileDialog> answer(typeName(file));
        entry("File", command)->trigger();
        QVERIFY(answer.met());
        QCOMPARE(how.met(), isGood);
    }
    void exportByMenu(
        const std::function<bool(QFileDialog *)> &where,
        const std::function<void(ExportDialog *)> &choose = [](ExportDialog *) {}) const
    {
        const DialogAnswer<ExportDialog> what([&](ExportDialog *dialog) {
            choose(dialog);
            dialog->accept();
            return true;
        });
        const DialogAnswer<QFileDialog> answer(where);
        entry("File", "Export Motion...")->trigger();
        QVERIFY(what.met());
        QVERIFY(answer.met());
    }
    bool drop(const QString &file) const;
    int dopeSheetRows() const
    {
        return inTimePane<QAbstractItemView>("TimelineDopeSheetTView")->model()->rowCount();
    }
    static VxUndoStack *history() { return vxApp->getUndoStack(); }
};

bool tst_MotionCommands::drop(const QString &file) const
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    const QPoint place = window()->rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window(), &enter);
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window(), &event);
    return event.isAccepted();
}

void tst_MotionCommands::targetFigure()
{
    QVERIFY(!FigureChoice::targetFigure(*vxScene));
    VxSceneBuilder builder(vxScene);
    VxSkeleton *one = builder.addSkeleton("figure", 3);
    QCOMPARE(FigureChoice::targetFigure(*vxScene), one);
    VxSkeleton *two = builder.addSkeleton("figure", 3);
    two->setLabel("figure");
    VxNode *prop = builder.addNode("prop", two->getAllBones().at(2));
    VxNode *light = builder.addNode("light");
    QVERIFY(!FigureChoice::targetFigure(*vxScene));
    one->getAllBones().at(1)->select();
    QCOMPARE(FigureChoice::targetFigure(*vxScene), one);
    prop->select();
    QCOMPARE(FigureChoice::targetFigure(*vxScene), two);
    light->select();
    QVERIFY(!FigureChoice::targetFigure(*vxScene));
    QCOMPARE(FigureChoice::names(FigureChoice::figures(*vxScene)),
             QStringList({"figure", "figure (2)"}));
}

void tst_MotionCommands::exportedMotionRoundTrips()
{
    openSample();
    const QString file = folder->filePath("out.bvh");
    {
        exportByMenu(typeName(file));
    }
    QVERIFY(QFile::exists(file));
    QVERIFY2(window()->statusBar()->currentMessage().contains("Exported out.bvh."),
             qPrintable(window()->statusBar()->currentMessage()));
    QVERIFY(!window()->isWindowModified());
    const VxSkeleton *figure = FigureChoice::targetFigure(*vxScene);
    VxScene other;
    BvhImport import(&other);
    VxFileError error;
    QVERIFY2(import.importFile(file, &error), qPrintable(error.text()));
    const auto before = figure->getAllBones();
    const auto after = import.getSkeleton()->getAllBones();
    QCOMPARE(after.size(), before.size());
    for (int i = 0; i < before.size(); ++i) {
        for (VxTime time = 0; time <= vxScene->getAnimRange().getEnd();
             time += vxScene->getTimeStep()) {
            const QMatrix4x4 a = before.at(i)->getWorldTransform(time);
            const QMatrix4x4 b = after.at(i)->getWorldTransform(time);
            for (int part = 0; part < 16; ++part)
                QVERIFY(std::abs(a.constData()[part] - b.constData()[part]) < 1e-4f);
        }
    }
}

void tst_MotionCommands::exportBySuffix()
{
    openSample();
    const QString file = folder->filePath("out.glb");
    {
        exportByMenu(typeName(file));
    }
    const VxSkeleton *figure = FigureChoice::targetFigure(*vxScene);
    VxScene other;
    VxMotionImport import(&other);
    VxFileError error;
    QVERIFY2(import.load(file, &error) && import.enter({}, &error), qPrintable(error.text()));
    QCOMPARE(import.report().bones, figure->getAllBones().size());
    for (const VxBone *bone : figure->getAllBones()) {
        const VxNode *again = other.findNode(bone->getLabel());
        QVERIFY(again);
        for (VxTime time = 0; time <= vxScene->getAnimRange().getEnd();
             time += vxScene->getTimeStep()) {
            const QMatrix4x4 a = bone->getWorldTransform(time);
            const QMatrix4x4 b = again->getWorldTransform(time);
            for (int i = 0; i < 16; ++i)
                QVERIFY(qAbs(a.constData()[i] - b.constData()[i]) < 0.02f);
        }
    }
}

void tst_MotionCommands::exportOfASelectedFigure()
{
    VxSceneBuilder builder(vxScene);
    builder.addSkeleton("one", 2);
    builder.addSkeleton("two", 5)->getAllBones().at(3)->select();
    const QString file = folder->filePath("two.bvh");
    exportByMenu([&](QFileDialog *dialog) {
        // The figure's name is what is offered.
        const QString offered = dialog->findChild<QLineEdit *>("fileNameEdit")->text();
        return offered == "two.bvh" && typeName(file)(dialog);
    });
    VxScene other;
    BvhImport import(&other);
    VxFileError error;
    QVERIFY(import.importFile(file, &error));
    QCOMPARE(import.getSkeleton()->getAllBones().size(), 5);
}

void tst_MotionCommands::exportAsksWhichFigure_data()
{
    QTest::addColumn<bool>("answers");
    QTest::newRow("the second") << true;
    QTest::newRow("none") << false;
}

void tst_MotionCommands::exportAsksWhichFigure()
{
    QFETCH(bool, answers);
    VxSceneBuilder builder(vxScene);
    builder.addSkeleton("walk", 2);
    builder.addSkeleton("walk", 4);
    const QString file = folder->filePath("second.bvh");
    const DialogAnswer<ExportDialog> which([answers](ExportDialog *dialog) {
        auto *box = dialog->findChild<QComboBox *>("exportWhat");
        if (box->count() != 3 || box->currentIndex() != 0 || !answers) {
            dialog->reject();
            return true;
        }
        box->setCurrentIndex(2);
        dialog->accept();
        return true;
    });
    const DialogAnswer<QFileDialog> where(typeName(file));
    entry("File", "Export Motion...")->trigger();
    QVERIFY(which.met());
    QCOMPARE(where.met(), answers);
    QCOMPARE(QFile::exists(file), answers);
    if (!answers)
        return;
    VxScene other;
    BvhImport import(&other);
    VxFileError error;
    QVERIFY(import.importFile(file, &error));
    QCOMPARE(import.getSkeleton()->getAllBones().size(), 4);
}

void tst_MotionCommands::theFigureIsRemovedDuringAnExport_data()
{
    QTest::addColumn<bool>("early");
    QTest::newRow("while the options are chosen") << true;
    QTest::newRow("while the file is chosen") << false;
}

void tst_MotionCommands::theFigureIsRemovedDuringAnExport()
{
    QFETCH(bool, early);
    VxSceneBuilder builder(vxScene);
    builder.addNode("light");
    VxSkeleton *figure = builder.addSkeleton("walk", 2);
    const QString file = folder->filePath("gone.bvh");
    QString text;
    const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
    const auto where = typeName(file);
    exportByMenu(
        [&](QFileDialog *dialog) {
            if (!early && figure)
                vxScene->removeNode(std::exchange(figure, nullptr));
            return where(dialog);
        },
        [&](ExportDialog *dialog) {
            dialog->findChild<QComboBox *>("exportWhat")->setCurrentIndex(1);
            if (early)
                vxScene->removeNode(figure);
        });
    QVERIFY(answer.met());
    QVERIFY2(text.contains("the figure was removed"), qPrintable(text));
    QVERIFY(!QFile::exists(file));
}

void tst_MotionCommands::exportOfAnEmptyScene()
{
    QString text;
    const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
    entry("File", "Export Motion...")->trigger();
    QVERIFY(answer.met());
    QVERIFY2(text.contains("the scene is empty"), qPrintable(text));
}

void tst_MotionCommands::exportOfPartsByTheWindow_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<int>("range");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("nodes");
    QTest::addColumn<int>("frames");
    QTest::newRow("the whole scene, the animation range") << 0 << 0 << 1 << 4 << 31;
    QTest::newRow("a figure, the play range") << 1 << 1 << 1 << 3 << 11;
    QTest::newRow("a figure, one row a key") << 1 << 0 << 0 << 3 << 2;
}

void tst_MotionCommands::exportOfPartsByTheWindow()
{
    QFETCH(int, what);
    QFETCH(int, range);
    QFETCH(int, rows);
    QFETCH(int, nodes);
    QFETCH(int, frames);
    VxSceneBuilder builder(vxScene);
    VxFloatProperty *turn = builder.addSkeleton("walk", 2)->getAllBones().at(1)->getXRotControl();
    turn->setKey(0, 0, VxKeyInterp::Linear);
    turn->setKey(4800, 90, VxKeyInterp::Linear);
    builder.addNode("light")->getXPosControl()->setStoredValue(1);
    vxScene->setAnimRange({0, 4800});
    vxScene->setPlayRange({1600, 3200});
    const QString file = folder->filePath("part.csv");
    exportByMenu(typeName(file), [=](ExportDialog *dialog) {
        dialog->findChild<QComboBox *>("exportWhat")->setCurrentIndex(what);
        dialog->findChild<QComboBox *>("exportRange")->setCurrentIndex(range);
        dialog->findChild<QComboBox *>("exportRows")->setCurrentIndex(rows);
    });
    QVERIFY(window()->document()->open(file));
    QCOMPARE(vxScene->getNumNodes(), nodes);
    const VxNode *turned = nullptr;
    for (const VxNode *node : vxScene->getNodes())
        turned = node->getXRotControl()->getNumKeys() > 0 ? node : turned;
    QVERIFY(turned);
    QCOMPARE(turned->getXRotControl()->getNumKeys(), frames);
    QCOMPARE(turned->getXRotControl()->getValue(1600), 30.0f);
    QCOMPARE(vxScene->getAnimRange().getEnd(), range == 1 ? 3200 : 4800);
}

void tst_MotionCommands::exportFailuresAreReported_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("bones");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a folder that cannot be written") << "/proc/out.bvh" << 2 << "cannot be written";
    QTest::newRow("a figure without bones") << "out.bvh" << 0 << "no bones";
    QTest::newRow("an unknown suffix") << "out.xyz" << 2 << "Supported: *.bvh, *.glb";
}

void tst_MotionCommands::exportFailuresAreReported()
{
    QFETCH(QString, file);
    QFETCH(int, bones);
    QFETCH(QString, reason);
    if (bones > 0)
        VxSceneBuilder(vxScene).addSkeleton("figure", bones);
    else
        vxScene->addNode(new VxSkeleton("figure"));
    const QString name = QDir(folder->path()).absoluteFilePath(file);
    QString text;
    const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
    QVERIFY(!window()->document()->exportMotion({FigureChoice::targetFigure(*vxScene)}, name));
    QVERIFY(answer.met());
    QVERIFY2(text.startsWith(name) && text.contains(reason), qPrintable(text));
}

void tst_MotionCommands::exportCanBeCancelled()
{
    VxSceneBuilder builder(vxScene);
    VxSkeleton *figure = builder.addSkeleton("figure", 170);
    figure->getScaleControl()->setStoredValue(2.0f); // so that it takes a while
    vxScene->setAnimRange({0, 160 * 40000});
    const QString name = write("out.bvh", "former");
    const DialogAnswer<QProgressDialog> answer([](QProgressDialog *dialog) {
        if (dialog->value() < 5)
            return false;
        dialog->findChild<QPushButton *>()->click();
        return true;
    });
    QVERIFY(!window()->document()->exportMotion({figure}, name));
    QVERIFY(answer.met());
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("former"));
    QCOMPARE(window()->statusBar()->currentMessage(), QString("The export was cancelled."));
}

void tst_MotionCommands::namesWithDotsGetTheSuffix()
{
    openSample();
    const QString typed = folder->filePath("take 1.5");
    for (const bool replace : {false, true}) {
        if (!replace) {
            exportByMenu(typeName(typed));
            QVERIFY(QFile::exists(typed + ".bvh"));
            QVERIFY(!QFile::exists(typed));
        } else {
            // Now there is such a file: the question is asked though the suffix was not typed.
            write("take 1.5.bvh", "former");
            QString text;
            const DialogAnswer<QMessageBox> question(readAndPress(&text, QMessageBox::Yes));
            exportByMenu(typeName(typed));
            QVERIFY2(text.contains("take 1.5.bvh already exists"), qPrintable(text));
            QVERIFY(QFileInfo(typed + ".bvh").size() > 1000);
        }
    }
}

void tst_MotionCommands::importIsOneEntry()
{
    openSample();
    const int nodes = vxScene->getNumNodes();
    const VxTimeRange range = vxScene->getAnimRange();
    importByMenu(write("walk.bvh", smallMotion));
    QCOMPARE(vxScene->getNumNodes(), nodes + 2);
    QCOMPARE(history()->count(), 1);
    QCOMPARE(history()->undoText(), QString("Import walk"));
    QVERIFY(window()->isWindowModified());
    QCOMPARE(window()->document()->displayName(), QString("walk.vxscene"));
    QCOMPARE(vxScene->getAnimRange(), range);
    QCOMPARE(vxScene->getTimeStep(), VxTime(160));
    const VxNode *figure = vxScene->getPrimarySelection();
    QVERIFY(figure && figure->getName() == "walk");
    QCOMPARE(vxScene->getNumSelectedNodes(), 1);
    // Once more: another name.
    importByMenu(folder->filePath("walk.bvh"));
    QCOMPARE(vxScene->getPrimarySelection()->getName(), QString("walk 2"));
    QCOMPARE(history()->count(), 2);
}

void tst_MotionCommands::importCanBeUndoneWholly()
{
    openSample();
    const QString before = folder->filePath("before.vxscene");
    QVERIFY(window()->document()->save(before));
    const int rows = dopeSheetRows();
    importByMenu(VX_SOURCE_DIR "/samples/walk.bvh");
    QTRY_VERIFY(dopeSheetRows() != rows);
    const int nodes = vxScene->getNumNodes();
    const QString after = folder->filePath("after.vxscene");
    QVERIFY(window()->document()->save(after));
    const auto contents = [](const QString &name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QVERIFY(contents(before) != contents(after));
    for (int round = 0; round < 3; ++round) {
        entry("Edit", "Undo Import walk")->trigger();
        QVERIFY(window()->isWindowModified());
        QVERIFY(window()->document()->save(folder->filePath("again.vxscene")));
        QVERIFY(contents(folder->filePath("again.vxscene")) == contents(before));
        entry("Edit", "Redo Import walk")->trigger();
        QVERIFY(window()->isWindowModified());
        QCOMPARE(vxScene->getNumNodes(), nodes);
        QVERIFY(window()->document()->save(folder->filePath("again.vxscene")));
        QVERIFY(contents(folder->filePath("again.vxscene")) == contents(after));
        QVERIFY(!window()->isWindowModified());
    }
}

void tst_MotionCommands::importOfABrokenFile()
{
    openSample();
    const int nodes = vxScene->getNumNodes();
    const QString file = write("bad.bvh", QByteArray(smallMotion).replace("\n2\n", "\nx\n"));
    QString text;
    const DialogAnswer<QMessageBox> answer(readAndPress(&text, QMessageBox::Ok));
    importByMenu(file, false);
    QVERIFY(answer.met());
    QVERIFY2(text.contains("bad.bvh, line 15"), qPrintable(text));
    QCOMPARE(vxScene->getNumNodes(), nodes);
    QCOMPARE(history()->count(), 0);
    QVERIFY(!window()->isWindowModified());
    // Reading a pipe would block for ever.
    const QString pipe = folder->filePath("pipe.bvh");
    QVERIFY(mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    const DialogAnswer<QMessageBox> refused(readAndPress(&text, QMessageBox::Ok));
    QVERIFY(!window()->document()->importMotion(pipe));
    QVERIFY2(text.startsWith(pipe) && text.contains("regular file"), qPrintable(text));
    // Nothing is chosen: nothing happens.
    const DialogAnswer<QFileDialog> none(escape<QFileDialog>());
    entry("File", "Import Motion...")->trigger();
    QVERIFY(none.met());
    QCOMPARE(vxScene->getNumNodes(), nodes);
}

/// Unlike a file that is opened it makes a document that was never saved.
void tst_MotionCommands::importIntoAnEmptyScene()
{
    importByMenu(write("walk.bvh", smallMotion));
    QCOMPARE(vxScene->getNumNodes(), 2);
    QCOMPARE(vxScene->getTimeStep(), VxTime(120));
    QCOMPARE(window()->document()->displayName(), QString("Untitled"));
    QVERIFY(window()->isWindowModified());
    entry("Edit", "Undo Import walk")->trigger();
    QCOMPARE(vxScene->getNumNodes(), 0);
    QCOMPARE(vxScene->getTimeStep(), VxTime(160));
    QVERIFY(!window()->isWindowModified());
}

// What is chosen counts for BVH files, and for files that are opened.
void tst_MotionCommands::choicesAreAskedFor_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("hasRate");
    QTest::newRow("import") << QByteArray("Import Motion...") << true;
    QTest::newRow("open") << QByteArray("Open...") << false;
}

void tst_MotionCommands::choicesAreAskedFor()
{
    QFETCH(QByteArray, command);
    QFETCH(bool, hasRate);
    openSample();
    importByMenu(
        write("walk.bvh", smallMotion), true,
        [hasRate](ImportDialog *dialog) {
            const auto *text = dialog->findChild<QPlainTextEdit *>("importReport");
            QVERIFY(text->toPlainText().contains("BVH"));
            const auto isShown = [dialog](const char *name) {
                return dialog->findChild<QCheckBox *>(QLatin1String(name))->isVisible();
            };
            QCOMPARE(isShown("importMatchesRate"), hasRate);
            QVERIFY(isShown("importSnapsToFrames") && !isShown("importStartsAtZero"));
            auto *numbers = dialog->findChild<QLabel *>("importNumbers");
            QVERIFY2(numbers->text().startsWith("3 keys"), qPrintable(numbers->text()));
            dialog->findChild<QCheckBox *>("importRotationsOnly")->click();
            QVERIFY2(numbers->text().contains("3 keys are left out"), qPrintable(numbers->text()));
        },
        command.constData());
    const VxNode *hip = vxScene->getRootNodes().constLast()->getNodeChild(0);
    QCOMPARE(hip->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(hip->getXPosControl()->getValue(0), 1.0f);
    QCOMPARE(window()->document()->displayName().startsWith("walk.bvh"), !hasRate);
    // A dialog that is closed changes nothing.
    const int nodes = vxScene->getNumNodes();
    const DialogAnswer<ImportDialog> none(escape<ImportDialog>());
    const DialogAnswer<QFileDialog> answer(typeName(folder->filePath("walk.bvh")));
    vxApp->getUndoStack()->setClean();
    entry("File", command.constData())->trigger();
    QVERIFY(none.met());
    QCOMPARE(vxScene->getNumNodes(), nodes);
}

void tst_MotionCommands::droppedMotion_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("is imported") << "ImportButton";
    QTest::newRow("is opened") << "OpenButton";
    QTest::newRow("is not written") << "";
}

void tst_MotionCommands::droppedMotion()
{
    QFETCH(QString, button);
    openSample();
    const int nodes = vxScene->getNumNodes();
    const QString sample = window()->document()->fileName();
    const QString motion = write("walk.bvh", smallMotion);
    QString preferred;
    const DialogAnswer<QMessageBox> answer([&](QMessageBox *box) {
        preferred = box->defaultButton()->objectName();
        QAbstractButton *choice = button.isEmpty() ? box->button(QMessageBox::Cancel)
                                                   : box->findChild<QPushButton *>(button);
        choice->click();
        return true;
    });
    const DialogAnswer<ImportDialog> how([](ImportDialog *dialog) {
        dialog->accept();
        return true;
    });
    QVERIFY(drop(motion));
    QTRY_VERIFY(answer.met());
    QTRY_VERIFY(how.met() || button.isEmpty());
    QCOMPARE(preferred, QString("ImportButton"));
    if (button == "OpenButton") {
        QTRY_COMPARE(window()->document()->fileName(), motion);
        QCOMPARE(vxScene->getNumNodes(), 2);
    } else {
        QTRY_COMPARE(vxScene->getNumNodes(), nodes + (button.isEmpty() ? 0 : 2));
        QCOMPARE(window()->document()->fileName(), sample);
        QCOMPARE(history()->count(), button.isEmpty() ? 0 : 1);
    }
}

VX_TEST_MAIN(tst_MotionCommands)
#include "tst_motioncommands.moc"
