#ifndef RECENTFILESMENU_H
#define RECENTFILESMENU_H

#include <QMenu>

class RecentFiles;

/// The sub-menu of recent files, refilled whenever it opens, to check which of them still exist.
/// The first nine have their numbers for accelerators.
class RecentFilesMenu : public QMenu
{
    Q_OBJECT
public:
    /// The list is borrowed and must outlive the menu.
    RecentFilesMenu(const QString &title, RecentFiles *files, QWidget *parent = nullptr);

Q_SIGNALS:
    void openRequested(const QString &fileName);

private:
    void fill();
    void addFile(const QString &fileName, int number);

    RecentFiles *const m_files;
};

#endif
