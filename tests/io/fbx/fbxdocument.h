#ifndef FBXDOCUMENT_H
#define FBXDOCUMENT_H

#include <QByteArray>
#include <QVector>
#include <QtEndian>
#include <cmath>
#include <cstring>

/// Writes FBX documents, binary with heads of 32 or 64 bits and with or without deflated arrays, or
/// as text, for cases that no sample file has.
namespace fbxdocument {

struct Value
{
    char code = 'L'; ///< L, I, D, C, S, or an array: l, i, f, d
    qint64 whole = 0;
    double real = 0;
    QByteArray text;
    QVector<double> numbers; ///< of l, i and d
    QVector<float> floats;

    Value(int number)
        : Value(qint64(number))
    {
    }
    Value(qint64 number)
        : whole(number)
    {
    }
    Value(double number)
        : code('D')
        , real(number)
    {
    }
    Value(const char *string)
        : code('S')
        , text(string)
    {
    }
    Value(const QByteArray &string)
        : code('S')
        , text(string)
    {
    }
    Value(char arrayCode, const QVector<double> &list)
        : code(arrayCode)
        , numbers(list)
    {
    }
    Value(const QVector<float> &list)
        : code('f')
        , floats(list)
    {
    }
    static Value letter(char c)
    {
        Value value(0);
        value.code = 'C';
        value.whole = c;
        return value;
    }
};

struct Record
{
    QByteArray name;
    QVector<Value> values;
    QVector<Record> children;
};

struct Format
{
    bool isText = false;
    int version = 7400;
    bool isDeflated = false;
};

inline void put(QByteArray *out, const void *data, int size)
{
    out->append(static_cast<const char *>(data), size);
}

template <class T> void put(QByteArray *out, T value)
{
    const T little = qToLittleEndian(value);
    put(out, &little, int(sizeof little));
}

inline QByteArray arrayBytes(const Value &value)
{
    QByteArray bytes;
    for (const double number : value.numbers) {
        if (value.code == 'l')
            put(&bytes, qint64(number));
        else if (value.code == 'i')
            put(&bytes, qint32(number));
        else
            put(&bytes, number);
    }
    for (const float number : value.floats)
        put(&bytes, number);
    return bytes;
}

inline void putBinary(QByteArray *out, const Value &value, const Format &format)
{
    out->append(value.code);
    switch (value.code) {
    case 'L':
        put(out, value.whole);
        return;
    case 'C':
        put(out, quint8(value.whole));
        return;
    case 'D':
        put(out, value.real);
        return;
    case 'S':
        put(out, quint32(value.text.size()));
        out->append(value.text);
        return;
    default:
        break;
    }
    QByteArray bytes = arrayBytes(value);
    if (format.isDeflated)
        bytes = qCompress(bytes).mid(4); // Qt puts the size in front
    put(out, quint32(value.numbers.size() + value.floats.size()));
    put(out, quint32(format.isDeflated));
    put(out, quint32(bytes.size()));
    out->append(bytes);
}

inline void putBinary(QByteArray *out, const Record &record, const Format &format)
{
    const bool isWide = format.version >= 7500;
    const auto putCount = [&](QByteArray *to, int count) {
        isWide ? put(to, quint64(count)) : put(to, quint32(count));
    };
    QByteArray values;
    for (const Value &value : record.values)
        putBinary(&values, value, format);
    const int start = out->size();
    putCount(out, 0);
    putCount(out, record.values.size());
    putCount(out, values.size());
    put(out, quint8(record.name.size()));
    out->append(record.name);
    out->append(values);
    for (const Record &child : record.children)
        putBinary(out, child, format);
    if (!record.children.isEmpty())
        out->append(QByteArray(isWide ? 25 : 13, '\0'));
    QByteArray end;
    putCount(&end, out->size());
    out->replace(start, end.size(), end);
}

inline QByteArray number(double value)
{
    return QByteArray::number(value, 'g', 17);
}

inline QByteArray textOf(const Value &value, const Format &format)
{
    QByteArray list;
    switch (value.code) {
    case 'L':
        return QByteArray::number(value.whole);
    case 'C':
        return QByteArray(1, char(value.whole));
    case 'D':
        return number(value.real);
    case 'S': {
        // "Name\0\1Class" is "Class::Name" here.
        const int zero = value.text.indexOf('\0');
        return zero < 0 ? '"' + value.text + '"'
                        : '"' + value.text.mid(zero + 2) + "::" + value.text.left(zero) + '"';
    }
    default:
        break;
    }
    for (const double it : value.numbers)
        list += (list.isEmpty() ? "" : ",") + number(it);
    for (int i = 0; i < value.floats.size(); ++i) {
        qint32 bits = 0;
        std::memcpy(&bits, &value.floats[i], 4);
        // Key values are numbers, shapes the integers of their bits.
        const bool isShape = format.version >= 7200 && value.text == "bits";
        list +=
            (i ? "," : "") + (isShape ? QByteArray::number(bits) : number(double(value.floats[i])));
    }
    return '*' + QByteArray::number(value.numbers.size() + value.floats.size()) +
           " {\n a: " + list + "\n}";
}

inline void putText(QByteArray *out, const Record &record, const Format &format)
{
    *out += record.name + ": ";
    for (int i = 0; i < record.values.size(); ++i)
        *out += (i ? ", " : "") + textOf(record.values[i], format);
    if (!record.children.isEmpty()) {
        *out += " {\n";
        for (const Record &child : record.children)
            putText(out, child, format);
        *out += "}";
    }
    *out += "\n";
}

/// A scene under construction. Objects have the numbers that the test gives them.
class Document
{
public:
    Document()
    {
        m_header = {"FBXHeaderExtension",
                    {},
                    {{"FBXHeaderVersion", {1004}, {}},
                     {"FBXVersion", {0}, {}},
                     {"Creator", {"test writer 1"}, {}},
                     {"OtherFlags", {}, {{"TCDefinition", {127}, {}}}}}};
        setting("UpAxis", 1);
        setting("FrontAxis", 2);
        setting("CoordAxis", 0);
        setting("TimeMode", 11);
    }

