#include "preferences/preferencesdialog.h"
#include "shortcuts/shortcutcatalogue.h"
#include "shortcuts/shortcuteditor.h"
#include "shortcuts/shortcutmodel.h"
#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QTreeView>
#include <functional>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>

/// The shortcut editor opened from the menu and used with mouse and keyboard, over two runs of the
/// program.
class tst_ShortcutEditor : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void listsEveryCommand();
    void assignsAFreeShortcut();
    void reassignsAfterConfirmation();
    void windowCommandsHaveKeysToo();
    void storedKeyOfAWindowCommand();
    void clearsAndResetsOne();
    void resetMeetsAnotherHolder();
    void resetsAll();
    void cancelChangesNothing();
    void searchFindsAndKeeps();
    void keyboardAlone();
    void dialogKeysStayTheDialogs();
    void shownInMenusAndTips();
    void keptOverTwoRuns();
    void savedWithoutAQuit();
    void pictures();

private:
    // Opens the editor from the menu, lets the function work in it and presses Cancel if it is
    // still open then.
    void edit(const std::function<void()> &work);
    template <class Widget> Widget *part(const char *name) const;
    void choose(const char *className) const;
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void click(QWidget *button) const;
    void clickButton(QDialogButtonBox::StandardButton button) const;
    QString shown(const char *className) const;
    QString shortcut(const char *className) const
    {
        return actions()->getShortcut(QLatin1String(className)).toString();
    }

    PreferencesDialog *m_dialog = nullptr;
    ShortcutEditor *m_editor = nullptr;
};

void tst_ShortcutEditor::init()
{
    setUp();
    start();
}

void tst_ShortcutEditor::cleanup()
{
    tearDown();
}

void tst_ShortcutEditor::edit(const std::function<void()> &work)
{
    bool worked = false;
    QTimer::singleShot(0, this, [this, &work, &worked] {
        m_dialog = qobject_cast<PreferencesDialog *>(QApplication::activeModalWidget());
        QVERIFY(m_dialog);
        m_editor = m_dialog->findChild<ShortcutEditor *>();
        QVERIFY(m_editor && m_editor->isVisible());
        // A check that fails leaves the function early: the dialog must not stay open.
        const auto close = qScopeGuard([this] {
            if (m_dialog->isVisible())
                m_dialog->reject();
        });
        m_dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog) && QTest::qWaitForWindowExposed(m_dialog));
        work();
        worked = true;
    });
    entry("Edit", "Keyboard Shortcuts...")->trigger();
    m_dialog = nullptr;
    QVERIFY(worked);
}

template <class Widget> Widget *tst_ShortcutEditor::part(const char *name) const
{
    auto *found = m_dialog->findChild<Widget *>(QLatin1String(name));
    if (!found)
        qFatal("no %s", name);
    return found;
}

/** Clicks the command's row. */
void tst_ShortcutEditor::choose(const char *className) const
{
    const ShortcutList &list = m_editor->list();
    int command = 0;
    while (list.at(command).className != QLatin1String(className))
        ++command;
    auto *tree = part<QTreeView>("ShortcutTree");
    m_editor->selectCommand(command);
    VxMouseDriver(tree->viewport()).click(tree->visualRect(tree->currentIndex()).center());
    QCOMPARE(tree->currentIndex().data(ShortcutModel::CommandRole).toInt(), command);
}

