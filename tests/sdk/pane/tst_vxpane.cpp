#include "pane/vxpanebands.h"
#include "testing/vxmenuactions.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QVBoxLayout>
#include <QtTest>
#include <vxcore/vxactionmenu.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxstyle.h>

class MenuPane : public VxPane
{
    Q_OBJECT
public:
    MenuPane()
        : VxPane(QStringLiteral("Menu Pane"))
    {
    }
    void buildOptionsMenu(VxActionMenu *menu) override
    {
        ++numBuilds;
        menu->insertAction(version < 2 ? QStringLiteral("AlphaAction")
                                       : QStringLiteral("BetaAction"));
    }
    int getOptionsMenuVersion() const override { return version; }

    int version = 1;
    int numBuilds = 0;
};

/// A pane with three widgets one above the other, without gaps: 100 wide, 30 + 40 + 30 high.
class StackedPane : public VxPane
{
    Q_OBJECT
public:
    StackedPane()
        : VxPane(QStringLiteral("Stacked"))
    {
        QVBoxLayout *layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        for (QWidget **part : {&top, &middle, &bottom}) {
            *part = new QWidget;
            layout->addWidget(*part);
            (*part)->setFixedHeight(part == &middle ? 40 : 30);
        }
        resize(100, 100);
    }
    QWidget *top = nullptr;
    QWidget *middle = nullptr;
    QWidget *bottom = nullptr;
};

class tst_VxPane : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void hasATitle();
    void bands_data();
    void bands();
    void guidesAreStored();
    void footerBandIsBelowItsGuide();
    void headerBandIsAboveItsGuide();
    void withoutGuideThereIsNoBand();
    void aHiddenGuideDrawsNoBand();
    void aDestroyedGuideIsUnset();
    void repaintsWhenTheGuideMoves();
    void optionsMenuIsBuiltOnce();
    void optionsMenuIsBuiltAnewForAnotherVersion();
    void plainPaneHasAnEmptyMenu();

private:
    QColor colorAt(QWidget &pane, int y) const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<VxMainWindow> m_window;
};

void tst_VxPane::init()
{
    m_guard.reset(new VxWarningGuard);
    m_app.reset(new VxApp);
    m_window.reset(new VxMainWindow);
    m_window->getActionMgr()->addAction(new AlphaAction);
    m_window->getActionMgr()->addAction(new BetaAction);
}

void tst_VxPane::cleanup()
{
    m_window.reset();
    m_app.reset();
    m_guard.reset();
}

QColor tst_VxPane::colorAt(QWidget &pane, int y) const
{
    return QColor(pane.grab().toImage().pixel(50, y));
}

void tst_VxPane::hasATitle()
{
    const MenuPane pane;
    QCOMPARE(pane.getTitle(), QStringLiteral("Menu Pane"));
    QCOMPARE(pane.windowTitle(), QStringLiteral("Menu Pane"));
    QCOMPARE(pane.property("title").toString(), QStringLiteral("Menu Pane"));
}

void tst_VxPane::bands_data()
{
    QTest::addColumn<QRect>("guide");
    QTest::addColumn<QRect>("header");
    QTest::addColumn<QRect>("footer");
    QTest::newRow("in the middle")
        << QRect(0, 30, 100, 40) << QRect(0, 0, 100, 30) << QRect(0, 70, 100, 30);
    QTest::newRow("at the top") << QRect(0, 0, 100, 40) << QRect() << QRect(0, 40, 100, 60);
    QTest::newRow("at the bottom") << QRect(0, 60, 100, 40) << QRect(0, 0, 100, 60) << QRect();
    QTest::newRow("above the pane") << QRect(0, -50, 100, 40) << QRect() << QRect(0, 0, 100, 100);
    QTest::newRow("below the pane") << QRect(0, 150, 100, 40) << QRect(0, 0, 100, 100) << QRect();
    QTest::newRow("as large as the pane") << QRect(0, 0, 100, 100) << QRect() << QRect();
}

void tst_VxPane::bands()
{
    QFETCH(QRect, guide);
    const QRect pane(0, 0, 100, 100);
    QTEST(VxPaneBands::header(pane, guide), "header");
    QTEST(VxPaneBands::footer(pane, guide), "footer");
}

void tst_VxPane::guidesAreStored()
{
    StackedPane pane;
    QVERIFY(!pane.getBackgroundHeaderGuide());
    QVERIFY(!pane.getBackgroundFooterGuide());
    pane.setBackgroundHeaderGuide(pane.top);
    pane.setBackgroundFooterGuide(pane.middle);
    QCOMPARE(pane.getBackgroundHeaderGuide(), pane.top);
    QCOMPARE(pane.getBackgroundFooterGuide(), pane.middle);
    pane.setBackgroundHeaderGuide(nullptr);
    QVERIFY(!pane.getBackgroundHeaderGuide());
}

