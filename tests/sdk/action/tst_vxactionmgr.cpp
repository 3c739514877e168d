#include "action/vxmenubarfiller.h"
#include "actionclasses.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxsettings.h>

/// Requests the shortcut that CopyAction has.
class ClearAction : public VxAction
{
    Q_OBJECT
public:
    ClearAction()
        : VxAction(QStringLiteral("Clear"))
    {
    }
    QString getDefaultAccel() const override { return QStringLiteral("Ctrl+C"); }
    QString getDefaultMenuPath() const override { return QStringLiteral("Edit"); }
    QString getActionGroup() const override { return QStringLiteral("Other"); }
};

class PasteAction : public VxAction
{
    Q_OBJECT
public:
    PasteAction()
        : VxAction(QStringLiteral("Paste"))
    {
    }
    QString getDefaultAccel() const override { return QStringLiteral("NoSuchKey"); }
    QString getDefaultMenuPath() const override { return QStringLiteral("Edit"); }
    QString getActionGroup() const override { return QStringLiteral("Clipboard"); }
};

/// An action with a menu order, which is also its name.
class OrderedAction : public VxAction
{
public:
    explicit OrderedAction(int order)
        : VxAction(QString::number(order))
        , m_order(order)
    {
    }
    QString getDefaultMenuPath() const override { return QStringLiteral("Edit"); }
    QString getActionGroup() const override
    {
        return m_order < 0 ? QStringLiteral("/More") : QStringLiteral("Clipboard");
    }
    int getMenuOrder() const override { return m_order; }
    QString getMenuFolder() const override
    {
        return m_order / 100 == 5 ? QStringLiteral("Folder") : QString();
    }

private:
    int m_order;
};

class AbstractAction : public VxAction
{
    Q_OBJECT
public:
    AbstractAction()
        : VxAction(QString())
    {
    }
};

namespace {

template <class T> class Factory : public VxClassFactory
{
public:
    Factory()
        : VxClassFactory(&T::staticMetaObject, VxGuid())
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new T; }
};

class FailingFactory : public VxClassFactory
{
public:
    FailingFactory()
        : VxClassFactory(&AbstractAction::staticMetaObject, VxGuid())
    {
    }
    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return nullptr; }
};

/** The menu's entries as text: "-" for a separator, "Title>" for a sub-menu. */
QString shown(const QWidget *menu)
{
    QStringList entries;
    for (const QAction *entry : menu->actions()) {
        if (entry->isSeparator())
            entries.append(QStringLiteral("-"));
        else
            entries.append(entry->text() + (entry->menu() ? QStringLiteral(">") : QString()));
    }
    return entries.join(QLatin1Char(' '));
}

QMenu *subMenu(const QWidget *menu, const char *title)
{
    for (const QAction *entry : menu->actions()) {
        if (entry->menu() && entry->text() == QLatin1String(title))
            return entry->menu();
    }
    return nullptr;
}

} // namespace

class tst_VxActionMgr : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<VxAction *>(); }
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }
    void createsOneOfEachActionClass();
    void continuesWhenAFactoryFails();
    void refusesASecondActionOfAClass();
    void namesAndOwnsActions();
    void initsEveryActionInOrder();
    void removesADeletedAction();
    void givesDefaultShortcuts();
    void warnsOfTwoEqualDefaults();
    void warnsOfADefaultThatIsNoShortcut();
    void changesShortcuts();
    void returnsDefaultShortcuts();
    void savesOnlyDifferences();
    void keepsEntriesOfAbsentClasses();
    void restoresTheSavedState();
    void warnsOfAStoredTextThatIsNoShortcut();
    void groupParts_data();
    void groupParts();
    void fillsAMenuBar();
    void extendsExistingMenusOnce();
    void menuOrderAndSections();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_VxActionMgr::createsOneOfEachActionClass()
{
    Factory<CopyAction> copy;
    Factory<QTimer> timer;
    Factory<PlayAction> play;
    VxPluginMgr plugins;
    plugins.addClassFactory(&copy);
    plugins.addClassFactory(&timer);
    plugins.addClassFactory(&play);
    VxActionMgr manager;
    QSignalSpy added(&manager, &VxActionMgr::actionAdded);
    manager.createActions(&plugins);
    manager.createActions(&plugins);
    manager.createActions(nullptr);
    const QVector<VxAction *> actions = manager.getActions();
    QCOMPARE(actions.size(), 2);
    QCOMPARE(added.size(), 2);
    QVERIFY(qobject_cast<CopyAction *>(actions.at(0)));
    QVERIFY(qobject_cast<PlayAction *>(actions.at(1)));
    QCOMPARE(manager.findAction(playClass), actions.at(1));
    QVERIFY(!manager.findAction(QStringLiteral("QTimer")));
    QCOMPARE(static_cast<CopyAction *>(actions.at(0))->numInits, 0);
}

