#ifndef GLTFSAMPLE_H
#define GLTFSAMPLE_H

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>
#include <cstring>
#include <vector>

/// Puts a glTF file together piece by piece: nodes as JSON, samplers as lists of numbers.
class GltfSample
{
public:
    GltfSample() { root.insert("asset", QJsonObject{{"version", "2.0"}, {"generator", "sample"}}); }

    QJsonObject root; ///< everything but views, accessors, buffers and animations

    /// An accessor of single precision numbers; returns its index.
    int floats(const std::vector<float> &numbers, const char *type, int components)
    {
        return add(reinterpret_cast<const char *>(numbers.data()), int(numbers.size()) * 4, 5126,
                   int(numbers.size()) / components, type);
    }
    /// An accessor of bytes as they are in memory.
    int add(const char *bytes, int size, int componentType, int count, const char *type)
    {
        views.append(QJsonObject{{"buffer", 0}, {"byteOffset", data.size()}, {"byteLength", size}});
        data.append(bytes, size);
        accessors.append(QJsonObject{{"bufferView", views.size() - 1},
                                     {"componentType", componentType},
                                     {"count", count},
                                     {"type", type}});
        return accessors.size() - 1;
    }

    void animate(int animation, int node, const char *path, const char *interpolation, int input,
                 int output)
    {
        while (animations.size() <= animation)
            animations.append(QJsonObject());
        QJsonObject object = animations.at(animation).toObject();
        QJsonArray samplers = object.value("samplers").toArray();
        QJsonArray channels = object.value("channels").toArray();
        samplers.append(
            QJsonObject{{"input", input}, {"output", output}, {"interpolation", interpolation}});
        channels.append(QJsonObject{{"sampler", samplers.size() - 1},
                                    {"target", QJsonObject{{"node", node}, {"path", path}}}});
        object.insert("samplers", samplers);
        object.insert("channels", channels);
        animations.replace(animation, object);
    }

    QJsonObject json() const
    {
        QJsonObject whole = root;
        whole.insert("bufferViews", views);
        whole.insert("accessors", accessors);
        whole.insert("animations", animations);
        whole.insert("buffers", QJsonArray{QJsonObject{
                                    {"byteLength", data.size()},
                                    {"uri", QString("data:application/octet-stream;base64,") +
                                                QString::fromLatin1(data.toBase64())}}});
        return whole;
    }
    QByteArray text() const { return QJsonDocument(json()).toJson(); }

    QJsonArray views;
    QJsonArray accessors;
    QJsonArray animations;
    QByteArray data;
};

#endif
