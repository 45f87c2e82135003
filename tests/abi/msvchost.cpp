// A host built as the real one is: by Microsoft's compiler's rules (clang in
// Microsoft mode, linked by lld-link, no C++ runtime of its own). It loads the
// plug-in and the framework as the real host does and drives a console only
// through HOSTINFO's virtual table, as this compiler lays it out, and through
// the names the modules export, as this compiler decorates them.
//
//   msvchost DESIGN OUT
//
// DESIGN holds the host's lines, a console's control line and the console's
// lines; they are handed to the console's OnLoad one by one, and OUT receives
// the host's lines and what the console's OnSave writes. Each check prints
// "ok NAME" or "FAIL NAME: WHY"; the exit status is the number of failures.
#include <stdio.h>
#include <string.h>

#include "analyze_host.h"
#include "exported_names.h"  // made by the build from the same header

extern "C" int _fltused = 0;
void* operator new(size_t size) { return HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size ? size : 1); }
void operator delete(void* block) noexcept { HeapFree(GetProcessHeap(), 0, block); }
void operator delete(void* block, size_t) noexcept { HeapFree(GetProcessHeap(), 0, block); }

namespace {

int g_failed;

void Check(bool ok, const char* name, const char* why = "")
{
    if (ok) {
        printf("ok %s\n", name);
    } else {
        printf("FAIL %s: %s\n", name, why);
        g_failed++;
    }
    fflush(stdout);
}

// The command line's arguments after the program's name (no quoting needed:
// the paths the tests hand it have no blanks).
int Arguments(char* line, char** arguments, int most)
{
    int count = 0;
    char* at = line;
    bool first = true;
    while (*at) {
        while (*at == ' ')
            at++;
        if (!*at)
            break;
        char* start = at;
        const char close = *at == '"' ? '"' : ' ';
        if (close == '"')
            start = ++at;
        while (*at && *at != close)
            at++;
        if (*at)
            *at++ = '\0';
        if (!first && count < most)
            arguments[count++] = start;
        first = false;
    }
    return count;
}

char* ReadFileText(const char* path)
{
    HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, NULL, OPEN_EXISTING, 0, NULL);
    if (file == INVALID_HANDLE_VALUE)
        return nullptr;
    const DWORD size = GetFileSize(file, NULL);
    char* text = static_cast<char*>(operator new(size + 1));
    DWORD read = 0;
    ReadFile(file, text, size, &read, NULL);
    text[read] = '\0';
    CloseHandle(file);
    return text;
}

