#ifndef KEYDRAWING_H
#define KEYDRAWING_H

#include "keys/keytrack.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <numeric>
#include <vector>
#include <vxcore/vxkeyedit.h>

/// Keys drawn on a time line: `. a . B` is four ticks, a key of value 'a' at the second and one of
/// value 'B' at the fourth. Small letters are Linear, capitals TCB with tension 0.5.
struct KeyDrawing
{
    template <class V> static KeyTrack<V> track(const QString &drawing, VxTime first = 0)
    {
        KeyTrack<V> result;
        const QStringList ticks = drawing.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (int i = 0; i < ticks.size(); ++i) {
            const QChar mark = ticks[i][0];
            if (mark != QLatin1Char('.'))
                result.set(first + i, V(mark.unicode()), shape(mark));
        }
        return result;
    }
    static KeyTrack<float> track(const QString &drawing) { return track<float>(drawing); }

    /// Moves the keys with indexes in [first, last) that exist, as far as the range of times.
    template <class V> static void shift(KeyTrack<V> *track, int first, int last, qint64 offset)
    {
        first = std::max(first, 0);
        const int count = std::max(std::min(last, track->count()) - first, 0);
        std::vector<int> indexes(std::size_t(count), 0);
        std::iota(indexes.begin(), indexes.end(), first);
        const auto times = vxShiftedKeyTimes(track->columns().times + first, count, offset);
        track->moveKeys(indexes.data(), times.data(), count);
    }

    static VxKeyShape shape(QChar mark)
    {
        VxKeyShape shape;
        if (mark.isUpper()) {
            shape.type = VxKeyInterp::Tcb;
            shape.tcb.tension = 0.5F;
        }
        return shape;
    }

    /// The drawing of ticks 0 to length - 1. Keys elsewhere, and keys whose shape is not that of
    /// their letter, show as words.
    template <class V> static QString text(const KeyTrack<V> &track, int length)
    {
        QStringList ticks;
        for (int i = 0; i < length; ++i)
            ticks << QStringLiteral(".");
        for (int i = 0; i < track.count(); ++i) {
            const QChar mark = QChar(ushort(track.value(i)));
            const bool inside = track.time(i) >= 0 && track.time(i) < length;
            if (inside && (KeyTraits<V>::Steps || track.shape(i) == shape(mark)))
                ticks[track.time(i)] = mark;
            else
                ticks << QStringLiteral("%1@%2/%3").arg(mark).arg(track.time(i)).arg(track.type(i));
        }
        return ticks.join(QLatin1Char(' '));
    }
    /// Number of ticks a drawing shows.
    static int length(const QString &drawing)
    {
        return drawing.split(QLatin1Char(' '), Qt::SkipEmptyParts).size();
    }
};

#endif
