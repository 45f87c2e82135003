// The key slots of a console: key000 to key127, the numeric keys and the
// option state of the three special keys. A slot is read as its key record
// and written from one; a talk key must use an audio input the console has,
// and an alarm key is announced to the host's alarm matrix.
#include "consoleproperties.h"
#include "handlerkit.h"
#include "handlers.h"
#include "partner.h"
#include "../protocol.h"
#include "../keys/keycatalogue.h"
#include "../console/consoleview.h"
#include "../console/keygeometry.h"

#include "../../base/banned.h"

namespace {

enum { AUDIO_INTERNAL_MIC = 1, AUDIO_EXTERNAL_MIC = 2, AUDIO_EXTERNAL_LINE = 3 };  // input plus one

// The keypad boards (models 3 and 6) have the microphone and line inputs; the
// consoles have their internal microphone only.
bool OffersAudioInput(int model, int stored)
{
    if (model == MODEL_ELK_CSK || model == MODEL_ORN_CSK)
        return stored >= AUDIO_INTERNAL_MIC && stored <= AUDIO_EXTERNAL_LINE;
    return stored == AUDIO_INTERNAL_MIC;
}

void CheckAudioInput(CONSOLEPROPERTIES* c, KEYSLOT* slot)
{
    if (!IsTalkKey(*slot) || OffersAudioInput(c->m_model, slot->cells[TALKCELL_AUDIOINPUT]))
        return;
    slot->cells[TALKCELL_AUDIOINPUT] = AUDIO_INTERNAL_MIC;
    EDITTRACE(c->m_pHost ? c->m_pHost : c, "%s: Error reading audio input. Only 'Internal Mic' is available.\n",
              c->m_szName);
}

// The alarm matrix is the controller's when the console is connected, else
// the design's.
void AnnounceAlarm(CONSOLEPROPERTIES* c, int key)
{
    char source[VARIABLE_NAME_SIZE];
    FormatText(source, sizeof source, "%s.key%d", c->m_szName, key);
    HOSTINFO* matrix = c->m_pPartner ? c->m_pPartner : a_FindRootHostinfo(c);
    if (matrix != c)
        WriteVariable(matrix, "Matrix.AddAlarmID", source, REQTYPE_TEXT);
}

int SlotHandler(REQUEST* r, CONSOLEPROPERTIES* c, KEYSLOT* slot)
{
    if (IsRead(r, REQTYPE_TEXT)) {
        CopyText(TextOf(r), REQUEST_TEXT_SIZE, FormatKeyRecord(*slot).c_str());
        return 1;
    }
    if (!IsWrite(r, REQTYPE_TEXT))
        return 0;
    ParseKeyRecord(TextOf(r), slot);
    if (r->mode == REQMODE_DESIGNFILE)
        c->AudioInputsDue(r->mode);
    else
        CheckAudioInput(c, slot);
    return 1;
}

// The message category a key's function pages into, or -1.
int PagingCategory(int32_t functionId)
{
    switch (KeyFamily(functionId)) {
    case FAMILY_ALARM: return 0;     // "ALARMS"
    case FAMILY_CHIME: return 1;     // "CHIMES"
    case FAMILY_TALK: return 2;      // "ANNOUNCEMENTS"
    case FAMILY_EVAC: return 3;      // "EVAC MESSAGES"
    case FAMILY_BUSINESS: return 4;  // "BUSINESS MESSAGES"
    default: return -1;
    }
}

}  // namespace

// The keys that page, by category: "ALARMS:key005,key017;CHIMES:;..." in the
// categories' order. Read only.
int PagingListHandler(REQUEST* r, CONSOLEPROPERTIES* c)
{
    if (!IsRead(r, REQTYPE_TEXT))
        return 0;
    char* text = TextOf(r);
    text[0] = '\0';
    for (int category = 0; category < MESSAGECATEGORY_COUNT; category++) {
        AppendText(text, REQUEST_TEXT_SIZE, category ? ";" : "");
        AppendText(text, REQUEST_TEXT_SIZE, kMessageCategories[category]);
        AppendText(text, REQUEST_TEXT_SIZE, ":");
        bool first = true;
        for (int key = 0; key < CONSOLE_KEY_COUNT; key++) {
            if (PagingCategory(c->m_keys[key].functionId) != category)
                continue;
            char name[16];
            FormatText(name, sizeof name, "%skey%03d", first ? "" : ",", key);
            AppendText(text, REQUEST_TEXT_SIZE, name);
            first = false;
        }
    }
    return 1;
}

void CONSOLEPROPERTIES::AudioInputsDue(WPARAM mode)
{
    if (mode != REQMODE_DESIGNFILE) {
        CheckAudioInputs();
        return;
    }
    if (m_audioCheckDue)
        return;
    // Without a window nothing would deliver the notice: check now.
    if (!m_hWnd || !PostMessageA(m_hWnd, DCM_LINESLOADED, 0, 0)) {
        CheckAudioInputs();
        return;
    }
    m_audioCheckDue = true;
}

void CONSOLEPROPERTIES::CheckAudioInputs()
{
    m_audioCheckDue = false;
    for (KEYSLOT& slot : m_keys)
        CheckAudioInput(this, &slot);
    for (KEYSLOT& slot : m_numericKeys)
        CheckAudioInput(this, &slot);
}

int KeyHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key)
{
    const int answer = SlotHandler(r, c, &c->m_keys[key]);
    if (answer && r->operation == REQ_WRITE && IsAlarmKey(c->m_keys[key]))
        AnnounceAlarm(c, key);
    if (answer && r->operation == REQ_WRITE)
        c->NotifyConsoleView(CVM_KEYCHANGED, 0, key);
    return answer;
}

int NumericKeyHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key)
{
    return SlotHandler(r, c, &c->m_numericKeys[key]);
}

// The special keys 120 to 122: 0 absent, 1 ordinary key, 2 lock switch.
int OptionStateHandler(REQUEST* r, CONSOLEPROPERTIES* c, int key)
{
    uint8_t& state = c->m_optionStates[key - KEY_SPECIAL_FIRST];
    if (IsRead(r, REQTYPE_TEXT))
        return AnswerText(r, "%d", state);
    int value = 0;
    if (!IsWrite(r, REQTYPE_TEXT) || !ScanLeadingInt(TextOf(r), &value) || value < 0 || value > 2)
        return 0;
    state = (uint8_t)value;
    c->NotifyConsoleView(CVM_KEYCHANGED, 0, key);
    return 1;
}
