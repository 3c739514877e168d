#ifndef FBXWORLD_H
#define FBXWORLD_H

#include "fbxfile.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <cmath>

/// Evaluates an FBX scene from the definitions of the format: curves, layers, the chain of a node's
/// transforms, the inheritance of scale. Slow and plain; shares nothing with the product.
namespace fbxworld {

using Vec = std::array<double, 3>;
using Mat = std::array<std::array<double, 4>, 4>;
constexpr double radians = 3.14159265358979323846 / 180.0;

inline Mat identity()
{
    return {{{{1, 0, 0, 0}}, {{0, 1, 0, 0}}, {{0, 0, 1, 0}}, {{0, 0, 0, 1}}}};
}

inline Mat operator*(const Mat &a, const Mat &b)
{
    Mat c{};
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            for (std::size_t k = 0; k < 4; ++k)
                c[i][j] += a[i][k] * b[k][j];
    return c;
}

inline Mat moved(const Vec &v, double sign = 1)
{
    Mat m = identity();
    for (std::size_t i = 0; i < 3; ++i)
        m[i][3] = sign * v[i];
    return m;
}

inline Mat scaled(const Vec &v)
{
    Mat m = identity();
    for (std::size_t i = 0; i < 3; ++i)
        m[i][i] = v[i];
    return m;
}

inline Mat axisRotation(std::size_t axis, double degrees)
{
    const std::size_t b = (axis + 1) % 3;
    const std::size_t c = (axis + 2) % 3;
    Mat m = identity();
    m[b][b] = m[c][c] = std::cos(degrees * radians);
    m[c][b] = std::sin(degrees * radians);
    m[b][c] = -m[c][b];
    return m;
}

/// The first letter is applied first.
inline Mat euler(const Vec &v, int order)
{
    static const char *const orders[] = {"XYZ", "XZY", "YZX", "YXZ", "ZXY", "ZYX"};
    Mat m = identity();
    for (int i = 0; i < 3; ++i) {
        const auto axis = std::size_t(orders[order > 5 ? 0 : order][i] - 'X');
        m = axisRotation(axis, v[axis]) * m;
    }
    return m;
}

inline Mat transposed(const Mat &m)
{
    Mat t = identity();
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            t[i][j] = m[j][i];
    return t;
}

/// A part of a rotation: about its axis by so much less.
inline Mat partOf(const Mat &r, double part)
{
    Vec axis{{r[2][1] - r[1][2], r[0][2] - r[2][0], r[1][0] - r[0][1]}};
    const double sine = std::sqrt(axis[0] * axis[0] + axis[1] * axis[1] + axis[2] * axis[2]) / 2;
    const double angle = std::atan2(sine, (r[0][0] + r[1][1] + r[2][2] - 1) / 2);
    if (sine < 1e-12)
        return identity();
    for (double &x : axis)
        x /= 2 * sine;
    const double c = std::cos(angle * part);
    const double s = std::sin(angle * part);
    Mat m = identity();
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            m[i][j] = (i == j ? c : 0.0) + (1 - c) * axis[i] * axis[j];
    for (std::size_t i = 0; i < 3; ++i) {
        m[(i + 2) % 3][(i + 1) % 3] += s * axis[i];
        m[(i + 1) % 3][(i + 2) % 3] -= s * axis[i];
    }
    return m;
}

/// Degrees between the rotations of two matrices, which may be scaled by axes.
inline double angleBetween(const Mat &a, const Mat &b)
{
    double trace = 0;
    for (std::size_t column = 0; column < 3; ++column) {
        double dot = 0;
        double aa = 0;
        double bb = 0;
        for (std::size_t row = 0; row < 3; ++row) {
            dot += a[row][column] * b[row][column];
            aa += a[row][column] * a[row][column];
            bb += b[row][column] * b[row][column];
        }
        trace += dot / std::sqrt(aa * bb);
    }
    // acos is blind to small angles; the chord is not.
    const double chord = std::sqrt(std::max(0.0, 3 - trace) / 4);
    return 2 * std::asin(std::min(1.0, chord)) / radians;
}

/// A matrix relative to another one: the inverse of the first, times the second.
inline Mat relative(const Mat &from, const Mat &to)
{
    Mat inverse = identity();
    const auto minor = [&from](std::size_t i, std::size_t k) {
        const std::size_t a = (i + 1) % 3, b = (i + 2) % 3, c = (k + 1) % 3, d = (k + 2) % 3;
        return from[a][c] * from[b][d] - from[a][d] * from[b][c];
    };
    const double determinant =
        from[0][0] * minor(0, 0) + from[0][1] * minor(0, 1) + from[0][2] * minor(0, 2);
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            inverse[i][k] = minor(k, i) / determinant;
    return inverse * moved({{from[0][3], from[1][3], from[2][3]}}, -1) * to;
}

/// A curve of the file, as stored.
struct Curve
{
    struct Key
    {
        double time;
        double value;
        unsigned flags;
        std::array<float, 4> data;
    };
    QVector<Key> keys;

