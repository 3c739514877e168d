#include "menutestbase.h"
#include "testing/vxtestmain.h"

#include <QtTest>
#include <vxcore/vxactionmenu.h>

namespace {

const QString unknown = QStringLiteral("UnknownAction");

/** The description as text: "-" for a separator, "Title(...)" for a sub-menu. */
QString described(const VxActionMenu &menu)
{
    QStringList entries;
    for (int i = 0; i < menu.getNumEntries(); ++i) {
        switch (menu.getEntryKind(i)) {
        case VxActionMenu::EntryKind::Action:
            entries.append(menu.getEntryName(i));
            break;
        case VxActionMenu::EntryKind::Separator:
            entries.append(QStringLiteral("-"));
            break;
        case VxActionMenu::EntryKind::SubMenu:
            entries.append(
                QStringLiteral("%1(%2)").arg(menu.getEntryName(i), described(*menu.getSubMenu(i))));
            break;
        }
    }
    return entries.join(QLatin1Char(' ')).remove(QStringLiteral("Action"));
}

/** As a pane builds its options menu. */
void build(VxActionMenu &menu)
{
    VxActionMenu *options = menu.findOrCreateSubMenu(QStringLiteral("Options"), true);
    options->insertAction(alphaClass);
    options->insertSeparator();
    options->insertAction(betaClass);
    options->insertSeparator();
    menu.insertSeparator();
    menu.insertAction(betaClass);
    menu.insertSeparator();
    menu.insertAction(alphaClass);
    menu.insertAction(unknown);
    menu.insertSeparator();
    menu.insertAction(gammaClass);
}

} // namespace

class tst_VxActionMenu : public QObject, private MenuTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void describesEntriesInOrder();
    void insertsAtAnIndex_data();
    void insertsAtAnIndex();
    void anActionIsMovedNotDoubled();
    void separatorsAreNeverAdjacent();
    void subMenusAreFoundByTitle();
    void buildingTwiceChangesNothing();
    void rebuildingKeepsAppendedEntries();
    void queriesOutsideAreEmpty();
    void menuOmitsUnregisteredActions();
    void subMenusWithoutContentsAreLeftOut();
    void menuFollowsTheDescriptionWhenShown();
    void aboutToFillIsTheLastMoment();
    void withoutMainWindowTheMenuIsEmpty();
    void copiesToAnotherMenu();
    void copyingAgainLeavesNoSubMenusBehind();
    void triggersTheAction();
    void setMenuTakesOwnership();
    void aHandedOverSubMenuIsUsed();
    void aDestroyedMenuIsRemoved();
    void clearDestroysSubMenus();
};

void tst_VxActionMenu::describesEntriesInOrder()
{
    VxActionMenu menu(QStringLiteral("Title"));
    build(menu);
    QCOMPARE(menu.getTitle(), QStringLiteral("Title"));
    QCOMPARE(described(menu), QStringLiteral("Options(Alpha - Beta -) - Beta - Alpha Unknown - "
                                             "Gamma"));
}

void tst_VxActionMenu::insertsAtAnIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first") << 0 << "Gamma Alpha Beta";
    QTest::newRow("between") << 1 << "Alpha Gamma Beta";
    QTest::newRow("at the end") << 2 << "Alpha Beta Gamma";
    QTest::newRow("beyond the end appends") << 3 << "Alpha Beta Gamma";
    QTest::newRow("negative appends") << -1 << "Alpha Beta Gamma";
}

void tst_VxActionMenu::insertsAtAnIndex()
{
    QFETCH(int, index);
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    menu.insertAction(betaClass);
    menu.insertAction(gammaClass, index);
    QTEST(described(menu), "expected");
}

void tst_VxActionMenu::anActionIsMovedNotDoubled()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    menu.insertAction(betaClass);
    menu.insertAction(gammaClass);
    menu.insertAction(gammaClass, 0);
    QCOMPARE(described(menu), QStringLiteral("Gamma Alpha Beta"));
    menu.insertAction(gammaClass, 2);
    QCOMPARE(described(menu), QStringLiteral("Alpha Gamma Beta"));
    menu.insertAction(alphaClass);
    QCOMPARE(described(menu), QStringLiteral("Alpha Gamma Beta"));
    menu.insertAction(QString());
    QCOMPARE(menu.getNumEntries(), 3);
}

