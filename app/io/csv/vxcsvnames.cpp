#include "io/csv/vxcsvnames.h"

namespace {

const char *const targetNames[] = {"x position", "y position", "z position", "x rotation",
                                   "y rotation", "z rotation", "scale",      "x scale",
                                   "y scale",    "z scale"};
const char *const endNames[] = {"x end", "y end", "z end"};
const char *const kindNames[] = {"node", "figure", "bone"};

/// The index of a text among names, whatever its case; -1 when it is none of them.
template <std::size_t N> int indexOf(const char *const (&names)[N], const QString &text)
{
    for (std::size_t i = 0; i < N; ++i) {
        if (text.compare(QLatin1String(names[i]), Qt::CaseInsensitive) == 0)
            return int(i);
    }
    return -1;
}

const char UsualGroup[] = "/Custom";

/** The index of the last "/" that is not escaped; -1 without one. */
int lastSlash(const QString &text)
{
    int last = -1;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('\\'))
            ++i;
        else if (text[i] == QLatin1Char('/'))
            last = i;
    }
    return last;
}

/** Splits a further property's text into its group, if that is not the usual one, and its name. */
bool readFurther(const QString &text, VxCsvNames::Property *property)
{
    const int slash = text.startsWith(QLatin1Char('/')) ? lastSlash(text) : -1;
    return VxCsvNames::unescape(text.left(qMax(0, slash)), &property->group) &&
           VxCsvNames::unescape(text.mid(slash + 1), &property->name);
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

const char VxCsvNames::VisibleName[] = "visible";
const char VxCsvNames::MorphPrefix[] = "morph:";
const char VxCsvNames::PropertyPrefix[] = "property:";

QString VxCsvNames::escaped(const QString &name, int number)
{
    QString text = name;
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    // A cell must not be empty.
    return number > 1 || name.isEmpty() ? text + QLatin1Char('\\') + QString::number(number) : text;
}

QString VxCsvNames::escapedInGroup(const QString &group, const QString &name, int number)
{
    QString text = escaped(name, number);
    text.replace(QLatin1Char('/'), QLatin1String("\\/"));
    const bool isUsual = !group.startsWith(QLatin1Char('/')) || group == QLatin1String(UsualGroup);
    return isUsual ? text : escaped(group, 1) + QLatin1Char('/') + text;
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
        if (i == text.size() || (text[i] != QLatin1Char('\\') && text[i] != QLatin1Char('/')))
            return false;
        name->append(text[i]);
    }
    return true;
}

VxCsvNames::Property VxCsvNames::propertyOf(const QString &text)
{
    Property property;
    const int channel = indexOf(targetNames, text);
    const int end = indexOf(endNames, text);
    const auto has = [&text](const char *prefix) {
        return text.startsWith(QLatin1String(prefix), Qt::CaseInsensitive);
    };
    const auto behind = [&text](const char *prefix) { return text.mid(int(qstrlen(prefix))); };
    if (channel >= 0) {
        property.kind = Property::Channel;
        property.target = VxMotionTarget(channel);
    } else if (end >= 0) {
        property.kind = Property::End;
        property.axis = end;
    } else if (text.compare(QLatin1String(VisibleName), Qt::CaseInsensitive) == 0) {
        property.kind = Property::Visible;
    } else if (has(MorphPrefix) && unescape(behind(MorphPrefix), &property.name)) {
        property.kind = Property::Morph;
    } else if (has(PropertyPrefix) && readFurther(behind(PropertyPrefix), &property)) {
        property.kind = Property::Further;
    }
    return property;
}

QString VxCsvNames::nameOf(VxMotionTarget target)
{
    return QLatin1String(targetNames[int(target)]);
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
    return QLatin1String(VxRotationOrderNames[order]);
}

bool VxCsvNames::orderOf(const QString &text, VxNode::RotationOrder *order)
{
    const int index = indexOf(VxRotationOrderNames, text);
    *order = VxNode::RotationOrder(qMax(0, index));
    return index >= 0;
}
