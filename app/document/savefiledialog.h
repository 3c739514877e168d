#ifndef SAVEFILEDIALOG_H
#define SAVEFILEDIALOG_H

#include <QString>
#include <QStringList>

class QWidget;
class UserMessages;

/// Asks for the name of a file to write.
///
/// A name such as "take 1.5" ends in what looks like a suffix but is none: the proper suffix is
/// added, and if there is such a file already its replacement is asked for, which the toolkit's
/// dialog has done only for the name as it was typed.
class SaveFileDialog
{
public:
    SaveFileDialog(const QString &title, const UserMessages *messages, QWidget *parent);

    /// Where it begins, and the name that it offers, without a suffix.
    void setStart(const QString &folder, const QString &name);
    /// The suffix, without a dot, and the filter of the only kind of file there is.
    void setKind(const QString &suffix, const QStringList &filters);
    /// Further suffixes that a typed name may have instead.
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
