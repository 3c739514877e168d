#ifndef VXMOTIONCHANNELS_H
#define VXMOTIONCHANNELS_H

#include "io/motion/vximportreport.h"
#include "io/motion/vxmotionpoints.h"
#include "io/motion/vxmotiontiming.h"
#include "io/vxfileprogress.h"

#include <map>

class VxFloatProperty;

/// The channels of the imported clips, grouped by target, and their conversion to keys.
class VxMotionChannels
{
public:
    /// All are borrowed and must outlive the object. One slot a clip.
    VxMotionChannels(const VxImportedMotion &motion, const std::vector<const VxMotionClip *> &clips,
                     const std::vector<VxMotionTiming::Slot> &slots);

    /// Whether any clip has a channel for a value; a rotation track counts for all three angles.
    bool drives(int node, VxMotionTarget target) const;

    /// Sets the keys of the nodes, one for each of the motion's, and adds the numbers to the
    /// report. False when cancelled or when there are too many keys.
    bool addKeys(const std::vector<VxNode *> &nodes, const VxFileProgress &progress,
                 VxImportReport *report);
    bool isTooLong() const { return m_isTooLong; }

private:
    /// All rotations of a node together, every other value separately.
    struct Target
    {
        int node;
        VxMotionTarget target;
        int index;
        bool operator<(const Target &other) const;
    };
    struct Source
    {
        std::size_t clip;
        const VxMotionChannel *channel;
    };
    using Sources = std::vector<Source>;

    void addValueKeys(const Target &target, const Sources &sources, VxNode *node);
    bool addRotationKeys(const Target &target, const Sources &sources, VxNode *node);
    void appendClip(const Sources &sources, std::size_t clip, VxMotionTarget target, double rest,
                    VxMotionPoints *points) const;
    void setKeys(VxFloatProperty *property, const VxFittedKeys &keys);
    void countError(const VxMotionPoints &points, const VxFittedKeys &keys, bool isAngle);

    const VxImportedMotion &m_motion;
    const std::vector<const VxMotionClip *> &m_clips;
    const std::vector<VxMotionTiming::Slot> &m_slots;
    std::map<Target, Sources> m_sources;
    VxImportReport *m_report = nullptr;
    qint64 m_keysLeft = VxMotionLimits::MaxKeys;
    bool m_isTooLong = false;
};

#endif
