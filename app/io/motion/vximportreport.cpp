#include "io/motion/vximportreport.h"

#include "io/vxfiletext.h"

#include <QJsonArray>
#include <vxcore/vxlocalnumber.h>

namespace {

QString number(double value)
{
    return vxLocalNumber(QString::number(value, 'g', 6));
}

QJsonArray clipsOf(const VxImportReport &report)
{
    QJsonArray clips;
    for (const VxImportedClip &clip : report.clips)
        clips.append(QJsonObject{{QStringLiteral("name"), clip.name},
                                 {QStringLiteral("imported"), clip.isImported},
                                 {QStringLiteral("start"), clip.range.getStart()},
                                 {QStringLiteral("end"), clip.range.getEnd()}});
    return clips;
}

QJsonArray omissionsOf(const VxImportReport &report)
{
    QJsonArray omissions;
    for (const VxMotionOmission &omission : report.omissions)
        omissions.append(QJsonObject{{QStringLiteral("what"), omission.what},
                                     {QStringLiteral("why"), omission.why},
                                     {QStringLiteral("first"), omission.first},
                                     {QStringLiteral("count"), omission.count}});
    return omissions;
}

// Every plain member with its JSON name, for both directions.
template <class Report, class Visitor> void visit(Report &report, Visitor &&visitor)
{
    visitor("file", report.file);
    visitor("format", report.format);
    visitor("writer", report.writer);
    visitor("sourceRate", report.sourceRate);
    visitor("rateFromKeys", report.isRateFromKeys);
    visitor("step", report.step);
    visitor("sceneStep", report.sceneStep);
    visitor("turned", report.isRotated);
    visitor("metresPerUnit", report.metresPerUnit);
    visitor("firstKey", report.firstKey);
    visitor("movedToZero", report.isMovedToZero);
    visitor("nodes", report.nodes);
    visitor("bones", report.bones);
    visitor("morphs", report.morphs);
    visitor("properties", report.properties);
    visitor("channels", report.channels);
    visitor("keysBefore", report.keysBefore);
    visitor("keysAfter", report.keysAfter);
    visitor("offFrameKeys", report.offFrameKeys);
    visitor("mergedKeys", report.mergedKeys);
    visitor("angleError", report.angleError);
    visitor("valueError", report.valueError);
}

struct JsonInput
{
    const QJsonObject &object;

    QJsonValue member(const char *name) const { return object.value(QLatin1String(name)); }
    void operator()(const char *name, QString &value) const { value = member(name).toString(); }
    void operator()(const char *name, bool &value) const { value = member(name).toBool(); }
    void operator()(const char *name, double &value) const { value = member(name).toDouble(); }
    void operator()(const char *name, int &value) const { value = member(name).toInt(); }
    void operator()(const char *name, qint64 &value) const
    {
        value = qint64(member(name).toDouble());
    }
};

} // namespace

bool VxImportReport::isRateKept() const
{
    return sourceRate > 0.0 &&
           qAbs(sourceRate - double(VxTicksPerSecond) / step) > 1e-6 * sourceRate;
}

QJsonObject VxImportReport::toJson() const
{
    QJsonObject object;
    visit(*this, [&object](const char *name, const auto &value) {
        object.insert(QLatin1String(name), QJsonValue(value));
    });
    object.insert(QStringLiteral("sceneRate"), sceneRate());
    object.insert(QStringLiteral("rateKept"), isRateKept());
    object.insert(QStringLiteral("upAxis"), QString(QLatin1Char(upAxis)));
    object.insert(QStringLiteral("clips"), clipsOf(*this));
    object.insert(QStringLiteral("notes"), QJsonArray::fromStringList(notes));
    object.insert(QStringLiteral("leftOut"), omissionsOf(*this));
    return object;
}

VxImportReport VxImportReport::fromJson(const QJsonObject &object)
{
    VxImportReport report;
    visit(report, JsonInput{object});
    report.step = qBound(1, report.step, VxTicksPerSecond);
    report.sceneStep = qBound(1, report.sceneStep, VxTicksPerSecond);
    const QString axis = object.value(QStringLiteral("upAxis")).toString();
    report.upAxis = axis.isEmpty() ? 'Y' : axis.at(0).toLatin1();
    const QJsonArray clips = object.value(QStringLiteral("clips")).toArray();
    for (const QJsonValue &value : clips) {
        const QJsonObject clip = value.toObject();
        report.clips.push_back({clip.value(QStringLiteral("name")).toString(),
                                clip.value(QStringLiteral("imported")).toBool(),
                                {clip.value(QStringLiteral("start")).toInt(),
                                 clip.value(QStringLiteral("end")).toInt()}});
    }
    const QJsonArray notes = object.value(QStringLiteral("notes")).toArray();
    for (const QJsonValue &note : notes)
        report.notes.append(note.toString());
    const QJsonArray omissions = object.value(QStringLiteral("leftOut")).toArray();
    for (const QJsonValue &value : omissions) {
        const QJsonObject omission = value.toObject();
        report.omissions.push_back({omission.value(QStringLiteral("what")).toString(),
                                    omission.value(QStringLiteral("why")).toString(),
                                    omission.value(QStringLiteral("first")).toString(),
                                    omission.value(QStringLiteral("count")).toInt()});
    }
    return report;
}

