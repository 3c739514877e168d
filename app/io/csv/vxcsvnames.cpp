#include "io/csv/vxcsvnames.h"

namespace {

const char *const channelNames[] = {"x position", "y position", "z position", "x rotation",
                                    "y rotation", "z rotation", "scale",      "x scale",
                                    "y scale",    "z scale"};
const char *const endNames[] = {"x end", "y end", "z end"};
const char *const kindNames[] = {"node", "figure", "bone"};
const char *const orderNames[] = {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"};

/// The index of a text among names, whatever its case; -1 when it is none of them.
template <std::size_t N> int indexOf(const char *const (&names)[N], const QString &text)
{
    for (std::size_t i = 0; i < N; ++i) {
        if (text.compare(QLatin1String(names[i]), Qt::CaseInsensitive) == 0)
            return int(i);
    }
    return -1;
}

bool isDigits(const QString &text, int from)
{
    for (int i = from; i < text.size(); ++i) {
        if (text[i] < QLatin1Char('0') || text[i] > QLatin1Char('9'))
            return false;
    }
    return from < text.size();
}

} // namespace

const char VxCsvNames::MorphPrefix[] = "morph:";
const char VxCsvNames::PropertyPrefix[] = "property:";

QString VxCsvNames::escaped(const QString &name, int number)
{
    QString text = name;
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    // A cell must not be empty.
    return number > 1 || name.isEmpty() ? text + QLatin1Char('\\') + QString::number(number) : text;
}

bool VxCsvNames::unescape(const QString &text, QString *name)
{
    name->clear();
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] != QLatin1Char('\\')) {
            name->append(text[i]);
            continue;
        }
        if (isDigits(text, i + 1))
            return true;
        ++i;
        if (i == text.size() || text[i] != QLatin1Char('\\'))
            return false;
        name->append(text[i]);
    }
    return true;
}

VxCsvNames::Property VxCsvNames::propertyOf(const QString &text)
{
    Property property;
    const int channel = indexOf(channelNames, text);
    const int end = indexOf(endNames, text);
    const auto named = [&](const char *prefix, Property::Kind kind) {
        if (text.startsWith(QLatin1String(prefix), Qt::CaseInsensitive) &&
            unescape(text.mid(int(qstrlen(prefix))), &property.name))
            property.kind = kind;
    };
    if (channel >= 0) {
        property.kind = Property::Channel;
        property.target = VxMotionTarget(channel);
    } else if (end >= 0) {
        property.kind = Property::End;
        property.axis = end;
    } else {
        named(MorphPrefix, Property::Morph);
        named(PropertyPrefix, Property::Further);
    }
    return property;
}

QString VxCsvNames::nameOf(VxMotionTarget target)
{
    return QLatin1String(channelNames[int(target)]);
}

QString VxCsvNames::endName(int axis)
{
    return QLatin1String(endNames[axis]);
}

QString VxCsvNames::kindName(VxMotionNode::Kind kind)
{
    return QLatin1String(kindNames[kind]);
}

bool VxCsvNames::kindOf(const QString &text, VxMotionNode::Kind *kind)
{
    const int index = indexOf(kindNames, text);
    *kind = VxMotionNode::Kind(qMax(0, index));
    return index >= 0;
}

QString VxCsvNames::orderName(VxNode::RotationOrder order)
{
    return QLatin1String(orderNames[order]);
}

bool VxCsvNames::orderOf(const QString &text, VxNode::RotationOrder *order)
{
    const int index = indexOf(orderNames, text);
    *order = VxNode::RotationOrder(qMax(0, index));
    return index >= 0;
}
