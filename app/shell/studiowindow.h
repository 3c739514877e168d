#ifndef STUDIOWINDOW_H
#define STUDIOWINDOW_H

#include <vxcore/vxmainwindow.h>

class DocumentController;
class KeyOverviewDialog;
class MotionCommands;
class PaneDocks;
class PoseToolBar;
class RecentFiles;
class RecoveryController;
class ShortcutList;
class StudioMenus;
class UserMessages;
class ViewportWidget;
class VxSettings;

/// The program's main window: the viewport in the middle, panes docked around it, the menu bar and
/// the status line. It assembles its parts and delegates to them.
class StudioWindow : public VxMainWindow
{
    Q_OBJECT
public:
    /// The application object must exist. messages is borrowed and must outlive the window.
    /// recoveryFolder: see RecoveryController.
    explicit StudioWindow(UserMessages *messages, const QString &recoveryFolder = QString());

    /// The shortcuts of all commands, for an editor, and their changes there.
    ShortcutList shortcuts() const;
    void applyShortcuts(const ShortcutList &list);

    DocumentController *document() const { return m_document; }
    ViewportWidget *viewport() const { return m_viewport; }
    PaneDocks *docks() const { return m_docks; }
    RecentFiles *recentFiles() const { return m_recentFiles; }
    RecoveryController *recovery() const { return m_recovery; }

    /// Fills the menu bar from the action manager and the docks. Call it once, when both are
    /// complete.
    void completeMenus();

    /// The initial size of a window on a screen with that much space: a good part of a large
    /// screen, and at most all of a small one. Pixels.
    static QSize firstSize(const QSize &available);
    /// Restores saved size, position and docks; the default layout without a saved one.
    void restoreLayout(const VxSettings &settings);
    void saveLayout(VxSettings *settings) const;
    /// Moves every dock to its initial position.
    void applyDefaultLayout();

public Q_SLOTS:
    /// Asks for a file and opens it.
    void openWithDialog();
    /// Opens a file, after asking about unsaved changes.
    void openAfterAsking(const QString &fileName);
    /// Opens the shipped sample, after asking about unsaved changes.
    void openSample();
    /// Opens the document's file again, after asking about unsaved changes.
    void revert();
    /// Starts an empty scene, after asking.
    void newDocument();
    /// Writes the document to its file, or to one that it asks for. False when nothing was written.
    bool save();
    bool saveWithDialog();
    /// Asks for a motion file and adds its figure to the scene.
    void importMotion();
    /// Asks for a file and writes the motion of a figure.
    void exportMotion();
    /// Asks for a CSV file and adds its markers to the scene, or writes the scene's markers to it.
    void importMarkers();
    void exportMarkers();
    /// Shows what was found in the motion file that was read last.
    void showImportReport();
    /// applyDefaultLayout(), with a message.
    void restoreDefaultLayout();
    /// Requests the preferences' page of shortcuts.
    void requestShortcuts() { Q_EMIT preferencesRequested(QStringLiteral("KeysPage")); }
    /// Shows the page about keys and mouse, not modal.
    void showKeyOverview();
    void showAbout();

Q_SIGNALS:
    /// page: its object name; empty for the first one.
    void preferencesRequested(const QString &page);

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    /// A dropped file is opened; a motion may be imported into the scene instead.
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool hasSizesOfAnother() const;
    bool mayDiscard();
    void openDroppedFile(const QString &fileName);
    void handleDocumentChanged();
    void updateTitle();
    QString startFolder() const;

    UserMessages *const m_messages;
    DocumentController *m_document;
    ViewportWidget *m_viewport;
    PoseToolBar *m_toolBar = nullptr;
    PaneDocks *m_docks;
    RecentFiles *m_recentFiles;
    RecoveryController *m_recovery;
    MotionCommands *m_motion;
    StudioMenus *m_menus;
    KeyOverviewDialog *m_keyOverview = nullptr; // null until first shown
    bool m_needsDefaultLayout = true;
    QSize m_layoutSize; // of the window whose docks were restored; empty after its evaluation
};

#endif
