#include "undo/journalvalues.h"

#include "keys/vxproperty_p.h"
#include "scene/journalitems.h"
#include "scene/vxelement_p.h"

#include <vxcore/vxjournalreader.h>
#include <vxcore/vxjournalwriter.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

bool journalPut(VxJournalWriter &writer, bool value)
{
    writer.number(quint8(value));
    return true;
}

bool journalPut(VxJournalWriter &writer, VxTime value)
{
    writer.number(qint32(value));
    return true;
}

bool journalPut(VxJournalWriter &writer, VxNode::RotationOrder value)
{
    writer.number(quint8(value));
    return true;
}

bool journalPut(VxJournalWriter &writer, const QString &value)
{
    writer.text(value);
    return true;
}

bool journalPut(VxJournalWriter &writer, const VxTimeRange &value)
{
    return journalPut(writer, value.getStart()) && journalPut(writer, value.getEnd());
}

bool journalPut(VxJournalWriter &writer, const QVector3D &value)
{
    for (int axis = 0; axis < 3; ++axis)
        writer.number(value[axis]);
    return true;
}

bool journalPut(VxJournalWriter &writer, const std::optional<VxRestPose> &value)
{
    writer.number(quint8(value.has_value()));
    if (value)
        writer.block(value->data(), qint64(sizeof(VxRestPose)));
    return true;
}

bool journalPut(VxJournalWriter &writer, const VxSceneViews::Views &value)
{
    for (const std::optional<VxTimeRange> &view : value) {
        writer.number(quint8(view.has_value()));
        journalPut(writer, view.value_or(VxTimeRange()));
    }
    return true;
}

bool journalPut(VxJournalWriter &writer, const VxTimeDisplay &value)
{
    writer.number(quint8(value.unit));
    writer.number(qint32(value.rate.frames));
    writer.number(qint32(value.rate.seconds));
    return journalPut(writer, value.dropsFrames);
}

bool journalPut(VxJournalWriter &writer, const QPointer<VxProperty> &value)
{
    return writer.property(value);
}

void journalGet(VxJournalReader &reader, bool *value)
{
    *value = reader.number<quint8>() != 0;
}

void journalGet(VxJournalReader &reader, VxTime *value)
{
    *value = reader.number<qint32>();
}

void journalGet(VxJournalReader &reader, VxNode::RotationOrder *value)
{
    const auto order = reader.number<quint8>();
    if (order > VxNode::ZYX)
        reader.fail();
    else
        *value = VxNode::RotationOrder(order);
}

void journalGet(VxJournalReader &reader, QString *value)
{
    *value = reader.text();
}

void journalGet(VxJournalReader &reader, VxTimeRange *value)
{
    const auto start = reader.number<qint32>();
    *value = VxTimeRange(start, reader.number<qint32>());
}

void journalGet(VxJournalReader &reader, QVector3D *value)
{
    for (int axis = 0; axis < 3; ++axis) {
        (*value)[axis] = reader.number<float>();
        if (!qIsFinite((*value)[axis]))
            reader.fail();
    }
}

void journalGet(VxJournalReader &reader, std::optional<VxRestPose> *value)
{
    value->reset();
    if (reader.number<quint8>() == 0)
        return;
    value->emplace();
    for (float &number : **value) {
        number = reader.number<float>();
        if (!qIsFinite(number))
            reader.fail();
    }
}

void journalGet(VxJournalReader &reader, VxSceneViews::Views *value)
{
    for (std::optional<VxTimeRange> &view : *value) {
        const bool isSet = reader.number<quint8>() != 0;
        VxTimeRange range;
        journalGet(reader, &range);
        view = isSet ? std::optional<VxTimeRange>(range) : std::nullopt;
    }
}

void journalGet(VxJournalReader &reader, VxTimeDisplay *value)
{
    const auto unit = reader.number<quint8>();
    value->rate.frames = reader.number<qint32>();
    value->rate.seconds = reader.number<qint32>();
    journalGet(reader, &value->dropsFrames);
    if (unit > VxTimeDisplay::Timecode || value->rate.seconds < 1)
        reader.fail();
    else
        value->unit = VxTimeDisplay::Unit(unit);
}

bool journalBegin(VxJournalWriter &writer, const VxProperty *property, int kind)
{
    writer.number(JournalItem::PropertyValue);
    writer.number(quint8(kind));
    return writer.property(property);
}

bool journalBegin(VxJournalWriter &writer, const VxElement *element, int kind)
{
    const auto *node = qobject_cast<const VxNode *>(element);
    writer.number(JournalItem::NodeValue);
    writer.number(quint8(kind));
    return node && writer.node(node);
}

bool journalBegin(VxJournalWriter &writer, const QObject *, int kind)
{
    writer.number(JournalItem::SceneValue);
    writer.number(quint8(kind));
    return true;
}

bool vxIsInDocument(const VxProperty *property)
{
    const VxElement *owner = property->getOwner();
    return owner && VxElement::Private::of(owner)->findScene();
}

bool vxIsInDocument(const VxElement *element)
{
    return VxElement::Private::of(element)->findScene();
}

bool vxIsInDocument(const QObject *)
{
    return true;
}

bool vxIsView(const VxProperty *, int kind)
{
    return kind == VxUndoTransientValue;
}

bool vxIsView(const VxScene *, int kind)
{
    return kind == VxUndoSceneTime || kind == VxUndoScenePlayRange;
}

bool vxIsView(const QObject *, int)
{
    return false;
}
