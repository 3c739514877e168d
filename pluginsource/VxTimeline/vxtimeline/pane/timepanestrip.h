#ifndef TIMEPANESTRIP_H
#define TIMEPANESTRIP_H

#include <QtCore/QString>

class QHBoxLayout;
class QLabel;
class QWidget;
class VxBarButton;
class VxButtonBar;
class VxStyledButton;

// Makes the parts of which the groups of the pane's strip consist, with the style's measures.
// Object names are what style sheets and scripts use. What is made belongs to the parent that is
// given.
class TimePaneStrip
{
public:
    TimePaneStrip();

    int margin() const { return m_margin; }               // pixels, between and around controls
    int controlHeight() const { return m_controlHeight; } // pixels

    // A widget with a horizontal layout without margins, as all groups of the strip are.
    QWidget *makeGroup(const QString &name, QWidget *parent) const;
    static QHBoxLayout *layoutOf(const QWidget *group);
    QLabel *makeLabel(const QString &name, const QString &text, QWidget *parent) const;
    // A control with its label before it, which is its name for screen readers, too.
    void addLabelled(QHBoxLayout *layout, const QString &name, const QString &text,
                     QWidget *control) const;
    VxButtonBar *makeBar(const QString &name, QWidget *parent) const;
    VxBarButton *addBarButton(VxButtonBar *bar, int index, const QString &name,
                              const QString &toolTip) const;
    VxStyledButton *makeMenuButton(const QString &name, QWidget *parent) const;

private:
    int m_margin;
    int m_controlHeight;
};

#endif
