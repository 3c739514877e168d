#ifndef FBXSAMPLES_H
#define FBXSAMPLES_H

#include "fbxdocument.h"

#include <cstring>

/// Documents with nodes, curves and layers that several tests vary.
namespace fbxsamples {

using fbxdocument::Document;
using fbxdocument::Format;
using fbxdocument::Record;

using Properties = QVector<Record>;

constexpr qint64 stackId = 1000;
constexpr qint64 layerId = 2000;

inline Record vec(const QByteArray &name, double x, double y, double z)
{
    return Document::property(name, {x, y, z});
}

inline Record whole(const QByteArray &name, int value)
{
    return Document::property(name, {value});
}

inline const QVector<double> linear{4};
inline const QVector<double> cubic{8 | 0x400};
inline const QVector<float> noData{0, 0, 0, 0};

/// Curves of the three components of a property, over two seconds; the last key of one is early.
inline void animate(Document *document, qint64 base, qint64 layer, qint64 target,
                    const QByteArray &property, const QVector<float> &x, const QVector<float> &y,
                    const QVector<float> &z, const QVector<double> &flags = linear,
                    const QVector<float> &data = noData)
{
    document->curveNode(base, layer, target, property);
    document->curve(base + 1, base, "d|X", {0, 0.5, 2}, x, flags, data);
    document->curve(base + 2, base, "d|Y", {0, 0.7, 1.8}, y, flags, data);
    document->curve(base + 3, base, "d|Z", {0.1, 0.5, 2}, z, flags, data);
}

inline void spin(Document *document, qint64 base, qint64 layer, qint64 target)
{
    animate(document, base, layer, target, "Lcl Rotation", {0, 70, -50}, {10, -40, 60},
            {-20, 110, 30}, cubic, {25, -60, 0, 0});
}

/// A chain of three nodes of which the middle one has the properties; all rotate.
inline Document chain(const Properties &properties)
{
    Document document;
    document.stack(stackId, "take");
    document.layer(layerId, stackId);
    document.model(1, 0, "root", {vec("Lcl Translation", 1, 2, 3)});
    Properties middle = properties;
    middle.append({vec("Lcl Translation", 4, 1, -2), vec("Lcl Rotation", 20, 30, 40)});
    document.model(2, 1, "middle", middle);
    document.model(3, 2, "end", {vec("Lcl Translation", 0, 5, 1)});
    for (const qint64 id : {1, 2, 3})
        spin(&document, 3000 + 10 * id, layerId, id);
    animate(&document, 3900, layerId, 2, "Lcl Translation", {4, 5, 6}, {1, -1, 1}, {-2, -3, 2});
    return document;
}

/// One node with one curve of X rotation.
inline Document oneCurve(const QVector<double> &seconds, const QVector<float> &values,
                         const QVector<double> &flags, const QVector<float> &data,
                         const QVector<Record> &more = {})
{
    Document document;
    document.stack(stackId, "take");
    document.layer(layerId, stackId);
    document.model(1, 0, "node", {});
    document.curveNode(3000, layerId, 1, "Lcl Rotation");
    document.curve(3001, 3000, "d|X", seconds, values, flags, data, more);
    return document;
}

inline float weights(int right, int nextLeft)
{
    const quint32 bits = quint32(right) | quint32(nextLeft) << 16;
    float number = 0;
    std::memcpy(&number, &bits, 4);
    return number;
}

/// Two layers on one node with scale, rotation and translation each; the upper one as given.
inline Document layered(const Properties &upper)
{
    Document document;
    document.stack(stackId, "take");
    document.layer(layerId, stackId);
    document.layer(layerId + 1, stackId, upper);
    document.model(1, 0, "node", {whole("RotationOrder", 4), whole("RotationActive", 1)});
    document.model(2, 1, "child", {vec("Lcl Translation", 1, 2, 3)});
    for (const qint64 i : {0, 1}) {
        const qint64 base = 3000 + 100 * i;
        if (i == 0)
            spin(&document, base, layerId, 1);
        else // about other axes, as rotations about the same ones commute
            animate(&document, base, layerId + 1, 1, "Lcl Rotation", {30, -20, 80}, {0, 45, 5},
                    {10, 15, -35});
        animate(&document, base + 10, layerId + i, 1, "Lcl Translation", {1, 3, 2}, {4, 1, 1},
                {0, -1, 2}, cubic, {1, -2, 0, 0});
        animate(&document, base + 20, layerId + i, 1, "Lcl Scaling", {1, 2, 1.5f}, {1, 1.2f, 0.8f},
                {0.5f, 1, 1});
    }
    return document;
}

inline QVector<Format> allFormats()
{
    return {{false, 7100, false}, {false, 7400, true}, {false, 7500, false},
            {false, 7700, true},  {true, 7200, false}, {true, 7700, false}};
}

inline QByteArray nameOf(const Format &format)
{
    return QByteArray(format.isText ? "text " : "binary ") + QByteArray::number(format.version) +
           (format.isDeflated ? ", deflated" : "");
}

} // namespace fbxsamples

#endif
