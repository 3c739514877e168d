#ifndef VXVIEWPORTMGR_H
#define VXVIEWPORTMGR_H

#include <QtCore/QObject>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// The mouse conventions of the viewports: the operation of each mouse button with modifiers.
///
/// A button with modifiers makes an accelerator (a number); an accelerator maps to a view
/// operation. Other views, such as the key graph, use the same map: a press pans everywhere alike.
class VXCORE_EXPORT VxViewportMgr : public QObject
{
    Q_OBJECT
public:
    /// View operations by number.
    enum Operation { NoOperation = 0, Orbit = 1, Zoom = 2, Pan = 3, Frame = 4 };
    Q_ENUM(Operation)

    explicit VxViewportMgr(QObject *parent = nullptr);
    ~VxViewportMgr() override;

    /// The accelerator of a single button with keyboard modifiers; 0 for none or several buttons.
    /// Modifiers other than Shift, Ctrl, Alt and Meta do not count.
    int getMouseBtnAccelerator(Qt::MouseButton button, Qt::KeyboardModifiers modifiers) const;

    /// The operation of an accelerator, 0 when it has none. Initially the middle button pans, with
    /// Ctrl zooms, with Shift orbits.
    int getOperation(int accelerator) const;
    /// Sets the operation of an accelerator; NoOperation removes it.
    void setOperation(int accelerator, int operation);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
