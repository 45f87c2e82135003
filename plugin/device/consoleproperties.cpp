#include "consoleproperties.h"

#include <commctrl.h>

#include <string>

#include "consolekeywords.h"
#include "designlines.h"
#include "keyundo.h"
#include "liveconsoles.h"
#include "../protocol.h"
#include "../console/consoleview.h"
#include "../console/keygeometry.h"
#include "../console/ledstates.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kCanvasClass[] = "DOVRIXC";
const size_t kLineSize = 4096;

void WriteText(HANDLE file, const char* text, size_t length)
{
    DWORD written = 0;
    WriteFile(file, text, (DWORD)length, &written, NULL);
}

}  // namespace

CONSOLEPROPERTIES* AsConsole(HOSTINFO* obj)
{
    if (!obj || !obj->m_hWnd || !IsWindow(obj->m_hWnd))
        return nullptr;
    char className[64];
    if (!GetClassNameA(obj->m_hWnd, className, sizeof className) || strcmp(className, kCanvasClass) != 0)
        return nullptr;
    if ((HOSTINFO*)SendMessageA(obj->m_hWnd, WM_HOST_GETHOSTINFO, 0, 0) != obj)
        return nullptr;
    return static_cast<CONSOLEPROPERTIES*>(obj);
}

CONSOLEPROPERTIES::CONSOLEPROPERTIES()
    : m_keys(), m_numericKeys(), m_optionStates(), m_model(MODEL_ELK_15CST), m_masterFault(0), m_online(0), m_lastPoll(0),
      m_pPartner(nullptr), m_oldProject(false), m_migrationDone(false), m_hConfiguration(NULL), m_hConsoleView(NULL), m_ledStates(), m_slot(0), m_faultLed(0),
      m_reportFaultsCache(0), m_audioCheckDue(false)
{
    m_szDisplayName[0] = '\0';
    AddLiveConsole(this);
}

CONSOLEPROPERTIES::~CONSOLEPROPERTIES()
{
    RemoveLiveConsole(this);
    StopKeyHistory(this);
    ZeroMemory(m_keys, sizeof m_keys);
    ZeroMemory(m_numericKeys, sizeof m_numericKeys);
    a_EmptyStringList(&m_strings);
    a_EmptyRequestList(&m_requests);
}

LRESULT CONSOLEPROPERTIES::LoadEdit(const char* line)
{
    return OnLoad(REQMODE_EDIT, (LPARAM)line);
}

void CONSOLEPROPERTIES::RefreshCanvas(bool erase)
{
    if (m_hWnd)
        InvalidateRect(m_hWnd, NULL, erase ? TRUE : FALSE);
}

void CONSOLEPROPERTIES::MarkEdited()
{
    NoteKeyEdit(this);
    m_wFlags |= HOSTFLAG_EDITED;
    if (m_hNotify)
        PostMessageA(m_hNotify, WM_HOST_LOADED, 0, 0);
    RefreshCanvas(true);
}

void CONSOLEPROPERTIES::NotifyConsoleView(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_hConsoleView && IsWindow(m_hConsoleView))
        SendMessageA(m_hConsoleView, message, wParam, lParam);
    if (m_hControlPanel && IsWindow(m_hControlPanel))
        SendMessageA(m_hControlPanel, message, wParam, lParam);
}

int CONSOLEPROPERTIES::GlobalIndicatorState() const
{
    return LedModeOf(m_ledStates[KEY_PTT], false) != LED_OFF ? 2 : 1;
}

LRESULT CONSOLEPROPERTIES::LoadLine(WPARAM mode, LPARAM lParam)
{
    const char* line = (const char*)lParam;
    if (!line)
        return 0;
    // Handlers may feed lines back to OnLoad, so the buffers are per call.
    char key[kLineSize];
    char value[kLineSize];
    a_GetKeyword(line, key, sizeof key);
    // A longer value is handed on cut to the buffer; its handler keeps what fits.
    a_GetParameter(line, value, sizeof value);

    if (m_oldProject && mode == REQMODE_DESIGNFILE) {
        m_migrationDone = true;
        ShiftOldFaultMaskKey(key, sizeof key);
    }

    // A key cut short by its buffer matches no keyword and is traced as unknown.
    const KEYWORDTABLE& table = ConsoleKeywords();
    const uint16_t index = table.Lookup(key);
    if (index == 0)
        return 0;
    const KEYWORDENTRY& entry = table.Entry(index);
    if (!entry.handler) {
        if (m_pHost)
            EDITTRACE(m_pHost, "Not implemented %s", key);
        return 0;
    }
    REQUEST request = {REQ_WRITE, index, REQTYPE_TEXT, (int32_t)mode, value, nullptr, nullptr};
    if (mode == REQMODE_DESIGNFILE)
        ForgetKeyHistory(this);
    // The edit and the lines its handler feeds back are one step of the undo history.
    KEYEDITGROUP step(mode == REQMODE_DESIGNFILE ? nullptr : this);
    if (!entry.handler(&request, this)) {
        EDITTRACE(m_pHost ? m_pHost : this, "Error reading line %s", key);
        return 0;
    }
    if (m_hNotify)
        PostMessageA(m_hNotify, WM_HOST_LOADED, 0, 0);
    if (mode != REQMODE_DESIGNFILE)
        m_wFlags |= HOSTFLAG_EDITED;
    return 0;
}

void CONSOLEPROPERTIES::ReadForSave(const KEYWORDENTRY& entry, char* value, size_t size)
{
    ZeroMemory(value, size);
    REQUEST request = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, nullptr, nullptr};
    entry.handler(&request, this);
    value[size - 1] = '\0';
}

