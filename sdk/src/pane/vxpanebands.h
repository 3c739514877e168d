#ifndef VXPANEBANDS_H
#define VXPANEBANDS_H

#include <QtCore/QRect>

/// Where the header and footer bands of a pane's background lie. All in the pane's coordinates.
namespace VxPaneBands {

/** From the pane's top down to the guide's upper edge, the guide's first row not included; empty
 *  when the guide begins at or above the top. Cut off at the pane's bottom. */
QRect header(const QRect &pane, const QRect &guide);

/** From the row below the guide's last one down to the pane's bottom; empty when the guide ends at
 *  or below the bottom. Cut off at the pane's top. */
QRect footer(const QRect &pane, const QRect &guide);

} // namespace VxPaneBands

#endif
