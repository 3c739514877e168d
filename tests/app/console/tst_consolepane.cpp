#include "console/consoleinput.h"
#include "console/consoleoutput.h"
#include "console/consolerunner.h"
#include "console/vxconsolepane.h"
#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscriptengine.h>

/// The console in the whole program, by its keys.
class tst_ConsolePane : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowMenuShowsThePane();
    void returnRuns();
    void printedLinesAreShown();
    void errorsNameTheLine();
    void unfinishedProgramsContinueOnANewLine();
    void shiftReturnAlwaysOpensALine();
    void controlReturnAlwaysRuns();
    void upAndDownBringProgramsBack();
    void arrowsMoveWithinAProgram();
    void tabCompletes();
    void tabOffersAList();
    void theListIsChosenFrom();
    void aDotOpensTheList();
    void tabIndents();
    void clearEmptiesTheOutput();
    void aProgramIsOneEntry();
    void programsThatUseTheHistory();
    void programsThatFailCanBeUndone();
    void theWindowRespondsWhileAProgramRuns();
    void aFloodOfLines();
    void noSecondProgramMeanwhile();
    void theInputGrows();
    void lettersAreNoShortcuts();
    void programsAreKeptInTheHistory();
    void closingEndsTheProgram();

private:
    VxConsolePane *pane() const
    {
        return qobject_cast<VxConsolePane *>(window()->getPaneMgr()->findPane("VxConsolePane"));
    }
    ConsoleInput *input() const { return pane()->getInput(); }
    QString output() const;
    void write(const QString &program) const;
    void run(const QString &program) const;
    bool listIsOpen() const { return input()->completer()->popup()->isVisible(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    static VxUndoStack *undo() { return vxApp->getUndoStack(); }
};

void tst_ConsolePane::init()
{
    setUp();
    start();
    openSample();
    window()->docks()->find("VxConsolePane")->raise();
    QTRY_VERIFY(input()->isVisible());
    input()->setFocus();
    QTRY_VERIFY(input()->hasFocus());
}

void tst_ConsolePane::cleanup()
{
    vxApp->getUndoStack()->setClean();
    tearDown();
}

QString tst_ConsolePane::output() const
{
    pane()->getOutput()->flush();
    return pane()->getOutput()->toPlainText();
}

/** Key by key; "\n" is Shift and Return. */
void tst_ConsolePane::write(const QString &program) const
{
    const QStringList lines = program.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        if (i > 0)
            type(Qt::Key_Return, Qt::ShiftModifier);
        for (const QChar c : lines.at(i)) {
            QTest::keyClick(window()->windowHandle(), c.toLatin1());
            if (listIsOpen())
                press(Qt::Key_Escape);
        }
    }
}

void tst_ConsolePane::run(const QString &program) const
{
    write(program);
    type(Qt::Key_Return);
}

/** To the list while it is open: it is a window of its own and has the keys then. */
void tst_ConsolePane::press(int key, Qt::KeyboardModifiers modifiers) const
{
    if (listIsOpen())
        QTest::keyClick(input()->completer()->popup(), static_cast<Qt::Key>(key), modifiers);
    else
        type(key, modifiers);
}

void tst_ConsolePane::theWindowMenuShowsThePane()
{
    QAction *toggle = entry("Window", "Script Console");
    QVERIFY(toggle && toggle->isChecked());
    PaneDock *dock = window()->docks()->find("VxConsolePane");
    QCOMPARE(window()->dockWidgetArea(dock), Qt::BottomDockWidgetArea);
    QVERIFY(window()->tabifiedDockWidgets(dock).contains(window()->docks()->find("VxTimePane")));
    toggle->trigger();
    QVERIFY(!input()->isVisible());
}