LRESULT CONSOLEPROPERTIES::SaveLines(WPARAM pass, LPARAM lParam)
{
    HANDLE file = (HANDLE)lParam;
    char line[kLineSize];
    if (pass == 0) {
        char className[65] = "";
        GetClassNameA(m_hWnd, className, sizeof className);
        char prefix[128];
        const char* local = SplitObjectName(m_szName, prefix, sizeof prefix);
        char rect[64];
        a_GetRectString(&m_rect, rect, sizeof rect);
        FormatText(line, sizeof line, "%scontrol=0x%08x %s \"%s\" 0x%08x %s\r\n", prefix,
                   (unsigned)GetWindowLongA(m_hWnd, GWL_EXSTYLE), className, local,
                   (unsigned)GetWindowLongA(m_hWnd, GWL_STYLE), rect);
        // The console's lines go to the file at once: one write, not one a line.
        std::string lines = line;
        const KEYWORDTABLE& table = ConsoleKeywords();
        char value[kLineSize];
        for (size_t i = 0; i < table.Count(); i++) {
            const KEYWORDENTRY& entry = table.Entry(i);
            if (!entry.handler || !(entry.flags & KEYWORD_SAVED))
                continue;
            ReadForSave(entry, value, sizeof value);
            FormatText(line, sizeof line, "%s*%s=%s\r\n", m_szName, entry.keyword.c_str(), value);
            lines += line;
        }
        WriteText(file, lines.data(), lines.size());
    } else if (pass == 1) {
        char connection[kLineSize];
        a_BuildString(&m_connections, connection, sizeof connection);
        FormatText(line, sizeof line, "%s*connection=%s\r\n", m_szName, connection);
        WriteText(file, line, strlen(line));
    }
    return 0;
}

LRESULT CONSOLEPROPERTIES::FillList(WPARAM, LPARAM lParam)
{
    HWND list = (HWND)lParam;
    const KEYWORDTABLE& table = ConsoleKeywords();
    char value[kLineSize];
    for (size_t i = 0; i < table.Count(); i++) {
        const KEYWORDENTRY& entry = table.Entry(i);
        if (!entry.handler || !(entry.flags & KEYWORD_LISTED))
            continue;
        ReadForSave(entry, value, sizeof value);
        LVITEMA item = {};
        item.mask = LVIF_TEXT;
        item.iItem = (int)i;
        item.pszText = const_cast<char*>(entry.keyword.c_str());
        const int row = (int)SendMessageA(list, LVM_INSERTITEMA, 0, (LPARAM)&item);
        if (row < 0)
            continue;
        LVITEMA cell = {};
        cell.iSubItem = 1;
        cell.pszText = value;
        SendMessageA(list, LVM_SETITEMTEXTA, (WPARAM)row, (LPARAM)&cell);
    }
    return 0;
}

LRESULT CONSOLEPROPERTIES::Poll(WPARAM, LPARAM)
{
    const DWORD now = GetTickCount();
    if (now - m_lastPoll < 1001)
        return 0;
    m_lastPoll = now;

    const CONNECTION* first = FirstConnection(this);
    if (!first || !first->target || !m_pPartner || !IsWindow(m_pPartner->m_hWnd))
        return 0;
    const uint8_t alive = m_pPartner->OnIsAlive(0, (LPARAM)this) ? 1 : 0;
    if (alive != m_online) {
        m_online = alive;
        m_wFlags = (WORD)(alive ? (m_wFlags | HOSTFLAG_ONLINE) : (m_wFlags & ~HOSTFLAG_ONLINE));
        RefreshCanvas(false);
        if (!alive) {
            m_masterFault = 0;
            RefreshCanvas(true);
        }
        if (m_hConfiguration && IsWindow(m_hConfiguration))
            SendMessageA(m_hConfiguration, CFM_SETOFFLINE, 0, alive ? 0 : 1);
        NotifyConsoleView(CVM_SETEDITMODE, 0, alive ? 0 : 1);
    }
    if (alive) {
        const uint8_t previous = m_masterFault;
        const KEYWORDTABLE& table = ConsoleKeywords();
        const uint16_t index = table.Lookup("MasterFault");
        uint8_t fault = 0;
        REQUEST request = {REQ_READ, index, REQTYPE_BYTE, REQMODE_EDIT, &fault, nullptr, nullptr};
        if (index && table.Entry(index).handler && table.Entry(index).handler(&request, this) &&
            m_masterFault != previous)
            RefreshCanvas(true);
    }
    return 0;
}

LRESULT CONSOLEPROPERTIES::ServeRequest(WPARAM, LPARAM lParam)
{
    REQUEST* request = (REQUEST*)lParam;
    if (!request)
        return 0;
    const KEYWORDTABLE& table = ConsoleKeywords();
    char keyword[kLineSize];
    if (request->index == 0) {
        if (!request->name || !request->name[0])
            CopyText(keyword, request->value ? (const char*)request->value : "");
        else if (request->prefix)
            FormatText(keyword, sizeof keyword, "%s.%s", request->prefix, request->name);
        else
            CopyText(keyword, request->name);
        request->index = table.Lookup(keyword);
    }
    if (request->operation == REQ_LOOKUP)
        return request->index != 0;
    if (request->index <= 0 || (size_t)request->index >= table.Count())
        return 0;
    const KEYWORDENTRY& entry = table.Entry((size_t)request->index);
    return entry.handler ? entry.handler(request, this) : 0;
}

BOOL CONSOLEPROPERTIES::FriendlyName(LPSTR text, int size)
{
    if (!text || size <= 0)
        return FALSE;
    FormatText(text, (size_t)size, "%s (%s)", m_szDisplayName, m_szName);
    return 1;
}
