#include "service/attached_table.h"

AttachedTable::AttachedTable(void* response, std::size_t memory, std::size_t entrySize) : entrySize_(entrySize)
{
    if (!response || memory < kRecordSize || entrySize == 0) return;

    auto* bytes = static_cast<unsigned char*>(response);
    const std::size_t length = record::attachedLength.get(bytes);
    const std::size_t position = record::attachedPosition.get(bytes);
    if (length == 0 || position < kRecordSize || position > memory) return;

    first_ = bytes + position;
    count_ = (length < memory - position ? length : memory - position) / entrySize;
}
