#include "keytools/keytablecells.h"

#include "keytools/keytooltext.h"

#include <algorithm>
#include <charconv>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

using Column = KeyTableColumn;

namespace {

/// A cell's new content.
struct CellEdit
{
    int position; // of the key among those of its track
    Column column;
    VxTypedInput input;
};
/// By track.
using CellEdits = std::vector<std::vector<CellEdit>>;

QStringList typeNames()
{
    return {KeyToolText::tr("Linear"), KeyToolText::tr("Constant"), KeyToolText::tr("TCB")};
}

bool isShape(Column column)
{
    return column >= Column::Tension;
}

template <class Number> QString shortest(Number number)
{
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    return QString::fromLatin1(buffer, int(end - buffer));
}

VxTypedInput readTyped(Column column, const QString &typed)
{
    if (column == Column::Type) {
        const int type = typeNames().indexOf(typed.trimmed());
        if (type < 0)
            return {VxTypedInput::Unreadable, 0};
        return {VxTypedInput::Value, double(type)};
    }
    return column == Column::Time
               ? VxSceneTimeDisplay::read(vxScene, typed, VxTypedInput::OfOffsets)
               : VxTypedInput::read(typed, VxTypedInput::OfOffsets);
}

/// A text as written by text(), where a sign belongs to the value.
VxTypedInput readCell(Column column, const QString &cell)
{
    if (column == Column::Type)
        return readTyped(column, cell);
    return column == Column::Time ? VxSceneTimeDisplay::read(vxScene, cell)
                                  : VxTypedInput::read(cell, VxTypedInput::OfValues);
}

bool isUsable(const VxTypedInput &input)
{
    return input.kind != VxTypedInput::Unreadable && input.kind != VxTypedInput::Empty;
}

KeyToolResult unusable(const QString &message)
{
    KeyToolResult result;
    result.isArgumentError = true;
    result.message = message;
    return result;
}

/// Sets types, tension, continuity and bias. Types first: the others are set on the keys that
/// become TCB keys.
void setShapes(VxFittedKeys *keys, const std::vector<CellEdit> &edits)
{
    keys->tcb.resize(keys->times.size());
    for (const CellEdit &edit : edits) {
        if (edit.column == Column::Type)
            keys->types[std::size_t(edit.position)] = quint8(edit.input.amount);
    }
    for (const CellEdit &edit : edits) {
        VxTcb &tcb = keys->tcb[std::size_t(edit.position)];
        const auto set = [&edit](float *part) {
            *part = float(edit.input.appliedTo(double(*part)));
        };
        if (edit.column == Column::Tension)
            set(&tcb.tension);
        else if (edit.column == Column::Continuity)
            set(&tcb.continuity);
        else if (edit.column == Column::Bias)
            set(&tcb.bias);
    }
}

void setTimesAndValues(KeySeries *keys, const std::vector<CellEdit> &edits)
{
    for (const CellEdit &edit : edits) {
        const auto at = std::size_t(edit.position);
        if (edit.column == Column::Time)
            keys->times[at] = wholeTick(edit.input.appliedTo(keys->times[at]));
        else if (edit.column == Column::Value)
            keys->values[at] = edit.input.appliedTo(keys->values[at]);
    }
}

KeyToolResult applyEdits(const KeyTableRows &rows, const CellEdits &edits)
{
    KeyToolRun run(rows.targets());
    int cells = 0;
    for (std::size_t track = 0; track < edits.size(); ++track) {
        const std::vector<CellEdit> &own = edits[track];
        cells += int(own.size());
        const auto changesShape = [](const CellEdit &edit) { return edit.column >= Column::Type; };
        const auto shapes = std::count_if(own.begin(), own.end(), changesShape);
        if (shapes > 0)
            run.rewrite(track, [&own](VxFittedKeys *keys) { setShapes(keys, own); });
        if (std::size_t(shapes) < own.size())
            run.edit(track, [&own](KeySeries *keys) { setTimesAndValues(keys, own); });
    }
    run.addNote(KeyToolText::tr("; cells set: %1").arg(cells));
    return run.finish(KeyToolText::tr("Edit Keys"));
}

} // namespace

QString KeyTableCells::valueText(const VxNumericProperty &property, int index)
{
    if (const auto *number = qobject_cast<const VxFloatProperty *>(&property))
        return shortest(number->getKeyValue(index));
    return shortest(static_cast<const VxIntProperty &>(property).getKeyValue(index));
}

QString KeyTableCells::text(const KeyTableRows &rows, int row, Column column,
                            const VxTimeDisplay &display)
{
    const KeyTableRows::Key key = rows.at(row);
    if (!rows.property(key.track))
        return QString();
    const VxNumericProperty &property = *rows.property(key.track);
    switch (column) {
    case Column::Node:
        return rows.nodeName(key.track);
    case Column::Property:
        return rows.propertyName(key.track);
    case Column::Time:
        return display.text(property.getKeyTime(key.index), vxScene->getTimeStep());
    case Column::Value:
        return valueText(property, key.index);
    default:
        break;
    }
    float parts[3] = {};
    const int type = property.getKeyInterpolationType(key.index, parts, parts + 1, parts + 2);
    if (column == Column::Type)
        return typeNames().value(type);
    return type == VxKeyInterp::Tcb ? shortest(parts[int(column) - int(Column::Tension)])
                                    : QString();
}

