// What the programs and libraries require of the loader and the processor: search paths and
// hardening, read from their ELF headers. VX_INSTALLED_DIR adds an installed tree.

#include "testing/vxtestmain.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest/QtTest>
#include <cstring>
#include <elf.h>

namespace {

/// The parts of a 64-bit ELF file that the tests look at.
struct Binary
{
    bool isElf = false;
    bool isPie = false; // or a library
    bool hasRelro = false;
    bool bindsNow = false;
    bool hasStack = false;
    bool hasExecutableStack = false;
    QList<QByteArray> searchPaths;
    QList<QByteArray> importedNames;
};

template <class Record> const Record *at(const QByteArray &bytes, quint64 offset)
{
    const bool fits =
        offset <= quint64(bytes.size()) && sizeof(Record) <= quint64(bytes.size()) - offset;
    return fits ? reinterpret_cast<const Record *>(bytes.constData() + offset) : nullptr;
}

quint64 fileOffset(const QByteArray &bytes, const Elf64_Ehdr *header, quint64 address)
{
    for (int i = 0; i < header->e_phnum; ++i) {
        const auto *segment =
            at<Elf64_Phdr>(bytes, header->e_phoff + quint64(i) * header->e_phentsize);
        if (segment && segment->p_type == PT_LOAD && address >= segment->p_vaddr &&
            address < segment->p_vaddr + segment->p_filesz)
            return address - segment->p_vaddr + segment->p_offset;
    }
    return 0;
}

void readDynamic(const QByteArray &bytes, const Elf64_Ehdr *header, const Elf64_Phdr &segment,
                 Binary *binary)
{
    quint64 strings = 0;
    quint64 path = 0;
    bool hasPath = false;
    for (quint64 i = 0; i < segment.p_filesz / sizeof(Elf64_Dyn); ++i) {
        const auto *entry = at<Elf64_Dyn>(bytes, segment.p_offset + i * sizeof(Elf64_Dyn));
        if (!entry || entry->d_tag == DT_NULL)
            break;
        if (entry->d_tag == DT_STRTAB)
            strings = fileOffset(bytes, header, entry->d_un.d_ptr);
        if (entry->d_tag == DT_RUNPATH || entry->d_tag == DT_RPATH) {
            path = entry->d_un.d_val;
            hasPath = true;
        }
        if ((entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_BIND_NOW)) ||
            (entry->d_tag == DT_FLAGS_1 && (entry->d_un.d_val & DF_1_NOW)) ||
            entry->d_tag == DT_BIND_NOW)
            binary->bindsNow = true;
    }
    if (hasPath)
        binary->searchPaths = QByteArray(bytes.constData() + strings + path).split(':');
}

void readSymbols(const QByteArray &bytes, const Elf64_Ehdr *header, Binary *binary)
{
    for (int i = 0; i < header->e_shnum; ++i) {
        const auto *section =
            at<Elf64_Shdr>(bytes, header->e_shoff + quint64(i) * header->e_shentsize);
        if (!section || section->sh_type != SHT_DYNSYM)
            continue;
        const auto *strings = at<Elf64_Shdr>(bytes, header->e_shoff + quint64(section->sh_link) *
                                                                          header->e_shentsize);
        for (quint64 k = 0; strings && k < section->sh_size / sizeof(Elf64_Sym); ++k) {
            const auto *symbol = at<Elf64_Sym>(bytes, section->sh_offset + k * sizeof(Elf64_Sym));
            if (symbol && symbol->st_shndx == SHN_UNDEF)
                binary->importedNames.append(
                    QByteArray(bytes.constData() + strings->sh_offset + symbol->st_name));
        }
    }
}

