#include "dopesheettestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/dopesheet/dopesheetcontextmenu.h"
#include "vxtimelineplugin.h"

#include <QtCore/QTimer>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxmenu.h>
#include <vxcore/vxplugin.h>

namespace {

const QString prefix = QStringLiteral("VxTimePane");
const QString suffix = QStringLiteral("Action");

// The entries by class name without what all have in common: "-" for a line, "Title(...)" for a
// menu below.
QString outline(const QMenu *menu)
{
    QStringList entries;
    for (const QAction *entry : menu->actions()) {
        if (entry->isSeparator()) {
            entries.append(QStringLiteral("-"));
            continue;
        }
        QString name = entry->objectName().isEmpty() ? entry->text() : entry->objectName();
        if (name.startsWith(prefix))
            name.remove(0, prefix.size());
        if (name.endsWith(suffix))
            name.chop(suffix.size());
        if (entry->menu())
            name = QStringLiteral("%1(%2)").arg(entry->text(), outline(entry->menu()));
        entries.append(name);
    }
    return entries.join(QLatin1Char(' '));
}

const QString types =
    QStringLiteral("Property Types(SetPropertyTypeTranslation SetPropertyTypeRotation "
                   "SetPropertyTypeScale - SetPropertyTypeOther - SetPropertyTypeAlias "
                   "SetPropertyTypeHidden) -");
const QString scopes = QStringLiteral("Key Creation Scope(SetKeyScopeObject "
                                      "SetKeyScopeNodeRecurse SetKeyScopeNode - "
                                      "SetKeyScopeProperties) -");
const QString copyPaste = QStringLiteral("CopySelectedKeys PasteKeys -");
const QString interpolation =
    QStringLiteral("Set Key Interpolation(SetInterpTcb SetInterpLinear SetInterpConstant) -");
const QString rootMoves = QStringLiteral("Move Root Item(MoveRootNodeToTop MoveRootNodeUp "
                                         "MoveRootNodeDown MoveRootNodeToBottom) -");
const QString expansion =
    QStringLiteral("Expand(ExpandAllItems ExpandItem ExpandFromItem ExpandKeyedFromItem) "
                   "Collapse(CollapseAllItems CollapseItem CollapseFromItem "
                   "CollapseNonKeyedFromItem) -");

} // namespace

// The menu of the right button: its entries in each state, and that the view supplies the state.
class TestDopeSheetContextMenu : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void entries_data();
    void entries();
    void actionsThatAreMissingAreLeftOut();
    void nothingToOffer();

    void onEmptySpace();
    void onARow();
    void onARowWithEverything();
    void rightPressSelectsNothing();
    void noMenuWhileTheLeftButtonIsDown();

private:
    // The menu that opens by a click of the right button.
    QString menuAt(const QPoint &position);
    QPoint pointOf(const QModelIndex &row) const
    {
        return QPoint(300, view->visualRect(row).center().y());
    }

    std::unique_ptr<VxMainWindow> window;
};

void TestDopeSheetContextMenu::init()
{
    setUp();
    window = std::make_unique<VxMainWindow>();
    for (const VxClassFactory *factory : getPluginDefinition()->getClassFactories()) {
        if (factory->className() == QLatin1String("VxTimePane"))
            continue;
        auto *action = qobject_cast<VxAction *>(factory->createInstance());
        QVERIFY2(action, qPrintable(factory->className()));
        window->getActionMgr()->addAction(action);
    }
}

void TestDopeSheetContextMenu::cleanup()
{
    view.reset();
    window.reset();
    tearDown();
}

void TestDopeSheetContextMenu::entries_data()
{
    QTest::addColumn<bool>("rows");
    QTest::addColumn<bool>("selection");
    QTest::addColumn<bool>("context");
    QTest::addColumn<bool>("keys");
    QTest::addColumn<QString>("expected");

    const QString ranges =
        QStringLiteral("Select(SelectItemPlayRangeKeys SelectItemAnimRangeKeys%1) "
                       "Deselect(DeselectItemPlayRangeKeys DeselectItemAnimRangeKeys%1) -");
    const QString rowKeys = QStringLiteral("VxDeleteKeys - CreateKeys VxAddKeys -");
    const auto joined = [](std::initializer_list<QString> parts) {
        return QStringList(parts).join(QLatin1Char(' '));
    };

    QTest::newRow("no rows") << false << false << false << false
                             << joined({types, scopes, copyPaste, "RefreshDopesheet"});
    QTest::newRow("rows, but no context row")
        << true << false << false << false
        << joined(
               {types, scopes, copyPaste, "ExpandAllItems CollapseAllItems -", "RefreshDopesheet"});
    QTest::newRow("keys are selected")
        << true << false << false << true
        << joined({types, "DeleteSelectedKeys -", scopes, copyPaste, interpolation,
                   "ExpandAllItems CollapseAllItems -", "RefreshDopesheet"});
    QTest::newRow("rows are selected")
        << true << true << false << false
        << joined({ranges.arg(QStringLiteral(" -")), types, rowKeys, scopes, copyPaste, rootMoves,
                   "ExpandAllItems CollapseAllItems -", "RefreshDopesheet"});
    QTest::newRow("on a row") << true << false << true << false
                              << joined({"Select() Deselect() -", types, scopes, copyPaste,
                                         expansion, "RefreshDopesheet"});
    QTest::newRow("everything") << true << true << true << true
                                << joined({ranges.arg(QStringLiteral(" -")), types,
                                           "DeleteSelectedKeys", rowKeys, scopes, copyPaste,
                                           interpolation, rootMoves, expansion,
                                           "RefreshDopesheet"});
}

