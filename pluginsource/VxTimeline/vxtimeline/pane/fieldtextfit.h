#ifndef FIELDTEXTFIT_H
#define FIELDTEXTFIT_H

#include <QtCore/QObject>
#include <QtGui/QFont>

class QAbstractSpinBox;
class QLineEdit;

/// The font in which a text of textWidth pixels in font fits into width: the same one when it fits,
/// else a smaller one, and below seven tenths of its size a condensed one as well.
QFont fontForWidth(const QFont &font, int textWidth, int width);

/// Keeps the whole number in a narrow field readable: the pane's fields are a few digits wide,
/// while scenes have up to a million frames. The digits become smaller as the number grows, so none
/// is hidden beyond the edge. Owned by the field, whose own font is unchanged.
///
/// The font is updated when the field is painted: setting a spin box's value does not always signal
/// a change of its text.
class FieldTextFit : public QObject
{
    Q_OBJECT
public:
    explicit FieldTextFit(QAbstractSpinBox *field);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();

    QAbstractSpinBox *m_field;
    QLineEdit *m_edit;
};

#endif
