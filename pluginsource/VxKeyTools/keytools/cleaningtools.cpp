#include "keytools/keyreduction.h"
#include "keytools/keysteps.h"
#include "keytools/keytool.h"
#include "keytools/keytooltext.h"
#include "keytools/rotationtracks.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyfilter.h>
#include <vxcore/vxscene.h>

namespace {

VxKeyInterp::Type keyType(int choice)
{
    return static_cast<VxKeyInterp::Type>(choice);
}

VxTime sampleStep(const VxFloatProperty &property, const VxKeySpan &span)
{
    return VxTime(boundedStep(vxScene->getTimeStep(), property.getKeyTime(span.first),
                              property.getKeyTime(span.last - 1)));
}

/// Filters the values of each channel's keys; their times stay.
template <class Filter> void filterValues(KeyToolRun *run, const Filter &filter)
{
    run->edit([&filter](KeySeries *keys) {
        const std::vector<float> values(keys->values.begin(), keys->values.end());
        const std::vector<float> result = filter(keys->times.data(), values.data(), keys->count());
        for (std::size_t i = 0; i < result.size(); ++i) {
            if (result[i] != values[i])
                keys->values[i] = double(result[i]);
        }
    });
}

KeyToolResult eulerFilter(const KeyToolArguments &)
{
    KeyToolRun run;
    std::vector<std::size_t> others;
    int incomplete = 0;
    int changed = 0;
    const auto rotations = RotationTracks::find(run.targets(), &others, &incomplete);
    for (const RotationTracks &rotation : rotations) {
        std::array<std::vector<float>, 3> angles;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const KeyTarget &track = run.targets().tracks[rotation.tracks[axis]];
            for (const int i : track.indexes())
                angles[axis].push_back(float(track.property->getKeyDoubleValue(i)));
        }
        changed += vxFilterEuler({angles[0].data(), angles[1].data(), angles[2].data()},
                                 int(angles[0].size()), rotation.order);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            run.edit(rotation.tracks[axis], [&](KeySeries *keys) {
                keys->values.assign(angles[axis].begin(), angles[axis].end());
            });
        }
    }
    run.addNote(KeyToolText::tr("; %1 changed on %2")
                    .arg(KeyToolText::tr("%n keys", nullptr, changed),
                         KeyToolText::tr("%n rotations", nullptr, int(rotations.size()))));
    if (incomplete > 0)
        run.addNote(KeyToolText::tr(
            "; %n rotations skipped, because their three angles do not have the same keys", nullptr,
            incomplete));
    return run.finish(KeyToolText::tr("Euler Filter"));
}

KeyToolResult smoothGaussian(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const double sigma = arguments.amount("width") / VxTicksPerSecond;
    filterValues(&run, [sigma](const VxTime *times, const float *values, int count) {
        return vxSmoothGaussian(times, values, count, sigma);
    });
    return run.finish(KeyToolText::tr("Smooth (Gaussian)"));
}

KeyToolResult smoothButterworth(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const double cutoff = arguments.amount("cutoff");
    filterValues(&run, [cutoff](const VxTime *times, const float *values, int count) {
        return vxSmoothButterworth(times, values, count, cutoff);
    });
    return run.finish(KeyToolText::tr("Smooth (Butterworth)"));
}

KeyToolResult removeSpikes(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const double window = arguments.amount("window") / VxTicksPerSecond;
    const double threshold = arguments.amount("threshold");
    int spikes = 0;
    filterValues(&run, [&](const VxTime *times, const float *values, int count) {
        int removed = 0;
        auto result = vxRemoveSpikes(times, values, count, window, threshold, &removed);
        spikes += removed;
        return result;
    });
    run.addNote(KeyToolText::tr("; %n spikes", nullptr, int(spikes)));
    return run.finish(KeyToolText::tr("Remove Spikes"));
}

QStringList reduceScopes()
{
    return {KeyToolText::tr("Selected"), KeyToolText::tr("Figure"),
            KeyToolText::tr("All of the scene")};
}

KeyTargets targetsOf(int scope)
{
    return scope == 0   ? KeyTargets::current()
           : scope == 1 ? KeyTargets::figures()
                        : KeyTargets::scene();
}

QString targetsOfReduce(const QVariantMap &texts)
{
    return targetsOf(qMax(0, reduceScopes().indexOf(texts["scope"].toString()))).description();
}

/// The error is in the unit of the values; a percentage is that of the keys that remain.
KeyToolResult reduce(const KeyToolArguments &arguments)
{
    KeyToolRun run(targetsOf(arguments.choice("scope")));
    const VxTypedInput error = arguments.input("error");
    KeyReduction reduction(run.targets(),
                           arguments.choice("type") == 0 ? VxKeyInterp::Linear : VxKeyInterp::Tcb);
    if (error.kind == VxTypedInput::Factor)
        reduction.planForCount(error.amount * run.targets().numKeys());
    else
        reduction.plan(error.amount);
    reduction.apply(&run);
    return run.finish(KeyToolText::tr("Reduce Keys"), true);
}

