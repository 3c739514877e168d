#ifndef VXPROPERTYSCRUB_H
#define VXPROPERTYSCRUB_H

#include <QtCore/Qt>

/// The offset of a horizontal value drag, in the value's steps: a step every other pixel; ten times
/// as much with Ctrl, a tenth with Shift.
///
/// Pressing or releasing a modifier affects only the movement after it.
class VxPropertyScrub
{
public:
    VxPropertyScrub() = default;
    /// x is the start of the drag, in pixels.
    explicit VxPropertyScrub(int x)
        : m_anchor(x)
    {
    }

    /// The steps from the start to x, positive to the right.
    double moveTo(int x, Qt::KeyboardModifiers modifiers);

private:
    int m_anchor = 0;    // start of the present factor
    double m_before = 0; // steps up to the anchor
    double m_factor = 1;
};

#endif
