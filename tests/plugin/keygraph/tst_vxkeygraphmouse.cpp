#include "keygraphviewtestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimelineplugin.h"

#include <QtCore/QTimer>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxmenu.h>
#include <vxcore/vxplugin.h>
#include <vxcore/vxviewportmgr.h>

using namespace KeyDrawing;

class TestKeyGraphMouse : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hoveringAKey();
    void hoveringEmptySpace();
    void leavingTheTimeLine();

    void clickSelects();
    void clickOnASelectedKeyKeepsTheSelection();
    void controlClickAdds();
    void altClick_data();
    void altClick();
    void clickOnSpace_data();
    void clickOnSpace();
    void theFirstChannelIsHit();

    void rubberBandSelects();
    void rubberBandWithControl();
    void rubberBandWithAlt();
    void rubberBandIsLive();
    void rubberBandIsPainted();

    void dragOfTheTime();
    void dragOfTheTimeDoesNotPause();

    void panOperation();
    void otherOperationsDoNothing();
    void otherButtonsAreIgnored();

    void menuWithoutChannels();
    void menuEntries();
    void menuDuringADrag();

    void doubleClickOnAKey();
    void doubleClickOnSpace();

    void pressesWithoutChannels();

private:
    QVector<int> selected(int index) const { return selectedOf(channel(index)); }
    QVector<int> frames(const VxProperty *property) const;
    // Opens the context menu and returns its texts; sub-menus as "title>entry".
    QStringList menuTexts(const QPoint &position);

    std::unique_ptr<VxMouseDriver> m_mouse;
};

void TestKeyGraphMouse::init()
{
    setUpView();
    showView();
    m_mouse = std::make_unique<VxMouseDriver>(view.get());
    m_mouse->moveTo(QPoint(790, 290));
}

void TestKeyGraphMouse::cleanup()
{
    m_mouse.reset();
    tearDownView();
}

QVector<int> TestKeyGraphMouse::frames(const VxProperty *property) const
{
    QVector<int> result = timesOf(property);
    for (int &time : result)
        time /= 160;
    return result;
}

QStringList TestKeyGraphMouse::menuTexts(const QPoint &position)
{
    QStringList texts;
    bool seen = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu || seen)
            return;
        seen = true;
        for (const QAction *action : menu->actions()) {
            texts += action->isSeparator() ? QStringLiteral("-") : action->text();
            if (!action->menu())
                continue;
            for (const QAction *sub : action->menu()->actions())
                texts +=
                    QLatin1Char('>') + (sub->isSeparator() ? QStringLiteral("-") : sub->text());
        }
        menu->close();
    });
    timer.start(5);
    m_mouse->press(position, Qt::RightButton);
    m_mouse->release(position, Qt::RightButton);
    return texts;
}

void TestKeyGraphMouse::hoveringAKey()
{
    showProperties({makeKeys(x(), ".....a....b")});
    m_mouse->moveTo(placeOfKey(x(), 0));
    QCOMPARE(view->cursor().shape(), Qt::PointingHandCursor);
    m_mouse->moveTo(placeOfKey(x(), 0) + QPoint(4, 4));
    QCOMPARE(view->cursor().shape(), Qt::PointingHandCursor);
    m_mouse->moveTo(placeOfKey(x(), 0) + QPoint(5, 0));
    QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
}

void TestKeyGraphMouse::hoveringEmptySpace()
{
    m_mouse->moveTo(QPoint(100, 100));
    QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(!view->testAttribute(Qt::WA_SetCursor));
}

void TestKeyGraphMouse::leavingTheTimeLine()
{
    m_mouse->moveTo(placeOf(60, 0));
    QCOMPARE(view->cursor().shape(), Qt::SplitHCursor);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view.get(), &leave);
    QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
}

void TestKeyGraphMouse::clickSelects()
{
    showProperties({makeKeys(x(), "..a..b..c"), makeKeys(y(), ".d....e")});
    m_mouse->click(placeOfKey(x(), 0));
    m_mouse->click(placeOfKey(y(), 1));
    m_mouse->click(placeOfKey(x(), 1));
    QCOMPARE(selected(0), QVector<int>{1});
    QCOMPARE(selected(1), QVector<int>());
    QCOMPARE(undoTexts(), QStringList());
    QVERIFY(messages.last().clearSelection);
    QCOMPARE(messages.last().selectedKeys.value(x()), QVector<qint32>{1});
    QCOMPARE(messages.last().selectedKeys.size(), 1);
    QVERIFY(!graph->getKeyCommunication()->isMuted());
}

