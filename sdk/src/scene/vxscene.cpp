#include "scene/vxscene_p.h"

#include "keys/vxproperty_p.h"
#include "scene/deferreddeletion.h"
#include "scene/vxnode_p.h"
#include "undo/vxundovalueitem.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>

VxScene *vxScene = nullptr;

namespace {

constexpr VxTime DefaultStep = VxTicksPerSecond / 30;
constexpr VxTimeRange DefaultRange(0, 30 * DefaultStep);

VxTime bounded(qint64 time)
{
    return static_cast<VxTime>(qBound<qint64>(VxTimeMin, time, VxTimeMax));
}

template <class Test> VxNode *findFirst(const QVector<VxNode *> &nodes, Test test)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(), test);
    return found != nodes.end() ? *found : nullptr;
}

} // namespace

VxScene::Private::Private(VxScene *scene)
    : q(scene)
    , timeStep(DefaultStep)
    , playRange(DefaultRange)
    , animRange(DefaultRange)
    , nodes(scene)
    , selection(scene)
    , playback(scene)
{
}

void VxScene::Private::touchView()
{
    if (viewTouched)
        return;
    viewTouched = true;
    const auto sendViewChanged = [this] {
        viewTouched = false;
        Q_EMIT q->viewChanged();
    };
    QMetaObject::invokeMethod(q, sendViewChanged, Qt::QueuedConnection);
}

void VxScene::Private::applyTime(VxTime newTime)
{
    if (time == newTime)
        return;
    time = newTime;
    VxFloatProperty::dropTransientValues();
    touchView();
    Q_EMIT q->timeChanged(newTime);
}

void VxScene::Private::applyDefaults()
{
    applyTime(0);
    q->setAnimating(true);
    q->loopPlayback(false);
    if (timeStep != DefaultStep) {
        timeStep = DefaultStep;
        Q_EMIT q->timeStepChanged(timeStep);
    }
    if (animRange != DefaultRange) {
        animRange = DefaultRange;
        Q_EMIT q->animRangeChanged(animRange);
    }
    if (playRange != DefaultRange) {
        playRange = DefaultRange;
        Q_EMIT q->playRangeChanged(playRange);
    }
}

bool VxScene::Private::handlePropertyChange(VxProperty *property)
{
    const VxElement *owner = property->getOwner();
    VxNode *node = owner ? VxElement::Private::of(owner)->findNode() : nullptr;
    VxScene *scene = node ? node->getScene() : nullptr;
    if (!scene)
        return true;
    of(scene)->touchView();
    const QPointer<VxProperty> guard(property);
    Q_EMIT scene->nodeValuesChanged(node);
    return guard;
}

VxTimeRange VxScene::Private::ordered(const VxTimeRange &range)
{
    return {range.getStart(), std::max(range.getStart(), range.getEnd())};
}

VxScene::VxScene(QObject *parent)
    : VxSignalGuard(parent)
    , d(std::make_unique<Private>(this))
{
    qRegisterMetaType<VxTime>("VxTime");
    VxProperty::Private::changeHook = &Private::handlePropertyChange;
    if (!vxScene)
        vxScene = this;
}

VxScene::~VxScene()
{
    // Receivers would use a half destroyed scene.
    blockSignals(true);
    d->playback.pause();
    d->selection.reset();
    d->nodes.destroyAll();
    if (vxScene == this)
        vxScene = nullptr;
}

VxTime VxScene::getTime() const
{
    return d->time;
}

VxTime VxScene::getTimeStep() const
{
    return d->timeStep;
}

VxTimeRange VxScene::getPlayRange() const
{
    return d->playRange;
}

VxTimeRange VxScene::getAnimRange() const
{
    return d->animRange;
}

bool VxScene::isAnimating() const
{
    return d->animating;
}

bool VxScene::isPlaying() const
{
    return d->playback.isPlaying();
}

bool VxScene::isLoopingEnabled() const
{
    return d->looping;
}

VxNode *VxScene::getPrimarySelection() const
{
    return d->selection.primary();
}

void VxScene::setPrimarySelection(VxNode *node)
{
    d->selection.setPrimary(node);
}

VxNodeListIterator VxScene::nodeListIterator() const
{
    return VxNodeListIterator(d->nodes.all());
}

VxNodeListIterator VxScene::selectedNodeListIterator() const
{
    return VxNodeListIterator(d->selection.nodes());
}

int VxScene::getNumNodes() const
{
    return d->nodes.count();
}

int VxScene::getNumSelectedNodes() const
{
    return d->selection.count();
}

QVector<VxNode *> VxScene::getRootNodes() const
{
    return d->nodes.roots();
}

QVector<VxNode *> VxScene::getNodes() const
{
    return d->nodes.all();
}

QVector<VxNode *> VxScene::getSelectedNodes() const
{
    return d->selection.nodes();
}

VxNode *VxScene::findNode(const QString &name) const
{
    return findFirst(d->nodes.all(), [&](const VxNode *node) { return node->getName() == name; });
}

VxNode *VxScene::findNodeByLabel(const QString &label) const
{
    return findFirst(d->nodes.all(), [&](const VxNode *node) { return node->getLabel() == label; });
}

