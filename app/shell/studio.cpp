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
#include "shell/pluginloader.h"
#include "shell/scriptfiles.h"
#include "shell/scriptwatchdog.h"
#include "shell/studioclasses.h"
#include "shell/studiosettings.h"
#include "shell/studiowindow.h"
#include "shell/windowpicture.h"
#include "shortcuts/shortcutcatalogue.h"
#include "viewport/camerascript.h"
#include "widgets/studiotext.h"
#include "widgets/usermessages.h"

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

class Studio::Private
{
public:
    explicit Private(const CommandLine &line)
        : commandLine(line)
        , messages(line.isBatch() ? UserMessages::Mode::Console : UserMessages::Mode::Window)
        , settingsStore(settingsFile(line))
    {
    }

    QString language() const;
    void loadSettings();
    void saveSettings();
    void showPreferences(const QString &page);
    void loadPlugins();
    void buildPanesAndActions();
    void restoreShortcuts();
    void connectScripts();
    void printImportReport() const;
    bool openFile();
    bool runScript();
    void runInWindow(VxScriptEngine *scripts, VxScriptError *error);
    void showUnseen();
    bool writePicture();
    void end(int signalNumber);
    int runWithWindow();

    const CommandLine commandLine;
    UserMessages messages;
    StudioSettings settingsStore;
    std::unique_ptr<VxApp> app;
    std::unique_ptr<Animations> animations;
    QVector<PluginModule> modules;
    std::unique_ptr<StudioWindow> window;
    std::unique_ptr<BatchDialogs> batchDialogs; // of a run without a user
    int endCode = 0;                            // set by a request to end
};

/** The pages for developers are in English, whoever prints them. */
QString Studio::Private::language() const
{
    if (commandLine.listActions || commandLine.diagnose)
        return key("en");
    return commandLine.language.isEmpty() ? LanguageSetting::code(*app->getSettings())
                                          : commandLine.language;
}

void Studio::Private::loadSettings()
{
    VxSettings *settings = app->getSettings();
    settingsStore.load(settings, messages);
    VxLanguage::setCurrent(language());
    StudioSettings::fillDefaults(settings);
    VxStyle *style = app->getStyle();
    Appearance::restore(*settings, style);
    if (!commandLine.palette.isEmpty())
        style->setColorScheme(Appearance::paletteOf(commandLine.palette));
    if (commandLine.textSize)
        style->setTextSize(*commandLine.textSize);
    animations = std::make_unique<Animations>(style);
    animations->setChoice(Animations::choiceOf(settings->getStringValue(key("Animation"))));
    if (!commandLine.isBatch())
        animations->followSessionBus();
}

void Studio::Private::saveSettings()
{
    VxSettings *settings = app->getSettings();
    Appearance::store(*app->getStyle(), settings);
    settings->setStringValue(key("Animation"), Animations::nameOf(animations->choice()));
    window->saveLayout(settings->getSettings(key("Window")));
    window->recentFiles()->store(settings->getSettings(key("RecentFiles")));
    settings->getSettings(key("Recovery"))
        ->setIntValue(key("Minutes"), window->recovery()->autoSave()->minutes());
    settings->getSettings(key("Recovery"))
        ->setIntValue(key("Entries"), window->recovery()->journal()->keptEntries());
    settings->getSettings(key("Saving"))
        ->setIntValue(key("Backups"), window->document()->backups());
    window->getPaneMgr()->saveSettings();
    window->getActionMgr()->saveShortcuts(settings->getSettings(key("Shortcuts")));
    settingsStore.save(*settings, messages);
}

void Studio::Private::loadPlugins()
{
    PluginLoader loader(settingsFile(commandLine), app->getSettings());
    if (commandLine.enablePlugins)
        loader.enableAll();
    const QStringList folders = QStringList(defaultPluginFolder()) + commandLine.pluginPaths;
    for (const QString &message : loader.load(folders, app->getPluginMgr()))
        messages.showNotice(message);
    modules = loader.modules();
}

void Studio::Private::showPreferences(const QString &page)
{
    VxSettings *settings = app->getSettings();
    const QVector<PreferencesPage *> pages{
        new GeneralPage({settings, app->getStyle(), animations.get(), window->document(),
                         window->recovery()->autoSave(), window->recovery()->journal()}),
        new TimelinePage(*window->getActionMgr()),
        new KeysPage(window->shortcuts(),
                     [this](const ShortcutList &list) { window->applyShortcuts(list); }),
        new PluginsPage(modules, settings)};
    PreferencesDialog dialog(pages, window.get());
    dialog.showPage(page);
    QObject::connect(&dialog, &PreferencesDialog::applied, window.get(),
                     [this] { saveSettings(); });
    dialog.exec();
}

