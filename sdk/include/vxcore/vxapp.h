#ifndef VXAPP_H
#define VXAPP_H

#include <QtCore/QObject>
#include <memory>
#include <vxcore/vxcoreglobal.h>

class QWidget;
class VxKeySelection;
class VxMainWindow;
class VxPluginMgr;
class VxScene;
class VxScriptEngine;
class VxSettings;
class VxStyle;
class VxUndoStack;

/// The application: the root object that gives access to everything else.
///
/// Exactly one exists while the program runs; it sets the global `vxApp` and, with the scene it
/// owns, `vxScene`. It needs a QApplication, to which it gives its style. The main window is made
/// by the program and registers itself here; it is destroyed before this object. At the end the
/// script engine is destroyed first, then the contents of the history, the scene, the history, the
/// plug-in manager and the settings.
class VXCORE_EXPORT VxApp : public QObject
{
    Q_OBJECT
public:
    VxApp();
    ~VxApp() override;

    /// The product's name, "VxStudio" unless the program set another. Static, because plug-ins
    /// read it while they are being loaded.
    static QString getAppName();
    static void setAppName(const QString &name);

    /// Owned by this object; never null, except while it is being destroyed.
    VxScene *getScene() const;
    VxUndoStack *getUndoStack() const;
    VxKeySelection *getKeySelection() const;
    VxSettings *getSettings() const;
    /// Has the host's own panes and actions from the beginning.
    VxPluginMgr *getPluginMgr() const;
    /// Created at the first call, with everything registered; classes of plug-ins loaded later are
    /// added automatically.
    VxScriptEngine *getScriptEngine() const;

    /// The style in use, owned by QApplication; null only without a QApplication.
    VxStyle *getStyle() const;
    /// Takes ownership of a style, sets it and its palette on QApplication, and emits
    /// styleChanged(). The former style is deleted. Null and the style in use are ignored.
    void setStyle(VxStyle *style);

    /// The main window, or null while there is none. Not owned.
    VxMainWindow *getInterface() const;
    void setInterface(VxMainWindow *window);
    /// The widget to give to dialogs as their parent: the main window; may be null.
    QWidget *getDialogParent() const;

    /// True once the program begins to shut down, at the latest in this object's destructor.
    /// Deferred work is skipped then.
    bool isClosing() const;
    /// True once starting() has been emitted.
    bool isStarted() const;

    /// Emits starting(), once: everything is loaded and the event loop is about to run.
    void start();
    /// Emits closing(), once, and makes isClosing() true.
    void beginClosing();

Q_SIGNALS:
    /// Another style is in use, or its metrics have changed with the text size.
    void styleChanged(VxStyle *style);
    void starting();
    void closing();

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// The application object; null before its construction and after its destruction.
extern VXCORE_EXPORT VxApp *vxApp;

#endif
