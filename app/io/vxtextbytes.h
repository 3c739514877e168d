#ifndef VXTEXTBYTES_H
#define VXTEXTBYTES_H

#include <QByteArray>
#include <charconv>

/// Whether the byte is white space of a text file, in any locale.
inline bool vxIsSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Whether a line ends at a byte of a text: at LF, and at a CR that no LF follows.
inline bool vxEndsLine(const char *at, const char *end)
{
    return *at == '\n' || (*at == '\r' && (at + 1 == end || at[1] != '\n'));
}

/// The number of line ends in a text from `begin` to before `place`; `end` is the text's end.
inline qint64 vxLinesBefore(const char *begin, const char *place, const char *end)
{
    qint64 lines = 0;
    for (const char *at = begin; at < place; ++at)
        lines += vxEndsLine(at, end);
    return lines;
}

/// Appends a number with the fewest digits that read back as the same value.
template <typename T> void vxAppendNumber(QByteArray *out, T value)
{
    char text[64];
    const std::to_chars_result result = std::to_chars(text, text + sizeof(text), value);
    out->append(text, static_cast<int>(result.ptr - text));
}

#endif
