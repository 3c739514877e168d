// What a screen reader finds in the whole program: every control has a name and a role.

#include "document/importdialog.h"
#include "gltfsample.h"
#include "recovery/recoverydialog.h"
#include "studiotestbase.h"
#include "testing/vxaccessibletree.h"
#include "testing/vxtestmain.h"

#include <QAccessible>
#include <QDialog>
#include <QTimer>
#include <vxcore/vxscriptengine.h>

namespace {

/// The menu entries that open a dialog, by the dots after their texts.
void collectDialogActions(const QMenu *menu, QVector<QAction *> *found)
{
    for (QAction *action : menu->actions()) {
        if (action->menu())
            collectDialogActions(action->menu(), found);
        else if (action->text().endsWith(QLatin1String("...")) ||
                 action->objectName() == QLatin1String("StudioAbout") ||
                 action->objectName() == QLatin1String("StudioKeyOverview"))
            *found += action;
    }
}

/// The number of faults, each of which is written: a message of QVERIFY2 is cut off.
int reported(const QStringList &faults)
{
    for (const QString &fault : faults)
        qInfo().noquote() << fault;
    return faults.size();
}

} // namespace

class tst_AccessibleNames : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { tearDown(); }

    void windowWithAllPanes();
    void windowWithAllPanes_data();
    void dialogsOfTheMenus();
    void dialogsOfFiles();

private:
    // Checks whatever dialog is open, and closes it.
    void checkDialog(QStringList *faults, QStringList *titles) const;
};

void tst_AccessibleNames::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_AccessibleNames::init()
{
    setUp();
    start();
    openSample();
    VxNode *thigh = vxScene->findNodeByLabel(QStringLiteral("Left Thigh"));
    QVERIFY(thigh);
    vxScene->setPrimarySelection(thigh);
}

void tst_AccessibleNames::windowWithAllPanes_data()
{
    QTest::addColumn<int>("viewMode");
    QTest::newRow("timeline with controls only") << 0;
    QTest::newRow("timeline with rows") << 1;
    QTest::newRow("timeline with rows and curves") << 2;
}

void tst_AccessibleNames::windowWithAllPanes()
{
    QFETCH(int, viewMode);
    vxApp->getScriptEngine()->evaluate(
        QStringLiteral("App.findPane('VxTimePane').setViewMode(%1)").arg(viewMode),
        QStringLiteral("test"), nullptr);
    for (PaneDock *dock : window()->docks()->docks())
        dock->show();
    QCoreApplication::processEvents();
    const QStringList faults = VxAccessibleTree::faults(window());
    QCOMPARE(reported(faults), 0);
}

void tst_AccessibleNames::checkDialog(QStringList *faults, QStringList *titles) const
{
    QWidget *dialog = QApplication::activeModalWidget();
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (!dialog && widget != window() && widget->isVisible() && qobject_cast<QDialog *>(widget))
            dialog = widget;
    }
    if (!dialog)
        return;
    // The toolkit's own dialog, with the toolkit's names.
    if (!dialog->inherits("QFileDialog")) {
        *faults += VxAccessibleTree::faults(dialog);
        *titles += dialog->windowTitle();
    }
    dialog->close();
}

void tst_AccessibleNames::dialogsOfTheMenus()
{
    QVector<QAction *> actions;
    for (const QAction *bar : window()->menuBar()->actions())
        collectDialogActions(bar->menu(), &actions);
    QStringList faults;
    QStringList titles;
    for (QAction *action : actions) {
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] { checkDialog(&faults, &titles); });
        timer.start(5);
        action->trigger();
        checkDialog(&faults, &titles);
    }
    QCOMPARE(reported(faults), 0);
    titles.removeDuplicates();
    titles.sort();
    QCOMPARE(titles,
             QStringList({"About VxStudio", "Breakdown", "Cycle", "Edit \"Left Thigh\"",
                          "Export Motion", "Field of View", "Keyboard and Mouse", "Preferences"}));
}

void tst_AccessibleNames::dialogsOfFiles()
{
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    for (int i = 0; i < 2; ++i)
        sample.animate(i, 0, "translation", "LINEAR", sample.floats({0, 1}, "SCALAR", 1),
                       sample.floats({0, 0, 0, 1, 1, 1}, "VEC3", 3));
    const QString name = folder->filePath(QStringLiteral("ball.gltf"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(sample.text()) > 0);
    file.close();
    VxMotionImport import(vxScene);
    VxFileError error;
    QVERIFY2(import.load(name, &error), qPrintable(error.text()));
    ImportDialog importDialog(&import, name, window());
    RecoveryDialog recoveryDialog(
        {RecoveryCopy{"1", "/tmp/1.vxscene", "/tmp/a.vxscene", "a", QDateTime::currentDateTime()}},
        window());
    for (QWidget *dialog :
         {static_cast<QWidget *>(&importDialog), static_cast<QWidget *>(&recoveryDialog)}) {
        dialog->show();
        const QStringList faults = VxAccessibleTree::faults(dialog);
        QCOMPARE(reported(faults), 0);
    }
}

VX_TEST_MAIN(tst_AccessibleNames)
#include "tst_accessiblenames.moc"
