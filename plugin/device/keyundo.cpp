#include "keyundo.h"

#include <string>
#include <vector>

#include "consoleproperties.h"
#include "partner.h"
#include "../protocol.h"
#include "../console/keygeometry.h"
#include "../keys/edithistory.h"

#include "../../base/text.h"
#include "../../base/banned.h"

struct CONSOLEUNDO {
    EDITHISTORY history;
    std::vector<KEYSTATE> shadow;  // the keys as the last note saw them
    uint32_t extensions = 0;
    int groups = 0;                // open KEYEDITGROUPs
    bool applying = false;         // an undo or redo is writing: no note
    bool stale = false;            // a design file was read since the last note
};

namespace {

uint32_t ExtensionBits(const CONSOLEPROPERTIES* c)
{
    uint32_t bits = 0;
    for (int slot = 0; slot < CONSOLE_EXTENSION_SLOTS; slot++)
        if (c->m_settings.extensionSlots[slot])
            bits |= 1u << slot;
    return bits;
}

int RoleOf(const CONSOLEPROPERTIES* c, int key)
{
    return key >= KEY_SPECIAL_FIRST && key <= KEY_SPECIAL_LAST ? c->m_optionStates[key - KEY_SPECIAL_FIRST] : 0;
}

std::vector<KEYSTATE> Snapshot(const CONSOLEPROPERTIES* c)
{
    std::vector<KEYSTATE> keys;
    keys.reserve(CONSOLE_KEY_COUNT);
    for (int key = 0; key < CONSOLE_KEY_COUNT; key++)
        keys.push_back(KEYSTATE{key, FormatKeyRecord(c->m_keys[key]), c->m_settings.keyLabels[key], RoleOf(c, key)});
    return keys;
}

void Resync(CONSOLEPROPERTIES* c)
{
    c->m_undo->shadow = Snapshot(c);
    c->m_undo->extensions = ExtensionBits(c);
    c->m_undo->stale = false;
}

// Alarm keys leave the alarm matrix they announced themselves to.
void RemoveAlarm(CONSOLEPROPERTIES* c, int key)
{
    char source[VARIABLE_NAME_SIZE];
    FormatText(source, sizeof source, "%s.key%d", c->m_szName, key);
    HOSTINFO* matrix = c->m_pPartner ? c->m_pPartner : a_FindRootHostinfo(c);
    if (matrix && matrix != c)
        WriteVariable(matrix, "Matrix.RemoveAlarmID", source, REQTYPE_TEXT);
}

void RestoreKey(CONSOLEPROPERTIES* c, const KEYSTATE& key)
{
    if (key.keyId < 0 || key.keyId >= CONSOLE_KEY_COUNT)
        return;
    if (FormatKeyRecord(c->m_keys[key.keyId]) != key.record) {
        KEYSLOT restored = {};
        ParseKeyRecord(key.record.c_str(), &restored);
        if (IsAlarmKey(c->m_keys[key.keyId]) && !IsAlarmKey(restored))
            RemoveAlarm(c, key.keyId);
        // Writing the record announces an alarm key again.
        c->LoadEdit((FormatString("key%03d=", key.keyId) + key.record).c_str());
    }
    if (key.label != c->m_settings.keyLabels[key.keyId])
        c->LoadEdit((FormatString("keylabel%03d=", key.keyId) + key.label).c_str());
    if (key.keyId >= KEY_SPECIAL_FIRST && key.keyId <= KEY_SPECIAL_LAST && RoleOf(c, key.keyId) != key.role)
        c->LoadEdit(FormatString("key0%dOptionState=%d", key.keyId, key.role).c_str());
}

void RestoreExtensions(CONSOLEPROPERTIES* c, uint32_t bits)
{
    if (ExtensionBits(c) == bits)
        return;
    int count = 0;
    for (int slot = 0; slot < CONSOLE_EXTENSION_SLOTS; slot++) {
        c->m_settings.extensionSlots[slot] = (bits >> slot) & 1u ? 1 : 0;
        count += (bits >> slot) & 1u ? 1 : 0;
    }
    c->m_settings.extensionCount = count;
    c->NotifyConsoleView(CVM_CONSOLECHANGED, 0, 0);
}

void Apply(CONSOLEPROPERTIES* c, const std::vector<KEYSTATE>& keys, uint32_t extensions)
{
    c->m_undo->applying = true;
    RestoreExtensions(c, extensions);
    for (const KEYSTATE& key : keys)
        RestoreKey(c, key);
    c->m_undo->applying = false;
    Resync(c);
    if (!keys.empty())
        c->SelectKeyForEditor(keys.front().keyId);  // its page opens again
    c->MarkEdited();
}

}  // namespace

