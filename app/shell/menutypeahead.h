#ifndef MENUTYPEAHEAD_H
#define MENUTYPEAHEAD_H

#include <QElapsedTimer>
#include <QObject>

class QAction;
class QKeyEvent;
class QMenu;

/// Finds an entry by the letters it begins with, in menus without underlined letters: those of
/// plug-ins' actions, whose texts are their own. Letters typed soon after each other count
/// together; a letter alone, typed again, leads to the next entry that begins with it. Watches the
/// menus of the whole program.
class MenuTypeAhead : public QObject
{
    Q_OBJECT
public:
    explicit MenuTypeAhead(QObject *parent = nullptr);

    /// The entry after current, going round, whose text begins with some letters; null for none.
    /// current itself counts when there are several letters. Entries that cannot be chosen do not.
    static QAction *find(const QMenu &menu, const QAction *current, const QString &letters);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool type(QMenu *menu, const QString &letter);

    QString m_letters;
    QElapsedTimer m_sinceLetter;
};

#endif