Binary readBinary(const QString &fileName)
{
    Binary binary;
    QFile file(fileName);
    const uchar *content = file.open(QIODevice::ReadOnly) ? file.map(0, file.size()) : nullptr;
    // The mapping ends with the file; most of a large program is never read.
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(content),
                                               content ? int(file.size()) : 0);
    const auto *header = at<Elf64_Ehdr>(bytes, 0);
    binary.isElf = header && std::memcmp(header->e_ident, ELFMAG, SELFMAG) == 0 &&
                   header->e_ident[EI_CLASS] == ELFCLASS64;
    if (!binary.isElf)
        return binary;
    binary.isPie = header->e_type == ET_DYN;
    for (int i = 0; i < header->e_phnum; ++i) {
        const auto *segment =
            at<Elf64_Phdr>(bytes, header->e_phoff + quint64(i) * header->e_phentsize);
        if (!segment)
            break;
        if (segment->p_type == PT_DYNAMIC)
            readDynamic(bytes, header, *segment, &binary);
        if (segment->p_type == PT_GNU_RELRO)
            binary.hasRelro = true;
        if (segment->p_type == PT_GNU_STACK) {
            binary.hasStack = true;
            binary.hasExecutableStack = segment->p_flags & PF_X;
        }
    }
    readSymbols(bytes, header, &binary);
    return binary;
}

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    return files;
}

} // namespace

class TestBinaries : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void searchPathsAreExact_data();
    void searchPathsAreExact();
    void productIsHardened_data();
    void productIsHardened();
    void productIsCompiledWithChecks();
};

void TestBinaries::searchPathsAreExact_data()
{
    QTest::addColumn<QString>("folder");
    for (const char *folder : {"bin", "lib", "tests"})
        QTest::newRow(folder) << QStringLiteral(VX_BINARY_DIR "/%1").arg(QLatin1String(folder));
    const QString installed = qEnvironmentVariable("VX_INSTALLED_DIR");
    if (!installed.isEmpty())
        QTest::newRow("installed") << installed;
}

/** The loader reads an empty entry as the folder that the program is started in. */
void TestBinaries::searchPathsAreExact()
{
    QFETCH(QString, folder);
    int count = 0;
    for (const QString &file : filesBelow(folder)) {
        // Plug-ins that tests build outside of the tree are linked by their own projects.
        if (file.contains(QLatin1String("/build/NotesPlugin")) ||
            file.contains(QLatin1String("/keytoolsmodule/build/")))
            continue;
        const Binary binary = readBinary(file);
        count += binary.isElf;
        for (const QByteArray &path : binary.searchPaths)
            QVERIFY2(path.startsWith("$ORIGIN"),
                     qPrintable(file + QStringLiteral(": \"%1\"").arg(QString(path))));
    }
    QVERIFY(count > 0);
}

void TestBinaries::productIsHardened_data()
{
    QTest::addColumn<QString>("file");
    for (const char *name :
         {"bin/vxstudio", "lib/libvxcore.so", "lib/vxstudio/plugins/VxTimeline.so"})
        QTest::newRow(name) << QStringLiteral(VX_BINARY_DIR "/%1").arg(QLatin1String(name));
}

void TestBinaries::productIsHardened()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizers have checks of their own in place of these.");
#endif
    QFETCH(QString, file);
    const Binary binary = readBinary(file);
    QVERIFY2(binary.isElf, qPrintable(file));
    QVERIFY(binary.isPie);
    QVERIFY(binary.hasRelro);
    QVERIFY(binary.bindsNow);
    QVERIFY(binary.hasStack && !binary.hasExecutableStack);
    QVERIFY(binary.importedNames.contains("__stack_chk_fail"));
}

/** What leaves no trace in a binary is read from the compiler's commands. */
void TestBinaries::productIsCompiledWithChecks()
{
#if defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
    QSKIP("Sanitizers and builds that are not optimised leave the checks out.");
#endif
    QFile file(QStringLiteral(VX_BINARY_DIR "/compile_commands.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    int count = 0;
    for (const QJsonValue &entry : QJsonDocument::fromJson(file.readAll()).array()) {
        const QString command = entry[QStringLiteral("command")].toString();
        const QString source = entry[QStringLiteral("file")].toString();
        if (!source.contains(QLatin1String("/sdk/src/")) &&
            !source.contains(QLatin1String("/app/")))
            continue;
        ++count;
        for (const char *flag : {"-D_FORTIFY_SOURCE=3", "-fstack-protector-strong",
                                 "-fstack-clash-protection", "-fPI"})
            QVERIFY2(command.contains(QLatin1String(flag)), qPrintable(source));
#ifdef __x86_64__
        // The files do not bear a note of it: the start files of Debian's C library have none.
        QVERIFY2(command.contains(QLatin1String("-fcf-protection")), qPrintable(source));
#endif
    }
    QVERIFY(count > 30); // units of a dozen sources
}

VX_TEST_GUILESS_MAIN(TestBinaries)
#include "tst_binaries.moc"