void tst_ShortcutEditor::press(int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(m_dialog->windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

void tst_ShortcutEditor::click(QWidget *button) const
{
    QVERIFY(button->isVisible() && button->isEnabled());
    VxMouseDriver(button).click(button->rect().center());
}

void tst_ShortcutEditor::clickButton(QDialogButtonBox::StandardButton button) const
{
    click(m_dialog->findChild<QDialogButtonBox *>()->button(button));
}

/** What the tree shows for a command. */
QString tst_ShortcutEditor::shown(const char *className) const
{
    const ShortcutList &list = m_editor->list();
    const QAbstractItemModel *model = part<QTreeView>("ShortcutTree")->model();
    for (int group = 0; group < model->rowCount(); ++group) {
        const QModelIndex parent = model->index(group, 0);
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            const int command = index.data(ShortcutModel::CommandRole).toInt();
            if (list.at(command).className == QLatin1String(className))
                return index.siblingAtColumn(ShortcutModel::ShortcutColumn).data().toString();
        }
    }
    return QStringLiteral("not shown");
}

void tst_ShortcutEditor::listsEveryCommand()
{
    edit([this] {
        QSet<QString> listed;
        for (int i = 0; i < m_editor->list().count(); ++i) {
            const ShortcutCommand &command = m_editor->list().at(i);
            QVERIFY(!command.text.isEmpty() && !command.group.isEmpty());
            // Two commands with one key would leave both dead.
            const int other = m_editor->list().holderOf(command.current, i);
            QVERIFY2(other < 0, qPrintable(command.text));
            if (command.isFixed())
                continue;
            QVERIFY2(!listed.contains(command.className), qPrintable(command.className));
            listed.insert(command.className);
            const QAction *entry = actions()->findCommand(command.className);
            if (const auto *action = qobject_cast<const VxAction *>(entry)) {
                // The dots of a command that opens a dialog are left out of the list.
                QCOMPARE(command.text, QString(action->text()).remove(QLatin1String("...")));
                QCOMPARE(command.description, action->getDescription());
            }
            QVERIFY2(!command.description.isEmpty(), qPrintable(command.text));
            QCOMPARE(command.current, entry->shortcut());
            QCOMPARE(shown(qPrintable(command.className)), entry->shortcut().toString());
        }
        QVERIFY(listed.size() > actions()->getActions().size());
        for (const VxAction *action : actions()->getActions())
            QVERIFY2(listed.contains(action->objectName()), qPrintable(action->objectName()));
        QCOMPARE(part<QTreeView>("ShortcutTree")->model()->index(0, 0).data().toString(),
                 QString("File"));
    });
}

void tst_ShortcutEditor::assignsAFreeShortcut()
{
    edit([this] {
        choose("VxLoopToggleAction");
        QCOMPARE(part<QLabel>("ShortcutTitle")->text(), QString("Toggle Looping"));
        QVERIFY(part<QLabel>("ShortcutDescription")->text().startsWith("Toggles whether"));
        auto *field = part<QLineEdit>("ShortcutField");
        VxMouseDriver(field).click(field->rect().center());
        press(Qt::Key_J, Qt::ControlModifier);
        QCOMPARE(field->text(), QString("Ctrl+J"));
        QCOMPARE(shown("VxLoopToggleAction"), QString("Ctrl+J"));
        QVERIFY(part<QLabel>("ShortcutConflict")->text().isEmpty());
        QCOMPARE(shortcut("VxLoopToggleAction"), QString()); // nothing yet
        clickButton(QDialogButtonBox::Ok);
    });
    QCOMPARE(shortcut("VxLoopToggleAction"), QString("Ctrl+J"));
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
    window()->viewport()->setFocus();
    const bool before = vxScene->isLoopingEnabled();
    type(Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(vxScene->isLoopingEnabled(), !before);
}

void tst_ShortcutEditor::reassignsAfterConfirmation()
{
    edit([this] {
        choose("VxLoopToggleAction");
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_Space);
        const auto *conflict = part<QLabel>("ShortcutConflict");
        QCOMPARE(conflict->text(),
                 QString("Space is assigned to \"Play / Pause\" (Animation). Reassigning it leaves "
                         "that command without a shortcut."));
        QCOMPARE(shown("VxLoopToggleAction"), QString());
        QCOMPARE(shown("VxPlayToggleAction"), QString("Space"));
        click(part<QPushButton>("ShortcutTakeOverBtn"));
        QCOMPARE(shown("VxLoopToggleAction"), QString("Space"));
        QCOMPARE(shown("VxPlayToggleAction"), QString());
        QVERIFY(conflict->text().isEmpty());
        QVERIFY(!part<QPushButton>("ShortcutTakeOverBtn")->isVisible());
        clickButton(QDialogButtonBox::Ok);
    });
    QCOMPARE(shortcut("VxLoopToggleAction"), QString("Space"));
    QCOMPARE(shortcut("VxPlayToggleAction"), QString());
}

/// The entries of the program's own menus are as much the user's as the actions.
void tst_ShortcutEditor::windowCommandsHaveKeysToo()
{
    edit([this] {
        choose("VxLoopToggleAction");
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(part<QLabel>("ShortcutConflict")->text(),
                 QString("Ctrl+S is assigned to \"Save\" (File). Reassigning it leaves that "
                         "command without a shortcut."));
        click(part<QPushButton>("ShortcutTakeOverBtn"));
        QCOMPARE(shown("StudioSave"), QString());
        choose("StudioLightPalette");
        QCOMPARE(part<QLabel>("ShortcutDescription")->text(),
                 QString("Dark text on a light background."));
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_J, Qt::ControlModifier);
        clickButton(QDialogButtonBox::Ok);
    });
    QCOMPARE(shortcut("VxLoopToggleAction"), QString("Ctrl+S"));
    QVERIFY(actions()->findCommand("StudioSave")->shortcut().isEmpty());
    start();
    QCOMPARE(shortcut("StudioSave"), QString());
    QCOMPARE(shortcut("VxLoopToggleAction"), QString("Ctrl+S"));
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
    window()->viewport()->setFocus();
    type(Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(vxApp->getStyle()->colorScheme(), VxStyle::ColorScheme::Light);
}

/// Settings that were edited in the file.
void tst_ShortcutEditor::storedKeyOfAWindowCommand()
{
    start(); // the settings are there
    studio.reset();
    VxSettings stored;
    QVERIFY(stored.load(folder->filePath("settings.json")));
    stored.getSettings("Shortcuts")->setStringValue("VxLoopToggleAction", "Ctrl+S");
    QVERIFY(stored.save(folder->filePath("settings.json")));
    start();
    QCOMPARE(actions()->findCommand("StudioSave")->shortcut(), QKeySequence("Ctrl+S"));
    QVERIFY(actions()->findAction("VxLoopToggleAction")->shortcut().isEmpty());
    QCOMPARE(
        window()->statusBar()->currentMessage(),
        QString(
            "The shortcut Ctrl+S stored for \"Toggle Looping\" is already assigned to \"Save\"."));
    start(); // reported once
    QVERIFY(window()->statusBar()->currentMessage().isEmpty());
}

void tst_ShortcutEditor::clearsAndResetsOne()
{
    edit([this] {
        choose("VxPlayToggleAction");
        QVERIFY(!part<QPushButton>("ShortcutResetBtn")->isEnabled());
        click(part<QPushButton>("ShortcutClearBtn"));
        QCOMPARE(shown("VxPlayToggleAction"), QString());
        QVERIFY(!part<QPushButton>("ShortcutClearBtn")->isEnabled());
        QCOMPARE(part<QPushButton>("ShortcutResetBtn")->toolTip(), QString("Default: Space"));
        click(part<QPushButton>("ShortcutResetBtn"));
        QCOMPARE(shown("VxPlayToggleAction"), QString("Space"));
        QVERIFY(!part<QPushButton>("ShortcutResetAllBtn")->isEnabled());
    });
}

void tst_ShortcutEditor::resetMeetsAnotherHolder()
{
    actions()->setShortcut("VxLoopToggleAction", QKeySequence(Qt::Key_Space));
    edit([this] {
        choose("VxPlayToggleAction");
        click(part<QPushButton>("ShortcutResetBtn"));
        QVERIFY2(part<QLabel>("ShortcutConflict")->text().contains("\"Toggle Looping\""),
                 qPrintable(part<QLabel>("ShortcutConflict")->text()));
        QCOMPARE(shown("VxPlayToggleAction"), QString());
        click(part<QPushButton>("ShortcutTakeOverBtn"));
        clickButton(QDialogButtonBox::Ok);
    });
    QCOMPARE(shortcut("VxPlayToggleAction"), QString("Space"));
    QCOMPARE(shortcut("VxLoopToggleAction"), QString());
}

void tst_ShortcutEditor::resetsAll()
{
    actions()->setShortcut("VxLoopToggleAction", QKeySequence(Qt::Key_Space));
    actions()->setShortcut("VxNextFrameAction", QKeySequence(Qt::Key_F9));
    edit([this] {
        click(part<QPushButton>("ShortcutResetAllBtn"));
        QCOMPARE(shown("VxPlayToggleAction"), QString("Space"));
        QCOMPARE(shown("VxNextFrameAction"), QString("Right"));
        QVERIFY(!part<QPushButton>("ShortcutResetAllBtn")->isEnabled());
        QCOMPARE(shortcut("VxNextFrameAction"), QString("F9"));
        clickButton(QDialogButtonBox::Ok);
    });
    for (const VxAction *each : actions()->getActions())
        QCOMPARE(each->shortcut(), actions()->getDefaultShortcut(each->objectName()));
    QCOMPARE(shortcut("VxPlayToggleAction"), QString("Space"));
}

void tst_ShortcutEditor::cancelChangesNothing()
{
    edit([this] {
        choose("VxPlayToggleAction");
        click(part<QPushButton>("ShortcutClearBtn"));
        clickButton(QDialogButtonBox::Cancel);
    });
    QCOMPARE(shortcut("VxPlayToggleAction"), QString("Space"));
}

void tst_ShortcutEditor::searchFindsAndKeeps()
{
    edit([this] {
        auto *field = part<QLineEdit>("ShortcutSearchField");
        auto *tree = part<QTreeView>("ShortcutTree");
        choose("VxLoopToggleAction");
        field->setFocus();
        for (const int key : {Qt::Key_L, Qt::Key_O, Qt::Key_O, Qt::Key_P})
            press(key);
        QCOMPARE(field->text(), QString("loop"));
        QCOMPARE(tree->model()->rowCount(), 1);
        QCOMPARE(tree->model()->rowCount(tree->model()->index(0, 0)), 1);
        QVERIFY(tree->isExpanded(tree->model()->index(0, 0)));
        QCOMPARE(tree->currentIndex().data().toString(), QString("Toggle Looping"));
        press(Qt::Key_X);
        QCOMPARE(tree->model()->rowCount(), 0);
        QVERIFY(part<QLabel>("ShortcutNothingFound")->isVisible());
        QVERIFY(!part<QLineEdit>("ShortcutField")->isEnabled());
        field->clear();
        QVERIFY(!part<QLabel>("ShortcutNothingFound")->isVisible());
        QVERIFY(tree->model()->rowCount() > 5);
    });
}

// From the search to the result to its field and out with Enter, without touching the mouse.
void tst_ShortcutEditor::keyboardAlone()
{
    edit([this] {
        QCOMPARE(QApplication::focusWidget(), part<QLineEdit>("ShortcutSearchField"));
        for (const int key : {Qt::Key_L, Qt::Key_O, Qt::Key_O, Qt::Key_P})
            press(key);
        press(Qt::Key_Down);
        QCOMPARE(part<QTreeView>("ShortcutTree")->currentIndex().data().toString(),
                 QString("Toggle Looping"));
        press(Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), part<QLineEdit>("ShortcutField"));
        press(Qt::Key_F8);
        QCOMPARE(shown("VxLoopToggleAction"), QString("F8"));
        press(Qt::Key_Return);
    });
    QCOMPARE(shortcut("VxLoopToggleAction"), QString("F8"));
}