    bool cubic(int i) const { return (keys[i].flags & 0xE) == 8; }
    double h(int i) const { return keys[i + 1].time - keys[i].time; }
    double chord(int i) const { return (keys[i + 1].value - keys[i].value) / h(i); }
    double weight(int i, bool isNext) const
    {
        if (!(keys[i].flags & (isNext ? 0x02000000u : 0x01000000u)) || keys[i].flags & 0x200)
            return 1 / 3.0;
        quint32 bits = 0;
        std::memcpy(&bits, &keys[i].data[2], 4);
        return (isNext ? bits >> 16 : bits & 0xFFFF) / 10000.0;
    }

    double tcb(int i, bool isRight) const
    {
        const Key &k = keys[i];
        const double t = double(k.data[0]), c = double(k.data[1]), b = double(k.data[2]);
        const bool isEnd = i == 0 || i == keys.size() - 1;
        const double a = i == 0 ? 0 : chord(i - 1);
        const double z = i == keys.size() - 1 ? 0 : chord(i);
        const double g = isEnd ? 1 : 0.5;
        return isRight ? g * (1 - t) * ((1 + b) * (1 + c) * a + (1 - b) * (1 - c) * z)
                       : g * (1 - t) * ((1 + b) * (1 - c) * a + (1 - b) * (1 + c) * z);
    }

    double automatic(int i, bool isRight) const
    {
        const unsigned flags = keys[i].flags;
        if (i == 0 || i == keys.size() - 1)
            return flags & 0x4000 ? 0 : (keys.size() < 2 ? 0 : chord(i == 0 ? 0 : i - 1));
        const double a = chord(i - 1);
        const double b = chord(i);
        double m = (keys[i + 1].value - keys[i - 1].value) / (h(i - 1) + h(i));
        if (!(flags & 0x2000)) {
            const double d = h(i - 1) / (h(i - 1) + h(i));
            m = (m + a * (1 - d) + b * d) / 2;
            // Tension, continuity and bias take the place of the slot.
            const double stored = keys[i - 1].flags & 0x200 ? 0 : double(keys[i - 1].data[1]);
            const double bias = isRight ? double(keys[i].data[0]) : -stored;
            m += std::abs(bias) / 100 * ((bias > 0 ? b : a) - m);
        }
        if (flags & 0x4000) {
            const double low = a / weight(i - 1, true);
            const double high = b / weight(i, false);
            m = m > 0 ? std::max(0.0, std::min({m, low, high}))
                      : std::min(0.0, std::max({m, low, high}));
        }
        const double v = keys[i].value;
        if (flags & 0x1000 &&
            (std::abs(v - keys[i - 1].value) < 1e-6 || std::abs(v - keys[i + 1].value) < 1e-6))
            return 0;
        return m;
    }

    double slope(int i, bool isRight) const
    {
        if (cubic(i) && keys[i].flags & 0x200)
            return tcb(i, isRight);
        if (cubic(i) && keys[i].flags & 0x100)
            return automatic(i, isRight);
        if (isRight)
            return double(keys[i].data[0]);
        return keys[i - 1].flags & 0x200 ? double(keys[i].data[0]) : double(keys[i - 1].data[1]);
    }

