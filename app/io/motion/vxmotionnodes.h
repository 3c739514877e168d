#ifndef VXMOTIONNODES_H
#define VXMOTIONNODES_H

#include "io/motion/vximportreport.h"
#include "io/motion/vxmotionchannels.h"

#include <QVector3D>
#include <memory>
#include <vector>

/// Creates the nodes of a motion, without keys, and counts them in the report. Returns the roots,
/// each of which owns its descendants; `nodes` receives all of them, one for each of the motion's.
std::vector<std::unique_ptr<VxNode>> vxMakeNodes(const VxImportedMotion &motion,
                                                 const VxMotionChannels &channels,
                                                 std::vector<VxNode *> *nodes,
                                                 VxImportReport *report);

/// The middle of the positions of each node's children, where bones end that state no end.
class VxChildMiddles
{
public:
    explicit VxChildMiddles(std::size_t numNodes)
        : m_sums(numNodes)
        , m_counts(numNodes, 0)
    {
    }
    /// parent: -1 for none.
    void add(int parent, const QVector3D &position)
    {
        if (parent >= 0) {
            m_sums[std::size_t(parent)] += position;
            ++m_counts[std::size_t(parent)];
        }
    }
    bool has(std::size_t node) const { return m_counts[node] > 0; }
    /// 0 without children.
    QVector3D of(std::size_t node) const
    {
        return has(node) ? m_sums[node] / float(m_counts[node]) : QVector3D();
    }

private:
    std::vector<QVector3D> m_sums;
    std::vector<int> m_counts;
};

#endif
