#ifndef VXPANEBANDS_H
#define VXPANEBANDS_H

#include <QtCore/QRect>
#include <vxcore/vxcoreglobal.h>

/// Where the header and footer bands of a pane's background lie. All in the pane's coordinates.
namespace VxPaneBands {

/** From the pane's top down to the guide's upper edge, the guide's first row not included; empty
 *  when the guide begins at or above the top. Cut off at the pane's bottom. */
VXCORE_EXPORT QRect header(const QRect &pane, const QRect &guide);

/** From the row below the guide's last one down to the pane's bottom; empty when the guide ends at
 *  or below the bottom. Cut off at the pane's top. */
VXCORE_EXPORT QRect footer(const QRect &pane, const QRect &guide);

} // namespace VxPaneBands

#endif
