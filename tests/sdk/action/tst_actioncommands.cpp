#include "actionclasses.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxsettings.h>

// Commands of the program beside the actions: their names and shortcuts.
class tst_ActionCommands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<VxAction *>(); }
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }
    void addsCommands();
    void commandsShareTheKeys();
    void commandRequestsAnAssignedKey();
    void removesADeletedCommand();
    void savesAndRestoresCommands();
    void storedKeysOfCommands_data();
    void storedKeysOfCommands();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void tst_ActionCommands::addsCommands()
{
    VxActionMgr manager;
    QAction save;
    save.setShortcut(keys("Ctrl+S"));
    QAction plain;
    QVERIFY(!manager.addCommand(QStringLiteral("Save"), nullptr));
    QVERIFY(!manager.addCommand(QString(), &save));
    QVERIFY(manager.addCommand(QStringLiteral("Save"), &save));
    QVERIFY(!manager.addCommand(QStringLiteral("Save"), &plain));
    QVERIFY(!manager.addCommand(QStringLiteral("Again"), &save));
    QVERIFY(manager.addCommand(QStringLiteral("Plain"), &plain));
    manager.addAction(new CopyAction);
    QVERIFY(!manager.addCommand(copyClass, &plain));

    QCOMPARE(manager.findCommand(QStringLiteral("Save")), &save);
    QCOMPARE(manager.findCommand(copyClass), manager.findAction(copyClass));
    QVERIFY(!manager.findCommand(QStringLiteral("Unregistered")));
    QVERIFY(!manager.findAction(QStringLiteral("Save"))); // no action
    QCOMPARE(manager.getActions().size(), 1);
    QCOMPARE(manager.getCommandName(&save), QStringLiteral("Save"));
    QCOMPARE(manager.getCommandName(manager.findAction(copyClass)), copyClass);
    const QAction stranger;
    QCOMPARE(manager.getCommandName(&stranger), QString());
    QCOMPARE(manager.getCommandName(nullptr), QString());
    const CopyAction unknown; // of a registered class
    QCOMPARE(manager.getCommandName(&unknown), QString());
}

void tst_ActionCommands::commandsShareTheKeys()
{
    VxActionMgr manager;
    QAction save;
    save.setShortcut(keys("Ctrl+S"));
    manager.addCommand(QStringLiteral("Save"), &save);
    manager.addAction(new CopyAction);
    QCOMPARE(manager.getDefaultShortcut(QStringLiteral("Save")), keys("Ctrl+S"));
    QCOMPARE(manager.findShortcut(keys("Ctrl+S")), QStringLiteral("Save"));
    QSignalSpy changed(&manager, &VxActionMgr::shortcutChanged);
    QVERIFY(manager.setShortcut(copyClass, keys("Ctrl+S")));
    QCOMPARE(changed.size(), 2);
    QVERIFY(save.shortcut().isEmpty());
    QVERIFY(manager.setShortcut(QStringLiteral("Save"), keys("F7")));
    QCOMPARE(save.shortcut(), keys("F7"));
    for (const QString &name : {QStringLiteral("Save"), copyClass})
        manager.setShortcut(name, manager.getDefaultShortcut(name));
    QCOMPARE(save.shortcut(), keys("Ctrl+S"));
    QCOMPARE(manager.findAction(copyClass)->shortcut(), keys("Ctrl+C"));
}

void tst_ActionCommands::commandRequestsAnAssignedKey()
{
    VxActionMgr manager;
    manager.addAction(new CopyAction);
    QAction late;
    late.setShortcut(keys("Ctrl+C"));
    m_guard->expect(
        QRegularExpression(QStringLiteral("Ctrl\\+C of Late is already assigned to CopyAction")));
    QVERIFY(manager.addCommand(QStringLiteral("Late"), &late));
    QVERIFY(late.shortcut().isEmpty());
}

void tst_ActionCommands::removesADeletedCommand()
{
    VxActionMgr manager;
    auto *save = new QAction;
    save->setShortcut(keys("Ctrl+S"));
    manager.addCommand(QStringLiteral("Save"), save);
    delete save;
    QVERIFY(!manager.findCommand(QStringLiteral("Save")));
    QCOMPARE(manager.findShortcut(keys("Ctrl+S")), QString());
    QVERIFY(!manager.setShortcut(QStringLiteral("Save"), keys("F7")));
    const VxSettings none;
    QCOMPARE(manager.restoreShortcuts(&none), QStringList());
}

