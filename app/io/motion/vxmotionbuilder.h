#ifndef VXIO_VXMOTIONBUILDER_H
#define VXIO_VXMOTIONBUILDER_H

#include "io/motion/vximportedmotion.h"
#include "io/motion/vximportreport.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"
#include "io/vxscenereader.h"

/// What is taken of a file, as far as it must be known before nodes are built.
struct VxMotionBuildOptions
{
    QString figureName; ///< of a node that is needed above the bones
    QString clip;       ///< name or number (from 1) of one animation; empty: all, one after another
    bool startsAtZero = false; ///< move a single animation so that it begins at 0

    QJsonObject toJson() const;
    static VxMotionBuildOptions fromJson(const QJsonObject &object);
};

/// Turns an imported motion into nodes with keys, in no scene yet: the one way that all foreign
/// formats take.
///
/// - Nodes without a figure's root above their bones get one: the node right above the top bones,
///   or a new one.
/// - An up axis other than Y is turned by a node above everything. Lengths stay as they are.
/// - A bone's rest place is its origin on those axes that no channel drives.
/// - Times are the nearest ticks; quaternions become angles in the node's order, within 0.1
///   degrees between keys; smooth segments become TCB keys within a thousandth of the range.
///
/// The motion is used up. On failure returns false with one sentence in `error` (never null), and
/// contents and report are untouched.
bool vxBuildMotion(VxImportedMotion motion, const VxMotionBuildOptions &options,
                   const VxFileProgress &progress, VxSceneContents *contents,
                   VxImportReport *report, VxFileError *error);

#endif
