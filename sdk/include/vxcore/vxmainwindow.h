#ifndef VXCORE_VXMAINWINDOW_H
#define VXCORE_VXMAINWINDOW_H

#include <QtWidgets/QMainWindow>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class VxActionMgr;
class VxPaneMgr;
class VxViewportMgr;

/// The application's main window as plug-ins see it: the place where the managers of panes,
/// viewports and actions are found. The application derives its own window from it.
class VXCORE_EXPORT VxMainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// Registers itself as the interface of the application object, if there is one, and lets the
    /// panes keep their options in the group "Panes" of its settings. Whenever a pane is added,
    /// all actions read their state anew.
    explicit VxMainWindow(QWidget *parent = nullptr);
    /// Destroys the panes first, then withdraws from the application object. The action manager
    /// and the others go last.
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

#endif
