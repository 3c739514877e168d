// A program that is killed with unsaved changes, and the one that is started after it.

#include "boxanswer.h"
#include "io/vxscenereader.h"
#include "recoverytestbase.h"
#include "testing/vxtestmain.h"

#include <QElapsedTimer>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>
#include <csignal>
#include <cstdio>
#include <functional>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// The program as a user works with it: opens a file, changes it, and continues to run once the
/// copy is made.
int work(const QString &settings, const QString &file, float value)
{
    const CommandLine line = CommandLine::parse(
        {"vxstudio", "--settings", settings, "--plugin-path", QStringLiteral(VX_PLUGIN_DIR)});
    Studio studio(line);
    studio.window()->show();
    AutoSave *save = studio.window()->recovery()->autoSave();
    save->setInterval(20);
    QObject::connect(save, &AutoSave::written, save, [] {
        std::puts("copied");
        std::fflush(stdout);
    });
    if (!studio.window()->document()->open(file))
        return 1;
    if (file.endsWith("untitled.vxscene")) { // as if it had been built here
        VxUndoStackHold hold;
        studio.window()->document()->clear();
        vxScene->addNode(new VxNode("a"));
        vxScene->addNode(new VxNode("b"));
        vxScene->addNode(new VxNode("c"));
        hold.accept("Build");
    }
    RecoveryTest::changeValue(value);
    return QApplication::exec();
}

class Worker
{
public:
    Worker(const QString &settings, const QString &file, float value)
    {
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--work"), settings, file, QString::number(double(value))});
        while (!m_said.contains("copied")) {
            if (!m_process.waitForReadyRead(30000))
                qFatal("the worker makes no copy: %s",
                       m_process.readAllStandardError().constData());
            m_said += m_process.readAllStandardOutput();
        }
    }
    ~Worker() { kill(); }
    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    /// SIGKILL: nothing of the program runs any more.
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
    QByteArray m_said;
};

} // namespace

class tst_Recovery : public QObject, public RecoveryTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { leave(); }

    void workIsRecovered_data();
    void workIsRecovered();
    void recoveredWorkIsSavedInItsPlace();
    void recoveredWorkIsGuardedAtOnce();
    void laterAsksAgain();
    void discardDeletesTheCopy();
    void oneOfSeveral();
    void aRunningProgramIsLeftAlone();
    void brokenCopyIsKeptAside();
    void aNewerFileIsNotReplacedUnasked();
    void presentWorkIsNotLost_data();
    void presentWorkIsNotLost();
    void noQuestionAfterACleanEnd_data();
    void noQuestionAfterACleanEnd();
    void anEndWithoutAnswerKeepsTheCopy();
    void startOfTheProgramAsks();
    void scriptsAreNotAsked();
    void theMenuSetsTheTime();
    void picture();

private:
    QMenu *recoveryMenu() const { return window()->findChild<QMenu *>("RecoveryMenu"); }
};

void tst_Recovery::workIsRecovered_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::newRow("a scene") << "walk.vxscene"
                             << "walk.vxscene";
    QTest::newRow("a scene with an unusual name")
        << QString::fromUtf8("två [*] <b>歩く & %1.vxscene")
        << QString::fromUtf8("två [*] <b>歩く & %1.vxscene");
    QTest::newRow("a motion") << "walk.bvh"
                              << "walk.bvh";
    QTest::newRow("a scene that was never saved") << "untitled.vxscene"
                                                  << "Untitled";
}

void tst_Recovery::workIsRecovered()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    const QString file = copySample(name);
    Worker(settings(), file, 33.25f).kill();
    QCOMPARE(recoveryFiles().size(), 4);
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files).size(), 2); // file and settings
    start();
    QVERIFY(recovery()->offer());
    auto *list = dialog()->findChild<QTreeWidget *>();
    QCOMPARE(list->topLevelItemCount(), 1);
    QCOMPARE(list->topLevelItem(0)->text(0), title);
    const QString shortDate = QLocale().toString(QDate::currentDate(), QLocale::ShortFormat);
    QVERIFY2(list->topLevelItem(0)->text(1).startsWith(shortDate),
             qPrintable(list->topLevelItem(0)->text(1)));
    press("RecoverButton");
    QTRY_VERIFY(!dialog());
    QCOMPARE(changedValue(), 33.25f);
    QVERIFY(window()->isWindowModified());
    QCOMPARE(window()->document()->displayName(), title);
    const bool untitled = title == "Untitled";
    QCOMPARE(window()->document()->fileName(), untitled ? QString() : file);
    QCOMPARE(entry("File", "Revert")->isEnabled(), !untitled);
    QCOMPARE(window()->document()->hasWritableFile(), name == title && name.endsWith("vxscene"));
    QVERIFY(!vxScene->isLoading());
    // The history is recovered, too.
    QCOMPARE(vxApp->getUndoStack()->undoText(), QString("Change"));
    vxApp->getUndoStack()->undo();
    QVERIFY(changedValue() != 33.25f);
    vxApp->getUndoStack()->redo();
    QCOMPARE(changedValue(), 33.25f);
}

