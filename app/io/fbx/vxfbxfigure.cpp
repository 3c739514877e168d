#include "io/fbx/vxfbxfigure.h"

#include <algorithm>
#include <vxcore/vxlimbsolver.h>

namespace {

using Vector = VxFbxModel::Vector;

constexpr Vector ones{{1.0, 1.0, 1.0}};

// Pre- and post-rotation are in the order X, Y, Z.
VxRotation fixedRotation(const Vector &angles)
{
    return vxRotation(angles, VxRotationOrder::ZYX);
}

bool isIdentity(const VxRotation &rotation)
{
    return rotation[0][0] == 1.0 && rotation[1][1] == 1.0 && rotation[2][2] == 1.0;
}

VxMotionQuaternion motionQuaternion(const VxRotation &rotation)
{
    const VxQuaternion q = vxQuaternion(rotation);
    return {{q.x, q.y, q.z, q.w}};
}

Vector product(const Vector &a, const Vector &b)
{
    return {{a[0] * b[0], a[1] * b[1], a[2] * b[2]}};
}

Vector sum(const Vector &a, const Vector &b)
{
    return {{a[0] + b[0], a[1] + b[1], a[2] + b[2]}};
}

bool isZero(const Vector &v)
{
    return v == Vector{};
}

bool isAlways(const VxFbxTrack &track, const Vector &constant)
{
    return track[0].isAlways(constant[0]) && track[1].isAlways(constant[1]) &&
           track[2].isAlways(constant[2]);
}

VxFbxTrack constantTrack(const Vector &v)
{
    VxFbxTrack track;
    for (std::size_t axis = 0; axis < 3; ++axis)
        track[axis].value = v[axis];
    return track;
}

// factor * channel + offset, in place.
void adjust(VxFbxChannel *channel, double factor, double offset)
{
    channel->value = factor * channel->value + offset;
    vxScaleCurve(&channel->curve, factor, offset);
}

// Keeps the keys, all with one value.
void hold(VxFbxChannel *channel, double value)
{
    adjust(channel, 0.0, value);
}

VxMotionTarget targetOf(VxMotionTarget first, std::size_t axis)
{
    return static_cast<VxMotionTarget>(static_cast<std::size_t>(first) + axis);
}

} // namespace

VxFbxFigure::VxFbxFigure(const std::vector<VxFbxModel> &models, std::vector<VxFbxClipTracks> *clips)
    : m_models(models)
    , m_clips(*clips)
    , m_plans(models.size())
    , m_restScales(models.size(), ones)
    , m_restFactors(models.size(), ones)
{
    for (std::size_t i = 0; i < models.size(); ++i) {
        studyTracks(i);
        findApart(i);
    }
    // Written back now, because a separated child follows its parent.
    for (std::size_t i = 0; i < models.size(); ++i) {
        if (m_plans[i].isApart)
            m_plans[std::size_t(models[i].parent)].keepsScaleApart = true;
    }
    for (VxFbxClipTracks &clip : m_clips)
        scaleTracks(&clip);
}

void VxFbxFigure::studyTracks(std::size_t model)
{
    const VxFbxModel &it = m_models[model];
    Plan &plan = m_plans[model];
    plan.scaleIsOne = it.scale == ones;
    for (const VxFbxClipTracks &clip : m_clips) {
        plan.movesRotation = plan.movesRotation || !isAlways(clip[model].rotation, it.rotation);
        plan.movesScale = plan.movesScale || !isAlways(clip[model].scale, it.scale);
    }
    plan.scaleIsOne = plan.scaleIsOne && !plan.movesScale;
    plan.scaleIsUniform = isUniform(model);
}

bool VxFbxFigure::isUniform(std::size_t model) const
{
    const Vector &rest = m_models[model].scale;
    if (rest[0] != rest[1] || rest[1] != rest[2])
        return false;
    return std::all_of(m_clips.begin(), m_clips.end(), [model](const VxFbxClipTracks &clip) {
        const VxFbxTrack &scale = clip[model].scale;
        const auto isSame = [](const VxFbxChannel &a, const VxFbxChannel &b) {
            const auto areSame = [](const VxMotionShape &x, const VxMotionShape &y) {
                return x.segment == y.segment && x.inSlope == y.inSlope &&
                       x.outSlope == y.outSlope && x.inWeight == y.inWeight &&
                       x.outWeight == y.outWeight;
            };
            return a.curve.times == b.curve.times && a.curve.values == b.curve.values &&
                   (a.hasKeys() || a.value == b.value) &&
                   std::equal(a.curve.shapes.begin(), a.curve.shapes.end(), b.curve.shapes.begin(),
                              b.curve.shapes.end(), areSame);
        };
        return isSame(scale[0], scale[1]) && isSame(scale[1], scale[2]);
    });
}

