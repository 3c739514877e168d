#ifndef VXFILEERROR_H
#define VXFILEERROR_H

#include <QString>

/// A failure with a file, and its position.
///
/// Readers and writers fill one of these and return false; nothing is thrown and nothing is shown
/// from inside the library. The caller decides whether \a text() is shown in a message box, the log
/// or a test. A cancelled operation fills it too, with \a cancelled set, so that callers can omit
/// the message.
struct VxFileError
{
    QString file;           ///< the file's name for the user; may be empty for data in memory
    qint64 line = -1;       ///< 1-based line of a text file, -1 where no line applies
    qint64 column = -1;     ///< 1-based column of a table's cell, -1 where no column applies
    qint64 offset = -1;     ///< byte offset in a binary file, -1 where no offset applies
    QString message;        ///< one sentence, translated
    bool cancelled = false; ///< cancelled by the progress callback; not an error

    bool isSet() const { return cancelled || !message.isEmpty(); }

    /// The whole message: "walk.bvh, line 12: ...", with the parts that are set.
    QString text() const;
};

/// Replaces \a error by this message about this file, and returns false.
bool vxFail(VxFileError *error, const QString &message, const QString &file = QString());

/// The same for an operation that the progress callback cancelled.
bool vxCancel(VxFileError *error, const QString &message, const QString &file = QString());

/// Writes \a text to \a message, unless that is null, and returns false.
bool vxFail(QString *message, const QString &text);

#endif