void tst_ActionCommands::savesAndRestoresCommands()
{
    VxSettings settings;
    for (const bool isSecondRun : {false, true}) {
        VxActionMgr manager;
        QAction save;
        save.setShortcut(keys("Ctrl+S"));
        manager.addCommand(QStringLiteral("Save"), &save);
        manager.addAction(new CopyAction);
        if (isSecondRun) {
            QCOMPARE(manager.restoreShortcuts(&settings), QStringList());
            QVERIFY(save.shortcut().isEmpty());
            QCOMPARE(manager.getShortcut(copyClass), keys("Ctrl+S"));
            for (const QString &name : {QStringLiteral("Save"), copyClass})
                manager.setShortcut(name, manager.getDefaultShortcut(name));
        } else {
            manager.setShortcut(copyClass, keys("Ctrl+S"));
        }
        manager.saveShortcuts(&settings);
    }
    QCOMPARE(settings.getKeys(), QStringList());
}

void tst_ActionCommands::storedKeysOfCommands_data()
{
    QTest::addColumn<QString>("copy"); // "-" for nothing stored
    QTest::addColumn<QString>("play");
    QTest::addColumn<QString>("save");
    QTest::addColumn<QString>("inForce"); // of Copy, Play and Save
    QTest::addColumn<QStringList>("refused");
    const QStringList none;
    QTest::newRow("nothing") << "-"
                             << "-"
                             << "-"
                             << "Ctrl+C||Ctrl+S" << none;
    QTest::newRow("a free key") << "F5"
                                << "-"
                                << "-"
                                << "F5||Ctrl+S" << none;
    QTest::newRow("a command's key") << "Ctrl+S"
                                     << "-"
                                     << "-"
                                     << "Ctrl+C||Ctrl+S" << QStringList{copyClass};
    QTest::newRow("a key that the command gave up") << "Ctrl+S"
                                                    << "-"
                                                    << ""
                                                    << "Ctrl+S||" << none;
    QTest::newRow("a key exchanged with the command") << "Ctrl+S"
                                                      << "-"
                                                      << "Ctrl+C"
                                                      << "Ctrl+S||Ctrl+C" << none;
    QTest::newRow("an action's key") << "-"
                                     << "Ctrl+C"
                                     << "-"
                                     << "|Ctrl+C|Ctrl+S" << none;
    QTest::newRow("one key twice") << "F5"
                                   << "F5"
                                   << "-"
                                   << "F5||Ctrl+S" << QStringList{playClass};
    QTest::newRow("the command's key twice")
        << "Ctrl+S"
        << "Ctrl+S"
        << "-"
        << "Ctrl+C||Ctrl+S" << QStringList{copyClass, playClass};
}

// An inconsistent settings file must not leave a key without effect.
void tst_ActionCommands::storedKeysOfCommands()
{
    QFETCH(QString, copy);
    QFETCH(QString, play);
    QFETCH(QString, save);
    QFETCH(QString, inForce);
    QFETCH(QStringList, refused);
    VxActionMgr manager;
    QAction command;
    command.setShortcut(keys("Ctrl+S"));
    manager.addCommand(QStringLiteral("Save"), &command);
    manager.addAction(new CopyAction);
    manager.addAction(new PlayAction);
    VxSettings settings;
    const auto store = [&settings](const QString &name, const QString &text) {
        if (text != QLatin1String("-"))
            settings.setStringValue(name, text);
    };
    store(copyClass, copy);
    store(playClass, play);
    store(QStringLiteral("Save"), save);
    settings.setStringValue(QStringLiteral("AbsentAction"), QStringLiteral("Ctrl+S"));
    QCOMPARE(manager.restoreShortcuts(&settings), refused);
    QStringList found;
    for (const QString &name : {copyClass, playClass, QStringLiteral("Save")})
        found.append(manager.findCommand(name)->shortcut().toString(QKeySequence::PortableText));
    QCOMPARE(found.join(QLatin1Char('|')), inForce);
}

VX_TEST_MAIN(tst_ActionCommands)
#include "tst_actioncommands.moc"
