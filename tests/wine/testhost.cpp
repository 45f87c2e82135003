#include "testhost.h"

#include <functional>

#include <stdio.h>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "../../base/text.h"
#include "../../host/workbench/messagebox.h"

namespace {

const char kSurfaceClass[] = "TestDesignSurface";

struct CATCHER {
    bool expecting = false;  // a MESSAGEBOXCATCHER lives
    int answer = IDOK;       // the button the boxes are closed with
    std::vector<std::string> texts;
    std::vector<std::string> captions;
};

CATCHER& Catcher()
{
    static CATCHER catcher;
    return catcher;
}

// Each message box once it shows (it has its text by then).
void RecordMessageBox(HWND box)
{
    if (!IsMessageBox(box))
        return;
    char text[1024] = "";
    GetDlgItemTextA(box, 0xFFFF, text, sizeof text);  // a message box's text control
    if (Catcher().expecting) {
        Catcher().texts.push_back(text);
        Catcher().captions.push_back(WindowCaption(box));
    } else
        ADD_FAILURE() << "unexpected message box: " << text;
    if (!Catcher().expecting || Catcher().answer != MESSAGEBOX_LEFT_OPEN)
        PostMessageA(box, WM_COMMAND, (WPARAM)(Catcher().answer ? Catcher().answer : IDOK), 0);
}

void RegisterSurfaceClass()
{
    static bool registered = false;
    if (registered)
        return;
    WNDCLASSA wc = {};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.lpszClassName = kSurfaceClass;
    registered = RegisterClassA(&wc) != 0;
}

}  // namespace

HMODULE Plugin()
{
    // The controllers first: their window classes must exist when designs load.
    static HMODULE controllers = LoadDevicePlugin(kControllersDll);
    static HMODULE plugin = controllers ? LoadDevicePlugin("DOVRIXC.dll") : NULL;
    return plugin;
}

PLUGINCALLBACK PluginCallback()
{
    return (PLUGINCALLBACK)(void*)GetProcAddress(Plugin(), "fnCallback");
}

TESTDESIGN::TESTDESIGN()
{
    Plugin();
    RegisterSurfaceClass();
    m_surface = CreateWindowExA(0, kSurfaceClass, "surface", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 800, 600,
                                NULL, NULL, GetModuleHandleA(NULL), NULL);
    m_root = a_CreateDesign(m_surface, NULL);
}

TESTDESIGN::~TESTDESIGN()
{
    a_DestroyDesign(m_root);
    DestroyWindow(m_surface);
}

void TESTDESIGN::Load(const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        a_LoadLine(m_root, line.c_str(), REQMODE_DESIGNFILE);
    a_FinishLoading(m_root);
}

void TESTDESIGN::Edit(const std::string& line)
{
    a_LoadLine(m_root, line.c_str(), REQMODE_EDIT);
}

HOSTINFO* TESTDESIGN::Object(const char* name) const
{
    return a_FindHostinfo(name);
}

std::string TESTDESIGN::Get(const char* object, const char* keyword, LRESULT* answer) const
{
    HOSTINFO* obj = Object(object);
    if (!obj)
        return "<no object>";
    char value[4096] = {};
    REQUEST request = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, value, keyword, nullptr};
    const LRESULT result = SendMessageA(obj->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&request);
    if (answer)
        *answer = result;
    return value;
}

std::vector<std::string> TESTDESIGN::Output() const
{
    std::vector<std::string> lines;
    char line[4096];
    for (int i = 0; i < a_GetOutputLineCount(m_root); i++)
        if (a_GetOutputLine(m_root, i, line, sizeof line))
            lines.push_back(line);
    return lines;
}