    double at(double t) const
    {
        if (t <= keys.first().time)
            return keys.first().value;
        if (t >= keys.last().time)
            return keys.last().value;
        int i = 0;
        while (keys[i + 1].time <= t)
            ++i;
        const double y0 = keys[i].value;
        const double y1 = keys[i + 1].value;
        const double u = (t - keys[i].time) / h(i);
        if (keys[i].flags & 2)
            return keys[i].flags & 0x100 && u > 0 ? y1 : y0;
        if (!cubic(i))
            return y0 + (y1 - y0) * u;
        const double w0 = weight(i, false);
        const double w1 = weight(i, true);
        double low = 0;
        double high = 1;
        for (int step = 0; step < 100; ++step) {
            const double s = (low + high) / 2;
            const double x =
                3 * (1 - s) * (1 - s) * s * w0 + 3 * (1 - s) * s * s * (1 - w1) + s * s * s;
            (x < u ? low : high) = s;
        }
        const double s = (low + high) / 2;
        return (1 - s) * (1 - s) * (1 - s) * y0 +
               3 * (1 - s) * (1 - s) * s * (y0 + slope(i, true) * w0 * h(i)) +
               3 * (1 - s) * s * s * (y1 - slope(i + 1, false) * w1 * h(i)) + s * s * s * y1;
    }
};

class Scene
{
public:
    explicit Scene(const QByteArray &bytes)
        : m_root(fbxfile::parse(bytes))
        , m_isText(!bytes.startsWith("Kaydara"))
    {
        for (const fbxfile::Node &node : m_root.child("Objects")->children)
            if (!node.numbers.isEmpty() && !node.numbers[0].isEmpty())
                m_objects[qint64(node.numbers[0][0])] = &node;
        if (const fbxfile::Node *definitions = m_root.child("Definitions")) {
            for (const fbxfile::Node &type : definitions->children)
                if (const fbxfile::Node *shared = type.child("PropertyTemplate"))
                    m_templates[type.texts.value(0)] = shared->child("Properties70");
        }
        for (const fbxfile::Node &c : m_root.child("Connections")->children)
            m_connections.append(
                {qint64(c.numbers[1][0]), qint64(c.numbers[2][0]), c.texts.value(3)});
        collect(0, -1);
        for (const fbxfile::Node &node : m_root.child("Objects")->children)
            if (node.name == "AnimationStack")
                m_stacks.append(qint64(node.numbers[0][0]));
    }

    struct Model
    {
        qint64 id;
        int parent;
        QByteArray name;
    };
    const QVector<Model> &models() const { return m_models; }
    int stackCount() const { return m_stacks.size(); }
    QByteArray stackName(int stack) const { return name(*m_objects.at(m_stacks[stack])); }

    /// World matrices of all models at a time in seconds; stack -1: without animation.
    QVector<Mat> worlds(int stack, double seconds) const
    {
        QVector<Mat> bare;   // without the node's own last scale
        QVector<Vec> scales; // G of the node
        QVector<Vec> inherited;
        QVector<Mat> result;
        for (const Model &model : m_models) {
            const Vec t = value(stack, model.id, "Lcl Translation", {{0, 0, 0}}, seconds);
            Mat r;
            value(stack, model.id, "Lcl Rotation", {{0, 0, 0}}, seconds, &r);
            const Vec s = value(stack, model.id, "Lcl Scaling", {{1, 1, 1}}, seconds);
            const bool isActive = number(model.id, "RotationActive", 1) != 0;
            const Vec none{};
            const Vec ro = property(model.id, "RotationOffset", none);
            const Vec rp = property(model.id, "RotationPivot", none);
            const Vec so = property(model.id, "ScalingOffset", none);
            const Vec sp = property(model.id, "ScalingPivot", none);
            const Vec pre = isActive ? property(model.id, "PreRotation", none) : none;
            const Vec post = isActive ? property(model.id, "PostRotation", none) : none;
            const Mat turn = moved(rp) * euler(pre, 0) * r * transposed(euler(post, 0)) *
                             moved(rp, -1) * moved(so) * moved(sp);
            const int inherit = int(number(model.id, "InheritType", 1));
            const bool isApart = model.parent >= 0 && inherit != 1;
            Vec place = t;
            for (std::size_t i = 0; i < 3; ++i)
                place[i] += ro[i];
            Vec factor{{1, 1, 1}};
            Mat above = model.parent < 0 ? identity() : result[model.parent];
            if (isApart) {
                above = bare[model.parent];
                factor = inherit == 0 ? scales[model.parent] : inherited[model.parent];
                for (std::size_t i = 0; i < 3; ++i)
                    place[i] *= scales[model.parent][i];
            }
            Vec g = s;
            for (std::size_t i = 0; i < 3; ++i)
                g[i] *= factor[i];
            bare.append(above * moved(place) * turn);
            result.append(bare.last() * scaled(g) * moved(sp, -1));
            scales.append(g);
            inherited.append(factor);
        }
        return result;
    }