// Scale can be inherited as a plain product unless the file requires otherwise and it makes a
// difference: uniform scales commute with rotations.
void VxFbxFigure::findApart(std::size_t model)
{
    const VxFbxModel &it = m_models[model];
    Plan &plan = m_plans[model];
    m_restScales[model] = it.scale;
    if (it.parent < 0 || it.inherit == VxFbxModel::BeforeRotation)
        return;
    const auto above = static_cast<std::size_t>(it.parent);
    const bool drops = it.inherit == VxFbxModel::Compensated && !m_plans[above].scaleIsOne;
    plan.isApart = drops || !m_plans[above].scaleIsUniform;
    if (!plan.isApart)
        return;
    plan.scaleIsUniform = plan.scaleIsUniform && m_plans[above].scaleIsUniform;
    m_restFactors[model] =
        it.inherit == VxFbxModel::Compensated ? m_restFactors[above] : m_restScales[above];
    m_restScales[model] = product(it.scale, m_restFactors[model]);
}

// Multiplies the inherited scale of separated nodes into their own translation and scale.
void VxFbxFigure::scaleTracks(VxFbxClipTracks *tracks) const
{
    std::vector<VxFbxTrack> factors(m_models.size());
    for (std::size_t i = 0; i < m_models.size(); ++i) {
        if (!m_plans[i].isApart) {
            if (m_plans[i].keepsScaleApart)
                factors[i] = constantTrack(ones);
            continue;
        }
        const auto above = static_cast<std::size_t>(m_models[i].parent);
        const VxFbxTrack &inherited = (*tracks)[above].scale;
        factors[i] = m_models[i].inherit == VxFbxModel::Compensated ? factors[above] : inherited;
        VxFbxModelTracks &own = (*tracks)[i];
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double offset =
                m_models[i].rotationOffset[axis] + m_models[i].rotationPivot[axis];
            adjust(&own.translation[axis], 1.0, offset);
            own.translation[axis] = vxFbxProduct(own.translation[axis], inherited[axis]);
            adjust(&own.translation[axis], 1.0, -offset);
            own.scale[axis] = vxFbxProduct(own.scale[axis], factors[i][axis]);
        }
    }
}

VxFbxFigure::Vector VxFbxFigure::restTranslation(std::size_t model) const
{
    const VxFbxModel &it = m_models[model];
    const Vector offset = sum(it.rotationOffset, it.rotationPivot);
    if (!m_plans[model].isApart)
        return sum(it.translation, offset);
    return product(sum(it.translation, offset), m_restScales[std::size_t(it.parent)]);
}

bool VxFbxFigure::addNodes(VxImportedMotion *motion)
{
    for (std::size_t i = 0; i < m_models.size(); ++i) {
        if (!addModel(i, motion))
            return false;
    }
    return true;
}

VxMotionNode VxFbxFigure::mainNode(std::size_t model, const VxRotation &pre, const VxRotation &post)
{
    const VxFbxModel &it = m_models[model];
    Plan &plan = m_plans[model];
    const VxRotationOrder order = vxRotationOrder(it.order);
    VxMotionNode node;
    node.name = it.name;
    node.kind = it.kind;
    node.visible = it.isVisible;
    node.translation = sum(restTranslation(model), plan.origin);
    node.order = it.order;
    if (!plan.movesRotation) {
        plan.fixed = vxEulerAngles(pre * vxRotation(it.rotation, order) * post, order, it.rotation);
        node.rotation = isIdentity(pre) && isIdentity(post) ? it.rotation : plan.fixed;
        plan.fixed = node.rotation;
    } else if (plan.hasForm) {
        node.order = static_cast<VxNode::RotationOrder>(plan.form.order);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const VxFbxRotationForm::Angle &angle = plan.form.angles[axis];
            node.rotation[axis] = angle.sign * it.rotation[angle.source] + angle.offset;
        }
    } else {
        node.rotation = it.rotation;
        node.orientation = motionQuaternion(pre);
    }
    return node;
}

bool VxFbxFigure::addModel(std::size_t model, VxImportedMotion *motion)
{
    // A model has at most three helpers.
    if (motion->nodes.size() + 4 > std::size_t(VxMotionLimits::MaxNodes))
        return false;
    const VxFbxModel &it = m_models[model];
    Plan &plan = m_plans[model];
    const VxRotation pre = fixedRotation(it.preRotation);
    const VxRotation post = vxTransposed(fixedRotation(it.postRotation));
    const bool scalesAboutPivot = plan.movesScale && !isZero(it.scalingPivot);
    Vector offset{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double pivotScale = scalesAboutPivot ? 0.0 : it.scale[axis];
        offset[axis] = it.scalingOffset[axis] - it.rotationPivot[axis] +
                       (1.0 - pivotScale) * it.scalingPivot[axis];
    }
    VxRotation behind = vxRotation({}, VxRotationOrder::XYZ);
    if (!plan.movesRotation) {
        // Without a rotation the pivot is just an offset.
        plan.origin = pre * vxRotation(it.rotation, vxRotationOrder(it.order)) * post * offset;
        offset = {};
    } else {
        plan.hasForm = vxFbxFindForm(pre, vxRotationOrder(it.order), post, &plan.form);
        if (!plan.hasForm)
            behind = post;
    }
    VxMotionNode node = mainNode(model, pre, post);
    if (it.parent >= 0) {
        const Plan &above = m_plans[std::size_t(it.parent)];
        node.parent = plan.isApart ? above.inner : above.last;
    }
    plan.node = static_cast<int>(motion->nodes.size());
    plan.inner = plan.scaleNode = plan.last = plan.node;
    motion->nodes.push_back(node);
    addHelpers(model, offset, behind, motion);
    return true;
}

