#include "vxtimeline/time/vxwarning.h"

#include <QtCore/QtGlobal>

QString vxSourcePath(const QString &fileName)
{
    QString path = fileName;
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const int root = path.lastIndexOf(QLatin1String("\\src\\"));
    if (root >= 0)
        return path.mid(root);
    // A compiler cache passes files relative to the build tree, beyond the mapping of the root.
    const QString up = QStringLiteral("..\\");
    int start = 0;
    while (path.midRef(start).startsWith(up))
        start += up.size();
    return start == 0 ? path : QStringLiteral("\\src\\") + path.mid(start);
}

QString vxFormatWarning(const VxSourcePosition &position, const QString &message)
{
    return QStringLiteral("%1(%2): %3")
        .arg(vxSourcePath(QString::fromUtf8(position.file)), QString::number(position.line),
             message);
}

void vxWarning(const VxSourcePosition &position, const QString &message)
{
    qWarning("%s", qUtf8Printable(vxFormatWarning(position, message)));
}
