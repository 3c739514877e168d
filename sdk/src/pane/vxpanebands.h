#ifndef VXPANEBANDS_H
#define VXPANEBANDS_H

#include <QtCore/QRect>

/// The header and footer bands of a pane's background. All in the pane's coordinates.
namespace VxPaneBands {

/** From the pane's top to the guide's upper edge, the guide's first row not included; empty when
 *  the guide begins at or above the top. Clipped at the pane's bottom. */
QRect header(const QRect &pane, const QRect &guide);

/** From the row below the guide's last one to the pane's bottom; empty when the guide ends at or
 *  below the bottom. Clipped at the pane's top. */
QRect footer(const QRect &pane, const QRect &guide);

} // namespace VxPaneBands

#endif
