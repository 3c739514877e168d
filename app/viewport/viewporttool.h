#ifndef VIEWPORTTOOL_H
#define VIEWPORTTOOL_H

#include <QObject>
#include <QPointF>
#include <QString>

class QKeyEvent;
class QPainter;
class QPalette;
class ViewportCamera;

/// The mouse over the viewport.
struct ViewportPointer
{
    QPointF pixel; ///< in the viewport
    Qt::KeyboardModifiers modifiers;
    const ViewportCamera &camera; ///< borrowed for the call
};

/// A mode of the viewport's left button, or a layer above the figures that can be clicked.
///
/// The viewport first asks its layers, then its current tool; a press that all refuse orbits the
/// view when dragged and selects when clicked. Buttons with an operation of the mouse conventions
/// are never offered. From an accepted press to release() or cancel() the tool gets every move of
/// the mouse, and the camera does not change.
///
/// The base class accepts nothing: as a tool it only selects.
class ViewportTool : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Starts a gesture of the left button. False when the viewport is to handle the press.
    virtual bool press(const ViewportPointer &) { return false; }
    virtual void drag(const ViewportPointer &) {}
    /// The end of the gesture; the mouse may have stayed where it was pressed.
    virtual void release(const ViewportPointer &) {}
    /// The mouse moves without a button. True when something of the tool's own is below it; no node
    /// is highlighted then.
    virtual bool hover(const ViewportPointer &) { return false; }
    /// The mouse is over something else now.
    virtual void leave() {}

    /// True for a key press to be delivered to key(), before any shortcut.
    virtual bool usesKey(const QKeyEvent &) const { return false; }
    virtual void key(const QKeyEvent &) {}

    /// True while something is unfinished: from press to release, or between the clicks of a tool
    /// that needs several. Escape then calls cancel().
    virtual bool isBusy() const { return false; }
    /// Reverts what is unfinished: Escape, a lost release, another tool, another scene. Called at
    /// any time.
    virtual void cancel() {}

    /// Paints over the figures. The painter is antialiased; its state needs no restoring.
    virtual void paint(QPainter *, const ViewportCamera &, const QPalette &) const {}

Q_SIGNALS:
    /// paint() shows something else now.
    void changed();
    /// A text for the status line.
    void message(const QString &text);
};

#endif
