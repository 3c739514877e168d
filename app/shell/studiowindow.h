#ifndef STUDIOWINDOW_H
#define STUDIOWINDOW_H

#include <vxcore/vxmainwindow.h>

class DocumentController;
class KeyOverviewDialog;
class MotionCommands;
class PaneDocks;
class RecentFiles;
class RecoveryController;
class StudioMenus;
class UserMessages;
class ViewportWidget;
class VxSettings;

/// The program's main window: the viewport in the middle, panes docked around it, the menu bar and
/// the status line. It puts its parts together and leaves the work to them.
class StudioWindow : public VxMainWindow
{
    Q_OBJECT
public:
    /// The application object must exist. messages is borrowed and must outlive the window.
    /// recoveryFolder: see RecoveryController.
    explicit StudioWindow(UserMessages *messages, const QString &recoveryFolder = QString());
    ~StudioWindow() override;

    DocumentController *document() const { return m_document; }
    ViewportWidget *viewport() const { return m_viewport; }
    PaneDocks *docks() const { return m_docks; }
    RecentFiles *recentFiles() const { return m_recentFiles; }
    RecoveryController *recovery() const { return m_recovery; }

    /// Fills the menu bar from the action manager and the docks. Once, when both are complete.
    void completeMenus();

    /// The size of a window that nobody has sized yet, on a screen with that much room: a good part
    /// of a large screen, and never more than there is of a small one. Pixels.
    static QSize firstSize(const QSize &available);
    /// Size, place and docks as they were saved; the default layout when nothing was.
    void restoreLayout(const VxSettings &settings);
    void saveLayout(VxSettings *settings) const;
    /// Every dock at its first place.
    void applyDefaultLayout();

public Q_SLOTS:
    /// Asks for a file and opens it.
    void openWithDialog();
    /// Opens a file, after asking what becomes of changes that are not saved.
    void openAfterAsking(const QString &fileName);
    /// Opens the document's file again, after asking whether the changes may be lost.
    void revert();
    /// Starts an empty scene, after asking.
    void newDocument();
    /// Writes the document into its file, or into one that it asks for. False when nothing was
    /// written.
    bool save();
    bool saveWithDialog();
    /// Asks for a motion file and adds its figure to the scene.
    void importMotion();
    /// Asks for a file and writes the motion of a figure.
    void exportMotion();
    /// Lets the user change the shortcuts of the actions.
    void editShortcuts();
    /// Shows what the keys and the mouse do, and does not wait.
    void showKeyOverview();

Q_SIGNALS:
    void shortcutsEdited();

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    /// A file that is dropped on the window is opened; a motion may come to the scene instead.
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool hasSizesOfAnother() const;
    void connectMenus();
    bool mayDiscard();
    void takeDroppedFile(const QString &fileName);
    void handleDocumentChanged();
    void updateTitle();
    QString startFolder() const;

    UserMessages *const m_messages;
    DocumentController *m_document;
    ViewportWidget *m_viewport;
    PaneDocks *m_docks;
    RecentFiles *m_recentFiles;
    RecoveryController *m_recovery;
    MotionCommands *m_motion;
    StudioMenus *m_menus;
    KeyOverviewDialog *m_keyOverview = nullptr; // null until it is asked for
    bool m_wantsDefaultLayout = true;
    QSize m_layoutSize; // of the window whose docks were restored; empty once that was looked at
};

#endif