void Studio::Private::buildPanesAndActions()
{
    VxPluginMgr *plugins = app->getPluginMgr();
    for (VxClassFactory *factory : studioClassFactories())
        plugins->addClassFactory(factory);
    window->getActionMgr()->createActions(plugins);
    window->getPaneMgr()->createPanes(plugins);
    window->getActionMgr()->initActions();
    const VxSettings *settings = app->getSettings();
    restoreShortcuts();
    window->completeMenus();
    window->restoreLayout(*app->getSettings()->getSettings(key("Window")));
    if (const VxSettings *recent = settings->findSettings(key("RecentFiles")))
        window->recentFiles()->restore(*recent);
    if (const VxSettings *recovery = settings->findSettings(key("Recovery"))) {
        window->recovery()->autoSave()->setMinutes(
            recovery->getIntValue(key("Minutes"), AutoSave::DefaultMinutes));
        window->recovery()->journal()->setKeptEntries(
            recovery->getIntValue(key("Entries"), RecoveryJournal::DefaultKeptEntries));
    }
    if (const VxSettings *saving = settings->findSettings(key("Saving")))
        window->document()->setBackups(
            saving->getIntValue(key("Backups"), VxBackups::DefaultCount));
}

/** A manually edited file may give two commands one shortcut: reports it instead of dead keys. */
void Studio::Private::restoreShortcuts()
{
    const VxSettings *stored = app->getSettings()->findSettings(key("Shortcuts"));
    if (!stored)
        return;
    VxActionMgr *actions = window->getActionMgr();
    const QStringList refused = actions->restoreShortcuts(stored);
    if (!refused.isEmpty())
        messages.showNotice(ShortcutCatalogue::refusalText(refused, *stored, *actions));
}

void Studio::Private::connectScripts()
{
    VxScriptEngine *scripts = app->getScriptEngine();
    scripts->registerHost();
    addFileFunctions(scripts, window->document());
    addPoseFunctions(scripts->engine());
    addCameraFunctions(scripts->engine());
    QObject::connect(scripts, &VxScriptEngine::printed, window.get(), &UserMessages::print);
}

void Studio::Private::printImportReport() const
{
    const VxImportReport &report = window->document()->importReport();
    if (commandLine.importReport && !report.file.isEmpty())
        UserMessages::print(
            QString::fromUtf8(QJsonDocument(report.toJson()).toJson(QJsonDocument::Indented)));
}

bool Studio::Private::openFile()
{
    if (!commandLine.file.isEmpty()) {
        VxMotionBuildOptions options;
        options.clip = commandLine.animation;
        if (!window->document()->open(commandLine.file, options))
            return false;
        printImportReport();
        if (commandLine.headless) {
            UserMessages::print(QStringLiteral("%1: %2").arg(window->document()->displayName(),
                                                             sceneSummary(*app->getScene())));
            if (!window->document()->summary().isEmpty())
                UserMessages::print(window->document()->summary());
        }
    }
    VxScene *scene = app->getScene();
    if (commandLine.frame)
        scene->setTime(*commandLine.frame * scene->getTimeStep());
    return true;
}

bool Studio::Private::runScript()
{
    if (commandLine.scriptFile.isEmpty())
        return true;
    VxScriptEngine *scripts = app->getScriptEngine();
    scripts->setArguments(commandLine.scriptArguments);
    VxScriptError error;
    if (commandLine.isBatch()) {
        showUnseen();
        const ScriptWatchdog watchdog(commandLine.scriptFile,
                                      {commandLine.scriptSeconds, commandLine.scriptMegabytes});
        scripts->runFile(commandLine.scriptFile, &error);
    } else {
        runInWindow(scripts, &error);
    }
    if (error.isNull())
        return true;
    UserMessages::printError(error.toString());
    return false;
}

/** The window stays responsive and requests to end are obeyed; the changes can be undone. */
void Studio::Private::runInWindow(VxScriptEngine *scripts, VxScriptError *error)
{
    scripts->setMemoryLimit(qint64(commandLine.scriptMegabytes) << 20);
    scripts->setStoppable(true);
    QFile file(commandLine.scriptFile);
    // A script from a pipe can be read only once.
    const bool usesHistory = QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly) &&
                             file.readAll().contains("Undo");
    if (usesHistory) {
        scripts->runFile(commandLine.scriptFile, error);
    } else {
        VxUndoStackHold hold;
        scripts->runFile(commandLine.scriptFile, error);
        hold.accept(StudioText::tr("Script: %1").arg(QFileInfo(commandLine.scriptFile).fileName()));
    }
    scripts->setStoppable(false);
}

