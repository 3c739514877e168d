#include "io/bvh/vxbvhdocument.h"

#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <cmath>
#include <set>

namespace {

bool isBlank(QChar c)
{
    const ushort code = c.unicode();
    return code == ' ' || (code >= '\t' && code <= '\r');
}

bool isFinite(const QVector3D &offset)
{
    return std::isfinite(offset.x()) && std::isfinite(offset.y()) && std::isfinite(offset.z());
}

// A name must survive a round trip: it extends to the end of its line, and a brace at the end of
// that line opens the joint's block.
bool isNameValid(const QString &name)
{
    if (name.isEmpty() || isBlank(name.front()) || isBlank(name.back()) || name.endsWith(u'{'))
        return false;
    for (const QChar c : name) {
        if (c == u'\n' || c == u'\r' || c.isNull())
            return false;
    }
    return name.isValidUtf16();
}

bool isJointValid(const VxBvhJoint &joint, QString *message)
{
    if (!isNameValid(joint.name))
        return vxFail(message, VxFileText::tr("A joint cannot be named \"%1\".").arg(joint.name));
    const std::set<VxBvhChannel> kinds(joint.channels.begin(), joint.channels.end());
    if (kinds.size() != joint.channels.size())
        return vxFail(message,
                      VxFileText::tr("Joint \"%1\" has a duplicate channel.").arg(joint.name));
    bool finite = isFinite(joint.offset);
    for (const QVector3D &end : joint.endSites)
        finite = finite && isFinite(end);
    return finite ||
           vxFail(message,
                  VxFileText::tr("Joint \"%1\" has an offset that is not finite.").arg(joint.name));
}

} // namespace

bool VxBvhJoint::operator==(const VxBvhJoint &other) const
{
    return name == other.name && parent == other.parent && offset == other.offset &&
           channels == other.channels && endSites == other.endSites;
}

int VxBvhDocument::channelCount() const
{
    std::size_t count = 0;
    for (const VxBvhJoint &joint : joints)
        count += joint.channels.size();
    return static_cast<int>(count);
}

const float *VxBvhDocument::channelValues(int channel) const
{
    if (frameCount <= 0)
        return nullptr;
    return values.data() + static_cast<std::size_t>(channel) * static_cast<std::size_t>(frameCount);
}

bool VxBvhDocument::isValid(QString *message) const
{
    return areJointsValid(message) && areValuesValid(message);
}

bool VxBvhDocument::areJointsValid(QString *message) const
{
    if (joints.empty())
        return vxFail(message, VxFileText::tr("The skeleton has no joints."));
    // The chain from the last joint up to its root: the only legal parents in pre-order.
    std::vector<int> chain;
    for (std::size_t i = 0; i < joints.size(); ++i) {
        const VxBvhJoint &joint = joints[i];
        while (!chain.empty() && chain.back() != joint.parent)
            chain.pop_back();
        if (chain.empty() && joint.parent != -1)
            return vxFail(
                message,
                VxFileText::tr("Joint \"%1\" is not below its parent in the list of joints.")
                    .arg(joint.name));
        chain.push_back(static_cast<int>(i));
        if (chain.size() > VxBvhMaxDepth)
            return vxFail(message,
                          VxFileText::tr("Joint \"%1\" is nested too deeply.").arg(joint.name));
        if (!isJointValid(joint, message))
            return false;
    }
    return true;
}

bool VxBvhDocument::areValuesValid(QString *message) const
{
    if (!(frameTime > 0.0) || !std::isfinite(frameTime))
        return vxFail(message, VxFileText::tr("The frame time must be greater than 0."));
    if (frameCount < 0 || (frameCount > 0 && channelCount() == 0))
        return vxFail(message, VxFileText::tr("The motion has frames but no channels."));
    const auto expected =
        static_cast<std::size_t>(channelCount()) * static_cast<std::size_t>(frameCount);
    if (values.size() != expected)
        return vxFail(message,
                      VxFileText::tr("The number of values does not equal channels times frames."));
    for (const float value : values) {
        if (!std::isfinite(value))
            return vxFail(message, VxFileText::tr("A value is not finite."));
    }
    return true;
}

bool VxBvhDocument::operator==(const VxBvhDocument &other) const
{
    return frameCount == other.frameCount && frameTime == other.frameTime &&
           joints == other.joints && values == other.values;
}
