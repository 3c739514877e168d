#include "io/vxfileerror.h"

#include <QCoreApplication>

QString VxFileError::text() const
{
    const char *context = "VxFileError";
    QString place = file;
    const auto append = [&place](const QString &part) {
        place += place.isEmpty() ? part : QStringLiteral(", ") + part;
    };
    if (line >= 0)
        append(QCoreApplication::translate(context, "line %1").arg(line));
    if (column >= 0)
        append(QCoreApplication::translate(context, "column %1").arg(column));
    if (offset >= 0)
        append(QCoreApplication::translate(context, "byte %1").arg(offset));
    return place.isEmpty() ? message : place + QStringLiteral(": ") + message;
}
