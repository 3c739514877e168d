#ifndef VXMOTIONBUILDER_H
#define VXMOTIONBUILDER_H

#include "io/motion/vximportedmotion.h"
#include "io/motion/vximportreport.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"
#include "io/vxscenereader.h"

/// The import options that apply before nodes are built.
struct VxMotionBuildOptions
{
    QString figureName; ///< for an added root of bones
    QString clip;       ///< name or number (from 1) of one animation; empty: all, one after another
    int clipNumber = 0; ///< number (from 1) of one, whatever the names are; 0: as `clip` has it
    bool startsAtZero = false; ///< move a single animation so that it begins at 0

    QJsonObject toJson() const;
    static VxMotionBuildOptions fromJson(const QJsonObject &object);
};

/// Converts an imported motion to nodes with keys, in no scene yet: the common path of all foreign
/// formats.
///
/// - Bones without a figure's root above them get one: the node right above the top bones, or a new
///   one.
/// - A top node rotates an up axis other than Y. Lengths stay unchanged.
/// - A bone's rest place is its origin on those axes that no channel drives.
/// - Times are the nearest ticks; quaternions become angles in the node's order, within 0.1
///   degrees between keys; smooth segments become TCB keys within a thousandth of the range.
///
/// The motion is consumed. On failure returns false with one sentence in `error` (never null), and
/// contents and report are unchanged.
bool vxBuildMotion(VxImportedMotion motion, const VxMotionBuildOptions &options,
                   const VxFileProgress &progress, VxSceneContents *contents,
                   VxImportReport *report, VxFileError *error);

#endif
