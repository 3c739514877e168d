#ifndef KEYGESTURE_H
#define KEYGESTURE_H

#include "keytools/keygestureamount.h"
#include "keytools/keymarkersnap.h"
#include "keytools/keytoolpreview.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>
#include <vxcore/vxtimeaxis.h>

/// A modal edit of keys in the views along a time axis: the mouse, or a typed number, moves,
/// scales or duplicates keys, and a line over the views shows what will happen.
///
/// It has the focus and gets the mouse events of the whole window. Enter or a left click accepts
/// with one undo entry; Escape, a right click, the loss of the focus, a removed node and a
/// change of the current time restore the keys. Amounts of the mouse snap to whole frames, to round
/// values or to 5 %; not with Shift. With Ctrl the mouse moves at a tenth of its speed.
class KeyGesture : public QWidget
{
    Q_OBJECT
public:
    /// Begins a gesture; the widget deletes itself at its end. Null, with a message in the status
    /// line, when there are no keys to edit, a gesture or another change is in progress, or the
    /// views are not visible. Pauses playback.
    static KeyGesture *begin(VxTimeAxis *axis, KeyGestureKind kind, int pivot = 0);
    ~KeyGesture() override;

    /// The line over the views.
    const QString &headUpText() const { return m_text; }

public Q_SLOTS:
    /// Ends the gesture with the shown edit as one undo entry; none when nothing changed.
    void accept();
    /// Ends the gesture and restores the keys.
    void cancel();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    KeyGesture(VxTimeAxis *axis, const KeyGestureAmount &amount, const VxTimeRange &range);
    void start();
    bool handleMouse(const QEvent *event);
    void moveMouse(const QMouseEvent &event);
    bool step(const QKeyEvent &event);
    void followMouse(bool snaps);
    double ticksPerPixel() const;
    double pivotTime() const;
    void showAmount();
    void end();

    QPointer<VxTimeAxis> m_axis;
    KeyGestureAmount m_amount;
    KeyToolPreview m_preview;
    QPointer<VxGestureGuard> m_guard;
    QPointer<QWidget> m_formerFocus;
    VxTimeRange m_range; // of the edited keys at the start
    KeyMarkerSnap m_markers;
    double m_valuePerPixel = 0;
    QPointer<QObject> m_window; // source of the mouse events
    bool m_hasMouse = false;    // a mouse event was received
    QPointF m_origin;           // position of the first one
    QPointF m_mouse;            // position of the last one
    QPointF m_pixel;            // the same with the slower movement of Ctrl
    QString m_text;
    bool m_isOpen = true;
    Qt::MouseButton m_pressed = Qt::NoButton;
};

#endif
