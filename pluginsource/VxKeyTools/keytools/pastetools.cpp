#include "keytools/keytool.h"

#include "keytools/keypaste.h"
#include "keytools/keytooltext.h"

#include <QtCore/QHash>
#include <algorithm>
#include <vxcore/vxnode.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxscene.h>

namespace {

enum Destination { CopiedNodes, SelectedNodes };

KeyToolResult refusedPaste(const QString &reason)
{
    return refusedResult(KeyToolText::tr("Paste Keys: %1").arg(reason));
}

/// A property below a group with a name; null for none.
VxProperty *findBelow(const VxPropertyGroup *group, const QString &name)
{
    for (int i = 0; i < group->getNumProperties(); ++i) {
        if (group->getProperty(i)->getName() == name)
            return group->getProperty(i);
    }
    for (int i = 0; i < group->getNumChildren(); ++i) {
        if (VxProperty *found = findBelow(group->getChild(i), name))
            return found;
    }
    return nullptr;
}

/// The node's property with a name, or that of its object.
VxProperty *findProperty(const VxNode *node, const QString &name)
{
    VxProperty *own = node->findProperty(name);
    return own ? own : findBelow(node->getPropertyGroups()->getRoot(), name);
}

QStringList copiedNodeNames(const std::vector<VxCopiedKeys> &copied)
{
    QStringList names;
    QSet<QString> found;
    for (const VxCopiedKeys &keys : copied) {
        if (!found.contains(keys.node))
            names.append(keys.node);
        found.insert(keys.node);
    }
    return names;
}

QVector<VxNode *> selectedInSceneOrder()
{
    QVector<VxNode *> nodes = vxScene->getNodes();
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(),
                               [](const VxNode *node) { return !node->isSelected(); }),
                nodes.end());
    return nodes;
}

/// The nodes that get the keys of each copied node, by its name.
using Receivers = QHash<QString, QVector<VxNode *>>;

Receivers receiversOf(const QStringList &names, Destination to, QString *obstacle)
{
    Receivers receivers;
    if (to == CopiedNodes) {
        for (VxNode *node : vxScene->getNodes()) {
            if (names.contains(node->getName()) && !receivers.contains(node->getName()))
                receivers[node->getName()].append(node);
        }
        return receivers;
    }
    const QVector<VxNode *> selected = selectedInSceneOrder();
    if (names.size() == 1) {
        receivers[names.first()] = selected;
    } else if (selected.size() == names.size()) {
        for (int i = 0; i < names.size(); ++i)
            receivers[names[i]].append(selected[i]);
    } else {
        *obstacle = KeyToolText::tr("the keys are of %1 nodes; select as many").arg(names.size());
    }
    if (selected.isEmpty())
        *obstacle = KeyToolText::tr("select nodes");
    return receivers;
}

/// Pastes what the receivers have properties for; returns the number of those without one.
int pasteAll(const std::vector<VxCopiedKeys> &copied, const Receivers &receivers, KeyPaste *paste)
{
    int missing = 0;
    for (const VxCopiedKeys &keys : copied) {
        const QVector<VxNode *> nodes = receivers.value(keys.node);
        missing += nodes.isEmpty() ? 1 : 0;
        for (const VxNode *node : nodes) {
            if (VxProperty *property = findProperty(node, keys.property))
                paste->paste(keys, property);
            else
                ++missing;
        }
    }
    return missing;
}

KeyToolResult finish(const KeyPaste &paste, int missing)
{
    KeyToolResult result;
    result.done = paste.keys() > 0;
    result.keys = result.after = paste.keys();
    result.channels = paste.channels();
    result.message =
        result.done
            ? KeyToolText::tr("Paste Keys: %1 on %2 channels").arg(result.keys).arg(result.channels)
            : KeyToolText::tr("Paste Keys: no property takes the keys");
    if (missing > 0)
        result.message += KeyToolText::tr("; not found: %1").arg(missing);
    if (paste.skipped() > 0)
        result.message += KeyToolText::tr(" (%1 locked or linked skipped)").arg(paste.skipped());
    return shownResult(result);
}

KeyToolResult pasteKeys(const KeyToolArguments &arguments)
{
    VxKeySelection *selection = VxKeySelection::current();
    if (!selection || selection->copiedKeys().empty())
        return refusedPaste(KeyToolText::tr("copy keys first"));
    const std::vector<VxCopiedKeys> &copied = selection->copiedKeys();
    QString obstacle;
    const Receivers receivers =
        receiversOf(copiedNodeNames(copied), Destination(arguments.choice("to")), &obstacle);
    if (!obstacle.isEmpty())
        return refusedPaste(obstacle);
    KeyPaste paste(copied, vxScene->getTime(), vxScene->getTimeStep(),
                   KeyPaste::Mode(arguments.choice("mode")));
    VxUndoStackHold hold;
    auto block = std::make_unique<VxChangeBlock>();
    const int missing = pasteAll(copied, receivers, &paste);
    if (paste.keys() > 0)
        selection->set(paste.entries());
    block.reset();
    hold.accept(KeyToolText::tr("Paste Keys"));
    return finish(paste, missing);
}

} // namespace

QVector<KeyTool> pasteTools()
{
    using P = KeyToolParameter;
    const QStringList destinations = {KeyToolText::tr("Copied nodes"),
                                      KeyToolText::tr("Selected nodes")};
    const QStringList modes = {KeyToolText::tr("Merge"), KeyToolText::tr("Replace span"),
                               KeyToolText::tr("Ripple")};
    return {
        {"paste",
         KeyToolText::tr("Paste"),
         KeyToolText::tr("Pastes copied keys at the playhead, by the names of properties."),
         {{"to", KeyToolText::tr("To"), P::Choice, destinations[1], destinations},
          {"mode", KeyToolText::tr("Other keys"), P::Choice, modes[0], modes}},
         &pasteKeys},
    };
}