void tst_VxActionMgr::continuesWhenAFactoryFails()
{
    FailingFactory failing;
    Factory<PlayAction> play;
    VxPluginMgr plugins;
    plugins.addClassFactory(&failing);
    plugins.addClassFactory(&play);
    VxActionMgr manager;
    m_guard->expect(QRegularExpression(QStringLiteral("AbstractAction created no action")));
    manager.createActions(&plugins);
    QCOMPARE(manager.getActions().size(), 1);
}

void tst_VxActionMgr::refusesASecondActionOfAClass()
{
    VxActionMgr manager;
    QVERIFY(manager.addAction(new CopyAction));
    const std::unique_ptr<CopyAction> second(new CopyAction);
    QVERIFY(!manager.addAction(second.get()));
    QVERIFY(!second->parent());
    QVERIFY(!manager.addAction(nullptr));
}

void tst_VxActionMgr::namesAndOwnsActions()
{
    QPointer<CopyAction> action(new CopyAction);
    {
        VxActionMgr manager;
        manager.addAction(action);
        QCOMPARE(action->objectName(), copyClass);
    }
    QVERIFY(!action);
}

void tst_VxActionMgr::initsEveryActionInOrder()
{
    VxActionMgr manager;
    CopyAction *action = new CopyAction;
    manager.addAction(action);
    manager.initActions();
    manager.initActions();
    QCOMPARE(action->numInits, 2);
}

void tst_VxActionMgr::removesADeletedAction()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    delete manager.findAction(copyClass);
    QVERIFY(manager.getActions().isEmpty());
    QVERIFY(!manager.findAction(copyClass));
    QVERIFY(manager.findShortcut(keys("Ctrl+C")).isEmpty());
    QVERIFY(manager.addAction(new CopyAction));
}

void tst_VxActionMgr::givesDefaultShortcuts()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    manager.addAction(new PlayAction);
    const VxAction *copy = manager.findAction(copyClass);
    QCOMPARE(copy->shortcut(), keys("Ctrl+C"));
    QCOMPARE(copy->shortcutContext(), Qt::WindowShortcut);
    QCOMPARE(copy->toolTip(), QStringLiteral("Copy (Ctrl+C)"));
    QCOMPARE(manager.getShortcut(copyClass), keys("Ctrl+C"));
    QVERIFY(manager.getShortcut(playClass).isEmpty());
    QVERIFY(manager.getShortcut(QStringLiteral("Unknown")).isEmpty());
    QCOMPARE(manager.findShortcut(keys("Ctrl+C")), copyClass);
}

void tst_VxActionMgr::warnsOfTwoEqualDefaults()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    m_guard->expect(QRegularExpression(
        QStringLiteral("Ctrl\\+C of ClearAction is already assigned to CopyAction")));
    manager.addAction(new ClearAction);
    QVERIFY(manager.findAction(QStringLiteral("ClearAction"))->shortcut().isEmpty());
    QCOMPARE(manager.findAction(copyClass)->shortcut(), keys("Ctrl+C"));
}

void tst_VxActionMgr::warnsOfADefaultThatIsNoShortcut()
{
    VxActionMgr manager;
    m_guard->expect(
        QRegularExpression(QStringLiteral("default shortcut \"NoSuchKey\" of PasteAction")));
    manager.addAction(new PasteAction);
    QVERIFY(manager.getShortcut(QStringLiteral("PasteAction")).isEmpty());
}

