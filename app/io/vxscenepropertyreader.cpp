#include "io/vxscenepropertyreader.h"

#include "io/vxcborinput.h"
#include "io/vxfiletext.h"
#include "io/vxkeptmembers.h"
#include "io/vxscenefile.h"

#include <limits>
#include <memory>
#include <optional>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxelement.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxstringproperty.h>

namespace {

constexpr qint64 IntMin = std::numeric_limits<int>::min();
constexpr qint64 IntMax = std::numeric_limits<int>::max();

} // namespace

/// One property of the file.
struct VxScenePropertyReader::Record
{
    QString name, kind, label, path, textValue;
    bool hidden = false, dynamicallyHidden = false, locked = false, animatable = true;
    bool excluded = false, percentage = false, clamped = false, hasLimits = false;
    int axis = 0, interpolation = 0;
    double defaultValue = 0;
    std::optional<double> value; // absent: the default
    float sensitivity = 1;
    double limits[2] = {0, 0};
    struct Column
    {
        QByteArray bytes;
        qint64 offset = 0;              // in the file
        std::optional<qint64> checksum; // absent in older files
    };
    Column times, values, types, tcb;
    QByteArray kept;
    QVector<Reference> references;

    bool isFloat() const { return kind == QLatin1String("float"); }
    bool isBool() const { return kind == QLatin1String("bool"); }
    bool isInt() const { return kind == QLatin1String("int") || isBool(); }
    double storedValue() const { return value.value_or(defaultValue); }
    bool isString() const { return kind == QLatin1String("string"); }
    int numKeys() const { return times.bytes.size() / int(sizeof(VxTime)); }
};

void VxScenePropertyReader::read(VxElement *element)
{
    Record record;
    m_input->map(
        {
            {"name", [&] { record.name = m_input->text(); }},
            {"kind", [&] { record.kind = m_input->text(); }},
            {"label", [&] { record.label = m_input->text(); }},
            {"path", [&] { record.path = m_input->text(); }},
            {"hidden", [&] { record.hidden = m_input->boolean(); }},
            {"dynamicallyHidden", [&] { record.dynamicallyHidden = m_input->boolean(); }},
            {"locked", [&] { record.locked = m_input->boolean(); }},
            {"animatable", [&] { record.animatable = m_input->boolean(); }},
            {"excluded", [&] { record.excluded = m_input->boolean(); }},
            {"percentage", [&] { record.percentage = m_input->boolean(); }},
            {"clamped", [&] { record.clamped = m_input->boolean(); }},
            {"axis", [&] { record.axis = int(m_input->integer(0, 4)); }},
            {"interpolation", [&] { record.interpolation = int(m_input->integer(0, 2)); }},
            {"sensitivity", [&] { record.sensitivity = m_input->singleNumber(); }},
            {"default", [&] { record.defaultValue = m_input->number(); }},
            {"value", [&] { readValue(record); }},
            {"limits", [&] { readLimits(record); }},
            {"keys", [&] { readKeys(record); }},
            {"alias", [&] { readReference('a', record); }},
            {"override", [&] { readReference('o', record); }},
            {"link", [&] { readLink(record); }},
        },
        &record.kept);
    if (m_input->failed() || !checkColumns(element, record))
        return;
    if (!record.isFloat() && !record.isInt() && !record.isString())
        m_input->fail(VxFileText::tr("The property \"%1\" has an unknown kind.").arg(record.name));
    else if (record.path.count(QLatin1Char('/')) > VxProperty::MaxGroupDepth)
        m_input->fail(VxFileText::tr("The groups of the property \"%1\" are nested too deeply.")
                          .arg(record.name));
    else if (checkRange(record))
        build(element, record);
}

bool VxScenePropertyReader::checkRange(const Record &record)
{
    const double highest =
        record.isFloat() ? double(std::numeric_limits<float>::max()) : double(IntMax);
    const double lowest = record.isFloat() ? -highest : double(IntMin);
    const std::pair<const char *, double> numbers[] = {{"value", record.storedValue()},
                                                       {"default", record.defaultValue},
                                                       {"limits", record.limits[0]},
                                                       {"limits", record.limits[1]}};
    for (const auto &[member, number] : numbers) {
        if (number < lowest || number > highest)
            return m_input->fail(
                VxFileText::tr("The member \"%1\" of the property \"%2\" is %3, outside of "
                               "%4 to %5.")
                    .arg(QLatin1String(member), record.name, QString::number(number),
                         QString::number(lowest), QString::number(highest)));
    }
    return true;
}

void VxScenePropertyReader::readValue(Record &record)
{
    if (record.isString())
        record.textValue = m_input->text();
    else
        record.value = m_input->number();
}

void VxScenePropertyReader::readLimits(Record &record)
{
    m_input->numbers(record.limits, 2);
    record.hasLimits = true;
}