void tst_ConsolePane::returnRuns()
{
    run("1 + 2");
    QCOMPARE(output(), QString("> 1 + 2\n= 3"));
    QCOMPARE(input()->toPlainText(), QString());
    run("   ");
    QCOMPARE(output(), QString("> 1 + 2\n= 3"));
    run("var a = 1"); // gives nothing back
    QVERIFY(output().endsWith("\n> var a = 1"));
}

void tst_ConsolePane::printedLinesAreShown()
{
    run("print('a', 2); print('b')");
    QCOMPARE(output(), QString("> print('a', 2); print('b')\na 2\nb"));
    vxApp->getScriptEngine()->evaluate("print('from elsewhere')");
    QVERIFY(output().endsWith("\nfrom elsewhere"));
}

void tst_ConsolePane::errorsNameTheLine()
{
    run("var a = 1;\nnobody.call()");
    QVERIFY2(output().contains("console:2: "), qPrintable(output()));
    QVERIFY(output().startsWith("> var a = 1;\n  nobody.call()"));
    const QTextBlock last = pane()->getOutput()->document()->lastBlock();
    const QColor ink = last.begin().fragment().charFormat().foreground().color();
    QVERIFY(ink.red() > ink.blue() + 60);
    run("var = 5;");
    QVERIFY2(output().contains("console:1: Syntax error"), qPrintable(output()));
    run("2");
    QVERIFY(output().endsWith("= 2"));
}

void tst_ConsolePane::unfinishedProgramsContinueOnANewLine()
{
    run("function twice(x) {");
    QCOMPARE(input()->toPlainText(), QString("function twice(x) {\n    "));
    QCOMPARE(output(), QString());
    write("return 2 * x; }");
    type(Qt::Key_Return);
    QCOMPARE(input()->toPlainText(), QString());
    run("twice(21)");
    QVERIFY(output().endsWith("= 42"));
}

void tst_ConsolePane::shiftReturnAlwaysOpensALine()
{
    write("1");
    type(Qt::Key_Return, Qt::ShiftModifier);
    write("+ 2");
    QCOMPARE(input()->document()->blockCount(), 2);
    type(Qt::Key_Return);
    QVERIFY(output().endsWith("= 3"));
}

void tst_ConsolePane::controlReturnAlwaysRuns()
{
    write("function {");
    type(Qt::Key_Return, Qt::ControlModifier);
    QVERIFY2(output().contains("console:1: "), qPrintable(output()));
}

void tst_ConsolePane::upAndDownBringProgramsBack()
{
    run("1");
    run("2");
    write("dra");
    type(Qt::Key_Up);
    QCOMPARE(input()->toPlainText(), QString("2"));
    type(Qt::Key_Up);
    QCOMPARE(input()->toPlainText(), QString("1"));
    type(Qt::Key_Up);
    QCOMPARE(input()->toPlainText(), QString("1"));
    type(Qt::Key_Down);
    type(Qt::Key_Down);
    QCOMPARE(input()->toPlainText(), QString("dra"));
    type(Qt::Key_Up);
    type(Qt::Key_Return);
    QVERIFY(output().endsWith("> 2\n= 2"));
}

