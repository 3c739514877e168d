#ifndef VXSCENEFILE_H
#define VXSCENEFILE_H

#include <QtGlobal>

/// The names and numbers of the scene format that its reader and writer share.
///
/// A scene file is one CBOR map. Key times, values, types and shapes are typed byte arrays, so
/// that millions of keys are read and written as a few blocks of memory. Nodes are in the order of
/// the hierarchy, have an identifier, and name their parent by index; properties are numbered
/// through the file in the order of their appearance, and aliases, overriding controls and links
/// refer to those numbers. A reader skips unknown members, reports them and keeps them for a save.
/// docs/format.md describes every member; a test compares it with what is written.
namespace VxSceneFile {

/// To be increased when older readers cannot read a new kind of file.
constexpr int Version = 1;
constexpr char Format[] = "vxscene";

/// Tags of typed arrays: unsigned bytes, signed 32-bit and single precision, little endian.
constexpr quint64 TagUint8 = 64;
constexpr quint64 TagInt32 = 78;
constexpr quint64 TagFloat32 = 85;

/// The checksum of a column: CRC-32 of its bytes, as in ISO 3309.
quint32 checksum(const void *bytes, qint64 size);

/// The names of VxTimeDisplay::Unit, in its order.
constexpr const char *TimeUnits[] = {"frames", "seconds", "ticks", "timecode"};

} // namespace VxSceneFile

#endif
