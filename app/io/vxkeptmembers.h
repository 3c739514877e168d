#ifndef VXKEPTMEMBERS_H
#define VXKEPTMEMBERS_H

#include <QByteArray>

class QObject;
class VxScene;

/// Members of a scene file that this version of the program does not support, kept with the scene,
/// node, object, element or property that they belong to and written back when it is saved: names
/// and values as they were in the file. Most have none, which costs nothing.
namespace VxKeptMembers {

QByteArray of(const QObject *owner);
void set(QObject *owner, const QByteArray &members);
/// Those of a scene are dropped when it is cleared.
void setForScene(VxScene *scene, const QByteArray &members);

} // namespace VxKeptMembers

#endif