    static Record property(const QByteArray &name, const QVector<Value> &values,
                           const char *flags = "A")
    {
        Record record{"P", {name, "Number", "", flags}, {}};
        record.values += values;
        return record;
    }

    void setting(const QByteArray &name, const Value &value)
    {
        for (Record &record : m_settings)
            if (record.values[0].text == name) {
                record.values[4] = value;
                return;
            }
        m_settings.append(property(name, {value}));
    }

    void object(const QByteArray &kind, qint64 id, const QByteArray &name,
                const QByteArray &subclass, const QVector<Record> &properties,
                const QVector<Record> &more = {})
    {
        Record record{kind, {id, name + QByteArray("\0\1", 2) + kind, subclass}, more};
        record.children.append({"Properties70", {}, properties});
        m_objects.append(record);
    }

    void model(qint64 id, qint64 parent, const QByteArray &name, const QVector<Record> &properties,
               const QByteArray &subclass = "Null")
    {
        object("Model", id, name, subclass, properties);
        connect(id, parent);
    }

    void stack(qint64 id, const QByteArray &name) { object("AnimationStack", id, name, "", {}); }
    void layer(qint64 id, qint64 stackId, const QVector<Record> &properties = {})
    {
        object("AnimationLayer", id, "layer", "", properties);
        connect(id, stackId);
    }
    void curveNode(qint64 id, qint64 layerId, qint64 target, const QByteArray &targetProperty,
                   const QVector<Record> &values = {})
    {
        object("AnimationCurveNode", id, "node", "", values);
        if (layerId)
            connect(id, layerId);
        connect(id, target, targetProperty);
    }
    /// One key a time; flags and data one a key, or one for all.
    void curve(qint64 id, qint64 node, const QByteArray &component, const QVector<double> &seconds,
               const QVector<float> &values, const QVector<double> &flags,
               const QVector<float> &data, const QVector<Record> &more = {})
    {
        QVector<double> ticks;
        for (const double second : seconds)
            ticks.append(std::round(second * 46186158000.0));
        const bool isShared = flags.size() == 1;
        const QVector<double> counts(flags.size(), isShared ? seconds.size() : 1);
        Value shapes(data);
        shapes.text = "bits";
        Record record{"AnimationCurve",
                      {id, QByteArray("\0\1AnimCurve", 11), ""},
                      {{"KeyVer", {4009}, {}},
                       {"KeyTime", {Value('l', ticks)}, {}},
                       {"KeyValueFloat", {Value(values)}, {}},
                       {"KeyAttrFlags", {Value('i', flags)}, {}},
                       {"KeyAttrDataFloat", {shapes}, {}},
                       {"KeyAttrRefCount", {Value('i', counts)}, {}}}};
        record.children += more;
        m_objects.append(record);
        connect(id, node, component);
    }

    void connect(qint64 source, qint64 target, const QByteArray &property = {})
    {
        Record record{"C", {property.isEmpty() ? "OO" : "OP", source, target}, {}};
        if (!property.isEmpty())
            record.values.append(property);
        m_connections.append(record);
    }

    QVector<Record> &objects() { return m_objects; }

    QByteArray write(const Format &format) const
    {
        Record header = m_header;
        header.children[1].values[0] = Value(format.version);
        const QVector<Record> sections{
            header,
            {"GlobalSettings", {}, {{"Properties70", {}, m_settings}}},
            {"Objects", {}, m_objects},
            {"Connections", {}, m_connections},
        };
        QByteArray bytes;
        if (format.isText) {
            bytes = "; FBX project file\n";
            for (const Record &section : sections)
                putText(&bytes, section, format);
            return bytes;
        }
        bytes = QByteArray("Kaydara FBX Binary  \0\x1A\0", 23);
        put(&bytes, quint32(format.version));
        for (const Record &section : sections)
            putBinary(&bytes, section, format);
        return bytes + QByteArray(format.version >= 7500 ? 25 : 13, '\0');
    }

private:
    Record m_header;
    QVector<Record> m_settings;
    QVector<Record> m_objects;
    QVector<Record> m_connections;
};

} // namespace fbxdocument

#endif