void StartKeyHistory(CONSOLEPROPERTIES* c)
{
    if (!c || c->m_undo)
        return;
    c->m_undo = new CONSOLEUNDO;
    Resync(c);
}

void StopKeyHistory(CONSOLEPROPERTIES* c)
{
    if (!c)
        return;
    delete c->m_undo;
    c->m_undo = nullptr;
}

void ForgetKeyHistory(CONSOLEPROPERTIES* c)
{
    if (!c || !c->m_undo)
        return;
    c->m_undo->history.Clear();
    c->m_undo->stale = true;
}

void NoteKeyEdit(CONSOLEPROPERTIES* c, const char* mergeTag)
{
    CONSOLEUNDO* undo = c ? c->m_undo : nullptr;
    if (!undo || undo->applying || undo->groups > 0)
        return;
    if (undo->stale) {
        Resync(c);
        return;
    }
    const std::vector<KEYSTATE> now = Snapshot(c);
    EDITSTEP step;
    for (size_t key = 0; key < now.size() && key < undo->shadow.size(); key++) {
        if (now[key] == undo->shadow[key])
            continue;
        step.before.push_back(undo->shadow[key]);
        step.after.push_back(now[key]);
    }
    step.extensionsBefore = undo->extensions;
    step.extensionsAfter = ExtensionBits(c);
    if (mergeTag)
        step.mergeTag = mergeTag;
    else
        undo->history.Seal();
    undo->history.Record(step);
    undo->shadow = now;
    undo->extensions = step.extensionsAfter;
}

void AbsorbKeyEdit(CONSOLEPROPERTIES* c)
{
    if (c && c->m_undo && !c->m_undo->applying && c->m_undo->groups == 0)
        Resync(c);
}

void SealKeyEdit(CONSOLEPROPERTIES* c)
{
    if (c && c->m_undo)
        c->m_undo->history.Seal();
}

KEYEDITGROUP::KEYEDITGROUP(CONSOLEPROPERTIES* c) : console(c)
{
    if (console && console->m_undo) {
        if (console->m_undo->stale && console->m_undo->groups == 0)
            Resync(console);  // what the design file left is where the edit starts
        ++console->m_undo->groups;
    }
}

KEYEDITGROUP::~KEYEDITGROUP()
{
    if (console && console->m_undo && console->m_undo->groups > 0 && --console->m_undo->groups == 0)
        NoteKeyEdit(console);
}

bool UndoKeyEdit(CONSOLEPROPERTIES* c)
{
    if (!c || !c->m_undo || c->IsOnline() || c->m_undo->groups > 0)
        return false;
    NoteKeyEdit(c);  // a change not yet noted is a step of its own first
    const EDITSTEP* step = c->m_undo->history.Undo();
    if (!step)
        return false;
    const EDITSTEP taken = *step;
    Apply(c, taken.before, taken.extensionsBefore);
    return true;
}

bool RedoKeyEdit(CONSOLEPROPERTIES* c)
{
    if (!c || !c->m_undo || c->IsOnline() || c->m_undo->groups > 0)
        return false;
    const EDITSTEP* step = c->m_undo->history.Redo();
    if (!step)
        return false;
    const EDITSTEP taken = *step;
    Apply(c, taken.after, taken.extensionsAfter);
    return true;
}

bool CanUndoKeyEdit(const CONSOLEPROPERTIES* c)
{
    return c && c->m_undo && c->m_undo->history.CanUndo();
}

bool CanRedoKeyEdit(const CONSOLEPROPERTIES* c)
{
    return c && c->m_undo && c->m_undo->history.CanRedo();
}
