#ifndef STUDIO_H
#define STUDIO_H

#include "shell/commandline.h"

#include <memory>

class StudioWindow;

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

    StudioWindow *window() const;

    /// Opens, runs and writes the files of the command line, and in between runs the user's
    /// session. Returns the exit code.
    int run();

    /// The default folder of plug-ins: beside the program, both installed and in the build tree.
    static QString defaultPluginFolder();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
