#ifndef WHEELFOCUSFILTER_H
#define WHEELFOCUSFILTER_H

#include <QtCore/QObject>

/// Lets the mouse wheel change number fields, sliders and combo boxes only while they have the
/// focus, in every window of the application, plug-ins' panes included.
///
/// Without the focus the wheel event is passed to the widgets around the field, so that a list
/// keeps scrolling under the mouse, and does not focus the field. Scroll bars are not affected.
class WheelFocusFilter : public QObject
{
public:
    /// Watches the whole application; there must be one.
    explicit WheelFocusFilter(QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;
};

#endif
