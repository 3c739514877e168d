#ifndef MONKEYRANDOM_H
#define MONKEYRANDOM_H

#include <QPoint>
#include <QRect>
#include <random>

/// Random numbers from one seed; the same on every platform.
class MonkeyRandom
{
public:
    explicit MonkeyRandom(quint32 seed)
        : m_engine(seed)
    {
    }

    /// From 0 up to but without `end`, which is above 0.
    int below(int end) { return int(m_engine() % quint32(end)); }
    /// From `first` to `last`, both included.
    int between(int first, int last) { return first + below(last - first + 1); }
    /// True in `percent` of 100 calls.
    bool chance(int percent) { return below(100) < percent; }
    QPoint pointIn(const QRect &rect)
    {
        return {rect.x() + below(qMax(1, rect.width())), rect.y() + below(qMax(1, rect.height()))};
    }
    /// An element of a list that is not empty.
    template <class List> auto pick(const List &list) { return list[below(int(list.size()))]; }

private:
    std::mt19937 m_engine;
};

#endif