KeyToolResult removeFlat(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const double tolerance = arguments.amount("tolerance");
    for (std::size_t track = 0; track < run.targets().tracks.size(); ++track) {
        const KeyTarget &target = run.targets().tracks[track];
        const auto *property = qobject_cast<VxFloatProperty *>(target.property);
        if (!property)
            continue;
        std::vector<int> removed;
        for (const VxKeySpan &span : target.spans) {
            for (const int i : vxFlatKeys(columnsOf(*property, span), tolerance))
                removed.push_back(span.first + i);
        }
        if (!removed.empty())
            run.remove(track, removed);
    }
    return run.finish(KeyToolText::tr("Remove Flat Keys"), true);
}

KeyToolResult bake(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const VxTime step = arguments.ticks("step");
    run.replace([&run, step](const VxFloatProperty &property,
                             const VxKeySpan &span) -> std::optional<VxFittedKeys> {
        // A link adds to the keys: they do not determine the evaluated value.
        if (property.isLinked())
            return std::nullopt;
        VxFittedKeys keys;
        const VxTime first = property.getKeyTime(span.first);
        const VxTime last = property.getKeyTime(span.last - 1);
        const qint64 distance = boundedStep(step, first, last);
        if (distance > std::max<VxTime>(1, step)) {
            run.addNote(KeyToolText::tr("; a span is too long to bake"));
            return std::nullopt;
        }
        for (qint64 t = first; t < last; t += distance)
            keys.times.push_back(VxTime(t));
        keys.times.push_back(last);
        keys.values.resize(keys.times.size());
        property.getValues(keys.times.data(), int(keys.times.size()), keys.values.data());
        keys.types.assign(keys.times.size(), VxKeyInterp::Linear);
        return keys;
    });
    return run.finish(KeyToolText::tr("Bake Keys"), true);
}

KeyToolResult convert(const KeyToolArguments &arguments)
{
    KeyToolRun run;
    const VxKeyInterp::Type type = keyType(arguments.choice("type"));
    run.replace([&](const VxFloatProperty &property, const VxKeySpan &span) {
        return std::optional<VxFittedKeys>(vxConvertKeys(columnsOf(property, span), type,
                                                         sampleStep(property, span),
                                                         arguments.amount("error")));
    });
    return run.finish(KeyToolText::tr("Convert Keys"), true);
}

} // namespace

QVector<KeyTool> cleaningTools()
{
    using P = KeyToolParameter;
    const QStringList types = {KeyToolText::tr("Linear"), KeyToolText::tr("Constant"),
                               KeyToolText::tr("TCB")};
    const P error = {"error", KeyToolText::tr("Error (unit or degrees)"), P::Number, "0.1", {}, 0};
    return {
        {"eulerFilter",
         KeyToolText::tr("Euler Filter"),
         KeyToolText::tr(
             "Replaces the angles of rotations with the equivalent ones nearest to the previous "
             "key."),
         {},
         &eulerFilter},
        {"smoothGaussian",
         KeyToolText::tr("Smooth (Gaussian)"),
         KeyToolText::tr("Smooths values with a Gaussian window of the given width."),
         {{"width", KeyToolText::tr("Width (frames)"), P::Time, "2", {}, 0}},
         &smoothGaussian},
        {"smoothButterworth",
         KeyToolText::tr("Smooth (Butterworth)"),
         KeyToolText::tr("Removes motion above the cut-off frequency without a delay."),
         {{"cutoff", KeyToolText::tr("Cut-off (Hz)"), P::Number, "6", {}, 0}},
         &smoothButterworth},
        {"removeSpikes",
         KeyToolText::tr("Remove Spikes"),
         KeyToolText::tr("Replaces values that are far from the median of their neighbours."),
         {{"window", KeyToolText::tr("Window (frames)"), P::Time, "7", {}, 0},
          {"threshold", KeyToolText::tr("Threshold"), P::Number, "5", {}, 0}},
         &removeSpikes},
        {"reduce",
         KeyToolText::tr("Reduce Keys"),
         KeyToolText::tr("Removes keys as long as the curve stays within the error, or until a "
                         "percentage of them "
                         "is left. The three angles of a rotation are reduced together."),
         {{"error", KeyToolText::tr("Error, or percentage of keys"), P::Change, "0.1", {}, 0},
          {"type", KeyToolText::tr("To"), P::Choice, types[0], {types[0], types[2]}},
          {"scope", KeyToolText::tr("Keys"), P::Choice, reduceScopes().constFirst(),
           reduceScopes()}},
         &reduce,
         true,
         &targetsOfReduce},
        {"removeFlat",
         KeyToolText::tr("Remove Flat Keys"),
         KeyToolText::tr("Removes keys in flat segments, where they do not change the curve."),
         {{"tolerance", KeyToolText::tr("Tolerance"), P::Number, "0", {}, 0}},
         &removeFlat},
        {"bake",
         KeyToolText::tr("Bake Keys"),
         KeyToolText::tr("Puts a linear key on every nth frame."),
         {{"step", KeyToolText::tr("Every (frames)"), P::Time, "1", {}, 0}},
         &bake},
        {"convert",
         KeyToolText::tr("Convert Keys"),
         KeyToolText::tr(
             "Changes the interpolation type of keys and keeps the curve within the error."),
         {{"type", KeyToolText::tr("To"), P::Choice, types[2], types}, error},
         &convert},
    };
}
