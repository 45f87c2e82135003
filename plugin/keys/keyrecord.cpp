#include "keyrecord.h"

#include <ctype.h>
#include <float.h>
#include <limits.h>
#include <math.h>
#include <stdlib.h>
#include <string.h>

#include "keycatalogue.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

enum FIELDKIND { N8, N16, REAL, TEXT };

struct FIELD {
    FIELDKIND kind;
    int index;  // the cell, the real, or the text (1 to 3)
};

// A family's fields in record order.
struct LAYOUT {
    int count;
    FIELD fields[18];
};

const LAYOUT kNoFields = {0, {}};

const LAYOUT& LayoutOf(int family)
{
    static const LAYOUT select = {2, {{N16, 0}, {TEXT, 1}}};
    static const LAYOUT talk = {18, {{N16, 0}, {N8, 1}, {N8, 2}, {N16, 3}, {N8, 4}, {N8, 5}, {N8, 6}, {N8, 7}, {N8, 8},
                                     {N8, 9}, {N8, 10}, {N8, 11}, {N16, 12}, {N8, 13}, {N8, 14}, {TEXT, 1}, {TEXT, 2},
                                     {TEXT, 3}}};
    static const LAYOUT clear = {1, {{N8, 1}}};
    static const LAYOUT logical = {4, {{TEXT, 1}, {N8, 1}, {N8, 2}, {N8, 4}}};
    static const LAYOUT arithmetic = {6, {{TEXT, 1}, {REAL, 0}, {REAL, 1}, {REAL, 2}, {N16, 0}, {N8, 1}}};
    static const LAYOUT menu = {1, {{N16, 0}}};
    static const LAYOUT chime = {9, {{N16, 0}, {N8, 1}, {N8, 2}, {N16, 3}, {N16, KEYCELL_SECOND}, {N8, 4}, {N8, 5},
                                     {TEXT, 1}, {TEXT, 2}}};
    static const LAYOUT alarm = {7, {{N16, 0}, {N8, 1}, {N8, 2}, {N16, 3}, {N16, KEYCELL_SECOND}, {TEXT, 1}, {TEXT, 2}}};
    static const LAYOUT stop = {6, {{N8, 1}, {N16, 0}, {N8, 2}, {N16, 3}, {N16, KEYCELL_SECOND}, {TEXT, 1}}};
    static const LAYOUT on = {2, {{N16, 0}, {N8, 1}}};
    static const LAYOUT evac = {9, {{N16, 0}, {N16, 3}, {N8, 4}, {N8, 5}, {N8, 6}, {N8, 7}, {N8, 8}, {TEXT, 1},
                                    {TEXT, 2}}};
    static const LAYOUT business = {7, {{N16, 0}, {N16, 3}, {N8, 4}, {N8, 5}, {N8, 6}, {TEXT, 1}, {TEXT, 2}}};
    static const LAYOUT ptt = {11, {{N16, 0}, {N8, 1}, {N8, 2}, {N16, 3}, {N8, 4}, {N8, 5}, {N8, 6}, {N8, 7}, {N8, 8},
                                    {TEXT, 1}, {TEXT, 2}}};
    static const LAYOUT indicator = {2, {{N8, 1}, {N8, 2}}};
    switch (family) {
    case FAMILY_SELECT: return select;
    case FAMILY_TALK: return talk;
    case FAMILY_CLEAR: return clear;
    case FAMILY_LOGICAL: return logical;
    case FAMILY_ARITHMETIC: return arithmetic;
    case FAMILY_MENU: return menu;
    case FAMILY_CHIME: return chime;
    case FAMILY_ALARM: return alarm;
    case FAMILY_STOP: return stop;
    case FAMILY_ON: return on;
    case FAMILY_EVAC: return evac;
    case FAMILY_BUSINESS: return business;
    case FAMILY_PTT: return ptt;
    case FAMILY_INDICATOR: return indicator;
    default: return kNoFields;
    }
}

// The numbers of the scan formats a family accepts, tried in this order; a
// family with texts ends each format with the rest of the record.
struct SCANFORMATS {
    int count;
    int numbers[3];
};

SCANFORMATS ScanFormatsOf(int family)
{
    switch (family) {
    case FAMILY_TALK: return {3, {15, 9, 7}};   // current, previous, oldest
    case FAMILY_CHIME: return {2, {7, 5}};      // current, older
    case FAMILY_EVAC: return {2, {7, 5}};
    case FAMILY_PTT: return {2, {9, 7}};
    default: break;
    }
    int numbers = 0;
    const LAYOUT& layout = LayoutOf(family);
    for (int i = 0; i < layout.count; i++)
        numbers += layout.fields[i].kind != TEXT;
    return {1, {numbers}};
}

int TextCount(const LAYOUT& layout)
{
    int texts = 0;
    for (int i = 0; i < layout.count; i++)
        texts += layout.fields[i].kind == TEXT;
    return texts;
}