void VxScenePropertyReader::readReference(char kind, Record &record)
{
    Reference reference;
    reference.kind = kind;
    reference.to = m_input->integer(0, IntMax);
    record.references.append(reference);
}

void VxScenePropertyReader::readLink(Record &record)
{
    Reference link;
    m_input->map({
        {"to", [&] { link.to = m_input->integer(0, IntMax); }},
        {"terminal", [&] { link.terminal = m_input->boolean(); }},
        {"factor", [&] { link.factor = m_input->number(); }},
        {"offset", [&] { link.offset = m_input->number(); }},
    });
    record.references.append(link);
}

void VxScenePropertyReader::readKeys(Record &record)
{
    const auto read = [this](Record::Column &column, quint64 tag, int unit) {
        column.offset = m_input->offset();
        column.bytes = m_input->bytes(tag, unit);
    };
    const quint64 valueTag = record.isFloat() ? VxSceneFile::TagFloat32 : VxSceneFile::TagInt32;
    m_input->map({
        {"times", [&] { read(record.times, VxSceneFile::TagInt32, sizeof(VxTime)); }},
        {"values", [&] { read(record.values, valueTag, 4); }},
        {"types", [&] { read(record.types, VxSceneFile::TagUint8, 1); }},
        {"tcb", [&] { read(record.tcb, VxSceneFile::TagFloat32, sizeof(VxTcb)); }},
        {"crc32", [&] { readChecksums(record); }},
    });
}

void VxScenePropertyReader::readChecksums(Record &record)
{
    const auto read = [this](Record::Column &column) {
        column.checksum = m_input->integer(0, std::numeric_limits<quint32>::max());
    };
    m_input->map({
        {"times", [&] { read(record.times); }},
        {"values", [&] { read(record.values); }},
        {"types", [&] { read(record.types); }},
        {"tcb", [&] { read(record.tcb); }},
    });
}

/** Before the values are used: a damaged column is named as one, whatever its numbers are. */
bool VxScenePropertyReader::checkColumns(const VxElement *element, const Record &record)
{
    const std::pair<const char *, const Record::Column *> columns[] = {{"times", &record.times},
                                                                       {"values", &record.values},
                                                                       {"types", &record.types},
                                                                       {"tcb", &record.tcb}};
    for (const auto &[name, column] : columns) {
        const QByteArray &bytes = column->bytes;
        if (column->checksum &&
            *column->checksum != VxSceneFile::checksum(bytes.constData(), bytes.size()))
            return m_input->failAt(
                column->offset,
                VxFileText::tr("The key column \"%1\" of the property \"%2\" of \"%3\" is "
                               "damaged: its checksum differs.")
                    .arg(QLatin1String(name), record.name, element->getName()));
    }
    const int count = record.numKeys();
    const auto fits = [count](const Record::Column &column, int unit) {
        return column.bytes.isEmpty() || column.bytes.size() == count * unit;
    };
    if (record.values.bytes.size() == count * 4 && fits(record.types, 1) &&
        fits(record.tcb, int(sizeof(VxTcb))))
        return true;
    return m_input->fail(
        VxFileText::tr("The key arrays of \"%1\" differ in length.").arg(record.name));
}

VxProperty *VxScenePropertyReader::makeProperty(const Record &record) const
{
    if (record.isFloat())
        return new VxFloatProperty(record.name, float(record.defaultValue));
    if (record.isBool())
        return new VxBoolProperty(record.name, record.defaultValue != 0.0);
    if (record.isInt())
        return new VxIntProperty(record.name, int(record.defaultValue));
    return new VxStringProperty(record.name);
}

void VxScenePropertyReader::build(VxElement *element, const Record &record)
{
    VxProperty *property = element->findProperty(record.name);
    if (!property) {
        std::unique_ptr<VxProperty> made(makeProperty(record));
        property = element->addProperty(made.get(), record.path);
        if (property)
            made.release();
    }
    const bool sameKind =
        property && (record.isFloat()    ? qobject_cast<VxFloatProperty *>(property) != nullptr
                     : record.isBool()   ? qobject_cast<VxBoolProperty *>(property) != nullptr
                     : record.isString() ? qobject_cast<VxStringProperty *>(property) != nullptr
                                         : qobject_cast<VxIntProperty *>(property) != nullptr);
    if (!sameKind || m_seen.contains(property)) {
        m_input->fail(VxFileText::tr("The property \"%1\" cannot be added to \"%2\".")
                          .arg(record.name, element->getName()));
        return;
    }
    applyValues(property, record);
    applyTraits(property, record);
    VxKeptMembers::set(property, record.kept);
    if (record.locked)
        m_locked.append(property);
    for (Reference reference : record.references) {
        reference.from = m_properties.size();
        m_references.append(reference);
    }
    m_properties.append(property);
    m_seen.insert(property);
}

