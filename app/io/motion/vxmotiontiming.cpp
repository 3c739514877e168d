#include "io/motion/vxmotiontiming.h"

#include <algorithm>
#include <cmath>

namespace {

// Times in files are often single precision; a hundredth of a frame exceeds its rounding by far for
// takes of hours at the usual rates.
constexpr double FrameTolerance = 0.01;
constexpr std::size_t KeysLookedAt = 4096;

bool areOnFrames(const std::vector<double> &times, double rate)
{
    const std::size_t count = std::min(times.size(), KeysLookedAt);
    return std::all_of(times.begin(), times.begin() + std::ptrdiff_t(count), [rate](double time) {
        const double frame = time * rate;
        return std::abs(frame - std::round(frame)) <= FrameTolerance;
    });
}

bool areOnFrames(const VxImportedMotion &motion, double rate)
{
    for (const VxMotionClip &clip : motion.clips) {
        for (const VxMotionChannel &channel : clip.channels) {
            if (!areOnFrames(channel.times(), rate))
                return false;
        }
    }
    return true;
}

bool hasKeys(const VxImportedMotion &motion)
{
    for (const VxMotionClip &clip : motion.clips) {
        for (const VxMotionChannel &channel : clip.channels) {
            if (!channel.times().empty())
                return true;
        }
    }
    return false;
}

} // namespace

VxTime VxMotionTiming::ticks(double seconds)
{
    return VxTime(std::llround(seconds * VxTicksPerSecond));
}

double VxMotionTiming::maxSeconds()
{
    return 400000.0; // of the 447,392 that ticks can count
}

double VxMotionTiming::rateOfKeys(const VxImportedMotion &motion)
{
    if (!hasKeys(motion))
        return 0.0;
    for (const double rate : {30.0, 24.0, 25.0, 60.0, 50.0, 48.0, 120.0, 100.0, 30000.0 / 1001.0,
                              24000.0 / 1001.0, 60000.0 / 1001.0}) {
        if (areOnFrames(motion, rate))
            return rate;
    }
    return 0.0;
}

VxTime VxMotionTiming::stepOf(double rate)
{
    const double ticks = VxTicksPerSecond / rate;
    const bool isWhole = std::abs(rate - std::round(rate)) < 1e-6;
    const double step = isWhole ? std::floor(VxTicksPerSecond / std::round(rate) + 1e-9) : ticks;
    return VxTime(std::lround(std::clamp(step, 1.0, double(VxTicksPerSecond))));
}

std::pair<double, double> VxMotionTiming::span(const VxMotionClip &clip)
{
    if (clip.start != 0.0 || clip.end != 0.0)
        return {clip.start, clip.end};
    double first = 0.0;
    double last = 0.0;
    bool isFirst = true;
    for (const VxMotionChannel &channel : clip.channels) {
        const std::vector<double> &times = channel.times();
        if (times.empty())
            continue;
        first = isFirst ? times.front() : std::min(first, times.front());
        last = isFirst ? times.back() : std::max(last, times.back());
        isFirst = false;
    }
    return {first, last};
}

std::vector<VxMotionTiming::Slot>
VxMotionTiming::slots(const std::vector<const VxMotionClip *> &clips, VxTime step, bool startAtZero)
{
    std::vector<Slot> slots;
    qint64 next = 0;
    for (const VxMotionClip *clip : clips) {
        const auto [first, last] = span(*clip);
        const bool keeps = clips.size() == 1 && !startAtZero;
        Slot slot;
        slot.offset = keeps ? 0.0 : double(next) / VxTicksPerSecond - first;
        slot.range = {ticks(first + slot.offset), ticks(last + slot.offset)};
        slots.push_back(slot);
        next = (qint64(slot.range.getEnd()) / step + 1) * step;
        if (next > qint64(maxSeconds() * VxTicksPerSecond))
            break;
    }
    return slots;
}
