#include "keytools/keytool.h"
#include "keytools/keytooltext.h"

#include <QtCore/QHash>
#include <algorithm>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>

namespace {

/// Selects exactly those candidate keys that `accepts` returns true for; its arguments are the
/// property, the key's index and whether the key is selected now.
template <class Accepts> KeyToolResult selectKeys(const QString &label, const Accepts &accepts)
{
    KeyToolResult result;
    VxKeySelection *selection = VxKeySelection::current();
    const KeyTargets candidates = KeyTargets::candidates();
    VxKeySelectionEntries entries;
    for (const KeyTarget &track : candidates.tracks) {
        VxKeySelectionEntry entry;
        entry.holder = track.property;
        const std::vector<VxKeySpan> former =
            selection ? selection->spansOf(track.property) : std::vector<VxKeySpan>();
        std::size_t span = 0;
        for (int i = 0; i < track.property->getNumKeys(); ++i) {
            while (span < former.size() && former[span].last <= i)
                ++span;
            const bool isSelected = span < former.size() && former[span].first <= i;
            if (!accepts(*track.property, i, isSelected))
                continue;
            ++result.keys;
            if (!entry.spans.empty() && entry.spans.back().last == i)
                ++entry.spans.back().last;
            else
                entry.spans.push_back({i, i + 1});
        }
        if (!entry.spans.empty())
            entries.push_back(std::move(entry));
    }
    result.channels = int(entries.size());
    result.after = result.keys;
    result.done = selection && !candidates.isEmpty();
    if (result.done)
        selection->set(entries);
    result.message =
        result.done ? KeyToolText::tr("%1: %2 selected on %n channels", nullptr, result.channels)
                          .arg(label)
                          .arg(result.keys)
                    : KeyToolText::tr("%1: select keys, or nodes with keys").arg(label);
    return shownResult(result);
}

KeyToolResult selectTimes(const KeyToolArguments &arguments)
{
    const VxTime start = arguments.ticks("start");
    const VxTime end = arguments.ticks("end");
    return selectKeys(KeyToolText::tr("Select Frames"),
                      [=](const VxProperty &property, int i, bool) {
                          const VxTime time = property.getKeyTime(i);
                          return time >= start && time <= end;
                      });
}

KeyToolResult selectBefore(const KeyToolArguments &)
{
    return selectKeys(KeyToolText::tr("Select Before Playhead"),
                      [](const VxProperty &property, int i, bool) {
                          return property.getKeyTime(i) < vxScene->getTime();
                      });
}

KeyToolResult selectAfter(const KeyToolArguments &)
{
    return selectKeys(KeyToolText::tr("Select After Playhead"),
                      [](const VxProperty &property, int i, bool) {
                          return property.getKeyTime(i) > vxScene->getTime();
                      });
}

KeyToolResult selectSameFrames(const KeyToolArguments &)
{
    std::vector<VxTime> times;
    for (const KeyTarget &track : KeyTargets::current().tracks) {
        for (const int i : track.indexes())
            times.push_back(track.property->getKeyTime(i));
    }
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return selectKeys(
        KeyToolText::tr("Select Same Frames"), [&](const VxProperty &property, int i, bool) {
            return std::binary_search(times.begin(), times.end(), property.getKeyTime(i));
        });
}

/// Of the selected keys of a channel, or of all where none is, the first, the n-th after it ...
KeyToolResult selectEvery(const KeyToolArguments &arguments)
{
    const int n = std::max(1, arguments.choice("n"));
    const bool thins = KeyTargets::current().isSelection;
    QHash<const VxProperty *, int> counts;
    return selectKeys(KeyToolText::tr("Select Every Nth"),
                      [&](const VxProperty &property, int, bool isSelected) {
                          if (thins && !isSelected)
                              return false;
                          return counts[&property]++ % n == 0;
                      });
}

KeyToolResult selectInverse(const KeyToolArguments &)
{
    return selectKeys(KeyToolText::tr("Invert Selection"),
                      [](const VxProperty &, int, bool isSelected) { return !isSelected; });
}

KeyToolResult selectType(const KeyToolArguments &arguments)
{
    const int type = arguments.choice("type");
    return selectKeys(KeyToolText::tr("Select by Type"),
                      [type](const VxProperty &property, int i, bool) {
                          return property.getKeyInterpolationType(i) == type;
                      });
}

KeyToolResult selectValues(const KeyToolArguments &arguments)
{
    const double least = arguments.amount("min");
    const double most = arguments.amount("max");
    return selectKeys(KeyToolText::tr("Select by Value"),
                      [=](const VxNumericProperty &property, int i, bool) {
                          const double value = property.getKeyDoubleValue(i);
                          return value >= least && value <= most;
                      });
}

} // namespace

QVector<KeyTool> selectionTools()
{
    using P = KeyToolParameter;
    const QStringList types = {KeyToolText::tr("Linear"), KeyToolText::tr("Constant"),
                               KeyToolText::tr("TCB")};
    return {
        {"selectFrames",
         KeyToolText::tr("Select Frames"),
         KeyToolText::tr("Selects the keys from one frame to another, both included."),
         {{"start", KeyToolText::tr("Start (frame)"), P::Time, "0"},
          {"end", KeyToolText::tr("End (frame)"), P::Time, "30"}},
         &selectTimes},
        {"selectBefore",
         KeyToolText::tr("Select Before Playhead"),
         KeyToolText::tr("Selects the keys before the playhead."),
         {},
         &selectBefore},
        {"selectAfter",
         KeyToolText::tr("Select After Playhead"),
         KeyToolText::tr("Selects the keys after the playhead."),
         {},
         &selectAfter},
        {"selectSameFrames",
         KeyToolText::tr("Select Same Frames"),
         KeyToolText::tr("Selects every key on the frames of the selected keys."),
         {},
         &selectSameFrames},
        {"selectEvery",
         KeyToolText::tr("Select Every Nth"),
         KeyToolText::tr("Keeps every nth of the selected keys of each channel selected."),
         {{"n", KeyToolText::tr("n"), P::Number, "2", {}, 1}},
         &selectEvery},
        {"selectInverse",
         KeyToolText::tr("Invert Selection"),
         KeyToolText::tr("Selects the keys that are not selected, and no others."),
         {},
         &selectInverse},
        {"selectType",
         KeyToolText::tr("Select by Type"),
         KeyToolText::tr("Selects the keys of one interpolation type."),
         {{"type", KeyToolText::tr("Type"), P::Choice, types[0], types}},
         &selectType},
        {"selectValues",
         KeyToolText::tr("Select by Value"),
         KeyToolText::tr("Selects the keys whose value is in a range, both ends included."),
         {{"min", KeyToolText::tr("Minimum"), P::Number, "0"},
          {"max", KeyToolText::tr("Maximum"), P::Number, "0"}},
         &selectValues},
    };
}
