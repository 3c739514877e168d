#ifndef SCENE_DEFERREDDELETION_H
#define SCENE_DEFERREDDELETION_H

#include <QtCore/QObject>
#include <QtCore/QVector>

/// While one lives, objects of the scene that are given to discard() stay alive, so that a change
/// can announce them whatever its listeners do: a listener may remove the very node that is being
/// announced, and the listeners after it are still called with that node. They find it outside of
/// the scene. The end of the outermost one destroys what was discarded.
///
/// Every function that changes the scene and goes on after a signal makes one first. GUI thread
/// only.
class DeferredDeletion
{
public:
    DeferredDeletion();
    ~DeferredDeletion();
    DeferredDeletion(const DeferredDeletion &) = delete;
    DeferredDeletion &operator=(const DeferredDeletion &) = delete;

    /// Destroys an object that nothing owns any more: now, or at the end of the outermost
    /// DeferredDeletion. Null is ignored.
    static void discard(QObject *object);
    template <class Objects> static void discardAll(const Objects &objects)
    {
        for (QObject *object : objects)
            discard(object);
    }
};

#endif
