#ifndef DOPESHEETFILTERTEXT_H
#define DOPESHEETFILTERTEXT_H

#include <QtCore/QRegExp>
#include <QtCore/QString>

/// The pattern for a text in the filter field; see VxDopeSheetView::applyFilterText(). Empty text
/// gives an empty pattern, which every name matches.
QRegExp dopeSheetFilterPattern(const QString &text);

#endif
