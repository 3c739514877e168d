#ifndef KEYREDUCTION_H
#define KEYREDUCTION_H

#include "keytools/keytoolrun.h"
#include "keytools/rotationtracks.h"

/// Plans fewer keys for the targets of a tool, span by span, then writes them.
///
/// The three angles of a rotation are reduced together where they are linear and have keys at the
/// same times.
class KeyReduction
{
public:
    /// `targets` are borrowed; type: of the new keys, Linear or Tcb.
    KeyReduction(const KeyTargets &targets, VxKeyInterp::Type type);

    /// As few keys as the error allows, in the unit of the values, or in degrees of rotation.
    void plan(double error);
    /// At most `count` keys by the least error that gives as few, see ErrorSearch; where no error
    /// does, the fewest.
    void planForCount(double count);
    /// Of the plan, without properties that are left unchanged.
    int numKeys() const;
    /// Writes the plan.
    void apply(KeyToolRun *run);

private:
    using Spans = std::vector<std::optional<VxFittedKeys>>;
    /// The plan of one of `every` rotations and other tracks; those of others stay.
    void planSome(double error, int every);
    int keysOfSome(int every) const;
    void planRotation(const RotationTracks &rotation, double error);
    Spans planTrack(std::size_t track, double error) const;
    const VxFloatProperty *propertyOf(std::size_t track) const;

    const KeyTargets &m_targets;
    VxKeyInterp::Type m_type;
    std::vector<RotationTracks> m_rotations;
    std::vector<std::size_t> m_others;
    std::vector<Spans> m_plan; ///< by track
};

#endif
