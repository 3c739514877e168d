#ifndef STANDARDFIGURE_H
#define STANDARDFIGURE_H

#include <memory>

class NameNumbers;
class VxSkeleton;

/// A human figure of 21 bones in a T pose: a skeleton named "Figure" with the bone "Hips" below it,
/// outside of any scene. Names begin with Left or Right on the sides; every name is made unique.
///
/// Lengths are centimetres, as in the motion files that are imported: the figure faces +Z, its left
/// side is at +X, up is +Y, the hips are 98 above the ground, the top of the head is at 176 and the
/// toes are on the ground. All rotations are 0 in the T pose; limbs and trunk have limits in
/// degrees, the hips have none.
std::unique_ptr<VxSkeleton> makeStandardFigure(NameNumbers *names);

#endif
