#include <vxcore/vxviewportmgr.h>

#include <QtCore/QHash>
#include <QtCore/QtAlgorithms>

namespace {

// An accelerator has the button's number, counted from 1, in its lower byte and one bit for each
// modifier above it. The two enumerations themselves overlap.
constexpr int modifierShift = 8;

constexpr Qt::KeyboardModifier countingModifiers[] = {Qt::ShiftModifier, Qt::ControlModifier,
                                                      Qt::AltModifier, Qt::MetaModifier};

int modifierBits(Qt::KeyboardModifiers modifiers)
{
    int bits = 0;
    int bit = 1;
    for (const Qt::KeyboardModifier modifier : countingModifiers) {
        if (modifiers & modifier)
            bits |= bit;
        bit <<= 1;
    }
    return bits;
}

} // namespace

class VxViewportMgr::Private
{
public:
    QHash<int, int> operations;
};

VxViewportMgr::VxViewportMgr(QObject *parent)
    : QObject(parent)
    , d(new Private)
{
    setOperation(getMouseBtnAccelerator(Qt::MiddleButton, Qt::NoModifier), Pan);
    setOperation(getMouseBtnAccelerator(Qt::MiddleButton, Qt::ControlModifier), Zoom);
    setOperation(getMouseBtnAccelerator(Qt::MiddleButton, Qt::ShiftModifier), Orbit);
}

VxViewportMgr::~VxViewportMgr() = default;

int VxViewportMgr::getMouseBtnAccelerator(Qt::MouseButton button,
                                          Qt::KeyboardModifiers modifiers) const
{
    const uint bits = uint(button);
    if (qPopulationCount(bits) != 1)
        return 0;
    const int number = int(qCountTrailingZeroBits(bits)) + 1;
    return number | (modifierBits(modifiers) << modifierShift);
}

int VxViewportMgr::getOperation(int accelerator) const
{
    return d->operations.value(accelerator, NoOperation);
}

void VxViewportMgr::setOperation(int accelerator, int operation)
{
    if (accelerator == 0)
        return;
    if (operation == NoOperation)
        d->operations.remove(accelerator);
    else
        d->operations.insert(accelerator, operation);
}
