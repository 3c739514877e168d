#include "action/vxactiontext.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxaction.h>

class PlainAction : public VxAction
{
    Q_OBJECT
public:
    explicit PlainAction(bool checkable = false)
        : VxAction(QStringLiteral("&Do It..."), QStringLiteral("Does <it>."), checkable)
    {
    }
    QStringList log;

protected:
    void executeAction() override { log.append(QStringLiteral("execute")); }
};

class ToggleAction : public PlainAction
{
    Q_OBJECT
public:
    ToggleAction()
        : PlainAction(true)
    {
    }

protected:
    void toggleAction(bool onOff) override
    {
        log.append(onOff ? QStringLiteral("on") : QStringLiteral("off"));
    }
};

/// One choice among several: checkable, but triggered like a command.
class ChoiceAction : public PlainAction
{
    Q_OBJECT
public:
    ChoiceAction()
        : PlainAction(true)
    {
    }

protected:
    bool isToggle() const override { return false; }
    void executeAction() override
    {
        if (!isChecked())
            setChecked(true);
        PlainAction::executeAction();
    }
};

/// Reads its help while it is being constructed, and has a subclass.
class EagerAction : public PlainAction
{
    Q_OBJECT
public:
    EagerAction() { updateInlineHelp(); }
};

class EagerLeafAction : public EagerAction
{
    Q_OBJECT
};

class tst_VxAction : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aCommandExecutes();
    void aToggleReceivesItsNewState();
    void aToggleWithoutHandlerExecutes();
    void aChoiceExecutesAndStaysChecked();
    void defaultsAreEmpty();
    void helpIsMadeOfTextAndDescription();
    void helpNamesTheShortcut();
    void nameIsTheClassName();
    void aChosenNameStays();
    void aNameGivenByABaseIsReplaced();
    void texts_data();
    void texts();
};

void tst_VxAction::aCommandExecutes()
{
    PlainAction action;
    action.trigger();
    QCOMPARE(action.log, QStringList{QStringLiteral("execute")});
}

void tst_VxAction::aToggleReceivesItsNewState()
{
    ToggleAction action;
    action.trigger();
    QVERIFY(action.isChecked());
    action.trigger();
    QCOMPARE(action.log, (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    action.setChecked(true);
    QCOMPARE(action.log.size(), 2);
}

void tst_VxAction::aToggleWithoutHandlerExecutes()
{
    PlainAction action(true);
    action.trigger();
    QCOMPARE(action.log, QStringList{QStringLiteral("execute")});
    QVERIFY(action.isChecked());
}

void tst_VxAction::aChoiceExecutesAndStaysChecked()
{
    ChoiceAction action;
    action.trigger();
    QVERIFY(action.isChecked());
    action.trigger();
    QVERIFY(action.isChecked());
    QCOMPARE(action.log.size(), 2);
}

void tst_VxAction::defaultsAreEmpty()
{
    const PlainAction action;
    QVERIFY(action.getDefaultAccel().isEmpty());
    QVERIFY(action.getDefaultToolBar().isEmpty());
    QVERIFY(action.getDefaultMenuPath().isEmpty());
    QVERIFY(action.getActionGroup().isEmpty());
    QVERIFY(!action.isClipboardAction());
    QVERIFY(!action.isCheckable());
}

void tst_VxAction::helpIsMadeOfTextAndDescription()
{
    PlainAction action;
    QCOMPARE(action.statusTip(), QStringLiteral("Does <it>."));
    QCOMPARE(action.toolTip(), QStringLiteral("Do It..."));
    QCOMPARE(action.whatsThis(), QStringLiteral("<b>Do It...</b><br>Does &lt;it&gt;."));
    action.setText(QStringLiteral("A < B"));
    action.updateInlineHelp();
    QCOMPARE(action.whatsThis(), QStringLiteral("<b>A &lt; B</b><br>Does &lt;it&gt;."));
    action.setDescription(QStringLiteral("Other."));
    QCOMPARE(action.statusTip(), QStringLiteral("Other."));
    QCOMPARE(action.getDescription(), QStringLiteral("Other."));
}

void tst_VxAction::helpNamesTheShortcut()
{
    PlainAction action;
    action.setShortcut(QKeySequence(Qt::CTRL + Qt::Key_D));
    action.updateInlineHelp();
    QCOMPARE(action.toolTip(), QStringLiteral("Do It... (Ctrl+D)"));
    action.setShortcut(QKeySequence());
    action.updateInlineHelp();
    QCOMPARE(action.toolTip(), QStringLiteral("Do It..."));
}

void tst_VxAction::nameIsTheClassName()
{
    ToggleAction byInit;
    byInit.init();
    QCOMPARE(byInit.objectName(), QStringLiteral("ToggleAction"));
    ToggleAction byHelp;
    byHelp.updateInlineHelp();
    QCOMPARE(byHelp.objectName(), QStringLiteral("ToggleAction"));
}

void tst_VxAction::aChosenNameStays()
{
    PlainAction action;
    action.setObjectName(QStringLiteral("chosen"));
    action.init();
    QCOMPARE(action.objectName(), QStringLiteral("chosen"));
}

void tst_VxAction::aNameGivenByABaseIsReplaced()
{
    EagerLeafAction action;
    QCOMPARE(action.objectName(), QStringLiteral("EagerAction"));
    action.init();
    QCOMPARE(action.objectName(), QStringLiteral("EagerLeafAction"));
}

void tst_VxAction::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("plain");
    QTest::addColumn<QString>("undo");
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("without marks") << "Play / Pause"
                                   << "Play / Pause"
                                   << "Play / Pause";
    QTest::newRow("a mnemonic") << "&Play"
                                << "Play"
                                << "Play";
    QTest::newRow("an ampersand") << "Copy && Paste"
                                  << "Copy & Paste"
                                  << "Copy & Paste";
    QTest::newRow("a mark at the end") << "Play&"
                                       << "Play"
                                       << "Play";
    QTest::newRow("three dots") << "Open..."
                                << "Open..."
                                << "Open";
    QTest::newRow("an ellipsis") << QStringLiteral("Open \u2026") << QStringLiteral("Open \u2026")
                                 << "Open";
    QTest::newRow("only dots") << "..."
                               << "..."
                               << "";
}

void tst_VxAction::texts()
{
    QFETCH(QString, text);
    QFETCH(QString, plain);
    QFETCH(QString, undo);
    QCOMPARE(VxActionText::withoutMnemonics(text), plain);
    QCOMPARE(VxActionText::asUndoText(text), undo);
}

VX_TEST_MAIN(tst_VxAction)
#include "tst_vxaction.moc"