void tst_ConsolePane::arrowsMoveWithinAProgram()
{
    run("7");
    write("a\nb\nc");
    type(Qt::Key_Up);
    QCOMPARE(input()->textCursor().blockNumber(), 1);
    QCOMPARE(input()->toPlainText(), QString("a\nb\nc"));
    type(Qt::Key_Up, Qt::ControlModifier); // from any line
    QCOMPARE(input()->toPlainText(), QString("7"));
    type(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(input()->toPlainText(), QString("a\nb\nc"));
    input()->moveCursor(QTextCursor::Start);
    type(Qt::Key_Up);
    QCOMPARE(input()->toPlainText(), QString("7"));
}

void tst_ConsolePane::tabCompletes()
{
    write("Sce");
    type(Qt::Key_Tab);
    QCOMPARE(input()->toPlainText(), QString("Scene"));
    QVERIFY(!listIsOpen());
    write(".findNodeByL");
    type(Qt::Key_Tab);
    QCOMPARE(input()->toPlainText(), QString("Scene.findNodeByLabel"));
}

void tst_ConsolePane::tabOffersAList()
{
    write("Scene.setTime");
    type(Qt::Key_Tab);
    QTRY_VERIFY(listIsOpen());
    const QAbstractItemModel *names = input()->completer()->popup()->model();
    QCOMPARE(names->index(0, 0).data().toString(), QString("setTime"));
    QCOMPARE(names->index(1, 0).data().toString(), QString("setTimeStep"));
    press(Qt::Key_Escape);
    QVERIFY(!listIsOpen());
    QCOMPARE(input()->toPlainText(), QString("Scene.setTime"));
}

void tst_ConsolePane::theListIsChosenFrom()
{
    write("Scene.setTime");
    type(Qt::Key_Tab);
    QTRY_VERIFY(listIsOpen());
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QCOMPARE(input()->toPlainText(), QString("Scene.setTimeStep"));
    QVERIFY(!listIsOpen());
    QCOMPARE(output(), QString()); // the program is not run by that Return
    input()->clear();
    write("Scene.setTime");
    type(Qt::Key_Tab);
    QTRY_VERIFY(listIsOpen());
    press(Qt::Key_S); // further typing narrows the list
    QCOMPARE(input()->toPlainText(), QString("Scene.setTimes"));
    QCOMPARE(input()->completer()->popup()->model()->rowCount(), 1);
    press(Qt::Key_Tab);
    QCOMPARE(input()->toPlainText(), QString("Scene.setTimeStep"));
}

void tst_ConsolePane::aDotOpensTheList()
{
    write("Undo");
    QTest::keyClick(window()->windowHandle(), '.');
    QTRY_VERIFY(listIsOpen());
    press(Qt::Key_Escape);
    write("nobody");
    QTest::keyClick(window()->windowHandle(), '.');
    QVERIFY(!listIsOpen());
}

void tst_ConsolePane::tabIndents()
{
    type(Qt::Key_Tab);
    QCOMPARE(input()->toPlainText(), QString("    "));
    QVERIFY(input()->hasFocus());
}

void tst_ConsolePane::clearEmptiesTheOutput()
{
    run("1");
    QVERIFY(!output().isEmpty());
    auto *clear = pane()->findChild<QToolButton *>("ConsoleClearBtn");
    VxMouseDriver(clear).click(clear->rect().center());
    QCOMPARE(output(), QString());
    QVERIFY(input()->hasFocus());
}

void tst_ConsolePane::aProgramIsOneEntry()
{
    const QString name = vxScene->getRootNodes().first()->getLabel();
    run("var n = Scene.getRootNodes()[0]; n.label = 'one'; n.visible = false;");
    QCOMPARE(undo()->count(), 1);
    QVERIFY2(undo()->undoText().startsWith("Script: var n = Scene.getRootNodes()"),
             qPrintable(undo()->undoText()));
    QVERIFY(window()->isWindowModified());
    undo()->undo();
    QCOMPARE(vxScene->getRootNodes().first()->getLabel(), name);
    QVERIFY(vxScene->getRootNodes().first()->isVisible());
    run("Scene.getNumNodes()"); // changes nothing
    QCOMPARE(undo()->count(), 1);
    QVERIFY(undo()->canRedo());
}

void tst_ConsolePane::programsThatUseTheHistory()
{
    run("Undo.beginHold(); Scene.getRootNodes()[0].label = 'x'; Undo.acceptHold('Own');");
    QCOMPARE(undo()->undoText(), QString("Own"));
    run("Undo.undo()");
    QCOMPARE(undo()->index(), 0);
    QVERIFY(vxScene->getRootNodes().first()->getLabel() != "x");
}

void tst_ConsolePane::programsThatFailCanBeUndone()
{
    run("Scene.getRootNodes()[0].label = 'x'; nobody.call();");
    QVERIFY(output().contains("console:1: "));
    QCOMPARE(undo()->count(), 1);
    undo()->undo();
    QVERIFY(vxScene->getRootNodes().first()->getLabel() != "x");
}

void tst_ConsolePane::theWindowRespondsWhileAProgramRuns()
{
    auto *stop = pane()->findChild<QToolButton *>("ConsoleStopBtn");
    QVERIFY(!stop->isEnabled());
    int ticks = 0;
    bool wasReadOnly = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        wasReadOnly = wasReadOnly || input()->isReadOnly();
        if (++ticks == 3)
            VxMouseDriver(stop).click(stop->rect().center());
    });
    timer.start(20);
    run("while (true) {}"); // returns only because it is stopped
    timer.stop();
    QVERIFY(ticks >= 3);
    QVERIFY(wasReadOnly);
    QVERIFY2(output().endsWith("console: Stopped"), qPrintable(output()));
    QVERIFY(!stop->isEnabled() && !input()->isReadOnly());
    // Escape stops, too.
    connect(&timer, &QTimer::timeout, this, [this] { type(Qt::Key_Escape); });
    timer.start(20);
    run("for (;;) {}");
    timer.stop();
    run("'alive'");
    QVERIFY(output().endsWith("= alive"));
}

