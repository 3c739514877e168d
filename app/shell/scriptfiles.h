#ifndef SCRIPTFILES_H
#define SCRIPTFILES_H

class DocumentController;
class VxScriptEngine;

/// Gives scripts the functions that read motion files:
///
///     App.open(path, options)           a file in place of the scene; true, or an error
///     Scene.importFile(path, options)   a motion file beside what is there; its report
///
/// Options (all may be left out): animation (name or number; all without it), startsAtZero,
/// snapToFrames, matchRate, rotationsOnly. The engine must have its host objects; the document must
/// outlive it.
void addFileFunctions(VxScriptEngine *engine, DocumentController *document);

#endif