/** Panes fill themselves when they are shown: so a script finds them filled. */
void Studio::Private::showUnseen()
{
    window->setAttribute(Qt::WA_DontShowOnScreen);
    window->show();
    QCoreApplication::processEvents();
}

bool Studio::Private::writePicture()
{
    if (commandLine.screenshotFile.isEmpty())
        return true;
    window->hide();
    window->setAttribute(Qt::WA_DontShowOnScreen, false);
    QString error;
    const QSize size = commandLine.size.isEmpty() ? PictureSize : commandLine.size;
    if (writeWindowPicture(window.get(), size, commandLine.screenshotFile, &error))
        return true;
    messages.showError(error);
    return false;
}

/** The system or a terminal requests the end: no questions about unsaved work are possible. */
void Studio::Private::end(int signalNumber)
{
    window->recovery()->autoSave()->writeNow();
    endCode = SignalExit + signalNumber;
    app->getScriptEngine()->abort();
    QCoreApplication::exit(endCode);
}

int Studio::Private::runWithWindow()
{
    EndSignals requests;
    QObject::connect(&requests, &EndSignals::received, window.get(),
                     [this](int number) { end(number); });
    window->show();
    // A file that could not be opened was reported; the user can open another one.
    openFile();
    const bool done = runScript();
    if (endCode != 0)
        return endCode;
    if (!done)
        return CommandLine::Failure;
    // Closed while the script was running.
    if (!window->isVisible())
        return CommandLine::Success;
    // A script on the command line has priority; the recovery menu offers the copies as well.
    if (commandLine.scriptFile.isEmpty())
        window->recovery()->offer();
    return QApplication::exec();
}

Studio::Studio(const CommandLine &commandLine)
    : d(std::make_unique<Private>(commandLine))
{
    VxApp::setAppName(QStringLiteral("VxStudio"));
    if (commandLine.isBatch())
        d->batchDialogs = std::make_unique<BatchDialogs>();
    d->app = std::make_unique<VxApp>();
    d->loadSettings();
    d->window = std::make_unique<StudioWindow>(&d->messages, recoveryFolder(commandLine));
    d->messages.setWindow(d->window.get());
    d->loadPlugins();
    d->buildPanesAndActions();
    d->connectScripts();
    if (!commandLine.size.isEmpty())
        d->window->resize(commandLine.size);
    // At once, not only at the end: a crash should not lose them.
    QObject::connect(d->window.get(), &StudioWindow::preferencesRequested, d->window.get(),
                     [this](const QString &page) { d->showPreferences(page); });
    QObject::connect(d->window->recentFiles(), &RecentFiles::changed, d->window.get(),
                     [this] { d->saveSettings(); });
    QObject::connect(d->window->document(), &DocumentController::backupsChanged, d->window.get(),
                     [this] { d->saveSettings(); });
    QObject::connect(d->window->recovery()->autoSave(), &AutoSave::minutesChanged, d->window.get(),
                     [this] { d->saveSettings(); });
    d->app->start();
}

Studio::~Studio()
{
    d->saveSettings();
    d->app->beginClosing();
    d->window.reset();
    d->animations.reset();
    d->app.reset();
}

StudioWindow *Studio::window() const
{
    return d->window.get();
}

int Studio::run()
{
    if (d->commandLine.listActions) {
        UserMessages::print(actionListPage(*d->window->menuBar(), *d->window->getActionMgr()));
        return CommandLine::Success;
    }
    if (d->commandLine.diagnose) {
        UserMessages::print(diagnosisPage(*d->app, defaultPluginFolder(),
                                          d->commandLine.settingsFile.isEmpty()
                                              ? StudioSettings::defaultFileName()
                                              : d->commandLine.settingsFile));
        return CommandLine::Success;
    }
    if (!d->commandLine.isBatch())
        return d->runWithWindow();
    const bool done = d->openFile() && d->runScript() && d->writePicture();
    return done ? CommandLine::Success : CommandLine::Failure;
}

QString Studio::defaultPluginFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString installed = program.filePath(QStringLiteral("../" VX_PLUGIN_SUBDIR));
    return QDir(installed).exists() ? installed
                                    : program.filePath(QStringLiteral("../lib/vxstudio/plugins"));
}
