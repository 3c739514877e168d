#ifndef VXFILEEXCHANGE_H
#define VXFILEEXCHANGE_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>

/// Puts a complete new file into the place of an existing one.
///
/// Normally that is one rename. Where renaming over an existing file is refused, as in some network
/// folders, the files are exchanged in steps, and where nothing can be renamed, as with a file that
/// is mounted by itself, the contents are copied. At every moment a complete file of the former or
/// the new contents exists: under its own name, or under newName() or oldName() beside it.
namespace VxFileExchange {

/// Replaces `fileName` by `complete`, a file in the same folder whose contents are on the disk.
/// False with the reason when that fails; `complete` is removed then, and the former file is in its
/// place, or the reason says where it is.
VXCORE_EXPORT bool replace(const QString &complete, const QString &fileName, QString *reason);

/// Synchronises the folder of a file to the disk: its present names survive a loss of power. False
/// when that fails.
VXCORE_EXPORT bool synchronizeFolder(const QString &fileName);

/// Finishes an exchange that was interrupted while no file had the name: the new file is put there,
/// else the former one. False when there is nothing to do, or when it fails.
VXCORE_EXPORT bool finishInterrupted(const QString &fileName);

/// What an interrupted exchange leaves beside a file: the complete new and the former file.
VXCORE_EXPORT QString newName(const QString &fileName);
VXCORE_EXPORT QString oldName(const QString &fileName);

/// The absolute path of a name. Unlike with the toolkit's function, ".." after a link to a folder
/// is the parent of the link's target, as it is when the file is opened.
VXCORE_EXPORT QString absoluteName(const QString &fileName);

/// The file that a chain of symbolic links leads to, whether or not it exists; the name itself
/// without a link. No folder in the path is a link, so that two spellings of one file have the same
/// target. Empty for circular links.
VXCORE_EXPORT QString targetOf(const QString &fileName);

/// Gives an open file the permissions and the group of another one. Where the user may not set that
/// group, the group of the file gets the permissions of others. A missing `model` changes nothing;
/// true then.
VXCORE_EXPORT bool applyPermissions(int handle, const QString &model, QString *reason);

/// Copies a file with its permissions, as a whole or not at all. An existing copy is replaced.
VXCORE_EXPORT bool copy(const QString &from, const QString &to, QString *reason);

} // namespace VxFileExchange

#endif