// Backspace, Delete and the letters of mnemonics are shortcuts like others; Tab and Escape are not.
void tst_ShortcutEditor::dialogKeysStayTheDialogs()
{
    edit([this] {
        choose("VxLoopToggleAction");
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_Backspace);
        QCOMPARE(shown("VxLoopToggleAction"), QString("Backspace"));
        press(Qt::Key_R, Qt::AltModifier);
        QCOMPARE(shown("VxLoopToggleAction"), QString("Alt+R"));
        press(Qt::Key_Tab);
        QVERIFY(!part<QLineEdit>("ShortcutField")->hasFocus());
        QCOMPARE(shown("VxLoopToggleAction"), QString("Alt+R"));
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_Escape);
        QVERIFY(!m_dialog->isVisible());
    });
    QCOMPARE(shortcut("VxLoopToggleAction"), QString());
}

void tst_ShortcutEditor::shownInMenusAndTips()
{
    edit([this] {
        choose("VxLoopToggleAction");
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_J, Qt::ControlModifier);
        clickButton(QDialogButtonBox::Ok);
    });
    const QAction *loop = entry("Animation", "Toggle Looping");
    QVERIFY(loop);
    QCOMPARE(loop->shortcut().toString(), QString("Ctrl+J"));
    QCOMPARE(loop->toolTip(), QString("Toggle Looping (Ctrl+J)"));
    QHelpEvent event(QEvent::ToolTip, QPoint(), QPoint());
    auto *button = inTimePane<QWidget>("TimelineLoopBtn");
    QCoreApplication::sendEvent(button, &event);
    QCOMPARE(button->toolTip(), QString("Loop (Ctrl+J)"));
}

