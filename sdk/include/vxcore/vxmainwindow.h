#ifndef VXMAINWINDOW_H
#define VXMAINWINDOW_H

#include <QtWidgets/QMainWindow>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxActionMgr;
class VxPane;
class VxPaneMgr;
class VxViewportMgr;

/// The application's main window for plug-ins: gives access to the managers of panes, viewports
/// and actions. The application derives its own window from it.
class VXCORE_EXPORT VxMainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// Registers itself as the interface of the application object, if there is one, and stores
    /// the panes' options in the group "Panes" of its settings. Whenever a pane is added, all
    /// actions read their state anew.
    explicit VxMainWindow(QWidget *parent = nullptr);
    /// Destroys the panes first, then unregisters from the application object. The managers are
    /// destroyed last.
    ~VxMainWindow() override;

    /// Never null; owned by the window.
    VxPaneMgr *getPaneMgr() const;
    VxViewportMgr *getViewportMgr() const;
    VxActionMgr *getActionMgr() const;

    /// Shows a sentence in the status line, for a number of milliseconds (0: until the next one).
    virtual void showStatusMessage(const QString &text, int milliseconds = 5000);

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// For callers that may run without a main window: shows a sentence in its status line.
VXCORE_EXPORT void vxShowStatusMessage(const QString &text);
/// The main window's pane of a class; null without a main window or such a pane.
VXCORE_EXPORT VxPane *vxFindPane(const QString &className);

#endif
