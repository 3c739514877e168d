#ifndef FBXFILE_H
#define FBXFILE_H

#include <QByteArray>
#include <QFile>
#include <QVector>
#include <QtEndian>
#include <cstring>
#include <map>
#include <optional>
#include <stdexcept>

/// A second reader of FBX files, for good files only: the source of what the tests expect. It
/// shares nothing with the product's reader.
namespace fbxfile {

struct Node
{
    QByteArray name;
    QVector<QByteArray> texts;        ///< one a value; empty for numbers
    QVector<QVector<double>> numbers; ///< one a value; empty for texts
    QVector<Node> children;

    const Node *child(const QByteArray &wanted) const
    {
        for (const Node &node : children) {
            if (node.name == wanted)
                return &node;
        }
        return nullptr;
    }
    QVector<double> list(const QByteArray &wanted) const
    {
        const Node *node = child(wanted);
        return node && !node->numbers.isEmpty() ? node->numbers.first() : QVector<double>();
    }
};

class BinaryParser
{
public:
    explicit BinaryParser(const QByteArray &bytes)
        : m_bytes(bytes)
        , m_at(27)
        , m_wide(read<quint32>(23) >= 7500)
    {
    }

    Node parse()
    {
        Node root;
        while (std::optional<Node> node = next())
            root.children.append(*node);
        return root;
    }

private:
    template <class T> T read(int at) const
    {
        return qFromLittleEndian<T>(m_bytes.constData() + at);
    }
    template <class T> T take()
    {
        m_at += int(sizeof(T));
        return read<T>(m_at - int(sizeof(T)));
    }
    quint64 takeCount() { return m_wide ? take<quint64>() : take<quint32>(); }

    std::optional<Node> next()
    {
        const int end = int(takeCount());
        const int values = int(takeCount());
        takeCount();
        Node node;
        node.name = takeBytes(take<quint8>());
        if (end == 0)
            return {};
        for (int i = 0; i < values; ++i)
            value(&node);
        while (m_at < end) {
            const std::optional<Node> child = next();
            if (!child)
                break;
            node.children.append(*child);
        }
        m_at = end;
        return node;
    }

    QByteArray takeBytes(int size)
    {
        m_at += size;
        return m_bytes.mid(m_at - size, size);
    }

    void value(Node *node)
    {
        QByteArray text;
        QVector<double> numbers;
        const char code = take<char>();
        switch (code) {
        case 'S':
        case 'R':
            text = takeBytes(int(take<quint32>()));
            break;
        case 'C':
        case 'B':
            numbers = {double(take<quint8>())};
            break;
        case 'Y':
            numbers = {double(take<qint16>())};
            break;
        case 'I':
            numbers = {double(take<qint32>())};
            break;
        case 'L':
            numbers = {double(take<qint64>())};
            break;
        case 'F':
            numbers = {double(take<float>())};
            break;
        case 'D':
            numbers = {take<double>()};
            break;
        default:
            numbers = array(code);
            break;
        }
        node->texts.append(text);
        node->numbers.append(numbers);
    }

    QVector<double> array(char code)
    {
        const quint32 count = take<quint32>();
        const bool isDeflated = take<quint32>() == 1;
        QByteArray bytes = takeBytes(int(take<quint32>()));
        if (isDeflated)
            bytes = qUncompress(QByteArray(4, '\0') + bytes); // Qt puts the size in front
        QVector<double> numbers;
        for (quint32 i = 0; i < count; ++i) {
            const char *data = bytes.constData();
            if (code == 'd')
                numbers.append(qFromLittleEndian<double>(data + 8 * i));
            else if (code == 'l')
                numbers.append(double(qFromLittleEndian<qint64>(data + 8 * i)));
            else if (code == 'f')
                numbers.append(double(qFromLittleEndian<float>(data + 4 * i)));
            else if (code == 'i')
                numbers.append(double(qFromLittleEndian<qint32>(data + 4 * i)));
            else
                numbers.append(double(data[i]));
        }
        return numbers;
    }

    QByteArray m_bytes;
    int m_at;
    bool m_wide;
};

class TextParser
{
public:
    explicit TextParser(const QByteArray &bytes)
        : m_bytes(bytes)
    {
    }

    Node parse()
    {
        Node root;
        children(&root);
        return root;
    }

private:
    QByteArray peek()
    {
        const int at = m_at;
        const QByteArray token = take();
        m_at = at;
        return token;
    }

    /// A string with its first quotation mark, a word (with its colon), or one sign.
    QByteArray take()
    {
        while (m_at < m_bytes.size() && (isspace(m_bytes[m_at]) || m_bytes[m_at] == ';')) {
            if (m_bytes[m_at] == ';')
                m_at = m_bytes.indexOf('\n', m_at);
            ++m_at;
        }
        if (m_at >= m_bytes.size())
            return {};
        const int start = m_at;
        if (m_bytes[m_at] == '"') {
            m_at = m_bytes.indexOf('"', m_at + 1) + 1;
            return m_bytes.mid(start, m_at - start - 1);
        }
        if (std::strchr("{},*", m_bytes[m_at]))
            return m_bytes.mid(m_at++, 1);
        while (m_at < m_bytes.size() && !isspace(m_bytes[m_at]) &&
               !std::strchr("{},", m_bytes[m_at]))
            ++m_at;
        return m_bytes.mid(start, m_at - start);
    }

    void children(Node *parent)
    {
        for (QByteArray token = take(); !token.isEmpty() && token != "}"; token = take()) {
            Node node;
            node.name = token.chopped(1);
            values(&node);
            parent->children.append(node);
        }
    }

    void values(Node *node)
    {
        for (;;) {
            const QByteArray token = peek();
            if (token.isEmpty() || token == "}" || (token[0] != '"' && token.endsWith(':')))
                return;
            take();
            if (token == "{") {
                children(node);
                return;
            }
            if (token == ",")
                continue;
            QByteArray text;
            QVector<double> numbers;
            if (token == "*") {
                take(); // the count
                take(); // the brace
                take(); // "a:"
                for (QByteArray number = take(); number != "}"; number = take()) {
                    if (number != ",")
                        numbers.append(number.toDouble());
                }
            } else if (token[0] == '"') {
                text = token.mid(1);
            } else {
                bool isNumber = false;
                const double number = token.toDouble(&isNumber);
                numbers = isNumber ? QVector<double>{number} : QVector<double>();
                text = isNumber ? QByteArray() : token;
            }
            node->texts.append(text);
            node->numbers.append(numbers);
            if (token == "*")
                return;
        }
    }

    QByteArray m_bytes;
    int m_at = 0;
};

inline Node parse(const QByteArray &bytes)
{
    return bytes.startsWith("Kaydara") ? BinaryParser(bytes).parse() : TextParser(bytes).parse();
}

} // namespace fbxfile

#endif
