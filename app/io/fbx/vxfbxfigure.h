#ifndef VXFBXFIGURE_H
#define VXFBXFIGURE_H

#include "io/fbx/vxfbxblend.h"
#include "io/fbx/vxfbxrotation.h"

/// One animation of a node: its own values, without pivots and the like.
struct VxFbxModelTracks
{
    VxFbxTrack translation;
    VxFbxTrack rotation;
    VxFbxTrack scale;
};
/// One animation: tracks of every model, in their order.
using VxFbxClipTracks = std::vector<VxFbxModelTracks>;

/// Converts the nodes of an FBX file to nodes with a translation, an orientation, a rotation and a
/// scale, and their tracks to channels, without changing any key's time.
///
/// Most nodes become one node. A node gets helper nodes below it where its curves could not be kept
/// otherwise: for animated pivots, for a rotation after its own, and for a scale that its children
/// do not inherit as a plain product.
class VxFbxFigure
{
public:
    /// Both are borrowed; every clip has tracks for every model.
    VxFbxFigure(const std::vector<VxFbxModel> &models, std::vector<VxFbxClipTracks> *clips);

    /// Appends the nodes to an empty motion. False when there are too many.
    bool addNodes(VxImportedMotion *motion);
    /// Appends the channels of a clip. Call it once a clip; it clears the clip's tracks.
    void addChannels(std::size_t clip, VxMotionClip *out);

    /// The node of a model's translation and rotation, in the motion.
    int nodeOf(std::size_t model) const { return m_plans[model].node; }
    /// Models with helper nodes for pivots or rotations, and for scales.
    int pivotCount() const { return m_pivotCount; }
    int scaleCount() const { return m_scaleCount; }

private:
    using Vector = VxFbxModel::Vector;

    struct Plan
    {
        bool movesRotation = false; // has other values than at rest
        bool movesScale = false;
        bool scaleIsOne = false;
        bool scaleIsUniform = false; // including what it inherits
        bool isApart =
            false; // its parent's scale is inherited in another way than as a plain product
        bool keepsScaleApart = false; // a child is apart
        bool hasForm = false;
        VxFbxRotationForm form;
        Vector origin{}; // added to the translation
        VxEuler fixed{}; // angles where the rotation does not move
        int node = -1;
        int scaleNode = -1;
        int inner = -1; // separated children are below this one
        int last = -1;  // the others below this one
    };

    void studyTracks(std::size_t model);
    bool isUniform(std::size_t model) const;
    void findApart(std::size_t model);
    Vector restTranslation(std::size_t model) const;
    VxMotionNode mainNode(std::size_t model, const VxRotation &pre, const VxRotation &post);
    bool addModel(std::size_t model, VxImportedMotion *motion);
    void addHelpers(std::size_t model, const Vector &offset, const VxRotation &post,
                    VxImportedMotion *motion);
    void addRotation(std::size_t model, VxFbxTrack *track, VxMotionClip *out) const;
    void addChannel(int node, VxMotionTarget target, VxFbxChannel *channel, double rest,
                    VxMotionClip *out) const;
    void scaleTracks(VxFbxClipTracks *tracks) const;

    const std::vector<VxFbxModel> &m_models;
    std::vector<VxFbxClipTracks> &m_clips;
    std::vector<Plan> m_plans;
    std::vector<Vector> m_restScales;  // including the inherited scale of separated nodes
    std::vector<Vector> m_restFactors; // the inherited scale
    int m_pivotCount = 0;
    int m_scaleCount = 0;
};

#endif
