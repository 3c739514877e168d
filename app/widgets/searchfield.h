#ifndef SEARCHFIELD_H
#define SEARCHFIELD_H

#include <QLineEdit>

/// A field for a text that narrows what another widget shows.
///
/// While a text is in force the field has the highlight's colour, so that what is not shown is not
/// missed for long. Escape clears it; with nothing in it, Escape leaves it.
class SearchField : public QLineEdit
{
    Q_OBJECT
public:
    /// what: the placeholder, such as "Search rows".
    explicit SearchField(const QString &what, QWidget *parent = nullptr);

    bool isActive() const { return !text().isEmpty(); }
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user is done with the empty field.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showState();

    QAction *m_clear;
};

#endif
