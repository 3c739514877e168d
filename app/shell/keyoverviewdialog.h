#ifndef KEYOVERVIEWDIALOG_H
#define KEYOVERVIEWDIALOG_H

#include <QDialog>

class QTextBrowser;
class ShortcutList;

/// Shows the page about keys and mouse, not modal; its owner sets the page again when shortcuts
/// change.
class KeyOverviewDialog : public QDialog
{
    Q_OBJECT
public:
    explicit KeyOverviewDialog(QWidget *parent = nullptr);

    void showShortcuts(const ShortcutList &shortcuts);

Q_SIGNALS:
    /// The user asks to change the shortcuts.
    void changeRequested();

private:
    QTextBrowser *m_page;
};

#endif