void tst_VxActionMenu::separatorsAreNeverAdjacent()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    menu.insertAction(betaClass);
    menu.insertSeparator(1);
    menu.insertSeparator(1);
    menu.insertSeparator(2);
    QCOMPARE(described(menu), QStringLiteral("Alpha - Beta"));
    menu.insertSeparator();
    menu.insertSeparator();
    QCOMPARE(described(menu), QStringLiteral("Alpha - Beta -"));
}

void tst_VxActionMenu::subMenusAreFoundByTitle()
{
    VxActionMenu menu;
    QVERIFY(!menu.findOrCreateSubMenu(QStringLiteral("Sub"), false));
    VxActionMenu *sub = menu.findOrCreateSubMenu(QStringLiteral("Sub"));
    QVERIFY(sub);
    QCOMPARE(sub->getTitle(), QStringLiteral("Sub"));
    QCOMPARE(sub->parent(), &menu);
    QCOMPARE(menu.findOrCreateSubMenu(QStringLiteral("Sub")), sub);
    QCOMPARE(menu.findOrCreateSubMenu(QStringLiteral("Sub"), false), sub);
    QCOMPARE(menu.getNumEntries(), 1);
}

void tst_VxActionMenu::buildingTwiceChangesNothing()
{
    VxActionMenu menu;
    build(menu);
    const QString once = described(menu);
    build(menu);
    build(menu);
    QCOMPARE(described(menu), once);
}

void tst_VxActionMenu::rebuildingKeepsAppendedEntries()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    menu.insertSeparator();
    menu.insertAction(betaClass);
    menu.insertAction(gammaClass);
    menu.insertAction(alphaClass);
    menu.insertSeparator();
    menu.insertAction(betaClass);
    QCOMPARE(described(menu), QStringLiteral("Alpha - Beta Gamma"));
}

void tst_VxActionMenu::queriesOutsideAreEmpty()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    QVERIFY(menu.getEntryName(-1).isEmpty());
    QVERIFY(menu.getEntryName(1).isEmpty());
    QVERIFY(!menu.getSubMenu(0));
    QVERIFY(!menu.getSubMenu(1));
    QVERIFY(menu.getEntryKind(1) == VxActionMenu::EntryKind::Separator);
}

void tst_VxActionMenu::menuOmitsUnregisteredActions()
{
    VxActionMenu menu(QStringLiteral("Title"));
    menu.insertSeparator();
    menu.insertAction(alphaClass);
    menu.insertSeparator();
    menu.insertAction(unknown);
    menu.insertSeparator();
    menu.insertAction(betaClass);
    menu.insertSeparator();
    QCOMPARE(shownEntries(menu.getMenu()), QStringLiteral("Alpha - Beta"));
    QCOMPARE(menu.getMenu()->title(), QStringLiteral("Title"));
    QCOMPARE(menu.getMenu(), menu.getMenu());
}

void tst_VxActionMenu::subMenusWithoutContentsAreLeftOut()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    menu.insertSeparator();
    VxActionMenu *sub = menu.findOrCreateSubMenu(QStringLiteral("Sub"));
    sub->insertAction(unknown);
    sub->insertSeparator();
    sub->findOrCreateSubMenu(QStringLiteral("Deeper"));
    QCOMPARE(shownEntries(menu.getMenu()), QStringLiteral("Alpha"));
}

void tst_VxActionMenu::menuFollowsTheDescriptionWhenShown()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    QMenu *popup = menu.getMenu();
    menu.insertAction(betaClass);
    menu.findOrCreateSubMenu(QStringLiteral("Sub"))->insertAction(gammaClass);
    QCOMPARE(shownEntries(popup), QStringLiteral("Alpha"));
    popup->popup(QPoint(10, 10));
    QTRY_VERIFY(popup->isVisible());
    QCOMPARE(shownEntries(popup), QStringLiteral("Alpha Beta Sub(Gamma)"));
    popup->close();
    popup->popup(QPoint(10, 10));
    QCOMPARE(shownEntries(popup), QStringLiteral("Alpha Beta Sub(Gamma)"));
    popup->close();
    delete m_window->getActionMgr()->findAction(betaClass);
    popup->popup(QPoint(10, 10));
    QCOMPARE(shownEntries(popup), QStringLiteral("Alpha Sub(Gamma)"));
    popup->close();
}

