#ifndef MARKEREDITS_H
#define MARKEREDITS_H

#include <QString>
#include <QVector>
#include <vxcore/vxmarkers.h>

class VxScene;

/// Edits of a scene's markers by the user: each is one undo entry. Unknown ids are ignored.
namespace MarkerEdits {

/// The colours that menus offer.
struct NamedColor
{
    QString name;
    QRgb color;
};
QVector<NamedColor> namedColors();

/// Adds a point with an unused name, such as "Marker 3", and returns its id.
int add(VxScene *scene, VxTime time);
void remove(VxScene *scene, const QVector<int> &ids);
void rename(VxScene *scene, int id, const QString &name);
void setColor(VxScene *scene, const QVector<int> &ids, QRgb color);
void setSpan(VxScene *scene, int id, const VxTimeRange &span);
/// Makes a point a span, up to the current time when that is later, else one second long; and a
/// span a point at its start.
void toggleSpan(VxScene *scene, int id);

/// Sets the current time to the nearest start or end of a marker after (or before) it, without an
/// undo entry. Returns the reason as a sentence when there is none.
QString step(VxScene *scene, bool forward);

} // namespace MarkerEdits

#endif
