#include "io/motion/vxmotionentry.h"

#include "io/vxfiletext.h"

#include <QSet>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

namespace {

void setTimes(const VxSceneContents &contents, const VxMotionEntry &entry, bool isFirst,
              VxScene *scene)
{
    if (!entry.hasMotion)
        return;
    if (isFirst || entry.setsRate)
        scene->setTimeStep(contents.timeStep);
    if (isFirst) {
        scene->setAnimRange(contents.animRange);
        scene->setPlayRange(contents.playRange);
        return;
    }
    const VxTimeRange former = scene->getAnimRange();
    const bool playsAll = scene->getPlayRange() == former;
    const VxTimeRange range = former.united(contents.animRange);
    scene->setAnimRange(range);
    if (playsAll)
        scene->setPlayRange(range);
}

QVector<VxNode *> addNodes(VxSceneContents &contents, const VxMotionEntry &entry, VxScene *scene)
{
    VxUndoStackHold hold;
    const VxChangeBlock block;
    const bool isFirst = scene->getNumNodes() == 0;
    QVector<VxNode *> roots;
    if (!contents.rootNodes.empty()) {
        VxNode *first = contents.rootNodes.front().get();
        first->setLabel(vxUnusedNodeName(*scene, first->getLabel()));
    }
    for (auto &node : contents.rootNodes) {
        if (scene->addNode(node.get()))
            roots.append(node.release());
    }
    if (roots.isEmpty())
        return roots;
    setTimes(contents, entry, isFirst, scene);
    hold.accept(VxFileText::tr("Import %1").arg(roots.constFirst()->getLabel()));
    return roots;
}

} // namespace

QVector<VxNode *> vxEnterScene(VxSceneContents &&contents, const VxMotionEntry &entry,
                               VxScene *scene)
{
    if (!entry.replacesScene)
        return addNodes(contents, entry, scene);
    scene->beginLoad();
    scene->clear();
    const QVector<VxNode *> roots = addNodes(contents, entry, scene);
    scene->endLoad();
    return roots;
}

QString vxUnusedNodeName(const VxScene &scene, const QString &name)
{
    QSet<QString> used;
    VxNodeListIterator nodes = scene.nodeListIterator();
    while (nodes.hasNext()) {
        const VxNode *node = nodes.next();
        used.insert(node->getName());
        used.insert(node->getLabel());
    }
    QString unused = name;
    for (int number = 2; used.contains(unused); ++number)
        unused = VxFileText::tr("%1 %2").arg(name, QString::number(number));
    return unused;
}