    /// Times of all keys of a stack, in seconds, sorted.
    QVector<double> keyTimes(int stack) const
    {
        QSet<qint64> ticks;
        for (const qint64 layer : sources(m_stacks[stack], {}))
            for (const qint64 node : sources(layer, {}))
                for (const Link &link : m_connections)
                    if (link.target == node && m_objects.count(link.source))
                        for (const double tick : m_objects.at(link.source)->list("KeyTime"))
                            ticks.insert(qint64(tick));
        QVector<double> times;
        for (const qint64 tick : ticks)
            times.append(double(tick) / ticksPerSecond);
        std::sort(times.begin(), times.end());
        return times;
    }

    static constexpr double ticksPerSecond = 46186158000.0;

    /// The curve of a component, or nothing; of the first layer that has one.
    std::optional<Curve> curveOf(int stack, qint64 object, const QByteArray &property,
                                 const QByteArray &component) const
    {
        for (const qint64 layer : sources(m_stacks[stack], {}))
            for (const qint64 node : sources(layer, {}))
                if (drives(node, object, property))
                    for (const qint64 source : sources(node, component))
                        return curve(source);
        return {};
    }

    /// A property; of a rotation the matrix too, which alone is right where layers are blended.
    Vec value(int stack, qint64 object, const QByteArray &what, const Vec &fallback, double seconds,
              Mat *rotation = nullptr) const
    {
        Vec result = property(object, what, fallback);
        const bool isRotation = what == "Lcl Rotation";
        const bool isScale = what == "Lcl Scaling";
        const int order =
            number(object, "RotationActive", 1) != 0 ? int(number(object, "RotationOrder", 0)) : 0;
        Mat turned = euler(result, order);
        const QVector<qint64> layers = stack < 0 ? QVector<qint64>() : sources(m_stacks[stack], {});
        for (int i = 0; i < layers.size(); ++i) {
            if (number(layers[i], "Mute", 0) != 0)
                continue;
            for (const qint64 node : sources(layers[i], {})) {
                if (!drives(node, object, what))
                    continue;
                const Vec x = nodeValue(node, fallback, seconds);
                const double w = std::min(1.0, std::max(0.0, weight(layers[i], seconds) / 100));
                const int mode = int(number(layers[i], "BlendMode", 0));
                const bool asRotation =
                    isRotation && number(layers[i], "RotationAccumulationMode", 0) == 0;
                const bool asFactor = isScale && number(layers[i], "ScaleAccumulationMode", 0) == 0;
                if (i == 0 || mode == 1) {
                    result = x;
                    turned = euler(x, order);
                    continue;
                }
                const Mat other = euler(x, order);
                if (asRotation) {
                    turned = mode == 0 ? turned * partOf(other, w)
                                       : turned * partOf(transposed(turned) * other, w);
                    continue;
                }
                for (std::size_t a = 0; a < 3; ++a) {
                    if (asFactor)
                        result[a] = mode == 0 ? result[a] * std::pow(x[a], w)
                                              : std::pow(result[a], 1 - w) * std::pow(x[a], w);
                    else
                        result[a] =
                            mode == 0 ? result[a] + w * x[a] : (1 - w) * result[a] + w * x[a];
                }
                turned = euler(result, order);
            }
        }
        if (rotation)
            *rotation = turned;
        return result;
    }

    double number(qint64 object, const QByteArray &what, double fallback) const
    {
        const QVector<double> numbers = find(object, what);
        return numbers.isEmpty() ? fallback : numbers[0];
    }

private:
    struct Link
    {
        qint64 source;
        qint64 target;
        QByteArray property;
    };

    QByteArray name(const fbxfile::Node &node) const
    {
        const QByteArray whole = node.texts.value(1);
        if (m_isText)
            return whole.mid(whole.indexOf("::") + 2);
        return whole.left(whole.indexOf('\0'));
    }