void TestKeyGraphMouse::clickOnASelectedKeyKeepsTheSelection()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    select(channel(0), {0, 1});
    m_mouse->click(placeOfKey(x(), 1));
    QCOMPARE(selected(0), QVector<int>({0, 1}));
    QCOMPARE(messages.size(), 1);
    QVERIFY(!messages.at(0).clearSelection);
    QVERIFY(messages.at(0).selectedKeys.isEmpty() && messages.at(0).deselectedKeys.isEmpty());
}

void TestKeyGraphMouse::controlClickAdds()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    m_mouse->click(placeOfKey(x(), 0));
    m_mouse->click(placeOfKey(x(), 2), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selected(0), QVector<int>({0, 2}));
    QVERIFY(!messages.last().clearSelection);
    QCOMPARE(messages.last().selectedKeys.value(x()), QVector<qint32>{2});
}

void TestKeyGraphMouse::altClick_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("on a selected key") << 1;
    QTest::newRow("on an unselected key") << 2;
}

void TestKeyGraphMouse::altClick()
{
    QFETCH(int, key);
    showProperties({makeKeys(x(), "..a..b..c")});
    select(channel(0), {0, 1});
    m_mouse->click(placeOfKey(x(), key), Qt::LeftButton, Qt::AltModifier);
    QCOMPARE(selected(0), key == 1 ? QVector<int>{0} : QVector<int>({0, 1}));
    QCOMPARE(messages.last().deselectedKeys.value(x()), QVector<qint32>{key});
    QVERIFY(messages.last().selectedKeys.isEmpty());
    QVERIFY(!messages.last().clearSelection);
}

void TestKeyGraphMouse::clickOnSpace_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("clears");
    QTest::newRow("plain") << Qt::KeyboardModifiers() << true;
    QTest::newRow("Shift") << Qt::KeyboardModifiers(Qt::ShiftModifier) << true;
    QTest::newRow("Ctrl") << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
    QTest::newRow("Alt") << Qt::KeyboardModifiers(Qt::AltModifier) << false;
}

void TestKeyGraphMouse::clickOnSpace()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, clears);
    showProperties({makeKeys(x(), "..a..b..c"), makeKeys(y(), ".d....e")});
    select(channel(0), {0, 1});
    select(channel(1), {1});
    m_mouse->click(QPoint(400, 50), Qt::LeftButton, modifiers);
    QCOMPARE(selected(0).isEmpty(), clears);
    QCOMPARE(selected(1).isEmpty(), clears);
    QCOMPARE(messages.at(0).clearSelection, clears);
    QCOMPARE(undoTexts(), QStringList());
}

void TestKeyGraphMouse::theFirstChannelIsHit()
{
    x()->setKey(160, 10.0f, VxKeyInterp::Linear);
    y()->setKey(160, 10.0f, VxKeyInterp::Linear);
    showProperties({y(), x()});
    m_mouse->click(placeOf(1, 10));
    QCOMPARE(selected(0), QVector<int>{0});
    QCOMPARE(selected(1), QVector<int>());
}

void TestKeyGraphMouse::rubberBandSelects()
{
    showProperties({makeKeys(x(), "..a..b..c..d"), makeKeys(y(), "....e..f")});
    select(channel(0), {3});
    m_mouse->drag(placeOf(4, 3), placeOf(9, 9));
    QCOMPARE(selected(0), QVector<int>({1, 2}));
    QCOMPARE(selected(1), QVector<int>({0, 1}));
    QVERIFY(messages.at(0).clearSelection);
    QCOMPARE(undoTexts(), QStringList());
    // From the right lower corner to the left upper one.
    m_mouse->drag(placeOf(9, 7), placeOf(6, 9));
    QCOMPARE(selected(0), QVector<int>{2});
}

void TestKeyGraphMouse::rubberBandWithControl()
{
    showProperties({makeKeys(x(), "..a..b..c..d")});
    select(channel(0), {3});
    m_mouse->drag(placeOf(4, 3), placeOf(9, 9), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selected(0), QVector<int>({1, 2, 3}));
}

void TestKeyGraphMouse::rubberBandWithAlt()
{
    showProperties({makeKeys(x(), "..a..b..c..d")});
    select(channel(0), {1, 3});
    m_mouse->drag(placeOf(4, 3), placeOf(9, 9), Qt::LeftButton, Qt::AltModifier);
    QCOMPARE(selected(0), QVector<int>{3});
}

