#include "console/consolehistory.h"
#include "console/scriptcompletion.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxscriptengine.h>

/// The word at a position in a program, its completions, and the history of programs.
class tst_ScriptCompletion : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void words_data();
    void words();
    void placesWithinText_data();
    void placesWithinText();
    void completions_data();
    void completions();
    void historyMovesBackAndForth();
    void historyKeepsTheDraft();
    void historyLeavesOutRepetitions();
    void historyIsLimited();

private:
    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxApp> m_app;
};

void tst_ScriptCompletion::init()
{
    m_guard.reset(new VxWarningGuard);
    m_app.reset(new VxApp);
    m_app->getScriptEngine()->registerHost();
}

void tst_ScriptCompletion::cleanup()
{
    m_app.reset();
    m_guard.reset();
}

void tst_ScriptCompletion::words_data()
{
    QTest::addColumn<QString>("program"); // up to the place
    QTest::addColumn<QString>("owner");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<bool>("hasDot");
    QTest::newRow("nothing") << ""
                             << ""
                             << "" << false;
    QTest::newRow("beginning of a name") << "Sc"
                                         << ""
                                         << "Sc" << false;
    QTest::newRow("behind an operator") << "a = b+Sc"
                                        << ""
                                        << "Sc" << false;
    QTest::newRow("behind a dot") << "Scene."
                                  << "Scene"
                                  << "" << true;
    QTest::newRow("member") << "Scene.ti"
                            << "Scene"
                            << "ti" << true;
    QTest::newRow("within a call") << "print(Scene.ti"
                                   << "Scene"
                                   << "ti" << true;
    QTest::newRow("member of a member") << "x = a.b.c"
                                        << "a.b"
                                        << "c" << true;
    QTest::newRow("element") << "nodes[0].la"
                             << "nodes[0]"
                             << "la" << true;
    QTest::newRow("behind a call") << "f().la"
                                   << ""
                                   << "la" << true;
    QTest::newRow("on the second line") << "var a = 1;\nSce"
                                        << ""
                                        << "Sce" << false;
}

void tst_ScriptCompletion::words()
{
    QFETCH(QString, program);
    const ScriptWord word = ScriptWord::at(program + QStringLiteral(" rest"), program.size());
    QTEST(word.owner, "owner");
    QTEST(word.prefix, "prefix");
    QTEST(word.hasDot, "hasDot");
    QVERIFY(!word.isInText);
}

void tst_ScriptCompletion::placesWithinText_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<bool>("within");
    QTest::newRow("open quotes") << "print('Sc" << true;
    QTest::newRow("open double quotes") << "print(\"Sc" << true;
    QTest::newRow("closed quotes") << "print('a' + Sc" << false;
    QTest::newRow("quote within quotes") << "print(\"it's\" + Sc" << false;
    QTest::newRow("masked quote") << "print('it\\'s Sc" << true;
    QTest::newRow("quotes end with the line") << "'a\nSc" << false;
    QTest::newRow("comment") << "a; // Sc" << true;
    QTest::newRow("behind a comment") << "a; // b\nSc" << false;
    QTest::newRow("long comment") << "/* a\nSc" << true;
    QTest::newRow("behind a long comment") << "/* a */ Sc" << false;
    QTest::newRow("quote within a comment") << "// it's\nSc" << false;
    QTest::newRow("division") << "a / Sc" << false;
}

void tst_ScriptCompletion::placesWithinText()
{
    QFETCH(QString, program);
    const ScriptWord word = ScriptWord::at(program, program.size());
    QTEST(word.isInText, "within");
    if (word.isInText)
        QVERIFY(scriptCompletions(*m_app->getScriptEngine(), word).isEmpty());
}

void tst_ScriptCompletion::completions_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("found"); // separated by blanks; "..." in front: some of them
    QTest::newRow("global name") << "Sce"
                                 << "Scene";
    QTest::newRow("capital letters may be left out") << "sce"
                                                     << "Scene";
    QTest::newRow("or be too many") << "SCENE"
                                    << "Scene";
    QTest::newRow("word of the language") << "func"
                                          << "function Function";
    QTest::newRow("member") << "Scene.timeS"
                            << "timeStep timeStepChanged";
    QTest::newRow("all members") << "Scene."
                                 << "...addNode time stepTime";
    QTest::newRow("unknown") << "Scene.nothingLikeIt"
                             << "";
    QTest::newRow("no member of a global") << "Scene.Math"
                                           << "";
}

void tst_ScriptCompletion::completions()
{
    QFETCH(QString, program);
    QFETCH(QString, found);
    const QStringList names =
        scriptCompletions(*m_app->getScriptEngine(), ScriptWord::at(program, program.size()));
    if (!found.startsWith("...")) {
        QStringList expected = found.split(' ', Qt::SkipEmptyParts);
        QCOMPARE(QSet<QString>(names.begin(), names.end()),
                 QSet<QString>(expected.begin(), expected.end()));
        return;
    }
    for (const QString &name : found.mid(3).split(' '))
        QVERIFY2(names.contains(name), qPrintable(name));
}

void tst_ScriptCompletion::historyMovesBackAndForth()
{
    ConsoleHistory history;
    QCOMPARE(history.previous("draft"), QString("draft"));
    history.add("a");
    history.add("b");
    QCOMPARE(history.previous(""), QString("b"));
    QCOMPARE(history.previous("b"), QString("a"));
    QCOMPARE(history.previous("a"), QString("a"));
    QCOMPARE(history.next("a"), QString("b"));
    QCOMPARE(history.next("b"), QString());
    QCOMPARE(history.next(""), QString());
}

void tst_ScriptCompletion::historyKeepsTheDraft()
{
    ConsoleHistory history;
    history.setEntries({"a"});
    QCOMPARE(history.previous("half writ"), QString("a"));
    QCOMPARE(history.next("a"), QString("half writ"));
    QCOMPARE(history.next("half writ"), QString("half writ"));
    history.previous("half writ");
    history.add("c");
    QCOMPARE(history.next("x"), QString("x")); // a run ends the search
    QCOMPARE(history.previous("x"), QString("c"));
}

void tst_ScriptCompletion::historyLeavesOutRepetitions()
{
    ConsoleHistory history;
    for (const char *program : {"a", "a", "b", "a"})
        history.add(QString::fromLatin1(program));
    QCOMPARE(history.entries(), QStringList({"a", "b", "a"}));
}

void tst_ScriptCompletion::historyIsLimited()
{
    ConsoleHistory history;
    for (int i = 0; i < ConsoleHistory::MaxEntries + 10; ++i)
        history.add(QString::number(i));
    QCOMPARE(history.entries().size(), int(ConsoleHistory::MaxEntries));
    QCOMPARE(history.entries().first(), QString("10"));
}

VX_TEST_MAIN(tst_ScriptCompletion)
#include "tst_scriptcompletion.moc"
