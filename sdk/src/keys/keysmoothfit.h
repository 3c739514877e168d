#ifndef KEYSMOOTHFIT_H
#define KEYSMOOTHFIT_H

#include "keys/keysamples.h"

/// Fits dense samples with few smooth segments: each is the least squares cubic between two
/// samples, with separate tangents at both ends.
class KeySmoothFit
{
public:
    /// The samples are borrowed; error is 0 or above.
    KeySmoothFit(const KeySamples &samples, double error);

    /// True when one segment from sample i to sample j is within the error.
    bool reaches(int i, int j) const;
    /// A chain with keys at the given samples (ascending, first and last included).
    TcbChain chain(const std::vector<int> &kept) const;

private:
    std::size_t channels() const { return std::size_t(m_samples.channels()); }
    TcbChain::Knot knot(int i) const;
    void solve(int i, int j, TcbChain::Knot *left, TcbChain::Knot *right) const;
    bool isWithin(int i, int j, const TcbChain::Knot &left, const TcbChain::Knot &right) const;

    const KeySamples &m_samples;
    double m_error;
};

#endif
