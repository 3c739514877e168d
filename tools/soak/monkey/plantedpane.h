#ifndef PLANTEDPANE_H
#define PLANTEDPANE_H

#include <QWidget>
#include <memory>

/// A widget with a mistake of the kind that the monkey looks for. A drag in it scrubs the scene's
/// time; a listener of the scene ends the drag when the time leaves a range, within the mouse
/// event that still uses the drag. The program then ends with a null pointer access.
class PlantedPane : public QWidget
{
    Q_OBJECT
public:
    explicit PlantedPane(QWidget *parent = nullptr);
    ~PlantedPane() override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    struct Drag;
    std::unique_ptr<Drag> m_drag;
};

#endif