void tst_VxActionMgr::changesShortcuts()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    manager.addAction(new PlayAction);
    QSignalSpy changed(&manager, &VxActionMgr::shortcutChanged);
    QVERIFY(manager.setShortcut(playClass, keys("Ctrl+C")));
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed.at(0).at(0).toString(), copyClass);
    QCOMPARE(changed.at(1).at(0).toString(), playClass);
    QVERIFY(manager.findAction(copyClass)->shortcut().isEmpty());
    QCOMPARE(manager.findAction(copyClass)->toolTip(), QStringLiteral("Copy"));
    QCOMPARE(manager.findAction(playClass)->toolTip(), QStringLiteral("Play (Ctrl+C)"));
    QVERIFY(manager.setShortcut(playClass, keys("Ctrl+C")));
    QCOMPARE(changed.size(), 2);
    QVERIFY(!manager.setShortcut(QStringLiteral("Unknown"), keys("F1")));
}

void tst_VxActionMgr::returnsDefaultShortcuts()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    manager.addAction(new PlayAction);
    manager.setShortcut(playClass, keys("Ctrl+C"));
    QCOMPARE(manager.getDefaultShortcut(copyClass), keys("Ctrl+C"));
    QVERIFY(manager.getDefaultShortcut(playClass).isEmpty());
    QVERIFY(manager.getDefaultShortcut(QStringLiteral("Unknown")).isEmpty());
    manager.setShortcut(copyClass, manager.getDefaultShortcut(copyClass));
    QCOMPARE(manager.findShortcut(keys("Ctrl+C")), copyClass);
    QVERIFY(manager.getShortcut(playClass).isEmpty());
    QCOMPARE(manager.findAction(playClass)->shortcut(), QKeySequence());
}

void tst_VxActionMgr::savesOnlyDifferences()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    manager.addAction(new PlayAction);
    VxSettings settings;
    manager.saveShortcuts(&settings);
    QVERIFY(settings.getKeys().isEmpty());
    manager.setShortcut(playClass, keys("Ctrl+C"));
    manager.saveShortcuts(&settings);
    QCOMPARE(settings.getKeys(), (QStringList{copyClass, playClass}));
    QVERIFY(settings.getStringValue(copyClass, QStringLiteral("default")).isEmpty());
    QCOMPARE(settings.getStringValue(playClass), QStringLiteral("Ctrl+C"));
    manager.setShortcut(copyClass, manager.getDefaultShortcut(copyClass));
    manager.saveShortcuts(&settings);
    QVERIFY(settings.getKeys().isEmpty());
    manager.saveShortcuts(nullptr);
}

void tst_VxActionMgr::keepsEntriesOfAbsentClasses()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    VxSettings settings;
    settings.setStringValue(QStringLiteral("AbsentAction"), QStringLiteral("F9"));
    manager.restoreShortcuts(&settings);
    manager.saveShortcuts(&settings);
    QCOMPARE(settings.getStringValue(QStringLiteral("AbsentAction")), QStringLiteral("F9"));
}

void tst_VxActionMgr::restoresTheSavedState()
{
    VxSettings settings;
    {
        VxActionMgr manager;
        manager.addAction(new CopyAction);
        manager.addAction(new PlayAction);
        manager.setShortcut(playClass, keys("Ctrl+C"));
        manager.saveShortcuts(&settings);
    }
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    manager.addAction(new PlayAction);
    QSignalSpy changed(&manager, &VxActionMgr::shortcutChanged);
    manager.restoreShortcuts(&settings);
    QCOMPARE(changed.size(), 2);
    QVERIFY(manager.findAction(copyClass)->shortcut().isEmpty());
    QCOMPARE(manager.findAction(playClass)->shortcut(), keys("Ctrl+C"));
    manager.restoreShortcuts(nullptr);
    QCOMPARE(manager.findAction(playClass)->shortcut(), keys("Ctrl+C"));
}

