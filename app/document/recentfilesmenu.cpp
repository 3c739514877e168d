#include "document/recentfilesmenu.h"

#include "document/recentfiles.h"

#include <QDir>
#include <QFileInfo>
#include <vxcore/vxtextstyle.h>

namespace {

constexpr int Accelerators = 9;
constexpr int FolderPixels = 320;

/// Escapes ampersands, which would underline the next character.
QString plain(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

RecentFilesMenu::RecentFilesMenu(const QString &title, RecentFiles *files, QWidget *parent)
    : QMenu(title, parent)
    , m_files(files)
{
    setObjectName(QStringLiteral("RecentFilesMenu"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentFilesMenu::fill);
    connect(files, &RecentFiles::changed, this,
            [this] { menuAction()->setEnabled(!m_files->files().isEmpty()); });
    menuAction()->setEnabled(!files->files().isEmpty());
}

void RecentFilesMenu::fill()
{
    clear();
    bool missing = false;
    int number = 0;
    for (const QString &file : m_files->files()) {
        addFile(file, ++number);
        missing |= !QFileInfo::exists(file);
    }
    addSeparator();
    if (missing)
        addAction(tr("Remove Missing Files"), m_files, &RecentFiles::removeMissing);
    addAction(tr("Clear List"), m_files, &RecentFiles::clear);
}

void RecentFilesMenu::addFile(const QString &fileName, int number)
{
    const QFileInfo file(fileName);
    const bool exists = file.exists();
    const QString folder = fontMetrics().elidedText(QDir::toNativeSeparators(file.absolutePath()),
                                                    Qt::ElideMiddle, FolderPixels);
    QString text = number <= Accelerators ? QStringLiteral("&%1  ").arg(number) : QString();
    text += tr("%1 in %2").arg(plain(file.fileName()), plain(folder));
    if (!exists)
        text = tr("%1 (missing)").arg(text);
    QAction *entry = addAction(text, this, [this, fileName] { Q_EMIT openRequested(fileName); });
    entry->setToolTip(vxToolTipText(QDir::toNativeSeparators(fileName)));
    entry->setEnabled(exists);
}
