#ifndef VXSCENEBUILDER_H
#define VXSCENEBUILDER_H

#include <QString>
#include <QVector>
#include <memory>
#include <vxcore/vxtime.h>

class VxMorph;
class VxNode;
class VxObject;
class VxProperty;
class VxScene;
class VxSkeleton;

/**
 * Fills a scene for tests and benchmarks: figures of bones in chains or trees, keys on their
 * channels, and one property of each kind that editors treat specially.
 *
 * Everything random comes from the seed, so that a scene is the same in every run. A channel is a
 * transform control other than the uniform scale: nine for a node. What is built is not recorded
 * for undo unless the caller has a hold open.
 */
class VxSceneBuilder
{
public:
    /** Chain: each bone below the one before. Tree: each bone has up to four below it. */
    enum class Shape { Chain, Tree };
    /** The types of keys: all linear, or linear, constant and TCB by turns. */
    enum class KeyTypes { Linear, Mixed };
    /**
     * Scenes of fixed sizes, each of skeletons of 170 bones with nine keyed channels a bone, all
     * keys linear, on every frame of 30 a second:
     * S: 1,530 channels of 300 keys; M: 1,530 of 3,000; W: 15,300 of 300, ten skeletons.
     */
    enum class Size { S, M, W };

    explicit VxSceneBuilder(VxScene *scene, quint32 seed = 1);
    ~VxSceneBuilder();
    VxSceneBuilder(const VxSceneBuilder &) = delete;
    VxSceneBuilder &operator=(const VxSceneBuilder &) = delete;

    /** One of the scenes named above, in an otherwise empty scene; the ranges span the keys. */
    void build(Size size);

    /** A skeleton named `name` with bones named `name` and a number from 1, in the scene. */
    VxSkeleton *addSkeleton(const QString &name, int bones, Shape shape = Shape::Tree);
    /** A plain node in the scene, at the top or below `parent`. */
    VxNode *addNode(const QString &name, VxNode *parent = nullptr);
    /** An object on the node, made if it has none, with morphs named "Morph 1" and so on. */
    QVector<VxMorph *> addMorphs(VxNode *node, int count);

    /**
     * Gives every channel of the nodes `count` keys, `step` ticks apart from time 0, in place of
     * those it has. Values vary slowly, as motion does.
     */
    void keyChannels(const QVector<VxNode *> &nodes, int count, VxTime step = 160,
                     KeyTypes types = KeyTypes::Linear);
    /** The same for the morphs' values, between 0 and 1. */
    void keyMorphs(const QVector<VxMorph *> &morphs, int count, VxTime step = 160);

    /** What addSpecialProperties() made; all are the node's. */
    struct Special
    {
        VxProperty *alias = nullptr;      ///< for the node's X translation
        VxProperty *linked = nullptr;     ///< follows the Y translation, doubled
        VxProperty *terminal = nullptr;   ///< adds the Y translation to its own value
        VxProperty *hidden = nullptr;     ///< hidden permanently
        VxProperty *dynamic = nullptr;    ///< hidden at present
        VxProperty *percentage = nullptr; ///< shown as a percentage
        VxProperty *integer = nullptr;    ///< whole numbers
        VxProperty *boolean = nullptr;    ///< a switch
        VxProperty *locked = nullptr;     ///< has two keys, then locked
        VxProperty *unanimated = nullptr; ///< cannot have keys
        VxProperty *excluded = nullptr;   ///< left out by animation editors
        VxProperty *text = nullptr;       ///< not a number
    };
    /** One property of each kind, in the group "/Special". */
    Special addSpecialProperties(VxNode *node);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