void tst_ShortcutEditor::keptOverTwoRuns()
{
    edit([this] {
        choose("VxLoopToggleAction");
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_Space);
        click(part<QPushButton>("ShortcutTakeOverBtn"));
        clickButton(QDialogButtonBox::Ok);
    });
    start();
    QCOMPARE(shortcut("VxLoopToggleAction"), QString("Space"));
    QCOMPARE(shortcut("VxPlayToggleAction"), QString());
    edit([this] {
        QCOMPARE(shown("VxLoopToggleAction"), QString("Space"));
        click(part<QPushButton>("ShortcutResetAllBtn"));
        clickButton(QDialogButtonBox::Ok);
    });
    start();
    QCOMPARE(shortcut("VxPlayToggleAction"), QString("Space"));
    QCOMPARE(shortcut("VxLoopToggleAction"), QString());
}

void tst_ShortcutEditor::savedWithoutAQuit()
{
    edit([this] {
        choose("VxLoopToggleAction");
        part<QLineEdit>("ShortcutField")->setFocus();
        press(Qt::Key_F8);
        clickButton(QDialogButtonBox::Ok);
    });
    VxSettings stored;
    QVERIFY(stored.load(folder->filePath("settings.json")));
    QCOMPARE(stored.getSettings("Shortcuts")->getStringValue("VxLoopToggleAction"), QString("F8"));
}

// Pictures to look at, when a folder for them is named; that they differ is checked always.
void tst_ShortcutEditor::pictures()
{
    QVector<QImage> taken;
    for (const VxStyle::ColorScheme scheme :
         {VxStyle::ColorScheme::Dark, VxStyle::ColorScheme::Light}) {
        vxApp->getStyle()->setColorScheme(scheme);
        edit([this, &taken] {
            choose("VxLoopToggleAction");
            part<QLineEdit>("ShortcutField")->setFocus();
            press(Qt::Key_Space);
            taken.append(m_dialog->grab().toImage());
        });
    }
    QCOMPARE(taken.size(), 2);
    QVERIFY(qGray(taken[0].pixel(3, 3)) < 100 && qGray(taken[1].pixel(3, 3)) > 150);
    const QString pictureFolder = qEnvironmentVariable("VX_PICTURES");
    if (!pictureFolder.isEmpty()) {
        QVERIFY(taken[0].save(pictureFolder + "/shortcuts_dark.png"));
        QVERIFY(taken[1].save(pictureFolder + "/shortcuts_light.png"));
    }
}

VX_TEST_MAIN(tst_ShortcutEditor)
#include "tst_shortcuteditor.moc"
