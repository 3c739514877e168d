#include "scene/deferreddeletion.h"

#include <QtCore/QPointer>

namespace {

int depth = 0;

QVector<QPointer<QObject>> &discarded()
{
    static QVector<QPointer<QObject>> list;
    return list;
}

} // namespace

DeferredDeletion::DeferredDeletion()
{
    ++depth;
}

DeferredDeletion::~DeferredDeletion()
{
    // Destruction sends signals, whose receivers may discard more.
    while (depth == 1 && !discarded().isEmpty()) {
        const QVector<QPointer<QObject>> list = std::move(discarded());
        discarded().clear();
        for (const QPointer<QObject> &object : list)
            delete object.data();
    }
    --depth;
}

void DeferredDeletion::discard(QObject *object)
{
    if (depth == 0)
        delete object;
    else if (object)
        discarded().append(object);
}
