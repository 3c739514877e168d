#include "document/savefiledialog.h"

#include "widgets/usermessages.h"

#include <QFileDialog>
#include <QFileInfo>

SaveFileDialog::SaveFileDialog(const QString &title, const UserMessages *messages, QWidget *parent)
    : m_title(title)
    , m_messages(messages)
    , m_parent(parent)
{
}

void SaveFileDialog::setStart(const QString &folder, const QString &name)
{
    m_folder = folder;
    m_name = name;
    // A slash in a label would name another folder.
    m_name.replace(QLatin1Char('/'), QLatin1Char('_'));
}

void SaveFileDialog::setKind(const QString &suffix, const QStringList &filters)
{
    m_suffix = suffix;
    m_filters = filters;
}

QString SaveFileDialog::withSuffix(const QString &name) const
{
    const QStringList suffixes = QStringList{m_suffix} + m_otherSuffixes;
    const bool isOwn = suffixes.contains(QFileInfo(name).suffix(), Qt::CaseInsensitive);
    return isOwn ? name : name + QLatin1Char('.') + m_suffix;
}

QString SaveFileDialog::ask() const
{
    QFileDialog dialog(m_parent, m_title, m_folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(m_suffix);
    dialog.setNameFilters(m_filters);
    dialog.selectFile(m_name + QLatin1Char('.') + m_suffix);
    while (dialog.exec() == QDialog::Accepted) {
        const QString typed = dialog.selectedFiles().constFirst();
        QString name = withSuffix(typed);
        if (name == typed || !QFileInfo::exists(name) || m_messages->askToReplace(name))
            return name;
    }
    return {};
}
