// Several keys on the clipboard at once: each key's offset from the first key
// of the block, its record and its label, as text. A paste places the block
// with the same offsets from the key pasted onto. Platform-free.
#pragma once

#include <stddef.h>

#include <string>
#include <vector>

enum {
    KEYBLOCK_MAX_KEYS = 124,     // every key id of a console, 0 to 123
    KEYBLOCK_MAX_OFFSET = 123,
    KEYBLOCK_MAX_RECORD = 255,   // a record fits the single-key format's 256 bytes
    KEYBLOCK_MAX_LABEL = 31,
};

struct BLOCKKEY {
    int offset;          // key id minus the first key's id
    std::string record;  // the key's record text
    std::string label;
};

// The block's text: a header line, then a key a line, the first key first.
// Keys beyond the limits are the caller's to leave out: Encode refuses them.
bool EncodeKeyBlock(const std::vector<BLOCKKEY>& keys, std::string* text, std::string* error);

// Reads a block as another program may have left it: size bytes, not
// necessarily zero-terminated. Refuses (with a reason, leaving keys as it
// was) a wrong header, a malformed line, a bad escape, an offset out of range
// or given twice, a first key whose offset is not 0, an over-long field, or
// more keys than a console has.
bool DecodeKeyBlock(const char* data, size_t size, std::vector<BLOCKKEY>* keys, std::string* error);

// Where each key of a block lands when pasted onto key `target`: target plus
// offset, or -1 for a key that falls outside 0..123.
std::vector<int> PlaceKeyBlock(const std::vector<BLOCKKEY>& keys, int target);
