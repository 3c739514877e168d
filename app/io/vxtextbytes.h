#ifndef VXIO_VXTEXTBYTES_H
#define VXIO_VXTEXTBYTES_H

#include <QByteArray>
#include <charconv>

/// Whether the byte is white space of a text file, in any locale.
inline bool vxIsSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Appends a number with the fewest digits that read back as the same value.
template <typename T> void vxAppendNumber(QByteArray *out, T value)
{
    char text[64];
    const std::to_chars_result result = std::to_chars(text, text + sizeof(text), value);
    out->append(text, static_cast<int>(result.ptr - text));
}

#endif
