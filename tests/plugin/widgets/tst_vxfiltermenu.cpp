#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/rows/dopesheetfiltertext.h"
#include "vxtimeline/widgets/vxfiltermenu.h"

#include <QtTest>
#include <memory>

// The menu of types, and the text of the other filter.
class TestFilterMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void tickingKeepsTheMenuOpen();
    void keepsBlockedSignalsBlocked();
    void disabledEntriesAreLeftAlone();
    void noEntryUnderTheMouse();
    void notifyingWhileTickingEmitsOnce();

    void patterns_data();
    void patterns();

private:
    void clickOn(QAction *action);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxFilterMenu> m_menu;
    QAction *m_first = nullptr;
    QAction *m_second = nullptr;
};

void TestFilterMenu::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_menu = std::make_unique<VxFilterMenu>();
    m_first = m_menu->addAction(QStringLiteral("Translation (T)"));
    m_second = m_menu->addAction(QStringLiteral("Rotation (R)"));
    m_first->setCheckable(true);
    m_second->setCheckable(true);
    m_menu->popup(QPoint(10, 10));
    QVERIFY(QTest::qWaitForWindowExposed(m_menu.get()));
}

void TestFilterMenu::cleanup()
{
    m_menu.reset();
    m_guard.reset();
}

void TestFilterMenu::clickOn(QAction *action)
{
    QTest::mouseClick(m_menu.get(), Qt::LeftButton, Qt::NoModifier,
                      m_menu->actionGeometry(action).center());
}

void TestFilterMenu::tickingKeepsTheMenuOpen()
{
    const QSignalSpy changes(m_menu.get(), &VxFilterMenu::filterChanged);
    const QSignalSpy triggers(m_first, &QAction::triggered);
    const QSignalSpy toggles(m_first, &QAction::toggled);
    // The moment in which the entry is disabled emits no signal, only the tick does.
    const QSignalSpy looks(m_first, &QAction::changed);
    clickOn(m_first);
    QCOMPARE(looks.count(), 1);
    QVERIFY(m_menu->isVisible());
    QVERIFY(m_first->isChecked());
    QVERIFY(m_first->isEnabled());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(triggers.count(), 1);
    QCOMPARE(toggles.count(), 1);
    clickOn(m_second);
    clickOn(m_first);
    QVERIFY(!m_first->isChecked());
    QVERIFY(m_second->isChecked());
    QCOMPARE(changes.count(), 3);
}

void TestFilterMenu::keepsBlockedSignalsBlocked()
{
    const QSignalSpy triggers(m_first, &QAction::triggered);
    m_first->blockSignals(true);
    clickOn(m_first);
    QVERIFY(m_first->signalsBlocked());
    QCOMPARE(triggers.count(), 0);
}

void TestFilterMenu::disabledEntriesAreLeftAlone()
{
    const QSignalSpy changes(m_menu.get(), &VxFilterMenu::filterChanged);
    m_first->setEnabled(false);
    clickOn(m_first);
    QVERIFY(!m_first->isChecked());
    QVERIFY(!m_first->isEnabled());
    QCOMPARE(changes.count(), 0);
}

void TestFilterMenu::noEntryUnderTheMouse()
{
    const QSignalSpy changes(m_menu.get(), &VxFilterMenu::filterChanged);
    QTest::mouseRelease(m_menu.get(), Qt::LeftButton, Qt::NoModifier,
                        QPoint(5, m_menu->height() + 20));
    QCOMPARE(changes.count(), 0);
}

void TestFilterMenu::notifyingWhileTickingEmitsOnce()
{
    const QSignalSpy changes(m_menu.get(), &VxFilterMenu::filterChanged);
    connect(m_first, &QAction::triggered, m_menu.get(), &VxFilterMenu::notifyFilterChanged);
    clickOn(m_first);
    QCOMPARE(changes.count(), 1);
    m_menu->notifyFilterChanged();
    QCOMPARE(changes.count(), 2);
}

void TestFilterMenu::patterns_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("matches");

    QTest::newRow("anywhere") << "hip"
                              << "lHip" << true;
    QTest::newRow("whatever the case") << "hip"
                                       << "HIP bend" << true;
    QTest::newRow("not there") << "hip"
                               << "head" << false;
    QTest::newRow("typed stars are wildcards") << "l*p"
                                               << "the left lip" << true;
    QTest::newRow("empty matches") << ""
                                   << "anything" << true;
    QTest::newRow("expression minds case") << "rx::^Hip"
                                           << "hip" << false;
    QTest::newRow("expression at the beginning") << "rx::^Hip"
                                                 << "Hip bend" << true;
    QTest::newRow("prefix in capitals") << "RX::^l"
                                        << "lHip" << true;
    QTest::newRow("prefix in capitals minds case") << "RX::^l"
                                                   << "LHip" << false;
    QTest::newRow("expression without case") << "rx::ci::^hip"
                                             << "HIP" << true;
    QTest::newRow("second prefix in capitals") << "rx::CI::^hip"
                                               << "HIP" << true;
    QTest::newRow("wildcard from the beginning") << "wc::l*"
                                                 << "LHip" << true;
    QTest::newRow("wildcard not in the middle") << "wc::l*"
                                                << "rightleg" << false;
    QTest::newRow("wildcard to the end") << "wc::l?ip"
                                         << "LHip" << true;
    QTest::newRow("wildcard not beyond the end") << "wc::l?ip"
                                                 << "lHip bend" << false;
    QTest::newRow("wildcard set") << "wc::[lr]Hip"
                                  << "rhip" << true;
    QTest::newRow("wildcard set without end") << "wc::[lr"
                                              << "[lr" << true;
    QTest::newRow("wildcard set with a backslash") << "wc::[\\]x"
                                                   << "\\x" << true;
    QTest::newRow("wildcard set with a closing bracket") << "wc::[^]a]"
                                                         << "]" << false;
    QTest::newRow("wildcard set with a closing bracket, others") << "wc::[^]a]"
                                                                 << "b" << true;
    QTest::newRow("bracket not closed yet") << "p[l"
                                            << "HIP[left]" << true;
    QTest::newRow("bracket not closed yet, not there") << "p[l"
                                                       << "hip" << false;
    QTest::newRow("typed set") << "[lr]hip"
                               << "the rHip bone" << true;
    QTest::newRow("wildcard with a point") << "wc::a.b"
                                           << "axb" << false;
    QTest::newRow("ci alone is text") << "ci::hip"
                                      << "hip" << false;
    QTest::newRow("ci alone is searched for") << "ci::hip"
                                              << "xci::hipx" << true;
}

// Names are matched as the base class of the filter model does it.
void TestFilterMenu::patterns()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    const QRegExp pattern = dopeSheetFilterPattern(text);
    QTEST(pattern.isEmpty() || name.contains(pattern), "matches");
}

VX_TEST_MAIN(TestFilterMenu)
#include "tst_vxfiltermenu.moc"
