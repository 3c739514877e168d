#ifndef POSEWRITER_H
#define POSEWRITER_H

#include "pose/nodechannels.h"

/// Sets channels of nodes at one time through the ordinary setters: with keys while the scene
/// animates, and within limits and locks. A channel without keys that has the target value is left
/// alone; one with keys gets one there, so that the pose stays when other keys change.
class PoseWriter
{
public:
    PoseWriter(VxTime time, bool isAnimating);

    /// A value that is not finite is refused.
    void set(const VxNode *node, int channel, double value);
    /// The angles of a rotation: those nearest to the present ones that limits and locks allow.
    void setRotation(const VxNode *node, const VxRotation &rotation);

    /// Channels that did not take their value: locked, driven by others, or without a key at this
    /// time while the scene does not animate.
    int refused() const { return m_refused; }
    /// Channels that got the nearest value within their limits instead.
    int limited() const { return m_limited; }
    /// The above for a status line, with a blank in front; empty when there is nothing to report.
    QString report() const;

private:
    VxTime m_time;
    bool m_isAnimating;
    int m_refused = 0;
    int m_limited = 0;
};

#endif
