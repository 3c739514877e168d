#include "keytools/mirroredpaste.h"

#include "keytools/mirroredkeys.h"

#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmirrornames.h>
#include <vxcore/vxscene.h>

MirroredPaste::Figure::Figure(VxNode *root)
    : nodes(root)
    , reflection(nodes.reflection())
{
}

MirroredPaste::MirroredPaste(const std::vector<VxCopiedKeys> &copied,
                             const QVector<VxNode *> &figures, VxTime start)
{
    for (const Source &source : sourcesOf(copied)) {
        if (!figures.isEmpty()) {
            for (VxNode *root : figures)
                add(source, figureOf(root), start);
        } else if (source.root) {
            add(source, figureOf(source.root), start);
        } else {
            addMissing(source.name);
        }
    }
}

std::vector<MirroredPaste::Source> MirroredPaste::sourcesOf(const std::vector<VxCopiedKeys> &copied)
{
    std::vector<Source> sources;
    QHash<QString, std::size_t> indexes;
    for (const VxCopiedKeys &keys : copied) {
        if (!indexes.contains(keys.node)) {
            indexes.insert(keys.node, sources.size());
            sources.push_back({keys.node, nullptr, nullptr, {}});
        }
        sources[indexes.value(keys.node)].keys.push_back(&keys);
    }
    QVector<VxNode *> nodes;
    for (VxNode *node : vxScene->getNodes()) {
        const auto index = indexes.constFind(node->getName());
        if (index == indexes.constEnd() || sources[*index].node)
            continue;
        sources[*index].node = node;
        nodes.append(node);
    }
    for (const VxFigureNodes &figure : VxPoseFigure::byFigure(nodes)) {
        for (const VxNode *node : figure.nodes)
            sources[indexes.value(node->getName())].root = figure.root;
    }
    return sources;
}

const MirroredPaste::Figure &MirroredPaste::figureOf(VxNode *root)
{
    std::shared_ptr<Figure> &figure = m_figures[root];
    if (!figure)
        figure = std::make_shared<Figure>(root);
    return *figure;
}

/** A source that was destroyed is replaced by the node of its name in the target figure. */
void MirroredPaste::add(const Source &source, const Figure &target, VxTime start)
{
    const Figure &own = source.root ? figureOf(source.root) : target;
    const VxNode *original = source.node ? source.node : target.nodes.find(source.name);
    const bool isRoot = source.root && source.node == source.root;
    VxNode *partner = isRoot ? target.nodes.root() : target.nodes.findMirrored(source.name);
    if (!original || !partner) {
        addMissing(source.name);
        return;
    }
    const bool hasSide = !isRoot && !VxMirrorNames().mirrored(source.name).isEmpty();
    ++(hasSide ? m_otherSide : m_inPlace);
    CopiedNodeKeys transforms(source.node, own.nodes.rest(original));
    for (const VxCopiedKeys *keys : source.keys) {
        if (!transforms.add(*keys))
            addOther(*keys, partner);
    }
    const VxJointRest partnerRest = target.nodes.rest(partner);
    for (MirroredKeys &keys : transforms.mirrored(partner, partnerRest, own.reflection, start)) {
        if (VxProperty *property = partner->getTransformControl(keys.control))
            m_planned.push_back({property, std::move(keys.keys)});
        else
            ++m_missingProperties;
    }
}

/** Properties of a side, such as LeftEyeClosed of a head, have partners themselves. */
void MirroredPaste::addOther(const VxCopiedKeys &keys, const VxNode *partner)
{
    const QString other = VxMirrorNames().mirrored(keys.property);
    VxProperty *property = other.isEmpty() ? nullptr : KeyPaste::findProperty(partner, other);
    if (!property)
        property = KeyPaste::findProperty(partner, keys.property);
    if (property)
        m_planned.push_back({property, keys});
    else
        ++m_missingProperties;
}

void MirroredPaste::addMissing(const QString &name)
{
    if (!m_missingNodes.contains(name))
        m_missingNodes.append(name);
}

void MirroredPaste::pasteTo(KeyPaste *paste) const
{
    for (const Planned &planned : m_planned)
        paste->paste(planned.keys, planned.property);
}
