#ifndef JOURNALVALUES_H
#define JOURNALVALUES_H

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtGui/QVector3D>
#include <vxcore/vxnode.h>
#include <vxcore/vxproperty.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxtimedisplay.h>
#include <vxcore/vxtimerange.h>

class VxJournalReader;
class VxJournalWriter;

/// Plain values in records of the journal. journalPut() is false for a value that cannot be
/// written; journalGet() leaves failures to the reader's own state.
bool journalPut(VxJournalWriter &writer, bool value);
bool journalPut(VxJournalWriter &writer, VxTime value);
bool journalPut(VxJournalWriter &writer, VxNode::RotationOrder value);
bool journalPut(VxJournalWriter &writer, const QString &value);
bool journalPut(VxJournalWriter &writer, const VxTimeRange &value);
bool journalPut(VxJournalWriter &writer, const QVector3D &value);
bool journalPut(VxJournalWriter &writer, const std::optional<VxRestPose> &value);
bool journalPut(VxJournalWriter &writer, const VxSceneViews::Views &value);
bool journalPut(VxJournalWriter &writer, const VxTimeDisplay &value);
bool journalPut(VxJournalWriter &writer, const QPointer<VxProperty> &value);

void journalGet(VxJournalReader &reader, bool *value);
void journalGet(VxJournalReader &reader, VxTime *value);
void journalGet(VxJournalReader &reader, VxNode::RotationOrder *value);
void journalGet(VxJournalReader &reader, QString *value);
void journalGet(VxJournalReader &reader, VxTimeRange *value);
void journalGet(VxJournalReader &reader, QVector3D *value);
void journalGet(VxJournalReader &reader, std::optional<VxRestPose> *value);
void journalGet(VxJournalReader &reader, VxSceneViews::Views *value);
void journalGet(VxJournalReader &reader, VxTimeDisplay *value);

/// Begins the item of a plain value of an object, or of the scene: its former and its present value
/// follow. False for objects that records do not refer to.
bool journalBegin(VxJournalWriter &writer, const VxProperty *property, int kind);
bool journalBegin(VxJournalWriter &writer, const VxElement *element, int kind);
bool journalBegin(VxJournalWriter &writer, const QObject *ofScene, int kind);

/// False for properties and elements outside of a scene. What changes there is not written: it is
/// in the contents of the node that is added.
bool vxIsInDocument(const VxProperty *property);
bool vxIsInDocument(const VxElement *element);
bool vxIsInDocument(const QObject *ofScene);
/// True for the time and the play range of a scene, and for values without a key at one time: they
/// are the view on the document.
bool vxIsView(const VxProperty *property, int kind);
bool vxIsView(const VxScene *scene, int kind);
bool vxIsView(const QObject *object, int kind);

#endif
