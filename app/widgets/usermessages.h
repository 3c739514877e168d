#ifndef USERMESSAGES_H
#define USERMESSAGES_H

#include <QPointer>
#include <QString>

class VxMainWindow;

/// The one place where the program speaks to its user: in message boxes and the status line where
/// somebody looks at a window, on standard output and standard error where not. Nothing waits for
/// an answer in the second case. Texts are shown as they are: a file's name is no markup.
class UserMessages
{
public:
    enum class Mode { Window, Console };

    explicit UserMessages(Mode mode);

    Mode mode() const { return m_mode; }
    bool isConsole() const { return m_mode == Mode::Console; }
    /// The window whose status line is used and in front of which boxes open; may be null.
    void setWindow(VxMainWindow *window);
    VxMainWindow *window() const;

    /// Something the user asked for could not be done.
    void showError(const QString &text) const;
    /// Something is missing, but the program goes on: status line and standard error.
    void showNotice(const QString &text) const;
    /// A sentence for the status line; nothing without a window to look at.
    void showStatus(const QString &text) const;
    enum class Choice { Save, Discard, Cancel };
    /// Asks what becomes of changes that are not saved; they are discarded without anybody to ask.
    Choice askToSave(const QString &documentName) const;

    /// Asks whether the changes since the last save may be lost; nobody to ask agrees.
    bool askToRevert(const QString &documentName) const;

    /// Asks whether what somebody else has written into the document's file may be replaced;
    /// nobody to ask agrees.
    bool askToOverwrite(const QString &documentName) const;
    /// Asks whether a file may be replaced that was not chosen under its full name.
    bool askToReplace(const QString &fileName) const;

    /// Asks whether the copy of a document that was not saved may be deleted.
    bool askToDeleteCopy(const QString &documentName) const;

    enum class Arrival { Open, Import, Cancel };
    /// Asks whether a motion takes the place of the scene or comes to it.
    Arrival askHowToOpen(const QString &motionName) const;

    /// Whole lines to standard output or standard error, passed on at once.
    static void print(const QString &text);
    static void printError(const QString &text);

private:
    int ask(int icon, const QString &text, int buttons, int defaultButton) const;

    Mode m_mode;
    QPointer<VxMainWindow> m_window;
};

#endif