void tst_ConsolePane::aFloodOfLines()
{
    run("for (var i = 0; i < 40000; ++i) print(i);");
    QVERIFY(output().endsWith("\n39999"));
    QVERIFY(pane()->getOutput()->blockCount() <= ConsoleOutput::MaxLines);
}

void tst_ConsolePane::noSecondProgramMeanwhile()
{
    bool refused = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (!pane()->getRunner()->isRunning())
            return;
        refused = !pane()->getRunner()->run("1");
        pane()->getRunner()->stop();
    });
    timer.start(10);
    run("while (true) {}");
    QVERIFY(refused);
}

void tst_ConsolePane::theInputGrows()
{
    const int one = input()->height();
    write("a\nb\nc");
    QVERIFY(input()->height() >= one + 2 * input()->fontMetrics().lineSpacing() - 2);
    for (int i = 0; i < 20; ++i)
        type(Qt::Key_Return, Qt::ShiftModifier);
    QVERIFY(input()->height() <= one + 8 * input()->fontMetrics().lineSpacing());
    input()->clear();
    QCOMPARE(input()->height(), one);
}

void tst_ConsolePane::lettersAreNoShortcuts()
{
    const VxTime time = vxScene->getTime();
    write("kf k");
    type(Qt::Key_Left);
    type(Qt::Key_Delete);
    type(Qt::Key_Home);
    QCOMPARE(input()->toPlainText(), QString("kf "));
    QCOMPARE(vxScene->getTime(), time);
    QVERIFY(!vxScene->isPlaying());
    QCOMPARE(undo()->count(), 0);
}

void tst_ConsolePane::programsAreKeptInTheHistory()
{
    run("var first = 1;\nfirst + 1");
    run("2");
    start();
    window()->docks()->find("VxConsolePane")->raise();
    QTRY_VERIFY(input()->isVisible());
    input()->setFocus();
    QTRY_VERIFY(input()->hasFocus());
    type(Qt::Key_Up);
    QCOMPARE(input()->toPlainText(), QString("2"));
    type(Qt::Key_Up);
    QCOMPARE(input()->toPlainText(), QString("var first = 1;\nfirst + 1"));
}

void tst_ConsolePane::closingEndsTheProgram()
{
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [this] {
        if (pane()->getRunner()->isRunning())
            window()->close();
    });
    timer.start(10);
    run("while (true) {}"); // would never return
    QVERIFY(!pane()->getRunner()->isRunning());
    QVERIFY(!window()->isVisible());
}

VX_TEST_MAIN(tst_ConsolePane)
#include "tst_consolepane.moc"
