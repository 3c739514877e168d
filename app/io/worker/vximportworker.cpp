#include "io/worker/vximportworker.h"

#include "io/vxfileerror.h"
#include "io/vxfiletext.h"
#include "io/worker/vximportprotocol.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>
#include <csignal>
#include <vxcore/vxlanguage.h>

namespace {

constexpr int PollMilliseconds = 20;
constexpr qint64 Megabyte = 1024 * 1024;
/// The share of the process's work in the progress; the rest is for reading its scene.
constexpr int WorkPercent = 90;

/// One run of the process.
class Run
{
public:
    Run(const QString &fileName, const VxImportWorker::Limits &limits,
        const VxFileProgress &progress)
        : m_fileName(fileName)
        , m_limits(limits)
        , m_progress(partOfProgress(progress, 0, WorkPercent))
    {
    }
    ~Run() { stop(); }

    bool start(const QString &program, const VxMotionBuildOptions &options, VxFileError *error);
    bool wait(VxFileError *error);
    bool readAnswer(const VxFileProgress &progress, VxSceneContents *contents,
                    VxImportReport *report, VxFileError *error) const;

private:
    bool readMessages(VxFileError *error);
    bool checkEnd(VxFileError *error) const;
    bool failFromJson(const QByteArray &json, VxFileError *error) const;
    void stop();

    const QString m_fileName;
    const VxImportWorker::Limits m_limits;
    const VxFileProgress m_progress;
    QProcess m_process;
    VxImportProtocol::Parser m_parser;
    QByteArray m_scene;
    QByteArray m_report;
    int m_percent = 0;
};

bool Run::start(const QString &program, const VxMotionBuildOptions &options, VxFileError *error)
{
    if (!QFileInfo(program).isExecutable())
        return vxFail(error, VxFileText::tr("The importer program is missing: %1")
                                 .arg(QDir::toNativeSeparators(program)));
    QJsonObject request = options.toJson();
    request.insert(QStringLiteral("memory"), double(m_limits.memory));
    request.insert(QStringLiteral("seconds"), m_limits.seconds);
    request.insert(QStringLiteral("language"), VxLanguage::current());
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.start(program,
                    {QFileInfo(m_fileName).absoluteFilePath(),
                     QString::fromUtf8(QJsonDocument(request).toJson(QJsonDocument::Compact))},
                    QIODevice::ReadOnly);
    if (m_process.waitForStarted())
        return true;
    return vxFail(error, VxFileText::tr("The importer program could not be started: %1.")
                             .arg(m_process.errorString()));
}

/** Kills and reaps the process: it must not outlive its run. */
void Run::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

bool Run::failFromJson(const QByteArray &json, VxFileError *error) const
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    vxFail(error, object.value(QStringLiteral("message")).toString());
    if (error->message.isEmpty())
        error->message = VxFileText::tr("The importer could not read the file.");
    error->line = qint64(object.value(QStringLiteral("line")).toDouble(-1));
    error->column = qint64(object.value(QStringLiteral("column")).toDouble(-1));
    error->offset = qint64(object.value(QStringLiteral("offset")).toDouble(-1));
    return false;
}

bool Run::readMessages(VxFileError *error)
{
    m_parser.append(m_process.readAllStandardOutput());
    char kind = 0;
    QByteArray bytes;
    while (m_parser.next(&kind, &bytes)) {
        if (kind == VxImportProtocol::Error)
            return failFromJson(bytes, error);
        if (kind == VxImportProtocol::Progress && !bytes.isEmpty())
            m_percent = qBound(m_percent, int(bytes.at(0)), 100);
        if (kind == VxImportProtocol::Scene)
            m_scene = bytes;
        if (kind == VxImportProtocol::Report)
            m_report = bytes;
    }
    if (m_parser.isBroken())
        return vxFail(error, VxFileText::tr("The answer of the importer is invalid."));
    return true;
}

/** Reports how the process ended, if it sent no error. */
bool Run::checkEnd(VxFileError *error) const
{
    if (m_process.exitStatus() == QProcess::CrashExit) {
        const int signal = m_process.exitCode();
        if (signal == SIGXCPU || signal == SIGKILL)
            return vxFail(
                error,
                VxFileText::tr("Reading was stopped: the file takes more processor time than is "
                               "reasonable for its size."));
        return vxFail(
            error,
            VxFileText::tr("The importer crashed while reading the file (signal %1).").arg(signal));
    }
    if (m_process.exitCode() != 0 || m_scene.isEmpty() || m_report.isEmpty())
        return vxFail(error, VxFileText::tr("The importer ended without a result (code %1).")
                                 .arg(m_process.exitCode()));
    return true;
}

bool Run::wait(VxFileError *error)
{
    const qint64 megabytes = QFileInfo(m_fileName).size() / Megabyte;
    const qint64 silence = m_limits.silence + megabytes * 1000;
    QElapsedTimer quiet;
    quiet.start();
    while (m_process.state() != QProcess::NotRunning) {
        if (m_process.waitForReadyRead(PollMilliseconds))
            quiet.restart();
        if (!readMessages(error))
            return false;
        if (m_progress && !m_progress(m_percent))
            return vxCancel(error, VxFileText::tr("The import was cancelled."));
        if (quiet.elapsed() > silence)
            return vxFail(error,
                          VxFileText::tr(
                              "Reading was stopped: the importer has not responded for %1 seconds.")
                              .arg(quiet.elapsed() / 1000));
    }
    return readMessages(error) && checkEnd(error);
}

bool Run::readAnswer(const VxFileProgress &progress, VxSceneContents *contents,
                     VxImportReport *report, VxFileError *error) const
{
    VxSceneReader reader;
    reader.setProgress(partOfProgress(progress, WorkPercent, 100));
    if (!reader.read(m_scene, contents, error)) {
        const bool cancelled = error->cancelled;
        return vxFail(
            error,
            cancelled
                ? VxFileText::tr("The import was cancelled.")
                : VxFileText::tr("The answer of the importer is invalid. %1").arg(error->message));
    }
    *report = VxImportReport::fromJson(QJsonDocument::fromJson(m_report).object());
    report->file = m_fileName;
    return true;
}

} // namespace

QString VxImportWorker::defaultProgram()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString name = QStringLiteral("vxstudio-import");
    for (const QString &path : {name, QStringLiteral("../bin/") + name}) {
        if (QFileInfo(folder.filePath(path)).isExecutable())
            return QDir::cleanPath(folder.filePath(path));
    }
    return folder.filePath(name);
}

bool VxImportWorker::run(const QString &fileName, const VxMotionBuildOptions &options,
                         const VxFileProgress &progress, VxSceneContents *contents,
                         VxImportReport *report, VxFileError *error) const
{
    Run run(fileName, m_limits, progress);
    const bool done = run.start(m_program, options, error) && run.wait(error) &&
                      run.readAnswer(progress, contents, report, error);
    error->file = fileName;
    return done;
}
