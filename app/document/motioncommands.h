#ifndef MOTIONCOMMANDS_H
#define MOTIONCOMMANDS_H

#include "document/documentcontroller.h"

#include <QObject>

class UserMessages;
class VxScene;

/// Import and export of motion as the File menu offers them: asks for what is not known and hands
/// the work to the document.
class MotionCommands : public QObject
{
    Q_OBJECT
public:
    /// All are borrowed and must outlive the object.
    MotionCommands(DocumentController *document, const UserMessages *messages, VxScene *scene,
                   QObject *parent);

    /// Asks for a motion file, beginning in a folder, and adds its figure to the scene.
    void importWithDialog(const QString &folder);
    /// Adds the nodes of a motion file to the scene, after a dialog with what was found in it.
    void importFile(const QString &fileName);
    /// Opens a file in place of the scene; a motion file after the same dialog.
    void openFile(const QString &fileName);
    /// Shows what was found in the motion file that was opened or imported last.
    void showReport() const;
    /// Asks what is exported and for a file. False when nothing was written.
    bool exportWithDialog(const QString &folder);

private:
    DocumentController::ImportChooser chooser() const;

    DocumentController *const m_document;
    const UserMessages *const m_messages;
    VxScene *const m_scene;
};

#endif