void VxFbxFigure::addHelpers(std::size_t model, const Vector &offset, const VxRotation &post,
                             VxImportedMotion *motion)
{
    const VxFbxModel &it = m_models[model];
    Plan &plan = m_plans[model];
    const auto addNode = [&](int parent, const QString &suffix) {
        VxMotionNode node;
        node.name = it.name + suffix;
        node.parent = parent;
        motion->nodes.push_back(node);
        return static_cast<int>(motion->nodes.size()) - 1;
    };
    const bool scalesAboutPivot = plan.movesScale && !isZero(it.scalingPivot);
    if (!isZero(offset) || !isIdentity(post)) {
        plan.inner = addNode(plan.node, QStringLiteral(" pivot"));
        VxMotionNode &inner = motion->nodes[std::size_t(plan.inner)];
        inner.translation = post * offset;
        inner.order = VxNode::ZYX;
        inner.rotation = vxEulerAngles(post, VxRotationOrder::ZYX);
        ++m_pivotCount;
    }
    plan.scaleNode = plan.inner;
    if (plan.keepsScaleApart && (plan.isApart || !plan.scaleIsOne)) {
        plan.scaleNode = addNode(plan.inner, QStringLiteral(" scale"));
        ++m_scaleCount;
    }
    motion->nodes[std::size_t(plan.scaleNode)].scale = m_restScales[model];
    plan.last = plan.scaleNode;
    if (scalesAboutPivot) {
        plan.last = addNode(plan.scaleNode, QStringLiteral(" scale pivot"));
        for (std::size_t axis = 0; axis < 3; ++axis)
            motion->nodes[std::size_t(plan.last)].translation[axis] = -it.scalingPivot[axis];
        ++m_pivotCount;
    }
}

void VxFbxFigure::addChannel(int node, VxMotionTarget target, VxFbxChannel *channel, double rest,
                             VxMotionClip *out) const
{
    if (!channel->hasKeys()) {
        if (channel->isAlways(rest))
            return;
        channel->curve.times.push_back(out->start);
        channel->curve.values.push_back(channel->value);
    }
    VxMotionChannel result;
    result.node = node;
    result.target = target;
    result.curve = std::move(channel->curve);
    out->channels.push_back(std::move(result));
}

void VxFbxFigure::addRotation(std::size_t model, VxFbxTrack *track, VxMotionClip *out) const
{
    const VxFbxModel &it = m_models[model];
    const Plan &plan = m_plans[model];
    VxFbxTrack adjusted;
    Vector rest = it.rotation;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const bool hasForm = plan.movesRotation && plan.hasForm;
        const VxFbxRotationForm::Angle angle =
            hasForm ? plan.form.angles[axis] : VxFbxRotationForm::Angle{axis, 1.0, 0.0};
        adjusted[axis] = std::move((*track)[angle.source]);
        if (hasForm) {
            adjust(&adjusted[axis], angle.sign, angle.offset);
            rest[axis] = angle.sign * it.rotation[angle.source] + angle.offset;
        } else if (!plan.movesRotation && plan.fixed[axis] != it.rotation[axis]) {
            hold(&adjusted[axis], plan.fixed[axis]);
            rest[axis] = plan.fixed[axis];
        }
        addChannel(plan.node, targetOf(VxMotionTarget::XRotate, axis), &adjusted[axis], rest[axis],
                   out);
    }
}

void VxFbxFigure::addChannels(std::size_t clip, VxMotionClip *out)
{
    for (std::size_t i = 0; i < m_models.size(); ++i) {
        const VxFbxModel &it = m_models[i];
        const Plan &plan = m_plans[i];
        VxFbxModelTracks &tracks = m_clips[clip][i];
        const Vector rest = sum(restTranslation(i), plan.origin);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            double offset = plan.origin[axis] + it.rotationOffset[axis] + it.rotationPivot[axis];
            VxFbxChannel &channel = tracks.translation[axis];
            if (offset != 0.0)
                adjust(&channel, 1.0, offset);
            addChannel(plan.node, targetOf(VxMotionTarget::XTranslate, axis), &channel, rest[axis],
                       out);
        }
        addRotation(i, &tracks.rotation, out);
        for (std::size_t axis = 0; axis < 3; ++axis)
            addChannel(plan.scaleNode, targetOf(VxMotionTarget::XScale, axis), &tracks.scale[axis],
                       m_restScales[i][axis], out);
        tracks = {};
    }
}
