#ifndef FIELDTEXTFIT_H
#define FIELDTEXTFIT_H

#include <QtCore/QObject>
#include <QtGui/QFont>

class QAbstractSpinBox;
class QLineEdit;

// The font in which a text of that many pixels, set in font, goes into the width that there is:
// the same one when it fits, else a smaller one, and from seven tenths of its size on a narrower
// one as well.
QFont fontForWidth(const QFont &font, int textWidth, int width);

// Keeps the number in a narrow field readable as a whole: the pane's fields are a few digits wide,
// while scenes have up to a million frames. The digits become smaller as the number grows, so none
// is hidden beyond the edge. Owned by the field, whose own font stays what it is.
//
// The font is looked at when the field is painted: a spin box that is given a value tells nobody of
// its text.
class FieldTextFit : public QObject
{
    Q_OBJECT
public:
    explicit FieldTextFit(QAbstractSpinBox *field);
    ~FieldTextFit() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();

    QAbstractSpinBox *m_field;
    QLineEdit *m_edit;
};

#endif
