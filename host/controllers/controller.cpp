#include "controller.h"
#include "portlist.h"

#include <stdio.h>

#include "../analyze/designtext.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kModuleName[] = "DOVRIXCSTModule";
// Alarm keys announce themselves to the design's alarm matrix through the
// controller as through the design.
const char kAddAlarmId[] = "Matrix.AddAlarmID";
const char kRemoveAlarmId[] = "Matrix.RemoveAlarmID";

// The system's lists: the design keyword that gives a list, and the variable
// a console's editor reads it by. Saved in this order.
struct SYSTEMLIST {
    const char* keyword;
    const char* variable;
};
const SYSTEMLIST kSystemLists[] = {
    {"zones", "Matrix.SystemZones"},
    {"groups", "Matrix.SystemGroups"},
    {"messages", "MM2Messages"},
    {"inputs", "Matrix.ListOfInputs"},
    {"logic", "TE.ListOfValues"},
    {"conditions", "Pagings.VCondition.List"},
};

const SYSTEMLIST* SystemListByKeyword(const std::string& keyword)
{
    for (const SYSTEMLIST& list : kSystemLists)
        if (keyword == list.keyword)
            return &list;
    return nullptr;
}

// What a variable name stands for on this controller: one of its own stored
// values (field), a value it derives, a port's slot, or a device variable.
struct VARIABLE {
    enum KIND { NONE, FIELD, FREEADDRESSES, FAULTLED, SLOT, DEVICE } kind = NONE;
    int* field = nullptr;
    int slot = 0;
    SIMDEVICE* device = nullptr;
    std::string word;

    bool Writable() const { return kind == FIELD || (kind == DEVICE && SIMDEVICE::Writable(word)); }
};

VARIABLE Field(int* field)
{
    VARIABLE v;
    v.kind = VARIABLE::FIELD;
    v.field = field;
    return v;
}

VARIABLE Resolve(CONTROLLER* c, const std::string& name)
{
    VARIABLE v;
    if (name == "ZEL4000.FreeAddresses")
        v.kind = VARIABLE::FREEADDRESSES;
    else if (name == "System.Info.FaultLed")
        v.kind = VARIABLE::FAULTLED;
    else if (name == "SystemMonitoringOnEmergency")
        return Field(&c->monitoring);
    else if (name == "ProgramLocalSorceConfig")
        return Field(&c->localSource);
    else if (name == "online")
        return Field(&c->online);
    else if (name == std::string(c->m_szName) + ".CAN.Baudrate")
        return Field(&c->baudrate);
    if (v.kind != VARIABLE::NONE)
        return v;

    const size_t dot = name.find('.');
    if (dot == std::string::npos)
        return v;
    const std::string owner = name.substr(0, dot);
    const std::string word = name.substr(dot + 1);
    for (size_t slot = 0; slot < c->ports.size(); slot++) {
        if (owner == c->ports[slot] && word == "Slot") {
            v.kind = VARIABLE::SLOT;
            v.slot = (int)slot;
            return v;
        }
    }
    SIMDEVICE* device = c->Device(owner, false);
    if (device && device->connected && SIMDEVICE::Knows(word)) {
        v.kind = VARIABLE::DEVICE;
        v.device = device;
        v.word = word;
    }
    return v;
}

bool ReadVariable(CONTROLLER* c, const VARIABLE& v, int* value)
{
    switch (v.kind) {
    case VARIABLE::FIELD:
        *value = *v.field;
        return true;
    case VARIABLE::FREEADDRESSES:
        *value = c->FreeAddresses();
        return true;
    case VARIABLE::FAULTLED:
        *value = c->FaultLed() ? 1 : 0;
        return true;
    case VARIABLE::SLOT:
        *value = v.slot;
        return true;
    case VARIABLE::DEVICE:
        return SIMDEVICE::Readable(v.word) && v.device->Read(v.word, GetTickCount(), value);
    case VARIABLE::NONE:
        break;
    }
    return false;
}

bool WriteVariable(const VARIABLE& v, int value)
{
    if (v.kind == VARIABLE::FIELD) {
        *v.field = value;
        return true;
    }
    return v.kind == VARIABLE::DEVICE && v.device->Write(v.word, value, GetTickCount());
}

