#ifndef MIRROREDKEYS_H
#define MIRROREDKEYS_H

#include <array>
#include <tuple>
#include <vector>
#include <vxcore/vxcopiedkeys.h>
#include <vxcore/vxposetransfer.h>

/// Keys for one transform control.
struct MirroredKeys
{
    int control = 0; ///< index in VxRestPose
    VxCopiedKeys keys;
};

/// The copied keys of one node's transform controls, which are mirrored together.
///
/// Where the rest axes of node and mirror partner mirror each other, every control gets the keys of
/// one copied control, exchanged or negated, with their times and shapes. Where the three angles of
/// a rotation depend on each other, all three get keys at each time at which one of the copied ones
/// has a key: of the type of that key, and with the angles nearest to those before. The same holds
/// for a translation and for the scales of the axes. Channels of the three that were not copied
/// have the present values of the source node.
class CopiedNodeKeys
{
public:
    /// node: null when it was destroyed; channels that were not copied then have the values of the
    /// rest pose.
    CopiedNodeKeys(const VxNode *node, const VxJointRest &rest);

    /// Adds keys, which must outlive the object. Of several for one control the first ones count.
    /// False for a property that is no transform control.
    bool add(const VxCopiedKeys &keys);

    /// The keys for the mirror partner, at the times of the copied ones. start: the time at which
    /// the first of them will be pasted, to continue the partner's rotation there. The cost is
    /// linear in the keys.
    std::vector<MirroredKeys> mirrored(const VxNode *partner, const VxJointRest &partnerRest,
                                       const VxRotation &reflection, VxTime start) const;

private:
    using Sources = std::array<std::optional<VxChannelSource>, 3>;
    struct Samples;

    bool hasAny(int first) const;
    void addSeparately(int first, const Sources &sources, std::vector<MirroredKeys> *result) const;
    template <class Convert>
    void addGroup(int first, const Sources &sources, Convert convert,
                  std::vector<MirroredKeys> *result) const;
    template <class Convert>
    void addTogether(int first, Convert convert, std::vector<MirroredKeys> *result) const;
    Samples sampled(int first) const;

    const VxNode *m_node;
    VxJointRest m_rest;
    std::array<const VxCopiedKeys *, std::tuple_size_v<VxRestPose>> m_copied{};
};

#endif
