#include "testing/vxlostrelease.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "viewport/viewporttool.h"
#include "viewport/viewportwidget.h"

#include <QKeyEvent>
#include <QPainter>
#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxviewportmgr.h>

namespace {

// Accepts presses in its box, digits while it is busy, and keeps a list of its calls.
class BoxTool : public ViewportTool
{
public:
    explicit BoxTool(const QRect &box)
        : m_box(box)
    {
    }

    bool press(const ViewportPointer &at) override
    {
        if (!m_box.contains(at.pixel.toPoint()))
            return false;
        busy = true;
        calls << "press";
        return true;
    }
    void drag(const ViewportPointer &) override { calls << "drag"; }
    void release(const ViewportPointer &) override
    {
        busy = false;
        calls << "release";
    }
    bool hover(const ViewportPointer &at) override
    {
        const bool found = m_box.contains(at.pixel.toPoint());
        if (found)
            calls << "hover";
        return found;
    }
    bool usesKey(const QKeyEvent &event) const override { return busy && event.key() == Qt::Key_4; }
    void key(const QKeyEvent &event) override { calls << event.text(); }
    bool isBusy() const override { return busy; }
    void cancel() override
    {
        if (busy)
            calls << "cancel";
        busy = false;
    }
    void paint(QPainter *painter, const ViewportCamera &, const QPalette &) const override
    {
        painter->fillRect(m_box, Qt::magenta);
    }

    bool busy = false;
    QStringList calls;

private:
    QRect m_box;
};

} // namespace

/// The routing of mouse and keys from the viewport to its tool and layers.
class tst_ViewportTool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aGestureReachesTheTool();
    void aRefusedPressOrbits();
    void aLayerTakesPrecedenceOverTheTool();
    void mappedButtonsStayWithTheCamera();
    void theCameraDoesNotMoveDuringAGesture();
    void aLostReleaseCancels_data();
    void aLostReleaseCancels();
    void aLostReleaseOfTheCameraRestoresIt();
    void keysReachABusyTool();
    void escapeCancelsBetweenClicks();
    void anotherToolCancels();
    void anotherSceneCancels();
    void aToolIsDestroyedInItsGesture();

private:
    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxApp> m_app;
    QScopedPointer<VxViewportMgr> m_conventions;
    QScopedPointer<ViewportWidget> m_view;
    QScopedPointer<BoxTool> m_tool;
};

void tst_ViewportTool::init()
{
    m_guard.reset(new VxWarningGuard);
    m_app.reset(new VxApp);
    m_conventions.reset(new VxViewportMgr);
    m_view.reset(new ViewportWidget(vxScene, m_conventions.data()));
    m_view->resize(400, 300);
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.data()));
    m_tool.reset(new BoxTool(QRect(100, 100, 50, 50)));
    m_view->setTool(m_tool.data());
}

void tst_ViewportTool::cleanup()
{
    m_view.reset();
    m_tool.reset();
    m_conventions.reset();
    m_app.reset();
    m_guard.reset();
}

void tst_ViewportTool::aGestureReachesTheTool()
{
    const ViewportCamera camera = m_view->camera();
    VxMouseDriver mouse(m_view.data());
    mouse.moveTo({120, 120});
    mouse.press({120, 120});
    mouse.moveTo({300, 200});
    mouse.release({300, 200});
    QCOMPARE(m_tool->calls, QStringList({"hover", "press", "drag", "release"}));
    QVERIFY(m_view->camera() == camera);
    QCOMPARE(QColor(m_view->grab().toImage().pixel(120, 120)), QColor(Qt::magenta));
}

void tst_ViewportTool::aRefusedPressOrbits()
{
    const ViewportCamera camera = m_view->camera();
    VxMouseDriver(m_view.data()).drag({20, 20}, {80, 20});
    QVERIFY(m_tool->calls.isEmpty());
    QVERIFY(m_view->camera() != camera);
}

void tst_ViewportTool::aLayerTakesPrecedenceOverTheTool()
{
    BoxTool layer(QRect(110, 110, 20, 20));
    m_view->addLayer(&layer);
    VxMouseDriver mouse(m_view.data());
    mouse.click({115, 115});
    QCOMPARE(layer.calls.filter("press").size(), 1);
    QVERIFY(m_tool->calls.filter("press").isEmpty());
    mouse.click({145, 145});
    QCOMPARE(m_tool->calls.filter("press").size(), 1);
}

void tst_ViewportTool::mappedButtonsStayWithTheCamera()
{
    VxMouseDriver mouse(m_view.data());
    const ViewportCamera camera = m_view->camera();
    mouse.drag({120, 120}, {150, 150}, Qt::MiddleButton);
    QVERIFY(m_view->camera() != camera);
    mouse.click({120, 120}, Qt::RightButton);
    QVERIFY(m_tool->calls.filter("press").isEmpty());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton})
        QCOMPARE(m_conventions->getOperation(
                     m_conventions->getMouseBtnAccelerator(button, Qt::NoModifier)),
                 int(VxViewportMgr::NoOperation));
}

