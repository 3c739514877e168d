#ifndef VXFBXSCENE_H
#define VXFBXSCENE_H

#include "io/fbx/vxfbxfigure.h"
#include "io/fbx/vxfbxsettings.h"
#include "io/vxfileprogress.h"

/// Reads the scene of a parsed document: nodes, morphs, user-defined properties and animations.
class VxFbxScene
{
public:
    /// The records must outlive the reader.
    VxFbxScene(const VxFbxRecords &records, qint64 version);

    /// Fills nodes, clips and facts. False with an error.
    bool read(const VxFileProgress &progress, VxImportedMotion *motion, VxFileError *error);

    /// Valid after read().
    const VxFbxSettings &settings() const { return m_settings; }

private:
    /// A morph or a user-defined property, and the target that drives it.
    struct Value
    {
        VxFbxTarget target;
        std::size_t model;
        int index;   // among the node's morphs or properties
        double rest; // as in the file: percent for a morph
        QString name;
    };
    /// A value's curve in one clip.
    struct ValueTrack
    {
        std::size_t value;
        VxFbxChannel channel;
    };

    void findMorphs();
    void findProperties();
    int modelOfMorph(int channel) const;
    double morphPercent(int channel) const;
    bool readTracks(const VxFileProgress &progress, VxImportedMotion *motion, VxFileError *error);
    bool readClip(VxFbxBlend *blend, VxFbxClipTracks *tracks, std::vector<ValueTrack> *values);
    void addValues(const VxFbxFigure &figure, VxImportedMotion *motion) const;
    void addClip(std::size_t index, VxFbxFigure *figure, VxImportedMotion *motion);
    void addOmissions(VxMotionFacts *facts) const;
    void addNotes(const VxFbxFigure &figure, const QStringList &curveNotes,
                  VxMotionFacts *facts) const;

    const VxFbxRecords &m_records;
    qint64 m_version;
    VxFbxSettings m_settings;
    VxFbxObjects m_objects;
    std::vector<VxFbxModel> m_models;
    std::vector<int> m_modelOf; // by object, -1 for none
    std::vector<VxFbxStack> m_stacks;
    std::vector<Value> m_values;
    std::vector<VxFbxClipTracks> m_tracks;              // one a stack
    std::vector<std::vector<ValueTrack>> m_valueTracks; // one a stack
    VxFbxBlendCounts m_counts;
};

#endif