char* TextField(KEYSLOT* slot, int index)
{
    return index == 1 ? slot->text1 : index == 2 ? slot->text2 : slot->text3;
}

const char* TextField(const KEYSLOT& slot, int index)
{
    return index == 1 ? slot.text1 : index == 2 ? slot.text2 : slot.text3;
}

// A number is kept at its field's width, as an assignment would keep it.
void StoreNumber(KEYSLOT* slot, const FIELD& field, long long value)
{
    slot->cells[field.index] = field.kind == N8 ? (uint8_t)value : (uint16_t)value;
}

float ToFloat(double value)
{
    if (isnan(value))
        return NAN;
    if (value > FLT_MAX)
        return INFINITY;
    if (value < -FLT_MAX)
        return -INFINITY;
    return (float)value;
}

// "%d": blanks, a sign, at least one digit. A number beyond an int is held
// at the int's limit, as strtol does.
bool ScanNumber(const char** cursor, long long* value)
{
    const char* p = *cursor;
    while (isspace((unsigned char)*p))
        p++;
    bool negative = false;
    if (*p == '+' || *p == '-')
        negative = *p++ == '-';
    if (!isdigit((unsigned char)*p))
        return false;
    long long result = 0;
    while (isdigit((unsigned char)*p)) {
        result = result * 10 + (*p++ - '0');
        if (result > (long long)INT_MAX + 1)
            result = (long long)INT_MAX + 1;
    }
    result = negative ? -result : result;
    *value = result > INT_MAX ? INT_MAX : result;
    *cursor = p;
    return true;
}

// The rest of a record shared out over the family's texts: each but the last
// ends at a comma, the last takes what remains, commas included.
void SplitTexts(const char* rest, const LAYOUT& layout, KEYSLOT* slot)
{
    const int texts = TextCount(layout);
    int text = 0;
    for (int i = 0; i < layout.count && text < texts; i++) {
        if (layout.fields[i].kind != TEXT)
            continue;
        char* field = TextField(slot, layout.fields[i].index);
        if (++text == texts) {
            CopyText(field, KEYTEXT_SIZE, rest);
            return;
        }
        const size_t length = strcspn(rest, ",");
        CopyTextN(field, KEYTEXT_SIZE, rest, length);
        rest += length;
        if (*rest == ',')
            rest++;
    }
}

// Scans ",%d" for the first `numbers` numeric fields, then ",%[^" for the
// rest when the family has texts. Answers whether every conversion was made;
// the fields it converted are stored either way.
bool ScanFields(const char* p, const LAYOUT& layout, int numbers, KEYSLOT* slot)
{
    int scanned = 0;
    for (int i = 0; i < layout.count && scanned < numbers; i++) {
        const FIELD& field = layout.fields[i];
        if (field.kind == TEXT)
            continue;
        long long value = 0;
        if (*p != ',')
            return false;
        p++;
        if (!ScanNumber(&p, &value))
            return false;
        StoreNumber(slot, field, value);
        scanned++;
    }
    if (TextCount(layout) == 0)
        return true;
    if (*p != ',')
        return false;
    SplitTexts(p + 1, layout, slot);
    return true;
}

// The clear, logical and arithmetic records: the rest is split at commas and
// each piece converted to its field.
void SplitFields(const char* rest, const LAYOUT& layout, KEYSLOT* slot)
{
    for (int i = 0; i < layout.count && rest; i++) {
        const FIELD& field = layout.fields[i];
        const size_t length = strcspn(rest, ",");
        char piece[KEYTEXT_SIZE];
        CopyTextN(piece, sizeof piece, rest, length);
        if (field.kind == TEXT) {
            CopyTextN(TextField(slot, field.index), KEYTEXT_SIZE, rest, length);
        } else if (field.kind == REAL) {
            slot->reals[field.index] = ToFloat(strtod(piece, nullptr));
        } else {
            long long value = 0;
            const char* cursor = piece;
            StoreNumber(slot, field, ScanNumber(&cursor, &value) ? value : 0);
        }
        rest = rest[length] == ',' ? rest + length + 1 : nullptr;
    }
}

// Older talk and chime records carry the prechime as a tone code; it is kept
// as its text.
void ConvertPrechime(KEYSLOT* slot, int family)
{
    if (family == FAMILY_TALK) {
        CopyText(slot->text2, KEYTEXT_SIZE, PrechimeText(slot->cells[1]).c_str());
        slot->cells[1] = strcmp(slot->text2, kNoPrechime) != 0;  // a prechime is set
    } else {
        CopyText(slot->text2, KEYTEXT_SIZE, PrechimeText(slot->cells[KEYCELL_SECOND]).c_str());
    }
}

void AppendNumber(std::string* record, long long value)
{
    char number[32];
    FormatText(number, sizeof number, ",%lld", value);
    *record += number;
}

}  // namespace