// The value of a request by its type: one byte (2, 6), an int (5) or text (11).
bool TakeValue(const REQUEST* r, int* value)
{
    switch (r->type) {
    case REQTYPE_BYTE:
    case REQTYPE_FLAG:
        *value = *static_cast<const uint8_t*>(r->value);
        return true;
    case REQTYPE_INT:
        *value = *static_cast<const int*>(r->value);
        return true;
    case REQTYPE_TEXT:
        return ParseInt(static_cast<const char*>(r->value), value);
    default:
        return false;
    }
}

bool GiveValue(REQUEST* r, int value)
{
    switch (r->type) {
    case REQTYPE_BYTE:
    case REQTYPE_FLAG:
        *static_cast<uint8_t*>(r->value) = (uint8_t)value;
        return true;
    case REQTYPE_INT:
        *static_cast<int*>(r->value) = value;
        return true;
    case REQTYPE_TEXT:
        return FormatText(static_cast<char*>(r->value), REQUEST_TEXT_SIZE, "%d", value);
    default:
        return false;
    }
}

std::string RequestName(const REQUEST* r)
{
    if (r->name && r->name[0])
        return r->prefix ? std::string(r->prefix) + "." + r->name : std::string(r->name);
    return r->value ? static_cast<const char*>(r->value) : "";
}

void WriteLine(HANDLE file, const std::string& line)
{
    DWORD written = 0;
    WriteFile(file, line.data(), (DWORD)line.size(), &written, NULL);
}

// The connected console of this controller whose number in the design is
// number; empty when there is none.
std::string ConsoleByNumber(const CONTROLLER* c, int number)
{
    for (const auto& device : c->devices) {
        if (!device.second.connected)
            continue;
        const HOSTINFO* console = a_FindHostinfo(device.first.c_str());
        if (console && console->m_nConsoleNumber == number)
            return device.first;
    }
    return std::string();
}

bool StartUpload(CONTROLLER* c, const std::string& text)
{
    UPLOADREQUEST request;
    if (!ParseUploadRequest(text, &request))
        return false;
    const std::string console = ConsoleByNumber(c, request.console);
    bool refused = console.empty() || request.password != c->password;
    for (const std::string& file : request.files)
        refused = refused || GetFileAttributesA(file.c_str()) == INVALID_FILE_ATTRIBUTES;
    c->upload.active = true;
    c->upload.refused = refused;
    c->upload.applied = false;
    c->upload.request = request;
    c->upload.console = console;
    c->upload.start = GetTickCount();
    c->upload.overall = 1;
    return true;
}

}  // namespace

LRESULT CONSOLEMODULE::OnMessage(WPARAM wParam, LPARAM request)
{
    return controller ? controller->OnMessage(wParam, request) : 0;
}

CONTROLLER::CONTROLLER() : ports{kModuleName}
{
    module.controller = this;
}

CONTROLLER::~CONTROLLER()
{
    a_EmptyStringList(&m_strings);
    a_EmptyRequestList(&m_requests);
}

void CONTROLLER::AttachModule()
{
    FormatText(module.m_szName, sizeof module.m_szName, "%s.%s", m_szName, kModuleName);
    module.m_hWnd = m_hWnd;
    module.m_pHost = this;
}

SIMDEVICE* CONTROLLER::Device(const std::string& console, bool create)
{
    auto found = devices.find(console);
    if (found != devices.end())
        return &found->second;
    return create ? &devices[console] : nullptr;
}

int CONTROLLER::FreeAddresses() const
{
    int mask = 0;
    for (int address = 1; address <= 16; address++)
        mask |= 1 << address;
    for (const auto& device : devices)
        if (device.second.connected)
            mask &= ~(1 << device.second.address);
    return mask;
}

bool CONTROLLER::FaultLed() const
{
    for (const auto& device : devices)
        if (device.second.connected && device.second.IsOn() && device.second.MasterFault())
            return true;
    return false;
}

// The firmware-update variables: the start request (text, write), the
// overall state (read), and the answer to the password (text, read).
LRESULT CONTROLLER::UploadRequest(REQUEST* r, const std::string& name)
{
    r->index = 1;
    if (r->operation == REQ_LOOKUP)
        return 1;
    if (!r->value)
        return 0;
    if (name == "ZEL4000.FirmwareUpdate")
        return r->operation == REQ_WRITE && r->type == REQTYPE_TEXT &&
               StartUpload(this, static_cast<const char*>(r->value));
    if (r->operation != REQ_READ)
        return 0;
    if (name == "ZEL4000.FirmwareUpdateState")
        return GiveValue(r, upload.overall);
    return r->type == REQTYPE_TEXT && FormatText(static_cast<char*>(r->value), REQUEST_TEXT_SIZE, "%s",
                                                 "Password required");
}

