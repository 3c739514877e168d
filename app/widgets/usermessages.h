#ifndef USERMESSAGES_H
#define USERMESSAGES_H

#include <QPointer>
#include <QString>

class VxMainWindow;

/// All messages to the user: message boxes and the status line in a session with a window, standard
/// output and standard error in an unattended run, which never asks. Texts are shown literally: a
/// file's name is no markup.
class UserMessages
{
public:
    enum class Mode { Window, Console };

    explicit UserMessages(Mode mode);

    bool isConsole() const { return m_mode == Mode::Console; }
    /// The window for the status line and the parent of boxes; may be null.
    void setWindow(VxMainWindow *window);
    VxMainWindow *window() const;

    /// A command of the user failed.
    void showError(const QString &text) const;
    /// Something is missing, but the program continues: status line and standard error.
    void showNotice(const QString &text) const;
    /// A sentence for the status line; ignored without a window.
    void showStatus(const QString &text) const;
    enum class Choice { Save, Discard, Cancel };
    /// Asks about unsaved changes; an unattended run discards them.
    Choice askToSave(const QString &documentName) const;

    /// Asks whether to discard the changes since the last save; an unattended run does.
    bool askToRevert(const QString &documentName) const;

    enum class Overwrite { Save, SaveAs, Cancel };
    /// Asks whether to save although another program has changed, removed or renamed the
    /// document's file; text: a sentence that states which. Only with a window.
    Overwrite askToOverwrite(const QString &text) const;
    /// Asks whether to replace a file that was not chosen under its full name.
    bool askToReplace(const QString &fileName) const;

    /// Asks whether to delete the copy of a document that was not saved.
    bool askToDeleteCopy(const QString &documentName) const;

    enum class Arrival { Open, Import, Cancel };
    /// Asks whether a motion replaces the scene or is added to it.
    Arrival askHowToOpen(const QString &motionName) const;

    /// Whole lines to standard output or standard error, flushed at once.
    static void print(const QString &text);
    static void printError(const QString &text);

private:
    int ask(int icon, const QString &text, int buttons, int defaultButton) const;

    Mode m_mode;
    QPointer<VxMainWindow> m_window;
};

#endif
