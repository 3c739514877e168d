// The preferences dialog as a user has it: from the menu, by mouse and keys, over two runs.

#include "preferences/animations.h"
#include "preferences/pluginmodule.h"
#include "preferences/preferencesdialog.h"
#include "recovery/recoverycontroller.h"
#include "studiotestbase.h"
#include "testing/vxaccessibletree.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "textfit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollArea>
#include <QSpinBox>
#include <QTimer>
#include <QTreeWidget>
#include <functional>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>

class tst_Preferences : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void applyUsesAtOnce();
    void okUsesAndCloses();
    void cancelDropsWhatWasNotApplied();
    void keptOverTwoRuns();
    void language();
    void timelineOptions();
    void timelineFollowsThePane();
    void keysPageFromItsOwnEntry();
    void keysAppliedTwice();
    void disabledPlugin();
    void skippedPlugin();
    void timelineIsMissing();
    void keyboardAlone();
    void everyPageIsAccessible();
    void fitsAtEverySize_data();
    void fitsAtEverySize();

private:
    // Opens the dialog from a menu entry, works in it, and cancels it if it is still open.
    void inDialog(const std::function<void()> &work, const char *entryText = "Preferences...");
    template <class Widget> Widget *part(const char *name) const
    {
        auto *found = m_dialog->findChild<Widget *>(QLatin1String(name));
        if (!found)
            qFatal("no %s", name);
        return found;
    }
    void choosePage(int row) const;
    // As with the keyboard: the current entry of a box, the value of a number.
    void chooseItem(const char *name, int index) const;
    void typeNumber(const char *name, int value) const;
    void click(QWidget *widget) const;
    QPushButton *button(QDialogButtonBox::StandardButton which) const
    {
        return m_dialog->findChild<QDialogButtonBox *>()->button(which);
    }
    QTreeWidgetItem *plugin(const QString &name) const;
    void toggle(QTreeWidgetItem *row) const;
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(m_dialog->windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }
    /// The result of a script, such as "2" or "true".
    QVariant ask(const char *script) const
    {
        return vxApp->getScriptEngine()->evaluate(QLatin1String(script), QStringLiteral("test"),
                                                  nullptr);
    }
    VxSettings *settings() const { return vxApp->getSettings(); }

    PreferencesDialog *m_dialog = nullptr;
};

enum PageRow { GeneralRow, TimelineRow, KeysRow, PluginsRow };

void tst_Preferences::init()
{
    setUp();
    start();
}

void tst_Preferences::inDialog(const std::function<void()> &work, const char *entryText)
{
    bool worked = false;
    QTimer::singleShot(0, this, [this, &work, &worked] {
        m_dialog = qobject_cast<PreferencesDialog *>(QApplication::activeModalWidget());
        QVERIFY(m_dialog);
        const auto close = qScopeGuard([this] {
            if (m_dialog->isVisible())
                m_dialog->reject();
        });
        m_dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog) && QTest::qWaitForWindowExposed(m_dialog));
        work();
        worked = true;
    });
    entry("Edit", QLatin1String(entryText))->trigger();
    m_dialog = nullptr;
    QVERIFY(worked);
}

void tst_Preferences::choosePage(int row) const
{
    auto *list = part<QListWidget>("PreferencesPages");
    VxMouseDriver(list->viewport()).click(list->visualItemRect(list->item(row)).center());
    QCOMPARE(list->currentRow(), row);
}

void tst_Preferences::chooseItem(const char *name, int index) const
{
    auto *box = part<QComboBox>(name);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentIndex(), index);
}

void tst_Preferences::typeNumber(const char *name, int value) const
{
    auto *box = part<QSpinBox>(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::number(value));
    QCOMPARE(box->value(), value);
}

void tst_Preferences::click(QWidget *widget) const
{
    QVERIFY(widget->isVisible() && widget->isEnabled());
    VxMouseDriver(widget).click(QPoint(8, widget->height() / 2));
}

QTreeWidgetItem *tst_Preferences::plugin(const QString &name) const
{
    const auto rows = part<QTreeWidget>("PluginList")->findItems(name, Qt::MatchExactly);
    return rows.value(0);
}

void tst_Preferences::toggle(QTreeWidgetItem *row) const
{
    auto *list = part<QTreeWidget>("PluginList");
    list->setCurrentItem(row);
    list->setFocus();
    const Qt::CheckState before = row->checkState(0);
    QTest::keyClick(list, Qt::Key_Space);
    QVERIFY(row->checkState(0) != before);
}

