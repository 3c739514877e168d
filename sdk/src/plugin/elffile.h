#ifndef ELFFILE_H
#define ELFFILE_H

#include <QtCore/QString>

/// Checks a module file before the system's loader maps it into memory, where a file that is
/// shorter than its headers state would end the program with a bus error.
namespace ElfFile {

/// Empty for a file that contains all its tables and segments, else the reason.
QString objection(const QString &fileName);

} // namespace ElfFile

#endif
