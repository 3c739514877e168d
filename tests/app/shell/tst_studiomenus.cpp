#include "shell/aboutbox.h"
#include "shell/keyoverview.h"
#include "shell/keyoverviewdialog.h"
#include "shell/menutypeahead.h"
#include "shortcuts/shortcuteditor.h"
#include "shortcuts/shortcutlist.h"
#include "studiotestbase.h"
#include "testing/vxtestmain.h"
#include "widgets/menumnemonics.h"

#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTimer>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxundostackhold.h>

namespace {

QChar letterOf(const QAction *entry)
{
    const QKeySequence sequence = QKeySequence::mnemonic(entry->text());
    return sequence.isEmpty() ? QChar() : QChar(sequence[0] & 0xffff);
}

/** What is wrong with the underlined letters of a menu; empty when nothing is. */
QString faultOf(const QWidget *menu)
{
    QString letters;
    for (const QAction *entry : menu->actions()) {
        const QChar letter = letterOf(entry);
        if (entry->isSeparator() || qobject_cast<const VxAction *>(entry))
            continue;
        if (letter.isNull())
            return entry->text() + QStringLiteral(" has no letter");
        if (letters.contains(letter))
            return entry->text() + QStringLiteral(" has another's letter");
        letters.append(letter);
    }
    return QString();
}

} // namespace

/// The menu bar and its help, used by the keyboard alone.
class tst_StudioMenus : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void marked_data();
    void marked();
    void marksTheWholeMenu();
    void findsByLetters_data();
    void findsByLetters();
    void typesInAMenu();
    void lettersOfTheBar();
    void everyMenuOpensByItsLetter();
    void undoEntriesShowAmpersands();
    void entriesExplainThemselves();
    void overviewShowsTheCurrentKeys();
    void overviewOpensAndStays();
    void overviewLeadsToTheEditor();
    void about();
    void layoutIsReported();

private:
    QMenu *menu(const QString &title) const;
};

QMenu *tst_StudioMenus::menu(const QString &title) const
{
    for (const QAction *entry : window()->menuBar()->actions()) {
        if (entry->text().remove(QLatin1Char('&')) == title)
            return entry->menu();
    }
    qFatal("no menu %s", qPrintable(title));
}

void tst_StudioMenus::marked_data()
{
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QString>("marked");
    QTest::addColumn<QString>("takenThen");
    QTest::newRow("Scene") << ""
                           << "&Scene"
                           << "s";
    QTest::newRow("Script Console") << "s"
                                    << "Script &Console"
                                    << "sc";
    QTest::newRow("Sea Salt") << "s"
                              << "S&ea Salt"
                              << "se";
    QTest::newRow("Ten (two)") << "t"
                               << "T&en (two)"
                               << "te";
    QTest::newRow("4 Views") << ""
                             << "&4 Views"
                             << "4";
    QTest::newRow("&Chosen") << ""
                             << "&Chosen"
                             << "c";
    QTest::newRow("No") << "no"
                        << "No"
                        << "no";
    QTest::newRow("...") << ""
                         << "..."
                         << "";
}

void tst_StudioMenus::marked()
{
    QFETCH(QString, taken);
    QTEST(MenuMnemonics::marked(QTest::currentDataTag(), &taken), "marked");
    QTEST(taken, "takenThen");
}

/// An explicit mnemonic counts, wherever it is.
void tst_StudioMenus::marksTheWholeMenu()
{
    QMenu bar;
    bar.addAction("Scene");
    bar.addSeparator();
    bar.addAction("Time");
    bar.addMenu("Tools");
    bar.addAction("&Save");
    MenuMnemonics::add(&bar);
    QStringList texts;
    for (const QAction *entry : bar.actions())
        texts.append(entry->text());
    QCOMPARE(texts, QStringList({"S&cene", "", "&Time", "T&ools", "&Save"}));
}