void CONTROLLER::AdvanceUpload()
{
    if (!upload.active)
        return;
    const UPLOADSTATE state =
        UploadStateAt(GetTickCount() - upload.start, (int)upload.request.files.size(), upload.refused);
    upload.overall = state.overall;
    SIMDEVICE* device = upload.console.empty() ? nullptr : Device(upload.console, false);
    if (device) {
        device->Write("FlashProgramState", state.flashState, GetTickCount());
        device->Write("FlashProgramPercent", state.flashPercent, GetTickCount());
    }
    if (state.overall == 5 && device && !upload.applied) {
        int minor = 0;
        device->Read("FirmwareRevision6", GetTickCount(), &minor);
        device->Write("FirmwareRevision6", minor + 1, GetTickCount());  // the new firmware's version
        upload.applied = true;
    }
    if (state.overall >= 5)
        upload.active = false;
}

bool CONTROLLER::Simulate(const std::string& variable, int value)
{
    VARIABLE v = Resolve(this, std::string(m_szName) + "." + variable);
    if (v.kind == VARIABLE::NONE)
        v = Resolve(this, variable);
    return WriteVariable(v, value);
}

// A list the design gave is known (and read as text); one it did not give is
// no variable of this controller, so the editor shows nothing.
LRESULT CONTROLLER::ListRequest(REQUEST* r, const std::string& name)
{
    const SYSTEMLIST* found = nullptr;
    for (const SYSTEMLIST& list : kSystemLists)
        if (name == list.variable)
            found = &list;
    if (!found)
        return -1;
    const auto given = lists.find(found->keyword);
    if (given == lists.end()) {
        r->index = 0;
        return 0;
    }
    r->index = 1;
    if (r->operation == REQ_LOOKUP)
        return 1;
    if (r->operation != REQ_READ || r->type != REQTYPE_TEXT || !r->value)
        return 0;
    CopyText(static_cast<char*>(r->value), REQUEST_TEXT_SIZE, given->second.c_str());
    return 1;
}

// "CONSOLE.keyNNN": the key records a connected console sends its device.
LRESULT CONTROLLER::KeyRecordRequest(REQUEST* r, const std::string& name)
{
    const size_t dot = name.find(".key");
    int key = -1;
    SIMDEVICE* device = dot == std::string::npos ? nullptr : Device(name.substr(0, dot), false);
    if (!device || !device->connected || name.size() != dot + 7 || !ParseInt(name.c_str() + dot + 4, &key) ||
        key < 0 || key > 127)
        return -1;  // not a key record
    r->index = 1;
    if (r->operation == REQ_LOOKUP)
        return 1;
    if (r->type != REQTYPE_TEXT || !r->value)
        return 0;
    if (r->operation == REQ_WRITE)
        device->keys[key] = static_cast<const char*>(r->value);
    else if (r->operation == REQ_READ)
        CopyText(static_cast<char*>(r->value), REQUEST_TEXT_SIZE, device->keys[key].c_str());
    return 1;
}

LRESULT CONTROLLER::OnMessage(WPARAM wParam, LPARAM lParam)
{
    REQUEST* r = reinterpret_cast<REQUEST*>(lParam);
    if (!r || deleted)
        return 0;
    const std::string name = RequestName(r);
    AdvanceUpload();
    if (name == "ZEL4000.FirmwareUpdate" || name == "ZEL4000.FirmwareUpdateState" ||
        name == std::string(m_szName) + ".passwdValidationResponse")
        return UploadRequest(r, name);
    if (name == kAddAlarmId || name == kRemoveAlarmId) {
        HOSTINFO* root = a_FindRootHostinfo(this);
        return root && root != this ? root->OnMessage(wParam, lParam) : 0;
    }
    const LRESULT keyRecord = KeyRecordRequest(r, name);
    if (keyRecord >= 0)
        return keyRecord;
    const LRESULT list = ListRequest(r, name);
    if (list >= 0)
        return list;
    const VARIABLE v = Resolve(this, name);
    if (r->operation == REQ_LOOKUP) {
        r->index = v.kind == VARIABLE::NONE ? 0 : 1;
        return r->index;
    }
    if (v.kind == VARIABLE::NONE || !r->value)
        return 0;
    int value = 0;
    if (r->operation == REQ_READ) {
        if (!ReadVariable(this, v, &value) || !GiveValue(r, value))
            return 0;
        r->index = 1;
        return 1;
    }
    if (r->operation == REQ_WRITE && v.Writable() && TakeValue(r, &value) && WriteVariable(v, value)) {
        r->index = 1;
        InvalidateRect(m_hWnd, NULL, TRUE);
        return 1;
    }
    return 0;
}

