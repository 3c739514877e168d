#ifndef VXFILEMUTATIONS_H
#define VXFILEMUTATIONS_H

#include <QByteArray>
#include <QtEndian>
#include <cstddef>
#include <random>

/// Damage to files of any format that a seed decides, for tests of readers and for long runs.
namespace VxFileMutations {

using Random = std::mt19937;

inline int below(Random &random, int limit)
{
    return int(random() % unsigned(qMax(1, limit)));
}

/// Replaces a number of the text by another one, or by what is none.
inline void plantNumber(QByteArray *bytes, Random &random)
{
    static const char *const numbers[] = {
        "-1",   "0", "1e999", "99999999999", "4294967295", "1e9",  "nan", "[]",   "{}",    "\"a\"",
        "-2.5", "3", "null",  "2147483647",  "1e-300",     "true", "",    "1e38", "-1e39", "1,5"};
    for (int at = below(random, bytes->size()); at < bytes->size(); ++at) {
        if (bytes->at(at) < '0' || bytes->at(at) > '9')
            continue;
        int end = at;
        while (end < bytes->size() && bytes->at(end) >= '0' && bytes->at(end) <= '9')
            ++end;
        bytes->replace(at, end - at, numbers[below(random, 20)]);
        return;
    }
}

/// Overwrites four bytes by a count, a size or a number that is likely to cause errors.
inline void plantWord(QByteArray *bytes, Random &random)
{
    static const quint32 words[] = {0,          1,          0xffffffff, 0x7fffffff,
                                    0x80000000, 0x7fc00000, 0x7f800000};
    if (bytes->size() < 4)
        return;
    const int at = below(random, bytes->size() - 3);
    qToLittleEndian(words[below(random, 7)], bytes->data() + at);
}

/// One change: a bit, a part that is left out or inserted twice, an early end, a number.
inline void mutate(QByteArray *bytes, Random &random)
{
    if (bytes->isEmpty())
        return;
    const int at = below(random, bytes->size());
    switch (below(random, 8)) {
    case 0:
        (*bytes)[at] = char(bytes->at(at) ^ (1 << below(random, 8)));
        break;
    case 1:
        bytes->remove(at, 1 + below(random, 60));
        break;
    case 2:
        bytes->insert(at, bytes->mid(below(random, bytes->size()), 1 + below(random, 200)));
        break;
    case 3:
        bytes->truncate(at);
        break;
    case 4:
        plantWord(bytes, random);
        break;
    default:
        plantNumber(bytes, random);
    }
}

/// A copy with one to four changes.
inline QByteArray mutant(const QByteArray &whole, unsigned seed)
{
    Random random(seed);
    QByteArray bytes = whole;
    for (int i = 1 + below(random, 4); i > 0; --i)
        mutate(&bytes, random);
    return bytes;
}

} // namespace VxFileMutations

#endif
