#ifndef SCRIPTFILES_H
#define SCRIPTFILES_H

class DocumentController;
class VxScriptEngine;

/// Gives scripts the functions that read and write motion files:
///
///     App.open(path, options)           a file in place of the scene; true, or an error
///     Scene.importFile(path, options)   a motion file beside what is there; its report
///     Scene.exportFile(path, options)   the scene's motion into a file; true, or an error
///
/// Options of the first two (all may be left out): animation (name or number; all without it),
/// startsAtZero, snapToFrames, matchRate, rotationsOnly. Options of the last one: node (name or
/// label; the whole scene without it), playRange, rowPerFrame. The engine must have its host
/// objects; the document must outlive it.
void addFileFunctions(VxScriptEngine *engine, DocumentController *document);

#endif
