#include "io/csv/vxcsvexport.h"

#include "io/csv/vxcsvnames.h"
#include "io/csv/vxcsvrows.h"
#include "io/motion/vxframetimes.h"
#include "io/motion/vxkeptrate.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"
#include "io/vxtextbytes.h"

#include <QHash>
#include <algorithm>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxsafefile.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

constexpr int CsvPieceBytes = 1 << 16;
/// Larger files are impractical: several GB of text.
constexpr qint64 MaxCsvValues = 200 * 1000 * 1000;

/// One node of the file, as cells.
struct Row
{
    QByteArray name;
    QByteArray parent;
    QByteArray kind;
    QByteArray order;
    double rate = 0.0; ///< the kept one; 0: the scene's
};

/// One property of a node: a control's value plus a constant, or the constant alone.
struct Column
{
    std::size_t row;
    QByteArray property; ///< as a cell
    const VxFloatProperty *control = nullptr;
    float constant = 0.0f;

    const VxFloatProperty *holder() const
    {
        return qobject_cast<const VxFloatProperty *>(control->getKeyHolder());
    }
    bool isSampled() const { return control && (control->isLinked() || holder()->isLinked()); }
    bool isAnimated() const { return isSampled() || (control && holder()->getNumKeys() > 0); }
    float at(VxTime time) const { return control ? control->getValue(time) + constant : constant; }
};

/// The nodes and columns of one file.
class Table
{
public:
    void addNodes(const VxScene *scene, const VxNode *root);
    const std::vector<Row> &rows() const { return m_rows; }
    const std::vector<Column> &columns() const { return m_columns; }
    /// The kept rate of all nodes; 0 if some have different ones.
    double commonRate() const;

private:
    void addNode(const VxNode *node, VxTime step);
    void addColumns(const VxNode *node);
    void addVisibility(const VxNode *node);
    void addMorphs(const VxNode *node);
    void addFurther(const VxNode *node);
    /// Omits the column when it always equals a reader's default.
    void add(const QString &property, const VxFloatProperty *control, float constant, float usual);

    std::vector<Row> m_rows;
    std::vector<Column> m_columns;
    QHash<const VxNode *, std::size_t> m_rowOf;
    VxCsvNames::Numbering m_names;
};

void Table::addNodes(const VxScene *scene, const VxNode *root)
{
    for (const VxNode *node : vxNodesToExport(scene, root))
        addNode(node, scene->getTimeStep());
}

double Table::commonRate() const
{
    const bool isCommon = std::all_of(m_rows.begin(), m_rows.end(), [this](const Row &row) {
        return row.rate == m_rows.front().rate;
    });
    return isCommon ? m_rows.front().rate : 0.0;
}

void Table::addNode(const VxNode *node, VxTime step)
{
    const QString name = node->getLabel();
    const bool isFigure = qobject_cast<const VxSkeleton *>(node) != nullptr;
    const bool isBone = qobject_cast<const VxBone *>(node) != nullptr;
    Row row;
    row.name = vxCsvCell(VxCsvNames::escaped(name, m_names.next(name)));
    const auto parent = m_rowOf.constFind(node->getNodeParent());
    const bool isTop = parent == m_rowOf.constEnd();
    if (!isTop)
        row.parent = m_rows[*parent].name;
    row.rate = isTop ? vxKeptRate(node, step) : vxKeptRate(node, step, m_rows[*parent].rate);
    row.kind = VxCsvNames::kindName(isFigure ? VxMotionNode::Skeleton
                                    : isBone ? VxMotionNode::Bone
                                             : VxMotionNode::Node)
                   .toLatin1();
    row.order = VxCsvNames::orderName(node->getRotationOrder()).toLatin1();
    m_rowOf.insert(node, m_rows.size());
    m_rows.push_back(row);
    const std::size_t before = m_columns.size();
    addColumns(node);
    addVisibility(node);
    addMorphs(node);
    addFurther(node);
    // A table of frames can mention the node only in a column.
    if (m_columns.size() == before)
        m_columns.push_back(
            {m_rows.size() - 1, VxCsvNames::nameOf(VxMotionTarget::XTranslate).toLatin1()});
}

void Table::add(const QString &property, const VxFloatProperty *control, float constant,
                float usual)
{
    const Column column{m_rows.size() - 1, vxCsvCell(property), control, constant};
    if (column.isAnimated() || column.at(0) != usual)
        m_columns.push_back(column);
}

