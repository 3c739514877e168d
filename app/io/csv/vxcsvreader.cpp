#include "io/csv/vxcsvreader.h"

#include "io/csv/vxcsvmotion.h"
#include "io/vxfiletext.h"

#include <array>

namespace {

bool is(std::string_view cell, const char *word)
{
    return QLatin1String(cell.data(), int(cell.size()))
               .compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
}

/// Reads one file.
class Reader
{
public:
    Reader(const QByteArray &bytes, const VxFileProgress &progress, VxFileError *error)
        : m_size(bytes.size())
        , m_progress(progress)
        , m_error(error)
        , m_rows(bytes, error)
        , m_motion(m_rows)
    {
    }

    bool read(VxImportedMotion *motion);

private:
    enum Column {
        Node,
        Parent,
        Kind,
        Order,
        Property,
        Time,
        Value,
        Interpolation,
        Tension,
        Continuity,
        Bias,
        NumColumns
    };

    bool reportProgress();
    bool readKeys();
    bool readColumns();
    bool readKeyRow();
    bool readShape(VxMotionShape *shape) const;
    std::string_view cell(Column column) const;
    bool readFrames();
    bool readHeader();
    bool readHeaderRow();
    bool readFrame();

    const qint64 m_size;
    const VxFileProgress m_progress;
    VxFileError *const m_error;
    VxCsvRows m_rows;
    VxCsvMotion m_motion;
    qint64 m_numRows = 0;
    // One row a key: the indexes of the columns, -1 for a missing one, and the previous row.
    std::array<int, NumColumns> m_columns{};
    std::string m_lastNode;
    std::string m_lastProperty;
    int m_node = -1;
    int m_property = -1;
    // One row a frame: the property of each column.
    std::vector<int> m_nodes;
    std::vector<int> m_properties;
    double m_lastTime = 0.0;
};

/** Reports progress periodically; false when cancelled. */
bool Reader::reportProgress()
{
    if (++m_numRows % 1024 != 0 || !m_progress)
        return true;
    if (m_progress(int(m_rows.position() * 100 / m_size)))
        return true;
    return vxCancel(m_error, VxFileText::tr("The import was cancelled."));
}

std::string_view Reader::cell(Column column) const
{
    const int index = m_columns[column];
    return index >= 0 && index < m_rows.count() ? m_rows.cell(index) : std::string_view();
}

bool Reader::readColumns()
{
    static const char *const names[] = {"node",     "parent",     "kind",  "order",
                                        "property", "time",       "value", "interpolation",
                                        "tension",  "continuity", "bias"};
    m_columns.fill(-1);
    for (int i = 0; i < m_rows.count(); ++i) {
        int column = 0;
        while (column < NumColumns && !is(m_rows.cell(i), names[column]))
            ++column;
        if (column == NumColumns)
            return m_rows.fail(
                i, VxFileText::tr("Unknown column \"%1\".").arg(m_rows.text(i).left(40)));
        if (m_columns[std::size_t(column)] >= 0)
            return m_rows.fail(i, VxFileText::tr("The column \"%1\" occurs twice.")
                                      .arg(QLatin1String(names[column])));
        m_columns[std::size_t(column)] = i;
    }
    for (const Column column : {Node, Property, Time, Value}) {
        if (m_columns[column] < 0)
            return m_rows.fail(
                0,
                VxFileText::tr("The column \"%1\" is missing.").arg(QLatin1String(names[column])));
    }
    return true;
}

bool Reader::readShape(VxMotionShape *shape) const
{
    const std::string_view name = cell(Interpolation);
    if (is(name, "tcb"))
        shape->segment = VxMotionSegment::Tcb;
    else if (is(name, "constant"))
        shape->segment = VxMotionSegment::Step;
    else if (!name.empty() && !is(name, "linear"))
        return m_rows.fail(
            m_columns[Interpolation],
            VxFileText::tr("Unknown interpolation \"%1\". Supported: linear, constant, tcb.")
                .arg(m_rows.text(m_columns[Interpolation]).left(40)));
    float *const numbers[] = {&shape->tcb.tension, &shape->tcb.continuity, &shape->tcb.bias};
    for (int i = 0; i < 3; ++i) {
        const auto column = Column(Tension + i);
        double number = 0.0;
        if (!cell(column).empty() && !m_rows.number(m_columns[column], &number))
            return false;
        *numbers[i] = float(number);
    }
    return true;
}

bool Reader::readKeyRow()
{
    if (m_rows.count() > int(m_columns.size()))
        return m_rows.fail(int(m_columns.size()), VxFileText::tr("The row has too many cells."));
    const int nodeColumn = m_columns[Node];
    if (cell(Node).empty())
        return m_rows.fail(nodeColumn, VxFileText::tr("The node is missing."));
    if (m_node < 0 || cell(Node) != m_lastNode) {
        m_node = m_motion.node(m_rows.text(nodeColumn), nodeColumn);
        m_lastNode = cell(Node);
        m_property = -1;
    }
    if (m_node < 0 ||
        !m_motion.setParent(m_node, m_rows.text(m_columns[Parent]), m_columns[Parent]) ||
        !m_motion.setKind(m_node, m_rows.text(m_columns[Kind]), m_columns[Kind]) ||
        !m_motion.setOrder(m_node, m_rows.text(m_columns[Order]), m_columns[Order]))
        return false;
    if (cell(Property).empty())
        return (cell(Time).empty() && cell(Value).empty()) ||
               m_rows.fail(m_columns[Property], VxFileText::tr("The property is missing."));
    if (m_property < 0 || cell(Property) != m_lastProperty) {
        m_property =
            m_motion.property(m_node, m_rows.text(m_columns[Property]), m_columns[Property]);
        m_lastProperty = cell(Property);
    }
    double value = 0.0;
    if (m_property < 0)
        return false;
    if (cell(Value).empty())
        return m_rows.fail(m_columns[Value], VxFileText::tr("The value is missing."));
    if (!m_rows.number(m_columns[Value], &value))
        return false;
    if (cell(Time).empty())
        return m_motion.setValue(m_property, value, m_columns[Value]);
    double time = 0.0;
    VxMotionShape shape;
    return m_rows.number(m_columns[Time], &time) && readShape(&shape) &&
           m_motion.addKey(m_property, time, value, shape, m_columns[Time]);
}

bool Reader::readKeys()
{
    if (!readColumns())
        return false;
    while (m_rows.next()) {
        if (!readKeyRow() || !reportProgress())
            return false;
    }
    return !m_rows.hasFailed();
}

/** A header row with an attribute of each column's node. */
bool Reader::readHeaderRow()
{
    const bool isNode = is(m_rows.cell(0), "node:");
    const bool isParent = is(m_rows.cell(0), "parent:");
    const bool isKind = is(m_rows.cell(0), "kind:");
    if (!isNode && !isParent && !isKind && !is(m_rows.cell(0), "order:"))
        return m_rows.fail(
            0, VxFileText::tr("Unknown row \"%1\". Supported: node:, parent:, kind:, order:, time.")
                   .arg(m_rows.text(0).left(40)));
    if (isNode != m_nodes.empty())
        return m_rows.fail(0,
                           VxFileText::tr("The header must have one row \"node:\", as its first."));
    if (isNode)
        m_nodes.assign(std::size_t(m_rows.count()), -1);
    if (m_rows.count() > int(m_nodes.size()))
        return m_rows.fail(int(m_nodes.size()), VxFileText::tr("The row has too many cells."));
    for (int i = 1; i < m_rows.count(); ++i) {
        int &node = m_nodes[std::size_t(i)];
        const QString text = m_rows.text(i);
        if (isNode && text.isEmpty())
            return m_rows.fail(i, VxFileText::tr("The node is missing."));
        if (isNode)
            node = m_motion.node(text, i);
        const bool isGood = isNode     ? node >= 0
                            : isParent ? m_motion.setParent(node, text, i)
                            : isKind   ? m_motion.setKind(node, text, i)
                                       : m_motion.setOrder(node, text, i);
        if (!isGood)
            return false;
    }
    return true;
}

bool Reader::readHeader()
{
    do {
        if (!readHeaderRow())
            return false;
        if (!m_rows.next()) {
            if (!m_rows.hasFailed())
                m_rows.fail(0, VxFileText::tr("The row \"time\" with the properties is missing."));
            return false;
        }
    } while (!is(m_rows.cell(0), "time"));
    if (m_rows.count() != int(m_nodes.size()))
        return m_rows.fail(m_rows.count() - 1,
                           VxFileText::tr("The header's rows have different lengths."));
    int numUsed = 0; // properties are numbered in order of occurrence
    m_properties.assign(m_nodes.size(), -1);
    for (std::size_t i = 1; i < m_nodes.size(); ++i) {
        const int column = int(i);
        const int property = m_motion.property(m_nodes[i], m_rows.text(column), column);
        if (property < 0)
            return false;
        if (property < numUsed)
            return m_rows.fail(column, VxFileText::tr("The property has a column already."));
        ++numUsed;
        m_properties[i] = property;
    }
    return true;
}

bool Reader::readFrame()
{
    if (m_rows.count() > int(m_properties.size()))
        return m_rows.fail(int(m_properties.size()), VxFileText::tr("The row has too many cells."));
    double time = 0.0;
    if (!m_rows.number(0, &time))
        return false;
    if (m_numRows > 0 && time <= m_lastTime)
        return m_rows.fail(0, VxFileText::tr("The times must ascend."));
    m_lastTime = time;
    for (int i = 1; i < m_rows.count(); ++i) {
        double value = 0.0;
        if (m_rows.cell(i).empty())
            continue;
        if (!m_rows.number(i, &value) ||
            !m_motion.addKey(m_properties[std::size_t(i)], time, value, {}, 0))
            return false;
    }
    return true;
}

bool Reader::readFrames()
{
    if (!readHeader())
        return false;
    while (m_rows.next()) {
        if (!readFrame() || !reportProgress())
            return false;
    }
    if (m_rows.hasFailed())
        return false;
    m_motion.dropConstantKeys();
    return true;
}

bool Reader::read(VxImportedMotion *motion)
{
    if (!m_rows.next())
        return m_rows.hasFailed() ? false : m_rows.fail(0, VxFileText::tr("The file is empty."));
    const bool isTable = is(m_rows.cell(0), "node:");
    if (!(isTable ? readFrames() : readKeys()))
        return false;
    m_motion.finish(isTable ? VxFileText::tr("CSV, one row a frame")
                            : VxFileText::tr("CSV, one row a key"),
                    motion);
    if (!motion->nodes.empty())
        return true;
    return m_rows.fail(0, VxFileText::tr("The file has no nodes."));
}

} // namespace

bool vxReadCsv(const QByteArray &bytes, const VxFileProgress &progress, VxImportedMotion *motion,
               VxFileError *error)
{
    VxImportedMotion read;
    if (!Reader(bytes, progress, error).read(&read))
        return false;
    *motion = std::move(read);
    return true;
}
