#ifndef VXLOCALNUMBER_H
#define VXLOCALNUMBER_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>

/// A number in plain form, such as "-1.5%", with the decimal point of QLocale(), for displays of
/// the host. The fields of the Timeline pane, files, scripts and the clipboard have plain numbers.
/// Typed input is read in both forms.
VXCORE_EXPORT QString vxLocalNumber(QString plain);

#endif
