#ifndef ERRORSEARCH_H
#define ERRORSEARCH_H

/// Searches the least error with which a reduction leaves at most a number of keys, within 0.2 %.
///
/// The number of keys falls as the error grows, about by a power of it: the search interpolates
/// logarithms, and halves the interval where that is slow. The number may rise in a few places.
///
///     while (!search.isDone())
///         search.add(numberOfKeysAt(search.next()));
class ErrorSearch
{
public:
    explicit ErrorSearch(double keys);

    /// An estimate of the error, at which the search begins.
    void setFirst(double error);
    bool isDone() const;
    /// The error to try.
    double next() const;
    /// The number of keys with that error; true when there are few enough.
    bool add(int keys);
    /// The error found. The largest possible one (1e5) when all leave too many keys.
    double error() const;

private:
    /// Natural logarithms of an error and its number of keys.
    struct Point
    {
        double error = 0;
        double keys = 0;
        bool isKnown = false;
    };
    void choose();

    double m_target; // logarithm
    Point m_low;     // too many keys
    Point m_high;    // few enough
    double m_next;
    double m_slope;
    int m_tries = 0;
};

#endif
