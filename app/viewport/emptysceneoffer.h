#ifndef EMPTYSCENEOFFER_H
#define EMPTYSCENEOFFER_H

#include <QFrame>

class QAction;
class QVBoxLayout;
class VxScene;

/// What to begin with, in the middle of the viewport of an empty scene: a button for each of some
/// commands. Hidden as soon as the scene has a node.
class EmptySceneOffer : public QFrame
{
    Q_OBJECT
public:
    /// A child of the viewport. The scene is borrowed and must outlive it.
    EmptySceneOffer(VxScene *scene, QWidget *viewport);

    /// Adds a button that triggers an action, below the former ones, and has its status tip; its
    /// text unless another is given. Borrowed.
    void addCommand(QAction *action, const QString &text = QString());

    /// Hides the buttons in an empty scene too, as long as the mouse draws in the viewport.
    void setSuppressed(bool suppressed);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void updateVisibility();
    void moveToMiddle();

    VxScene *const m_scene;
    QVBoxLayout *m_buttons;
    QWidget *m_last = nullptr; // the lowest button
    bool m_isSuppressed = false;
};

#endif
