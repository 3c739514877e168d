#ifndef MENUTYPEAHEAD_H
#define MENUTYPEAHEAD_H

#include <QElapsedTimer>
#include <QObject>

class QAction;
class QMenu;

/// Finds an entry by its first letters, in menus without mnemonics: those of plug-ins' actions,
/// whose texts are their own. Letters typed in quick succession form a prefix; a single letter,
/// typed again, selects the next entry that begins with it. Watches the menus of the whole program.
class MenuTypeAhead : public QObject
{
    Q_OBJECT
public:
    explicit MenuTypeAhead(QObject *parent = nullptr);

    /// The entry after current, cyclically, whose text begins with some letters; null for none.
    /// current itself counts when there are several letters. Disabled entries do not.
    static QAction *find(const QMenu &menu, const QAction *current, const QString &letters);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool type(QMenu *menu, const QString &letter);

    QString m_letters;
    QElapsedTimer m_sinceLetter;
};

#endif
