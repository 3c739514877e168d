#include "io/motion/vxmotionbuilder.h"

#include "io/motion/vxkeptrate.h"
#include "io/motion/vxmotionchannels.h"
#include "io/motion/vxmotionhierarchy.h"
#include "io/motion/vxmotionnodes.h"
#include "io/motion/vxmotiontiming.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <QJsonObject>
#include <algorithm>

namespace {

/** The rate of a figure that was exported with it; 0 without one. */
double writtenRate(const VxImportedMotion &motion)
{
    const QString name = vxKeptRateName();
    for (const VxMotionNode &node : motion.nodes) {
        for (const VxMotionValue &property : node.properties) {
            if (property.name == name && property.value >= 1.0)
                return vxExactRate(property.value);
        }
    }
    return 0.0;
}

/// One build.
class Builder
{
public:
    Builder(VxImportedMotion motion, const VxMotionBuildOptions &options)
        : m_motion(std::move(motion))
        , m_options(options)
    {
    }

    bool build(const VxFileProgress &progress, VxSceneContents *contents, VxImportReport *report,
               VxFileError *error);

private:
    bool checkDepth(VxFileError *error) const;
    bool chooseClips(VxFileError *error);
    bool checkTimes(VxFileError *error) const;
    void setRate();
    void setRange(VxSceneContents *contents) const;
    void describe();

