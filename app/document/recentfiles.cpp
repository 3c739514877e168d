#include "document/recentfiles.h"

#include <QFileInfo>
#include <algorithm>
#include <vxcore/vxsettings.h>

namespace {

const QLatin1String FilesKey("Files");

} // namespace

RecentFiles::RecentFiles(QObject *parent)
    : QObject(parent)
{
}

QString RecentFiles::latestFolder() const
{
    return m_files.isEmpty() ? QString() : QFileInfo(m_files.constFirst()).absolutePath();
}

void RecentFiles::add(const QString &fileName)
{
    const QString path = QFileInfo(fileName).absoluteFilePath();
    if (fileName.isEmpty() || m_files.value(0) == path)
        return;
    m_files.removeAll(path);
    m_files.prepend(path);
    m_files = m_files.mid(0, Capacity);
    Q_EMIT changed();
}

void RecentFiles::clear()
{
    if (m_files.isEmpty())
        return;
    m_files.clear();
    Q_EMIT changed();
}

void RecentFiles::removeMissing()
{
    const int before = m_files.size();
    m_files.erase(std::remove_if(m_files.begin(), m_files.end(),
                                 [](const QString &file) { return !QFileInfo::exists(file); }),
                  m_files.end());
    if (m_files.size() != before)
        Q_EMIT changed();
}

void RecentFiles::restore(const VxSettings &settings)
{
    m_files = settings.getStringListValue(FilesKey).mid(0, Capacity);
    m_files.removeAll(QString());
    m_files.removeDuplicates();
    Q_EMIT changed();
}

void RecentFiles::store(VxSettings *settings) const
{
    settings->setStringListValue(FilesKey, m_files);
}
