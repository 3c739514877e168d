#include "menutestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QtTest>
#include <functional>
#include <vxcore/vxmenu.h>

namespace {

/** Calls the function as soon as a menu has been popped up, with that menu. */
void whenShown(const std::function<void(QMenu *)> &function)
{
    QTimer::singleShot(0, qApp, [function] {
        QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        function(menu);
    });
}

void clickEntry(QMenu *menu, const char *text)
{
    for (QAction *entry : menu->actions()) {
        if (entry->text() == QLatin1String(text)) {
            VxMouseDriver(menu).click(menu->actionGeometry(entry).center());
            return;
        }
    }
    QFAIL("There is no such entry");
}

} // namespace

class tst_VxMenu : public QObject, private MenuTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void addsActionsByClassName();
    void unknownActionsAreLeftOut();
    void withoutApplicationNothingIsRegistered();
    void separatorsAreBetweenEntries();
    void emptiness();
    void execGivesTheItemsIdentifier();
    void execTriggersAnAction();
    void escapeChoosesNothing();
    void itemsWithoutIdentifierGiveNone();
    void anItemOfASubMenuIsChosen();
    void emptySubMenusAreNotShown();
    void actionsOutliveTheMenu();
};

void tst_VxMenu::addsActionsByClassName()
{
    VxMenu menu(QStringLiteral("Title"));
    QCOMPARE(menu.addAction(alphaClass), m_alpha);
    menu.addAction(betaClass, -1);
    menu.addAction(gammaClass, 1);
    QCOMPARE(shownEntries(&menu), QStringLiteral("Alpha Gamma Beta"));
    QCOMPARE(menu.title(), QStringLiteral("Title"));
}

void tst_VxMenu::unknownActionsAreLeftOut()
{
    VxMenu menu;
    QVERIFY(!menu.addAction(QStringLiteral("UnknownAction")));
    QVERIFY(menu.actions().isEmpty());
}

void tst_VxMenu::withoutApplicationNothingIsRegistered()
{
    m_window.reset();
    m_app.reset();
    VxMenu menu;
    QVERIFY(!menu.addAction(alphaClass));
}

void tst_VxMenu::separatorsAreBetweenEntries()
{
    VxMenu menu;
    menu.addSeparator();
    menu.addAction(alphaClass);
    menu.addSeparator();
    menu.addSeparator();
    menu.addItem(QStringLiteral("Item"));
    QCOMPARE(shownEntries(&menu), QStringLiteral("Alpha - Item"));
}

void tst_VxMenu::emptiness()
{
    VxMenu menu;
    QVERIFY(menu.isEmpty());
    VxMenu *sub = menu.addSubMenu(QStringLiteral("Sub"));
    menu.addSeparator();
    QVERIFY(menu.isEmpty());
    sub->addSubMenu(QStringLiteral("Deeper"))->addAction(alphaClass);
    QVERIFY(!menu.isEmpty());
    VxMenu other;
    other.addItem(QStringLiteral("No Selection"));
    QVERIFY(!other.isEmpty());
}

void tst_VxMenu::execGivesTheItemsIdentifier()
{
    VxMenu menu;
    menu.addItem(QStringLiteral("One"), 1);
    menu.addItem(QStringLiteral("Seven"), 7);
    menu.addAction(alphaClass);
    whenShown([](QMenu *shown) { clickEntry(shown, "Seven"); });
    QCOMPARE(menu.exec(QPoint(20, 20)), 7);
    QCOMPARE(m_alpha->numRuns, 0);
}

void tst_VxMenu::execTriggersAnAction()
{
    VxMenu menu;
    menu.addItem(QStringLiteral("One"), 1);
    menu.addAction(alphaClass);
    whenShown([](QMenu *shown) { clickEntry(shown, "Alpha"); });
    QCOMPARE(menu.exec(QPoint(20, 20)), -1);
    QCOMPARE(m_alpha->numRuns, 1);
}

void tst_VxMenu::escapeChoosesNothing()
{
    VxMenu menu;
    menu.addItem(QStringLiteral("One"), 1);
    whenShown([](QMenu *shown) { QTest::keyClick(shown, Qt::Key_Escape); });
    QCOMPARE(menu.exec(QPoint(20, 20)), -1);
}

void tst_VxMenu::itemsWithoutIdentifierGiveNone()
{
    VxMenu menu;
    menu.addItem(QStringLiteral("No Selection"));
    whenShown([](QMenu *shown) { clickEntry(shown, "No Selection"); });
    QCOMPARE(menu.exec(QPoint(20, 20)), -1);
}

void tst_VxMenu::anItemOfASubMenuIsChosen()
{
    VxMenu menu;
    VxMenu *sub = menu.addSubMenu(QStringLiteral("Sub"));
    sub->addItem(QStringLiteral("Inner"), 42);
    whenShown([](QMenu *shown) {
        QTest::keyClick(shown, Qt::Key_Down);
        QTest::keyClick(shown, Qt::Key_Right);
        QWidget *inner = QApplication::activePopupWidget();
        QVERIFY(inner != shown);
        QTest::keyClick(inner, Qt::Key_Return);
    });
    QCOMPARE(menu.exec(QPoint(20, 20)), 42);
}

void tst_VxMenu::emptySubMenusAreNotShown()
{
    VxMenu menu;
    menu.addSubMenu(QStringLiteral("Empty"))->addAction(QStringLiteral("UnknownAction"));
    VxMenu *full = menu.addSubMenu(QStringLiteral("Full"));
    full->addSubMenu(QStringLiteral("Empty, too"));
    full->addAction(betaClass);
    menu.addAction(alphaClass);
    QString shown;
    whenShown([&shown](QMenu *popup) {
        shown = shownEntries(popup);
        popup->close();
    });
    menu.exec(QPoint(20, 20));
    QCOMPARE(shown, QStringLiteral("Full(Beta) Alpha"));
}

void tst_VxMenu::actionsOutliveTheMenu()
{
    {
        VxMenu menu;
        menu.addAction(alphaClass);
    }
    QCOMPARE(m_window->getActionMgr()->findAction(alphaClass), m_alpha);
    m_alpha->trigger();
    QCOMPARE(m_alpha->numRuns, 1);
}

VX_TEST_MAIN(tst_VxMenu)
#include "tst_vxmenu.moc"
