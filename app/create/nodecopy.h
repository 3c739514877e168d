#ifndef NODECOPY_H
#define NODECOPY_H

#include <QHash>
#include <QStringList>
#include <QVector>
#include <memory>
#include <vector>
#include <vxcore/vxnode.h>

class VxElement;
class VxObject;
class VxProperty;

/// Copies of nodes with everything below them: traits, properties, keys, objects and morphs.
///
/// Aliases, overriding controls and links between copied properties refer to the copies; those
/// to other properties are copied unchanged.
class NodeCopy
{
public:
    /// The sources in pre-order; each one's parent is one before it in the list or not in it.
    /// names: one for each source. Nothing of the sources is changed.
    NodeCopy(const QVector<VxNode *> &sources, const QStringList &names);

    /// The copies of the sources whose parents were not copied, in their order; the caller's. Each
    /// owns what is below it.
    std::vector<std::unique_ptr<VxNode>> takeTops() { return std::move(m_tops); }
    /// The source of a top copy.
    VxNode *sourceOf(const VxNode *top) const { return m_sources.value(top); }

private:
    void copyElement(const VxElement *from, VxElement *to);
    void copyObject(const VxObject *from, VxNode *to);
    void copyReferences() const;

    std::vector<std::unique_ptr<VxNode>> m_tops;
    QHash<const VxNode *, VxNode *> m_sources;
    QHash<const VxProperty *, VxProperty *> m_properties;
    std::vector<const VxProperty *> m_order;
};

#endif
