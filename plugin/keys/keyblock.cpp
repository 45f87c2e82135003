#include "keyblock.h"

#include <string.h>

#include "../../base/banned.h"

namespace {

const char kHeader[] = "DOVRIXC key block 1";

void AppendEscaped(std::string* out, const std::string& field)
{
    for (char c : field) {
        switch (c) {
        case '\\':
            *out += "\\\\";
            break;
        case '\t':
            *out += "\\t";
            break;
        case '\n':
            *out += "\\n";
            break;
        case '\r':
            *out += "\\r";
            break;
        default:
            *out += c;
        }
    }
}

bool Unescape(const std::string& field, std::string* out)
{
    out->clear();
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            *out += field[i];
            continue;
        }
        if (++i == field.size())
            return false;
        switch (field[i]) {
        case '\\':
            *out += '\\';
            break;
        case 't':
            *out += '\t';
            break;
        case 'n':
            *out += '\n';
            break;
        case 'r':
            *out += '\r';
            break;
        default:
            return false;
        }
    }
    return true;
}

bool ParseOffset(const std::string& text, int* offset)
{
    size_t i = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (negative)
        i = 1;
    if (i == text.size() || text.size() - i > 3)
        return false;
    int value = 0;
    for (; i < text.size(); ++i) {
        if (text[i] < '0' || text[i] > '9')
            return false;
        value = value * 10 + (text[i] - '0');
    }
    *offset = negative ? -value : value;
    return *offset >= -KEYBLOCK_MAX_OFFSET && *offset <= KEYBLOCK_MAX_OFFSET;
}

std::vector<std::string> SplitFields(const std::string& line)
{
    std::vector<std::string> fields(1);
    for (char c : line) {
        if (c == '\t')
            fields.emplace_back();
        else
            fields.back() += c;
    }
    return fields;
}

bool Fail(std::string* error, const std::string& reason)
{
    if (error)
        *error = reason;
    return false;
}

bool CheckKey(const BLOCKKEY& key, bool first, std::vector<bool>* seen, std::string* error)
{
    if (key.offset < -KEYBLOCK_MAX_OFFSET || key.offset > KEYBLOCK_MAX_OFFSET)
        return Fail(error, "an offset is out of range");
    if (first && key.offset != 0)
        return Fail(error, "the first key's offset is not 0");
    const size_t slot = (size_t)(key.offset + KEYBLOCK_MAX_OFFSET);
    if ((*seen)[slot])
        return Fail(error, "an offset is given twice");
    (*seen)[slot] = true;
    if (key.record.size() > KEYBLOCK_MAX_RECORD)
        return Fail(error, "a record is longer than 255 characters");
    if (key.label.size() > KEYBLOCK_MAX_LABEL)
        return Fail(error, "a label is longer than 31 characters");
    if (key.record.find('\0') != std::string::npos || key.label.find('\0') != std::string::npos)
        return Fail(error, "a field holds a zero character");
    return true;
}

}  // namespace

bool EncodeKeyBlock(const std::vector<BLOCKKEY>& keys, std::string* text, std::string* error)
{
    if (keys.empty() || keys.size() > KEYBLOCK_MAX_KEYS)
        return Fail(error, keys.empty() ? "no keys to copy" : "more keys than a console has");
    std::vector<bool> seen(2 * KEYBLOCK_MAX_OFFSET + 1, false);
    std::string out = kHeader;
    out += '\n';
    for (size_t i = 0; i < keys.size(); ++i) {
        if (!CheckKey(keys[i], i == 0, &seen, error))
            return false;
        out += std::to_string(keys[i].offset);
        out += '\t';
        AppendEscaped(&out, keys[i].record);
        out += '\t';
        AppendEscaped(&out, keys[i].label);
        out += '\n';
    }
    *text = out;
    return true;
}

bool DecodeKeyBlock(const char* data, size_t size, std::vector<BLOCKKEY>* keys, std::string* error)
{
    if (!data)
        return Fail(error, "no block");
    // Clipboard blocks are often longer than their text: it ends at the first zero.
    const void* zero = memchr(data, '\0', size);
    const std::string text(data, zero ? static_cast<const char*>(zero) - data : size);
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
        start = end + 1;
        if (lines.size() > KEYBLOCK_MAX_KEYS + 1)
            return Fail(error, "more keys than a console has");
    }
    if (lines.empty() || lines[0] != kHeader)
        return Fail(error, "not a key block");
    std::vector<BLOCKKEY> read;
    std::vector<bool> seen(2 * KEYBLOCK_MAX_OFFSET + 1, false);
    for (size_t i = 1; i < lines.size(); ++i) {
        const std::vector<std::string> fields = SplitFields(lines[i]);
        BLOCKKEY key;
        if (fields.size() != 3 || !ParseOffset(fields[0], &key.offset) || !Unescape(fields[1], &key.record) ||
            !Unescape(fields[2], &key.label))
            return Fail(error, "line " + std::to_string(i + 1) + " is not OFFSET, RECORD and LABEL");
        if (!CheckKey(key, read.empty(), &seen, error))
            return false;
        read.push_back(key);
    }
    if (read.empty())
        return Fail(error, "the block holds no key");
    *keys = read;
    return true;
}

std::vector<int> PlaceKeyBlock(const std::vector<BLOCKKEY>& keys, int target)
{
    std::vector<int> places;
    places.reserve(keys.size());
    for (const BLOCKKEY& key : keys) {
        const int id = target + key.offset;
        places.push_back(id >= 0 && id <= KEYBLOCK_MAX_OFFSET ? id : -1);
    }
    return places;
}
