#ifndef TIMEPANEFIELDHELP_H
#define TIMEPANEFIELDHELP_H

class QWidget;

/// Adds explanatory tool tips to the pane's fields, choices and its time range, because their
/// labels have space for a word at most. Call it once, after all names are set.
void addTimePaneFieldHelp(const QWidget *pane);

#endif
