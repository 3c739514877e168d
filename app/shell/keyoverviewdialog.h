#ifndef KEYOVERVIEWDIALOG_H
#define KEYOVERVIEWDIALOG_H

#include <QDialog>

class QTextBrowser;
class ShortcutList;

/// Shows the page about keys and mouse beside the work: it does not keep the window waiting, and
/// its owner gives it the page anew when shortcuts change.
class KeyOverviewDialog : public QDialog
{
    Q_OBJECT
public:
    explicit KeyOverviewDialog(QWidget *parent = nullptr);

    void showShortcuts(const ShortcutList &shortcuts);

Q_SIGNALS:
    /// The user wants other keys.
    void changeRequested();

private:
    QTextBrowser *m_page;
};

#endif
