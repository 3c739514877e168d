#include "keytools/keytool.h"
#include "keytools/keytooltext.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>

namespace {

/// The current targets; with ripple also the later keys of their channels.
KeyTargets rippleTargets(const KeyToolArguments &arguments)
{
    KeyTargets targets = KeyTargets::current();
    for (KeyTarget &track : targets.tracks)
        track.withLaterKeys = arguments.choice("ripple") != 0;
    return targets;
}

/// Maps the times from first to last to another range; keys after last keep their distance from it.
void mapTimes(std::vector<VxTime> *times, const VxTimeRange &from, double start, double end)
{
    const double span = double(from.getEnd()) - from.getStart();
    const double factor = span > 0 ? (end - start) / span : 1;
    for (VxTime &time : *times) {
        const double beyond = double(time) - from.getEnd();
        time = wholeTick(beyond > 0 ? end + beyond
                                    : start + (double(time) - from.getStart()) * factor);
    }
}

KeyToolResult move(const KeyToolArguments &arguments)
{
    KeyToolRun run(rippleTargets(arguments));
    run.editTimes([&](std::vector<VxTime> *times) { moveTimes(times, arguments.amount("by")); });
    return run.finish(KeyToolText::tr("Move Keys"));
}

double pivotTime(int choice, const VxTimeRange &range)
{
    switch (choice) {
    case 1:
        return range.getStart();
    case 2:
        return range.getEnd();
    case 3:
        return (double(range.getStart()) + range.getEnd()) / 2;
    default:
        return vxScene->getTime();
    }
}

KeyToolResult scale(const KeyToolArguments &arguments)
{
    const VxTypedInput factor = arguments.input("factor");
    if (factor.kind == VxTypedInput::Offset)
        return refusedResult(
            KeyToolText::tr("Scale Times: the factor must be a number or a percentage"));
    KeyToolRun run;
    const double pivot = pivotTime(arguments.choice("pivot"), run.targets().range());
    run.editTimes([&](std::vector<VxTime> *times) { scaleTimes(times, factor.amount, pivot); });
    return run.finish(KeyToolText::tr("Scale Times"));
}

KeyToolResult retime(const KeyToolArguments &arguments)
{
    const KeyTargets targets = rippleTargets(arguments);
    const VxTimeRange range = targets.range();
    const VxTypedInput startInput = arguments.input("start");
    const VxTypedInput endInput = arguments.input("end");
    const double span = double(range.getEnd()) - range.getStart();
    const double start = startInput.appliedTo(range.getStart());
    const double end = endInput.kind == VxTypedInput::Factor ? start + span * endInput.amount
                                                             : endInput.appliedTo(range.getEnd());
    if (startInput.kind == VxTypedInput::Factor)
        return refusedResult(KeyToolText::tr("Retime: the start must be a time or an offset"));
    if (end < start)
        return refusedResult(KeyToolText::tr("Retime: the end is before the start"));
    KeyToolRun run(targets);
    run.editTimes([&](std::vector<VxTime> *times) { mapTimes(times, range, start, end); });
    return run.finish(KeyToolText::tr("Retime Keys"));
}

KeyTargets frameTargets(const KeyToolArguments &arguments)
{
    return arguments.choice("scope") == 1 ? KeyTargets::scene() : KeyTargets::candidates();
}

KeyToolResult insertFrames(const KeyToolArguments &arguments)
{
    KeyToolRun run(frameTargets(arguments));
    run.editTimes([&](std::vector<VxTime> *times) {
        insertTime(times, vxScene->getTime(), arguments.ticks("count"));
    });
    return run.finish(KeyToolText::tr("Insert Frames"));
}

KeyToolResult removeFrames(const KeyToolArguments &arguments)
{
    KeyToolRun run(frameTargets(arguments));
    const VxTime time = vxScene->getTime();
    const VxTime count = arguments.ticks("count");
    for (std::size_t track = 0; track < run.targets().tracks.size(); ++track) {
        VxNumericProperty *property = run.targets().tracks[track].property;
        const int first = property->getFirstKeyFrom(time);
        const int last = property->getFirstKeyFrom(wholeTick(double(time) + count));
        if (first < last)
            property->deleteKeys(first, last - 1);
        // All remaining keys are the target.
        run.retarget(track);
        run.editTimes(track, [&](std::vector<VxTime> *times) { removeTime(times, time, count); });
    }
    return run.finish(KeyToolText::tr("Remove Frames"));
}

KeyToolResult snap(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const VxTime step = std::max<VxTime>(1, arguments.ticks("step"));
    run.editTimes([step](std::vector<VxTime> *times) { snapTimes(times, step); });
    return run.finish(KeyToolText::tr("Snap Keys"));
}

KeyToolResult space(const KeyToolArguments &)
{
    KeyToolRun run;
    run.editTimes([](std::vector<VxTime> *times) { spaceTimes(times); });
    return run.finish(KeyToolText::tr("Space Keys Evenly"));
}

/// A segment has the type of its left key: reversed, that is the key on its right. A tangent
/// towards the previous key becomes one towards the next, which negates the bias. A smooth segment
/// beside a linear or constant one is then shaped by another key.
void reverseKeys(VxFittedKeys *keys, const VxTimeRange &range)
{
    for (VxTime &time : keys->times)
        time = wholeTick(double(range.getStart()) + range.getEnd() - time);
    std::rotate(keys->types.begin(), keys->types.end() - 1, keys->types.end());
    for (VxTcb &tcb : keys->tcb)
        tcb.bias = -tcb.bias;
}

KeyToolResult reverse(const KeyToolArguments &)
{
    KeyToolRun run;
    const VxTimeRange range = run.targets().range();
    for (std::size_t track = 0; track < run.targets().tracks.size(); ++track) {
        const bool hasTypes =
            qobject_cast<VxFloatProperty *>(run.targets().tracks[track].property) != nullptr;
        if (hasTypes)
            run.rewrite(track, [&](VxFittedKeys *keys) { reverseKeys(keys, range); });
        else
            run.editTimes(track, [&](std::vector<VxTime> *times) {
                scaleTimes(times, -1, (double(range.getStart()) + range.getEnd()) / 2);
            });
    }
    return run.finish(KeyToolText::tr("Reverse Keys"));
}

KeyToolResult duplicate(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const double by = arguments.amount("by");
    for (std::size_t track = 0; track < run.targets().tracks.size(); ++track) {
        run.rewrite(
            track,
            [by](VxFittedKeys *keys) {
                for (VxTime &time : keys->times)
                    time = wholeTick(time + by);
            },
            true);
    }
    return run.finish(KeyToolText::tr("Duplicate Keys"));
}

} // namespace

