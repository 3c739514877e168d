#ifndef TIMELABEL_H
#define TIMELABEL_H

#include <QToolButton>

class VxScene;

/// The current time in the status bar, as the scene shows times; a click opens the menu of units
/// and rates.
class TimeLabel : public QToolButton
{
    Q_OBJECT
public:
    /// Both borrowed; must outlive the label.
    TimeLabel(VxScene *scene, QMenu *menu, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void showTime();

    VxScene *const m_scene;
};

#endif
