#include "create/createedits.h"
#include "dialoganswers.h"
#include "io/vxscenecamera.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QScriptEngine>
#include <QTreeView>
#include <vxcore/vxscriptengine.h>

/// The commands of the viewport's camera by menu, key and script, and the camera in the document.
class tst_CameraActions : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        setUp();
        start();
    }
    void cleanupTestCase()
    {
        vxApp->getUndoStack()->setClean();
        tearDown();
    }
    void init();

    void keysOfTheFocusedViewport_data();
    void keysOfTheFocusedViewport();
    void keysUnderTheMouse_data();
    void keysUnderTheMouse();
    void perspectiveIsToggled();
    void fieldOfViewIsShownWhileItIsTyped();
    void scriptsMoveTheCamera();
    void selectionIsFramed();
    void everyDocumentHasItsCamera();
    void movingTheCameraDoesNotModifyTheDocument();

private:
    ViewportWidget *view() const { return window()->viewport(); }
    const VxCameraState &camera() const { return view()->camera().state(); }
    QWidget *focusTarget(const QString &name) const;
    void moveMouse(bool intoViewport) const;
};

void tst_CameraActions::init()
{
    window()->document()->clear();
    CreateEdits::addFigure(vxScene);
    vxApp->getUndoStack()->setClean();
    // A dialog may have had the focus.
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
    view()->setFocus();
    QTRY_VERIFY(view()->hasFocus());
    moveMouse(false);
}

// A platform without a pointer sends what the toolkit would get from one.
void tst_CameraActions::moveMouse(bool intoViewport) const
{
    QEvent leave(QEvent::Leave);
    QEnterEvent enter(QPointF(20, 20), QPointF(20, 20), view()->mapToGlobal(QPoint(20, 20)));
    QCoreApplication::sendEvent(view(), intoViewport ? static_cast<QEvent *>(&enter) : &leave);
    view()->setAttribute(Qt::WA_UnderMouse, intoViewport);
}

void tst_CameraActions::keysOfTheFocusedViewport_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<float>("yaw");
    QTest::addColumn<float>("pitch");
    const int pad = Qt::KeypadModifier;
    const int ctrl = Qt::KeypadModifier | Qt::ControlModifier;
    QTest::newRow("front") << int(Qt::Key_1) << pad << 0.0f << 0.0f;
    QTest::newRow("back") << int(Qt::Key_1) << ctrl << 180.0f << 0.0f;
    QTest::newRow("side") << int(Qt::Key_3) << pad << 90.0f << 0.0f;
    QTest::newRow("opposite side") << int(Qt::Key_3) << ctrl << -90.0f << 0.0f;
    QTest::newRow("top") << int(Qt::Key_7) << pad << 0.0f << 90.0f;
    QTest::newRow("bottom") << int(Qt::Key_7) << ctrl << 0.0f << -90.0f;
}

void tst_CameraActions::keysOfTheFocusedViewport()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    type(key, Qt::KeyboardModifiers(modifiers));
    QVERIFY(camera().orthographic);
    QTEST(camera().yaw, "yaw");
    QTEST(camera().pitch, "pitch");
}

QWidget *tst_CameraActions::focusTarget(const QString &name) const
{
    if (name == QLatin1String("tree"))
        return window()->findChild<QTreeView *>(QStringLiteral("SceneTView"));
    if (name == QLatin1String("search"))
        return window()->findChild<QLineEdit *>(QStringLiteral("SceneSearchField"));
    const QList<QWidget *> all = timePane()->findChildren<QWidget *>();
    for (QWidget *widget : all) {
        if (widget->property("vxTimeAxis").toBool())
            return widget;
    }
    return nullptr;
}

void tst_CameraActions::keysUnderTheMouse_data()
{
    QTest::addColumn<QString>("focus");
    QTest::addColumn<bool>("inViewport");
    QTest::addColumn<bool>("acts");
    QTest::newRow("the tree has the focus") << "tree" << true << true;
    QTest::newRow("the mouse is elsewhere") << "tree" << false << false;
    QTest::newRow("a text field has the focus") << "search" << true << false;
    QTest::newRow("the timeline has the focus") << "timeline" << true << false;
}

void tst_CameraActions::keysUnderTheMouse()
{
    QFETCH(QString, focus);
    QFETCH(bool, inViewport);
    QFETCH(bool, acts);
    QWidget *target = focusTarget(focus);
    QVERIFY(target);
    target->setFocus();
    QTRY_VERIFY(target->hasFocus());
    moveMouse(inViewport);
    ViewportCamera far = view()->camera();
    far.zoom(0.01);
    view()->setCamera(far);
    type(Qt::Key_A);
    QCOMPARE(camera().distance < far.distance(), acts);
    type(Qt::Key_7, Qt::KeypadModifier);
    QCOMPARE(camera().orthographic, acts);
    if (auto *field = qobject_cast<QLineEdit *>(target)) {
        QCOMPARE(field->text(), QStringLiteral("a7"));
        field->clear();
    }
}