QVector<KeyTool> timeTools()
{
    using P = KeyToolParameter;
    const P ripple = {"ripple",
                      KeyToolText::tr("Ripple"),
                      P::Choice,
                      KeyToolText::tr("None"),
                      {KeyToolText::tr("None"), KeyToolText::tr("Later keys of the rows")}};
    const P scope = {"scope",
                     KeyToolText::tr("Rows"),
                     P::Choice,
                     KeyToolText::tr("Selected"),
                     {KeyToolText::tr("Selected"), KeyToolText::tr("All of the scene")}};
    const P by = {"by", KeyToolText::tr("By (frames)"), P::Time, "10"};
    return {
        {"move",
         KeyToolText::tr("Move"),
         KeyToolText::tr("Moves keys by a number of frames."),
         {by, ripple},
         &move},
        {"scaleTimes",
         KeyToolText::tr("Scale Times"),
         KeyToolText::tr("Scales the distances of keys from a pivot."),
         {{"factor", KeyToolText::tr("Factor"), P::Change, "150%"},
          {"pivot",
           KeyToolText::tr("About"),
           P::Choice,
           KeyToolText::tr("Playhead"),
           {KeyToolText::tr("Playhead"), KeyToolText::tr("Start"), KeyToolText::tr("End"),
            KeyToolText::tr("Middle")}}},
         &scale},
        {"retime",
         KeyToolText::tr("Retime"),
         KeyToolText::tr("Moves and scales keys to a start and an end."),
         {{"start", KeyToolText::tr("Start (frame or +offset)"), P::TimeChange, "+0"},
          {"end", KeyToolText::tr("End (frame, +offset or percent)"), P::TimeChange, "+0"},
          ripple},
         &retime},
        {"insertFrames",
         KeyToolText::tr("Insert Frames"),
         KeyToolText::tr("Moves the keys at and after the playhead later."),
         {{"count", KeyToolText::tr("Frames"), P::Time, "1", {}, 0}, scope},
         &insertFrames},
        {"removeFrames",
         KeyToolText::tr("Remove Frames"),
         KeyToolText::tr(
             "Deletes frames and their keys from the playhead on and moves later keys earlier."),
         {{"count", KeyToolText::tr("Frames"), P::Time, "1", {}, 0}, scope},
         &removeFrames},
        {"snap",
         KeyToolText::tr("Snap to Frames"),
         KeyToolText::tr("Moves keys to the nearest frames."),
         {{"step", KeyToolText::tr("Every (frames)"), P::Time, "1", {}, 0}},
         &snap},
        {"spaceEvenly",
         KeyToolText::tr("Space Evenly"),
         KeyToolText::tr("Spaces the keys of each channel evenly in time."),
         {},
         &space},
        {"reverse",
         KeyToolText::tr("Reverse"),
         KeyToolText::tr("Reverses the order of keys in time."),
         {},
         &reverse},
        {"duplicate",
         KeyToolText::tr("Duplicate"),
         KeyToolText::tr("Copies keys by a number of frames and selects the copies."),
         {by},
         &duplicate},
    };
}
