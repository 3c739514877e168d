#include "plugin/elffile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <cstring>
#include <elf.h>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("ElfFile", text);
}

template <class Header> bool readAt(QFile &file, quint64 offset, Header *header)
{
    return offset <= quint64(file.size()) && file.seek(qint64(offset)) &&
           file.read(reinterpret_cast<char *>(header), sizeof(Header)) == qint64(sizeof(Header));
}

/// Whether a span of bytes is within the first `size` ones.
bool fits(quint64 offset, quint64 length, quint64 size)
{
    return offset <= size && length <= size - offset;
}

} // namespace

QString ElfFile::objection(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    Elf64_Ehdr header;
    if (!readAt(file, 0, &header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0)
        return tr("it is not a module");
    if (header.e_ident[EI_CLASS] != ELFCLASS64)
        return {}; // the loader rejects it
    const quint64 size = quint64(file.size());
    bool complete = fits(header.e_shoff, quint64(header.e_shnum) * header.e_shentsize, size) &&
                    header.e_phentsize >= sizeof(Elf64_Phdr);
    for (int i = 0; complete && i < header.e_phnum; ++i) {
        Elf64_Phdr segment;
        complete = readAt(file, header.e_phoff + quint64(i) * header.e_phentsize, &segment) &&
                   fits(segment.p_offset, segment.p_filesz, size);
    }
    return complete ? QString() : tr("the file is truncated");
}
