#include "shell/studio.h"

#include "document/documentcontroller.h"
#include "document/recentfiles.h"
#include "document/scenesummary.h"
#include "io/vxbackups.h"
#include "pose/posescript.h"
#include "preferences/animations.h"
#include "preferences/appearance.h"
#include "preferences/generalpage.h"
#include "preferences/keyspage.h"
#include "preferences/languagesetting.h"
#include "preferences/pluginspage.h"
#include "preferences/preferencesdialog.h"
#include "preferences/timelinepage.h"
#include "recovery/recoverycontroller.h"
#include "shell/actionlist.h"
#include "shell/batchdialogs.h"
#include "shell/diagnosis.h"
#include "shell/endsignals.h"
#include "shell/scriptfiles.h"
#include "shell/scriptwatchdog.h"
#include "shell/studioclasses.h"
#include "shell/studiowindow.h"
#include "shell/windowpicture.h"
#include "shortcuts/shortcutcatalogue.h"
#include "viewport/camerascript.h"
#include "widgets/studiotext.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QMenuBar>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxlanguage.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscriptengine.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr QSize PictureSize(1280, 800);
constexpr int SignalExit = 128; // shells add the signal's number

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

/// An unattended run must neither depend on nor change the user's settings.
QString settingsFile(const CommandLine &commandLine)
{
    if (!commandLine.settingsFile.isEmpty() || commandLine.isBatch())
        return commandLine.settingsFile;
    return StudioSettings::defaultFileName();
}

/// Beside the settings, so that runs with other settings have other copies. An unattended run
/// keeps none and offers none.
QString recoveryFolder(const CommandLine &commandLine)
{
    const QString settings = settingsFile(commandLine);
    if (settings.isEmpty() || commandLine.isBatch())
        return {};
    const QFileInfo file(settings);
    return QDir(file.absolutePath()).filePath(file.completeBaseName() + key("-recovery"));
}

} // namespace

/** The pages for developers are in English, whoever prints them. */
QString Studio::language() const
{
    if (m_commandLine.listActions || m_commandLine.diagnose)
        return key("en");
    return m_commandLine.language.isEmpty() ? LanguageSetting::code(*m_app->getSettings())
                                            : m_commandLine.language;
}

void Studio::loadSettings()
{
    VxSettings *settings = m_app->getSettings();
    m_settingsStore.load(settings, m_messages);
    VxLanguage::setCurrent(language());
    StudioSettings::fillDefaults(settings);
    VxStyle *style = m_app->getStyle();
    Appearance::restore(*settings, style);
    if (!m_commandLine.palette.isEmpty())
        style->setColorScheme(Appearance::paletteOf(m_commandLine.palette));
    if (m_commandLine.textSize)
        style->setTextSize(*m_commandLine.textSize);
    m_animations = std::make_unique<Animations>(style);
    m_animations->setChoice(Animations::choiceOf(settings->getStringValue(key("Animation"))));
    if (!m_commandLine.isBatch())
        m_animations->followSessionBus();
}

void Studio::saveSettings()
{
    VxSettings *settings = m_app->getSettings();
    Appearance::store(*m_app->getStyle(), settings);
    settings->setStringValue(key("Animation"), Animations::nameOf(m_animations->choice()));
    m_window->saveLayout(settings->getSettings(key("Window")));
    m_window->recentFiles()->store(settings->getSettings(key("RecentFiles")));
    VxSettings *recovery = settings->getSettings(key("Recovery"));
    recovery->setIntValue(key("Minutes"), m_window->recovery()->autoSave()->minutes());
    recovery->setIntValue(key("Entries"), m_window->recovery()->journal()->keptEntries());
    settings->getSettings(key("Saving"))
        ->setIntValue(key("Backups"), m_window->document()->backups());
    m_window->getPaneMgr()->saveSettings();
    m_window->getActionMgr()->saveShortcuts(settings->getSettings(key("Shortcuts")));
    m_settingsStore.save(*settings, m_messages);
}

void Studio::loadPlugins()
{
    PluginLoader loader(settingsFile(m_commandLine), m_app->getSettings());
    if (m_commandLine.enablePlugins)
        loader.enableAll();
    const QStringList folders = QStringList(defaultPluginFolder()) + m_commandLine.pluginPaths;
    for (const QString &message : loader.load(folders, m_app->getPluginMgr()))
        m_messages.showNotice(message);
    m_modules = loader.modules();
}