void TestKeyGraphMouse::rubberBandIsLive()
{
    showProperties({makeKeys(x(), "..a..b..c..d")});
    select(channel(0), {1});
    m_mouse->press(placeOf(1, 1), Qt::LeftButton, Qt::ControlModifier);
    m_mouse->moveTo(placeOf(12, 12), Qt::ControlModifier);
    QCOMPARE(selected(0), QVector<int>({0, 1, 2, 3}));
    m_mouse->moveTo(placeOf(3, 3), Qt::ControlModifier);
    QCOMPARE(selected(0), QVector<int>({0, 1}));
    QCOMPARE(messages.last().deselectedKeys.value(x()), QVector<qint32>({2, 3}));
    m_mouse->moveTo(placeOf(12, 12), Qt::AltModifier);
    QCOMPARE(selected(0), QVector<int>());
    m_mouse->moveTo(placeOf(0, 0), Qt::AltModifier);
    QCOMPARE(selected(0), QVector<int>{1});
    m_mouse->release(placeOf(0, 0));
}

void TestKeyGraphMouse::rubberBandIsPainted()
{
    RecordingStyle style;
    view->setStyle(&style);
    m_mouse->press(QPoint(200, 200));
    m_mouse->moveTo(QPoint(150, 100));
    style.bands.clear();
    view->grab();
    QCOMPARE(style.bands, QVector<QRect>{QRect(QPoint(200, 200), QPoint(150, 100)).normalized()});
    m_mouse->release(QPoint(150, 100));
    style.bands.clear();
    view->grab();
    QVERIFY(style.bands.isEmpty());
    view->setStyle(nullptr);
}

void TestKeyGraphMouse::dragOfTheTime()
{
    showProperties({makeKeys(x(), "..a..b")});
    select(channel(0), {0});
    const QPoint line = placeOf(60, 0);
    m_mouse->moveTo(line + QPoint(2, -50));
    m_mouse->press(line + QPoint(2, -50));
    m_mouse->moveTo(line + QPoint(-96, -50));
    QCOMPARE(vxScene->getTime(), 160 * 50);
    m_mouse->moveTo(QPoint(790, 100));
    QCOMPARE(vxScene->getTime(), 160 * 70);
    m_mouse->moveTo(QPoint(-50, 100));
    QCOMPARE(vxScene->getTime(), 0);
    m_mouse->release(QPoint(-50, 100));
    QCOMPARE(selected(0), QVector<int>{0});
    QCOMPARE(undoTexts(), QStringList());
}

void TestKeyGraphMouse::dragOfTheTimeDoesNotPause()
{
    vxScene->play();
    const QPoint line(qRound(view->getScale().x(vxScene->getTime())), 100);
    m_mouse->moveTo(line);
    m_mouse->press(line);
    m_mouse->moveTo(line + QPoint(-30, 0));
    QVERIFY(vxScene->isPlaying());
    m_mouse->release(line);
    vxScene->pause();
}

void TestKeyGraphMouse::panOperation()
{
    showProperties({makeKeys(x(), "..a..b")});
    select(channel(0), {0});
    const KeyGraphScale former = view->getScale();
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(40, 25), Qt::MiddleButton);
    QCOMPARE(view->getScale().offsetY, former.offsetY + 25);
    QCOMPARE(view->getScale().offsetX, former.offsetX);
    QCOMPARE(frames(x()), QVector<int>({2, 5}));
    QCOMPARE(selected(0), QVector<int>{0});
    QCOMPARE(messages.size(), 0);
    QVERIFY(!QWidget::mouseGrabber());
}

void TestKeyGraphMouse::otherOperationsDoNothing()
{
    VxViewportMgr *manager = window->getViewportMgr();
    manager->setOperation(manager->getMouseBtnAccelerator(Qt::LeftButton, Qt::MetaModifier),
                          VxViewportMgr::Orbit);
    showProperties({makeKeys(x(), "..a..b")});
    const KeyGraphScale former = view->getScale();
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(40, 25), Qt::LeftButton,
                  Qt::MetaModifier);
    QVERIFY(view->getScale() == former);
    QCOMPARE(selected(0), QVector<int>());
    QCOMPARE(messages.size(), 0);
}

