#ifndef DIALOGCORNER_H
#define DIALOGCORNER_H

class QDialog;
class QWidget;

/// Places a dialog that is not shown yet in the lower right corner of a widget, where it covers
/// less of a picture that changes with the dialog's values than in the middle. Not outside of the
/// screen.
void placeInCorner(QDialog *dialog, const QWidget *widget);

#endif
