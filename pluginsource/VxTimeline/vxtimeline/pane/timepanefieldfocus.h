#ifndef TIMEPANEFIELDFOCUS_H
#define TIMEPANEFIELDFOCUS_H

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVector>

class QAbstractSpinBox;
class QWidget;

/// The focus of the pane's number fields, all of them together.
///
/// Return gives the focus back to the view that had it before the first field was entered, so that
/// key commands act on keys again.
class TimePaneFieldFocus : public QObject
{
    Q_OBJECT
public:
    explicit TimePaneFieldFocus(QObject *parent);

    /// Not owned; must live as long as this.
    void add(QAbstractSpinBox *field);

private:
    bool isField(const QWidget *widget) const;
    void handleFocusChanged(QWidget *former, QWidget *present);
    void returnFocus();

    QVector<QAbstractSpinBox *> m_fields;
    QPointer<QWidget> m_former; // null when no other widget had the focus
};

#endif
