#include "io/bvh/vxbvhwriter.h"

#include "io/vxfileerror.h"
#include "io/vxfiletext.h"
#include "io/vxtextbytes.h"

#include <functional>
#include <vxcore/vxsafefile.h>

namespace {

const char *const channelNames[VxBvhChannelKinds] = {"Xposition", "Yposition", "Zposition",
                                                     "Xrotation", "Yrotation", "Zrotation"};

void indent(QByteArray *out, int depth)
{
    out->append(depth, '\t');
}

void appendOffset(QByteArray *out, int depth, const QVector3D &offset)
{
    indent(out, depth);
    out->append("OFFSET");
    for (int axis = 0; axis < 3; ++axis) {
        out->append(' ');
        vxAppendNumber(out, offset[axis]);
    }
    out->append('\n');
}

void appendEndSite(QByteArray *out, int depth, const QVector3D &offset)
{
    indent(out, depth);
    out->append("End Site\n");
    indent(out, depth);
    out->append("{\n");
    appendOffset(out, depth + 1, offset);
    indent(out, depth);
    out->append("}\n");
}

// Everything of a joint but its children and its closing brace.
void appendJoint(QByteArray *out, int depth, const VxBvhJoint &joint)
{
    indent(out, depth);
    out->append(joint.parent < 0 ? "ROOT " : "JOINT ");
    out->append(joint.name.toUtf8()).append('\n');
    indent(out, depth);
    out->append("{\n");
    appendOffset(out, depth + 1, joint.offset);
    if (!joint.channels.empty()) {
        indent(out, depth + 1);
        out->append("CHANNELS ").append(QByteArray::number(quint64(joint.channels.size())));
        for (const VxBvhChannel channel : joint.channels)
            out->append(' ').append(channelNames[static_cast<int>(channel)]);
        out->append('\n');
    }
    for (const QVector3D &end : joint.endSites)
        appendEndSite(out, depth + 1, end);
}

void appendHierarchy(QByteArray *out, const std::vector<VxBvhJoint> &joints)
{
    out->append("HIERARCHY\n");
    std::vector<int> open;
    const auto closeDownTo = [out, &open](int parent) {
        while (!open.empty() && open.back() != parent) {
            open.pop_back();
            indent(out, static_cast<int>(open.size()));
            out->append("}\n");
        }
    };
    for (std::size_t i = 0; i < joints.size(); ++i) {
        closeDownTo(joints[i].parent);
        appendJoint(out, static_cast<int>(open.size()), joints[i]);
        open.push_back(static_cast<int>(i));
    }
    closeDownTo(-1);
}

/// The consumer of the text in pieces; false ends the writing.
using TextSink = std::function<bool(QByteArray *text, int percent)>;

constexpr int PieceBytes = 1 << 16;

bool appendMotion(QByteArray *out, const VxBvhDocument &document, const TextSink &sink)
{
    out->append("MOTION\nFrames: ").append(QByteArray::number(document.frameCount));
    out->append("\nFrame Time: ");
    vxAppendNumber(out, document.frameTime);
    out->append('\n');
    const int channels = document.channelCount();
    for (int frame = 0; frame < document.frameCount; ++frame) {
        for (int channel = 0; channel < channels; ++channel) {
            vxAppendNumber(out, document.channelValues(channel)[frame]);
            out->append(channel + 1 < channels ? ' ' : '\n');
        }
        if (out->size() >= PieceBytes &&
            !sink(out, static_cast<int>(qint64(frame) * 100 / document.frameCount)))
            return false;
    }
    return true;
}

} // namespace

bool VxBvhWriter::write(const VxBvhDocument &document, QByteArray *bytes, VxFileError *error)
{
    QString reason;
    if (!document.isValid(&reason))
        return vxFail(error, reason, QString());
    QByteArray text;
    appendHierarchy(&text, document.joints);
    appendMotion(&text, document, [](QByteArray *, int) { return true; });
    *bytes = text;
    return true;
}

bool VxBvhWriter::writeFile(const VxBvhDocument &document, const QString &fileName,
                            VxFileError *error, const VxFileProgress &progress)
{
    QString reason;
    if (!document.isValid(&reason))
        return vxFail(error, reason, fileName);
    VxSafeFile file(fileName);
    bool cancelled = false;
    const TextSink sink = [&](QByteArray *text, int percent) {
        file.write(*text);
        text->resize(0);
        cancelled = progress && !progress(percent);
        return !cancelled && file.failure().isEmpty();
    };
    QByteArray text;
    if (file.start()) {
        appendHierarchy(&text, document.joints);
        if (appendMotion(&text, document, sink))
            file.write(text);
    }
    if (cancelled)
        return vxCancel(error, VxFileText::tr("Writing was cancelled."), fileName);
    return (file.failure().isEmpty() && file.commit()) ||
           vxFail(error, VxFileText::tr("The file cannot be written: %1.").arg(file.failure()),
                  fileName);
}
