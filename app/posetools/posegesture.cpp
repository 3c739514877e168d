#include "posetools/posegesture.h"

#include "pose/channellimits.h"
#include "posetools/spaces.h"

#include <algorithm>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxscene.h>

PoseGesture::PoseGesture(VxScene *scene, const QString &text)
    : m_scene(scene)
    , m_text(text)
    , m_time((scene->pause(), scene->getTime()))
    , m_makesKeys(scene->isAnimating())
    , m_hold(std::make_unique<VxUndoStackHold>())
{
    connect(scene, &VxScene::aboutToRemoveNode, this, &PoseGesture::handleRemoval);
    const auto finish = [this] {
        if (!isOpen())
            return;
        accept();
        Q_EMIT ended();
    };
    connect(scene, &VxScene::timeChanged, this, finish);
    connect(scene, &VxScene::nodeParentChanged, this, [this, finish](const VxNode *node) {
        if (concerns(node))
            finish();
    });
}

PoseGesture::~PoseGesture()
{
    rollBack();
}

GestureNode &PoseGesture::node(VxNode *node)
{
    std::unique_ptr<GestureNode> &entry = m_nodes[node];
    if (!entry)
        entry = std::make_unique<GestureNode>(node, m_time, m_makesKeys);
    return *entry;
}

void PoseGesture::set(GestureNode *node, int channel, double value)
{
    const GestureNode::Outcome outcome = node->set(channel, value);
    m_limited += outcome == GestureNode::Outcome::Limited ? 1 : 0;
    m_refused += outcome == GestureNode::Outcome::Refused ? 1 : 0;
}

void PoseGesture::move(GestureNode *node, const QMatrix4x4 &parent, const VxVector &offset)
{
    const auto local = Spaces::unmapped(parent, offset);
    if (!local) {
        countRefused();
        return;
    }
    for (std::size_t axis = 0; axis < 3; ++axis)
        set(node, XPlace + int(axis), node->start()[XPlace + axis] + (*local)[axis]);
}

void PoseGesture::resetCounts()
{
    m_limited = 0;
    m_refused = 0;
}

void PoseGesture::accept()
{
    if (!isOpen())
        return;
    {
        const VxChangeBlock block;
        for (const auto &entry : m_nodes)
            entry.second->settle();
    }
    m_nodes.clear();
    m_hold->accept(m_text);
}

void PoseGesture::rollBack()
{
    if (!isOpen())
        return;
    const bool isRolledBack = m_hold->rollBack();
    {
        const VxChangeBlock block;
        for (const auto &entry : m_nodes) {
            if (isRolledBack)
                entry.second->restoreTransientValues();
            else
                entry.second->revert();
        }
    }
    m_nodes.clear();
}

bool PoseGesture::concerns(const VxNode *changed) const
{
    return std::any_of(m_nodes.begin(), m_nodes.end(), [changed](const auto &entry) {
        return entry.first == changed || changed->isAncestorOf(entry.first);
    });
}

void PoseGesture::handleRemoval(const VxNode *removed)
{
    if (!isOpen() || !concerns(removed))
        return;
    rollBack();
    Q_EMIT ended();
}
