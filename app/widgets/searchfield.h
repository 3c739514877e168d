#ifndef SEARCHFIELD_H
#define SEARCHFIELD_H

#include <QLineEdit>

/// A field for a text that filters another widget's contents.
///
/// While a filter is active the field has the highlight's colour, as a reminder that rows are
/// hidden. Escape clears it; an empty one is left.
class SearchField : public QLineEdit
{
    Q_OBJECT
public:
    /// what: the placeholder, such as "Search rows".
    explicit SearchField(const QString &what, QWidget *parent = nullptr);

    bool isActive() const { return !text().isEmpty(); }
    QSize sizeHint() const override;

Q_SIGNALS:
    /// Escape was pressed in the empty field.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showState();

    QAction *m_clear;
};

#endif