QString VxImportReport::summary() const
{
    QString text = VxFileText::tr("%1 (%2), %3, %4.",
                                  "nodes, bones, animated channels and keys, each with its number")
                       .arg(VxFileText::tr("%n nodes", nullptr, nodes),
                            VxFileText::tr("%n bones", nullptr, bones),
                            VxFileText::tr("%n animated channels", nullptr, channels),
                            VxFileText::tr("%n keys", nullptr, int(keysAfter)));
    const bool isOtherRate = qAbs(sourceRate - sceneRate()) > 1e-6 * sourceRate;
    if (sourceRate > 0.0)
        text += QLatin1Char(' ') +
                (isOtherRate ? VxFileText::tr("The file has %1 frames per second, the scene %2.")
                                   .arg(number(sourceRate), number(sceneRate()))
                             : VxFileText::tr("%1 frames per second.").arg(number(sourceRate)));
    int left = 0;
    for (const VxMotionOmission &omission : omissions)
        left += omission.count;
    if (left > 0)
        text += QLatin1Char(' ') + VxFileText::tr("Left out: %1; see the import report.").arg(left);
    return text;
}

QStringList VxImportReport::lines() const
{
    QStringList lines;
    const auto add = [&lines](const QString &name, const QString &value) {
        lines.append(VxFileText::tr("%1: %2").arg(name, value));
    };
    add(VxFileText::tr("File"), file);
    add(VxFileText::tr("Format"), format);
    add(VxFileText::tr("Written by"), writer.isEmpty() ? VxFileText::tr("not stated") : writer);
    add(VxFileText::tr("Frame rate of the file"),
        sourceRate <= 0.0 ? VxFileText::tr("unknown")
        : isRateFromKeys  ? VxFileText::tr("%1 (by its keys)").arg(number(sourceRate))
                          : number(sourceRate));
    add(VxFileText::tr("Frame rate of the scene"),
        (isRateKept()
             ? VxFileText::tr("%1 (%2 ticks per frame); the file's rate is kept with the figure")
             : VxFileText::tr("%1 (%2 ticks per frame)"))
            .arg(number(sceneRate()))
            .arg(sceneStep));
    add(VxFileText::tr("Up axis"),
        isRotated ? VxFileText::tr("%1, turned to Y by a node above").arg(QLatin1Char(upAxis))
                  : VxFileText::tr("Y"));
    add(VxFileText::tr("Unit of length"),
        metresPerUnit > 0.0
            ? VxFileText::tr("%1 m; lengths are kept as they are").arg(number(metresPerUnit))
            : VxFileText::tr("not stated; lengths are kept as they are"));
    QStringList names;
    for (const VxImportedClip &clip : clips) {
        if (clip.isImported)
            names.append(VxFileText::tr("%1 (frames %2 to %3)")
                             .arg(clip.name, number(double(clip.range.getStart()) / sceneStep),
                                  number(double(clip.range.getEnd()) / sceneStep)));
    }
    add(VxFileText::tr("Animations"),
        VxFileText::tr("%1 of %2").arg(names.size()).arg(clips.size()) +
            (names.isEmpty() ? QString()
                             : QStringLiteral(": ") + names.join(QStringLiteral(", "))));
    add(VxFileText::tr("First key"), isMovedToZero
                                         ? VxFileText::tr("%1 s, moved to 0").arg(number(firstKey))
                                         : VxFileText::tr("%1 s, kept").arg(number(firstKey)));
    add(VxFileText::tr("Nodes"),
        VxFileText::tr("%1, of which %n bones", nullptr, bones).arg(nodes));
    add(VxFileText::tr("Morphs"), QString::number(morphs));
    add(VxFileText::tr("Other properties"), QString::number(properties));
    add(VxFileText::tr("Animated channels"), QString::number(channels));
    add(VxFileText::tr("Keys in the file"), QString::number(keysBefore));
    add(VxFileText::tr("Keys in the scene"), QString::number(keysAfter));
    add(VxFileText::tr("Keys between frames"), QString::number(offFrameKeys));
    if (mergedKeys > 0)
        add(VxFileText::tr("Keys at the time of another one, merged"), QString::number(mergedKeys));
    add(VxFileText::tr("Largest error"), VxFileText::tr("%1 degrees, %2 % of a channel's range")
                                             .arg(number(angleError), number(valueError * 100.0)));
    for (const VxMotionOmission &omission : omissions)
        add(VxFileText::tr("Left out"),
            omission.first.isEmpty()
                ? VxFileText::tr("%1 × %2. %3")
                      .arg(QString::number(omission.count), omission.what, omission.why)
                : VxFileText::tr("%1 × %2, first \"%4\". %3")
                      .arg(QString::number(omission.count), omission.what, omission.why,
                           omission.first));
    for (const QString &note : notes)
        add(VxFileText::tr("Note"), note);
    return lines;
}