KEYSLOT EmptyKeySlot()
{
    KEYSLOT slot;
    memset(&slot, 0, sizeof slot);
    return slot;
}

bool IsTalkKey(const KEYSLOT& slot)
{
    return KeyFamily(slot.functionId) == FAMILY_TALK;
}

bool IsAlarmKey(const KEYSLOT& slot)
{
    return KeyFamily(slot.functionId) == FAMILY_ALARM;
}

std::string FormatKeyRecord(const KEYSLOT& slot)
{
    std::string record = KeyFunctionName(slot.functionId);
    const int family = KeyFamily(slot.functionId);
    if (slot.functionId == KF_EMPTY || family > FAMILY_INDICATOR)
        return record;
    const LAYOUT& layout = LayoutOf(family);
    for (int i = 0; i < layout.count; i++) {
        const FIELD& field = layout.fields[i];
        switch (field.kind) {
        case N8:
            AppendNumber(&record, (uint8_t)slot.cells[field.index]);
            break;
        case N16:
            AppendNumber(&record, slot.cells[field.index]);
            break;
        case REAL: {
            char real[64];
            FormatText(real, sizeof real, ",%f", (double)slot.reals[field.index]);
            record += real;
            break;
        }
        case TEXT:
            record += ",";
            record += TextField(slot, field.index);
            break;
        }
    }
    return record;
}

void ParseKeyRecord(const char* record, KEYSLOT* slot)
{
    *slot = EmptyKeySlot();
    if (!record)
        return;
    const size_t nameLength = strcspn(record, ",");
    char name[64];
    if (nameLength >= sizeof name)
        return;  // longer than any function name: an empty key
    CopyTextN(name, sizeof name, record, nameLength);
    slot->functionId = KeyFunctionId(name);
    slot->variant = (uint8_t)(slot->functionId % 10);
    const int family = KeyFamily(slot->functionId);
    if (slot->functionId == KF_EMPTY || family > FAMILY_INDICATOR)
        return;

    const LAYOUT& layout = LayoutOf(family);
    const char* rest = record + nameLength;
    if (family == FAMILY_CLEAR || family == FAMILY_LOGICAL || family == FAMILY_ARITHMETIC) {
        SplitFields(*rest == ',' ? rest + 1 : nullptr, layout, slot);
        return;
    }
    const SCANFORMATS formats = ScanFormatsOf(family);
    for (int format = 0; format < formats.count; format++) {
        KEYSLOT attempt = *slot;
        if (ScanFields(rest, layout, formats.numbers[format], &attempt)) {
            *slot = attempt;
            if (format == 2 || (family == FAMILY_CHIME && format == 1))
                ConvertPrechime(slot, family);
            return;
        }
    }
    // No format matches whole: keep what the current format could convert.
    ScanFields(rest, layout, formats.numbers[0], slot);
}

namespace {

const FIELD* FieldAt(int32_t functionId, int position)
{
    if (functionId == KF_EMPTY)
        return nullptr;
    const LAYOUT& layout = LayoutOf(KeyFamily(functionId));
    return position >= 1 && position <= layout.count ? &layout.fields[position - 1] : nullptr;
}

}  // namespace

KEYFIELDKIND KeyFieldKind(int32_t functionId, int position)
{
    const FIELD* field = FieldAt(functionId, position);
    if (!field)
        return KEYFIELD_NONE;
    switch (field->kind) {
    case N8: return KEYFIELD_U8;
    case N16: return KEYFIELD_U16;
    case REAL: return KEYFIELD_REAL;
    case TEXT: return KEYFIELD_TEXT;
    }
    return KEYFIELD_NONE;
}

double KeyFieldNumber(const KEYSLOT& slot, int position)
{
    const FIELD* field = FieldAt(slot.functionId, position);
    if (!field || field->kind == TEXT)
        return 0;
    return field->kind == REAL ? slot.reals[field->index] : slot.cells[field->index];
}

bool SetKeyFieldNumber(KEYSLOT* slot, int position, double value)
{
    const FIELD* field = FieldAt(slot->functionId, position);
    if (!field || field->kind == TEXT)
        return false;
    if (field->kind == REAL)
        slot->reals[field->index] = ToFloat(value);
    else if (!isnan(value))  // held at an int's limits first, as the parse holds a number
        StoreNumber(slot, *field, value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : (long long)value);
    return true;
}

const char* KeyFieldText(const KEYSLOT& slot, int position)
{
    const FIELD* field = FieldAt(slot.functionId, position);
    return field && field->kind == TEXT ? TextField(slot, field->index) : "";
}

bool SetKeyFieldText(KEYSLOT* slot, int position, const char* text)
{
    const FIELD* field = FieldAt(slot->functionId, position);
    if (!field || field->kind != TEXT || !text)
        return false;
    CopyText(TextField(slot, field->index), KEYTEXT_SIZE, text);
    return true;
}