void tst_CameraActions::perspectiveIsToggled()
{
    VxAction *toggle = action("VxPerspectiveAction");
    QVERIFY(toggle->isChecked());
    type(Qt::Key_5, Qt::KeypadModifier);
    QVERIFY(camera().orthographic && !toggle->isChecked());
    action("VxTopViewAction")->trigger();
    toggle->trigger();
    QVERIFY(!camera().orthographic && toggle->isChecked());
    QCOMPARE(camera().pitch, 90.0f); // the direction stays
    action("VxFrontViewAction")->trigger();
    QVERIFY(!toggle->isChecked());
}

void tst_CameraActions::fieldOfViewIsShownWhileItIsTyped()
{
    const VxCameraState before = camera();
    VxCameraState during;
    const auto answer = [&](bool accept) {
        return [this, &during, accept](QInputDialog *dialog) {
            dialog->setDoubleValue(70);
            during = camera();
            accept ? dialog->accept() : dialog->reject();
            return true;
        };
    };
    {
        const DialogAnswer<QInputDialog> cancels(answer(false));
        action("VxFieldOfViewAction")->trigger();
        QVERIFY(cancels.met());
    }
    QCOMPARE(during.fieldOfView, 70.0f);
    QVERIFY(camera() == before);
    const DialogAnswer<QInputDialog> agrees(answer(true));
    action("VxFieldOfViewAction")->trigger();
    QVERIFY(agrees.met());
    QCOMPARE(camera().fieldOfView, 70.0f);
}

void tst_CameraActions::scriptsMoveTheCamera()
{
    const auto run = [](const char *script) {
        return vxApp->getScriptEngine()->engine()->evaluate(QLatin1String(script)).toString();
    };
    QCOMPARE(run("Camera.get().yaw"), QString::number(double(camera().yaw)));
    QCOMPARE(run("Camera.set({ yaw: -90, target: [1, 2, 3], fieldOfView: 400 }).fieldOfView"),
             QString::number(double(VxCameraState::MaxFieldOfView)));
    QCOMPARE(camera().yaw, -90.0f);
    QCOMPARE(camera().target, QVector3D(1, 2, 3));
    const VxCameraState before = camera();
    QCOMPARE(run("Camera.set({ pitch: 10, distance: 'far' })"),
             QString("Error: set() expects a finite number as distance"));
    QCOMPARE(run("Camera.set({ target: [1, 2] })"),
             QString("Error: set() expects an array of three finite numbers as target"));
    QVERIFY(run("Camera.set({ zoom: 2 })").contains("not zoom"));
    QVERIFY(run("Camera.set(3)").contains("expects an object"));
    QVERIFY(camera() == before);
}

void tst_CameraActions::selectionIsFramed()
{
    vxScene->selectAllNodes(false);
    vxScene->findNode("Head")->select();
    QScriptEngine *engine = vxApp->getScriptEngine()->engine();
    engine->evaluate("Camera.frameAll()");
    const float distance = camera().distance;
    engine->evaluate("Camera.frameSelection()");
    QVERIFY(camera().distance < distance);
    const QPointF at = view()->camera().project({0, camera().target.y(), 0}).value_or(QPointF());
    QVERIFY((at - QRectF(view()->rect()).center()).manhattanLength() < 2);
}

void tst_CameraActions::everyDocumentHasItsCamera()
{
    const QString file = folder->filePath(QStringLiteral("camera.vxscene"));
    const VxCameraState initial = camera();
    action("VxSideViewAction")->trigger();
    const VxCameraState side = camera();
    QVERIFY(window()->document()->save(file));
    window()->document()->clear();
    QVERIFY(!camera().orthographic);
    QCOMPARE(camera().yaw, initial.yaw);
    QVERIFY(window()->document()->open(file));
    QVERIFY(camera() == side);
    openSample(); // a document without a camera
    QVERIFY(!camera().orthographic);
    QCOMPARE(camera().yaw, initial.yaw);
    QVERIFY(view()->camera().project({0, 90, 0}));
}

void tst_CameraActions::movingTheCameraDoesNotModifyTheDocument()
{
    action("VxTopViewAction")->trigger();
    action("VxFrameAllAction")->trigger();
    QVERIFY(vxApp->getUndoStack()->isClean());
    QVERIFY(!window()->isWindowModified());
}

VX_TEST_MAIN(tst_CameraActions)
#include "tst_cameraactions.moc"