void Studio::showPreferences(const QString &page)
{
    VxSettings *settings = m_app->getSettings();
    const QVector<PreferencesPage *> pages{
        new GeneralPage({settings, m_app->getStyle(), m_animations.get(), m_window->document(),
                         m_window->recovery()->autoSave(), m_window->recovery()->journal()}),
        new TimelinePage(*m_window->getActionMgr()),
        new KeysPage(m_window->shortcuts(),
                     [this](const ShortcutList &list) { m_window->applyShortcuts(list); }),
        new PluginsPage(m_modules, settings)};
    PreferencesDialog dialog(pages, m_window.get());
    dialog.showPage(page);
    QObject::connect(&dialog, &PreferencesDialog::applied, m_window.get(),
                     [this] { saveSettings(); });
    dialog.exec();
}

void Studio::buildPanesAndActions()
{
    VxPluginMgr *plugins = m_app->getPluginMgr();
    for (VxClassFactory *factory : studioClassFactories())
        plugins->addClassFactory(factory);
    m_window->getActionMgr()->createActions(plugins);
    m_window->getPaneMgr()->createPanes(plugins);
    m_window->getActionMgr()->initActions();
    VxSettings *settings = m_app->getSettings();
    restoreShortcuts();
    m_window->completeMenus();
    m_window->restoreLayout(*settings->getSettings(key("Window")));
    m_window->recentFiles()->restore(*settings->getSettings(key("RecentFiles")));
    const VxSettings *recovery = settings->getSettings(key("Recovery"));
    m_window->recovery()->autoSave()->setMinutes(
        recovery->getIntValue(key("Minutes"), AutoSave::DefaultMinutes));
    m_window->recovery()->journal()->setKeptEntries(
        recovery->getIntValue(key("Entries"), RecoveryJournal::DefaultKeptEntries));
    m_window->document()->setBackups(
        settings->getSettings(key("Saving"))->getIntValue(key("Backups"), VxBackups::DefaultCount));
}

/** A manually edited file may give two commands one shortcut: reports it instead of dead keys. */
void Studio::restoreShortcuts()
{
    const VxSettings *stored = m_app->getSettings()->findSettings(key("Shortcuts"));
    if (!stored)
        return;
    VxActionMgr *actions = m_window->getActionMgr();
    const QStringList refused = actions->restoreShortcuts(stored);
    if (!refused.isEmpty())
        m_messages.showNotice(ShortcutCatalogue::refusalText(refused, *stored, *actions));
}

void Studio::connectScripts()
{
    VxScriptEngine *scripts = m_app->getScriptEngine();
    scripts->registerHost();
    addFileFunctions(scripts, m_window->document());
    addPoseFunctions(scripts->engine());
    addCameraFunctions(scripts->engine());
    QObject::connect(scripts, &VxScriptEngine::printed, m_window.get(), &UserMessages::print);
}

void Studio::printImportReport() const
{
    const VxImportReport &report = m_window->document()->importReport();
    if (m_commandLine.importReport && !report.file.isEmpty())
        UserMessages::print(
            QString::fromUtf8(QJsonDocument(report.toJson()).toJson(QJsonDocument::Indented)));
}

bool Studio::openFile()
{
    if (!m_commandLine.file.isEmpty()) {
        VxMotionBuildOptions options;
        options.clip = m_commandLine.animation;
        if (!m_window->document()->open(m_commandLine.file, options))
            return false;
        printImportReport();
        if (m_commandLine.headless) {
            UserMessages::print(QStringLiteral("%1: %2").arg(m_window->document()->displayName(),
                                                             sceneSummary(*m_app->getScene())));
            if (!m_window->document()->summary().isEmpty())
                UserMessages::print(m_window->document()->summary());
        }
    }
    VxScene *scene = m_app->getScene();
    if (m_commandLine.frame)
        scene->setTime(*m_commandLine.frame * scene->getTimeStep());
    return true;
}

bool Studio::runScript()
{
    if (m_commandLine.scriptFile.isEmpty())
        return true;
    VxScriptEngine *scripts = m_app->getScriptEngine();
    scripts->setArguments(m_commandLine.scriptArguments);
    VxScriptError error;
    if (m_commandLine.isBatch()) {
        showUnseen();
        const ScriptWatchdog watchdog(m_commandLine.scriptFile,
                                      {m_commandLine.scriptSeconds, m_commandLine.scriptMegabytes});
        scripts->runFile(m_commandLine.scriptFile, &error);
    } else {
        runInWindow(scripts, &error);
    }
    if (error.isNull())
        return true;
    UserMessages::printError(error.toString());
    return false;
}

