#ifndef AUTOKEYMARK_H
#define AUTOKEYMARK_H

#include <QToolButton>

class VxScene;

/// The mark of the status bar that is red while changes of values make keys; a click toggles it.
class AutoKeyMark : public QToolButton
{
    Q_OBJECT
public:
    /// scene: borrowed; must outlive the mark.
    explicit AutoKeyMark(VxScene *scene, QWidget *parent = nullptr);

    /// The red of the mark, visible on a palette's window colour.
    static QColor color(const QPalette &palette);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showState();

    VxScene *const m_scene;
};

#endif
