#include "plantable.h"

#include <stdint.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// Windows-1252's bytes 0x80 to 0x9F; 0 where the code page has no character.
const uint16_t kHighControls[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

const char kByteOrderMark[] = "\xEF\xBB\xBF";

// One UTF-8 sequence at text[at]; its length, 0 when it is not one.
size_t DecodeUtf8(const std::string& text, size_t at, uint32_t* code)
{
    const unsigned char lead = (unsigned char)text[at];
    size_t length;
    uint32_t value;
    if (lead < 0x80) {
        *code = lead;
        return 1;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        value = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        value = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        value = lead & 0x07;
    } else {
        return 0;
    }
    if (at + length > text.size())
        return 0;
    for (size_t i = 1; i < length; i++) {
        const unsigned char next = (unsigned char)text[at + i];
        if ((next & 0xC0) != 0x80)
            return 0;
        value = (value << 6) | (next & 0x3F);
    }
    // Overlong forms, surrogates and code points past U+10FFFF are not UTF-8.
    if ((length == 3 && value < 0x800) || (length == 4 && (value < 0x10000 || value > 0x10FFFF)) ||
        (value >= 0xD800 && value <= 0xDFFF))
        return 0;
    *code = value;
    return length;
}

bool ToWindows1252(uint32_t code, char* byte)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
        *byte = (char)code;
        return true;
    }
    for (int i = 0; i < 32; i++) {
        if (kHighControls[i] && kHighControls[i] == code) {
            *byte = (char)(0x80 + i);
            return true;
        }
    }
    return false;
}

// Counts the separators of the header line outside quotes.
char FindSeparator(const std::string& bytes, size_t start)
{
    int commas = 0, semicolons = 0;
    bool quoted = false;
    for (size_t i = start; i < bytes.size(); i++) {
        const char c = bytes[i];
        if (c == '"')
            quoted = !quoted;
        else if (!quoted && (c == '\n' || c == '\r'))
            break;
        else if (!quoted && c == ',')
            commas++;
        else if (!quoted && c == ';')
            semicolons++;
    }
    return semicolons > commas ? ';' : ',';
}

struct CSVREADER {
    const std::string& bytes;
    char separator;
    bool utf8;
    std::vector<PLANERROR>* errors;
    size_t at = 0;
    int line = 1;

    void Fail(PLANROW* row, int where, const std::string& text)
    {
        if (!row->broken)  // one error a row for its reading: the rest of it is unreliable
            errors->push_back(PLANERROR{where, text});
        row->broken = true;
    }

    // The line end at `at` (CR LF, LF or a lone CR): its length, 0 for none.
    size_t LineEnd() const
    {
        if (at >= bytes.size())
            return 0;
        if (bytes[at] == '\n')
            return 1;
        if (bytes[at] == '\r')
            return at + 1 < bytes.size() && bytes[at + 1] == '\n' ? 2 : 1;
        return 0;
    }

    void Store(PLANROW* row, const std::string& raw, int where)
    {
        if (!utf8) {
            row->cells.push_back(raw);
            return;
        }
        std::string cell, why;
        if (!Utf8ToWindows1252(raw, &cell, &why))
            Fail(row, where, why);
        row->cells.push_back(cell);
    }

    // One field; at stands after it (on a separator, a line end or the end).
    void Field(PLANROW* row)
    {
        std::string raw;
        const int where = line;
        if (at < bytes.size() && bytes[at] == '"') {
            at++;
            for (;;) {
                if (at >= bytes.size()) {
                    Fail(row, where, "a quoted field is not closed");
                    break;
                }
                const char c = bytes[at];
                if (c == '"') {
                    if (at + 1 < bytes.size() && bytes[at + 1] == '"') {
                        raw += '"';
                        at += 2;
                        continue;
                    }
                    at++;
                    break;
                }
                if (c == '\n' || (c == '\r' && !(at + 1 < bytes.size() && bytes[at + 1] == '\n')))
                    line++;
                raw += c;
                at++;
            }
            // Nothing but the separator or the line's end may follow the closing quote.
            if (at < bytes.size() && bytes[at] != separator && !LineEnd()) {
                Fail(row, line, "text after a closing quote");
                while (at < bytes.size() && bytes[at] != separator && !LineEnd())
                    at++;
            }
        } else {
            while (at < bytes.size() && bytes[at] != separator && !LineEnd()) {
                if (bytes[at] == '"')
                    Fail(row, line, "a quote inside a field that does not begin with one");
                raw += bytes[at++];
            }
        }
        Store(row, raw, where);
    }

    bool Row(PLANROW* row)
    {
        row->line = line;
        for (;;) {
            Field(row);
            if (at < bytes.size() && bytes[at] == separator) {
                at++;
                continue;
            }
            const size_t end = LineEnd();
            at += end;
            if (end)
                line++;
            return true;
        }
    }
};

bool EmptyRow(const PLANROW& row)
{
    for (const std::string& cell : row.cells)
        if (!cell.empty())
            return false;
    return true;
}

}  // namespace

bool IsUtf8(const std::string& bytes)
{
    uint32_t code = 0;
    for (size_t at = 0; at < bytes.size();) {
        const size_t length = DecodeUtf8(bytes, at, &code);
        if (!length)
            return false;
        at += length;
    }
    return true;
}

bool Utf8ToWindows1252(const std::string& text, std::string* out, std::string* why)
{
    out->clear();
    out->reserve(text.size());
    uint32_t code = 0;
    for (size_t at = 0; at < text.size();) {
        const size_t length = DecodeUtf8(text, at, &code);
        if (!length) {
            *why = FormatString("the byte 0x%02X is not UTF-8", (unsigned)(unsigned char)text[at]);
            return false;
        }
        char byte = 0;
        if (!ToWindows1252(code, &byte)) {
            *why = FormatString("the character U+%04X (\"%s\") is not in Windows-1252", (unsigned)code,
                                text.substr(at, length).c_str());
            return false;
        }
        *out += byte;
        at += length;
    }
    return true;
}

PLANTABLE ReadPlanTable(const std::string& bytes, std::vector<PLANERROR>* errors)
{
    PLANTABLE table;
    size_t start = 0;
    if (bytes.compare(0, 3, kByteOrderMark) == 0) {
        start = 3;
        table.utf8 = true;
    } else {
        table.utf8 = IsUtf8(bytes);
    }
    table.separator = FindSeparator(bytes, start);
    CSVREADER reader{bytes, table.separator, table.utf8, errors};
    reader.at = start;
    while (reader.at < bytes.size()) {
        PLANROW row;
        reader.Row(&row);
        if (!EmptyRow(row) || row.broken)
            table.rows.push_back(std::move(row));
    }
    return table;
}
