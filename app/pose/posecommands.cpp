#include "pose/posecommands.h"

#include "pose/pose.h"
#include "pose/posewriter.h"
#include "scenetree/sceneedits.h"
#include "widgets/studiotext.h"

#include <QSet>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxposefigure.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int ListedNames = 5;

/** What was copied last; poses of one scene can be pasted in the next. */
Pose &clipboard()
{
    static Pose pose;
    return pose;
}

/// Names that have no match, each once.
class MissingNames
{
public:
    void add(const QString &name)
    {
        if (!m_all.contains(name) && m_first.size() < ListedNames)
            m_first.append(name);
        m_all.insert(name);
    }

    /** " Not found: a, b." with a blank in front; empty when nothing is missing. */
    QString text() const
    {
        if (m_first.isEmpty())
            return {};
        const QString names = m_first.join(QStringLiteral(", "));
        const int more = m_all.size() - m_first.size();
        return more > 0
                   ? StudioText::tr(" Not found: %1 and %2 more.").arg(names, QString::number(more))
                   : StudioText::tr(" Not found: %1.").arg(names);
    }

private:
    QStringList m_first;
    QSet<QString> m_all;
};

VxRotation reflectionFor(const Pose &pose, bool mirrored)
{
    return mirrored ? pose.reflection : VxIdentityRotation;
}

/** The pose of nodes of one figure, roots left out. */
Pose poseOf(const VxPoseFigure &figure, const QVector<VxNode *> &nodes, VxTime time)
{
    Pose pose;
    pose.root = figure.root();
    pose.reflection = figure.reflection();
    for (const VxNode *node : nodes) {
        if (figure.contains(node))
            pose.joints.push_back(capturePose(figure, node, time));
    }
    return pose;
}

struct Counts
{
    int matched = 0;
    MissingNames missing;
};

void applyTo(const VxPoseFigure &figure, const Pose &pose, bool mirrored, PoseWriter *writer,
             Counts *counts)
{
    for (const JointPose &joint : pose.joints) {
        const VxNode *node = mirrored ? figure.findMirrored(joint.name) : figure.find(joint.name);
        if (!node) {
            counts->missing.add(joint.name);
            continue;
        }
        ++counts->matched;
        applyPose(joint, reflectionFor(pose, mirrored), figure, node, writer);
    }
}

PoseResult finish(VxUndoStackHold *hold, const QString &entry, const QString &done,
                  const Counts &counts, const PoseWriter &writer)
{
    const QString rest = counts.missing.text() + writer.report();
    if (counts.matched == 0) {
        hold->cancel();
        return {false, StudioText::tr("No node of the figure matches the pose.") + rest};
    }
    hold->accept(entry);
    return {true, done + rest};
}

} // namespace

PoseResult PoseResult::nothingSelected()
{
    return {false, StudioText::tr("Select the nodes of a figure first.")};
}

QVector<VxNode *> PoseCommands::selectedTrees(const VxScene *scene)
{
    return SceneEdits::trees(scene, scene->getSelectedNodes());
}

QVector<VxNode *> PoseCommands::selectedJoints(const VxScene *scene)
{
    QVector<VxNode *> nodes;
    QSet<const VxNode *> found;
    const auto add = [&](VxNode *node) {
        if (!found.contains(node))
            nodes.append(node);
        found.insert(node);
    };
    for (VxNode *node : scene->getSelectedNodes()) {
        QVector<VxNode *> below;
        if (qobject_cast<VxSkeleton *>(node))
            node->getNodeChildren(below, true);
        if (below.isEmpty())
            add(node);
        for (VxNode *each : qAsConst(below))
            add(each);
    }
    return nodes;
}

PoseResult PoseCommands::copy(const VxScene *scene)
{
    const QVector<VxNode *> nodes = selectedTrees(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    const QVector<VxFigureNodes> figures = VxPoseFigure::byFigure(nodes);
    if (figures.size() > 1)
        return {false, StudioText::tr("Select nodes of one figure only to copy a pose.")};
    const Pose pose = poseOf(VxPoseFigure(figures.first().root), nodes, scene->getTime());
    if (pose.joints.empty())
        return {false,
                StudioText::tr("The selected node has no joints below it to copy the pose of.")};
    clipboard() = pose;
    return {true, StudioText::tr("Copied the pose of %n nodes.", nullptr, int(pose.joints.size()))};
}

PoseResult PoseCommands::paste(VxScene *scene, bool mirrored)
{
    const Pose &pose = clipboard();
    if (pose.joints.empty())
        return {false, StudioText::tr("No pose was copied yet.")};
    QVector<VxNode *> roots;
    for (const VxFigureNodes &figure : VxPoseFigure::byFigure(scene->getSelectedNodes()))
        roots.append(figure.root);
    if (roots.isEmpty() && pose.root && pose.root->getScene() == scene)
        roots.append(VxPoseFigure::rootOf(pose.root));
    if (roots.isEmpty())
        return PoseResult::nothingSelected();
    PoseWriter writer(scene->getTime(), scene->isAnimating());
    Counts counts;
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (VxNode *root : qAsConst(roots))
            applyTo(VxPoseFigure(root), pose, mirrored, &writer, &counts);
    }
    const QString text =
        mirrored ? StudioText::tr("Paste Pose Mirrored") : StudioText::tr("Paste Pose");
    return finish(&hold, text,
                  StudioText::tr("Pasted the pose to %1 of %n nodes.", nullptr,
                                 int(pose.joints.size()) * roots.size())
                      .arg(counts.matched),
                  counts, writer);
}