void tst_VxActionMgr::warnsOfAStoredTextThatIsNoShortcut()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    VxSettings settings;
    settings.setStringValue(copyClass, QStringLiteral("Ctrl+NoSuchKey"));
    m_guard->expect(
        QRegularExpression(QStringLiteral("stored shortcut \"Ctrl\\+NoSuchKey\" of CopyAction")));
    manager.restoreShortcuts(&settings);
    QCOMPARE(manager.getShortcut(copyClass), keys("Ctrl+C"));
}

void tst_VxActionMgr::groupParts_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("a pane") << "Pane::"
                            << "Pane::"
                            << "";
    QTest::newRow("a path") << "/Preferences/View Mode"
                            << ""
                            << "Preferences/View Mode";
    QTest::newRow("both") << "Pane::/Preferences"
                          << "Pane::"
                          << "Preferences";
}

void tst_VxActionMgr::groupParts()
{
    QFETCH(QString, group);
    QTEST(VxMenuBarFiller::groupName(group), "name");
    QTEST(VxMenuBarFiller::groupPath(group), "path");
}

void tst_VxActionMgr::fillsAMenuBar()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    m_guard->expect(QRegularExpression(QStringLiteral("assigned to CopyAction")));
    manager.addAction(new ClearAction);
    manager.addAction(new PlayAction);
    m_guard->expect(QRegularExpression(QStringLiteral("NoSuchKey")));
    manager.addAction(new PasteAction);
    manager.addAction(new AbstractAction);
    QMenuBar menuBar;
    manager.populateMenuBar(&menuBar);
    QCOMPARE(shown(&menuBar), QStringLiteral("Edit> Animation>"));
    QCOMPARE(shown(subMenu(&menuBar, "Edit")), QStringLiteral("Copy Paste - Clear"));
    const QMenu *animation = subMenu(&menuBar, "Animation");
    QCOMPARE(shown(animation), QStringLiteral("Time>"));
    QCOMPARE(shown(subMenu(subMenu(animation, "Time"), "Playback")), QStringLiteral("Play"));
    manager.populateMenuBar(nullptr);
}

void tst_VxActionMgr::extendsExistingMenusOnce()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    QMenuBar menuBar;
    menuBar.addMenu(QStringLiteral("&Edit"))->addAction(QStringLiteral("Undo"));
    manager.populateMenuBar(&menuBar);
    manager.populateMenuBar(&menuBar);
    QCOMPARE(shown(&menuBar), QStringLiteral("&Edit>"));
    QCOMPARE(shown(subMenu(&menuBar, "&Edit")), QStringLiteral("Undo - Copy"));
}

void tst_VxActionMgr::menuOrderAndSections()
{
    std::vector<std::unique_ptr<VxAction>> owned;
    const auto ordered = [&owned](std::initializer_list<int> orders) {
        QVector<VxAction *> actions;
        for (const int order : orders) {
            owned.push_back(std::make_unique<OrderedAction>(order));
            actions.append(owned.back().get());
        }
        return actions;
    };
    QMenuBar menuBar;
    QVector<VxAction *> actions = ordered({310, 201, 200, 305});
    ClearAction other;
    actions.prepend(&other);
    VxMenuBarFiller(&menuBar).addActions(actions);
    const QMenu *edit = subMenu(&menuBar, "Edit");
    QCOMPARE(shown(edit), QStringLiteral("Clear - 200 201 - 305 310"));
    // A later action is appended to its group.
    VxMenuBarFiller(&menuBar).addActions(ordered({-1, 399, 100}));
    QCOMPARE(shown(edit), QStringLiteral("Clear - 200 201 - 305 310 - 100 - 399 - More>"));
    // A sub-menu is at the position of its entries, and is created once.
    VxMenuBarFiller(&menuBar).addActions(ordered({600, 501, 500, 400}));
    VxMenuBarFiller(&menuBar).addActions(ordered({502}));
    QCOMPARE(shown(edit), QStringLiteral("Clear - 200 201 - 305 310 - 100 - 399 - 400 - Folder> - "
                                         "600 - More>"));
    QCOMPARE(shown(subMenu(edit, "Folder")), QStringLiteral("500 501 502"));
}

VX_TEST_MAIN(tst_VxActionMgr)
#include "moc_actionclasses.cpp"
#include "tst_vxactionmgr.moc"
