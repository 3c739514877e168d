#ifndef TIMEPANEFIELDHELP_H
#define TIMEPANEFIELDHELP_H

class QWidget;

// Gives the pane's fields, choices and its time range tool tips that say what they are about. Their
// labels have room for a word at most. Once, when all have their names.
void addTimePaneFieldHelp(const QWidget *pane);

#endif
