#include <vxcore/vxtimedisplay.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr int TimeDecimals = 6;
constexpr double NtscTolerance = 0.006; // frames a second, of a rate typed with two decimals
constexpr double MaxTimecodeField = 1e9;

/** The numbers that drop-frame skips in a minute. */
int droppedNumbers(int nominal)
{
    return nominal / 15;
}

QString withDecimals(double number)
{
    QString text = QString::number(number, 'f', TimeDecimals);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString twoDigits(qint64 number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

VxFrameRate VxFrameRate::ofStep(VxTime ticksPerFrame)
{
    const int ticks = std::max(ticksPerFrame, 1);
    const int divisor = std::gcd(VxTicksPerSecond, ticks);
    return {VxTicksPerSecond / divisor, ticks / divisor};
}

VxFrameRate VxFrameRate::of(double framesPerSecond)
{
    if (!(framesPerSecond > 0) || framesPerSecond > MaxRate)
        return {};
    const int whole = int(std::lround(framesPerSecond));
    if (framesPerSecond == whole)
        return {whole, 1};
    const int above = int(std::ceil(framesPerSecond));
    if (std::abs(above / 1.001 - framesPerSecond) < NtscTolerance)
        return {above * 1000, 1001};
    const int thousandths = std::max(1, int(std::lround(framesPerSecond * 1000)));
    const int divisor = std::gcd(thousandths, 1000);
    return {thousandths / divisor, 1000 / divisor};
}

bool VxFrameRate::isValid() const
{
    return frames > 0 && seconds > 0 && frames <= qint64(MaxRate) * seconds;
}

int VxFrameRate::nominal() const
{
    return std::max(1, int(std::lround(value())));
}

bool VxFrameRate::canDropFrames() const
{
    return nominal() % 30 == 0 && qint64(nominal()) * 1000 * seconds == qint64(frames) * 1001;
}

QString VxFrameRate::text() const
{
    return isValid() ? QString::number(value(), 'g', 5) : QString();
}

QString VxTimecode::text(qint64 frame, int nominal, bool dropsFrames)
{
    qint64 number = std::abs(frame);
    if (dropsFrames) {
        const qint64 dropped = droppedNumbers(nominal);
        const qint64 firstMinute = qint64(nominal) * 60;
        const qint64 otherMinute = firstMinute - dropped;
        const qint64 tenMinutes = firstMinute + 9 * otherMinute;
        const qint64 rest = number % tenMinutes;
        number += number / tenMinutes * 9 * dropped;
        if (rest >= firstMinute)
            number += ((rest - firstMinute) / otherMinute + 1) * dropped;
    }
    const qint64 seconds = number / nominal;
    return (frame < 0 ? QStringLiteral("-") : QString()) + twoDigits(seconds / 3600) +
           QLatin1Char(':') + twoDigits(seconds / 60 % 60) + QLatin1Char(':') +
           twoDigits(seconds % 60) + QLatin1Char(dropsFrames ? ';' : ':') +
           twoDigits(number % nominal);
}

qint64 VxTimecode::frameOf(double hours, double minutes, double seconds, double frames, int nominal,
                           bool dropsFrames)
{
    for (const double field : {hours, minutes, seconds, frames}) {
        if (!(field >= 0) || field > MaxTimecodeField || field != std::floor(field))
            return -1;
    }
    if (frames >= nominal)
        return -1;
    const auto allSeconds = qint64(hours * 3600 + minutes * 60 + seconds);
    const qint64 number = allSeconds * nominal + qint64(frames);
    if (!dropsFrames)
        return number;
    const qint64 allMinutes = allSeconds / 60;
    const qint64 dropped = droppedNumbers(nominal);
    if (allMinutes % 10 != 0 && allSeconds % 60 == 0 && frames < double(dropped))
        return -1;
    return number - dropped * (allMinutes - allMinutes / 10);
}

VxFrameRate VxTimeDisplay::timecodeRate(VxTime ticksPerFrame) const
{
    return rate.isValid() ? rate : VxFrameRate::ofStep(ticksPerFrame);
}

QString VxTimeDisplay::text(VxTime time, VxTime ticksPerFrame) const
{
    const VxTime step = std::max(ticksPerFrame, 1);
    const bool isOnFrame = time % step == 0;
    if (unit == Seconds)
        return withDecimals(double(time) / VxTicksPerSecond) + QLatin1Char('s');
    if (unit == Ticks)
        return QString::number(time) + QLatin1Char('t');
    if (unit == Timecode && isOnFrame) {
        const VxFrameRate present = timecodeRate(step);
        return VxTimecode::text(time / step, present.nominal(),
                                dropsFrames && present.canDropFrames());
    }
    return isOnFrame ? QString::number(time / step) : withDecimals(double(time) / step);
}

VxTypedInput VxTimeDisplay::read(const QString &text, VxTime ticksPerFrame,
                                 VxTypedInput::Signs signs) const
{
    return VxTypedInput::readTime(text, ticksPerFrame, *this, signs);
}
