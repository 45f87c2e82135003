// The stand-in framework's own operations, for host applications (the
// workbench, the tests) and for the framework itself: the design document,
// the clock, selection and mode, the output window's lines. Plug-ins never
// include this header: the real framework offers them none of it.
#pragma once

#include "analyze.h"

// ---- The design document --------------------------------------------------
// A host application starts GDI+ before it loads plug-ins: plug-ins load
// their images while they attach.

// Creates the root object of a design: surface is the parent of the objects'
// windows, output the edit control of the output window (either may be null).
ANALYZE_API HOSTINFO* a_CreateDesign(HWND surface, HWND output);
ANALYZE_API void a_DestroyDesign(HOSTINFO* root);
// Hands one design-file line to the design (mode 1 when it comes from a file).
ANALYZE_API BOOL a_LoadLine(HOSTINFO* root, LPCSTR line, int mode);
// Ends the loading of a design file (a_LoadFile does it): each object's
// window handles what the object posted itself while its lines came in, then
// the edited marks that loading left (connecting re-sends settings as edits)
// are cleared, since the user has changed nothing yet.
ANALYZE_API void a_FinishLoading(HOSTINFO* root);
// Writes the design: host lines, then pass 0 and pass 1 of every object.
// "projectversion" is written as the host's own version when one is set.
ANALYZE_API BOOL a_SaveFile(HOSTINFO* root, LPCSTR path);
// Writes the design as a_SaveFile does, for a program that reads the design's
// text (the workbench's key-plan import): the objects keep their edited marks,
// so a changed design still counts as changed.
ANALYZE_API BOOL a_SaveCopy(HOSTINFO* root, LPCSTR path);
// The project version of the host application (for example "V 3.9.0"): a
// design is saved in it, whatever version it was read in.
ANALYZE_API BOOL a_SetHostProjectVersion(HOSTINFO* root, LPCSTR version);
// Calls visit for every object of every open design in creation order until
// it answers FALSE. Returns FALSE when the walk was stopped.
typedef BOOL (*HOSTINFOVISITOR)(HOSTINFO* obj, void* context);
ANALYZE_API BOOL a_EnumHostinfo(HOSTINFOVISITOR visit, void* context);
// Where the design's last a_LoadFile spent its time, in milliseconds, for
// benchmarks. The phases add up to the whole load.
struct LOADPHASES {
    double readingLines;     // reading the file, splitting its lines, classifying and parsing each
    double creatingWindows;  // the objects' windows, each plug-in making its object with its window
    double handingLines;     // object lines handed to their objects (keyword lookup and handler)
    double bookkeeping;      // the host's own: names looked up and registered, refused lines, finishing
    double total;
    int lines;
    int controlLines;
    int objectLines;
};
ANALYZE_API BOOL a_GetLoadPhases(HOSTINFO* root, LOADPHASES* phases);
// Reads a design file and splits and classifies its lines as a_LoadFile
// does, handing them to nobody: the least a load can take. The number of
// lines, or -1 when the file cannot be read.
ANALYZE_API int a_ReadDesignLines(LPCSTR path);
// Host variables of the design ("projectversion"), served by the root's
// OnMessage as text (at most HOSTTEXT_SIZE - 1 characters are copied).
enum { HOSTTEXT_SIZE = 260 };
ANALYZE_API BOOL a_SetVariable(HOSTINFO* root, LPCSTR name, LPCSTR value);
// The lines written to the design's output window, oldest first.
ANALYZE_API int a_GetOutputLineCount(HOSTINFO* root);
ANALYZE_API BOOL a_GetOutputLine(HOSTINFO* root, int index, LPSTR text, int size);
// Whether an object of the design was edited since loading or saving.
ANALYZE_API BOOL a_IsModified(HOSTINFO* root);
// The design's selected object (one at most; null clears the selection).
ANALYZE_API BOOL a_SetSelection(HOSTINFO* root, HOSTINFO* obj);
ANALYZE_API HOSTINFO* a_GetSelection(HOSTINFO* root);
// The mode word of every object of the design, now and when added: 0 while
// the design runs, non-zero while it is edited (objects then hand their mouse
// input to the design surface).
ANALYZE_API BOOL a_SetDesignMode(HOSTINFO* root, WORD mode);

// The design's alarm matrix: the sources announced under "Matrix.AddAlarmID"
// (to the design or to a controller), in the order they came.
ANALYZE_API int a_GetAlarmSourceCount(HOSTINFO* root);
ANALYZE_API BOOL a_GetAlarmSource(HOSTINFO* root, int index, LPSTR text, int size);

// ---- Widgets --------------------------------------------------------------

// What a widget shows: its value, text or caption.
ANALYZE_API BOOL a_GetControlText(HWND widget, LPSTR text, int size);

// ---- Time -----------------------------------------------------------------
// The host's clock in milliseconds: GetTickCount, plus whatever time the host
// has added for time that did not pass (the workbench's "tick"). A host that
// simulates time hands a loaded plug-in the clock: a_UseHostClock points the
// module's imported GetTickCount at a_GetTickCount, so the plug-in's own
// polling follows the simulated time as it follows real time in the field.

ANALYZE_API DWORD a_GetTickCount();
ANALYZE_API void a_AdvanceClock(DWORD milliseconds);
// While held, the clock stands still but for a_AdvanceClock, so that a test
// can step the plug-in's time by exact amounts; releasing it goes on from
// where it stood.
ANALYZE_API void a_HoldClock(BOOL hold);
ANALYZE_API BOOL a_UseHostClock(HMODULE module);

// ---- Diagnostics ----------------------------------------------------------

ANALYZE_API BOOL a_SetTraceFile(LPCSTR path);