void tst_Recovery::recoveredWorkIsSavedInItsPlace()
{
    QLoggingCategory::setFilterRules("vx.recovery.info=true");
    const auto quiet = qScopeGuard([] { QLoggingCategory::setFilterRules(QString()); });
    QTest::ignoreMessage(QtInfoMsg, "copies found: 1");
    QTest::ignoreMessage(QtInfoMsg, QRegularExpression("^recovered .* with [0-9]+ entries"));
    const QString file = copySample();
    Worker(settings(), file, 12.5f).kill();
    start();
    recovery()->offer();
    press("RecoverButton");
    QVERIFY(window()->save());
    QVERIFY(!window()->isWindowModified());
    QVERIFY2(recoveryFiles().isEmpty(), qPrintable(recoveryFiles().join(' ')));
    window()->document()->clear();
    QVERIFY(window()->document()->open(file));
    QCOMPARE(changedValue(), 12.5f);
    start();
    QVERIFY(!recovery()->offer());
}

/// Between recovering and saving the program may die again, changed or not.
void tst_Recovery::recoveredWorkIsGuardedAtOnce()
{
    Worker(settings(), copySample(), 12.5f).kill();
    start();
    recovery()->offer();
    press("RecoverButton");
    QTRY_COMPARE(recoveryFiles().size(), 4);
    recovery()->autoSave()->setInterval(20);
    QSignalSpy written(recovery()->autoSave(), &AutoSave::written);
    QVERIFY(!written.wait(200)); // the copy is up to date
    changeValue(50.0f);
    QVERIFY(written.wait());
    QTRY_COMPARE(recoveryFiles().size(), 4);
    studio.reset(); // no question was asked
    start();
    QVERIFY(recovery()->offer());
    press("RecoverButton");
    QCOMPARE(changedValue(), 50.0f);
}

void tst_Recovery::laterAsksAgain()
{
    Worker(settings(), copySample(), 1.0f).kill();
    for (int i = 0; i < 2; ++i) {
        start();
        QVERIFY(recovery()->offer());
        press("LaterButton");
        QTRY_VERIFY(!dialog());
        QCOMPARE(vxScene->getNumNodes(), 0);
        // In the same run the menu opens it.
        recoveryMenu()->actions().constLast()->trigger();
        QVERIFY(dialog());
        QTest::keyClick(dialog(), Qt::Key_Escape);
        QTRY_VERIFY(!dialog());
    }
    QCOMPARE(recoveryFiles().size(), 3);
}

void tst_Recovery::discardDeletesTheCopy()
{
    const QString file = copySample();
    Worker(settings(), file, 1.0f).kill();
    start();
    QVERIFY(recovery()->offer());
    {
        const BoxAnswer answer(QMessageBox::Cancel);
        press("DiscardButton");
        QVERIFY2(answer.text().contains("Delete the recovery copy of \"walk.vxscene\"?"),
                 qPrintable(answer.text()));
    }
    QVERIFY(dialog() && dialog()->isVisible());
    QCOMPARE(recoveryFiles().size(), 4);
    const BoxAnswer answer(QMessageBox::Discard);
    press("DiscardButton");
    QTRY_VERIFY(!dialog());
    QVERIFY(recoveryFiles().isEmpty());
    QVERIFY(QFile::exists(file));
    QVERIFY(!recovery()->offer());
}

void tst_Recovery::oneOfSeveral()
{
    Worker(settings(), copySample("one.vxscene"), 1.0f).kill();
    Worker(settings(), copySample("two.vxscene"), 2.0f).kill();
    Worker(settings(), copySample("three.vxscene"), 3.0f).kill();
    start();
    QVERIFY(recovery()->offer());
    auto *list = dialog()->findChild<QTreeWidget *>();
    QCOMPARE(list->topLevelItemCount(), 3);
    list->setCurrentItem(list->findItems("two.vxscene", Qt::MatchExactly).constFirst());
    const BoxAnswer answer(QMessageBox::Discard);
    press("DiscardButton");
    QCOMPARE(list->topLevelItemCount(), 2);
    list->setCurrentItem(list->findItems("one.vxscene", Qt::MatchExactly).constFirst());
    press("RecoverButton");
    QCOMPARE(changedValue(), 1.0f);
    QTRY_VERIFY(!dialog());
    // The third one is still to be had, here and in another program.
    QVERIFY(recovery()->offer());
    QCOMPARE(dialog()->findChild<QTreeWidget *>()->topLevelItemCount(), 1);
    QCOMPARE(dialog()->findChild<QTreeWidget *>()->topLevelItem(0)->text(0),
             QString("three.vxscene"));
    press("LaterButton");
}

