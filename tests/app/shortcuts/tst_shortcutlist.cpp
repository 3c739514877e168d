#include "shortcuts/shortcutcatalogue.h"
#include "shortcuts/shortcutfield.h"
#include "shortcuts/shortcutmodel.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QAbstractItemModelTester>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QtTest>
#include <memory>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxsettings.h>

namespace {

// One class an action, because the manager identifies them by class.
class TestAction : public VxAction
{
    Q_OBJECT
public:
    TestAction(const QString &text, const QString &accel)
        : VxAction(text, QStringLiteral("What it does."))
        , m_accel(accel)
    {
    }
    QString getDefaultAccel() const override { return m_accel; }

private:
    QString m_accel;
};

class FirstAction : public TestAction
{
    Q_OBJECT
public:
    FirstAction()
        : TestAction(QStringLiteral("&First..."), QStringLiteral("Ctrl+1"))
    {
    }
};

class SecondAction : public TestAction
{
    Q_OBJECT
public:
    SecondAction()
        : TestAction(QStringLiteral("Second"), QStringLiteral("Ctrl+2"))
    {
    }
};

class HomelessAction : public TestAction
{
    Q_OBJECT
public:
    HomelessAction()
        : TestAction(QStringLiteral("Black && White"), QString())
    {
    }
};

QKeySequence keys(const char *text)
{
    return QKeySequence::fromString(QLatin1String(text), QKeySequence::PortableText);
}

// 0 and 1 have shortcuts, 2 has none, 3 is fixed.
ShortcutList makeList()
{
    ShortcutList list;
    list.add({"FirstAction", "Menu", "First", "Begins.", keys("Ctrl+1"), keys("Ctrl+1")});
    list.add({"SecondAction", "Menu", "Second", "Continues.", keys("Ctrl+2"), keys("Ctrl+2")});
    list.add({"ThirdAction", "Other", "Third", "Ends.", QKeySequence(), QKeySequence()});
    list.add({QString(), "File", "Save", QString(), keys("Ctrl+S"), keys("Ctrl+S")});
    return list;
}

QString state(const ShortcutList &list)
{
    QStringList texts;
    for (int i = 0; i < list.count(); ++i)
        texts += list.at(i).current.isEmpty() ? QStringLiteral("-") : list.at(i).current.toString();
    return texts.join(QLatin1Char(' '));
}

} // namespace

/// The rules of the shortcut editor, without its dialog.
class tst_ShortcutList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void assign_data();
    void assign();
    void holder();
    void resetAll();
    void changesAgainstTheBeginning();
    void collectsMenus();
    void appliesSwappedShortcuts();
    void refusals();
    void model();
    void modelNotifiesOfChanges();
    void search_data();
    void search();
    void pressedKeys_data();
    void pressedKeys();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_ShortcutList::assign_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<bool>("allowed");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QVector<int>>("changed");
    QTest::newRow("free key") << 0 << "F5" << true << "F5 Ctrl+2 - Ctrl+S" << QVector<int>{0};
    QTest::newRow("taken over") << 2 << "Ctrl+1" << true << "- Ctrl+2 Ctrl+1 Ctrl+S"
                                << QVector<int>{0, 2};
    QTest::newRow("its own") << 0 << "Ctrl+1" << true << "Ctrl+1 Ctrl+2 - Ctrl+S" << QVector<int>();
    QTest::newRow("none") << 1 << "" << true << "Ctrl+1 - - Ctrl+S" << QVector<int>{1};
    QTest::newRow("none again") << 2 << "" << true << "Ctrl+1 Ctrl+2 - Ctrl+S" << QVector<int>();
    QTest::newRow("of a fixed command")
        << 0 << "Ctrl+S" << false << "Ctrl+1 Ctrl+2 - Ctrl+S" << QVector<int>();
    QTest::newRow("to a fixed command")
        << 3 << "F5" << false << "Ctrl+1 Ctrl+2 - Ctrl+S" << QVector<int>();
}

void tst_ShortcutList::assign()
{
    QFETCH(int, command);
    QFETCH(QString, shortcut);
    QFETCH(bool, allowed);
    QFETCH(QString, after);
    QFETCH(QVector<int>, changed);
    ShortcutList list = makeList();
    const QKeySequence requested(shortcut);
    QCOMPARE(list.canAssign(command, requested), allowed);
    QCOMPARE(list.assign(command, requested), changed);
    QCOMPARE(state(list), after);
}

void tst_ShortcutList::holder()
{
    const ShortcutList list = makeList();
    QCOMPARE(list.holderOf(keys("Ctrl+2"), 0), 1);
    QCOMPARE(list.holderOf(keys("Ctrl+2"), 1), -1);
    QCOMPARE(list.holderOf(keys("Ctrl+S"), 1), 3);
    QCOMPARE(list.holderOf(keys("F9"), 0), -1);
    QCOMPARE(list.holderOf(QKeySequence(), 0), -1);
}

