#ifndef VXSCENEJOURNAL_H
#define VXSCENEJOURNAL_H

#include <vxcore/vxjournalreader.h>
#include <vxcore/vxjournalwriter.h>

/// Writes records of the journal with the contents of added nodes, as a small scene file.
class VxSceneJournalWriter : public VxJournalWriter
{
public:
    bool contents(const QVector<VxNode *> &nodes) override;
};

/// Reads what VxSceneJournalWriter wrote.
class VxSceneJournalReader : public VxJournalReader
{
public:
    using VxJournalReader::VxJournalReader;

    std::unique_ptr<VxNode> contents() override;
};

#endif