VxNode *VxScene::findNodeById(quint64 id) const
{
    return d->nodes.findById(id);
}

bool VxScene::addNode(VxNode *node, VxNode *parent)
{
    if (!node || node->getScene() || node->getNodeParent()) {
        qWarning("VxScene::addNode(): %s %s", node ? qUtf8Printable(node->getName()) : "null",
                 !node              ? "is not a node"
                 : node->getScene() ? "is already in a scene"
                                    : "has a parent");
        return false;
    }
    if (parent && parent->getScene() != this) {
        qWarning("VxScene::addNode(): the parent %s of %s is not in this scene",
                 qUtf8Printable(parent->getName()), qUtf8Printable(node->getName()));
        return false;
    }
    if (parent && !VxNode::Private::of(node)->fitsBelow(parent)) {
        qWarning("VxScene::addNode(): %s below %s would be nested deeper than %d levels",
                 qUtf8Printable(node->getName()), qUtf8Printable(parent->getName()),
                 VxNode::MaxDepth);
        return false;
    }
    d->nodes.add(node, parent);
    return true;
}

bool VxScene::removeNode(VxNode *node)
{
    if (!node || node->getScene() != this) {
        qWarning("VxScene::removeNode(): %s is not in this scene",
                 node ? qUtf8Printable(node->getName()) : "null");
        return false;
    }
    // A receiver of aboutToRemoveNode() may have removed the node itself.
    if (!VxNode::Private::of(node)->leaving)
        d->nodes.remove(node);
    return true;
}

void VxScene::beginLoad()
{
    if (d->loadDepth++ > 0)
        return;
    pause();
    Q_EMIT sceneLoadStarting();
}

void VxScene::endLoad()
{
    if (d->loadDepth == 0) {
        qWarning("VxScene::endLoad(): no load is open");
        return;
    }
    if (--d->loadDepth == 0)
        Q_EMIT sceneLoaded();
}

bool VxScene::isLoading() const
{
    return d->loadDepth > 0;
}

void VxScene::clear()
{
    const DeferredDeletion hold;
    Q_EMIT sceneClearStarting();
    pause();
    DeferredDeletion::discardAll(d->nodes.take(d->nodes.roots()));
    d->applyDefaults();
    if (VxUndoStack *stack = VxUndoStack::current())
        stack->clear();
    d->nodes.restartIds();
    Q_EMIT sceneCleared();
}

void VxScene::setTime(int time)
{
    if (!vxChange<&VxScene::getTime, &VxScene::setTime>(this, VxUndoSceneTime, &d->time, time))
        return;
    // The playback is updated first: receivers of the signal find it in the new state.
    d->playback.handleTimeSet();
    VxFloatProperty::dropTransientValues();
    d->touchView();
    Q_EMIT timeChanged(time);
}

void VxScene::setTimeStep(int ticksPerFrame)
{
    const VxTime step = std::max(1, ticksPerFrame);
    if (!vxChange<&VxScene::getTimeStep, &VxScene::setTimeStep>(this, VxUndoSceneTimeStep,
                                                                &d->timeStep, step))
        return;
    d->playback.handleSettingsChanged();
    Q_EMIT timeStepChanged(step);
}

void VxScene::setPlayRange(const VxTimeRange &range)
{
    const VxTimeRange valid = Private::ordered(range);
    if (!vxChange<&VxScene::getPlayRange, &VxScene::setPlayRange>(this, VxUndoScenePlayRange,
                                                                  &d->playRange, valid))
        return;
    d->playback.handleSettingsChanged();
    Q_EMIT playRangeChanged(valid);
}

void VxScene::setAnimRange(const VxTimeRange &range)
{
    const VxTimeRange valid = Private::ordered(range);
    if (!vxChange<&VxScene::getAnimRange, &VxScene::setAnimRange>(this, VxUndoSceneAnimRange,
                                                                  &d->animRange, valid))
        return;
    Q_EMIT animRangeChanged(valid);
}

void VxScene::setAnimating(bool animating)
{
    if (d->animating == animating)
        return;
    d->animating = animating;
    Q_EMIT animatingChanged(animating);
}

void VxScene::play(bool dropFrames)
{
    d->playback.play(dropFrames);
}

void VxScene::pause()
{
    d->playback.pause();
}

void VxScene::loopPlayback(bool onOff)
{
    if (d->looping == onOff)
        return;
    d->looping = onOff;
    d->playback.handleSettingsChanged();
    Q_EMIT loopPlaybackChanged(onOff);
}

void VxScene::stepTime(int frames, bool forward)
{
    const VxTimeRange range = d->playRange;
    if (!range.contains(d->time)) {
        setTime(range.clamp(d->time));
        return;
    }
    const qint64 offset = qint64(frames) * d->timeStep;
    setTime(range.clamp(bounded(forward ? d->time + offset : d->time - offset)));
}

void VxScene::selectNodes(const QVector<VxNode *> &nodes, bool onOff)
{
    if (onOff)
        d->selection.select(nodes);
    else
        d->selection.deselect(nodes);
}

void VxScene::selectAllNodes(bool onOff)
{
    if (onOff)
        d->selection.selectAll();
    else
        d->selection.deselectAll();
}
