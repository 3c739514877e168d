#ifndef FBXMUTATIONS_H
#define FBXMUTATIONS_H

#include "fbxdocument.h"
#include "io/fbx/vxfbxreader.h"

#include <ctime>
#include <random>

/// FBX files damaged in ways that a seed decides.
namespace fbxmutations {

using Random = std::mt19937;

inline int below(Random &random, int limit)
{
    return int(random() % unsigned(std::max(1, limit)));
}

/// Two nodes, rotation and translation, two layers, a weighted curve, a morph.
inline fbxdocument::Document seedDocument()
{
    fbxdocument::Document document;
    document.stack(1000, "take");
    document.layer(2000, 1000);
    document.layer(2001, 1000, {fbxdocument::Document::property("Weight", {70.0})});
    document.model(1, 0, "hip",
                   {fbxdocument::Document::property("RotationActive", {1}),
                    fbxdocument::Document::property("PreRotation", {10.0, 20.0, 30.0})},
                   "LimbNode");
    document.model(2, 1, "leg",
                   {fbxdocument::Document::property("RotationPivot", {1.0, 0.0, 2.0}),
                    fbxdocument::Document::property("Lcl Scaling", {1.0, 2.0, 3.0}),
                    fbxdocument::Document::property("InheritType", {0})},
                   "LimbNode");
    document.model(3, 2, "foot", {fbxdocument::Document::property("InheritType", {2})}, "LimbNode");
    QVector<double> times;
    QVector<float> values;
    for (int i = 0; i < 60; ++i) {
        times.append(i / 24.0);
        values.append(float(i * 37 % 90));
    }
    int id = 3000;
    for (const int layer : {2000, 2001}) {
        for (const int model : {1, 2, 3}) {
            for (const char *property : {"Lcl Rotation", "Lcl Translation", "Lcl Scaling"}) {
                document.curveNode(id, layer, model, property);
                document.curve(id + 1, id, "d|X", times, values, {8 | 0x400 | 0x03000000},
                               {3, -5, 2e-20f, 0});
                document.curve(id + 2, id, "d|Y", times, values, {8 | 0x6100}, {0, 0, 0, 0});
                document.curve(id + 3, id, "d|Z", times, values, {8 | 0x200}, {0.5f, 0, 0, 0});
                id += 10;
            }
        }
    }
    return document;
}

inline void flipBits(QByteArray *bytes, Random &random)
{
    for (int i = 1 + below(random, 4); i > 0; --i) {
        const int at = below(random, bytes->size());
        (*bytes)[at] = char(bytes->at(at) ^ (1 << below(random, 8)));
    }
}

/// A number of a binary file becomes an extreme one.
inline void putExtreme(QByteArray *bytes, Random &random)
{
    static const quint64 extremes[] = {0,
                                       0xFFFFFFFFu,
                                       0x7FFFFFFFu,
                                       0x80000000u,
                                       1000000000,
                                       0xFFFFFFFFFFFFFFFFull,
                                       1,
                                       0x7FF0000000000000ull,
                                       0x7FEFFFFFFFFFFFFFull,
                                       0x7F8000007FC00000ull,
                                       0x7FFFFFFFFFFFFFFFull};
    const quint64 value = extremes[below(random, 11)];
    const int size = below(random, 2) ? 8 : 4;
    const int at = below(random, std::max(1, bytes->size() - size));
    std::memcpy(bytes->data() + at, &value, std::size_t(std::min(size, bytes->size() - at)));
}

/// A number of a text becomes an extreme one.
inline void replaceNumber(QByteArray *bytes, Random &random)
{
    static const char *const extremes[] = {
        "-1",     "4000000000",          "1e308", "-1e-320", "nan",
        "1.#INF", "9223372036854775807", "1e999", "0",       "-9223372036854775808"};
    int at = below(random, bytes->size());
    while (at < bytes->size() && !isdigit(bytes->at(at)))
        ++at;
    int end = at;
    while (end < bytes->size() && (isdigit(bytes->at(end)) || bytes->at(end) == '.'))
        ++end;
    bytes->replace(at, end - at, extremes[below(random, 10)]);
}

inline void moveSpan(QByteArray *bytes, Random &random)
{
    const QByteArray span = bytes->mid(below(random, bytes->size()), 1 + below(random, 300));
    bytes->insert(below(random, bytes->size()), span);
}

inline void removeSpan(QByteArray *bytes, Random &random)
{
    bytes->remove(below(random, bytes->size()), 1 + below(random, 60));
}

/// A document whose structure is right and whose content is not: connections to anything, curves
/// of any numbers.
inline QByteArray distorted(Random &random, const fbxdocument::Format &format)
{
    fbxdocument::Document document = seedDocument();
    const qint64 ids[] = {0, 1, 2, 3, 1000, 2000, 2001, 3000, 3001, 3010, 3042, 99999};
    const auto anyId = [&] { return ids[below(random, 12)]; };
    for (int i = below(random, 30); i > 0; --i)
        document.connect(anyId(), anyId());
    static const char *const properties[] = {"Lcl Rotation", "Lcl Scaling", "d|X", "Weight"};
    for (int i = below(random, 30); i > 0; --i)
        document.connect(anyId(), anyId(), properties[below(random, 4)]);
    for (int i = below(random, 6); i > 0; --i) {
        fbxdocument::Record &record = document.objects()[below(random, document.objects().size())];
        if (record.name != "AnimationCurve")
            continue;
        fbxdocument::Value &value = record.children[1 + below(random, 5)].values[0];
        for (double &number : value.numbers)
            if (below(random, 10) == 0)
                number = (below(random, 2) ? -1 : 1) * std::ldexp(1.0, below(random, 63));
        for (float &number : value.floats)
            if (below(random, 10) == 0)
                number = std::ldexp(1.0f, below(random, 300) - 150);
    }
    return document.write(format);
}

/// The file of a seed: `sources` are good files, damaged one to four times.
inline QByteArray fileOf(unsigned seed, const QVector<QByteArray> &sources)
{
    Random random(seed);
    if (seed % 5 == 0)
        return distorted(
            random, {below(random, 2) == 0, 7400 + 100 * below(random, 4), below(random, 2) == 0});
    QByteArray bytes = sources[below(random, sources.size())];
    for (int i = 1 + below(random, 4); i > 0 && !bytes.isEmpty(); --i) {
        const bool isText = !bytes.startsWith("Kaydara");
        switch (below(random, 6)) {
        case 0:
            flipBits(&bytes, random);
            break;
        case 1:
            bytes.truncate(below(random, bytes.size()));
            break;
        case 2:
            removeSpan(&bytes, random);
            break;
        case 3:
            moveSpan(&bytes, random);
            break;
        default:
            isText ? replaceNumber(&bytes, random) : putExtreme(&bytes, random);
            break;
        }
    }
    return bytes;
}

/// What reading a damaged file must keep, or what is wrong with it.
inline QByteArray verdict(const QByteArray &bytes, double *milliseconds, bool *isAccepted)
{
    VxImportedMotion motion;
    motion.nodes.resize(1);
    VxFileError error;
    // The processor's time: a busy machine must not count.
    const std::clock_t start = std::clock();
    *isAccepted = vxReadFbx(bytes, {}, &motion, &error);
    *milliseconds = double(std::clock() - start) * 1000.0 / CLOCKS_PER_SEC;
    QString message;
    if (*isAccepted && !motion.isValid(&message))
        return "accepted, but: " + message.toUtf8();
    if (!*isAccepted && (error.message.isEmpty() || (error.line < 1 && error.offset < 0)))
        return "refused without a reason or a place";
    if (!*isAccepted && (motion.nodes.size() != 1 || !motion.clips.empty()))
        return "refused, but the motion was touched";
    if (*milliseconds > 5000)
        return "took more than 5 s";
    return {};
}

} // namespace fbxmutations

#endif
