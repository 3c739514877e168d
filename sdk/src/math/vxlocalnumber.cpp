#include <vxcore/vxlocalnumber.h>

#include <QtCore/QLocale>

QString vxLocalNumber(QString plain)
{
    return plain.replace(QLatin1Char('.'), QLocale().decimalPoint());
}