    VxImportedMotion m_motion;
    const VxMotionBuildOptions m_options;
    VxImportReport m_report;
    std::vector<const VxMotionClip *> m_clips; // those that are imported
    std::vector<VxMotionTiming::Slot> m_slots; // one a clip
};

/** Includes the added nodes. */
bool Builder::checkDepth(VxFileError *error) const
{
    std::vector<int> depths;
    depths.reserve(m_motion.nodes.size());
    for (const VxMotionNode &node : m_motion.nodes) {
        depths.push_back(node.parent < 0 ? 1 : depths[std::size_t(node.parent)] + 1);
        if (depths.back() > VxNode::MaxDepth)
            return vxFail(
                error,
                VxFileText::tr("The node \"%1\" is deeper than %2 levels, which a scene does not "
                               "allow.")
                    .arg(node.name, QString::number(VxNode::MaxDepth)));
    }
    return true;
}

bool Builder::chooseClips(VxFileError *error)
{
    const std::vector<VxMotionClip> &clips = m_motion.clips;
    const QString &requested = m_options.clip;
    bool isNumber = false;
    const int number = requested.toInt(&isNumber);
    if (m_options.clipNumber >= 1 && std::size_t(m_options.clipNumber) <= clips.size()) {
        m_clips.push_back(&clips[std::size_t(m_options.clipNumber) - 1]);
        return true;
    }
    for (std::size_t i = 0; i < clips.size(); ++i) {
        if (requested.isEmpty() || clips[i].name == requested)
            m_clips.push_back(&clips[i]);
    }
    if (m_clips.empty() && isNumber && number >= 1 && std::size_t(number) <= clips.size())
        m_clips.push_back(&clips[std::size_t(number) - 1]);
    if (m_clips.size() > 1 && !requested.isEmpty())
        m_clips.resize(1);
    if (!m_clips.empty() || requested.isEmpty())
        return true;
    QStringList names;
    for (const VxMotionClip &clip : clips)
        names.append(clip.name);
    return vxFail(error,
                  names.isEmpty()
                      ? VxFileText::tr("The file has no animation named \"%1\".").arg(requested)
                      : VxFileText::tr("The file has no animation named \"%1\". It has: %2.")
                            .arg(requested, names.join(QStringLiteral(", "))));
}

bool Builder::checkTimes(VxFileError *error) const
{
    for (const VxMotionClip *clip : m_clips) {
        const auto [first, last] = VxMotionTiming::span(*clip);
        const double limit = VxMotionTiming::maxSeconds();
        for (const VxMotionChannel &channel : clip->channels) {
            const std::vector<double> &times = channel.times();
            if (!times.empty() && (times.front() < -limit || times.back() > limit))
                return vxFail(
                    error,
                    VxFileText::tr("The animation \"%1\" has a key at %2 s; a scene holds "
                                   "times of up to %3 s.")
                        .arg(clip->name,
                             QString::number(times.back() > limit ? times.back() : times.front()),
                             QString::number(limit)));
        }
        if (first < -limit || last > limit || last - first > limit)
            return vxFail(error,
                          VxFileText::tr("The animation \"%1\" is too long.").arg(clip->name));
    }
    return true;
}

void Builder::setRate()
{
    m_report.sourceRate = m_motion.facts.rate > 0.0 ? m_motion.facts.rate : writtenRate(m_motion);
    if (!(m_report.sourceRate > 0.0)) {
        m_report.sourceRate = VxMotionTiming::rateOfKeys(m_motion);
        m_report.isRateFromKeys = m_report.sourceRate > 0.0;
    }
    if (m_report.sourceRate > 0.0)
        m_report.step = VxMotionTiming::stepOf(m_report.sourceRate);
    m_report.sceneStep = m_report.step;
}

/** From 0, or from the first key if that is earlier, to the last. */
void Builder::setRange(VxSceneContents *contents) const
{
    contents->timeStep = m_report.step;
    VxTimeRange range(0, 0);
    for (const VxMotionTiming::Slot &slot : m_slots)
        range = range.united(slot.range);
    if (range.getEnd() == range.getStart())
        range = VxTimeRange(0, 30 * m_report.step);
    contents->animRange = range;
    contents->playRange = range;
    contents->time = range.getStart();
}

void Builder::describe()
{
    const VxMotionFacts &facts = m_motion.facts;
    m_report.format = facts.format;
    m_report.writer = facts.writer;
    m_report.upAxis = facts.upAxis;
    m_report.metresPerUnit = facts.metresPerUnit;
    m_report.notes = facts.notes;
    m_report.omissions = facts.omissions;
    for (const VxMotionClip &clip : m_motion.clips) {
        const auto chosen = std::find(m_clips.begin(), m_clips.end(), &clip);
        const auto slot = std::size_t(chosen - m_clips.begin());
        VxImportedClip described;
        described.name = clip.name;
        described.isImported = slot < m_slots.size();
        if (described.isImported)
            described.range = m_slots[slot].range;
        m_report.clips.push_back(described);
    }
    if (!m_slots.empty()) {
        m_report.firstKey = VxMotionTiming::span(*m_clips.front()).first;
        m_report.isMovedToZero = m_slots.front().offset != 0.0;
    }
}

bool Builder::build(const VxFileProgress &progress, VxSceneContents *contents,
                    VxImportReport *report, VxFileError *error)
{
    QString message;
    if (!m_motion.isValid(&message))
        return vxFail(error, message);
    if (m_motion.nodes.empty())
        return vxFail(error, VxFileText::tr("The file has no nodes."));
    m_report.isRotated = vxArrangeHierarchy(m_options.figureName, &m_motion);
    if (!checkDepth(error) || !chooseClips(error) || !checkTimes(error))
        return false;
    setRate();
    m_slots = VxMotionTiming::slots(m_clips, m_report.step, m_options.startsAtZero);
    if (m_slots.size() < m_clips.size())
        return vxFail(error, VxFileText::tr(
                                 "The animations are too long to follow one another. Choose one."));
    describe();
    VxMotionChannels channels(m_motion, m_clips, m_slots);
    std::vector<VxNode *> nodes;
    VxSceneContents built;
    built.rootNodes = vxMakeNodes(m_motion, channels, &nodes, &m_report);
    if (!channels.addKeys(nodes, progress, &m_report))
        return channels.isTooLong()
                   ? vxFail(error,
                            VxFileText::tr("The animations need more keys than can be imported."))
                   : vxCancel(error, VxFileText::tr("The import was cancelled."));
    setRange(&built);
    *contents = std::move(built);
    *report = std::move(m_report);
    return true;
}

} // namespace

QJsonObject VxMotionBuildOptions::toJson() const
{
    return {{QStringLiteral("figureName"), figureName},
            {QStringLiteral("clip"), clip},
            {QStringLiteral("clipNumber"), clipNumber},
            {QStringLiteral("startsAtZero"), startsAtZero}};
}

VxMotionBuildOptions VxMotionBuildOptions::fromJson(const QJsonObject &object)
{
    VxMotionBuildOptions options;
    options.figureName = object.value(QStringLiteral("figureName")).toString();
    options.clip = object.value(QStringLiteral("clip")).toString();
    options.clipNumber = object.value(QStringLiteral("clipNumber")).toInt();
    options.startsAtZero = object.value(QStringLiteral("startsAtZero")).toBool();
    return options;
}

bool vxBuildMotion(VxImportedMotion motion, const VxMotionBuildOptions &options,
                   const VxFileProgress &progress, VxSceneContents *contents,
                   VxImportReport *report, VxFileError *error)
{
    return Builder(std::move(motion), options).build(progress, contents, report, error);
}
