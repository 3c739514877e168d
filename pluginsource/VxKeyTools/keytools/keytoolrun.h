#ifndef KEYTOOLRUN_H
#define KEYTOOLRUN_H

#include "keytools/keyseries.h"
#include "keytools/keytargets.h"

#include <QtCore/QString>
#include <functional>
#include <optional>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxcurvefit.h>
#include <vxcore/vxundostackhold.h>

class VxFloatProperty;

/// The result of a tool, for the status line and for scripts.
struct KeyToolResult
{
    bool done = false;            ///< false: nothing was changed, and `message` has the reason
    bool isArgumentError = false; ///< an invalid argument
    QString message;
    int keys = 0;     ///< number of target keys
    int channels = 0; ///< their properties
    int after = 0;    ///< number of resulting keys
    int merged = 0;   ///< keys replaced by another one at their time
    double error = 0; ///< the largest distance from the former curve, of tools that measure it
};

/// One use of a tool on keys: resolves the targets, edits them within one hold and one change
/// block, selects the edited keys where keys had been selected, and makes one undo entry.
///
///     KeyToolRun run;
///     run.editTimes([](std::vector<VxTime> *times) { moveTimes(times, 160); });
///     return run.finish(tr("Move Keys"));
class KeyToolRun
{
public:
    /// On the current targets, or on given ones.
    KeyToolRun();
    explicit KeyToolRun(KeyTargets targets);
    ~KeyToolRun();

    const KeyTargets &targets() const { return m_targets; }

    /// Edits times and values of the keys of each property.
    using Edit = std::function<void(KeySeries *)>;
    void edit(const Edit &edit);
    void edit(std::size_t track, const Edit &edit);
    /// Edits times alone, without a pass over the values.
    using TimeEdit = std::function<void(std::vector<VxTime> *)>;
    void editTimes(const TimeEdit &edit);
    void editTimes(std::size_t track, const TimeEdit &edit);
    /// Replaces the keys of each span of float properties; std::nullopt leaves the span unchanged.
    /// Other properties are left out.
    using Replacement = std::function<std::optional<VxFittedKeys>(const VxFloatProperty &property,
                                                                  const VxKeySpan &span)>;
    void replace(const Replacement &replacement);
    void replace(std::size_t track, const Replacement &replacement);
    /// Passes copies of the keys to `rewrite` and writes the results in their place, or, with
    /// `keepsFormer`, in addition. The same collision rule as in edit(). Without tension,
    /// continuity and bias on the track, VxFittedKeys::tcb is empty.
    using Rewrite = std::function<void(VxFittedKeys *keys)>;
    void rewrite(std::size_t track, const Rewrite &rewrite, bool keepsFormer = false);
    /// Removes keys, ascending indexes.
    void remove(std::size_t track, const std::vector<int> &indexes);

    /// Makes all present keys of a track its target, after keys have been removed from it.
    void retarget(std::size_t track);

    /// Text appended to the message, such as omissions.
    void addNote(const QString &note) { m_note += note; }
    void measure(double error);

    /// Ends the run: `action` is the undo entry's text and begins the message, which with
    /// `showsCounts` has the number of keys before and after and the largest error.
    KeyToolResult finish(const QString &action, bool showsCounts = false);

private:
    void select(std::size_t track, std::vector<VxKeySpan> spans);
    /// Passes a track's property, as the class that it has, and its target to `edit`, and selects
    /// the keys whose spans that returns.
    template <class TrackEdit> void editTrack(std::size_t track, const TrackEdit &edit);

    KeyTargets m_targets;
    std::vector<std::vector<VxKeySpan>> m_selected; ///< by track, after the edit
    KeyToolResult m_result;
    QString m_note;
    std::unique_ptr<VxUndoStackHold> m_hold;
    std::unique_ptr<VxChangeBlock> m_block;
};

/// The keys of a property at given times, ascending, all of which have one.
std::vector<VxKeySpan> keySpansAt(const std::vector<VxTime> &times, const VxProperty &property);

/// The keys of a span of a float property as borrowed arrays.
VxKeyColumns<float> columnsOf(const VxFloatProperty &property, const VxKeySpan &span);

#endif
