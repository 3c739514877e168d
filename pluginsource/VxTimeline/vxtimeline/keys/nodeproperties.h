#ifndef NODEPROPERTIES_H
#define NODEPROPERTIES_H

#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

/// The properties of a node's elements: the node, then its object, then the object's sub-elements;
/// not of child nodes.
namespace NodeProperties {

/// Calls visit(const VxElement *) for each of these elements.
template <typename Visit> void visitElements(const VxNode *node, Visit visit)
{
    visit(node);
    const VxObject *object = node->getObject();
    if (!object)
        return;
    visit(object);
    for (int i = 0; i < object->getNumSubElements(); ++i)
        visit(object->getSubElement(i));
}

/// Calls visit(VxProperty *) for each property; missing controls are created.
template <typename Visit> void visitAll(const VxNode *node, Visit visit)
{
    visitElements(node, [&visit](const VxElement *element) {
        for (int i = 0; i < element->getNumProperties(); ++i)
            visit(element->getProperty(i));
    });
}

/// Calls visit(VxProperty *) for each existing property object, so for all that have keys.
template <typename Visit> void visitMade(const VxNode *node, Visit visit)
{
    visitElements(node, [&visit](const VxElement *element) {
        for (VxProperty *property : element->getMadeProperties())
            visit(property);
    });
}

inline bool hasMade(const VxNode *node)
{
    bool found = false;
    visitMade(node, [&found](const VxProperty *) { found = true; });
    return found;
}

} // namespace NodeProperties

#endif
