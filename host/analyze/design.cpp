// The root object of a design: its variables and its output window.
#include "design.h"


#include <string.h>

#include <algorithm>
#include <unordered_set>

#include "../../base/text.h"
#include "../../base/banned.h"

const char kAddAlarmId[] = "Matrix.AddAlarmID";
const char kRemoveAlarmId[] = "Matrix.RemoveAlarmID";
const char kProjectVersion[] = "projectversion";

std::vector<DESIGN*>& OpenDesigns()
{
    static std::vector<DESIGN*> designs;
    return designs;
}

double HostMilliseconds()
{
    LARGE_INTEGER frequency, now;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return (double)now.QuadPart * 1000.0 / (double)frequency.QuadPart;
}

DESIGN* FindDesign(HOSTINFO* root)
{
    for (DESIGN* design : OpenDesigns())
        if (static_cast<HOSTINFO*>(design) == root)
            return design;
    return nullptr;
}

DESIGN* DesignOf(HOSTINFO* obj)
{
    return FindDesign(a_FindRootHostinfo(obj));
}

DESIGN::DESIGN(HWND surface_, HWND output_) : surface(surface_), outputWindow(output_)
{
    m_hWnd = surface_;
    m_hNotify = surface_;
    CopyText(m_szName, "Design");
}

DESIGN::~DESIGN()
{
    a_EmptyStringList(&m_strings);
    a_EmptyRequestList(&m_requests);
}

bool DESIGN::SetVariable(const std::string& name, const std::string& value)
{
    for (auto& variable : variables) {
        if (variable.first == name) {
            variable.second = value;
            return true;
        }
    }
    variables.emplace_back(name, value);
    return true;
}

std::vector<std::pair<std::string, std::string>> DESIGN::SavedVariables() const
{
    std::vector<std::pair<std::string, std::string>> saved = variables;
    if (hostVersion.empty())
        return saved;
    const auto loaded = std::find_if(saved.begin(), saved.end(), [](const std::pair<std::string, std::string>& v) {
        return v.first == kProjectVersion;
    });
    if (loaded != saved.end())
        loaded->second = hostVersion;
    else
        saved.insert(saved.begin(), std::make_pair(std::string(kProjectVersion), hostVersion));
    return saved;
}

LRESULT DESIGN::OnLoad(WPARAM mode, LPARAM line)
{
    return a_LoadLine(this, reinterpret_cast<const char*>(line), (int)mode);
}

// The alarm matrix: alarm keys announce themselves as "CONSOLE.keyN"; a
// cleared alarm key leaves it.
LRESULT DESIGN::ChangeAlarmSources(REQUEST* request, bool add)
{
    request->index = 1;
    if (request->operation == REQ_LOOKUP)
        return 1;
    if (request->operation != REQ_WRITE || request->type != REQTYPE_TEXT || !request->value)
        return 0;
    const std::string source = static_cast<const char*>(request->value);
    const auto found = std::find(alarmSources.begin(), alarmSources.end(), source);
    if (add && found == alarmSources.end())
        alarmSources.push_back(source);
    else if (!add && found != alarmSources.end())
        alarmSources.erase(found);
    return 1;
}

// Variables are addressed like a plug-in's keywords: index = position + 1.
LRESULT DESIGN::OnMessage(WPARAM, LPARAM lParam)
{
    REQUEST* request = reinterpret_cast<REQUEST*>(lParam);
    if (!request)
        return 0;
    std::string name;
    if (request->name && request->name[0])
        name = request->prefix ? std::string(request->prefix) + "." + request->name : request->name;
    else if (request->value)
        name = static_cast<const char*>(request->value);

    if (name == kAddAlarmId || name == kRemoveAlarmId)
        return ChangeAlarmSources(request, name == kAddAlarmId);
    int index = 0;
    for (size_t i = 0; i < variables.size(); i++)
        if (variables[i].first == name)
            index = (int)i + 1;
    if (request->operation == REQ_LOOKUP) {
        request->index = index;
        return index != 0;
    }
    if (index == 0 || request->type != REQTYPE_TEXT || !request->value)
        return 0;
    request->index = index;
    std::string& text = variables[(size_t)index - 1].second;
    if (request->operation == REQ_READ) {
        CopyText(static_cast<char*>(request->value), HOSTTEXT_SIZE, text.c_str());
        return 1;
    }
    if (request->operation == REQ_WRITE) {
        text = static_cast<const char*>(request->value);
        return 1;
    }
    return 0;
}

std::string DESIGN::Attributed(const char* text) const
{
    std::string said;
    if (!reporter.file.empty())
        said = reporter.file + "(" + std::to_string(reporter.line) + "): ";
    // Texts that name their object already ("%s: Error reading audio input...") keep their own.
    const std::string named = reporter.object + ":";
    if (!reporter.object.empty() && strncmp(text, named.c_str(), named.size()) != 0)
        said += reporter.object + ": ";
    return said + text;
}