BOOL CONTROLLER::OnConnectSource(LPCSTR source, LPCSTR params)
{
    std::string port;
    int address = 0, model = 0;
    if (deleted || !source || !ParsePortPosition(params, &port, &address, &model) || address < 1 || address > 16)
        return FALSE;
    bool known = false;
    for (const std::string& name : ports)
        known = known || name == port;
    SIMDEVICE* self = Device(source, false);
    const bool mine = self && self->connected && self->address == address;
    if (!known || (!mine && !(FreeAddresses() & (1 << address))))
        return FALSE;
    SIMDEVICE* device = Device(source, true);
    device->connected = true;
    device->port = port;
    device->address = address;
    device->model = model;
    InvalidateRect(m_hWnd, NULL, TRUE);
    return TRUE;
}

BOOL CONTROLLER::OnDisconnectSource(LPCSTR source, LPCSTR params)
{
    std::string port;
    int address = 0;
    SIMDEVICE* device = source ? Device(source, false) : nullptr;
    if (!device || !device->connected || !ParsePortPosition(params, &port, &address, nullptr) ||
        device->port != port || device->address != address)
        return FALSE;
    device->connected = false;
    InvalidateRect(m_hWnd, NULL, TRUE);
    return TRUE;
}

BOOL CONTROLLER::OnIsAlive(WPARAM, LPARAM lParam)
{
    HOSTINFO* console = reinterpret_cast<HOSTINFO*>(lParam);
    SIMDEVICE* device = console && !deleted ? Device(console->m_szName, false) : nullptr;
    return device && device->connected && device->IsOn() && online;
}

LRESULT CONTROLLER::MoveConsole(WPARAM addresses, HOSTINFO* console)
{
    const int to = HIWORD(addresses);
    SIMDEVICE* device = console ? Device(console->m_szName, false) : nullptr;
    if (!device || !device->connected || to < 1 || to > 16 || !(FreeAddresses() & (1 << to)))
        return 0;
    device->address = to;
    InvalidateRect(m_hWnd, NULL, TRUE);
    return 1;
}

LRESULT CONTROLLER::OnLoad(WPARAM, LPARAM lParam)
{
    const char* line = reinterpret_cast<const char*>(lParam);
    std::string keyword, value;
    if (!line || !SplitKeyValue(line, &keyword, &value)) {
        EDITTRACE(this, "Error reading line %s", line ? line : "");
        return 0;
    }
    bool ok = false;
    int number = 0;
    if (keyword == "ports") {
        ok = SplitPorts(value, &ports);
    } else if (keyword == "baudrate") {
        ok = ParseInt(value.c_str(), &number) && number > 0;
        if (ok)
            baudrate = number;
    } else if (keyword == "localSource") {
        ok = ParseInt(value.c_str(), &number);
        if (ok)
            localSource = number != 0;
    } else if (keyword == "password") {
        password = value;
        ok = true;
    } else if (SystemListByKeyword(keyword)) {
        lists[keyword] = value;
        ok = true;
    } else if (keyword.size() == 6 && keyword.compare(0, 3, "key") == 0) {
        ok = PressKey(keyword, value);
    } else if (keyword == "device") {
        // "CONSOLE word=value word=value ..."
        const size_t blank = value.find(' ');
        const std::string console = value.substr(0, blank);
        std::string error;
        ok = !console.empty() && Device(console, true)->LoadStateText(
                                     blank == std::string::npos ? "" : value.substr(blank + 1), GetTickCount(), &error);
    }
    if (!ok)
        EDITTRACE(this, "Error reading line %s", keyword.c_str());
    InvalidateRect(m_hWnd, NULL, TRUE);
    return 0;
}

