// What the key record tests share: a record through the codec and back.
#pragma once

#include <string>

#include "../../plugin/keys/keyrecord.h"

// The record as the codec writes it after reading it into an empty slot.
inline std::string RoundTrip(const std::string& record)
{
    KEYSLOT slot = EmptyKeySlot();
    ParseKeyRecord(record.c_str(), &slot);
    return FormatKeyRecord(slot);
}

// The slot the codec reads from the record.
inline KEYSLOT Parsed(const std::string& record)
{
    KEYSLOT slot = EmptyKeySlot();
    ParseKeyRecord(record.c_str(), &slot);
    return slot;
}
