#include "io/fbx/vxfbxcurves.h"

#include "io/fbx/vxfbxcurvemath.h"
#include "io/vxfiletext.h"

#include <algorithm>
#include <cmath>

namespace {

// From this version on text files write the floats of key shapes as integer bit patterns.
constexpr qint64 firstVersionWithBits = 7200;
// Later keys exceed the scene's time, which counts 4800 ticks a second in 32 bits.
constexpr double maxSeconds = 440000.0;

} // namespace

VxFbxCurves::VxFbxCurves(const VxFbxRecords &records, qint64 version, double ticksPerSecond)
    : m_records(records)
    , m_arrays(records)
    , m_areBits(records.isText() && version >= firstVersionWithBits)
    , m_ticksPerSecond(ticksPerSecond)
{
}

bool VxFbxCurves::fail(VxFbxRecords::Index record, const QString &message)
{
    return m_records.failAt(&m_error, record, message);
}

bool VxFbxCurves::read(VxFbxRecords::Index record, VxFbxCurve *out)
{
    if (!readKeys(record))
        return false;
    tidyKeys();
    out->isExtrapolated =
        isExtrapolated(record, "Pre-Extrapolation") || isExtrapolated(record, "Post-Extrapolation");
    out->keys = {};
    build(&out->keys);
    return true;
}

bool VxFbxCurves::readKeys(VxFbxRecords::Index record)
{
    std::vector<qint64> times;
    std::vector<float> values;
    std::vector<qint64> flags;
    std::vector<float> data;
    std::vector<qint64> counts;
    const auto at = [&](const char *name) { return m_records.child(record, name); };
    if (!m_arrays.integers(at("KeyTime"), &times) ||
        !m_arrays.floats(at("KeyValueFloat"), &values) ||
        !m_arrays.integers(at("KeyAttrFlags"), &flags) ||
        !m_arrays.floats(at("KeyAttrDataFloat"), &data, m_areBits) ||
        !m_arrays.integers(at("KeyAttrRefCount"), &counts)) {
        m_error = m_arrays.error();
        return false;
    }
    if (times.size() != values.size())
        return fail(record, VxFileText::tr("A curve has %1 key times and %2 key values.")
                                .arg(times.size())
                                .arg(values.size()));
    if (!checkTimes(record, times))
        return false;
    m_keys.resize(times.size());
    for (std::size_t i = 0; i < times.size(); ++i)
        m_keys[i] = {times[i], values[i], 0};
    m_shapes.assign(1, {VxFbxKeyFlag::Linear, {}});
    return spreadShapes(record, flags, data, counts);
}

bool VxFbxCurves::checkTimes(VxFbxRecords::Index record, const std::vector<qint64> &times)
{
    const double most = maxSeconds * m_ticksPerSecond;
    const bool areNear = std::all_of(times.begin(), times.end(), [most](qint64 time) {
        return std::abs(static_cast<double>(time)) <= most;
    });
    return areNear ||
           fail(record, VxFileText::tr("A curve has a key more than %1 seconds away from time 0.")
                            .arg(maxSeconds, 0, 'f', 0));
}

// Shapes are stored once for a run of keys.
bool VxFbxCurves::spreadShapes(VxFbxRecords::Index record, const std::vector<qint64> &flags,
                               const std::vector<float> &data, const std::vector<qint64> &counts)
{
    if (flags.empty() && data.empty() && counts.empty())
        return true;
    if (counts.size() != flags.size() || data.size() != 4 * flags.size())
        return fail(record,
                    VxFileText::tr("A curve has %1 key flags, %2 shape values and %3 run lengths, "
                                   "which do not fit each other.")
                        .arg(flags.size())
                        .arg(data.size())
                        .arg(counts.size()));
    m_shapes.resize(flags.size());
    std::size_t key = 0;
    for (std::size_t run = 0; run < counts.size(); ++run) {
        if (counts[run] < 1 || static_cast<quint64>(counts[run]) > m_keys.size() - key)
            return failRuns(record);
        m_shapes[run].flags = static_cast<quint32>(flags[run]);
        std::copy_n(data.begin() + static_cast<std::ptrdiff_t>(4 * run), 4,
                    m_shapes[run].data.begin());
        for (const std::size_t end = key + static_cast<std::size_t>(counts[run]); key < end; ++key)
            m_keys[key].shape = static_cast<quint32>(run);
    }
    return key == m_keys.size() || failRuns(record);
}

bool VxFbxCurves::failRuns(VxFbxRecords::Index record)
{
    return fail(record, VxFileText::tr(
                            "The run lengths of a curve's key shapes do not add up to its %1 keys.")
                            .arg(m_keys.size()));
}

