#ifndef PLUGIN_ELFFILE_H
#define PLUGIN_ELFFILE_H

#include <QtCore/QString>

/// What can be said about a module file before the system's loader maps it into memory: a file that
/// ends before its headers say it does would end the program with a bus error there.
namespace ElfFile {

/// Empty for a file whose tables and segments lie within it, else what is wrong.
QString objection(const QString &fileName);

} // namespace ElfFile

#endif
