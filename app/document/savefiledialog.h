#ifndef SAVEFILEDIALOG_H
#define SAVEFILEDIALOG_H

#include <QString>
#include <QStringList>

class QWidget;
class UserMessages;

/// Asks for the name of a file to write.
///
/// A name such as "take 1.5" ends in an apparent suffix: the proper suffix is added, and if such a
/// file exists already its replacement is confirmed, which the toolkit's dialog has done only for
/// the name as it was typed.
class SaveFileDialog
{
public:
    SaveFileDialog(const QString &title, const UserMessages *messages, QWidget *parent);

    /// The initial folder, and the suggested name, without a suffix.
    void setStart(const QString &folder, const QString &name);
    /// The suffix, without a dot, and the filter of the only file type.
    void setKind(const QString &suffix, const QStringList &filters);
    /// Further suffixes that are accepted in a typed name.
    void setOtherSuffixes(const QStringList &suffixes) { m_otherSuffixes = suffixes; }

    /// Absolute path with the suffix; empty when the user cancelled.
    QString ask() const;

private:
    QString withSuffix(const QString &name) const;

    QString m_title;
    const UserMessages *m_messages;
    QWidget *m_parent;
    QString m_folder;
    QString m_name;
    QString m_suffix;
    QStringList m_filters;
    QStringList m_otherSuffixes;
};

#endif