void VxFbxCurves::tidyKeys()
{
    const auto isUnusable = [](const Key &key) { return !std::isfinite(key.value); };
    const auto usable = std::remove_if(m_keys.begin(), m_keys.end(), isUnusable);
    m_droppedKeys += static_cast<int>(m_keys.end() - usable);
    m_keys.erase(usable, m_keys.end());

    const auto isEarlier = [](const Key &a, const Key &b) { return a.time < b.time; };
    if (!std::is_sorted(m_keys.begin(), m_keys.end(), isEarlier)) {
        ++m_sortedCurves;
        std::stable_sort(m_keys.begin(), m_keys.end(), isEarlier);
    }
    // Backwards, so that the last key of a time is kept.
    const auto isSameTime = [this](const Key &a, const Key &b) { return seconds(a) == seconds(b); };
    const auto kept = std::unique(m_keys.rbegin(), m_keys.rend(), isSameTime).base();
    m_mergedKeys += static_cast<int>(kept - m_keys.begin());
    m_keys.erase(m_keys.begin(), kept);
}

// Continued by its slope (K), repeated (R), mirrored (M) or repeated with an offset (A).
bool VxFbxCurves::isExtrapolated(VxFbxRecords::Index record, std::string_view side) const
{
    const auto type = m_records.child(m_records.child(record, side), "Type");
    const VxFbxValue *value = m_records.value(type, 0);
    const std::string_view word = m_records.characters(value);
    qint64 letter = word.empty() ? 'C' : static_cast<unsigned char>(word.front());
    if (word.empty() && value)
        m_records.integer(value, &letter);
    return letter == 'K' || letter == 'R' || letter == 'M' || letter == 'A';
}

double VxFbxCurves::seconds(const Key &key) const
{
    return static_cast<double>(key.time) / m_ticksPerSecond;
}

VxFbxTangentKey VxFbxCurves::tangentKey(std::size_t index) const
{
    const Key &key = m_keys[index];
    const Shape &shape = m_shapes[key.shape];
    return {seconds(key), static_cast<double>(key.value), shape.flags, shape.data};
}

VxMotionShape VxFbxCurves::shapeOf(std::size_t index) const
{
    const VxFbxTangentKey key = tangentKey(index);
    const bool hasAfter = index + 1 < m_keys.size();
    const VxFbxTangentKey before = index > 0 ? tangentKey(index - 1) : VxFbxTangentKey{};
    const VxFbxTangentKey after = hasAfter ? tangentKey(index + 1) : VxFbxTangentKey{};
    VxMotionShape shape;
    if (key.flags & VxFbxKeyFlag::Constant)
        shape.segment = VxMotionSegment::Step;
    else if (key.isCubic())
        shape.segment = VxMotionSegment::Cubic;
    if (!key.isCubic() && !(index > 0 && before.isCubic()))
        return shape;
    const VxFbxSlopes slopes =
        vxFbxSlopes(index > 0 ? &before : nullptr, key, hasAfter ? &after : nullptr);
    shape.inSlope = slopes.left;
    shape.outSlope = slopes.right;
    shape.inWeight = index > 0 ? before.nextLeftWeight() : shape.inWeight;
    shape.outWeight = key.rightWeight();
    return shape;
}

void VxFbxCurves::build(VxMotionCurve *out) const
{
    const auto isStepToNext = [this](std::size_t i) {
        constexpr quint32 both = VxFbxKeyFlag::Constant | VxFbxKeyFlag::NextValue;
        return (m_shapes[m_keys[i].shape].flags & both) == both && i + 1 < m_keys.size() &&
               seconds(m_keys[i + 1]) - seconds(m_keys[i]) > 1.5 * VxFbxSceneTick;
    };
    const auto isPlain = [](const Shape &shape) {
        return !(shape.flags & VxFbxKeyFlag::Constant) &&
               ((shape.flags & VxFbxKeyFlag::Linear) || !(shape.flags & VxFbxKeyFlag::Cubic));
    };
    const bool hasShapes = !std::all_of(m_shapes.begin(), m_shapes.end(), isPlain);
    std::size_t count = m_keys.size();
    for (std::size_t i = 0; hasShapes && i < m_keys.size(); ++i)
        count += isStepToNext(i);
    out->times.reserve(count);
    out->values.reserve(count);
    out->shapes.reserve(hasShapes ? count : 0);
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        out->times.push_back(seconds(m_keys[i]));
        out->values.push_back(static_cast<double>(m_keys[i].value));
        if (!hasShapes)
            continue;
        out->shapes.push_back(shapeOf(i));
        if (!isStepToNext(i))
            continue;
        out->times.push_back(out->times.back() + VxFbxSceneTick);
        out->values.push_back(static_cast<double>(m_keys[i + 1].value));
        out->shapes.push_back(out->shapes.back());
    }
}

QStringList VxFbxCurves::notes() const
{
    QStringList notes;
    if (m_sortedCurves > 0)
        notes.append(VxFileText::tr("Curves whose keys were out of order and have been sorted: %1.")
                         .arg(m_sortedCurves));
    if (m_mergedKeys > 0)
        notes.append(VxFileText::tr("Keys left out because a later one has the same time: %1.")
                         .arg(m_mergedKeys));
    if (m_droppedKeys > 0)
        notes.append(VxFileText::tr("Keys left out because their value is not a number: %1.")
                         .arg(m_droppedKeys));
    return notes;
}