void tst_StudioMenus::findsByLetters_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("letters");
    QTest::addColumn<QString>("found");
    QTest::newRow("first of all") << -1 << "s"
                                  << "Select";
    QTest::newRow("the next one") << 0 << "s"
                                  << "Skip";
    QTest::newRow("round to the first") << 4 << "s"
                                        << "Select";
    QTest::newRow("several letters stay where they are") << 0 << "se"
                                                         << "Select";
    QTest::newRow("several letters continue the search") << 0 << "sk"
                                                         << "Skip";
    QTest::newRow("upper case") << -1 << "SK"
                                << "Skip";
    QTest::newRow("not what is disabled") << -1 << "p"
                                          << "";
    QTest::newRow("not what is hidden") << -1 << "h"
                                        << "";
    QTest::newRow("not in the middle") << -1 << "kip"
                                       << "";
}

void tst_StudioMenus::findsByLetters()
{
    QFETCH(int, current);
    QFETCH(QString, letters);
    QMenu entries;
    entries.addAction("Select");
    entries.addSeparator();
    entries.addAction("Paste")->setEnabled(false);
    entries.addAction("Hidden")->setVisible(false);
    entries.addAction("Skip");
    const QAction *found = MenuTypeAhead::find(entries, entries.actions().value(current), letters);
    QTEST(found ? found->text() : QString(), "found");
}

void tst_StudioMenus::typesInAMenu()
{
    start();
    QMenu *animation = menu("Animation");
    animation->popup(window()->mapToGlobal(QPoint(50, 50)));
    QTRY_VERIFY(animation->isVisible());
    const auto active = [animation] {
        return animation->activeAction() ? animation->activeAction()->text() : QString();
    };
    QElapsedTimer typing;
    typing.start();
    QTest::keyClicks(animation, "cre");
    QCOMPARE(active(), QString("Create Keys (Filtered)"));
    QAction *created = animation->activeAction();
    QTRY_VERIFY(typing.elapsed() > 1100); // the word is over
    animation->setActiveAction(created);  // wherever the mouse is
    QTest::keyClick(animation, 's');
    QCOMPARE(active(), QString("Show Key Graph"));
    QTest::keyClick(animation, 's');
    QCOMPARE(active(), QString("Set Key Interpolation"));
    animation->close();
}

void tst_StudioMenus::lettersOfTheBar()
{
    start();
    QCOMPARE(faultOf(window()->menuBar()), QString());
    for (const char *title : {"File", "Edit", "View", "Window", "Help"})
        QVERIFY2(faultOf(menu(title)).isEmpty(), qPrintable(faultOf(menu(title))));
    // A pane's own title stays as it is.
    QCOMPARE(window()->docks()->find("VxTimePane")->windowTitle(), QString("Timeline"));
}

void tst_StudioMenus::everyMenuOpensByItsLetter()
{
    start();
    for (const QAction *entry : window()->menuBar()->actions()) {
        window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window()));
        window()->viewport()->setFocus();
        QTest::keyClick(window()->windowHandle(), char(letterOf(entry).toLatin1()),
                        Qt::AltModifier);
        QTRY_COMPARE(QApplication::activePopupWidget(), entry->menu());
        entry->menu()->close();
        QTRY_VERIFY(!QApplication::activePopupWidget());
    }
}

