#include "keytools/keytool.h"
#include "keytools/keytooltext.h"

#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxscene.h>

namespace {

const QString Pivot = QStringLiteral("pivot");

QStringList pivots()
{
    return {KeyToolText::tr("Zero"), KeyToolText::tr("Mean"), KeyToolText::tr("Playhead")};
}

/// The pivot of scaling for each channel: zero, the mean of its keys, or the curve's value at the
/// playhead.
std::vector<double> pivotValues(const KeyTargets &targets, int choice)
{
    std::vector<double> values;
    for (const KeyTarget &track : targets.tracks) {
        double value = 0;
        if (choice == 1) {
            KeySeries keys;
            for (const int i : track.indexes())
                keys.values.push_back(track.property->getKeyDoubleValue(i));
            keys.times.resize(keys.values.size());
            value = meanValue(keys);
        } else if (choice == 2) {
            value = track.property->getDoubleValue(vxScene->getTime());
        }
        values.push_back(value);
    }
    return values;
}

KeyToolResult scaleAbout(double factor, int pivot, const QString &label)
{
    KeyToolRun run;
    const std::vector<double> about = pivotValues(run.targets(), pivot);
    for (std::size_t track = 0; track < about.size(); ++track)
        run.edit(track, [&](KeySeries *keys) { scaleValues(keys, factor, about[track]); });
    return run.finish(label);
}

KeyToolResult scaleValuesTool(const KeyToolArguments &arguments)
{
    return scaleAbout(arguments.input("factor").kind == VxTypedInput::Offset
                          ? 1 + arguments.amount("factor")
                          : arguments.amount("factor"),
                      arguments.choice(Pivot), KeyToolText::tr("Scale Values"));
}

KeyToolResult mirrorValues(const KeyToolArguments &arguments)
{
    return scaleAbout(-1, arguments.choice(Pivot), KeyToolText::tr("Mirror Values"));
}

KeyToolResult setValues(const KeyToolArguments &arguments)
{
    const VxTypedInput input = arguments.input("value");
    KeyToolRun run;
    run.edit([&input](KeySeries *keys) {
        for (double &value : keys->values)
            value = input.appliedTo(value);
    });
    return run.finish(KeyToolText::tr("Set Values"));
}

KeyToolResult offset(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    run.edit([&](KeySeries *keys) {
        offsetValues(keys, arguments.amount("amount"), arguments.ticks("start"),
                     arguments.ticks("end"), arguments.ticks("falloff"));
    });
    return run.finish(KeyToolText::tr("Offset With Falloff"));
}

} // namespace

QVector<KeyTool> valueTools()
{
    using P = KeyToolParameter;
    const P pivot = {Pivot, KeyToolText::tr("About"), P::Choice, pivots()[0], pivots()};
    return {
        {"setValues",
         KeyToolText::tr("Set Values"),
         KeyToolText::tr("Sets the values of keys, or changes them: 5, +5, 150%, *2."),
         {{"value", KeyToolText::tr("Value"), P::Change, "+0"}},
         &setValues},
        {"scaleValues",
         KeyToolText::tr("Scale Values"),
         KeyToolText::tr("Scales the values of keys about a pivot."),
         {{"factor", KeyToolText::tr("Factor"), P::Change, "150%"}, pivot},
         &scaleValuesTool},
        {"mirrorValues",
         KeyToolText::tr("Mirror Values"),
         KeyToolText::tr("Mirrors the values of keys about a pivot."),
         {pivot},
         &mirrorValues},
        {"offset",
         KeyToolText::tr("Offset With Falloff"),
         KeyToolText::tr(
             "Adds an amount to the keys of a span, with a falloff before and after it."),
         {{"amount", KeyToolText::tr("Amount"), P::Number, "0"},
          {"start", KeyToolText::tr("Start (frame)"), P::Time, "0"},
          {"end", KeyToolText::tr("End (frame)"), P::Time, "30"},
          {"falloff", KeyToolText::tr("Falloff (frames)"), P::Time, "10", {}, 0}},
         &offset},
    };
}