void TestDopeSheetContextMenu::entries()
{
    QFETCH(bool, rows);
    QFETCH(bool, selection);
    QFETCH(bool, context);
    QFETCH(bool, keys);
    VxMenu menu;
    fillDopeSheetMenu(&menu, {rows, selection, context, keys});
    QTEST(outline(&menu), "expected");
}

// The host may provide the ones for the current time.
void TestDopeSheetContextMenu::actionsThatAreMissingAreLeftOut()
{
    for (const char *name :
         {"VxTimePaneSelectItemCurrentTimeKeysAction", "VxTimePaneSelectAllCurrentTimeKeysAction",
          "VxTimePaneDeselectItemCurrentTimeKeysAction",
          "VxTimePaneDeselectAllCurrentTimeKeysAction"})
        QVERIFY(!window->getActionMgr()->findAction(QLatin1String(name)));
    VxMenu menu;
    fillDopeSheetMenu(&menu, {true, true, true, true});
    const QMenu *select = menu.actions().first()->menu();
    QVERIFY(select);
    QCOMPARE(select->title(), QStringLiteral("Select"));
    QCOMPARE(select->actions().at(0)->objectName(),
             QStringLiteral("VxTimePaneSelectItemPlayRangeKeysAction"));
}

void TestDopeSheetContextMenu::nothingToOffer()
{
    window.reset();
    VxMenu menu;
    fillDopeSheetMenu(&menu, {true, true, true, true});
    QVERIFY(!menu.isEmpty());
    QCOMPARE(menu.actions().last()->text(), QStringLiteral("No Selection"));
}

QString TestDopeSheetContextMenu::menuAt(const QPoint &position)
{
    QString found;
    QPoint shownAt;
    QTimer answer;
    connect(&answer, &QTimer::timeout, this, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        answer.stop();
        found = outline(menu);
        shownAt = menu->pos();
        menu->close();
    });
    answer.start(10);
    VxMouseDriver(view->viewport()).click(position, Qt::RightButton);
    if (!found.isEmpty() && shownAt != view->viewport()->mapToGlobal(position))
        return QStringLiteral("a menu at another place");
    return found;
}

void TestDopeSheetContextMenu::onEmptySpace()
{
    model->removeNode(hip);
    model->removeNode(ball);
    showView();
    QCOMPARE(menuAt(QPoint(300, 200)),
             QStringList({types, scopes, copyPaste, "RefreshDopesheet"}).join(QLatin1Char(' ')));
    QVERIFY(!view->hasContextItem());
}

void TestDopeSheetContextMenu::onARow()
{
    showView();
    const QString menu = menuAt(pointOf(rowOf(ball)));
    QVERIFY2(menu.contains(expansion), qPrintable(menu));
    QVERIFY(!menu.contains(rootMoves));
    QVERIFY(!menu.contains(QStringLiteral("DeleteSelectedKeys")));
    QCOMPARE(view->getContextIndex(), rowOf(ball));
    const QString below = menuAt(QPoint(300, 200));
    QVERIFY2(below.contains(QStringLiteral("ExpandAllItems CollapseAllItems -")),
             qPrintable(below));
    QVERIFY(!view->hasContextItem());
}

void TestDopeSheetContextMenu::onARowWithEverything()
{
    addKeys(ball->getXPosControl(), {160});
    showView();
    view->setKeySelection(true, rowOf(ball), rowOf(ball));
    view->selectionModel()->select(rowOf(ball),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const QString menu = menuAt(pointOf(rowOf(hip)));
    for (const QString &part : {expansion, rootMoves, interpolation,
                                QStringLiteral("DeleteSelectedKeys VxDeleteKeys - CreateKeys")})
        QVERIFY2(menu.contains(part), qPrintable(menu));
    QCOMPARE(view->getContextIndex(), rowOf(hip));
}

void TestDopeSheetContextMenu::rightPressSelectsNothing()
{
    addKeys(ball->getXPosControl(), {160});
    showView();
    const QPoint key(view->columnWidth(0) + 2 + 10 + 4, view->visualRect(rowOf(ball)).center().y());
    QVERIFY(!menuAt(key).isEmpty());
    QVERIFY(!menuAt(QPoint(30, key.y())).isEmpty());
    QVERIFY(!view->hasSelectedKeys());
    QVERIFY(!view->hasItemSelection());
    QCOMPARE(vxScene->getNumSelectedNodes(), 0);
}

void TestDopeSheetContextMenu::noMenuWhileTheLeftButtonIsDown()
{
    showView();
    VxMouseDriver mouse(view->viewport());
    mouse.press(QPoint(300, 200));
    QCOMPARE(menuAt(QPoint(320, 210)), QString());
    mouse.release(QPoint(300, 200));
}

VX_TEST_MAIN(TestDopeSheetContextMenu)
#include "tst_dopesheetcontextmenu.moc"
