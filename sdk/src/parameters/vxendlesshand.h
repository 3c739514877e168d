#ifndef PANE_VXENDLESSHAND_H
#define PANE_VXENDLESSHAND_H

/// Where a hand that drags sideways would be if the screen had no edges: at an edge the pointer is
/// sent to the other side, and what it jumped is taken off.
///
/// A jump takes effect only with the move that comes from there. Moves that were made before it may
/// come first, and where a pointer cannot be sent, none ever does: the hand then stops at the edge.
/// All places are in pixels of the desktop.
class VxEndlessHand
{
public:
    /// left and right are the first and the last column of the screen.
    VxEndlessHand(int left, int right);

    /// The place along an endless line for a pointer that has been moved to x.
    int follow(int x);
    /// Where the pointer is to be sent after it was followed to an edge; false when it may stay.
    bool wantsJump(int *target);

private:
    int m_left;
    int m_right;
    int m_last = 0;     // where the pointer was followed to
    int m_shift = 0;    // what all jumps came to
    int m_target = 0;   // of the jump under way
    bool m_any = false; // whether there was a move at all
    bool m_jumping = false;
};

#endif
