#ifndef VXIO_VXIMPORTWORKER_H
#define VXIO_VXIMPORTWORKER_H

#include "io/motion/vxmotionbuilder.h"

#include <QStringList>

/// Reads motion files of foreign formats in a process of its own, `vxstudio-import`.
///
/// That process cannot write files, and its memory and processor time are limited, so that a file
/// made to do harm ends in a message. Nothing here touches a scene.
class VxImportWorker
{
public:
    struct Limits
    {
        /// Bytes of address space beyond what the program itself takes; a file's size is added
        /// several times over.
        qint64 memory = 400LL * 1024 * 1024;
        int seconds = 20;        ///< of processor time; some are added for each MB of the file
        int silence = 30 * 1000; ///< milliseconds without a sign of life; the same
    };

    VxImportWorker();
    void setLimits(const Limits &limits) { m_limits = limits; }
    /// The program to run; by default the one beside this program.
    void setProgram(const QString &program) { m_program = program; }

    /// Starts the process, waits for its end and takes what it read. The progress is asked while
    /// waiting; when it says stop, the process is ended. On failure returns false with one sentence
    /// in `error` (never null), and contents and report are untouched.
    bool run(const QString &fileName, const VxMotionBuildOptions &options,
             const VxFileProgress &progress, VxSceneContents *contents, VxImportReport *report,
             VxFileError *error) const;

    /// The suffixes of the formats that it reads, lower case, without a dot.
    static QStringList suffixes();

    /// Where the importer program is: beside this program, or in the folder bin of the build or the
    /// installation that this program belongs to.
    static QString defaultProgram();

private:
    QString m_program;
    Limits m_limits;
};

#endif
