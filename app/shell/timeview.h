#ifndef TIMEVIEW_H
#define TIMEVIEW_H

#include <QString>

class VxKeySelection;
class VxScene;

/// Looking around along the time axis by command: the play range is what the time line shows.
///
/// The play range is changed without an undo entry, and the current time stays where it is. Each
/// command that can fail returns the reason as a sentence for the status line; empty on success.
namespace TimeView {

/// Shows the whole animation.
void showAll(VxScene *scene);

/// Shows the selected keys with a little room on both sides, in whole frames.
QString zoomToKeys(VxScene *scene, const VxKeySelection &selection);

/// Stores the present play range as a view of the document: an undo entry. number: from 1 on.
void storeView(VxScene *scene, int number);
/// Shows a stored view.
QString showView(VxScene *scene, int number);

} // namespace TimeView

#endif