/** The window stays responsive and requests to end are obeyed; the changes can be undone. */
void Studio::runInWindow(VxScriptEngine *scripts, VxScriptError *error)
{
    scripts->setMemoryLimit(qint64(m_commandLine.scriptMegabytes) << 20);
    scripts->setStoppable(true);
    QFile file(m_commandLine.scriptFile);
    // A script from a pipe can be read only once.
    const bool usesHistory = QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly) &&
                             file.readAll().contains("Undo");
    if (usesHistory) {
        scripts->runFile(m_commandLine.scriptFile, error);
    } else {
        VxUndoStackHold hold;
        scripts->runFile(m_commandLine.scriptFile, error);
        hold.accept(
            StudioText::tr("Script: %1").arg(QFileInfo(m_commandLine.scriptFile).fileName()));
    }
    scripts->setStoppable(false);
}

/** Panes fill themselves when they are shown: so a script finds them filled. */
void Studio::showUnseen()
{
    m_window->setAttribute(Qt::WA_DontShowOnScreen);
    m_window->show();
    QCoreApplication::processEvents();
}

bool Studio::writePicture()
{
    if (m_commandLine.screenshotFile.isEmpty())
        return true;
    m_window->hide();
    m_window->setAttribute(Qt::WA_DontShowOnScreen, false);
    QString error;
    const QSize size = m_commandLine.size.isEmpty() ? PictureSize : m_commandLine.size;
    if (writeWindowPicture(m_window.get(), size, m_commandLine.screenshotFile, &error))
        return true;
    m_messages.showError(error);
    return false;
}

/** The system or a terminal requests the end: no questions about unsaved work are possible. */
void Studio::end(int signalNumber)
{
    m_window->recovery()->autoSave()->writeNow();
    m_endCode = SignalExit + signalNumber;
    m_app->getScriptEngine()->abort();
    QCoreApplication::exit(m_endCode);
}

int Studio::runWithWindow()
{
    EndSignals requests;
    QObject::connect(&requests, &EndSignals::received, m_window.get(),
                     [this](int number) { end(number); });
    m_window->show();
    // A file that could not be opened was reported; the user can open another one.
    openFile();
    const bool done = runScript();
    if (m_endCode != 0)
        return m_endCode;
    if (!done)
        return CommandLine::Failure;
    // Closed while the script was running.
    if (!m_window->isVisible())
        return CommandLine::Success;
    // A script on the command line has priority; the recovery menu offers the copies as well.
    if (m_commandLine.scriptFile.isEmpty())
        m_window->recovery()->offer();
    return QApplication::exec();
}

Studio::Studio(const CommandLine &commandLine)
    : m_commandLine(commandLine)
    , m_messages(commandLine.isBatch() ? UserMessages::Mode::Console : UserMessages::Mode::Window)
    , m_settingsStore(settingsFile(commandLine))
{
    VxApp::setAppName(QStringLiteral("VxStudio"));
    if (commandLine.isBatch())
        m_batchDialogs = std::make_unique<BatchDialogs>();
    m_app = std::make_unique<VxApp>();
    loadSettings();
    m_window = std::make_unique<StudioWindow>(&m_messages, recoveryFolder(commandLine));
    m_messages.setWindow(m_window.get());
    loadPlugins();
    buildPanesAndActions();
    connectScripts();
    if (!commandLine.size.isEmpty())
        m_window->resize(commandLine.size);
    StudioWindow *window = m_window.get();
    QObject::connect(window, &StudioWindow::preferencesRequested, window,
                     [this](const QString &page) { showPreferences(page); });
    // At once, not only at the end: a crash should not lose them.
    const auto save = [this] { saveSettings(); };
    QObject::connect(window->recentFiles(), &RecentFiles::changed, window, save);
    QObject::connect(window->document(), &DocumentController::backupsChanged, window, save);
    QObject::connect(window->recovery()->autoSave(), &AutoSave::minutesChanged, window, save);
    m_app->start();
}

Studio::~Studio()
{
    saveSettings();
    m_app->beginClosing();
    m_window.reset();
    m_animations.reset();
    m_app.reset();
}

int Studio::run()
{
    if (m_commandLine.listActions) {
        UserMessages::print(actionListPage(*m_window->menuBar(), *m_window->getActionMgr()));
        return CommandLine::Success;
    }
    if (m_commandLine.diagnose) {
        const StudioSettings settings(m_commandLine.settingsFile.isEmpty()
                                          ? StudioSettings::defaultFileName()
                                          : m_commandLine.settingsFile);
        UserMessages::print(diagnosisPage(*m_app, defaultPluginFolder(), settings.fileToLoad()));
        return CommandLine::Success;
    }
    if (!m_commandLine.isBatch())
        return runWithWindow();
    const bool done = openFile() && runScript() && writePicture();
    return done ? CommandLine::Success : CommandLine::Failure;
}

QString Studio::defaultPluginFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString installed = program.filePath(QStringLiteral("../" VX_PLUGIN_SUBDIR));
    return QDir(installed).exists() ? installed
                                    : program.filePath(QStringLiteral("../lib/vxstudio/plugins"));
}