void tst_ShortcutList::resetAll()
{
    ShortcutList list = makeList();
    QVERIFY(list.areStandard());
    list.assign(2, keys("Ctrl+1"));
    QVERIFY(!list.isStandard(0) && list.isStandard(1) && !list.isStandard(2));
    QVERIFY(list.isStandard(3));
    QVERIFY(!list.areStandard());
    list.resetAll();
    QCOMPARE(state(list), state(makeList()));
    QVERIFY(list.areStandard());
}

// What was changed in an earlier session is no change now; putting it back to the standard is.
void tst_ShortcutList::changesAgainstTheBeginning()
{
    ShortcutList list;
    list.add({"FirstAction", "Menu", "First", QString(), keys("Ctrl+1"), keys("F1")});
    list.add({"SecondAction", "Menu", "Second", QString(), QKeySequence(), QKeySequence()});
    QVERIFY(list.changes().isEmpty());
    list.assign(1, keys("F7"));
    list.assign(1, QKeySequence());
    QVERIFY(list.changes().isEmpty());
    list.resetAll();
    QCOMPARE(list.changes(), (QHash<QString, QKeySequence>{{"FirstAction", keys("Ctrl+1")}}));
}

void tst_ShortcutList::collectsMenus()
{
    VxActionMgr actions;
    auto *first = new FirstAction;
    auto *second = new SecondAction;
    for (VxAction *action : {static_cast<VxAction *>(first), static_cast<VxAction *>(second),
                             static_cast<VxAction *>(new HomelessAction)})
        actions.addAction(action);
    actions.setShortcut("SecondAction", keys("F2"));
    QMenuBar bar;
    QMenu *file = bar.addMenu("&File");
    file->addAction("&Save")->setShortcut(keys("Ctrl+S"));
    file->addAction("Without a shortcut");
    QAction *local = file->addAction("Of one widget");
    local->setShortcut(keys("Ctrl+1"));
    local->setShortcutContext(Qt::WidgetShortcut);
    QMenu *animation = bar.addMenu("Animation");
    QMenu *inner = animation->addMenu("More && Better");
    inner->addAction(second);
    animation->addSeparator();
    animation->addAction(first);
    QMenu *again = bar.addMenu("Again");
    again->addAction(first);
    QAction *undo = file->addAction("&Undo Move Keys");
    undo->setToolTip("Undo");
    undo->setStatusTip("Takes back.");
    undo->setShortcut(keys("Ctrl+Z"));
    actions.addCommand("UndoCommand", undo);
    actions.addCommand("OpenCommand", file->addAction("&Open..."));

    const ShortcutList list = ShortcutCatalogue::collect(bar, actions);
    QStringList rows;
    for (int i = 0; i < list.count(); ++i) {
        const ShortcutCommand &command = list.at(i);
        rows += QStringList({command.className, command.group, command.text, command.description,
                             command.standard.toString(), command.current.toString()})
                    .join('|');
    }
    QCOMPARE(rows, QStringList({"|File|Save||Ctrl+S|Ctrl+S",
                                "UndoCommand|File|Undo|Takes back.|Ctrl+Z|Ctrl+Z",
                                "OpenCommand|File|Open|||",
                                "FirstAction|Animation|First|What it does.|Ctrl+1|Ctrl+1",
                                QString::fromUtf8("SecondAction|Animation › More & Better|Second|"
                                                  "What it does.|Ctrl+2|F2"),
                                "HomelessAction|Other|Black & White|What it does.||"}));
}

void tst_ShortcutList::appliesSwappedShortcuts()
{
    VxActionMgr actions;
    actions.addAction(new FirstAction);
    actions.addAction(new SecondAction);
    const QMenuBar bar;
    ShortcutList list = ShortcutCatalogue::collect(bar, actions);
    list.assign(0, keys("Ctrl+2"));
    list.assign(1, keys("Ctrl+1"));
    ShortcutCatalogue::apply(list, &actions);
    QCOMPARE(actions.findAction("FirstAction")->shortcut(), keys("Ctrl+2"));
    QCOMPARE(actions.findAction("SecondAction")->shortcut(), keys("Ctrl+1"));
    QSignalSpy changed(&actions, &VxActionMgr::shortcutChanged);
    ShortcutCatalogue::apply(ShortcutCatalogue::collect(bar, actions), &actions);
    QCOMPARE(changed.size(), 0);
}

void tst_ShortcutList::refusals()
{
    VxActionMgr actions;
    QAction save("&Save");
    save.setShortcut(keys("Ctrl+S"));
    actions.addCommand("SaveCommand", &save);
    actions.addAction(new FirstAction);
    VxSettings stored;
    stored.setStringValue("FirstAction", "Ctrl+S");
    QCOMPARE(ShortcutCatalogue::refusalText({}, stored, actions), QString());
    const QStringList refused = actions.restoreShortcuts(&stored);
    QCOMPARE(ShortcutCatalogue::refusalText(refused, stored, actions),
             QString("The shortcut Ctrl+S stored for \"First\" is already assigned to \"Save\"."));
}

