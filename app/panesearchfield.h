#ifndef PANESEARCHFIELD_H
#define PANESEARCHFIELD_H

#include <QLineEdit>

class VxPane;

/// The field in a pane's title bar that narrows the rows of the pane.
///
/// A pane that can be searched has the slots handleDopesheetFilterChanged(QString) and
/// handleDopesheetFilterCleared(); the program knows panes by their slots alone. While a text is in
/// force the field has the highlight's colour, so that rows that are not shown are not missed for
/// long.
class PaneSearchField : public QLineEdit
{
    Q_OBJECT
public:
    /// True when the pane has the slots.
    static bool canSearch(const VxPane *pane);

    /// The pane is not owned and must outlive the field.
    explicit PaneSearchField(VxPane *pane, QWidget *parent = nullptr);

    bool isActive() const { return !text().isEmpty(); }
    QSize sizeHint() const override;

protected:
    /// Escape clears the field; with nothing in it, it gives the focus back to the pane.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void apply(const QString &text);
    void showState();

    VxPane *m_pane;
    QAction *m_clear = nullptr;
};

#endif
