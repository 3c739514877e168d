#ifndef VXPOSEFIGURE_H
#define VXPOSEFIGURE_H

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <vxcore/vxposetransfer.h>

/// Some nodes of one figure.
struct VxFigureNodes
{
    VxNode *root; ///< of the figure
    QVector<VxNode *> nodes;
};

/// A figure as poses are copied to it and mirrored in it: its nodes by name, the axes of its rest
/// pose and its mirror plane. Made for one operation; valid until the scene changes.
///
/// The figure's space is that of its root, a skeleton or else the topmost node. The root itself is
/// not found by name.
class VXCORE_EXPORT VxPoseFigure
{
public:
    /// The root of the figure that a node belongs to; the node itself for a root.
    static VxNode *rootOf(VxNode *node);
    /// Several nodes by their figures, both in the order of the nodes. The cost is linear in the
    /// nodes and those above them.
    static QVector<VxFigureNodes> byFigure(const QVector<VxNode *> &nodes);

    explicit VxPoseFigure(VxNode *root);

    VxNode *root() const { return m_root; }
    bool contains(const VxNode *node) const { return m_axes.contains(node) && node != m_root; }

    /// The node of that name; else the only one whose name is the same without name space, copy
    /// number and upper case. Null when there is none.
    VxNode *find(const QString &name) const;
    /// The same for the name's other side; names that belong to no side are their own.
    VxNode *findMirrored(const QString &name) const;

    /// The rest pose of a node. The root's axes are those of the figure's space, its parent's are
    /// where they are seen from there at rest.
    VxJointRest rest(const VxNode *node) const;

    /// The reflection at the mirror plane: I - 2 n nT. Its normal n is the mean direction from the
    /// nodes of one side to those of the other in the rest pose; X in a figure without pairs.
    VxRotation reflection() const;

private:
    void collect();
    VxVector findNormal() const;
    static QString plainName(const QString &name);

    VxNode *m_root;
    QVector<VxNode *> m_nodes; ///< without the root, parents first
    QHash<QString, VxNode *> m_byName;
    QHash<QString, VxNode *> m_byPlainName; ///< null for a name of several nodes
    QHash<const VxNode *, VxRotation> m_axes;
    QHash<const VxNode *, VxVector> m_places;
};

#endif