void Pump()
{
    MSG message;
    while (PeekMessageA(&message, NULL, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

// Hands the design's lines over: the host's own and control lines to the
// framework, the console's lines to the console's OnLoad. Returns the console.
HOSTINFO* LoadDesign(HOSTINFO* root, HWND surface, char* text)
{
    HOSTINFO* console = nullptr;
    for (char* line = text; line && *line;) {
        char* end = strstr(line, "\r\n");
        char* next = end ? end + 2 : nullptr;
        if (end)
            *end = '\0';
        const char* star = strchr(line, '*');
        if (star && strncmp(line, "control=", 8) != 0) {
            if (!console) {
                HWND canvas = FindWindowExA(surface, NULL, "DOVRIXC", NULL);
                console = canvas ? reinterpret_cast<HOSTINFO*>(SendMessageA(canvas, WM_HOST_GETHOSTINFO, 0, 0)) : nullptr;
                Check(console != nullptr, "the canvas made from the control line hands out its object (WM_APP+20)");
                if (!console)
                    return nullptr;
                Check(console->m_hWnd == canvas && strcmp(console->m_szName, "ORNCST_1") == 0,
                      "the object's window and name stand where Microsoft's compiler reads them");
            }
            console->OnLoad(REQMODE_DESIGNFILE, reinterpret_cast<LPARAM>(star + 1));
        } else {
            a_LoadLine(root, line, REQMODE_DESIGNFILE);
        }
        line = next;
    }
    a_FinishLoading(root);
    Pump();
    return console;
}

void Save(HOSTINFO* console, const char* path)
{
    HANDLE file = CreateFileA(path, GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, NULL);
    Check(file != INVALID_HANDLE_VALUE, "the saved design can be written");
    if (file == INVALID_HANDLE_VALUE)
        return;
    const char host[] = "projectversion=V 3.9.0\r\n";
    DWORD written = 0;
    WriteFile(file, host, sizeof host - 1, &written, NULL);
    for (int pass = 0; pass < 2; pass++)
        console->OnSave(pass, reinterpret_cast<LPARAM>(file));
    CloseHandle(file);
}

void DriveConsole(HOSTINFO* console)
{
    char text[128] = "";
    Check(console->OnGetUserfriendlyName(text, sizeof text) && strcmp(text, "Reception desk (ORNCST_1)") == 0,
          "OnGetUserfriendlyName answers the display name", text);

    static char value[REQUEST_TEXT_SIZE];
    REQUEST read = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, "name", nullptr};
    Check(console->OnMessage(0, reinterpret_cast<LPARAM>(&read)) && strcmp(value, "Reception desk") == 0,
          "OnMessage answers a request record", value);
    REQUEST unknown = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, "NoSuchKeyword", nullptr};
    Check(console->OnMessage(0, reinterpret_cast<LPARAM>(&unknown)) == 0, "OnMessage refuses an unknown keyword");

    console->OnTimer(0, 0);
    console->OnTimer(0, 0);
    Check(IsWindow(console->m_hWnd) != FALSE, "OnTimer polls and the console lives on");
}

void CallOverloads(HMODULE module)
{
    typedef HOSTINFO* (*CREATE)();
    typedef void (*DESTROY)(HOSTINFO*);
    CREATE create = reinterpret_cast<CREATE>(GetProcAddress(module, "CreateOverloads"));
    DESTROY destroy = reinterpret_cast<DESTROY>(GetProcAddress(module, "DestroyOverloads"));
    Check(create && destroy, "the GCC-built object's module is loaded");
    if (!create || !destroy)
        return;
    HOSTINFO* o = create();
    int number = 0;
    double real = 0;
    char text[3] = "";
    const char block[5] = "abcd";
    struct {
        const char* form;
        BOOL answer;
        BOOL expected;
    } const calls[] = {
        {"OnGet(name, int*)", o->OnGet("probe", &number), 11},
        {"OnGet(name, double*)", o->OnGet("probe", &real), 12},
        {"OnGet(name, text, size)", o->OnGet("probe", text, 3), 13},
        {"OnGet(name, text, size, index)", o->OnGet("probe", text, 3, 4), 14},
        {"OnSet(name, block, size)", o->OnSet("probe", static_cast<const void*>(block), 5), 21},
        {"OnSet(name, int)", o->OnSet("probe", 6), 22},
        {"OnSet(name, double)", o->OnSet("probe", 2.5), 23},
        {"OnSet(name, text)", o->OnSet("probe", "t"), 24},
        {"OnSet(name, text, index)", o->OnSet("probe", "t", 7), 25},
        {"OnConnectSource(name, params)", o->OnConnectSource("probe", "1,16"), 31},
        {"OnConnectSource(object, params)", o->OnConnectSource(o, "1,16"), 32},
        {"OnConnectTarget(name, params)", o->OnConnectTarget("probe", "1,16"), 33},
        {"OnChangeAddress(name, params)", o->OnChangeAddress("probe", "1,16"), 41},
        {"OnChangeAddress(object, params)", o->OnChangeAddress(o, "1,16"), 42},
        {"OnDisconnectSource(name, params)", o->OnDisconnectSource("probe", "1,16"), 51},
        {"OnDisconnectSource(object, params)", o->OnDisconnectSource(o, "1,16"), 52},
        {"OnUpdate", (BOOL)o->OnUpdate(0, 0), 60},
        {"OnGetHostinfo", o->OnGetHostinfo("x") == o, TRUE},
    };
    for (const auto& call : calls) {
        char name[96] = "";
        char why[64] = "";
        _snprintf(name, sizeof name - 1, "%s lands in the form it names", call.form);
        _snprintf(why, sizeof why - 1, "answered %d, not %d", call.answer, call.expected);
        Check(call.answer == call.expected, name, why);
    }
    destroy(o);
}

// Whether two objects hold the same base fields (padding aside).
bool SameBase(const HOSTINFO* a, const HOSTINFO* b)
{
    return a->m_hWnd == b->m_hWnd && EqualRect(&a->m_rect, &b->m_rect) && a->m_wFlags == b->m_wFlags &&
           a->m_hNotify == b->m_hNotify && memcmp(a->m_szName, b->m_szName, sizeof a->m_szName) == 0 &&
           a->m_pHost == b->m_pHost && a->m_connections.first == b->m_connections.first &&
           a->m_strings.first == b->m_strings.first && a->m_requests.first == b->m_requests.first &&
           a->m_pChildTable == b->m_pChildTable && a->m_wKind == b->m_wKind && a->m_wMode == b->m_wMode &&
           a->m_nHostField500 == b->m_nHostField500 && a->m_nConsoleNumber == b->m_nConsoleNumber;
}

// The exported members, called by their decorated names as a host built by
// Microsoft's compiler imports them.
void CallExports(HMODULE plugin, HOSTINFO* console)
{
    typedef HOSTINFO*(__thiscall * HOSTCOPY)(void* self, const HOSTINFO* other);
    typedef void*(__thiscall * ASSIGN)(void* self, const void* other);
    typedef HBITMAP(__thiscall * GETBITMAP)(void* self);
    typedef UINT(__thiscall * GETSIZE)(void* self);
    const void* const* table = reinterpret_cast<const void* const*>(GetProcAddress(plugin, MS_HOSTINFO_vftable));
    FARPROC has = GetProcAddress(plugin, MS_HOSTINFO_HasHostinfoTable);
    FARPROC get = GetProcAddress(plugin, MS_HOSTINFO_GetHostinfoTable);
    Check(table && has && get && table[0] == reinterpret_cast<const void*>(has) &&
              table[1] == reinterpret_cast<const void*>(get),
          "HOSTINFO's exported table begins with its first slots");

    HOSTCOPY copy = reinterpret_cast<HOSTCOPY>(GetProcAddress(plugin, MS_HOSTINFO_construct));
    ASSIGN assign = reinterpret_cast<ASSIGN>(GetProcAddress(plugin, MS_HOSTINFO_assign));
    Check(copy && assign, "the copy constructor and assignment are exported");
    if (copy && assign && table) {
        void* first = operator new(sizeof(HOSTINFO));
        void* second = operator new(sizeof(HOSTINFO));
        memset(first, 0xCD, sizeof(HOSTINFO));
        HOSTINFO* made = copy(first, console);
        Check(made == first, "the exported copy constructor returns the object, as Microsoft's constructors do");
        Check(*static_cast<void**>(first) == table && SameBase(static_cast<HOSTINFO*>(first), console),
              "the exported copy constructor copies the base and sets the base's table");
        Check(made && !made->HasHostinfoTable() && made->GetHostinfoTable() == nullptr,
              "the copy answers through the base's table");
        copy(second, made);
        static_cast<HOSTINFO*>(second)->m_wFlags = 0x7777;
        Check(assign(second, console) == second && SameBase(static_cast<HOSTINFO*>(second), console) &&
                  *static_cast<void**>(second) == table,
              "the exported assignment copies the base, keeps the table and returns the object");
        operator delete(first);
        operator delete(second);
    }

    cOffScreen from, to;
    from.m_hdc = reinterpret_cast<HDC>(1);
    from.m_hBitmap = reinterpret_cast<HBITMAP>(2);
    from.m_hOldBitmap = reinterpret_cast<HBITMAP>(3);
    from.m_x = 4, from.m_y = 5, from.m_cx = 6, from.m_cy = 7;
    ASSIGN offAssign = reinterpret_cast<ASSIGN>(GetProcAddress(plugin, MS_cOffScreen_assign));
    GETBITMAP offBitmap = reinterpret_cast<GETBITMAP>(GetProcAddress(plugin, MS_cOffScreen_GetBitmap));
    Check(offAssign && offBitmap && offAssign(&to, &from) == &to && memcmp(&to, &from, sizeof to) == 0 &&
              sizeof to == 3 * sizeof(void*) + 4 * sizeof(int) && offBitmap(&to) == from.m_hBitmap,
          "cOffScreen's seven fields are copied and its bitmap read");

    cBackground background, other;
    background.m_hBitmap = reinterpret_cast<HBITMAP>(9);
    background.m_cx = 10, background.m_cy = 11;
    ASSIGN backAssign = reinterpret_cast<ASSIGN>(GetProcAddress(plugin, MS_cBackground_assign));
    GETBITMAP backBitmap =
        reinterpret_cast<GETBITMAP>(GetProcAddress(plugin, MS_cBackground_GetBitmap));
    Check(backAssign && backBitmap && backAssign(&other, &background) == &other &&
              memcmp(&other, &background, sizeof other) == 0 && backBitmap(&other) == background.m_hBitmap,
          "cBackground is copied and its bitmap read");

    TAVOBitmap none, copied;
    copied.m_lastStatus = 99;
    ASSIGN imageAssign = reinterpret_cast<ASSIGN>(GetProcAddress(plugin, MS_TAVOBitmap_assign));
    GETSIZE width = reinterpret_cast<GETSIZE>(GetProcAddress(plugin, MS_TAVOBitmap_GetWidth));
    GETSIZE height = reinterpret_cast<GETSIZE>(GetProcAddress(plugin, MS_TAVOBitmap_GetHeight));
    Check(imageAssign && imageAssign(&copied, &none) == &copied && copied.m_lastStatus == 0 && width && height &&
              width(&copied) == 0 && copied.m_lastStatus != 0 && height(&copied) == 0,
          "TAVOBitmap is copied; without an image its sizes are 0 and the failure is kept");
}

void CallBack(HMODULE plugin)
{
    typedef INT_PTR (*CALLBACK_ENTRY)(int code, HOSTINFO* host, LPARAM param);
    CALLBACK_ENTRY callback = reinterpret_cast<CALLBACK_ENTRY>(GetProcAddress(plugin, "fnCallback"));
    Check(callback != nullptr, "fnCallback is exported by its plain name");
    if (!callback)
        return;
    const char* build = reinterpret_cast<const char*>(callback(13, nullptr, 0));
    Check(build && strstr(build, "\tBuild: ") && build == reinterpret_cast<const char*>(callback(13, nullptr, 0)),
          "fnCallback(13) hands out the build string", build ? build : "(null)");
    Check(callback(2, nullptr, 0) == 0, "fnCallback answers 0 to a code it does not know");
}

int Run(const char* designPath, const char* outPath)
{
    ULONG_PTR gdiplus = 0;
    Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&gdiplus, &input, nullptr);

    WNDCLASSA surfaceClass = {};
    surfaceClass.lpfnWndProc = DefWindowProcA;
    surfaceClass.hInstance = GetModuleHandleA(nullptr);
    surfaceClass.lpszClassName = "MsvcHostSurface";
    RegisterClassA(&surfaceClass);
    HWND surface = CreateWindowExA(0, "MsvcHostSurface", "msvchost", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr,
                                   nullptr, surfaceClass.hInstance, nullptr);
    HOSTINFO* root = a_CreateDesign(surface, nullptr);
    HMODULE plugin = LoadLibraryA("DOVRIXC.dll");
    Check(root && plugin, "the framework makes a design and the plug-in loads");
    char* text = ReadFileText(designPath);
    Check(text != nullptr, "the design is read", designPath);
    if (!root || !plugin || !text)
        return g_failed;

    HOSTINFO* console = LoadDesign(root, surface, text);
    if (console) {
        DriveConsole(console);
        Save(console, outPath);
        CallExports(plugin, console);
    }
    CallOverloads(LoadLibraryA("abioverloads.dll"));
    CallBack(plugin);
    a_DestroyDesign(root);
    DestroyWindow(surface);
    Pump();
    return g_failed;
}

}  // namespace

extern "C" void MsvcHostMain()
{
    char* arguments[2] = {};
    if (Arguments(GetCommandLineA(), arguments, 2) != 2) {
        printf("usage: msvchost DESIGN OUT\n");
        ExitProcess(2);
    }
    const int failed = Run(arguments[0], arguments[1]);
    printf("%d failed\n", failed);
    fflush(stdout);
    ExitProcess((UINT)failed);
}
