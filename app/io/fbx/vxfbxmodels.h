#ifndef VXFBXMODELS_H
#define VXFBXMODELS_H

#include "io/fbx/vxfbxobjects.h"
#include "io/motion/vximportedmotion.h"

/// A node of an FBX scene as stored in the file. Angles in degrees, lengths in the file's unit.
///
///     local = T Roff Rp Rpre R Rpost^-1 Rp^-1 Soff Sp S Sp^-1
///
/// applied to a column vector. `preRotation` and `postRotation` are always about X first, then Y,
/// then Z; they and the rotation order are neutral if the file disables them.
struct VxFbxModel
{
    using Vector = std::array<double, 3>;

    /// How scale is inherited. R and S are the parent's rotation and scale, r and s the node's.
    enum Inherit : quint8 {
        AfterRotation,  ///< R r S s
        BeforeRotation, ///< R S r s, the plain product
        Compensated     ///< R r s, without the parent's own scale
    };

    int object = 0;  ///< in VxFbxObjects; 0 for a skeleton that was added above bones without one
    int parent = -1; ///< index of an earlier model, -1 for a root
    QString name;
    VxMotionNode::Kind kind = VxMotionNode::Node;
    Vector translation{};
    Vector rotation{};
    Vector scale{{1.0, 1.0, 1.0}};
    VxNode::RotationOrder order = VxNode::ZYX; ///< of R
    Inherit inherit = AfterRotation;
    Vector rotationOffset{};
    Vector rotationPivot{};
    Vector preRotation{};
    Vector postRotation{};
    Vector scalingOffset{};
    Vector scalingPivot{};
    bool isVisible = true;
};

/// Reads all nodes, a parent before its children, siblings in the order of the file. False with an
/// error for cyclic parents and for more nodes, or deeper ones, than VxMotionLimits allows. Every
/// deviation from the file becomes a note in `facts`.
bool vxFbxReadModels(const VxFbxRecords &records, const VxFbxObjects &objects,
                     std::vector<VxFbxModel> *models, VxMotionFacts *facts, VxFileError *error);

#endif
