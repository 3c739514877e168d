#ifndef MOTIONCOMMANDS_H
#define MOTIONCOMMANDS_H

#include "document/documentcontroller.h"

#include <QObject>

class UserMessages;
class VxScene;

/// Import and export of motion for the File menu: runs the dialogs and delegates the work to the
/// document.
class MotionCommands : public QObject
{
    Q_OBJECT
public:
    /// All are borrowed and must outlive the object.
    MotionCommands(DocumentController *document, const UserMessages *messages, VxScene *scene,
                   QObject *parent);

    /// Asks for a motion file, beginning in a folder, and adds its figure to the scene.
    void importWithDialog(const QString &folder);
    /// Adds the nodes of a motion file to the scene, after the import dialog.
    void importFile(const QString &fileName);
    /// Replaces the scene by a file; a motion file after the same dialog.
    void openFile(const QString &fileName);
    /// Shows the report of the motion file opened or imported last.
    void showReport() const;
    /// Asks for options and a file. False when nothing was written.
    bool exportWithDialog(const QString &folder);

private:
    DocumentController::ImportChooser chooser() const;

    DocumentController *const m_document;
    const UserMessages *const m_messages;
    VxScene *const m_scene;
};

#endif
