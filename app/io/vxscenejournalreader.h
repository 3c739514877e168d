#ifndef VXIO_VXSCENEJOURNALREADER_H
#define VXIO_VXSCENEJOURNALREADER_H

#include <vxcore/vxjournalreader.h>

/// Reads what VxSceneJournalWriter wrote.
class VxSceneJournalReader : public VxJournalReader
{
public:
    using VxJournalReader::VxJournalReader;

    std::unique_ptr<VxNode> contents() override;
};

#endif