void tst_Preferences::applyUsesAtOnce()
{
    inDialog([this] {
        QPushButton *apply = button(QDialogButtonBox::Apply);
        QVERIFY(!apply->isEnabled());
        chooseItem("PreferencesPalette", 2);
        QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Dark);
        QVERIFY(apply->isEnabled());
        chooseItem("PreferencesPalette", 0);
        QVERIFY(!apply->isEnabled()); // as it was
        chooseItem("PreferencesPalette", 2);
        typeNumber("PreferencesTextSize", 14);
        chooseItem("PreferencesCurveColors", 1);
        chooseItem("PreferencesAnimation", 2);
        click(apply);
        QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Contrast);
        QCOMPARE(vxApp->getStyle()->textSize(), 14);
        QVERIFY(vxApp->getStyle()->curveColors() == VxStyle::CurveColors::Safe);
        QVERIFY(!vxApp->getStyle()->isAnimated());
        QVERIFY(m_dialog->isVisible() && !apply->isEnabled());
        // Saved at once, too.
        VxSettings saved;
        QVERIFY(saved.load(folder->filePath("settings.json")));
        QCOMPARE(saved.getStringValue(QStringLiteral("Palette")), QString("contrast"));
    });
    // Applied changes stay after Cancel.
    QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Contrast);
    QVERIFY(entry("View", "High-Contrast Palette")->isChecked());
    // The fields show what is in use.
    inDialog([this] {
        QCOMPARE(part<QComboBox>("PreferencesPalette")->currentIndex(), 2);
        QCOMPARE(part<QSpinBox>("PreferencesTextSize")->value(), 14);
        QCOMPARE(part<QComboBox>("PreferencesAnimation")->currentIndex(), 2);
        typeNumber("PreferencesTextSize", 7); // the desktop's
        click(button(QDialogButtonBox::Ok));
    });
    QCOMPARE(vxApp->getStyle()->textSize(), 0);
}

void tst_Preferences::okUsesAndCloses()
{
    inDialog([this] {
        typeNumber("PreferencesBackups", 7);
        typeNumber("PreferencesRecoveryMinutes", 11);
        typeNumber("PreferencesRecoveryEntries", 123);
        click(button(QDialogButtonBox::Ok));
        QVERIFY(!m_dialog->isVisible());
    });
    QCOMPARE(window()->document()->backups(), 7);
    QCOMPARE(window()->recovery()->autoSave()->minutes(), 11);
    QCOMPARE(window()->recovery()->journal()->keptEntries(), 123);
}

void tst_Preferences::cancelDropsWhatWasNotApplied()
{
    inDialog([this] {
        chooseItem("PreferencesPalette", 1);
        typeNumber("PreferencesBackups", 9);
        click(button(QDialogButtonBox::Apply));
        chooseItem("PreferencesPalette", 2);
        choosePage(TimelineRow);
        chooseItem("TimelineViewMode", 0);
        press(Qt::Key_Escape);
        QVERIFY(!m_dialog->isVisible());
    });
    QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Light);
    QCOMPARE(window()->document()->backups(), 9);
    QCOMPARE(ask("App.findPane('VxTimePane').getViewMode()").toInt(), 2);
}

void tst_Preferences::keptOverTwoRuns()
{
    inDialog([this] {
        typeNumber("PreferencesTextSize", 12);
        chooseItem("PreferencesAnimation", 1);
        typeNumber("PreferencesBackups", 4);
        typeNumber("PreferencesRecoveryMinutes", 6);
        typeNumber("PreferencesRecoveryEntries", 200);
        click(button(QDialogButtonBox::Ok));
    });
    start();
    QCOMPARE(vxApp->getStyle()->textSize(), 12);
    inDialog([this] {
        QCOMPARE(part<QComboBox>("PreferencesAnimation")->currentIndex(), 1);
        QCOMPARE(part<QSpinBox>("PreferencesBackups")->value(), 4);
        QCOMPARE(part<QSpinBox>("PreferencesRecoveryMinutes")->value(), 6);
        QCOMPARE(part<QSpinBox>("PreferencesRecoveryEntries")->value(), 200);
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());
    });
}

void tst_Preferences::language()
{
    inDialog([this] {
        auto *box = part<QComboBox>("PreferencesLanguage");
        QCOMPARE(box->currentIndex(), 0);
        const int german = box->findText(QStringLiteral("Deutsch"));
        QVERIFY(german > 0);
        chooseItem("PreferencesLanguage", german);
        click(button(QDialogButtonBox::Ok));
    });
    QCOMPARE(settings()->getStringValue(QStringLiteral("Language")), QString("de"));
    inDialog([this] {
        chooseItem("PreferencesLanguage", 0);
        click(button(QDialogButtonBox::Ok));
    });
    QCOMPARE(settings()->getStringValue(QStringLiteral("Language")), QString());
}

