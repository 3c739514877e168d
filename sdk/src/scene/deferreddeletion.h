#ifndef DEFERREDDELETION_H
#define DEFERREDDELETION_H

#include <QtCore/QObject>
#include <QtCore/QVector>

/// During its lifetime, scene objects passed to discard() stay alive, so that a change can report
/// them whatever its listeners do: a listener may remove the very node that is being reported, and
/// later listeners are still called with that node, then outside of the scene. The end of the
/// outermost instance destroys the discarded objects.
///
/// Every function that changes the scene and continues after a signal makes one first. GUI thread
/// only.
class DeferredDeletion
{
public:
    DeferredDeletion();
    ~DeferredDeletion();
    DeferredDeletion(const DeferredDeletion &) = delete;
    DeferredDeletion &operator=(const DeferredDeletion &) = delete;

    /// Destroys an object without an owner: now, or at the end of the outermost DeferredDeletion.
    /// Null is ignored.
    static void discard(QObject *object);
    template <class Objects> static void discardAll(const Objects &objects)
    {
        for (QObject *object : objects)
            discard(object);
    }
};

#endif