// "keyNNN=down" or "up" from a console view. The line names the console
// module, not a console: every switched-on console behind the module sees the
// key, and the consoles hear their LEDs as the device lights them.
bool CONTROLLER::PressKey(const std::string& keyword, const std::string& value)
{
    int key = -1;
    if (!ParseInt(keyword.c_str() + 3, &key) || (value != "down" && value != "up"))
        return false;
    bool pressed = false;
    for (auto& entry : devices) {
        SIMDEVICE& device = entry.second;
        if (deleted || !device.connected || !device.IsOn() || device.port != kModuleName)
            continue;
        if (!device.PressKey(key, value == "down"))
            return false;
        pressed = true;
        HOSTINFO* console = a_FindHostinfo(entry.first.c_str());
        if (!console)
            continue;
        std::string leds = device.LedText();
        REQUEST write = {REQ_WRITE, 0, REQTYPE_TEXT, REQMODE_EDIT, &leds[0], "leds", nullptr};
        if (console->m_hWnd && IsWindow(console->m_hWnd))
            SendMessageA(console->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&write);
    }
    if (!pressed)
        TRACE("%s: no console behind %s is on to take %s=%s\n", m_szName, module.m_szName, keyword.c_str(),
              value.c_str());
    return true;
}

LRESULT CONTROLLER::OnSave(WPARAM pass, LPARAM lParam)
{
    if (pass != 0)
        return 0;
    HANDLE file = reinterpret_cast<HANDLE>(lParam);
    const char* star = strrchr(m_szName, '*');
    const std::string prefix = star ? std::string((const char*)m_szName, star + 1) : std::string();
    const char* local = star ? star + 1 : m_szName;
    char className[32] = "";
    GetClassNameA(m_hWnd, className, sizeof className);
    char line[1024];
    char rect[64];
    FormatText(line, sizeof line, "%scontrol=0x%08x %s \"%s\" 0x%08x %s\r\n", prefix.c_str(),
               (unsigned)GetWindowLongA(m_hWnd, GWL_EXSTYLE), className, local,
               (unsigned)GetWindowLongA(m_hWnd, GWL_STYLE), a_GetRectString(&m_rect, rect, sizeof rect));
    WriteLine(file, line);
    const std::string name = m_szName;
    WriteLine(file, name + "*ports=" + JoinPorts(ports) + "\r\n");
    WriteLine(file, name + "*baudrate=" + std::to_string(baudrate) + "\r\n");
    WriteLine(file, name + "*localSource=" + std::to_string(localSource) + "\r\n");
    if (password != "ZEL4000")
        WriteLine(file, name + "*password=" + password + "\r\n");
    for (const SYSTEMLIST& list : kSystemLists) {
        const auto given = lists.find(list.keyword);
        if (given != lists.end())
            WriteLine(file, name + "*" + list.keyword + "=" + given->second + "\r\n");
    }
    for (const auto& device : devices) {
        const std::string state = device.second.StateText();
        if (!state.empty())
            WriteLine(file, name + "*device=" + device.first + " " + state + "\r\n");
    }
    return 0;
}

CONTROLLER* AsController(HOSTINFO* obj)
{
    if (!obj || !obj->m_hWnd || !IsWindow(obj->m_hWnd))
        return nullptr;
    char className[16] = "";
    GetClassNameA(obj->m_hWnd, className, sizeof className);
    if (strcmp(className, "ORNCON") != 0 && strcmp(className, "ELKCON") != 0)
        return nullptr;
    if (reinterpret_cast<HOSTINFO*>(SendMessageA(obj->m_hWnd, WM_HOST_GETHOSTINFO, 0, 0)) != obj)
        return nullptr;
    return static_cast<CONTROLLER*>(obj);
}

namespace {
std::vector<CONTROLLER*>& RetiredControllers()
{
    static std::vector<CONTROLLER*> retired;
    return retired;
}
}  // namespace

void RetireController(CONTROLLER* controller)
{
    RetiredControllers().push_back(controller);
}

void FreeRetiredControllers()
{
    for (CONTROLLER* controller : RetiredControllers())
        delete controller;
    RetiredControllers().clear();
}