void tst_Recovery::aRunningProgramIsLeftAlone()
{
    Worker other(settings(), copySample("theirs.vxscene"), 1.0f);
    start();
    QVERIFY(!recovery()->offer());
    openSample();
    changeValue(7.0f);
    recovery()->autoSave()->setInterval(20);
    QSignalSpy written(recovery()->autoSave(), &AutoSave::written);
    QVERIFY(written.wait());
    QCOMPARE(recoveryFiles().size(), 8);
    QVERIFY(!recovery()->offer());
    other.kill();
    QVERIFY(recovery()->offer());
    QCOMPARE(dialog()->findChild<QTreeWidget *>()->topLevelItemCount(), 1);
    press("LaterButton");
}

void tst_Recovery::brokenCopyIsKeptAside()
{
    Worker(settings(), copySample(), 1.0f).kill();
    const QString name =
        folder->filePath("settings-recovery/" + recoveryFiles().filter(".vxscene").constFirst());
    QFile copy(name);
    QVERIFY(copy.open(QIODevice::ReadWrite) && copy.resize(copy.size() / 2));
    copy.close();
    start();
    QVERIFY(recovery()->offer());
    const BoxAnswer answer(QMessageBox::Ok);
    press("RecoverButton");
    QVERIFY2(answer.text().contains("The copy of \"walk.vxscene\" cannot be read"),
             qPrintable(answer.text()));
    QVERIFY2(answer.text().contains(", byte "), qPrintable(answer.text()));
    QCOMPARE(recoveryFiles().size(), 1);
    QVERIFY(answer.text().contains(recoveryFiles().constFirst()));
    QVERIFY(recoveryFiles().constFirst().startsWith("broken-"));
    QCOMPARE(vxScene->getNumNodes(), 0);
    QVERIFY(!window()->isWindowModified());
    QTRY_VERIFY(!dialog());
    QVERIFY(!recovery()->offer());
}

void tst_Recovery::aNewerFileIsNotReplacedUnasked()
{
    const QString file = copySample();
    Worker(settings(), file, 1.0f).kill();
    QFile document(file);
    QVERIFY(document.open(QIODevice::ReadWrite));
    QVERIFY(document.setFileTime(QDateTime::currentDateTime().addSecs(60),
                                 QFileDevice::FileModificationTime));
    document.close();
    start();
    recovery()->offer();
    press("RecoverButton");
    {
        const BoxAnswer answer(QMessageBox::Cancel);
        QVERIFY(!window()->save());
        QVERIFY2(answer.text().contains("changed by another program"), qPrintable(answer.text()));
    }
    QVERIFY(window()->isWindowModified());
    QTRY_COMPARE(recoveryFiles().size(), 4);
    const BoxAnswer answer(QMessageBox::Save);
    QVERIFY(window()->save());
    QVERIFY(recoveryFiles().isEmpty());
}

void tst_Recovery::presentWorkIsNotLost_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("cancel") << int(QMessageBox::Cancel);
    QTest::newRow("discard") << int(QMessageBox::Discard);
}

void tst_Recovery::presentWorkIsNotLost()
{
    QFETCH(int, button);
    Worker(settings(), copySample(), 1.0f).kill();
    start();
    openSample();
    changeValue(77.0f);
    QVERIFY(recovery()->offer());
    const BoxAnswer answer(static_cast<QMessageBox::StandardButton>(button));
    press("RecoverButton");
    QVERIFY2(answer.text().contains("unsaved changes"), qPrintable(answer.text()));
    const bool recovered = button == QMessageBox::Discard;
    QCOMPARE(changedValue(), recovered ? 1.0f : 77.0f);
    QTRY_VERIFY(!dialog());
    QCOMPARE(recovery()->offer(), !recovered); // still there
    if (!recovered)
        press("LaterButton");
}

void tst_Recovery::noQuestionAfterACleanEnd_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("saved at the end") << int(QMessageBox::Save);
    QTest::newRow("given up at the end") << int(QMessageBox::Discard);
}

void tst_Recovery::noQuestionAfterACleanEnd()
{
    QFETCH(int, button);
    start();
    QVERIFY(window()->document()->open(copySample()));
    recovery()->autoSave()->setInterval(20);
    QSignalSpy written(recovery()->autoSave(), &AutoSave::written);
    changeValue(5.0f);
    QVERIFY(written.wait());
    QCOMPARE(recoveryFiles().size(), 4);
    const BoxAnswer answer(static_cast<QMessageBox::StandardButton>(button));
    QVERIFY(window()->close());
    QVERIFY(!answer.text().isEmpty());
    QVERIFY2(recoveryFiles().isEmpty(), qPrintable(recoveryFiles().join(' ')));
    start();
    QVERIFY(!recovery()->offer());
}