void TestKeyGraphMouse::otherButtonsAreIgnored()
{
    showProperties({makeKeys(x(), "..a..b")});
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(40, 25), Qt::BackButton);
    QCOMPARE(selected(0), QVector<int>());
    QCOMPARE(frames(x()), QVector<int>({2, 5}));
    QCOMPARE(messages.size(), 0);
}

void TestKeyGraphMouse::menuWithoutChannels()
{
    QCOMPARE(menuTexts(QPoint(300, 100)), QStringList{"No Selection"});
}

void TestKeyGraphMouse::menuEntries()
{
    for (const VxClassFactory *factory : getPluginDefinition()->getClassFactories()) {
        QObject *instance = factory->createInstance();
        if (auto *action = qobject_cast<VxAction *>(instance))
            window->getActionMgr()->addAction(action);
        else
            delete instance; // the pane itself
    }
    const auto text = [this](const char *name) {
        const VxAction *action = window->getActionMgr()->findAction(QLatin1String(name));
        return action ? action->text() : QStringLiteral("missing");
    };
    showProperties({makeKeys(x(), "..a..b")});
    const QStringList expected = {
        text("VxTimePaneFrameGraphKeysAction"),
        "-",
        text("VxTimePaneCreateKeysAction"),
        "-",
        "Key Creation Scope",
        ">" + text("VxTimePaneSetKeyScopeObjectAction"),
        ">" + text("VxTimePaneSetKeyScopeNodeRecurseAction"),
        ">" + text("VxTimePaneSetKeyScopeNodeAction"),
        ">-",
        ">" + text("VxTimePaneSetKeyScopePropertiesAction"),
        "-",
        text("VxTimePaneDeleteSelectedKeysAction"),
        "-",
        text("VxTimePaneCopySelectedKeysAction"),
        text("VxTimePanePasteKeysAction"),
        "-",
        "Set Key Interpolation",
        ">" + text("VxTimePaneSetInterpTcbAction"),
        ">" + text("VxTimePaneSetInterpLinearAction"),
        ">" + text("VxTimePaneSetInterpConstantAction"),
    };
    QVERIFY(!expected.contains(QStringLiteral("missing")));
    QCOMPARE(menuTexts(QPoint(300, 100)), expected);
    QVERIFY(!view->findChild<VxMenu *>());
}

void TestKeyGraphMouse::menuDuringADrag()
{
    showProperties({makeKeys(x(), "..a..b")});
    const QPoint start = placeOfKey(x(), 1);
    m_mouse->press(start);
    m_mouse->moveTo(start + QPoint(20, 0));
    menuTexts(start + QPoint(20, 0));
    QCOMPARE(undoTexts(), QStringList{"Move Keys"});
    m_mouse->moveTo(start + QPoint(60, 0));
    m_mouse->release(start + QPoint(60, 0));
    QCOMPARE(frames(x()), QVector<int>({2, 7}));
}

void TestKeyGraphMouse::doubleClickOnAKey()
{
    showProperties({makeKeys(x(), "..a..b")});
    vxScene->setTime(160 * 60);
    m_mouse->doubleClick(placeOfKey(x(), 1) + QPoint(3, 0));
    QCOMPARE(vxScene->getTime(), 160 * 5);
    QVERIFY(!QWidget::mouseGrabber());
    QCOMPARE(undoTexts(), QStringList());
    vxScene->setPlayRange(VxTimeRange(160 * 3, 160 * 70));
    m_mouse->doubleClick(placeOfKey(x(), 0));
    QCOMPARE(vxScene->getTime(), 160 * 3);
}

void TestKeyGraphMouse::doubleClickOnSpace()
{
    showProperties({makeKeys(x(), "..a..b")});
    vxScene->setTime(160 * 60);
    m_mouse->doubleClick(QPoint(300, 60));
    QCOMPARE(vxScene->getTime(), 160 * 60);
    QVERIFY(!QWidget::mouseGrabber());
}

void TestKeyGraphMouse::pressesWithoutChannels()
{
    m_mouse->drag(QPoint(100, 100), QPoint(200, 200));
    QCOMPARE(undoTexts(), QStringList());
    const QPoint line = placeOf(60, 0);
    m_mouse->moveTo(line);
    m_mouse->drag(line, line + QPoint(-100, 0));
    QCOMPARE(vxScene->getTime(), 160 * 50);
}

VX_TEST_MAIN(TestKeyGraphMouse)
#include "tst_vxkeygraphmouse.moc"
