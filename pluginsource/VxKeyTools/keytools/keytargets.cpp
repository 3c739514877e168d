#include "keytools/keytargets.h"

#include "keytools/keytooltext.h"

#include <QtCore/QSet>
#include <numeric>
#include <vxcore/vxelement.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxposefigure.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxscene.h>

namespace {

/// Collects properties, each key holder once.
class TargetCollector
{
public:
    explicit TargetCollector(KeyTargets *targets, bool includesReadOnly = false)
        : m_targets(targets)
        , m_includesReadOnly(includesReadOnly)
    {
    }

    void add(VxProperty *property, std::vector<VxKeySpan> spans)
    {
        auto *numeric = qobject_cast<VxNumericProperty *>(property);
        if (!numeric || spans.empty() || m_collected.contains(property))
            return;
        m_collected.insert(property);
        if (KeyTargets::isReadOnly(*numeric)) {
            ++(m_includesReadOnly ? m_targets->readOnly : m_targets->skipped);
            if (!m_includesReadOnly)
                return;
        }
        m_targets->tracks.push_back({numeric, std::move(spans)});
    }

    void addNodes(const QVector<VxNode *> &nodes, const VxTimeRange &range)
    {
        for (const VxNode *node : nodes)
            addGroup(node->getPropertyGroups()->getRoot(), range);
    }

private:
    void addGroup(const VxPropertyGroup *group, const VxTimeRange &range)
    {
        for (int i = 0; i < group->getNumProperties(); ++i)
            addKeys(group->getProperty(i), range);
        for (int i = 0; i < group->getNumChildren(); ++i)
            addGroup(group->getChild(i), range);
    }

    void addKeys(VxProperty *property, const VxTimeRange &range)
    {
        VxProperty *holder = property->getKeyHolder();
        if (!property->canBeKeyed() || property->isHidden() || property->isExcluded())
            return;
        const int first = holder->getFirstKeyFrom(range.getStart());
        const int last = range.getEnd() == VxTimeMax ? holder->getNumKeys()
                                                     : holder->getFirstKeyFrom(range.getEnd() + 1);
        if (first < last)
            add(holder, {{first, last}});
    }

    KeyTargets *m_targets;
    bool m_includesReadOnly;
    QSet<const VxProperty *> m_collected;
};

VxKeySelectionEntries selectedKeys()
{
    const VxKeySelection *selection = VxKeySelection::current();
    return selection ? selection->entries() : VxKeySelectionEntries();
}

/// The selected keys or, without any, those of the selected nodes in the play range.
KeyTargets collected(bool includesReadOnly)
{
    KeyTargets targets;
    TargetCollector collector(&targets, includesReadOnly);
    for (const VxKeySelectionEntry &entry : selectedKeys()) {
        targets.isSelection = true;
        collector.add(entry.holder, entry.spans);
    }
    if (!targets.isSelection && vxScene)
        collector.addNodes(vxScene->getSelectedNodes(), vxScene->getPlayRange());
    return targets;
}

} // namespace

std::vector<VxKeySpan> KeyTarget::editedSpans() const
{
    std::vector<VxKeySpan> all = spans;
    if (numLaterKeys() > 0)
        all.push_back({spans.back().last, property->getNumKeys()});
    return all;
}

std::vector<int> KeyTarget::indexes() const
{
    std::vector<int> all(std::size_t(numKeys() + numLaterKeys()));
    auto next = all.begin();
    for (const VxKeySpan &span : editedSpans()) {
        std::iota(next, next + (span.last - span.first), span.first);
        next += span.last - span.first;
    }
    return all;
}

int KeyTarget::numLaterKeys() const
{
    return withLaterKeys ? property->getNumKeys() - spans.back().last : 0;
}

int KeyTarget::numKeys() const
{
    return std::accumulate(spans.begin(), spans.end(), 0, [](int sum, const VxKeySpan &span) {
        return sum + span.last - span.first;
    });
}

KeyTargets KeyTargets::current()
{
    return collected(false);
}

KeyTargets KeyTargets::listed()
{
    return collected(true);
}

bool KeyTargets::isReadOnly(const VxNumericProperty &holder)
{
    return holder.isLocked() || (holder.isLinked() && !holder.isLinkTerminal());
}

bool operator==(const KeyTargets &a, const KeyTargets &b)
{
    const auto isSame = [](const KeyTarget &left, const KeyTarget &right) {
        return left.property == right.property && left.withLaterKeys == right.withLaterKeys &&
               left.spans == right.spans;
    };
    return a.isSelection == b.isSelection && a.skipped == b.skipped && a.readOnly == b.readOnly &&
           std::equal(a.tracks.begin(), a.tracks.end(), b.tracks.begin(), b.tracks.end(), isSame);
}

KeyTargets KeyTargets::candidates()
{
    KeyTargets targets;
    TargetCollector collector(&targets);
    for (const VxKeySelectionEntry &entry : selectedKeys())
        collector.add(entry.holder, {{0, entry.holder->getNumKeys()}});
    if (vxScene)
        collector.addNodes(vxScene->getSelectedNodes(), VxTimeRange::all());
    return targets;
}

KeyTargets KeyTargets::figures()
{
    KeyTargets targets;
    targets.owner = Figures;
    if (!vxScene)
        return targets;
    QVector<VxNode *> nodes;
    for (const VxFigureNodes &figure : VxPoseFigure::byFigure(vxScene->getSelectedNodes())) {
        nodes.append(figure.root);
        figure.root->getNodeChildren(nodes, true);
    }
    TargetCollector(&targets).addNodes(nodes, vxScene->getPlayRange());
    return targets;
}

KeyTargets KeyTargets::scene()
{
    KeyTargets targets;
    targets.owner = Scene;
    if (vxScene)
        TargetCollector(&targets).addNodes(vxScene->getNodes(), VxTimeRange::all());
    return targets;
}

VxTimeRange KeyTargets::range() const
{
    VxTimeRange range;
    bool isFirst = true;
    for (const KeyTarget &track : tracks) {
        const VxTimeRange own(track.property->getKeyTime(track.spans.front().first),
                              track.property->getKeyTime(track.spans.back().last - 1));
        range = isFirst ? own : range.united(own);
        isFirst = false;
    }
    return range;
}

int KeyTargets::numKeys() const
{
    return std::accumulate(tracks.begin(), tracks.end(), 0,
                           [](int sum, const KeyTarget &track) { return sum + track.numKeys(); });
}

QString KeyTargets::description() const
{
    static const char *const texts[] = {
        QT_TRANSLATE_N_NOOP("KeyToolText",
                            "%n keys of the selected nodes in the play range, on %1"),
        QT_TRANSLATE_N_NOOP("KeyToolText", "%n keys of the figure in the play range, on %1"),
        QT_TRANSLATE_N_NOOP("KeyToolText", "%n keys of the scene, on %1")};
    const char *const text = isSelection
                                 ? QT_TRANSLATE_N_NOOP("KeyToolText", "%n selected keys on %1")
                                 : texts[std::size_t(owner)];
    QString result = KeyToolText::tr(text, nullptr, numKeys())
                         .arg(KeyToolText::tr("%n channels", nullptr, int(tracks.size())));
    if (readOnly > 0)
        result += KeyToolText::tr(" (%n locked or linked, read-only)", nullptr, readOnly);
    if (skipped > 0)
        result += KeyToolText::tr(" (%n locked or linked skipped)", nullptr, skipped);
    return result;
}
