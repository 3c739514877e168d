#include "document/figurechoice.h"

#include "widgets/studiotext.h"

#include <QSet>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

QVector<VxSkeleton *> FigureChoice::figures(const VxScene &scene)
{
    QVector<VxSkeleton *> found;
    for (VxNode *node : scene.getNodes()) {
        if (auto *skeleton = qobject_cast<VxSkeleton *>(node))
            found.append(skeleton);
    }
    return found;
}

VxSkeleton *FigureChoice::targetFigure(const VxScene &scene)
{
    // Props below a figure's bones belong to the figure, too.
    for (const VxNode *node = scene.getPrimarySelection(); node; node = node->getNodeParent()) {
        if (VxSkeleton *skeleton = node->getSkeleton())
            return skeleton;
    }
    const QVector<VxSkeleton *> all = figures(scene);
    return all.size() == 1 ? all.constFirst() : nullptr;
}

QStringList FigureChoice::names(const QVector<VxSkeleton *> &figures)
{
    QStringList names;
    QSet<QString> used;
    for (const VxSkeleton *figure : figures) {
        QString name = figure->getLabel();
        for (int number = 2; used.contains(name); ++number)
            name = StudioText::tr("%1 (%2)").arg(figure->getLabel(), QString::number(number));
        used.insert(name);
        names.append(name);
    }
    return names;
}
