#ifndef VXBACKUPS_H
#define VXBACKUPS_H

#include <QString>

/// The former versions of a file beside it: "walk.bak1.vxscene" is the one before the present
/// "walk.vxscene", "walk.bak2.vxscene" the one before that. Those of a symbolic link are beside the
/// file that it leads to.
///
/// A save preserves the present file as number 0 before it writes, and afterwards moves it and the
/// others up by one. The file itself keeps its name all the time. A save that was interrupted
/// leaves number 0, which the next one moves up.
class VxBackups
{
public:
    static constexpr int DefaultCount = 3;
    static constexpr int MaxCount = 99;

    /// count: the number of versions that are kept, 0 to MaxCount; 0 makes none, and existing ones
    /// are left as they are.
    VxBackups(const QString &fileName, int count);

    /// Preserves the present file: by a hard link where the file system has them, else by a copy.
    /// True, and nothing is done, for a missing file and a count of 0. False with the reason,
    /// without a full stop.
    bool preserve(QString *reason);
    /// After the file was saved: a preserved version with the same contents is removed; any other
    /// becomes number 1, and each other one the next number, up to the first number that is free;
    /// the one beyond the count is removed. False with the reason: the preserved version stays
    /// number 0.
    bool rotate(QString *reason) const;
    /// After the file could not be saved: removes the preserved version.
    void drop() const;

    /// The file that `fileName` is a former version of, by its name; empty when it is none, or when
    /// that file does not exist.
    static QString originalOf(const QString &fileName);

    /// The name of a version; number 1 is the latest.
    QString name(int number) const;

private:
    bool linkAs(const QString &backup) const;
    bool isPresentFile(const QString &other) const;
    bool isSameAsPresent(const QString &other) const;

    QString m_file;
    int m_count;
    bool m_hasPreserved = false;
};

#endif
