#include "keytools/keypaste.h"
#include "keytools/keytool.h"
#include "keytools/keytooltext.h"
#include "keytools/mirroredpaste.h"

#include <QtCore/QHash>
#include <algorithm>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

enum Destination { CopiedNodes, SelectedNodes };

KeyToolResult refusedPaste(const QString &action, const QString &reason)
{
    return refusedResult(QStringLiteral("%1: %2").arg(action, reason));
}

KeyPaste pasteAtPlayhead(const std::vector<VxCopiedKeys> &copied, const KeyToolArguments &arguments)
{
    return {copied, vxScene->getTime(), vxScene->getTimeStep(),
            KeyPaste::Mode(arguments.choice("mode"))};
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
        const QSet<QString> copied(names.begin(), names.end());
        for (VxNode *node : vxScene->getNodes()) {
            if (copied.contains(node->getName()) && !receivers.contains(node->getName()))
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
        *obstacle =
            KeyToolText::tr("the keys are of %n nodes; select as many", nullptr, names.size());
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
            if (VxProperty *property = KeyPaste::findProperty(node, keys.property))
                paste->paste(keys, property);
            else
                ++missing;
        }
    }
    return missing;
}

KeyToolResult finish(const QString &action, const KeyPaste &paste, const QString &notes)
{
    KeyToolResult result;
    result.done = paste.keys() > 0;
    result.keys = result.after = paste.keys();
    result.channels = paste.channels();
    result.message = result.done
                         ? KeyToolText::tr("%1: %2 on %n channels", nullptr, result.channels)
                               .arg(action)
                               .arg(result.keys)
                         : KeyToolText::tr("%1: no property accepts the keys").arg(action);
    result.message += notes;
    if (paste.skipped() > 0)
        result.message +=
            KeyToolText::tr(" (%n locked or linked skipped)", nullptr, paste.skipped());
    return shownResult(result);
}

/// Pastes in one undo entry and selects the keys.
template <class Paste> void commit(const QString &action, KeyPaste *paste, Paste pasteTo)
{
    VxUndoStackHold hold;
    auto block = std::make_unique<VxChangeBlock>();
    pasteTo();
    if (paste->keys() > 0)
        VxKeySelection::current()->set(paste->entries());
    block.reset();
    hold.accept(action);
}

KeyToolResult pasteKeys(const KeyToolArguments &arguments)
{
    const QString action = KeyToolText::tr("Paste Keys");
    const VxKeySelection *selection = VxKeySelection::current();
    if (!selection || selection->copiedKeys().empty())
        return refusedPaste(action, KeyToolText::tr("copy keys first"));
    const std::vector<VxCopiedKeys> &copied = selection->copiedKeys();
    QString obstacle;
    const Receivers receivers =
        receiversOf(copiedNodeNames(copied), Destination(arguments.choice("to")), &obstacle);
    if (!obstacle.isEmpty())
        return refusedPaste(action, obstacle);
    KeyPaste paste = pasteAtPlayhead(copied, arguments);
    int missing = 0;
    commit(action, &paste, [&] { missing = pasteAll(copied, receivers, &paste); });
    return finish(action, paste,
                  missing > 0 ? KeyToolText::tr("; not found: %1").arg(missing) : "");
}

QString notesOn(const MirroredPaste &mirrored)
{
    constexpr int ListedNames = 5;
    QString notes = KeyToolText::tr("; nodes: %1 to the other side, %2 in place")
                        .arg(mirrored.otherSide())
                        .arg(mirrored.inPlace());
    const QStringList &missing = mirrored.missingNodes();
    if (!missing.isEmpty())
        notes += KeyToolText::tr("; not found: %1")
                     .arg(missing.mid(0, ListedNames).join(QStringLiteral(", ")));
    if (missing.size() > ListedNames)
        notes += KeyToolText::tr(" and %n more", nullptr, missing.size() - ListedNames);
    if (mirrored.missingProperties() > 0)
        notes += KeyToolText::tr("; properties not found: %1").arg(mirrored.missingProperties());
    return notes;
}

KeyToolResult pasteMirrored(const KeyToolArguments &arguments)
{
    const QString action = KeyToolText::tr("Paste Mirrored");
    const VxKeySelection *selection = VxKeySelection::current();
    if (!selection || selection->copiedKeys().empty())
        return refusedPaste(action, KeyToolText::tr("copy keys first"));
    QVector<VxNode *> figures;
    for (const VxFigureNodes &figure : VxPoseFigure::byFigure(vxScene->getSelectedNodes()))
        figures.append(figure.root);
    KeyPaste paste = pasteAtPlayhead(selection->copiedKeys(), arguments);
    const MirroredPaste mirrored(selection->copiedKeys(), figures, paste.start());
    commit(action, &paste, [&] { mirrored.pasteTo(&paste); });
    return finish(action, paste, notesOn(mirrored));
}

} // namespace

/// Copying is not reported, so the pane does not count the keys.
static QString copiedKeys(const QVariantMap & /*texts*/)
{
    return KeyToolText::tr("the copied keys");
}

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
         &pasteKeys,
         true,
         &copiedKeys},
        {"pasteMirrored",
         KeyToolText::tr("Paste Mirrored"),
         KeyToolText::tr("Pastes copied keys at the playhead, mirrored, to the nodes of the other "
                         "side."),
         {{"mode", KeyToolText::tr("Other keys"), P::Choice, modes[0], modes}},
         &pasteMirrored,
         true,
         &copiedKeys},
    };
}
