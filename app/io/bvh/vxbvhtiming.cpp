#include "io/bvh/vxbvhtiming.h"

#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vxcore/vxlocalnumber.h>

namespace {

// The unit of the last decimal place with which the number must have been written.
double lastPlace(double value)
{
    char text[1100]; // the smallest double has 1,076 decimals
    const std::to_chars_result result =
        std::to_chars(text, text + sizeof(text), value, std::chars_format::fixed);
    const char *point = std::find(text, result.ptr, '.');
    const auto decimals = point == result.ptr ? 0 : result.ptr - point - 1;
    return std::pow(10.0, -static_cast<double>(decimals));
}

bool isNearly(double a, double b)
{
    return std::abs(a - b) <= 1e-9 * std::abs(b);
}

// The whole rate of a frame time, or 0 when there is none or it is ambiguous. The text may have
// been rounded or truncated after its last place. A short text allows several rates; then the only
// one with whole ticks is chosen.
int wholeRate(double frameTime)
{
    const double nearest = std::round(1.0 / frameTime);
    if (nearest >= 1.0 && isNearly(frameTime * nearest, 1.0))
        return static_cast<int>(nearest);
    const double place = lastPlace(frameTime);
    const int first = std::max(1, static_cast<int>(1.0 / (frameTime + place)));
    const int last = static_cast<int>(
        std::min(1.0 / std::max(frameTime - place, 1e-4), static_cast<double>(VxTicksPerSecond)));
    int found = 0;
    int foundOfTicks = 0;
    int candidates = 0;
    int candidatesOfTicks = 0;
    for (int rate = first; rate <= last; ++rate) {
        const double over = 1.0 / rate - frameTime;
        if (over < -place * 0.5 || over >= place)
            continue;
        ++candidates;
        found = rate;
        if (VxTicksPerSecond % rate == 0) {
            ++candidatesOfTicks;
            foundOfTicks = rate;
        }
    }
    if (candidates == 1)
        return found;
    return candidatesOfTicks == 1 ? foundOfTicks : 0;
}

QString rateText(double rate)
{
    return vxLocalNumber(QString::number(rate, 'g', 6));
}

} // namespace

bool VxBvhTiming::set(double frameTime, int frameCount, QString *message)
{
    VxBvhTiming timing;
    timing.m_frameCount = frameCount;
    const double ticks = frameTime * VxTicksPerSecond;
    const int rate = ticks > 0.5 ? wholeRate(frameTime) : 0;
    timing.m_rate = rate > 0 ? rate : 1.0 / frameTime;
    if (timing.m_rate > VxTicksPerSecond * (1.0 + 1e-9))
        return vxFail(message, VxFileText::tr(
                                   "The motion has %1 frames per second; at most %2 are supported.")
                                   .arg(rateText(timing.m_rate))
                                   .arg(VxTicksPerSecond));
    const double exactTicks = rate > 0 ? double(VxTicksPerSecond) / rate : ticks;
    if (exactTicks * std::max(0, frameCount - 1) > double(VxTimeMax) - 1.0 ||
        exactTicks > VxTimeMax)
        return vxFail(message, VxFileText::tr("The motion is too long: %1 frames of %2 seconds.")
                                   .arg(frameCount)
                                   .arg(rateText(frameTime)));
    if (isNearly(std::round(exactTicks), exactTicks))
        timing.m_ticks = static_cast<int>(std::round(exactTicks));
    // A whole rate gets the step that the scene itself uses for it, which is truncated.
    const VxTime step =
        rate > 0 ? VxTicksPerSecond / rate : static_cast<VxTime>(std::lround(exactTicks));
    timing.m_step = std::clamp<VxTime>(step, 1, VxTicksPerSecond);
    *this = timing;
    return true;
}

VxTime VxBvhTiming::keyTime(int frame) const
{
    if (m_ticks > 0)
        return frame * m_ticks;
    return static_cast<VxTime>(std::llround(frame * double(VxTicksPerSecond) / m_rate));
}

QVector<VxTime> VxBvhTiming::keyTimes() const
{
    QVector<VxTime> times(m_frameCount);
    for (int frame = 0; frame < m_frameCount; ++frame)
        times[frame] = keyTime(frame);
    return times;
}

QString VxBvhTiming::sourceSentence() const
{
    return VxFileText::tr("The motion has %1 frames at %2 frames per second.")
        .arg(QString::number(m_frameCount), rateText(m_rate));
}

QString VxBvhTiming::sentence() const
{
    const QString source = sourceSentence();
    if (isOnSceneFrames())
        return source + QLatin1Char(' ') + VxFileText::tr("The scene has the same frame rate.");
    const QString scene = VxFileText::tr("The scene has %1 frames per second (%2 ticks per frame);")
                              .arg(rateText(sceneRate()), QString::number(m_step));
    const QString keys =
        isExact()
            ? VxFileText::tr("each frame of the motion is %n ticks long.", nullptr, m_ticks)
            : VxFileText::tr("keys are placed at the nearest tick, so some are between frames.");
    return source + QLatin1Char(' ') + scene + QLatin1Char(' ') + keys;
}

QString VxBvhTiming::sentenceBeside(VxTime sceneStep) const
{
    const QString rate = rateText(double(VxTicksPerSecond) / sceneStep);
    const bool isOnFrames = m_ticks > 0 && m_ticks % sceneStep == 0;
    const QString scene =
        isOnFrames ? VxFileText::tr("The scene keeps its %1 frames per second.")
                   : VxFileText::tr(
                         "The scene keeps its %1 frames per second; some keys are between frames.");
    return sourceSentence() + QLatin1Char(' ') + scene.arg(rate);
}