/// All go through the pane's own actions.
void tst_Preferences::timelineOptions()
{
    inDialog([this] {
        choosePage(TimelineRow);
        chooseItem("TimelineControlsPosition", 1);
        chooseItem("TimelineKeyScope", 3);
        for (const char *flag :
             {"VxTimePanePlayAllFramesAction", "VxTimePaneKeyGraphToggleAction",
              "VxTimePaneSetPropertyTypeScaleAction", "VxTimePaneSetPropertyTypeHiddenAction"})
            click(part<QCheckBox>(flag));
        QVERIFY(!ask("App.findPane('VxTimePane').getPlayAllFrames()").toBool());
        click(button(QDialogButtonBox::Apply));
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());
    });
    QVERIFY(ask("App.findPane('VxTimePane').getPlayAllFrames()").toBool());
    QVERIFY(action("VxTimePaneControlsTopAction")->isChecked());
    QVERIFY(action("VxTimePaneSetKeyScopePropertiesAction")->isChecked());
    QVERIFY(!action("VxTimePaneKeyGraphToggleAction")->isChecked());
    QVERIFY(!action("VxTimePaneSetPropertyTypeScaleAction")->isChecked());
    QVERIFY(action("VxTimePaneSetPropertyTypeHiddenAction")->isChecked());
    QVERIFY(action("VxTimePaneSetPropertyTypeRotationAction")->isChecked()); // not touched
    // What a view mode does not have is refused by the pane, and shown so.
    inDialog([this] {
        choosePage(TimelineRow);
        chooseItem("TimelineViewMode", 1);
        click(button(QDialogButtonBox::Apply));
        QCOMPARE(part<QComboBox>("TimelineKeyScope")->currentIndex(), 2);
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());
    });
    QCOMPARE(ask("App.findPane('VxTimePane').getViewMode()").toInt(), 1);
}

void tst_Preferences::timelineFollowsThePane()
{
    ask("App.findPane('VxTimePane').setViewMode(0)");
    action("VxTimePaneMonitorParametersPaneAction")->trigger();
    inDialog([this] {
        choosePage(TimelineRow);
        QCOMPARE(part<QComboBox>("TimelineViewMode")->currentIndex(), 0);
        QCOMPARE(part<QCheckBox>("VxTimePaneMonitorParametersPaneAction")->isChecked(),
                 action("VxTimePaneMonitorParametersPaneAction")->isChecked());
    });
}

void tst_Preferences::keysPageFromItsOwnEntry()
{
    inDialog(
        [this] {
            QCOMPARE(part<QListWidget>("PreferencesPages")->currentRow(), int(KeysRow));
            QVERIFY(part<QWidget>("ShortcutEditor")->isVisible());
        },
        "Keyboard Shortcuts...");
}

/// What was applied is the start of further changes.
void tst_Preferences::keysAppliedTwice()
{
    const auto assign = [this](int key) {
        auto *search = part<QLineEdit>("ShortcutSearchField");
        search->setFocus();
        search->selectAll();
        QTest::keyClicks(search, QStringLiteral("toggle looping"));
        QTest::keyClick(search, Qt::Key_Down);
        press(Qt::Key_Return);
        press(key);
    };
    inDialog([&] {
        choosePage(KeysRow);
        assign(Qt::Key_F8);
        click(button(QDialogButtonBox::Apply));
        QCOMPARE(actions()->getShortcut(QStringLiteral("VxLoopToggleAction")).toString(),
                 QString("F8"));
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());
        click(part<QPushButton>("ShortcutResetBtn"));
        QVERIFY(button(QDialogButtonBox::Apply)->isEnabled());
        click(button(QDialogButtonBox::Ok));
    });
    QCOMPARE(actions()->getShortcut(QStringLiteral("VxLoopToggleAction")).toString(), QString());
}

void tst_Preferences::disabledPlugin()
{
    inDialog([this] {
        choosePage(PluginsRow);
        QTreeWidgetItem *row = plugin(QStringLiteral("Key Tools"));
        QVERIFY(row);
        QCOMPARE(row->text(2), QString("Loaded"));
        QVERIFY(!row->text(1).isEmpty());
        toggle(row);
        QVERIFY(part<QLabel>("PluginDetails")->text().contains("VxKeyTools.so"));
        click(button(QDialogButtonBox::Ok));
    });
    QVERIFY(window()->getPaneMgr()->findPane("VxKeyToolsPane")); // until the next start
    start();
    QVERIFY(!window()->getPaneMgr()->findPane("VxKeyToolsPane"));
    QVERIFY(timePane());
    inDialog([this] {
        choosePage(PluginsRow);
        QTreeWidgetItem *row = plugin(QStringLiteral("VxKeyTools"));
        QVERIFY(row);
        QCOMPARE(row->text(2), QString("Disabled"));
        QVERIFY(row->checkState(0) == Qt::Unchecked);
        toggle(row);
        click(button(QDialogButtonBox::Ok));
    });
    start();
    QVERIFY(window()->getPaneMgr()->findPane("VxKeyToolsPane"));
}