QString KeyTableCells::title(Column column)
{
    static const char *const titles[KeyTableColumns] = {
        QT_TRANSLATE_NOOP("KeyToolText", "Node"),
        QT_TRANSLATE_NOOP("KeyToolText", "Property"),
        QT_TRANSLATE_NOOP("KeyToolText", "Time"),
        QT_TRANSLATE_NOOP("KeyToolText", "Value"),
        QT_TRANSLATE_NOOP("KeyToolText", "Type"),
        QT_TRANSLATE_NOOP("KeyToolText", "Tension"),
        QT_TRANSLATE_NOOP("KeyToolText", "Continuity"),
        QT_TRANSLATE_NOOP("KeyToolText", "Bias")};
    return KeyToolText::tr(titles[int(column)]);
}

bool KeyTableCells::isReadOnly(const KeyTableRows &rows, int row)
{
    const VxNumericProperty *property = rows.property(rows.at(row).track);
    return !property || KeyTargets::isReadOnly(*property);
}

bool KeyTableCells::isEditable(const KeyTableRows &rows, int row, Column column)
{
    if (column == Column::Node || column == Column::Property || isReadOnly(rows, row))
        return false;
    if (column == Column::Time || column == Column::Value)
        return true;
    const KeyTableRows::Key key = rows.at(row);
    const auto *property = qobject_cast<const VxFloatProperty *>(rows.property(key.track));
    return property && (column == Column::Type ||
                        property->getKeyInterpolationType(key.index) == VxKeyInterp::Tcb);
}

KeyToolResult KeyTableCells::setColumn(const KeyTableRows &rows, const std::vector<int> &rowNumbers,
                                       Column column, const QString &typed)
{
    const VxTypedInput input = readTyped(column, typed);
    if (!isUsable(input))
        return unusable(KeyToolText::tr("\"%1\" cannot be used for %2").arg(typed, title(column)));
    CellEdits edits(rows.targets().tracks.size());
    for (const int row : rowNumbers) {
        if (!isEditable(rows, row, column))
            continue;
        const KeyTableRows::Key key = rows.at(row);
        edits[std::size_t(key.track)].push_back({key.position, column, input});
    }
    return applyEdits(rows, edits);
}

QString KeyTableCells::copied(const KeyTableRows &rows, const std::vector<int> &rowNumbers,
                              const VxTimeDisplay &display)
{
    QString all;
    for (const int row : rowNumbers) {
        for (int column = 0; column < KeyTableColumns; ++column) {
            all += text(rows, row, Column(column), display);
            all += QLatin1Char(column + 1 < KeyTableColumns ? '\t' : '\n');
        }
    }
    return all;
}

KeyToolResult KeyTableCells::paste(const KeyTableRows &rows, int firstRow, Column firstColumn,
                                   const QString &text)
{
    CellEdits edits(rows.targets().tracks.size());
    const auto place = [](int row, Column column) {
        return KeyToolText::tr("Row %1, %2: ").arg(row + 1).arg(title(column));
    };
    int row = firstRow;
    const QVector<QStringRef> lines = text.splitRef(QLatin1Char('\n'));
    for (int line = 0; line < lines.size(); ++line, ++row) {
        QStringRef cells = lines[line];
        if (cells.endsWith(QLatin1Char('\r')))
            cells.chop(1);
        if (line + 1 == lines.size() && cells.isEmpty())
            break;
        if (row >= rows.count())
            return unusable(
                KeyToolText::tr("The text has more rows than the table below the current row"));
        const KeyTableRows::Key key = rows.at(row);
        int number = int(firstColumn);
        // A type that is pasted too decides whether the key has tension, continuity and bias.
        bool hasShape = isEditable(rows, row, Column::Tension);
        for (const QStringRef &cell : cells.split(QLatin1Char('\t'))) {
            if (number >= KeyTableColumns)
                return unusable(KeyToolText::tr("Row %1: the text has more columns than the table")
                                    .arg(row + 1));
            const auto column = Column(number++);
            const QString typed = cell.toString();
            if (column == Column::Node || column == Column::Property) {
                const QString &name = column == Column::Node ? rows.nodeName(key.track)
                                                             : rows.propertyName(key.track);
                if (typed != name)
                    return unusable(place(row, column) +
                                    KeyToolText::tr("\"%1\" is not \"%2\"").arg(typed, name));
                continue;
            }
            if (isReadOnly(rows, row))
                return unusable(place(row, column) +
                                KeyToolText::tr("the property is locked or linked"));
            if (isShape(column) && typed.isEmpty())
                continue;
            const VxTypedInput input = readCell(column, typed);
            if (!isUsable(input))
                return unusable(place(row, column) +
                                KeyToolText::tr("\"%1\" cannot be used").arg(typed));
            if (column == Column::Type) {
                if (!isEditable(rows, row, column))
                    continue; // whole numbers have one type
                hasShape = int(input.amount) == VxKeyInterp::Tcb;
            }
            if (isShape(column) && !hasShape)
                return unusable(place(row, column) + KeyToolText::tr("only TCB keys have one"));
            edits[std::size_t(key.track)].push_back({key.position, column, input});
        }
    }
    return applyEdits(rows, edits);
}
