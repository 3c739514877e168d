#ifndef STUDIO_H
#define STUDIO_H

#include "shell/commandline.h"

#include <memory>

class StudioWindow;

/// The running program: puts application object, window, plug-ins and panes together in the order
/// in which they need each other, does what the command line asks, and takes everything apart in
/// the opposite order.
class Studio
{
public:
    /// Needs a QApplication. Everything is ready afterwards but nothing is shown.
    explicit Studio(const CommandLine &commandLine);
    /// Saves the settings, then destroys panes, window and application object.
    ~Studio();
    Studio(const Studio &) = delete;
    Studio &operator=(const Studio &) = delete;

    StudioWindow *window() const;

    /// Opens, runs and writes what the command line names, and in between lets the user work.
    /// Returns the exit code.
    int run();

    /// Where plug-ins are looked for when nothing else is said: beside the program, as it is
    /// installed and as it is built.
    static QString defaultPluginFolder();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