void Table::addColumns(const VxNode *node)
{
    for (int i = 0; i < 10; ++i)
        add(VxCsvNames::nameOf(VxMotionTarget(i)), node->getTransformControl(i),
            i < 3 ? node->getOrigin()[i] : 0.0f, i < 6 ? 0.0f : 1.0f);
    const QVector3D end = node->getEndPoint();
    const bool isBone = qobject_cast<const VxBone *>(node) != nullptr;
    for (int axis = 0; axis < 3 && (isBone || !end.isNull()); ++axis)
        m_columns.push_back(
            {m_rows.size() - 1, VxCsvNames::endName(axis).toLatin1(), nullptr, end[axis]});
}

void Table::addVisibility(const VxNode *node)
{
    if (!node->isVisible())
        m_columns.push_back({m_rows.size() - 1, VxCsvNames::VisibleName, nullptr, 0.0f});
}

void Table::addMorphs(const VxNode *node)
{
    VxCsvNames::Numbering names;
    for (const VxMorph *morph : vxMorphsOf(node)) {
        const QString name = morph->getLabel();
        m_columns.push_back({m_rows.size() - 1,
                             vxCsvCell(QLatin1String(VxCsvNames::MorphPrefix) +
                                       VxCsvNames::escaped(name, names.next(name))),
                             morph->getValueControl()});
    }
}

/** Numbers other than transform controls. */
void Table::addFurther(const VxNode *node)
{
    VxCsvNames::Numbering names;
    const QVector<VxProperty *> properties = node->getMadeProperties();
    for (const VxProperty *property : properties) {
        const auto *number = qobject_cast<const VxFloatProperty *>(property);
        if (!number || number->getAxis() != VxFloatProperty::NoAxis)
            continue;
        const QString name = number->getName();
        m_columns.push_back(
            {m_rows.size() - 1,
             vxCsvCell(QLatin1String(VxCsvNames::PropertyPrefix) +
                       VxCsvNames::escapedInGroup(number->getPath(), name, names.next(name))),
             number});
    }
}

/// Writes a table to a file.
class Writer
{
public:
    Writer(const VxMotionSource &source, VxSafeFile *file)
        : m_source(source)
        , m_file(file)
    {
    }

    /// False when cancelled or when the file refused bytes.
    bool writeKeys(const Table &table);
    bool writeFrames(const Table &table);

    qint64 numKeys() const { return m_numKeys; }
    int numSampled() const { return m_numSampled; }

private:
    void appendKeys(const Row &row, const Column &column, QByteArray *text);
    void appendSamples(const QByteArray &head, const Column &column, const VxFrameTimes &frames,
                       QByteArray *text);
    VxFrameTimes frames(double rate) const
    {
        return {m_source.range, m_source.scene->getTimeStep(), rate};
    }
    bool reportProgress(std::size_t done, std::size_t all) const
    {
        return !m_source.progress || m_source.progress(int(done * 100 / all));
    }
    bool flush(QByteArray *text);

    const VxMotionSource &m_source;
    VxSafeFile *const m_file;
    qint64 m_numKeys = 0;
    int m_numSampled = 0;
};

bool Writer::flush(QByteArray *text)
{
    m_file->write(*text);
    text->resize(0);
    return m_file->failure().isEmpty();
}

void Writer::appendSamples(const QByteArray &head, const Column &column, const VxFrameTimes &frames,
                           QByteArray *text)
{
    ++m_numSampled;
    for (const VxTime time : frames.all()) {
        text->append(head);
        vxAppendNumber(text, frames.seconds(time));
        text->append(',');
        vxAppendNumber(text, column.at(time));
        text->append(",linear,,,\n");
        ++m_numKeys;
    }
}

void Writer::appendKeys(const Row &row, const Column &column, QByteArray *text)
{
    static const char *const types[] = {",linear,", ",constant,", ",tcb,"};
    const QByteArray head = row.name + ",,,," + column.property + ',';
    if (!column.isAnimated()) {
        text->append(head + ',');
        vxAppendNumber(text, column.at(0));
        text->append(",,,,\n");
        return;
    }
    if (column.isSampled()) {
        appendSamples(head, column, frames(row.rate), text);
        return;
    }
    const VxFrameTimes rowFrames = frames(row.rate);
    const VxFloatProperty *holder = column.holder();
    const VxKeyColumns<float> keys = holder->getKeys();
    // A smooth curve's tangent at a key depends on the keys on either side of it.
    const VxTime *const end = keys.times + keys.count;
    const auto first = std::lower_bound(keys.times, end, m_source.range.getStart()) - keys.times;
    const auto last = std::upper_bound(keys.times, end, m_source.range.getEnd()) - keys.times;
    const int to = std::min(keys.count, int(last) + 2);
    for (int i = std::max(0, int(first) - 2); i < to; ++i) {
        text->append(head);
        vxAppendNumber(text, rowFrames.seconds(keys.times[i]));
        text->append(',');
        vxAppendNumber(text, keys.values[i] + column.constant);
        const int type = keys.types ? keys.types[i] : int(VxKeyInterp::Linear);
        text->append(types[type]);
        const VxTcb tcb = keys.tcb ? keys.tcb[i] : VxTcb();
        if (tcb != VxTcb()) {
            vxAppendNumber(text, tcb.tension);
            text->append(',');
            vxAppendNumber(text, tcb.continuity);
            text->append(',');
            vxAppendNumber(text, tcb.bias);
            text->append('\n');
        } else {
            text->append(",,\n");
        }
        ++m_numKeys;
    }
}

