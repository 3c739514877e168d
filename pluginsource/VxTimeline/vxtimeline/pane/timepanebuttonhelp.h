#ifndef TIMEPANEBUTTONHELP_H
#define TIMEPANEBUTTONHELP_H

#include <QtCore/QObject>
#include <QtCore/QString>

class QWidget;

// Lets the tool tip of a button tell the shortcut of the command that does the same.
//
// Shortcuts belong to the actions and may be changed at any time, so the tip is completed only when
// it is about to be shown.
class TimePaneButtonHelp : public QObject
{
public:
    // Gives every button of the pane its help. Once, when the buttons have their names and tips.
    static void attach(QWidget *pane);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    TimePaneButtonHelp(QWidget *button, const QString &actionClass);

    QString m_text; // the tip without a shortcut
    QString m_actionClass;
};

#endif
