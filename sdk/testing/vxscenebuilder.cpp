#include "vxscenebuilder.h"

#include <random>
#include <vector>
#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>

namespace {

constexpr int BonesOfAFigure = 170;

QVector<VxFloatProperty *> channelsOf(const VxNode *node)
{
    return {node->getXPosControl(),   node->getYPosControl(),   node->getZPosControl(),
            node->getXRotControl(),   node->getYRotControl(),   node->getZRotControl(),
            node->getXScaleControl(), node->getYScaleControl(), node->getZScaleControl()};
}

/// The range of a channel's values about its default.
float spreadOf(const VxFloatProperty *channel)
{
    if (channel->isPercentage())
        return 0.2f;
    return channel->getPath().endsWith(QLatin1String("Rotation")) ? 45.0f : 10.0f;
}

} // namespace

class VxSceneBuilder::Private
{
public:
    Private(VxScene *theScene, quint32 seed)
        : scene(theScene)
        , random(seed)
    {
    }

    void key(VxFloatProperty *channel, float middle, float spread, int count, VxTime step);
    /// From -1 to 1. Distributions of the standard library differ from one to the next.
    float swing() { return float(random() % 20001) / 10000.0f - 1.0f; }

    VxScene *scene;
    std::mt19937 random;
    std::vector<VxTime> times;
    std::vector<float> values;
    std::vector<quint8> types;
};

void VxSceneBuilder::Private::key(VxFloatProperty *channel, float middle, float spread, int count,
                                  VxTime step)
{
    times.resize(size_t(count));
    values.resize(size_t(count));
    float value = swing();
    for (size_t i = 0; i < size_t(count); ++i) {
        times[i] = VxTime(i) * step;
        value = qBound(-1.0f, value + swing() * 0.2f, 1.0f);
        values[i] = middle + value * spread;
    }
    VxKeyColumns<float> keys;
    keys.times = times.data();
    keys.values = values.data();
    keys.types = types.empty() ? nullptr : types.data();
    keys.count = count;
    channel->replaceKeys(VxTimeRange::all(), keys);
}

VxSceneBuilder::VxSceneBuilder(VxScene *scene, quint32 seed)
    : d(std::make_unique<Private>(scene, seed))
{
}

VxSceneBuilder::~VxSceneBuilder() = default;

void VxSceneBuilder::build(Size size)
{
    const int figures = size == Size::W ? 10 : 1;
    const int keys = size == Size::M ? 3000 : 300;
    d->scene->beginLoad();
    for (int i = 1; i <= figures; ++i) {
        const VxSkeleton *skeleton =
            addSkeleton(QStringLiteral("Figure %1 ").arg(i), BonesOfAFigure);
        QVector<VxNode *> bones;
        skeleton->getNodeChildren(bones, true);
        keyChannels(bones, keys, d->scene->getTimeStep());
    }
    const VxTimeRange range(0, (keys - 1) * d->scene->getTimeStep());
    d->scene->setAnimRange(range);
    d->scene->setPlayRange(range);
    d->scene->endLoad();
}

VxSkeleton *VxSceneBuilder::addSkeleton(const QString &name, int bones, Shape shape)
{
    auto *skeleton = new VxSkeleton(name);
    QVector<VxNode *> made{skeleton};
    for (int i = 1; i <= bones; ++i) {
        auto *bone = new VxBone(name + QString::number(i));
        const int above = shape == Shape::Chain ? i - 1 : (i + 2) / 4;
        bone->setOrigin({0, 10, 0});
        bone->setEndPoint({0, 10, 0});
        made.at(above)->addNodeChild(bone);
        made.append(bone);
    }
    d->scene->addNode(skeleton);
    return skeleton;
}

VxNode *VxSceneBuilder::addNode(const QString &name, VxNode *parent)
{
    auto *node = new VxNode(name);
    d->scene->addNode(node, parent);
    return node;
}

QVector<VxMorph *> VxSceneBuilder::addMorphs(VxNode *node, int count)
{
    if (!node->getObject())
        node->setObject(new VxObject(node->getName() + QStringLiteral(" shape")));
    QVector<VxMorph *> morphs;
    for (int i = 1; i <= count; ++i) {
        morphs.append(new VxMorph(QStringLiteral("Morph %1").arg(i)));
        node->getObject()->addSubElement(morphs.last());
    }
    return morphs;
}

void VxSceneBuilder::keyChannels(const QVector<VxNode *> &nodes, int count, VxTime step,
                                 KeyTypes types)
{
    d->types.clear();
    if (types == KeyTypes::Mixed) {
        for (int i = 0; i < count; ++i)
            d->types.push_back(quint8(i % 3));
    }
    for (const VxNode *node : nodes) {
        const auto channels = channelsOf(node);
        for (VxFloatProperty *channel : channels)
            d->key(channel, channel->getDefaultValue(), spreadOf(channel), count, step);
    }
    d->types.clear();
}

void VxSceneBuilder::keyMorphs(const QVector<VxMorph *> &morphs, int count, VxTime step)
{
    for (const VxMorph *morph : morphs)
        d->key(morph->getValueControl(), 0.5f, 0.5f, count, step);
}

VxSceneBuilder::Special VxSceneBuilder::addSpecialProperties(VxNode *node)
{
    const auto add = [node](auto *property) {
        node->addProperty(property, QStringLiteral("/Special"));
        return property;
    };
    const auto addFloat = [&add](const char *name) {
        return add(new VxFloatProperty(QString::fromLatin1(name)));
    };
    Special special;
    special.alias = addFloat("Alias");
    special.alias->setAliasedProperty(node->getXPosControl());
    auto *linked = addFloat("Linked");
    linked->setLink(node->getYPosControl(), false, 2.0);
    special.linked = linked;
    auto *terminal = addFloat("Terminal");
    terminal->setLink(node->getYPosControl(), true);
    special.terminal = terminal;
    special.hidden = addFloat("Hidden");
    special.hidden->setHidden(true);
    special.dynamic = addFloat("Dynamic");
    special.dynamic->setDynamicallyHidden(true);
    auto *percentage = addFloat("Percentage");
    percentage->setPercentage(true);
    special.percentage = percentage;
    special.integer = add(new VxIntProperty(QStringLiteral("Integer")));
    special.boolean = add(new VxBoolProperty(QStringLiteral("Boolean")));
    auto *locked = addFloat("Locked");
    locked->setKey(0, 0.0f, 0);
    locked->setKey(4800, 1.0f, 0);
    locked->setLocked(true);
    special.locked = locked;
    special.unanimated = addFloat("Unanimated");
    special.unanimated->setAnimatable(false);
    special.excluded = addFloat("Excluded");
    special.excluded->setExcluded(true);
    special.text = add(new VxStringProperty(QStringLiteral("Text")));
    return special;
}
