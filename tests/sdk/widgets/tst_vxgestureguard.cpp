#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>
#include <functional>
#include <vxcore/vxgestureguard.h>

// What ends a gesture without its release, and what does not.
class TestVxGestureGuard : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void lost_data();
    void lost();
    void kept_data();
    void kept();
    void escapeIsNotSeenByOthers();
    void escapeIsFreeOutsideOfAGesture();
    void gestureCanBeginAgainWhileItIsCancelled();
    void guardDestroyedInAGesture();

private:
    std::unique_ptr<VxWarningGuard> m_warnings;
    std::unique_ptr<QWidget> m_window;
    QWidget *m_frame = nullptr;
    QWidget *m_view = nullptr;
    QPushButton *m_other = nullptr;
    VxGestureGuard *m_guard = nullptr;
};

using Step = std::function<void(QWidget *window, QWidget *frame, QWidget *view, QWidget *other)>;
Q_DECLARE_METATYPE(Step)

void TestVxGestureGuard::init()
{
    m_warnings = std::make_unique<VxWarningGuard>();
    m_window = std::make_unique<QWidget>();
    m_window->resize(200, 100);
    m_frame = new QWidget(m_window.get());
    m_frame->resize(100, 100);
    m_view = new QWidget(m_frame);
    m_view->resize(100, 100);
    m_view->setFocusPolicy(Qt::ClickFocus);
    m_other = new QPushButton(m_window.get());
    m_other->setGeometry(110, 10, 50, 20);
    m_guard = new VxGestureGuard(m_view);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_view->setFocus();
    QVERIFY(m_view->hasFocus());
}

void TestVxGestureGuard::cleanup()
{
    m_window.reset();
    m_warnings.reset();
}

void TestVxGestureGuard::lost_data()
{
    QTest::addColumn<Step>("step");
    const auto row = [](const char *name, const Step &step) { QTest::newRow(name) << step; };
    row("the view is hidden", [](QWidget *, QWidget *, QWidget *view, QWidget *) { view->hide(); });
    row("the window is closed",
        [](QWidget *window, QWidget *, QWidget *, QWidget *) { window->close(); });
    row("what holds the view moves to another window",
        [](QWidget *, QWidget *frame, QWidget *, QWidget *other) {
            frame->setParent(nullptr);
            frame->show();
            frame->setParent(other->parentWidget());
        });
    row("the view is disabled",
        [](QWidget *, QWidget *frame, QWidget *, QWidget *) { frame->setEnabled(false); });
    row("a dialog opens", [](QWidget *window, QWidget *, QWidget *, QWidget *) {
        QDialog dialog(window);
        dialog.setModal(true);
        dialog.show();
    });
    row("a menu opens", [](QWidget *window, QWidget *, QWidget *, QWidget *) {
        QMenu menu(window);
        menu.addAction(QStringLiteral("entry"));
        menu.popup(window->mapToGlobal(QPoint(10, 10)));
        menu.close();
    });
    row("the focus leaves",
        [](QWidget *, QWidget *, QWidget *, QWidget *other) { other->setFocus(); });
    row("the window is deactivated", [](QWidget *, QWidget *, QWidget *, QWidget *) {
        QWidget second;
        second.show();
        second.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&second));
    });
    row("another widget gets the release", [](QWidget *, QWidget *, QWidget *, QWidget *other) {
        QTest::mouseRelease(other, Qt::LeftButton);
    });
    row("escape in the view", [](QWidget *, QWidget *, QWidget *view, QWidget *) {
        QTest::keyClick(view, Qt::Key_Escape);
    });
    row("escape in another widget", [](QWidget *, QWidget *, QWidget *, QWidget *other) {
        QTest::keyClick(other, Qt::Key_Escape);
    });
}

void TestVxGestureGuard::lost()
{
    QFETCH(Step, step);
    QSignalSpy cancelled(m_guard, &VxGestureGuard::cancelled);
    bool wasActive = true;
    connect(m_guard, &VxGestureGuard::cancelled, this,
            [this, &wasActive] { wasActive = m_guard->isActive(); });
    m_guard->begin();
    step(m_window.get(), m_frame, m_view, m_other);
    QCOMPARE(cancelled.count(), 1);
    QVERIFY(!wasActive);
}

void TestVxGestureGuard::kept_data()
{
    QTest::addColumn<Step>("step");
    const auto row = [](const char *name, const Step &step) { QTest::newRow(name) << step; };
    row("the mouse moves and is released", [](QWidget *, QWidget *, QWidget *view, QWidget *) {
        VxMouseDriver mouse(view);
        mouse.press(QPoint(10, 10));
        mouse.moveTo(QPoint(150, 20));
        mouse.release(QPoint(150, 20));
    });
    row("another key",
        [](QWidget *, QWidget *, QWidget *view, QWidget *) { QTest::keyClick(view, Qt::Key_A); });
    row("another widget is hidden",
        [](QWidget *, QWidget *, QWidget *, QWidget *other) { other->hide(); });
    row("another widget appears", [](QWidget *window, QWidget *, QWidget *, QWidget *) {
        QWidget tip(window, Qt::ToolTip);
        tip.show();
    });
    row("another widget is disabled",
        [](QWidget *, QWidget *, QWidget *, QWidget *other) { other->setEnabled(false); });
}

void TestVxGestureGuard::kept()
{
    QFETCH(Step, step);
    QSignalSpy cancelled(m_guard, &VxGestureGuard::cancelled);
    m_guard->begin();
    step(m_window.get(), m_frame, m_view, m_other);
    QCOMPARE(cancelled.count(), 0);
    QVERIFY(m_guard->isActive());
    m_guard->end();
    m_view->hide();
    QCOMPARE(cancelled.count(), 0);
}

void TestVxGestureGuard::escapeIsNotSeenByOthers()
{
    QAction action;
    action.setShortcut(QKeySequence(Qt::Key_Escape));
    m_window->addAction(&action);
    QSignalSpy triggered(&action, &QAction::triggered);
    QSignalSpy cancelled(m_guard, &VxGestureGuard::cancelled);
    m_guard->begin();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Escape);
    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(triggered.count(), 0);
}

void TestVxGestureGuard::escapeIsFreeOutsideOfAGesture()
{
    QAction action;
    action.setShortcut(QKeySequence(Qt::Key_Escape));
    m_window->addAction(&action);
    QSignalSpy triggered(&action, &QAction::triggered);
    m_guard->begin();
    m_guard->end();
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Escape);
    QCOMPARE(triggered.count(), 1);
}

void TestVxGestureGuard::gestureCanBeginAgainWhileItIsCancelled()
{
    const auto once = std::make_shared<QMetaObject::Connection>();
    *once = connect(m_guard, &VxGestureGuard::cancelled, this, [this, once] {
        disconnect(*once);
        m_guard->begin();
    });
    m_guard->begin();
    QTest::keyClick(m_view, Qt::Key_Escape);
    QVERIFY(m_guard->isActive());
    QSignalSpy cancelled(m_guard, &VxGestureGuard::cancelled);
    QTest::keyClick(m_view, Qt::Key_Escape);
    QCOMPARE(cancelled.count(), 1);
}

void TestVxGestureGuard::guardDestroyedInAGesture()
{
    m_guard->begin();
    delete m_view;
    QTest::keyClick(m_other, Qt::Key_Escape);
}

VX_TEST_MAIN(TestVxGestureGuard)
#include "tst_vxgestureguard.moc"