PoseResult PoseCommands::mirrorSelected(VxScene *scene)
{
    const QVector<VxNode *> nodes = selectedTrees(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    PoseWriter writer(scene->getTime(), scene->isAnimating());
    Counts counts;
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (const VxFigureNodes &part : VxPoseFigure::byFigure(nodes)) {
            const VxPoseFigure figure(part.root);
            applyTo(figure, poseOf(figure, part.nodes, scene->getTime()), true, &writer, &counts);
        }
    }
    return finish(&hold, StudioText::tr("Mirror to Other Side"),
                  StudioText::tr("Mirrored the pose of %n nodes.", nullptr, counts.matched), counts,
                  writer);
}

PoseResult PoseCommands::resetToRest(VxScene *scene)
{
    const QVector<VxNode *> nodes = selectedJoints(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    PoseWriter writer(scene->getTime(), scene->isAnimating());
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (const VxNode *node : nodes) {
            const PoseValues rest = NodeChannels(node).rest();
            for (int i = 0; i < PoseChannelCount; ++i)
                writer.set(node, i, rest[std::size_t(i)]);
        }
    }
    hold.accept(StudioText::tr("Reset to Rest"));
    return {true,
            StudioText::tr("Reset %n nodes to rest.", nullptr, nodes.size()) + writer.report()};
}

PoseResult PoseCommands::setRest(VxScene *scene)
{
    const QVector<VxNode *> nodes = selectedJoints(scene);
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    VxUndoStackHold hold;
    for (VxNode *node : nodes) {
        const PoseValues values = NodeChannels(node).values(scene->getTime());
        VxRestPose rest{};
        std::transform(values.begin(), values.end(), rest.begin(),
                       [](double value) { return float(value); });
        node->setRestPose(rest);
    }
    hold.accept(StudioText::tr("Set Rest Pose"));
    return {true, StudioText::tr("The present pose is the rest pose of %n nodes.", nullptr,
                                 nodes.size())};
}

PoseResult PoseCommands::selectMirror(VxScene *scene)
{
    const QVector<VxNode *> nodes = scene->getSelectedNodes();
    if (nodes.isEmpty())
        return PoseResult::nothingSelected();
    QVector<VxNode *> others;
    MissingNames missing;
    for (const VxFigureNodes &part : VxPoseFigure::byFigure(nodes)) {
        const VxPoseFigure figure(part.root);
        for (const VxNode *node : part.nodes) {
            if (!figure.contains(node))
                continue;
            if (VxNode *other = figure.findMirrored(node->getName()))
                others.append(other);
            else
                missing.add(node->getName());
        }
    }
    if (others.isEmpty())
        return {false, StudioText::tr("The selected nodes have no other side.") + missing.text()};
    SceneEdits::selectOnly(scene, others);
    return {true, StudioText::tr("Selected %n nodes.", nullptr, scene->getNumSelectedNodes()) +
                      missing.text()};
}

PoseResult PoseCommands::selectChildren(VxScene *scene)
{
    if (scene->getNumSelectedNodes() == 0)
        return PoseResult::nothingSelected();
    SceneEdits::selectChildren(scene);
    return {true, StudioText::tr("Selected %n nodes.", nullptr, scene->getNumSelectedNodes())};
}

PoseResult PoseCommands::selectParents(VxScene *scene)
{
    QVector<VxNode *> parents;
    QSet<const VxNode *> found;
    for (const VxNode *node : scene->getSelectedNodes()) {
        VxNode *parent = node->getNodeParent();
        if (!parent || found.contains(parent))
            continue;
        found.insert(parent);
        parents.append(parent);
    }
    if (scene->getNumSelectedNodes() == 0)
        return PoseResult::nothingSelected();
    if (parents.isEmpty())
        return {false, StudioText::tr("The selected nodes have no parents.")};
    SceneEdits::selectOnly(scene, parents);
    return {true, StudioText::tr("Selected %n nodes.", nullptr, scene->getNumSelectedNodes())};
}
