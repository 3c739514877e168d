#include "vxtimeline/rows/dopesheetvaluesource.h"

#include <vxcore/vxnumericproperty.h>

namespace {

constexpr int MaxLinks = 100;

} // namespace

VxProperty *dopeSheetValueSource(VxProperty *property)
{
    VxProperty *start = property->getAliasedProperty();
    if (!start)
        start = property;
    auto *source = qobject_cast<VxNumericProperty *>(start);
    for (int i = 0; source && i < MaxLinks && source->isLinked() && !source->isLinkTerminal(); ++i)
        source = source->getLinkedProperty();
    return source ? source : start;
}
