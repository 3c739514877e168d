#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QLineEdit>
#include <QWindow>
#include <QtTest>
#include <memory>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>

namespace {

class StepAction : public VxAction
{
public:
    StepAction()
        : VxAction(QStringLiteral("Step"))
    {
    }
    QString getDefaultAccel() const override { return QStringLiteral("."); }
    int steps = 0;

protected:
    void executeAction() override { ++steps; }
};

} // namespace

/// A held key as the window system reports it, with the times at which its repeats were made.
/// All are delivered at once here, so those that were made long before the newest are late.
class TestKeyRepeatFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void inTime();
    void lateRepeatsAreLeftOut();
    void timelyOnesFollow();
    void pressesAlwaysCount();
    void anotherHoldStartsAgain();
    void theNearestOfTwoActionsIsNotRepeatedLate();
    void textFieldsGetAll();
    void keysReachTheAction();

private:
    // A key press, or a repeat, made at a time of the window system's clock, in milliseconds.
    void key(ulong time, bool isRepeat, QObject *focus = nullptr);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxActionMgr> m_actions;
    StepAction *m_action = nullptr;
    std::unique_ptr<QWidget> m_window;
    bool m_isAmbiguous = false;
};

void TestKeyRepeatFilter::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_actions = std::make_unique<VxActionMgr>();
    m_action = new StepAction;
    m_actions->addAction(m_action);
    m_window = std::make_unique<QWidget>();
    m_window->addAction(m_action);
}

void TestKeyRepeatFilter::cleanup()
{
    m_window.reset();
    m_actions.reset();
    m_guard.reset();
}

void TestKeyRepeatFilter::key(ulong time, bool isRepeat, QObject *focus)
{
    QObject *receiver = focus ? focus : m_window.get();
    const QString text = QStringLiteral(".");
    QKeyEvent offer(QEvent::ShortcutOverride, Qt::Key_Period, Qt::NoModifier, text, isRepeat);
    offer.setTimestamp(time);
    offer.ignore();
    QCoreApplication::sendEvent(receiver, &offer);
    if (offer.isAccepted()) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Period, Qt::NoModifier, text, isRepeat);
        press.setTimestamp(time);
        QCoreApplication::sendEvent(receiver, &press);
        return;
    }
    QShortcutEvent shortcut(m_action->shortcut(), 0, m_isAmbiguous);
    QCoreApplication::sendEvent(m_action, &shortcut);
}

void TestKeyRepeatFilter::inTime()
{
    key(5000, false);
    for (ulong time = 5500; time < 7000; time += 33)
        key(time, true);
    QCOMPARE(m_action->steps, 1 + 46);
}

void TestKeyRepeatFilter::lateRepeatsAreLeftOut()
{
    key(5000, false);
    key(9000, true);
    QCOMPARE(m_action->steps, 2);
    for (ulong time = 5500; time < 8900; time += 33)
        key(time, true);
    QCOMPARE(m_action->steps, 2);
}

void TestKeyRepeatFilter::timelyOnesFollow()
{
    key(5000, false);
    key(9000, true);
    key(8000, true);
    key(8990, true);
    key(9033, true);
    QCOMPARE(m_action->steps, 4);
}

void TestKeyRepeatFilter::pressesAlwaysCount()
{
    key(5000, false);
    key(9000, true);
    key(5100, false);
    key(5200, false);
    QCOMPARE(m_action->steps, 4);
}

// A shortcut of two commands runs the one that is nearest to the focus.
void TestKeyRepeatFilter::theNearestOfTwoActionsIsNotRepeatedLate()
{
    QAction near;
    near.setShortcut(m_action->shortcut());
    near.setShortcutContext(Qt::WidgetShortcut);
    QSignalSpy runs(&near, &QAction::triggered);
    m_window->addAction(&near);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->setFocus();
    m_isAmbiguous = true;
    key(5000, false);
    key(9000, true);
    QCOMPARE(runs.count(), 2);
    for (ulong time = 5500; time < 8900; time += 33)
        key(time, true);
    QCOMPARE(runs.count(), 2);
    QCOMPARE(m_action->steps, 0);
    m_isAmbiguous = false;
}

// The window system's clock may have begun anew.
void TestKeyRepeatFilter::anotherHoldStartsAgain()
{
    key(5000, false);
    key(9000, true);
    key(10, false);
    key(40, true);
    key(73, true);
    QCOMPARE(m_action->steps, 5);
}

void TestKeyRepeatFilter::textFieldsGetAll()
{
    QLineEdit field;
    key(5000, false, &field);
    key(9000, true, &field);
    key(6000, true, &field);
    QCOMPARE(field.text(), QStringLiteral("..."));
    QCOMPARE(m_action->steps, 0);
}

void TestKeyRepeatFilter::keysReachTheAction()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Period);
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Period);
    QCOMPARE(m_action->steps, 2);
}

VX_TEST_MAIN(TestKeyRepeatFilter)
#include "tst_keyrepeatfilter.moc"