void VxScenePropertyReader::applyTraits(VxProperty *property, const Record &record) const
{
    if (!record.label.isEmpty())
        property->setLabel(record.label);
    property->setHidden(record.hidden);
    property->setDynamicallyHidden(record.dynamicallyHidden);
    property->setAnimatable(record.animatable);
    property->setExcluded(record.excluded);
    if (auto *numeric = qobject_cast<VxNumericProperty *>(property))
        numeric->setPercentage(record.percentage);
    if (auto *number = qobject_cast<VxFloatProperty *>(property)) {
        number->setAxis(VxFloatProperty::Axis(record.axis));
        number->setSensitivity(record.sensitivity);
        number->setDefaultInterpolation(record.interpolation);
        if (record.hasLimits)
            number->setMinMax(float(record.limits[0]), float(record.limits[1]), record.clamped);
    } else if (auto *whole = qobject_cast<VxIntProperty *>(property)) {
        if (record.hasLimits)
            whole->setMinMax(int(record.limits[0]), int(record.limits[1]), record.clamped);
    }
}

void VxScenePropertyReader::applyValues(VxProperty *property, const Record &record) const
{
    const auto *times = reinterpret_cast<const VxTime *>(record.times.bytes.constData());
    const auto *types = record.types.bytes.isEmpty()
                            ? nullptr
                            : reinterpret_cast<const quint8 *>(record.types.bytes.constData());
    const auto *tcb = record.tcb.bytes.isEmpty()
                          ? nullptr
                          : reinterpret_cast<const VxTcb *>(record.tcb.bytes.constData());
    const int count = record.numKeys();
    bool accepted = true;
    if (auto *number = qobject_cast<VxFloatProperty *>(property)) {
        number->setStoredValue(float(record.storedValue()));
        const auto *values = reinterpret_cast<const float *>(record.values.bytes.constData());
        accepted = number->setKeys({times, values, types, tcb, count});
    } else if (auto *whole = qobject_cast<VxIntProperty *>(property)) {
        whole->setStoredValue(int(record.storedValue()));
        const auto *values = reinterpret_cast<const qint32 *>(record.values.bytes.constData());
        accepted = whole->setKeys({times, values, nullptr, nullptr, count});
    } else if (auto *string = qobject_cast<VxStringProperty *>(property)) {
        string->setValue(record.textValue);
    }
    if (!accepted)
        m_input->fail(VxFileText::tr(
                          "The keys of \"%1\" are not in time order, or have a value that is not a "
                          "finite number.")
                          .arg(record.name));
}

void VxScenePropertyReader::setReference(const Reference &reference)
{
    VxProperty *source = m_properties.at(reference.from);
    VxProperty *target = m_properties.value(int(reference.to));
    auto *from = qobject_cast<VxNumericProperty *>(source);
    auto *to = qobject_cast<VxNumericProperty *>(target);
    bool accepted = false;
    if (target && reference.kind == 'a')
        accepted = source->setAliasedProperty(target);
    else if (target && reference.kind == 'o')
        accepted = source->setOverridingControl(target);
    else if (from && to)
        accepted = from->setLink(to, reference.terminal, reference.factor, reference.offset);
    if (!accepted)
        failReference(reference);
}

void VxScenePropertyReader::failReference(const Reference &reference)
{
    m_input->fail(
        VxFileText::tr("The property \"%1\" has an invalid reference to property %2: "
                       "a different kind, a cycle, or a chain of more than %3 references.")
            .arg(m_properties.at(reference.from)->getName(), QString::number(reference.to),
                 QString::number(VxProperty::MaxReferenceChain)));
}

QVector<int> VxScenePropertyReader::referencesFromTheirEnds() const
{
    const int count = m_properties.size();
    QVector<int> open(count, 0);           // references of a property that are not in the result
    QVector<QVector<int>> incoming(count); // references by their target property
    for (int i = 0; i < m_references.size(); ++i) {
        ++open[m_references.at(i).from];
        if (m_references.at(i).to < count)
            incoming[int(m_references.at(i).to)].append(i);
    }
    QVector<int> complete;
    for (int i = 0; i < count; ++i) {
        if (open.at(i) == 0)
            complete.append(i);
    }
    QVector<int> result;
    while (!complete.isEmpty()) {
        for (const int reference : qAsConst(incoming[complete.takeLast()])) {
            result.append(reference);
            const int from = m_references.at(reference).from;
            if (--open[from] == 0)
                complete.append(from);
        }
    }
    return result;
}

void VxScenePropertyReader::resolve()
{
    // Each property gets its references after those of its targets: nothing depends on it at that
    // time, so that the checks for cycles and long chains cost nothing per reference.
    const QVector<int> order = referencesFromTheirEnds();
    QVector<bool> done(m_references.size(), false);
    for (const int index : order) {
        if (!m_input->failed())
            setReference(m_references.at(index));
        done[index] = true;
    }
    const int left = done.indexOf(false);
    if (left >= 0)
        failReference(m_references.at(left));
    for (VxProperty *property : qAsConst(m_locked))
        property->setLocked(true);
}