std::vector<std::string> TESTDESIGN::SavedLines(std::string* raw) const
{
    const std::string path = TempFolder() + "\\saved.ds";
    a_SaveFile(m_root, path.c_str());
    const std::string content = ReadFileBytes(path);
    if (raw)
        *raw = content;
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < content.size()) {
        size_t end = content.find("\r\n", start);
        if (end == std::string::npos)
            end = content.size();
        lines.push_back(content.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

void CloseEveryMessageBox()
{
    static DIALOGWATCH boxes(RecordMessageBox);  // for the whole run
}

MESSAGEBOXCATCHER::MESSAGEBOXCATCHER(int answer)
{
    Catcher().texts.clear();
    Catcher().captions.clear();
    Catcher().expecting = true;
    Catcher().answer = answer;
}

MESSAGEBOXCATCHER::~MESSAGEBOXCATCHER()
{
    Catcher().expecting = false;
    Catcher().answer = IDOK;
}

const std::vector<std::string>& MESSAGEBOXCATCHER::Texts() const
{
    return Catcher().texts;
}

const std::vector<std::string>& MESSAGEBOXCATCHER::Captions() const
{
    return Catcher().captions;
}

std::string SourcePath(const char* relative)
{
    std::string path = std::string("Z:") + DOVRIXC_SOURCE_DIR + "/" + relative;
    for (char& c : path)
        if (c == '/')
            c = '\\';
    return path;
}

std::string TempFolder()
{
    static int counter = 0;
    char base[MAX_PATH];
    GetTempPathA(sizeof base, base);
    char folder[MAX_PATH];
    FormatText(folder, sizeof folder, "%sdovrixc-test-%lu-%d", base, GetCurrentProcessId(), ++counter);
    CreateDirectoryA(folder, NULL);
    return folder;
}

std::string ReadFileBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::stringstream content;
    content << file.rdbuf();
    return content.str();
}

// The client area of window, 32-bit, as draw puts it into a memory DC.
static std::vector<DWORD> ClientPixels(HWND window, int* width, const std::function<void(HDC, const RECT&)>& draw)
{
    RECT client;
    GetClientRect(window, &client);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = client.right;
    info.bmiHeader.biHeight = -client.bottom;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(NULL, &info, DIB_RGB_COLORS, &bits, NULL, 0);
    HDC memory = CreateCompatibleDC(NULL);
    HGDIOBJ old = SelectObject(memory, bitmap);
    draw(memory, client);
    GdiFlush();
    std::vector<DWORD> pixels((const DWORD*)bits, (const DWORD*)bits + client.right * client.bottom);
    SelectObject(memory, old);
    DeleteDC(memory);
    DeleteObject(bitmap);
    if (width)
        *width = client.right;
    return pixels;
}

std::vector<DWORD> WindowPixels(HWND window, int* width)
{
    return ClientPixels(window, width, [&](HDC memory, const RECT&) {
        SendMessageA(window, WM_PRINTCLIENT, (WPARAM)memory, PRF_CLIENT);
    });
}

std::vector<DWORD> ScreenPixels(HWND window, int* width)
{
    return ClientPixels(window, width, [&](HDC memory, const RECT& client) {
        POINT origin = {0, 0};
        ClientToScreen(window, &origin);
        HDC screen = GetDC(NULL);
        BitBlt(memory, 0, 0, client.right, client.bottom, screen, origin.x, origin.y, SRCCOPY);
        ReleaseDC(NULL, screen);
    });
}

// ---- The workbench as a separate process ----

static HANDLE InheritableFile(const std::string& path)
{
    SECURITY_ATTRIBUTES inherit = {sizeof inherit, NULL, TRUE};
    return CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                       NULL);
}

RUN Workbench(const std::string& arguments)
{
    return Program("workbench.exe --headless " + arguments);
}

RUN Program(const std::string& commandLine)
{
    const std::string folder = TempFolder();
    HANDLE out = InheritableFile(folder + "\\out.txt");
    HANDLE err = InheritableFile(folder + "\\err.txt");
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = out;
    startup.hStdError = err;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    std::string command = commandLine;
    PROCESS_INFORMATION process = {};
    RUN run;
    if (CreateProcessA(NULL, &command[0], NULL, NULL, TRUE, 0, NULL, NULL, &startup, &process)) {
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &run.exitCode);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(out);
    CloseHandle(err);
    run.out = ReadFileBytes(folder + "\\out.txt");
    run.err = ReadFileBytes(folder + "\\err.txt");
    return run;
}

std::string WriteScript(const std::string& text)
{
    const std::string path = TempFolder() + "\\script.txt";
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