void tst_VxPane::footerBandIsBelowItsGuide()
{
    StackedPane pane;
    pane.setBackgroundFooterGuide(pane.middle);
    QCOMPARE(colorAt(pane, 10), pane.palette().color(QPalette::Window));
    QCOMPARE(colorAt(pane, 69), pane.palette().color(QPalette::Window));
    QCOMPARE(colorAt(pane, 70), pane.palette().color(QPalette::Dark));
    QCOMPARE(colorAt(pane, 71), pane.palette().color(QPalette::Button));
    QCOMPARE(colorAt(pane, 99), pane.palette().color(QPalette::Button));
    QVERIFY(pane.palette().color(QPalette::Button) != pane.palette().color(QPalette::Window));
}

void tst_VxPane::headerBandIsAboveItsGuide()
{
    StackedPane pane;
    pane.setBackgroundHeaderGuide(pane.middle);
    QCOMPARE(colorAt(pane, 0), pane.palette().color(QPalette::Button));
    QCOMPARE(colorAt(pane, 28), pane.palette().color(QPalette::Button));
    QCOMPARE(colorAt(pane, 29), pane.palette().color(QPalette::Dark));
    QCOMPARE(colorAt(pane, 30), pane.palette().color(QPalette::Window));
    QCOMPARE(colorAt(pane, 99), pane.palette().color(QPalette::Window));
}

void tst_VxPane::withoutGuideThereIsNoBand()
{
    StackedPane pane;
    pane.setBackgroundFooterGuide(pane.middle);
    pane.setBackgroundFooterGuide(nullptr);
    QCOMPARE(colorAt(pane, 90), pane.palette().color(QPalette::Window));
}

void tst_VxPane::aHiddenGuideDrawsNoBand()
{
    StackedPane pane;
    pane.setBackgroundFooterGuide(pane.middle);
    pane.middle->hide();
    QCOMPARE(colorAt(pane, 99), pane.palette().color(QPalette::Window));
    QWidget stranger;
    pane.setBackgroundFooterGuide(&stranger);
    QCOMPARE(colorAt(pane, 99), pane.palette().color(QPalette::Window));
}

void tst_VxPane::aDestroyedGuideIsUnset()
{
    StackedPane pane;
    pane.setBackgroundFooterGuide(pane.bottom);
    delete pane.bottom;
    QVERIFY(!pane.getBackgroundFooterGuide());
    QCOMPARE(colorAt(pane, 99), pane.palette().color(QPalette::Window));
}

void tst_VxPane::repaintsWhenTheGuideMoves()
{
    StackedPane pane;
    pane.setBackgroundFooterGuide(pane.middle);
    pane.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane));
    QCoreApplication::processEvents();
    // Below the rows that the guide leaves over: no other widget paints those.
    class PaintCounter : public QObject
    {
    public:
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Paint &&
                static_cast<QPaintEvent *>(event)->region().contains(QPoint(50, 90)))
                ++count;
            return false;
        }
    } counter;
    pane.installEventFilter(&counter);
    pane.middle->move(0, 10);
    QTRY_VERIFY(counter.count > 0);
}

void tst_VxPane::optionsMenuIsBuiltOnce()
{
    MenuPane pane;
    QCOMPARE(pane.numBuilds, 0);
    VxActionMenu *menu = pane.getOptionsMenu();
    QCOMPARE(pane.getOptionsMenu(), menu);
    QCOMPARE(shownEntries(menu->getMenu()), QStringLiteral("Alpha"));
    menu->getMenu()->popup(QPoint(10, 10));
    menu->getMenu()->close();
    QCOMPARE(pane.numBuilds, 1);
    QCOMPARE(menu->parent(), &pane);
}

void tst_VxPane::optionsMenuIsBuiltAnewForAnotherVersion()
{
    MenuPane pane;
    QMenu *popup = pane.getOptionsMenu()->getMenu();
    pane.version = 2;
    popup->popup(QPoint(10, 10));
    QCOMPARE(shownEntries(popup), QStringLiteral("Beta"));
    popup->close();
    QCOMPARE(pane.numBuilds, 2);
}

void tst_VxPane::plainPaneHasAnEmptyMenu()
{
    StackedPane pane;
    QCOMPARE(pane.getOptionsMenuVersion(), 0);
    QVERIFY(pane.getOptionsMenu()->getMenu()->isEmpty());
    pane.updateTimeFields();
    pane.restoreSettings(nullptr);
    pane.saveSettings(nullptr);
}

VX_TEST_MAIN(tst_VxPane)
#include "tst_vxpane.moc"
