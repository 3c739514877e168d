#include "io/motion/vxkeptrate.h"

#include "io/motion/vxmotiontiming.h"

#include <QCoreApplication>
#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

namespace {

const QString propertyName = QStringLiteral("SourceFrameRate");

/** The exact rate for one in single precision: N * 1000 / 1001. */
double exactRate(double rate)
{
    const double whole = std::round(rate * 1001.0 / 1000.0);
    const double exact = whole * 1000.0 / 1001.0;
    return std::abs(exact - rate) < 2e-7 * rate ? exact : rate;
}

} // namespace

void vxKeepRate(VxNode *node, double rate)
{
    auto *property = qobject_cast<VxFloatProperty *>(node->findProperty(propertyName));
    if (!property) {
        auto made = std::make_unique<VxFloatProperty>(propertyName);
        if (!node->addProperty(made.get(), QStringLiteral("/General/Import")))
            return;
        property = made.release();
    }
    property->setLocked(false);
    property->setLabel(QCoreApplication::translate("VxKeptRate", "Source Frame Rate"));
    property->deleteAllKeys();
    property->setStoredValue(float(rate));
    property->setAnimatable(false);
    property->setExcluded(true);
    property->setLocked(true);
}

double vxKeptRate(const VxNode *node, VxTime step)
{
    for (; node; node = node->getNodeParent()) {
        const auto *property =
            qobject_cast<const VxFloatProperty *>(node->findProperty(propertyName));
        if (!property)
            continue;
        const double rate = exactRate(double(property->getStoredValue()));
        return rate > 0.0 && VxMotionTiming::stepOf(rate) == step ? rate : 0.0;
    }
    return 0.0;
}
