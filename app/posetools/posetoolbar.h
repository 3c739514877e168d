#ifndef POSETOOLBAR_H
#define POSETOOLBAR_H

#include <QColor>
#include <QFrame>

class PoseTools;
class QToolButton;
class VxActionMgr;

/// The small bar in the viewport's corner that shows and sets the tool, the orientation of its
/// gizmo and the pivot.
class PoseToolBar : public QFrame
{
    Q_OBJECT
public:
    /// tools: borrowed. The viewport owns the bar.
    PoseToolBar(PoseTools *tools, QWidget *viewport);

    /// Adds the shortcuts of the tools' actions to the tool tips.
    void showShortcuts(const VxActionMgr &actions);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void addTools(QLayout *layout);
    void addOrientation(QLayout *layout);
    void addPivot(QLayout *layout);
    void showState();
    void updateIcons();

    PoseTools *const m_tools;
    QVector<QToolButton *> m_toolButtons; ///< by tool
    QToolButton *m_orientation;
    QToolButton *m_pivot;
    QColor m_ink;           ///< of the icons
    double m_iconRatio = 0; ///< pixels of the screen per pixel of an icon's drawing
};

#endif
