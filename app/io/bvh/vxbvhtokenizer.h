#ifndef VXBVHTOKENIZER_H
#define VXBVHTOKENIZER_H

#include <QByteArray>
#include <QString>

/// Splits the bytes of a BVH file into words, numbers and rest-of-line names, and counts lines.
///
/// It works on the buffer in place and returns pointers into it, without copies and independent of
/// the locale. A word ends at a blank, a brace or a colon; braces and the colon are words of their
/// own. LF, CR LF and a lone CR each end a line. The buffer must outlive it.
class VxBvhTokenizer
{
public:
    /// A piece of the buffer with the line it starts on; empty at the end of the file.
    struct Word
    {
        const char *data = nullptr;
        int size = 0;
        qint64 line = 0;

        bool isEmpty() const { return size == 0; }
        /// Compares ignoring case; \a lower must be lower-case ASCII.
        bool is(const char *lower) const;
        /// The word for a message: shortened, with anything unprintable replaced.
        QString shown() const;
    };

    enum class NumberResult {
        Ok,
        EndOfFile,
        NotANumber, ///< not a number at all, or with something else attached
        NotFinite,  ///< "nan", "inf"
        OutOfRange  ///< too large for the type
    };

    explicit VxBvhTokenizer(const QByteArray &bytes);

    /// The next word, skipping blanks and line ends before it.
    Word next();
    /// The next word without consuming it.
    Word peek();

    /// The rest of the present line, trimmed, without a brace at its end; never advances to the
    /// next line.
    Word restOfLine();

    /// Reads a number at the next word. On failure the position stays before that word, so that
    /// next() returns it for the message. Numbers too small for the type become 0 or denormal.
    template <typename T> NumberResult readNumber(T *value);

    /// Line of the present position.
    qint64 line() const { return m_line; }
    /// The last line that has a byte in it; 1 for an empty file.
    qint64 lastLine() const;
    qint64 position() const { return m_at - m_begin; }
    qint64 remaining() const { return m_end - m_at; }
    qint64 size() const { return m_end - m_begin; }
    bool isAtEnd();

    /// The line of the first byte that is no text (control characters other than blanks), or -1
    /// when there is none.
    qint64 firstBinaryLine() const;

private:
    void skipBlanks();

    const char *m_begin;
    const char *m_at;
    const char *m_end;
    qint64 m_line = 1;
};

#endif
