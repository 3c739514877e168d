#ifndef STUDIO_H
#define STUDIO_H

#include "shell/commandline.h"
#include "shell/pluginloader.h"
#include "shell/studiosettings.h"
#include "widgets/usermessages.h"

#include <memory>

class Animations;
class BatchDialogs;
class StudioWindow;
class VxApp;
class VxScriptEngine;
struct VxScriptError;

/// The running program: creates application object, window, plug-ins and panes in the order of
/// their dependencies, executes the command line, and destroys everything in reverse order.
class Studio
{
public:
    /// Needs a QApplication. Creates everything and shows nothing.
    explicit Studio(const CommandLine &commandLine);
    /// Saves the settings, then destroys panes, window and application object.
    ~Studio();
    Studio(const Studio &) = delete;
    Studio &operator=(const Studio &) = delete;

    StudioWindow *window() const { return m_window.get(); }

    /// Opens, runs and writes the files of the command line, and in between runs the user's
    /// session. Returns the exit code.
    int run();

    /// The default folder of plug-ins: beside the program, both installed and in the build tree.
    static QString defaultPluginFolder();

private:
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

    const CommandLine m_commandLine;
    UserMessages m_messages;
    StudioSettings m_settingsStore;
    std::unique_ptr<VxApp> m_app;
    std::unique_ptr<Animations> m_animations;
    QVector<PluginModule> m_modules;
    std::unique_ptr<StudioWindow> m_window;
    std::unique_ptr<BatchDialogs> m_batchDialogs; // of a run without a user
    int m_endCode = 0;                            // set by a request to end
};

#endif
