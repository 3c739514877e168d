#include "vxtimeline/time/vxwarning.h"

#include <QtCore/QtGlobal>

QString vxSourcePath(const QString &fileName)
{
    QString path = fileName;
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const int root = path.lastIndexOf(QLatin1String("\\src\\"));
    return root < 0 ? path : path.mid(root);
}

QString vxMethodName(const QString &signature)
{
    const int arguments = signature.indexOf(QLatin1Char('('));
    const QString head = signature.left(arguments < 0 ? signature.size() : arguments);
    // What the function returns may end in a star that stands before the name.
    int start = head.lastIndexOf(QLatin1Char(' ')) + 1;
    while (start < head.size() &&
           (head.at(start) == QLatin1Char('*') || head.at(start) == QLatin1Char('&')))
        ++start;
    return head.mid(start);
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
