#include "io/vxfiletext.h"
// vxstudio-import: reads one motion file and sends it to the program that started it.
//
//     vxstudio-import FILE REQUEST
//
// REQUEST is a JSON object with the build options and the limits. The answer on standard output is
// described in vximportprotocol.h.

#include "import/foreignreader.h"
#include "io/motion/vxmotionbuilder.h"
#include "io/vxscenewriter.h"
#include "io/worker/vximportlimits.h"
#include "io/worker/vximportprotocol.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <cstdio>
#include <new>
#include <vxcore/vxlanguage.h>
#include <vxcore/vxscene.h>

namespace {

void send(const QByteArray &message)
{
    std::fwrite(message.constData(), 1, std::size_t(message.size()), stdout);
    std::fflush(stdout);
}

/// Sends each percent once.
class PercentSender
{
public:
    bool operator()(int percent)
    {
        if (percent > m_last) {
            m_last = percent;
            send(VxImportProtocol::message(VxImportProtocol::Progress,
                                           QByteArray(1, char(percent))));
        }
        return true;
    }

private:
    int m_last = -1;
};

int sendError(const VxFileError &error)
{
    send(VxImportProtocol::message(VxImportProtocol::Error,
                                   QJsonObject{{QStringLiteral("message"), error.message},
                                               {QStringLiteral("line"), double(error.line)},
                                               {QStringLiteral("column"), double(error.column)},
                                               {QStringLiteral("offset"), double(error.offset)}}));
    return 1;
}

int import(const QString &fileName, const QJsonObject &request)
{
    PercentSender sender;
    const VxFileProgress progress = [&sender](int percent) { return sender(percent); };
    VxFileError error;
    VxImportedMotion motion;
    if (!readForeignMotion(fileName, partOfProgress(progress, 0, 40), &motion, &error))
        return sendError(error);
    VxSceneContents contents;
    VxImportReport report;
    if (!vxBuildMotion(std::move(motion), VxMotionBuildOptions::fromJson(request),
                       partOfProgress(progress, 40, 90), &contents, &report, &error))
        return sendError(error);
    VxScene scene;
    VxSceneReader::install(std::move(contents), &scene);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!VxSceneWriter(&scene).write(&buffer, &error))
        return sendError(error);
    send(VxImportProtocol::message(VxImportProtocol::Report, report.toJson()));
    send(VxImportProtocol::message(VxImportProtocol::Scene, buffer.data()));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs(qPrintable(VxFileText::tr(
                       "vxstudio-import reads motion files for vxstudio, which starts it.\n")),
                   stderr);
        return 2;
    }
    const QString &fileName = arguments.at(1);
    const QJsonObject request = QJsonDocument::fromJson(arguments.at(2).toUtf8()).object();
    VxLanguage::setCurrent(request.value(QStringLiteral("language")).toString());
    const qint64 size = QFileInfo(fileName).size();
    const auto memory = qint64(request.value(QStringLiteral("memory")).toDouble());
    const int seconds = request.value(QStringLiteral("seconds")).toInt();
    vxLimitProcess(memory + size * 30, seconds + int(size / (1024 * 1024)));
    try {
        return import(fileName, request);
    } catch (const std::bad_alloc &) {
        VxFileError error;
        error.message =
            VxFileText::tr("The file needs more memory than is reasonable for its size.");
        return sendError(error);
    }
}