void tst_Preferences::skippedPlugin()
{
    studio.reset();
    const QString file = folder->filePath("settings.json");
    const QString module =
        QDir(QStringLiteral(VX_PLUGIN_DIR)).canonicalPath() + QStringLiteral("/VxKeyTools.so");
    {
        VxSettings stored;
        QVERIFY(stored.load(file));
        PluginLists::setSkipped(&stored, {module, QStringLiteral("/elsewhere/other.so")});
        QVERIFY(stored.save(file));
    }
    start();
    QVERIFY(!window()->getPaneMgr()->findPane("VxKeyToolsPane"));
    inDialog([this] {
        choosePage(PluginsRow);
        QTreeWidgetItem *row = plugin(QStringLiteral("VxKeyTools"));
        QVERIFY(row);
        QCOMPARE(row->text(2), QString("Skipped"));
        toggle(row);
        QVERIFY(part<QLabel>("PluginDetails")->text().contains("ended"));
        click(button(QDialogButtonBox::Ok));
    });
    // A module that this run did not find keeps its entry.
    QCOMPARE(PluginLists::skipped(*settings()), QStringList{"/elsewhere/other.so"});
    start();
    QVERIFY(window()->getPaneMgr()->findPane("VxKeyToolsPane"));
}

void tst_Preferences::timelineIsMissing()
{
    const QString module =
        QDir(QStringLiteral(VX_PLUGIN_DIR)).canonicalPath() + QStringLiteral("/VxTimeline.so");
    PluginLists::setDisabled(settings(), {module});
    start();
    QVERIFY(!timePane());
    inDialog([this] {
        choosePage(TimelineRow);
        QVERIFY(part<QLabel>("TimelineHint")->isVisible());
        QVERIFY(m_dialog->findChildren<QComboBox *>(QStringLiteral("TimelineViewMode")).isEmpty());
        click(button(QDialogButtonBox::Ok));
    });
}

/// From the menu's shortcut to a changed value and out, without the mouse.
void tst_Preferences::keyboardAlone()
{
    QCOMPARE(entry("Edit", "Preferences...")->shortcut(), QKeySequence("Ctrl+,"));
    inDialog([this] {
        QCOMPARE(QApplication::focusWidget(), part<QListWidget>("PreferencesPages"));
        press(Qt::Key_Down);
        QCOMPARE(part<QListWidget>("PreferencesPages")->currentRow(), int(TimelineRow));
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), part<QComboBox>("TimelineViewMode"));
        press(Qt::Key_Home);
        // A mnemonic.
        press(Qt::Key_P, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), part<QComboBox>("TimelineControlsPosition"));
        press(Qt::Key_Return);
        QVERIFY(!m_dialog->isVisible());
    });
    QCOMPARE(ask("App.findPane('VxTimePane').getViewMode()").toInt(), 0);
}

void tst_Preferences::everyPageIsAccessible()
{
    inDialog([this] {
        for (int row = GeneralRow; row <= PluginsRow; ++row) {
            choosePage(row);
            QCOMPARE(VxAccessibleTree::faults(m_dialog), QStringList());
        }
    });
}

void tst_Preferences::fitsAtEverySize_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {8, 12, 18, 24})
        QTest::addRow("%d points", size) << size;
}

void tst_Preferences::fitsAtEverySize()
{
    QFETCH(int, size);
    vxApp->getStyle()->setTextSize(size);
    inDialog([this, size] {
        // The screen of the tests is smaller than those of users.
        m_dialog->resize(1440, 880);
        for (int row = GeneralRow; row <= PluginsRow; ++row) {
            choosePage(row);
            QCOMPARE(TextFit::faults(m_dialog), QStringList());
            // No page needs scrolling sideways.
            for (const QScrollArea *area : m_dialog->findChildren<QScrollArea *>()) {
                if (area->isVisible())
                    QVERIFY(area->widget()->width() <= area->viewport()->width());
            }
            const QString pictures = qEnvironmentVariable("VX_PICTURES");
            if (!pictures.isEmpty())
                QVERIFY(m_dialog->grab().save(
                    QStringLiteral("%1/preferences_%2_%3.png").arg(pictures).arg(size).arg(row)));
        }
    });
}

VX_TEST_MAIN(tst_Preferences)
#include "tst_preferences.moc"
