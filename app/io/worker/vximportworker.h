#ifndef VXIMPORTWORKER_H
#define VXIMPORTWORKER_H

#include "io/motion/vxmotionbuilder.h"

#include <QStringList>

/// Reads motion files of foreign formats in a separate process, `vxstudio-import`.
///
/// That process cannot write files, and its memory and processor time are limited, so that a
/// malicious file ends in a message. Nothing here accesses a scene.
class VxImportWorker
{
public:
    struct Limits
    {
        /// Bytes of address space beyond those of the program itself; a multiple of the file's size
        /// is added.
        qint64 memory = 400LL * 1024 * 1024;
        int seconds = 4;         ///< of processor time; one is added for each MB of the file
        int silence = 30 * 1000; ///< maximum milliseconds without output; extended likewise
    };

    void setLimits(const Limits &limits) { m_limits = limits; }
    /// The program to run; by default the one beside this program.
    void setProgram(const QString &program) { m_program = program; }

    /// Starts the process, waits for its end and reads its result. The progress is called while
    /// waiting; when it cancels, the process is ended. On failure returns false with one sentence
    /// in `error` (never null), and contents and report are unchanged.
    bool run(const QString &fileName, const VxMotionBuildOptions &options,
             const VxFileProgress &progress, VxSceneContents *contents, VxImportReport *report,
             VxFileError *error) const;

    /// The importer program: beside this program, or in the folder bin of the build or the
    /// installation that contains this program.
    static QString defaultProgram();

private:
    QString m_program = defaultProgram();
    Limits m_limits;
};

#endif
