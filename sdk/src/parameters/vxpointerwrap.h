#ifndef VXPOINTERWRAP_H
#define VXPOINTERWRAP_H

/// Extends a horizontal drag beyond the screen's edges: at an edge the pointer is warped to the
/// other side, and the jump is subtracted.
///
/// A jump takes effect only with the first move from its target. Earlier moves may still arrive
/// before it, and on platforms that cannot warp the pointer none does: the drag then stops at the
/// edge. All positions are in pixels of the desktop.
class VxPointerWrap
{
public:
    /// left and right are the first and the last column of the screen.
    VxPointerWrap(int left, int right);

    /// The position along an endless line for a pointer that has been moved to x.
    int follow(int x);
    /// The target of a warp after the pointer reached an edge; false when none is needed.
    bool needsJump(int *target);

private:
    int m_left;
    int m_right;
    int m_last = 0;     // last position of the pointer
    int m_shift = 0;    // sum of all jumps
    int m_target = 0;   // of the pending jump
    bool m_any = false; // whether there was a move at all
    bool m_jumping = false;
};

#endif
