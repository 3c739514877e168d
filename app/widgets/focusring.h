#ifndef FOCUSRING_H
#define FOCUSRING_H

#include <QObject>
#include <QPointer>
#include <QVector>

class QWidget;

/// A ring around the widget that has the focus, for those that do not show it themselves: lists,
/// trees, text areas and views. It appears when the keyboard moved the focus, and is laid over the
/// widget, whose painting stays as it is.
class FocusRing : public QObject
{
    Q_OBJECT
public:
    explicit FocusRing(QObject *parent);
    ~FocusRing() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow(QWidget *widget);
    void leave();
    void updateFrame();

    QPointer<QWidget> m_frame; // a child of the focus widget's window
    QPointer<QWidget> m_widget;
    QVector<QPointer<QWidget>> m_watched; // the widget and those around it
};

#endif
