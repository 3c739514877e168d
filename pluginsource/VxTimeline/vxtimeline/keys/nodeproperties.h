#ifndef NODEPROPERTIES_H
#define NODEPROPERTIES_H

#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

// The properties of what a node consists of, as far as they exist: the others have no keys.
namespace NodeProperties {

template <typename Visit> void visitElement(const VxElement *element, Visit &visit)
{
    for (VxProperty *property : element->getMadeProperties())
        visit(property);
}

// Calls visit(VxProperty *) for each property of the node, then of its object, then of the
// object's sub-elements; not for those of child nodes.
template <typename Visit> void visitAll(const VxNode *node, Visit visit)
{
    visitElement(node, visit);
    const VxObject *object = node->getObject();
    if (!object)
        return;
    visitElement(object, visit);
    for (int i = 0; i < object->getNumSubElements(); ++i)
        visitElement(object->getSubElement(i), visit);
}

} // namespace NodeProperties

#endif
