#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>

/// What the user asked for when starting the program: a plain value.
///
/// It is parsed twice: once from the raw arguments before there is an application object, to choose
/// the platform, and once from what the toolkit left of them.
class CommandLine
{
public:
    enum class Action {
        Run,
        ShowHelp,
        ShowVersion,
        Fail ///< errorText says why; the exit code is BadUsage
    };

    enum ExitCode {
        Success = 0,
        Failure = 1, ///< a file, a script or a picture went wrong
        BadUsage = 2 ///< the command line itself is wrong
    };

    /// arguments: the program's name first. What stands behind the first "--" belongs to the
    /// script; without a script it is taken as file names, whatever they begin with.
    static CommandLine parse(const QStringList &arguments);

    /// Usage, options and exit codes. Needs an application object.
    static QString helpText();
    /// Product, version and the version of the host library.
    static QString versionText();

    /// True when nothing is shown on a display and nobody is there to answer a question.
    bool isBatch() const
    {
        return headless || listActions || diagnose || !screenshotFile.isEmpty();
    }

    Action action = Action::Run;
    QString errorText;

    QString file; ///< to open; empty for none
    bool headless = false;
    bool listActions = false;   ///< print the page of all actions, and nothing else
    bool diagnose = false;      ///< print the page for error reports, and nothing else
    bool enablePlugins = false; ///< load modules again that are skipped
    QString logRules;           ///< for QLoggingCategory::setFilterRules(); empty for none
    QString animation;          ///< of a motion file with several; empty: all
    bool importReport = false;  ///< print what was found in a motion file as JSON
    QString scriptFile;
    QStringList scriptArguments;
    int scriptSeconds = 0;      ///< the time limit of the script in a batch; 0 for none
    int scriptMegabytes = 2048; ///< the memory limit of the script; 0 for none
    QString screenshotFile;
    QSize size; ///< of the window in logical pixels; empty when not given
    QString settingsFile;
    QStringList pluginPaths;
    QString palette;          ///< "dark", "light" or empty
    std::optional<int> frame; ///< to go to after the file was opened
};

#endif