void tst_ViewportTool::theCameraDoesNotMoveDuringAGesture()
{
    const ViewportCamera camera = m_view->camera();
    VxMouseDriver mouse(m_view.data());
    mouse.press({120, 120});
    QWheelEvent wheel(QPointF(50, 50), QPointF(50, 50), QPoint(), QPoint(0, 120), Qt::LeftButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_view.data(), &wheel);
    mouse.press({120, 120}, Qt::MiddleButton);
    mouse.moveTo({200, 200});
    mouse.release({200, 200}, Qt::MiddleButton);
    QVERIFY(m_view->camera() == camera);
    mouse.release({200, 200});
    QCOMPARE(m_tool->calls.last(), QString("release"));
}

void tst_ViewportTool::aLostReleaseCancels_data()
{
    QTest::addColumn<int>("way");
    for (int way = 0; way < VxLostReleaseWays; ++way)
        QTest::addRow("way %d", way) << way;
}

void tst_ViewportTool::aLostReleaseCancels()
{
    QFETCH(int, way);
    m_view->setFocus();
    VxMouseDriver mouse(m_view.data());
    mouse.press({120, 120});
    vxLoseRelease(m_view.data(), way);
    QCOMPARE(m_tool->calls.filter("cancel").size(), 1);
    m_tool->calls.clear();
    mouse.release({120, 120});
    QVERIFY(!m_tool->calls.contains("release"));
    mouse.click({120, 120});
    QCOMPARE(m_tool->calls.filter("press").size(), 1);
}

void tst_ViewportTool::aLostReleaseOfTheCameraRestoresIt()
{
    const ViewportCamera camera = m_view->camera();
    VxMouseDriver mouse(m_view.data());
    mouse.press({20, 20});
    mouse.moveTo({80, 20});
    QVERIFY(m_view->camera() != camera);
    vxLoseRelease(m_view.data(), 0);
    QVERIFY(m_view->camera() == camera);
    mouse.moveTo({140, 20});
    mouse.release({140, 20});
    QVERIFY(m_view->camera() == camera);
}

void tst_ViewportTool::keysReachABusyTool()
{
    QAction shortcut;
    shortcut.setShortcut(Qt::Key_4);
    m_view->addAction(&shortcut);
    QSignalSpy triggered(&shortcut, &QAction::triggered);
    VxMouseDriver mouse(m_view.data());
    mouse.press({120, 120});
    QTest::keyClick(m_view->windowHandle(), Qt::Key_4);
    mouse.release({120, 120});
    QCOMPARE(m_tool->calls.filter("4").size(), 1);
    QCOMPARE(triggered.count(), 0);
    QTest::keyClick(m_view->windowHandle(), Qt::Key_4);
    QCOMPARE(triggered.count(), 1);
}

void tst_ViewportTool::escapeCancelsBetweenClicks()
{
    m_view->setFocus();
    m_tool->busy = true;
    QTest::keyClick(m_view->windowHandle(), Qt::Key_Escape);
    QCOMPARE(m_tool->calls, QStringList{"cancel"});
}

void tst_ViewportTool::anotherToolCancels()
{
    QSignalSpy changed(m_view.data(), &ViewportWidget::toolChanged);
    VxMouseDriver mouse(m_view.data());
    mouse.press({120, 120});
    m_view->setTool(nullptr);
    QCOMPARE(changed.count(), 1);
    mouse.moveTo({140, 140});
    mouse.release({140, 140});
    QCOMPARE(m_tool->calls.filter("cancel").size(), 1);
    QVERIFY(m_tool->calls.filter("drag").isEmpty());
    QVERIFY(!m_view->tool());
}

void tst_ViewportTool::anotherSceneCancels()
{
    VxMouseDriver mouse(m_view.data());
    mouse.press({120, 120});
    vxScene->clear();
    QCOMPARE(m_tool->calls.filter("cancel").size(), 1);
    mouse.release({120, 120});
    QVERIFY(!m_tool->calls.contains("release"));
}

void tst_ViewportTool::aToolIsDestroyedInItsGesture()
{
    const ViewportCamera camera = m_view->camera();
    VxMouseDriver mouse(m_view.data());
    mouse.press({120, 120});
    m_tool.reset();
    mouse.moveTo({200, 200});
    mouse.release({200, 200});
    QVERIFY(m_view->camera() == camera);
    QVERIFY(!m_view->tool());
}

VX_TEST_MAIN(tst_ViewportTool)
#include "tst_viewporttool.moc"