void tst_Recovery::anEndWithoutAnswerKeepsTheCopy()
{
    start();
    openSample();
    recovery()->autoSave()->setInterval(20);
    QSignalSpy written(recovery()->autoSave(), &AutoSave::written);
    changeValue(5.0f);
    QVERIFY(written.wait());
    start();
    QVERIFY(recovery()->offer());
    press("RecoverButton");
    QCOMPARE(changedValue(), 5.0f);
}

/// The whole of it, as main() does it.
void tst_Recovery::startOfTheProgramAsks()
{
    Worker(settings(), copySample(), 33.25f).kill();
    start({folder->filePath("walk.vxscene")});
    bool asked = false;
    float found = 0.0f;
    QTimer user;
    connect(&user, &QTimer::timeout, this, [&] {
        if (!asked && dialog() && dialog()->isVisible()) {
            asked = true;
            press("RecoverButton");
        } else if (asked && !dialog()) {
            user.stop();
            found = changedValue();
            vxApp->getUndoStack()->setClean();
            window()->close();
        }
    });
    user.start(10);
    QTimer::singleShot(20000, qApp, &QApplication::quit);
    QCOMPARE(studio->run(), int(CommandLine::Success));
    QVERIFY(asked);
    QCOMPARE(found, 33.25f);
}

void tst_Recovery::scriptsAreNotAsked()
{
    Worker(settings(), copySample(), 33.25f).kill();
    QFile script(folder->filePath("script.js"));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("Scene.addNode(\"made\");");
    script.close();
    start({"--script", script.fileName()});
    bool asked = false;
    QTimer::singleShot(500, this, [&] {
        asked = dialog() != nullptr;
        vxApp->getUndoStack()->setClean(); // closing would ask whether to save
        window()->close();
    });
    QCOMPARE(studio->run(), int(CommandLine::Success));
    QVERIFY(!asked);
    QVERIFY(vxScene->findNode("made"));
    QCOMPARE(recoveryFiles().size(), 4); // and left alone
}

void tst_Recovery::theMenuSetsTheTime()
{
    start();
    const auto checked = [this] {
        for (const QAction *action : recoveryMenu()->actions()) {
            if (action->isChecked())
                return action->text().remove('&');
        }
        return QString();
    };
    const auto choose = [this](const QString &text) {
        for (QAction *action : recoveryMenu()->actions()) {
            if (action->text().remove('&') == text)
                return action->trigger();
        }
    };
    QCOMPARE(checked(), QString("Every 3 Minutes"));
    choose("Every 10 Minutes");
    QTRY_COMPARE(recovery()->autoSave()->minutes(), 10);
    QCOMPARE(checked(), QString("Every 10 Minutes"));
    start();
    QCOMPARE(checked(), QString("Every 10 Minutes"));
    choose("Never");
    QTRY_COMPARE(recovery()->autoSave()->minutes(), 0);
    start();
    QCOMPARE(checked(), QString("Never"));
    recovery()->autoSave()->setMinutes(7);
    QCOMPARE(checked(), QString("Every 7 Minutes"));
}

/// With VX_PICTURES set, pictures of the question are written there.
void tst_Recovery::picture()
{
    Worker(settings(), copySample("walk cycle, third take.vxscene"), 1.0f).kill();
    Worker(settings(), copySample("untitled.vxscene"), 2.0f).kill();
    for (const char *palette : {"dark", "light"}) {
        start({"--palette", palette});
        QVERIFY(recovery()->offer());
        QVERIFY(QTest::qWaitForWindowExposed(dialog()));
        const QImage image = dialog()->grab().toImage();
        QVERIFY(image.width() > 400);
        const QString pictures = qEnvironmentVariable("VX_PICTURES");
        if (!pictures.isEmpty()) {
            QVERIFY(image.save(QString("%1/recovery-%2.png").arg(pictures, palette)));
            QMenu *menu = window()->menuBar()->actions().constFirst()->menu();
            QVERIFY(menu->grab().save(QString("%1/file-%2.png").arg(pictures, palette)));
            QVERIFY(
                recoveryMenu()->grab().save(QString("%1/copies-%2.png").arg(pictures, palette)));
        }
        press("LaterButton");
    }
}

static int runRecovery(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--work"))
        return work(arguments.value(2), arguments.value(3), arguments.value(4).toFloat());
    tst_Recovery test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runRecovery)

#include "tst_recovery.moc"
