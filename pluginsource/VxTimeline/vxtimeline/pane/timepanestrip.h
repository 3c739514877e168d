#ifndef TIMEPANESTRIP_H
#define TIMEPANESTRIP_H

#include <QtCore/QString>

class QHBoxLayout;
class QLabel;
class QWidget;
class VxBarButton;
class VxButtonBar;
class VxStyledButton;

/// Creates the parts of the groups of the pane's strip, with the style's metrics. Style sheets and
/// scripts use the object names. The given parent owns the created widgets.
class TimePaneStrip
{
public:
    TimePaneStrip();

    int margin() const { return m_margin; }               // pixels, between and around controls
    int controlHeight() const { return m_controlHeight; } // pixels

    /// A widget with a horizontal layout without margins, like all groups of the strip.
    QWidget *makeGroup(const QString &name, QWidget *parent) const;
    static QHBoxLayout *layoutOf(const QWidget *group);
    QLabel *makeLabel(const QString &name, const QString &text, QWidget *parent) const;
    /// A control preceded by its label, which is also its name for screen readers.
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
