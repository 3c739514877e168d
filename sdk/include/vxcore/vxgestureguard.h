#ifndef VXCORE_VXGESTUREGUARD_H
#define VXCORE_VXGESTUREGUARD_H

#include <QtCore/QObject>
#include <vxcore/vxcoreglobal.h>

class QWidget;

/// Ends a mouse gesture whose release will not arrive.
///
/// A gesture lasts from a press to its release. Between them the release can be lost: the widget is
/// hidden, docked elsewhere or disabled, its window is deactivated or blocked by a dialog, a menu
/// opens, the focus leaves, or another widget gets the release. Escape drops a gesture, too,
/// whichever widget has the focus; nothing else sees that key press then. In all these cases the
/// guard emits dropped() once, and the owner puts back what the gesture has changed.
class VXCORE_EXPORT VxGestureGuard : public QObject
{
    Q_OBJECT
public:
    /// widget: the one that gets the mouse events of the gesture; the guard's parent.
    explicit VxGestureGuard(QWidget *widget);
    ~VxGestureGuard() override;

    /// To be called at the press and at the release. Neither emits anything.
    void begin();
    void end();
    /// True from begin() to end() or dropped().
    bool isActive() const { return m_active; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The gesture is over, without its release. The guard is inactive already.
    void dropped();

private:
    bool isLostBy(const QObject *watched, const QEvent *event) const;
    void drop();

    QWidget *m_widget;
    bool m_active = false;
};

#endif
