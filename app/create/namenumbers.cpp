#include "create/namenumbers.h"

#include <algorithm>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

QString keyOf(const VxCopyName &name)
{
    return name.stem + QChar(QChar::LineFeed) + name.side;
}

} // namespace

NameNumbers::NameNumbers(const VxScene *scene)
{
    for (const VxNode *node : scene->getNodes())
        add(node->getName());
}

void NameNumbers::add(const QString &name)
{
    const VxCopyName parts = VxCopyName::read(name);
    int &highest = m_highest[keyOf(parts)];
    highest = std::max(highest, parts.number);
}

int NameNumbers::nextNumber(const VxCopyName &parts) const
{
    return m_highest.value(keyOf(parts), 0) + 1;
}

QString NameNumbers::take(VxCopyName parts, int number)
{
    parts.number = number;
    QString name = parts.text();
    int &highest = m_highest[keyOf(parts)];
    highest = std::max(highest, number);
    return name;
}

QString NameNumbers::unique(const QString &name)
{
    const VxCopyName parts = VxCopyName::read(name);
    return take(parts, nextNumber(parts));
}

QStringList NameNumbers::copies(const QVector<VxNode *> &nodes)
{
    int number = 2;
    for (const VxNode *node : nodes)
        number = std::max(number, nextNumber(VxCopyName::read(node->getName())));
    QStringList names;
    for (const VxNode *node : nodes) {
        const VxCopyName parts = VxCopyName::read(node->getName());
        names.append(take(parts, std::max(number, nextNumber(parts))));
    }
    return names;
}
