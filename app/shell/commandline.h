#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>

/// The parsed command line: a plain value.
///
/// It is parsed twice: once from the raw arguments before there is an application object, to choose
/// the platform, and once from the arguments that the toolkit left.
class CommandLine
{
public:
    enum class Action {
        Run,
        ShowHelp,
        ShowVersion,
        Fail ///< errorText has the reason; the exit code is BadUsage
    };

    enum ExitCode {
        Success = 0,
        Failure = 1, ///< a file, a script or a picture failed
        BadUsage = 2 ///< the command line itself is wrong
    };

    /// arguments: the program's name first. Arguments after the first "--" belong to the script;
    /// without a script they are file names, whatever they begin with.
    static CommandLine parse(const QStringList &arguments);

    /// Usage, options and exit codes. Needs an application object.
    static QString helpText();
    /// Product, version and the version of the host library.
    static QString versionText();

    /// True for a run without a display and without a user to answer questions.
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
    bool importReport = false;  ///< print the import report of a motion file as JSON
    QString scriptFile;
    QStringList scriptArguments;
    int scriptSeconds = 0;      ///< the time limit of the script in a batch; 0 for none
    int scriptMegabytes = 2048; ///< the memory limit of the script; 0 for none
    QString screenshotFile;
    QSize size; ///< of the window in logical pixels; empty when not given
    QString settingsFile;
    QStringList pluginPaths;
    QString language;            ///< a code of VxLanguage::available(), or empty
    QString palette;             ///< a name of Appearance::paletteNames(), or empty
    std::optional<int> textSize; ///< points; 0 for the desktop's
    std::optional<int> frame;    ///< made current after the file was opened
};

#endif
