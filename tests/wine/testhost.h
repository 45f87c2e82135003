// What the tests under Wine share: the loaded plug-in, a design to put
// consoles in, message boxes caught when they show, and paths. A test that
// drives a dialog does it through a DIALOGWATCH (dialogwatch.h), once the
// dialog shows, never on its activation.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "analyze_host.h"
#include "../../host/workbench/dialogwatch.h"
#include "../../host/workbench/plugins.h"

typedef INT_PTR (*PLUGINCALLBACK)(int code, HOSTINFO* host, LPARAM param);
typedef FILE* (*FILEOPEN)(const char* folder, const char* relative, const char* mode);

// The plug-in, loaded once for the whole run (GDI+ is started before).
HMODULE Plugin();
PLUGINCALLBACK PluginCallback();

// A design on a hidden surface, destroyed with the object.
class TESTDESIGN {
public:
    TESTDESIGN();
    ~TESTDESIGN();
    HOSTINFO* Root() const { return m_root; }
    HWND Surface() const { return m_surface; }
    // Loads design-file lines (mode 1), one per entry, and ends the loading
    // as the host does after a design file.
    void Load(const std::vector<std::string>& lines);
    // An edit, as the property list makes it (mode 0).
    void Edit(const std::string& line);
    HOSTINFO* Object(const char* name) const;
    // Reads a keyword through the object's OnMessage (type 11); empty when refused.
    std::string Get(const char* object, const char* keyword, LRESULT* answer = nullptr) const;
    std::vector<std::string> Output() const;
    // Saves and returns the file's lines, without their CR LF.
    std::vector<std::string> SavedLines(std::string* raw = nullptr) const;

private:
    HWND m_surface;
    HOSTINFO* m_root;
};

// Every message box of the test thread is closed at once (so no test can hang
// on one); a box that no MESSAGEBOXCATCHER expects fails the test.
void CloseEveryMessageBox();

// While it lives, message boxes are expected: their texts and captions are
// recorded and each is answered with the button given (IDYES, IDNO, IDCANCEL ...),
// or left open for the test to close (MESSAGEBOX_LEFT_OPEN).
enum { MESSAGEBOX_LEFT_OPEN = 0 };
class MESSAGEBOXCATCHER {
public:
    explicit MESSAGEBOXCATCHER(int answer = IDOK);
    ~MESSAGEBOXCATCHER();
    const std::vector<std::string>& Texts() const;
    const std::vector<std::string>& Captions() const;
};

// A window's client area as it draws itself (WM_PRINTCLIENT), pixel by pixel
// (0x00RRGGBB), rows from the top; the width in *width when asked for.
std::vector<DWORD> WindowPixels(HWND window, int* width = nullptr);
// What the screen shows of the window's client area, not what the window
// would draw if asked: a window that never painted reads as what lies there.
std::vector<DWORD> ScreenPixels(HWND window, int* width = nullptr);

std::string SourcePath(const char* relative);  // a file of the source tree
std::string TempFolder();                       // a fresh folder for one test
std::string ReadFileBytes(const std::string& path);

// The workbench run headless as its own process, with its output.
struct RUN {
    DWORD exitCode = 0xFFFFFFFF;
    std::string out;
    std::string err;
};
RUN Workbench(const std::string& arguments);
// A program of the tests' folder, run to its end with its output.
RUN Program(const std::string& commandLine);
// A file of a fresh folder holding text; its path.
std::string WriteScript(const std::string& text);
