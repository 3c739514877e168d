#ifndef TIMEPANEBUTTONHELP_H
#define TIMEPANEBUTTONHELP_H

#include <QtCore/QObject>
#include <QtCore/QString>

class QWidget;

/// Adds the shortcut of the equivalent command to the tool tip of a button.
///
/// Shortcuts belong to the actions and may change at any time, so the tip is completed just before
/// it is shown.
class TimePaneButtonHelp : public QObject
{
public:
    /// Gives every button of the pane its help. Call it once, after the names and tips are set.
    static void attach(QWidget *pane);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    TimePaneButtonHelp(QWidget *button, const QString &actionClass);

    QString m_text; // the tip without a shortcut
    QString m_actionClass;
};

#endif
