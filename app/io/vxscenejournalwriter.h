#ifndef VXIO_VXSCENEJOURNALWRITER_H
#define VXIO_VXSCENEJOURNALWRITER_H

#include <vxcore/vxjournalwriter.h>

/// Writes records of the journal with the contents of added nodes, as a small scene file.
class VxSceneJournalWriter : public VxJournalWriter
{
public:
    bool contents(const QVector<VxNode *> &nodes) override;
};

#endif
