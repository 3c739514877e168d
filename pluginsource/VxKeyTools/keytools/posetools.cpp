#include "keytools/keytool.h"
#include "keytools/keytooltext.h"
#include "keytools/limbpin.h"

#include <vxcore/vxlocalnumber.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

// More frames than this in one span indicate a mistyped number.
constexpr qint64 MaxFrames = 1000000;

QString pinnedJoint(const QVariantMap & /*texts*/)
{
    const VxNode *joint = vxScene ? vxScene->getPrimarySelection() : nullptr;
    return joint ? KeyToolText::tr("the keys of the two bones above %1").arg(joint->getLabel())
                 : KeyToolText::tr("no joint: select one");
}

KeyToolResult pin(const KeyToolArguments &arguments)
{
    KeyToolResult result;
    const VxTimeRange span(arguments.ticks("start"), arguments.ticks("end"));
    const VxTime falloff = arguments.ticks("falloff");
    const VxTime step = vxScene->getTimeStep();
    LimbPin limb(vxScene->getPrimarySelection());
    QString obstacle = limb.obstacle();
    if (obstacle.isEmpty() && span.getEnd() < span.getStart())
        obstacle = KeyToolText::tr("the end is before the start");
    else if (obstacle.isEmpty() &&
             (qint64(span.getEnd()) - span.getStart() + 2 * qint64(falloff)) / step > MaxFrames)
        obstacle = KeyToolText::tr("the span has too many frames");
    if (!obstacle.isEmpty()) {
        result.message = KeyToolText::tr("Pin Joint: %1").arg(obstacle);
        return shownResult(result);
    }
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        limb.solve(span, falloff, step, span.clamp(vxScene->getTime()));
        limb.write();
    }
    hold.accept(KeyToolText::tr("Pin Joint"));
    result.done = true;
    result.channels = 9;
    result.error = limb.largestError();
    result.message = KeyToolText::tr("Pin Joint: %1, largest distance %L2 % of the limb")
                         .arg(vxScene->getPrimarySelection()->getLabel(),
                              vxLocalNumber(QString::number(result.error * 100, 'g', 3)));
    if (limb.framesOutOfReach() > 0)
        result.message +=
            KeyToolText::tr("; out of reach on %n frames", nullptr, limb.framesOutOfReach());
    return shownResult(result);
}

} // namespace

QVector<KeyTool> poseTools()
{
    using P = KeyToolParameter;
    return {
        {"pin",
         KeyToolText::tr("Pin Joint"),
         KeyToolText::tr(
             "Keeps the primary selected joint in place by rotating the two bones above it."),
         {{"start", KeyToolText::tr("Start (frame)"), P::Time, "0"},
          {"end", KeyToolText::tr("End (frame)"), P::Time, "30"},
          {"falloff", KeyToolText::tr("Falloff (frames)"), P::Time, "5", {}, 0}},
         &pin,
         true,
         &pinnedJoint},
    };
}