void tst_ShortcutList::model()
{
    ShortcutModel model(makeList());
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    QCOMPARE(model.rowCount(), 3);
    const QModelIndex menu = model.index(0, 0);
    QCOMPARE(menu.data().toString(), QString("Menu"));
    QCOMPARE(menu.data(ShortcutModel::CommandRole).toInt(), -1);
    QCOMPARE(model.rowCount(menu), 2);
    const QModelIndex second = model.index(1, 0, menu);
    QCOMPARE(second, model.indexOf(1));
    QCOMPARE(second.data().toString(), QString("Second"));
    QCOMPARE(second.siblingAtColumn(1).data().toString(), QString("Ctrl+2"));
    QCOMPARE(second.data(Qt::ToolTipRole).toString(), QString("Continues."));
    QCOMPARE(model.rowCount(second), 0);
    QVERIFY(!model.indexOf(3).data(Qt::ForegroundRole).isNull());
    QVERIFY(second.data(Qt::ForegroundRole).isNull());
    QVERIFY(!model.indexOf(17).isValid());
}

void tst_ShortcutList::modelNotifiesOfChanges()
{
    ShortcutModel model(makeList());
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy edited(&model, &ShortcutModel::edited);
    const auto isMarked = [&model](int command) {
        return model.indexOf(command).siblingAtColumn(1).data(Qt::FontRole).value<QFont>().italic();
    };
    model.assign(2, keys("Ctrl+1"));
    QCOMPARE(changed.size(), 2);
    QCOMPARE(edited.size(), 1);
    QVERIFY(isMarked(0) && !isMarked(1) && isMarked(2));
    model.assign(2, keys("Ctrl+1"));
    QCOMPARE(edited.size(), 1);
    model.resetAll();
    QCOMPARE(edited.size(), 2);
    QVERIFY(!isMarked(0) && !isMarked(2));
}

void tst_ShortcutList::search_data()
{
    QTest::addColumn<QString>("found");
    QTest::newRow("") << "First Second Third Save";
    QTest::newRow("second") << "Second";
    QTest::newRow("CONTINUES") << "Second";
    QTest::newRow("ctrl+") << "First Second Save";
    QTest::newRow("menu ctrl+1") << "First";
    QTest::newRow("thirdaction") << "Third";
    QTest::newRow("  other  ") << "Third";
    QTest::newRow("nothing of the kind") << "";
}

void tst_ShortcutList::search()
{
    QFETCH(QString, found);
    ShortcutModel model(makeList());
    ShortcutSearch search;
    search.setSourceModel(&model);
    search.setText(QTest::currentDataTag());
    QStringList texts;
    for (int group = 0; group < search.rowCount(); ++group) {
        const QModelIndex parent = search.index(group, 0);
        for (int row = 0; row < search.rowCount(parent); ++row)
            texts += search.index(row, 0, parent).data().toString();
    }
    QCOMPARE(texts.join(' '), found);
    QCOMPARE(search.rowCount() == 0, found.isEmpty()); // no group without commands
}

void tst_ShortcutList::pressedKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortcut");
    const int none = Qt::NoModifier;
    const int ctrl = Qt::ControlModifier;
    const int shift = Qt::ShiftModifier;
    QTest::newRow("letter") << int(Qt::Key_K) << none << "k"
                            << "K";
    QTest::newRow("letter with Shift") << int(Qt::Key_K) << shift << "K"
                                       << "Shift+K";
    QTest::newRow("Ctrl and Shift")
        << int(Qt::Key_K) << (ctrl | shift) << QString(QChar(11)) << "Ctrl+Shift+K";
    QTest::newRow("sign made with Shift") << int(Qt::Key_Exclam) << shift << "!"
                                          << "!";
    QTest::newRow("arrow with Shift") << int(Qt::Key_Left) << shift << ""
                                      << "Shift+Left";
    QTest::newRow("arrow of the keypad") << int(Qt::Key_Left) << int(Qt::KeypadModifier) << ""
                                         << "Left";
    QTest::newRow("space") << int(Qt::Key_Space) << shift << " "
                           << "Shift+Space";
    QTest::newRow("Alt and a function key") << int(Qt::Key_F4) << int(Qt::AltModifier) << ""
                                            << "Alt+F4";
    QTest::newRow("Ctrl alone") << int(Qt::Key_Control) << ctrl << ""
                                << "";
    QTest::newRow("unknown key") << int(Qt::Key_unknown) << none << ""
                                 << "";
}

void tst_ShortcutList::pressedKeys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    QFETCH(QString, shortcut);
    const QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
    QCOMPARE(ShortcutField::shortcutOf(press).toString(QKeySequence::PortableText), shortcut);
}

VX_TEST_MAIN(tst_ShortcutList)
#include "tst_shortcutlist.moc"
