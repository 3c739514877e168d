#include "scene/nodesamples.h"

#include "scene/vxnode_p.h"

#include <QtCore/QSet>
#include <algorithm>
#include <iterator>
#include <vxcore/vxfloatproperty.h>

NodeSamples::NodeSamples(const VxNode *node, const std::vector<VxTime> &times)
    : m_node(node)
{
    const NodeControls &controls = VxNode::Private::of(node)->controls;
    for (size_t i = 0; i < controls.size(); ++i) {
        const auto missing = float(nodeControlDefault(static_cast<NodeControl>(i)));
        m_columns[i].resize(times.size(), missing);
        if (controls[i])
            controls[i]->getValues(times.data(), int(times.size()), m_columns[i].data());
    }
}

NodeControlValues NodeSamples::at(size_t index) const
{
    NodeControlValues values;
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = double(m_columns[i][index]);
    return values;
}

AffineTransform NodeSamples::transform(size_t index) const
{
    return nodeTransform(at(index), m_node->getRotationOrder(), m_node->getOrigin());
}

std::vector<VxTime> controlKeyTimes(const NodeControls &controls)
{
    std::vector<VxTime> times;
    for (const VxFloatProperty *control : controls) {
        const VxTime *own = control ? control->getKeyTimes() : nullptr;
        const VxTime *end = own ? own + control->getNumKeys() : nullptr;
        // Shortcut: all controls of recorded motion have keys at the same times.
        if (!own || std::equal(own, end, times.begin(), times.end()))
            continue;
        std::vector<VxTime> both;
        both.reserve(times.size() + size_t(end - own));
        std::set_union(times.begin(), times.end(), own, end, std::back_inserter(both));
        times = std::move(both);
    }
    return times;
}

std::vector<AffineTransform> transformsUpTo(const VxNode *node, const VxNode *above,
                                            const std::vector<VxTime> &times)
{
    std::vector<AffineTransform> transforms(times.size());
    for (; node && node != above; node = node->getNodeParent()) {
        const NodeSamples samples(node, times);
        for (size_t i = 0; i < times.size(); ++i)
            transforms[i] = samples.transform(i) * transforms[i];
    }
    return transforms;
}

const VxNode *commonAncestor(const VxNode *a, const VxNode *b)
{
    QSet<const VxNode *> above;
    for (; a; a = a->getNodeParent())
        above.insert(a);
    while (b && !above.contains(b))
        b = b->getNodeParent();
    return b;
}