    void collect(qint64 parent, int index)
    {
        for (const Link &link : m_connections) {
            const auto found = m_objects.find(link.source);
            if (link.target != parent || !link.property.isEmpty() || found == m_objects.end() ||
                found->second->name != "Model")
                continue;
            m_models.append({link.source, index, name(*found->second)});
            collect(link.source, m_models.size() - 1);
        }
    }

    QVector<qint64> sources(qint64 target, const QByteArray &property) const
    {
        QVector<qint64> ids;
        for (const Link &link : m_connections)
            if (link.target == target && link.property == property && m_objects.count(link.source))
                ids.append(link.source);
        return ids;
    }

    bool drives(qint64 node, qint64 object, const QByteArray &property) const
    {
        return std::any_of(m_connections.begin(), m_connections.end(), [&](const Link &link) {
            return link.source == node && link.target == object && link.property == property;
        });
    }

    QVector<double> find(qint64 object, const QByteArray &what) const
    {
        const fbxfile::Node *node = m_objects.at(object);
        for (const fbxfile::Node *list :
             {node->child("Properties70"),
              m_templates.count(node->name) ? m_templates.at(node->name) : nullptr}) {
            for (int i = 0; list && i < list->children.size(); ++i) {
                const fbxfile::Node &p = list->children[i];
                if (p.texts.value(0) != what)
                    continue;
                QVector<double> numbers;
                for (int k = 4; k < p.numbers.size(); ++k)
                    numbers += p.numbers[k];
                return numbers;
            }
        }
        return {};
    }

    Vec property(qint64 object, const QByteArray &what, const Vec &fallback) const
    {
        const QVector<double> numbers = find(object, what);
        return numbers.size() < 3 ? fallback : Vec{{numbers[0], numbers[1], numbers[2]}};
    }

    Curve curve(qint64 id) const
    {
        const fbxfile::Node &node = *m_objects.at(id);
        const QVector<double> times = node.list("KeyTime");
        const QVector<double> values = node.list("KeyValueFloat");
        const QVector<double> flags = node.list("KeyAttrFlags");
        const QVector<double> data = node.list("KeyAttrDataFloat");
        const QVector<double> counts = node.list("KeyAttrRefCount");
        Curve result;
        int run = 0;
        double left = counts.value(0);
        for (int i = 0; i < times.size(); ++i) {
            Curve::Key key{times[i] / ticksPerSecond, double(float(values[i])), 4, {}};
            while (run < counts.size() && left <= 0)
                left = counts.value(++run);
            --left;
            if (run < counts.size()) {
                key.flags = unsigned(flags[run]);
                for (int k = 0; k < 4; ++k) {
                    const double number = data[4 * run + k];
                    key.data[std::size_t(k)] = float(number);
                    if (m_isText) {
                        const auto bits = quint32(qint64(number));
                        std::memcpy(&key.data[std::size_t(k)], &bits, 4);
                    }
                }
            }
            result.keys.append(key);
        }
        return result;
    }

    const Curve &cached(qint64 id) const
    {
        if (!m_curves.count(id))
            m_curves[id] = curve(id);
        return m_curves[id];
    }

    Vec nodeValue(qint64 node, const Vec &fallback, double seconds) const
    {
        Vec result = fallback;
        const char *const names[] = {"d|X", "d|Y", "d|Z"};
        for (std::size_t i = 0; i < 3; ++i) {
            result[i] = number(node, names[i], fallback[i]);
            for (const qint64 source : sources(node, names[i]))
                result[i] = cached(source).at(seconds);
        }
        return result;
    }

    double weight(qint64 layer, double seconds) const
    {
        for (const qint64 node : sources(layer, "Weight"))
            for (const Link &link : m_connections)
                if (link.target == node && !link.property.isEmpty())
                    return cached(link.source).at(seconds);
        return number(layer, "Weight", 100);
    }

    fbxfile::Node m_root;
    bool m_isText;
    std::map<qint64, const fbxfile::Node *> m_objects;
    std::map<QByteArray, const fbxfile::Node *> m_templates;
    QVector<Link> m_connections;
    QVector<Model> m_models;
    QVector<qint64> m_stacks;
    mutable std::map<qint64, Curve> m_curves;
};

} // namespace fbxworld

#endif
