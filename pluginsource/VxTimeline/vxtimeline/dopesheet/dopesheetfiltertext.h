#ifndef DOPESHEETFILTERTEXT_H
#define DOPESHEETFILTERTEXT_H

#include <QtCore/QRegExp>
#include <QtCore/QString>

// The pattern that a text typed into the filter field stands for; see
// VxDopeSheetView::applyFilterText(). Empty text gives an empty pattern, which every name matches.
QRegExp dopeSheetFilterPattern(const QString &text);

#endif
