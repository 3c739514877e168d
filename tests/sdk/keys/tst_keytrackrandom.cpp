#include "keys/keytrack.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <map>
#include <random>

namespace {

// The track's spacing is correct: every key is at the time that it implies. Not
// knowing a spacing is always right.
template <class V> bool hasRightSpacing(const KeyTrack<V> &track)
{
    if (track.spacing() == 0)
        return true;
    for (int i = 0; i < track.count(); ++i) {
        if (track.time(i) != track.spacedFrom() + qint64(i) * track.spacing())
            return false;
    }
    return track.count() > 1;
}

// The same operations the plain way: an ordered map, one key after the other.
template <class V> class NaiveTrack
{
public:
    struct Key
    {
        V value;
        VxKeyShape shape;
    };
    std::map<VxTime, Key> keys;

    static VxKeyShape legal(const VxKeyShape &shape)
    {
        return KeyTraits<V>::Steps ? VxKeyShape{VxKeyInterp::Constant, {}} : shape;
    }
    void set(VxTime time, V value, const VxKeyShape &shape) { keys[time] = {value, legal(shape)}; }
    VxTime timeAt(int i) const { return std::next(keys.begin(), i)->first; }
    void removeRange(VxTime start, VxTime end)
    {
        for (auto it = keys.begin(); it != keys.end();)
            it = it->first >= start && it->first <= end ? keys.erase(it) : std::next(it);
    }
    void move(const std::vector<int> &indexes, const std::vector<VxTime> &times)
    {
        std::vector<Key> lifted;
        std::vector<VxTime> from;
        for (int i : indexes)
            from.push_back(timeAt(i));
        for (VxTime time : from) {
            lifted.push_back(keys[time]);
            keys.erase(time);
        }
        for (size_t k = 0; k < times.size(); ++k)
            keys[times[k]] = lifted[k];
    }
    bool matches(const KeyTrack<V> &track) const
    {
        if (!hasRightSpacing(track))
            return false;
        if (int(keys.size()) != track.count())
            return false;
        int i = 0;
        bool shaped = false;
        for (const auto &[time, key] : keys) {
            if (track.time(i) != time || track.value(i) != key.value || track.shape(i) != key.shape)
                return false;
            shaped |= key.shape.tcb != VxTcb();
            ++i;
        }
        return shaped == (track.columns().tcb != nullptr);
    }
};

template <class V> class RandomEdits
{
public:
    explicit RandomEdits(unsigned seed)
        : m_random(seed)
    {
    }

    // False at the first edit after which track and model differ.
    bool step(QByteArray &what)
    {
        const int kind = number(0, 11);
        switch (kind) {
        case 0:
        case 1:
            what = "set";
            set();
            break;
        case 2:
            what = "insertMany";
            insertMany();
            break;
        case 3:
            what = "removeRange";
            removeRange();
            break;
        case 4:
            what = "removeIndexRange";
            removeIndexRange();
            break;
        case 5:
            what = "removeIndexes";
            removeIndexes();
            break;
        case 6:
            what = "moveKeys by one offset";
            move(true);
            break;
        case 7:
            what = "moveKeys anywhere";
            move(false);
            break;
        case 8:
            what = "moveKeys of a range";
            shift();
            break;
        case 9:
            what = "setShape";
            setShape();
            break;
        case 10:
            what = "setType and setValues";
            setTypeAndValues();
            break;
        default:
            what = "swapRange";
            swapRange();
            break;
        }
        return m_model.matches(m_track);
    }

private:
    int number(int from, int to) { return std::uniform_int_distribution<>(from, to)(m_random); }
    VxTime anyTime()
    {
        const int kind = number(0, 60);
        return kind == 0 ? VxTimeMin + number(0, 3)
                         : (kind == 1 ? VxTimeMax - number(0, 3) : number(-30, 30));
    }
    VxKeyShape anyShape()
    {
        VxKeyShape shape;
        shape.type = quint8(number(0, 2));
        if (number(0, 3) == 0)
            shape.tcb = {float(number(-2, 2)), float(number(-2, 2)), 0};
        return shape;
    }
    std::vector<int> anySelection()
    {
        std::vector<int> selection;
        const int odds = number(1, 4);
        for (int i = 0; i < m_track.count(); ++i) {
            if (number(0, odds) == 0)
                selection.push_back(i);
        }
        return selection;
    }
    std::pair<int, int> anyIndexRange()
    {
        const int a = number(0, m_track.count());
        const int b = number(0, m_track.count());
        return {std::min(a, b), std::max(a, b)};
    }
    KeyTrack<V> anyKeys(VxTime start, VxTime end)
    {
        KeyTrack<V> keys;
        for (int i = number(0, 12); i > 0; --i) {
            const VxTime time = number(start, end);
            keys.set(time, V(number(0, 99)), anyShape());
        }
        return keys;
    }
    void enter(const KeyTrack<V> &keys)
    {
        for (int i = 0; i < keys.count(); ++i)
            m_model.set(keys.time(i), keys.value(i), keys.shape(i));
    }

    void set()
    {
        const VxTime time = anyTime();
        const V value = V(number(0, 99));
        const VxKeyShape shape = anyShape();
        m_track.set(time, value, shape);
        m_model.set(time, value, shape);
    }
    void insertMany()
    {
        const VxTime start = number(-30, 30);
        const auto keys = anyKeys(start, start + number(0, 20));
        m_track.insertMany(keys.columns());
        enter(keys);
    }
    void removeRange()
    {
        const VxTime start = anyTime();
        const qint64 near = qint64(start) + number(-1, 8);
        const VxTime end =
            number(0, 9) == 0 ? anyTime() : VxTime(std::clamp<qint64>(near, VxTimeMin, VxTimeMax));
        m_track.removeRange({start, end});
        m_model.removeRange(start, end);
    }
    void removeIndexRange()
    {
        const auto [first, last] = anyIndexRange();
        if (last - first > 6)
            return;
        if (first < last)
            m_model.removeRange(m_model.timeAt(first), m_model.timeAt(last - 1));
        m_track.removeIndexRange(first, last);
    }
    void removeIndexes()
    {
        const auto selection = anySelection();
        std::vector<VxTime> times;
        for (int i : selection)
            times.push_back(m_model.timeAt(i));
        for (VxTime time : times)
            m_model.keys.erase(time);
        m_track.removeIndexes(selection.data(), int(selection.size()));
    }
    void move(bool oneOffset)
    {
        const auto selection = anySelection();
        if (selection.empty())
            return;
        const qint64 offset = limitedOffset(m_track.time(selection.front()),
                                            m_track.time(selection.back()), number(-20, 20));
        std::vector<VxTime> times;
        for (int i : selection)
            times.push_back(oneOffset ? VxTime(m_track.time(i) + offset) : anyTime());
        m_track.moveKeys(selection.data(), times.data(), int(selection.size()));
        m_model.move(selection, times);
    }
    void shift()
    {
        const auto [first, last] = anyIndexRange();
        if (first == last)
            return;
        const qint64 offset =
            limitedOffset(m_track.time(first), m_track.time(last - 1), number(-20, 20));
        std::vector<int> selection;
        std::vector<VxTime> times;
        for (int i = first; i < last; ++i) {
            selection.push_back(i);
            times.push_back(VxTime(m_track.time(i) + offset));
        }
        m_track.moveKeys(selection.data(), times.data(), int(selection.size()));
        m_model.move(selection, times);
    }
    void setShape()
    {
        const VxKeyShape shape = anyShape();
        const auto [first, last] = anyIndexRange();
        m_track.setShape(first, last, shape);
        for (int i = first; i < last; ++i)
            m_model.keys[m_model.timeAt(i)].shape = m_model.legal(shape);
        const VxKeyShape other = anyShape();
        const auto selection = anySelection();
        m_track.setShape(selection.data(), int(selection.size()), other);
        for (int i : selection)
            m_model.keys[m_model.timeAt(i)].shape = m_model.legal(other);
    }
    void setTypeAndValues()
    {
        VxKeyShape shape = anyShape();
        const auto [first, last] = anyIndexRange();
        m_track.setType(first, last, shape.type);
        std::vector<V> values(last - first, V(number(0, 99)));
        m_track.setValues(first, values.data(), last - first);
        for (int i = first; i < last; ++i) {
            auto &key = m_model.keys[m_model.timeAt(i)];
            key.shape.type = m_model.legal(shape).type;
            key.value = values[0];
        }
        shape = anyShape();
        const auto selection = anySelection();
        m_track.setType(selection.data(), int(selection.size()), shape.type);
        for (int i : selection)
            m_model.keys[m_model.timeAt(i)].shape.type = m_model.legal(shape).type;
    }
    void swapRange()
    {
        const VxTime start = number(-30, 30);
        const VxTime end = start + number(0, 10);
        const auto keys = anyKeys(start, end);
        auto others = keys;
        m_track.swapRange({start, end}, others);
        m_model.removeRange(start, end);
        enter(keys);
    }

    std::mt19937 m_random;
    KeyTrack<V> m_track;
    NaiveTrack<V> m_model;
};

template <class V> void runRandomEdits(unsigned seed)
{
    const VxWarningGuard guard;
    RandomEdits<V> edits(seed);
    QByteArray what;
    for (int i = 0; i < 20000; ++i) {
        if (!edits.step(what))
            QFAIL(qPrintable(QStringLiteral("seed %1, step %2: %3 differs")
                                 .arg(seed)
                                 .arg(i)
                                 .arg(QString::fromLatin1(what))));
    }
}

} // namespace

class tst_KeyTrackRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void floatKeys() { runRandomEdits<float>(1984); }
    void integerKeys() { runRandomEdits<qint32>(4800); }
};

VX_TEST_GUILESS_MAIN(tst_KeyTrackRandom)
#include "tst_keytrackrandom.moc"
