#ifndef MIRROREDPASTE_H
#define MIRROREDPASTE_H

#include "keytools/keypaste.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>
#include <memory>
#include <vxcore/vxposefigure.h>

/// Copied keys as the mirrored motion of a figure: those of a node of one side for its partner on
/// the other one, those of other nodes for themselves.
///
/// Computed as a whole before the first key is pasted, since a node's present angles supply those
/// that were not copied.
class MirroredPaste
{
public:
    /// figures: roots of the figures to paste to; empty: the figures of the copied nodes.
    MirroredPaste(const std::vector<VxCopiedKeys> &copied, const QVector<VxNode *> &figures,
                  VxTime start);

    void pasteTo(KeyPaste *paste) const;

    int otherSide() const { return m_otherSide; } ///< nodes whose keys are for the other side
    int inPlace() const { return m_inPlace; }     ///< nodes of neither side
    /// Names of copied nodes without a node to paste to.
    const QStringList &missingNodes() const { return m_missingNodes; }
    int missingProperties() const { return m_missingProperties; }

private:
    struct Source
    {
        QString name;
        VxNode *node = nullptr; ///< null when it was destroyed
        VxNode *root = nullptr; ///< of its figure
        std::vector<const VxCopiedKeys *> keys;
    };
    struct Figure
    {
        explicit Figure(VxNode *root);
        VxPoseFigure nodes;
        VxRotation reflection;
    };
    struct Planned
    {
        VxProperty *property;
        VxCopiedKeys keys;
    };

    static std::vector<Source> sourcesOf(const std::vector<VxCopiedKeys> &copied);
    const Figure &figureOf(VxNode *root);
    void add(const Source &source, const Figure &target, VxTime start);
    void addOther(const VxCopiedKeys &keys, const VxNode *partner);
    void addMissing(const QString &name);

    QHash<VxNode *, std::shared_ptr<Figure>> m_figures;
    std::vector<Planned> m_planned;
    int m_otherSide = 0;
    int m_inPlace = 0;
    QStringList m_missingNodes;
    int m_missingProperties = 0;
};

#endif