void tst_VxActionMenu::aboutToFillIsTheLastMoment()
{
    VxActionMenu menu;
    connect(&menu, &VxActionMenu::aboutToFill, &menu, [&menu] { menu.insertAction(betaClass); });
    QCOMPARE(shownEntries(menu.getMenu()), QStringLiteral("Beta"));
}

void tst_VxActionMenu::withoutMainWindowTheMenuIsEmpty()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    m_window.reset();
    QVERIFY(menu.getMenu()->isEmpty());
    m_app.reset();
    menu.copyToMenu(menu.getMenu(), true);
    QVERIFY(menu.getMenu()->isEmpty());
}

void tst_VxActionMenu::copiesToAnotherMenu()
{
    VxActionMenu menu;
    build(menu);
    QMenu target;
    target.addAction(QStringLiteral("Own"));
    menu.copyToMenu(&target, false);
    QCOMPARE(shownEntries(&target),
             QStringLiteral("Own Options(Alpha - Beta) - Beta - Alpha - Gamma"));
    menu.copyToMenu(&target, true);
    QCOMPARE(shownEntries(&target), QStringLiteral("Options(Alpha - Beta) - Beta - Alpha - Gamma"));
    menu.copyToMenu(nullptr, true);
}

void tst_VxActionMenu::copyingAgainLeavesNoSubMenusBehind()
{
    VxActionMenu menu;
    build(menu);
    QMenu target;
    menu.copyToMenu(&target, true);
    const int numChildren = target.children().size();
    menu.copyToMenu(&target, true);
    QCOMPARE(target.children().size(), numChildren);
    QCOMPARE(target.findChildren<QMenu *>().size(), 1);
}

void tst_VxActionMenu::triggersTheAction()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    QTimer::singleShot(0, qApp, [] {
        QWidget *popup = QApplication::activePopupWidget();
        QVERIFY(popup);
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
    });
    QCOMPARE(menu.getMenu()->exec(QPoint(10, 10)), m_alpha);
    QCOMPARE(m_alpha->numRuns, 1);
}

void tst_VxActionMenu::setMenuTakesOwnership()
{
    QPointer<QMenu> handedOver(new QMenu);
    QPointer<QMenu> former;
    {
        VxActionMenu menu;
        menu.insertAction(alphaClass);
        former = menu.getMenu();
        menu.setMenu(handedOver);
        QVERIFY(!former);
        QCOMPARE(menu.getMenu(), handedOver.data());
        QCOMPARE(shownEntries(handedOver), QStringLiteral("Alpha"));
        menu.setMenu(nullptr);
        menu.setMenu(handedOver);
        QCOMPARE(menu.getMenu(), handedOver.data());
        menu.insertAction(betaClass);
        handedOver->popup(QPoint(10, 10));
        QCOMPARE(shownEntries(handedOver), QStringLiteral("Alpha Beta"));
        handedOver->close();
    }
    QVERIFY(!handedOver);
}

void tst_VxActionMenu::aHandedOverSubMenuIsUsed()
{
    VxActionMenu menu;
    VxActionMenu *sub = menu.findOrCreateSubMenu(QStringLiteral("Sub"));
    sub->insertAction(alphaClass);
    QPointer<QMenu> special(new QMenu(QStringLiteral("Special")));
    sub->setMenu(special);
    QCOMPARE(menu.getMenu()->actions().constFirst()->menu(), special.data());
    menu.copyToMenu(menu.getMenu(), true);
    QVERIFY(special);
    QCOMPARE(shownEntries(menu.getMenu()), QStringLiteral("Special(Alpha)"));
}

void tst_VxActionMenu::aDestroyedMenuIsRemoved()
{
    VxActionMenu menu;
    menu.insertAction(alphaClass);
    delete menu.getMenu();
    QCOMPARE(shownEntries(menu.getMenu()), QStringLiteral("Alpha"));
}

void tst_VxActionMenu::clearDestroysSubMenus()
{
    VxActionMenu menu;
    build(menu);
    QPointer<VxActionMenu> sub(menu.findOrCreateSubMenu(QStringLiteral("Options")));
    menu.clear();
    QVERIFY(!sub);
    QCOMPARE(menu.getNumEntries(), 0);
    menu.insertSeparator();
    menu.insertAction(alphaClass);
    QCOMPARE(described(menu), QStringLiteral("- Alpha"));
}

VX_TEST_MAIN(tst_VxActionMenu)
#include "tst_vxactionmenu.moc"