void DESIGN::AppendOutput(const char* line)
{
    std::string text(line);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    output.push_back(text);
    if (!outputWindow || !IsWindow(outputWindow))
        return;
    text += "\r\n";
    const int end = GetWindowTextLengthA(outputWindow);
    SendMessageA(outputWindow, EM_SETSEL, (WPARAM)end, (LPARAM)end);
    SendMessageA(outputWindow, EM_REPLACESEL, FALSE, (LPARAM)text.c_str());
}

HOSTINFO* a_CreateDesign(HWND surface, HWND output)
{
    DESIGN* design = new DESIGN(surface, output);
    OpenDesigns().push_back(design);
    return design;
}

void a_DestroyDesign(HOSTINFO* root)
{
    DESIGN* design = FindDesign(root);
    if (!design)
        return;
    // Destroying a window removes its object from the list: work on a copy.
    for (HOSTINFO* obj : design->objects.Items())
        if (obj->m_hWnd && IsWindow(obj->m_hWnd))
            DestroyWindow(obj->m_hWnd);
    auto& designs = OpenDesigns();
    designs.erase(std::remove(designs.begin(), designs.end(), design), designs.end());
    delete design;
}

BOOL a_SetHostProjectVersion(HOSTINFO* root, LPCSTR version)
{
    DESIGN* design = FindDesign(root);
    if (!design || !version)
        return FALSE;
    design->hostVersion = version;
    return TRUE;
}

void a_FinishLoading(HOSTINFO* root)
{
    DESIGN* design = FindDesign(root);
    if (!design)
        return;
    // Only the objects' own notices (WM_USER and up): no timer or paint runs
    // here. The thread's queue is walked once, from its front (asking it
    // window by window would walk it once a window); any other window's
    // notice goes back to the queue as it was, in its order.
    std::unordered_set<HWND> windows;
    design->objects.ForEach([&windows](HOSTINFO* obj) {
        if (obj->m_hWnd)
            windows.insert(obj->m_hWnd);
    });
    // An object's window and the windows inside it, as asking by window gave them.
    const auto isObjects = [&windows](HWND hwnd) {
        for (HWND window = hwnd; window; window = GetAncestor(window, GA_PARENT))
            if (windows.count(window))
                return true;
        return false;
    };
    std::vector<MSG> others;
    MSG msg;
    while (PeekMessageA(&msg, NULL, WM_USER, 0xFFFF, PM_REMOVE)) {
        if (msg.hwnd && IsWindow(msg.hwnd) && isObjects(msg.hwnd))
            DispatchMessageA(&msg);
        else
            others.push_back(msg);
    }
    for (const MSG& other : others) {
        if (other.hwnd)
            PostMessageA(other.hwnd, other.message, other.wParam, other.lParam);
        else
            PostThreadMessageA(GetCurrentThreadId(), other.message, other.wParam, other.lParam);
    }
    design->objects.ForEach([](HOSTINFO* obj) { obj->m_wFlags &= (WORD)~HOSTFLAG_EDITED; });
}

BOOL a_SetVariable(HOSTINFO* root, LPCSTR name, LPCSTR value)
{
    DESIGN* design = FindDesign(root);
    if (!design || !name || !value)
        return FALSE;
    return design->SetVariable(name, value);
}

int a_GetOutputLineCount(HOSTINFO* root)
{
    DESIGN* design = FindDesign(root);
    return design ? (int)design->output.size() : 0;
}

BOOL a_GetOutputLine(HOSTINFO* root, int index, LPSTR text, int size)
{
    DESIGN* design = FindDesign(root);
    if (!design || index < 0 || (size_t)index >= design->output.size() || !text || size <= 0)
        return FALSE;
    CopyText(text, (size_t)size, design->output[(size_t)index].c_str());
    return TRUE;
}

int a_GetAlarmSourceCount(HOSTINFO* root)
{
    DESIGN* design = FindDesign(root);
    return design ? (int)design->alarmSources.size() : 0;
}

BOOL a_GetAlarmSource(HOSTINFO* root, int index, LPSTR text, int size)
{
    DESIGN* design = FindDesign(root);
    if (!design || index < 0 || (size_t)index >= design->alarmSources.size() || !text || size <= 0)
        return FALSE;
    CopyText(text, (size_t)size, design->alarmSources[(size_t)index].c_str());
    return TRUE;
}

BOOL a_IsModified(HOSTINFO* root)
{
    DESIGN* design = FindDesign(root);
    if (!design)
        return FALSE;
    bool edited = false;
    design->objects.ForEach([&edited](HOSTINFO* obj) { edited = edited || (obj->m_wFlags & HOSTFLAG_EDITED); });
    return edited;
}
