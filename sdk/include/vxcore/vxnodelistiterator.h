#ifndef VXNODELISTITERATOR_H
#define VXNODELISTITERATOR_H

#include <QtCore/QVector>
#include <vxcore/vxcoreglobal.h>

class VxNode;

/// Iterates over a copy of a list of nodes made at construction. Removing nodes while iterating is
/// the caller's responsibility.
class VXCORE_EXPORT VxNodeListIterator
{
public:
    explicit VxNodeListIterator(const QVector<VxNode *> &nodes)
        : m_nodes(nodes)
    {
    }

    bool hasNext() const { return m_index < m_nodes.size(); }
    /// The next node; null at the end.
    VxNode *next() { return hasNext() ? m_nodes.at(m_index++) : nullptr; }
    int count() const { return m_nodes.size(); }

private:
    QVector<VxNode *> m_nodes;
    int m_index = 0;
};

#endif
