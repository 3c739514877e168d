#ifndef PANE_VXPROPERTYSCRUB_H
#define PANE_VXPROPERTYSCRUB_H

#include <QtCore/Qt>

/// How far a value is dragged by a hand that moves sideways, in the value's steps: a step every
/// other pixel; ten times as much with Ctrl, a tenth with Shift.
///
/// Pressing or releasing a modifier counts from where the hand is: what was dragged before stays.
class VxPropertyScrub
{
public:
    VxPropertyScrub() = default;
    /// x is where the drag begins, in pixels.
    explicit VxPropertyScrub(int x)
        : m_anchor(x)
    {
    }

    /// The steps from the beginning to a place, which is to the right of it when positive.
    double moveTo(int x, Qt::KeyboardModifiers modifiers);

private:
    int m_anchor = 0;    // where the present factor began to count
    double m_before = 0; // the steps up to there
    double m_factor = 1;
};

#endif
