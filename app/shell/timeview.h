#ifndef TIMEVIEW_H
#define TIMEVIEW_H

#include <QString>
#include <vxcore/vxtimedisplay.h>

class VxKeySelection;
class VxScene;

/// Commands for navigation along the time axis: the play range is the visible range.
///
/// The play range is changed without an undo entry, and the current time stays. Each command that
/// can fail returns the reason as a sentence for the status line; empty on success.
namespace TimeView {

/// Shows the whole animation.
void showAll(VxScene *scene);

/// Shows the selected keys with a small margin on both sides, in whole frames.
QString zoomToKeys(VxScene *scene, const VxKeySelection &selection);

/// Stores the present play range as a view of the document: an undo entry. number: from 1 on.
void storeView(VxScene *scene, int number);
/// Shows a stored view.
QString showView(VxScene *scene, int number);

/// Sets how times are shown: an undo entry of the document.
void setDisplay(VxScene *scene, const VxTimeDisplay &display);

} // namespace TimeView

#endif
