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

bool vxFail(VxFileError *error, const QString &message, const QString &file)
{
    *error = VxFileError();
    error->file = file;
    error->message = message;
    return false;
}

bool vxCancel(VxFileError *error, const QString &message, const QString &file)
{
    vxFail(error, message, file);
    error->cancelled = true;
    return false;
}

bool vxFail(QString *message, const QString &text)
{
    if (message)
        *message = text;
    return false;
}
