#include "testing/vxtestmain.h"
#include "toolstestbase.h"

#include <QLineEdit>

/// Auto Key, shortcuts and tool bar of the pose tools in the program's window.
class tst_PoseToolCommands : public QObject, PoseToolTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init() { newFigure(); }

    void withoutAutoKeyNoKeyIsMade();
    void withoutAutoKeyTheTimeDropsThePose();
    void autoKeyIsShown();
    void shortcutsOfTheTools();
    void numbersDoNotReachShortcuts();
    void theBarShowsTheTool();
};

void tst_PoseToolCommands::withoutAutoKeyNoKeyIsMade()
{
    vxScene->setAnimating(false);
    use(PoseTools::Rotate, {"Hips"});
    typeAmount(GizmoPart::Y, "30");
    QCOMPARE(angle("Hips", 1)->getNumKeys(), 0);
    QCOMPARE(angle("Hips", 1)->getValue(), 30.0f);
    QVERIFY(status().contains("Auto Key is off"));
    QCOMPARE(history()->count(), 1);
    history()->undo();
    QCOMPARE(angle("Hips", 1)->getValue(), 0.0f);
}

void tst_PoseToolCommands::withoutAutoKeyTheTimeDropsThePose()
{
    setKeys(angle("Hips", 1), "0=0 10=100");
    vxScene->setTime(800);
    vxScene->setAnimating(false);
    use(PoseTools::Rotate, {"Hips"});
    typeAmount(GizmoPart::Y, "30");
    QCOMPARE(keysOf(angle("Hips", 1)), QString("0=0 10=100"));
    QCOMPARE(angle("Hips", 1)->getValue(), 80.0f);
    // A key of the present values keeps it.
    vxScene->setAnimating(true);
    action("VxAddKeysAction")->trigger();
    QCOMPARE(keysOf(angle("Hips", 1)), QString("0=0 5=80 10=100"));
    history()->undo();
    vxScene->setAnimating(false);
    typeAmount(GizmoPart::Y, "30");
    vxScene->setTime(0);
    vxScene->setTime(800);
    QCOMPARE(angle("Hips", 1)->getValue(), 50.0f);
}

void tst_PoseToolCommands::autoKeyIsShown()
{
    auto *mark = window()->findChild<QToolButton *>("AutoKeyMark");
    QVERIFY(mark && mark->isVisible());
    const auto edge = [this] { return QColor(view()->grab().toImage().pixel(200, 0)); };
    const QColor on = edge();
    QVERIFY(on.red() > on.green() + 60);
    QTest::mouseClick(mark, Qt::LeftButton);
    QVERIFY(!vxScene->isAnimating());
    QVERIFY(!action("VxAutoKeyAction")->isChecked());
    QVERIFY(edge().red() < edge().green() + 20);
    action("VxAutoKeyAction")->trigger();
    QVERIFY(vxScene->isAnimating() && action("VxAutoKeyAction")->isChecked());
}

void tst_PoseToolCommands::shortcutsOfTheTools()
{
    view()->setFocus();
    const QPair<int, PoseTools::Tool> keys[] = {{Qt::Key_W, PoseTools::Move},
                                                {Qt::Key_E, PoseTools::Rotate},
                                                {Qt::Key_R, PoseTools::Scale},
                                                {Qt::Key_Y, PoseTools::Ik},
                                                {Qt::Key_Q, PoseTools::Select}};
    for (const auto &each : keys) {
        type(each.first);
        QCOMPARE(tools()->activeTool(), each.second);
    }
    QVERIFY(action("VxSelectToolAction")->isChecked());
    QVERIFY(!action("VxMoveToolAction")->isChecked());
    // Neither a text field nor the timeline loses its keys.
    QLineEdit field(window());
    field.show();
    field.setFocus();
    type(Qt::Key_W);
    QCOMPARE(field.text(), QString("w"));
    QCOMPARE(tools()->activeTool(), PoseTools::Select);
    VxMouseDriver(view()).moveTo({200, 200});
    inTimePane<QWidget>("TimelineDopeSheetTView")->setFocus();
    type(Qt::Key_W);
    QCOMPARE(tools()->activeTool(), PoseTools::Select);
}

void tst_PoseToolCommands::numbersDoNotReachShortcuts()
{
    vxScene->setTime(480);
    use(PoseTools::Rotate, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::Y);
    const ViewportCamera camera = view()->camera();
    VxMouseDriver mouse(view());
    mouse.press(at);
    for (const int key : {Qt::Key_1, Qt::Key_7, Qt::Key_Left, Qt::Key_Space, Qt::Key_Delete,
                          Qt::Key_W, Qt::Key_Home})
        type(key);
    mouse.release(at);
    QCOMPARE(vxScene->getTime(), 480);
    QVERIFY(!vxScene->isPlaying());
    QVERIFY(view()->camera() == camera);
    QCOMPARE(tools()->activeTool(), PoseTools::Rotate);
    QCOMPARE(angle("Hips", 1)->getValue(), 17.0f);
}

void tst_PoseToolCommands::theBarShowsTheTool()
{
    auto *bar = view()->findChild<QWidget *>("PoseToolBar");
    QVERIFY(bar && bar->isVisible());
    auto *rotate = bar->findChild<QToolButton *>("RotateToolButton");
    QTest::mouseClick(rotate, Qt::LeftButton);
    QCOMPARE(tools()->activeTool(), PoseTools::Rotate);
    QVERIFY(rotate->isChecked());
    action("VxWorldOrientationAction")->trigger();
    QCOMPARE(bar->findChild<QToolButton *>("GizmoOrientationButton")->text(), QString("World"));
    QVERIFY(rotate->toolTip().contains("(E)"));
    action("VxMoveToolAction")->trigger();
    QVERIFY(!rotate->isChecked());
    QVERIFY(bar->findChild<QToolButton *>("MoveToolButton")->isChecked());
}

VX_TEST_MAIN(tst_PoseToolCommands)
#include "tst_posetoolcommands.moc"
