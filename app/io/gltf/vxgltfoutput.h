#ifndef VXGLTFOUTPUT_H
#define VXGLTFOUTPUT_H

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <vector>

/// The binary data of a glTF file being written, with its views and accessors.
class VxGltfOutput
{
public:
    /// Appends single precision numbers as an accessor and returns its index. type: "SCALAR",
    /// "VEC3", "VEC4" or "MAT4"; hasBounds: whether smallest and largest elements are stated.
    int addFloats(const std::vector<float> &numbers, const char *type, bool hasBounds);
    /// An accessor of zeros, without a buffer view.
    int addZeros(int count, const char *type);

    /// The whole file: one text with the data in it, or the binary form.
    QByteArray text(QJsonObject root) const;
    QByteArray binary(QJsonObject root) const;

private:
    void describe(QJsonObject *root) const;

    QByteArray m_bytes;
    QJsonArray m_views;
    QJsonArray m_accessors;
};

#endif