bool Writer::writeKeys(const Table &table)
{
    QByteArray text = "node,parent,kind,order,property,time,value,interpolation,tension,"
                      "continuity,bias\n";
    std::size_t described = 0;
    const std::vector<Column> &columns = table.columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Row &row = table.rows()[columns[i].row];
        if (columns[i].row == described) {
            text += row.name + ',' + row.parent + ',' + row.kind + ',' + row.order + ",,,,,,,\n";
            ++described;
        }
        appendKeys(row, columns[i], &text);
        if (text.size() >= CsvPieceBytes && !(reportProgress(i, columns.size()) && flush(&text)))
            return false;
    }
    return flush(&text);
}

bool Writer::writeFrames(const Table &table)
{
    QByteArray text;
    const std::vector<Column> &columns = table.columns();
    const auto appendHeader = [&](const char *name, QByteArray Row::*cell) {
        text.append(name);
        for (const Column &column : columns)
            text.append(',').append(table.rows()[column.row].*cell);
        text.append('\n');
    };
    appendHeader("node:", &Row::name);
    appendHeader("parent:", &Row::parent);
    appendHeader("kind:", &Row::kind);
    appendHeader("order:", &Row::order);
    text.append("time");
    for (const Column &column : columns)
        text.append(',').append(column.property);
    text.append('\n');
    const VxFrameTimes frames = this->frames(table.commonRate());
    const std::vector<VxTime> times = frames.all();
    for (std::size_t i = 0; i < times.size(); ++i) {
        vxAppendNumber(&text, frames.seconds(times[i]));
        for (const Column &column : columns) {
            text.append(',');
            vxAppendNumber(&text, column.at(times[i]));
        }
        text.append('\n');
        if (text.size() >= CsvPieceBytes && !(reportProgress(i, times.size()) && flush(&text)))
            return false;
    }
    m_numKeys = qint64(times.size());
    return flush(&text);
}

bool write(const VxMotionSource &source, VxSafeFile *file, QString *summary, VxFileError *error)
{
    const VxTimeRange &range = source.range;
    if (source.scene->getNumNodes() == 0)
        return vxFail(error, VxFileText::tr("The scene is empty."));
    Table table;
    table.addNodes(source.scene, source.root);
    const qint64 numFrames =
        (qint64(range.getEnd()) - range.getStart()) / source.scene->getTimeStep() + 1;
    if (source.hasRowPerFrame && numFrames > MaxCsvValues / qint64(table.columns().size()))
        return vxFail(error, VxFileText::tr("The motion is too long: %1 frames of %2 properties.")
                                 .arg(numFrames)
                                 .arg(table.columns().size()));
    Writer writer(source, file);
    if (!(source.hasRowPerFrame ? writer.writeFrames(table) : writer.writeKeys(table)))
        return vxCancel(error, VxFileText::tr("The export was cancelled."));
    *summary =
        VxFileText::tr("%1, %2.", "nodes and frames or keys, each with its number")
            .arg(VxFileText::tr("%n nodes", nullptr, int(table.rows().size())),
                 source.hasRowPerFrame ? VxFileText::tr("%n frames", nullptr, int(writer.numKeys()))
                                       : VxFileText::tr("%n keys", nullptr, int(writer.numKeys())));
    if (writer.numSampled() > 0 && !source.hasRowPerFrame)
        *summary +=
            QLatin1Char(' ') + VxFileText::tr("%n linked properties were sampled once a frame.",
                                              nullptr, writer.numSampled());
    return true;
}

} // namespace

bool vxWriteCsv(const VxMotionSource &source, const QString &fileName, QString *summary,
                VxFileError *error)
{
    VxSafeFile file(fileName);
    return (file.start() && write(source, &file, summary, error) && file.commit()) ||
           (!file.failure().isEmpty() &&
            vxFail(error,
                   VxFileText::tr("The file could not be written: %1.").arg(file.failure())));
}
