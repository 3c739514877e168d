#include "io/fbx/vxfbxsettings.h"

#include "io/fbx/vxfbxobjects.h"
#include "io/vxfiletext.h"

namespace {

constexpr double newTicksPerSecond = 141120000.0;
constexpr int customTimeMode = 14;

// Frames per second of a time mode below 18; 0 where the mode itself has none.
double rateOfMode(int mode)
{
    constexpr double fps30 = 30000.0 / 1001.0;
    constexpr double fps24 = 24000.0 / 1001.0;
    constexpr double fps60 = 60000.0 / 1001.0;
    const double rates[] = {30.0,  120.0, 100.0, 60.0,   50.0,  48.0, 30.0, 30.0, fps30,
                            fps30, 25.0,  24.0,  1000.0, fps24, 0.0,  96.0, 72.0, fps60};
    return mode >= 0 && mode < int(std::size(rates)) ? rates[mode] : -1.0;
}

QString writerOf(const VxFbxRecords &records)
{
    const auto info = records.find({"FBXHeaderExtension", "SceneInfo", "Properties70"});
    for (const char *prefix : {"LastSaved|", "Original|"}) {
        const QByteArray name = QByteArray(prefix) + "ApplicationName";
        const QByteArray version = QByteArray(prefix) + "ApplicationVersion";
        const QString program =
            records.text(vxFbxProperty(records, info, name.constData())).trimmed();
        if (!program.isEmpty())
            return QStringList{program,
                               records.text(vxFbxProperty(records, info, version.constData()))}
                .join(u' ')
                .trimmed();
    }
    const auto creator = records.find({"FBXHeaderExtension", "Creator"});
    return records.text(records.value(creator, 0));
}

double ticksPerSecondOf(const VxFbxRecords &records)
{
    const auto header = records.find({"FBXHeaderExtension"});
    qint64 headerVersion = 0;
    qint64 definition = 0;
    const auto version = records.child(header, "FBXHeaderVersion");
    const auto timeCode = records.child(records.child(header, "OtherFlags"), "TCDefinition");
    records.integer(records.value(version, 0), &headerVersion);
    constexpr qint64 oldTicks = 127;
    const bool isNew = headerVersion >= 1004 &&
                       records.integer(records.value(timeCode, 0), &definition) &&
                       definition != oldTicks;
    return isNew ? newTicksPerSecond : VxFbxSettings().ticksPerSecond;
}

// The three axes must be different ones.
bool readAxes(const VxFbxRecords &records, VxFbxRecords::Index properties,
              std::array<VxFbxSettings::Axis, 3> *axes)
{
    constexpr const char *names[] = {"CoordAxis", "UpAxis", "FrontAxis"};
    bool isUsed[3] = {};
    std::array<VxFbxSettings::Axis, 3> read = *axes;
    for (std::size_t i = 0; i < 3; ++i) {
        const double axis = vxFbxNumber(records, properties, names[i], double(read[i].axis));
        const QByteArray sign = QByteArray(names[i]) + "Sign";
        if (axis != 0.0 && axis != 1.0 && axis != 2.0)
            return false;
        read[i].axis = static_cast<int>(axis);
        read[i].sign = vxFbxNumber(records, properties, sign.constData(), 1.0) < 0.0 ? -1 : 1;
        isUsed[read[i].axis] = true;
    }
    if (!isUsed[0] || !isUsed[1] || !isUsed[2])
        return false;
    *axes = read;
    return true;
}

void readRate(const VxFbxRecords &records, VxFbxRecords::Index properties, VxFbxSettings *settings,
              QStringList *notes)
{
    const double mode = vxFbxNumber(records, properties, "TimeMode", 0.0);
    double rate = mode >= 0.0 && mode < 1000.0 ? rateOfMode(static_cast<int>(mode)) : -1.0;
    if (mode == double(customTimeMode))
        rate = vxFbxNumber(records, properties, "CustomFrameRate", -1.0);
    if (rate > 0.0 && rate <= 10000.0)
        settings->rate = rate;
    else
        notes->append(
            VxFileText::tr("The file's frame rate is invalid; 30 frames per second are used."));
}

} // namespace

VxFbxSettings vxFbxReadSettings(const VxFbxRecords &records, QStringList *notes)
{
    VxFbxSettings settings;
    settings.writer = writerOf(records);
    settings.ticksPerSecond = ticksPerSecondOf(records);
    const auto properties = records.find({"GlobalSettings", "Properties70"});
    readRate(records, properties, &settings, notes);
    if (!readAxes(records, properties, &settings.axes))
        notes->append(VxFileText::tr("The file's axes are invalid; Y up is used."));
    const double unit = vxFbxNumber(records, properties, "UnitScaleFactor", 1.0);
    if (unit > 1e-9 && unit < 1e9)
        settings.metresPerUnit = unit * 0.01;
    else
        notes->append(
            VxFileText::tr("The file's unit of length is invalid; centimetres are used."));
    return settings;
}
