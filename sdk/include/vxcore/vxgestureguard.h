#ifndef VXGESTUREGUARD_H
#define VXGESTUREGUARD_H

#include <QtCore/QObject>
#include <vxcore/vxcoreglobal.h>

class QWidget;

/// Ends a mouse gesture whose release is lost.
///
/// A gesture lasts from a press to its release. The release is lost when the widget is hidden,
/// docked elsewhere or disabled, its window is deactivated or blocked by a dialog, a menu opens,
/// the focus is lost, or another widget gets the release. Escape cancels a gesture, too, whichever
/// widget has the focus; no other object receives that key press. In all these cases the guard
/// emits cancelled() once, and the owner reverts the changes of the gesture.
class VXCORE_EXPORT VxGestureGuard : public QObject
{
    Q_OBJECT
public:
    /// widget: receives the gesture's mouse events; the guard's parent.
    explicit VxGestureGuard(QWidget *widget);
    ~VxGestureGuard() override;

    /// Call at the press and at the release. Neither emits anything.
    void begin();
    void end();
    /// True from begin() to end() or cancelled().
    bool isActive() const { return m_active; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The gesture ended without its release and is to be reverted. The guard is inactive already.
    void cancelled();

private:
    bool isLostBy(const QObject *watched, const QEvent *event) const;
    void cancel();

    QWidget *m_widget;
    bool m_active = false;
    const QMetaObject *m_class = nullptr;
};

#endif
