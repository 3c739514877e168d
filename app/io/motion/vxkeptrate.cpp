#include "io/motion/vxkeptrate.h"

#include "io/motion/vxmotiontiming.h"
#include "io/vxfiletext.h"

#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

namespace {

const QString propertyName = QStringLiteral("SourceFrameRate");

/** False for a node without a stored rate; a rate of another step is 0. */
bool readRate(const VxNode *node, VxTime step, double *rate)
{
    const auto *property = qobject_cast<const VxFloatProperty *>(node->findProperty(propertyName));
    if (!property)
        return false;
    const double exact = vxExactRate(double(property->getStoredValue()));
    *rate = exact > 0.0 && VxMotionTiming::stepOf(exact) == step ? exact : 0.0;
    return true;
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
    // A label in the document: the same in every language.
    property->setLabel(QStringLiteral("Source Frame Rate"));
    property->deleteAllKeys();
    property->setStoredValue(float(rate));
    property->setAnimatable(false);
    property->setExcluded(true);
    property->setLocked(true);
}

double vxKeptRate(const VxNode *node, VxTime step)
{
    double rate = 0.0;
    while (node && !readRate(node, step, &rate))
        node = node->getNodeParent();
    return rate;
}

double vxKeptRate(const VxNode *node, VxTime step, double ofParent)
{
    double rate = ofParent;
    readRate(node, step, &rate);
    return rate;
}

QString vxKeptRateName()
{
    return propertyName;
}

double vxExactRate(double rate)
{
    const auto isSame = [rate](double exact) { return float(exact) == float(rate); };
    const double ntsc = std::round(rate * 1001.0 / 1000.0) * 1000.0 / 1001.0;
    if (isSame(ntsc))
        return ntsc;
    for (const double places : {1e6, 1e7, 1e8}) {
        const double frameTime = std::round(places / rate) / places;
        if (isSame(1.0 / frameTime))
            return 1.0 / frameTime;
    }
    return rate;
}