/// Those of nodes' names and of scripts, which are no mnemonics.
void tst_StudioMenus::undoEntriesShowAmpersands()
{
    start();
    for (const char *text : {"Rename \"A & B\"", "Script: x && y", "Plain"}) {
        VxUndoStackHold hold;
        vxScene->setTimeStep(vxScene->getTimeStep() + 1);
        hold.accept(text);
    }
    const auto *undo = window()->getActionMgr()->findCommand("StudioUndo");
    const auto *redo = window()->getActionMgr()->findCommand("StudioRedo");
    QCOMPARE(undo->text(), QString("&Undo Plain"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(undo->text(), QString("&Undo Script: x &&&& y"));
    QCOMPARE(redo->text(), QString("&Redo Plain"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(undo->text(), QString("&Undo Rename \"A && B\""));
    QCOMPARE(redo->text(), QString("&Redo Script: x &&&& y"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(undo->text(), QString("&Undo"));
}

/// The status line describes an entry of the program's own while it is hovered.
void tst_StudioMenus::entriesExplainThemselves()
{
    start();
    for (const char *title : {"File", "Edit", "View", "Help"}) {
        for (const QAction *entry : menu(title)->actions()) {
            if (!entry->isSeparator() && !entry->menu())
                QVERIFY2(entry->statusTip().endsWith('.'), qPrintable(entry->text()));
        }
    }
}

void tst_StudioMenus::overviewShowsTheCurrentKeys()
{
    ShortcutList list;
    list.add(
        {"StudioSave", "File", "Save", QString(), QKeySequence("Ctrl+S"), QKeySequence("Ctrl+W")});
    list.add({"NoKeyAction", "File", "Silent", QString(), QKeySequence("F5"), QKeySequence()});
    list.add({"SmallerAction", "Time", "A < B", QString(), QKeySequence(), QKeySequence("F6")});
    QTextDocument page;
    page.setHtml(keyOverviewPage(list));
    const QString text = page.toPlainText().simplified();
    QVERIFY2(text.contains("Shortcuts: File Ctrl+W Save Shortcuts: Time F6 A < B"),
             qPrintable(text));
    QVERIFY(!text.contains("Silent"));
    QVERIFY(text.contains("Drag a value sideways"));
}

void tst_StudioMenus::overviewOpensAndStays()
{
    start();
    QTest::keyClick(window(), Qt::Key_F1);
    auto *dialog = window()->findChild<KeyOverviewDialog *>();
    QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
    const auto text = [dialog] {
        return dialog->findChild<QTextBrowser *>()->toPlainText().simplified();
    };
    QVERIFY2(text().contains("Space Play / Pause"), qPrintable(text()));
    actions()->setShortcut("VxPlayToggleAction", QKeySequence("F8"));
    window()->showKeyOverview();
    QVERIFY2(text().contains("F8 Play / Pause"), qPrintable(text()));
    QCOMPARE(window()->findChildren<KeyOverviewDialog *>().size(), 1);
    QTest::keyClick(dialog, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
}

void tst_StudioMenus::overviewLeadsToTheEditor()
{
    start();
    window()->showKeyOverview();
    const auto *dialog = window()->findChild<KeyOverviewDialog *>();
    bool wasShown = false;
    QTimer::singleShot(0, this, [&wasShown] {
        auto *shown = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        const auto *editor = shown ? shown->findChild<ShortcutEditor *>() : nullptr;
        wasShown = editor && editor->isVisible();
        if (shown)
            shown->reject();
    });
    for (QPushButton *button : dialog->findChildren<QPushButton *>()) {
        if (button->text().contains("Shortcuts"))
            button->click();
    }
    QVERIFY(wasShown);
}

void tst_StudioMenus::about()
{
    start();
    const QString text = aboutText(*vxApp->getPluginMgr());
    QVERIFY2(text.contains("VxStudio " VX_STUDIO_VERSION), qPrintable(text));
    QVERIFY2(text.contains("VxTimeline"), qPrintable(text));
    QVERIFY(aboutText(VxPluginMgr()).contains("No plug-in"));
    // Version and changes are those of the newest heading of the log of changes.
    QFile file(QStringLiteral(VX_SOURCE_DIR "/CHANGELOG.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList log = QString::fromUtf8(file.readAll()).split("\n## ");
    QVERIFY2(log.value(1).startsWith(VX_STUDIO_VERSION " ("), qPrintable(log.value(1).left(40)));
    QCOMPARE(changesText().simplified(), log.value(1).section('\n', 1).simplified());
    // The box wraps the lines: each is a whole change.
    for (const QString &line : changesText().split('\n'))
        QVERIFY2(line.startsWith("* "), qPrintable(line));
    QString shown;
    QTimer::singleShot(0, this, [&shown] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            shown = box->text();
            box->button(QMessageBox::Close)->click();
        }
    });
    actions()->findCommand("StudioAbout")->trigger();
    QCOMPARE(shown, text);
}

void tst_StudioMenus::layoutIsReported()
{
    start();
    window()->docks()->find("VxScenePane")->hide();
    actions()->findCommand("StudioDefaultLayout")->trigger();
    QVERIFY(window()->docks()->find("VxScenePane")->isVisible());
    QVERIFY(!window()->statusBar()->currentMessage().isEmpty());
}

VX_TEST_MAIN(tst_StudioMenus)
#include "tst_studiomenus.moc"
