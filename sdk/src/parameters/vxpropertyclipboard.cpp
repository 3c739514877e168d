#include "parameters/vxpropertyclipboard.h"

#include "parameters/vxpropertyhints.h"
#include "parameters/vxpropertyvalue.h"

#include <QtCore/QStringList>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxtypedinput.h>
#include <vxcore/vxundostackhold.h>

namespace {

QStringList linesOf(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    while (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text.split(QLatin1Char('\n'));
}

/// Sets a row's value; returns the first error as a sentence.
QString pasteInto(const VxPropertyClipboard::Row &row, VxTime time, const QString &line)
{
    QString trouble;
    int refused = 0, locked = 0;
    for (VxProperty *property : row) {
        const VxPropertyValue::Result result = VxPropertyValue::setText(property, time, line);
        if (result == VxPropertyValue::Unreadable)
            return VxPropertyHints::unreadable(line);
        if (result == VxPropertyValue::Limited && trouble.isEmpty())
            trouble = VxPropertyHints::limits(static_cast<VxNumericProperty *>(property),
                                              VxTypedInput::read(line).amount);
        refused += result == VxPropertyValue::Refused;
        locked += !VxPropertyValue::isEditable(property);
    }
    if (trouble.isEmpty() && refused > 0)
        trouble = VxPropertyHints::refusal(row.first()->getLabel(), refused, locked, row.size());
    return trouble;
}

} // namespace

QString VxPropertyClipboard::text(const QVector<Row> &rows, VxTime time)
{
    QStringList lines;
    for (const Row &row : rows) {
        if (!row.isEmpty())
            lines.append(VxPropertyValue::fullText(row.first(), time));
    }
    return lines.join(QLatin1Char('\n'));
}

QString VxPropertyClipboard::paste(const QVector<Row> &rows, VxTime time, const QString &text)
{
    const QStringList lines = linesOf(text);
    if (lines.size() != 1 && lines.size() != rows.size())
        return VxParametersPane::tr("%1 values cannot be pasted into %2 rows.")
            .arg(lines.size())
            .arg(rows.size());
    QString trouble;
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (int i = 0; i < rows.size(); ++i) {
            const QString found = pasteInto(rows.at(i), time, lines.value(i, lines.first()));
            if (trouble.isEmpty())
                trouble = found;
        }
    }
    hold.accept(VxParametersPane::tr("Paste Value"));
    return trouble;
}
