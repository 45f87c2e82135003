// Analyze: the host framework's interface for device plug-ins: what the
// framework offers a plug-in and nothing more. A plug-in that imports a name
// the framework lacks does not load in the real host, so the stand-in's own
// operations (the design document, the clock, the output window's lines)
// are in analyze_host.h, which plug-ins never include.
//
// A design is a tree of HOSTINFO objects. The root object stands for the
// design document (its window is the design surface, it holds the output
// window); every other object has a host object above it. Plug-ins derive
// their properties objects from HOSTINFO and answer its virtual operations;
// the host reaches them through their windows' WM_APP messages.
//
// Text forms used by the helpers below:
//   design-file line   "KEY=VALUE\r\n"; KEY of an object's line is the full
//                      object name, "*" and the keyword
//   control line       "[PARENT*]control=EXSTYLE CLASS \"NAME\" STYLE RECT"
//                      EXSTYLE "0" or "0x%08x", STYLE "0x%08x"
//   rectangle string   "%d,%d,%dx%d": left, top, width, height
//   connection string  the connection list's texts joined by ","
#pragma once

#include <windows.h>
#include <objidl.h>  // gdiplus.h needs PROPID
#include <gdiplus.h>

#include "analyze_request.h"

// The real framework and host are built with Microsoft's compiler, so this
// header is read by two compilers: Microsoft's (or clang in its mode, which
// the tests use as its stand-in) and MinGW's GCC, which builds the plug-ins.
// Both must make the same binary of it: the same field offsets, the same
// virtual-table slots, and the same names at the module boundary.
//
// Names: Microsoft's compiler decorates C++ names its own way, and the real
// framework exports and imports under those names. GCC cannot write them
// (its assembler takes no "?" in a symbol), so under GCC the exports are
// made by module definition files and the imports by an import library that
// maps each of GCC's names to Microsoft's, both derived at build time from
// this header by clang in Microsoft mode (tools/abi). GCC therefore marks
// nothing of the framework exported here; Microsoft's compiler does.
#if defined(_MSC_VER)
#ifdef ANALYZE_BUILD
#define ANALYZE_API __declspec(dllexport)
#else
#define ANALYZE_API __declspec(dllimport)
#endif
// The header-inline members a module exports, as the framework's own header
// declares them: every module that includes the header exports them.
#define ANALYZE_INLINE __declspec(dllexport)
#else
#ifdef ANALYZE_BUILD
#define ANALYZE_API
#else
#define ANALYZE_API __declspec(dllimport)
#endif
// Made in every translation unit, so that each module has them to export.
#define ANALYZE_INLINE __attribute__((used))
#endif

// printf-style checking of the trace functions where the compiler has it.
#if defined(__clang__)
#define ANALYZE_PRINTF(formatAt, argumentsAt) __attribute__((format(__printf__, formatAt, argumentsAt)))
#elif defined(__GNUC__)
#define ANALYZE_PRINTF(formatAt, argumentsAt) __attribute__((format(__gnu_printf__, formatAt, argumentsAt)))
#else
#define ANALYZE_PRINTF(formatAt, argumentsAt)
#endif

// Microsoft's compiler gathers the overloads of one virtual function at the
// place of the first and gives them their slots last-declared first; GCC
// gives every function its slot in the order of declaration. The overloads
// below are declared in the framework's order; GCC is handed them reversed,
// so that both compilers make the same table of them.
#define ANALYZE_UNPARENTHESIZE(...) __VA_ARGS__
#define ANALYZE_DECLARATION(declaration) ANALYZE_UNPARENTHESIZE declaration
#if defined(_MSC_VER)
#define ANALYZE_OVERLOADS2(a, b) ANALYZE_DECLARATION(a) ANALYZE_DECLARATION(b)
#define ANALYZE_OVERLOADS4(a, b, c, d) ANALYZE_OVERLOADS2(a, b) ANALYZE_OVERLOADS2(c, d)
#define ANALYZE_OVERLOADS5(a, b, c, d, e) ANALYZE_OVERLOADS4(a, b, c, d) ANALYZE_DECLARATION(e)
#else
#define ANALYZE_OVERLOADS2(a, b) ANALYZE_DECLARATION(b) ANALYZE_DECLARATION(a)
#define ANALYZE_OVERLOADS4(a, b, c, d) ANALYZE_OVERLOADS2(c, d) ANALYZE_OVERLOADS2(a, b)
#define ANALYZE_OVERLOADS5(a, b, c, d, e) ANALYZE_DECLARATION(e) ANALYZE_OVERLOADS4(a, b, c, d)
#endif

// The host's protocol: messages the host sends to an object's window (the
// WM_APP range; a widget's window answers WM_HOST_GETHOSTINFO too).
enum {
    WM_HOST_MESSAGE = WM_APP + 0,        // OnMessage(wParam, REQUEST*)
    WM_HOST_LOAD = WM_APP + 1,           // OnLoad(mode, "keyword=value")
    WM_HOST_SAVE = WM_APP + 2,           // OnSave(pass, HANDLE file)
    WM_HOST_SAVETOLIST = WM_APP + 3,     // OnSaveToListCtrl(0, HWND listview)
    WM_HOST_LOADED = WM_APP + 4,         // posted to the notification window
    WM_HOST_CHANGEADDRESS = WM_APP + 12, // to a controller: LOWORD old, HIWORD new; lParam the object
    WM_HOST_GETHOSTINFO = WM_APP + 20,   // returns the properties object (0x8014)
    WM_HOST_GETKEYWORDS = WM_APP + 50,   // returns a null-ended const char* array
    WM_HOST_GETDISPLAYTEXT = WM_APP + 52,// fills the buffer in lParam, returns it
    WM_HOST_CONTEXTMENU = WM_APP + 54,   // append items to the HMENU in lParam
    WM_HOST_CONTEXTCOMMAND = WM_APP + 55,// lParam: the command id
};

enum {
    HOSTFLAG_EDITED = 0x0001,  // written by something other than the design file
    HOSTFLAG_ONLINE = 0x0002,  // the device answers
};

enum { HOSTNAME_SIZE = 128 };

class HOSTINFO;

// A string list: the framework's singly linked list of texts. Items and
// their texts are allocated with a_Calloc; a_EmptyStringList frees both.
struct STRINGITEM {
    char* text;
    STRINGITEM* next;
};
struct STRINGLIST {
    STRINGITEM* first;
};

// A request list: pending requests of an object, owned by the host.
struct REQUESTITEM {
    REQUEST request;
    REQUESTITEM* next;
};
struct REQUESTLIST {
    REQUESTITEM* first;
};

// The connection list is a string list whose items are connections: the
// text "OBJECT.PORT" and the object it reaches, when known. The string item
// comes first, so the list is linked, joined (a_BuildString) and emptied
// (a_EmptyStringList) as any string list; entries come from a_Calloc.
struct CONNECTION {
    STRINGITEM item;
    HOSTINFO* target;
};

// What the host hands a window it creates from a control line
// (CREATESTRUCT::lpCreateParams).
struct HOSTCREATE {
    HOSTINFO* host;            // the object that owns the new one (the root)
    char name[HOSTNAME_SIZE];  // full object name, parent path included
    int x, y, cx, cy;          // placement from the control line
    HWND notify;               // notification window for WM_HOST_LOADED
};

// The host's name-to-pointer table (open hashing, names compared exactly).
class ANALYZE_API CHashTable {
public:
    CHashTable();
    ~CHashTable();
    BOOL Add(LPCSTR key, void* value);      // replaces an existing key
    void* Lookup(LPCSTR key) const;
    BOOL Remove(LPCSTR key);
    int GetCount() const;
    void RemoveAll();
    // Calls visit for every entry until it answers FALSE.
    typedef BOOL (*VISITOR)(LPCSTR key, void* value, void* context);
    BOOL Enumerate(VISITOR visit, void* context) const;

private:
    CHashTable(const CHashTable&);
    CHashTable& operator=(const CHashTable&);
    struct ENTRY;
    ENTRY** m_buckets;
    int m_bucketCount;
    int m_count;
};

class HOSTINFO {
public:
    HOSTINFO()
        : m_hWnd(NULL), m_wFlags(0), m_hNotify(NULL), m_pHost(NULL),
          m_pChildTable(NULL), m_wKind(0), m_wMode(0),
          m_nHostField500(0), m_nConsoleNumber(0)
    {
        SetRectEmpty(&m_rect);
        m_szName[0] = '\0';
        m_connections.first = NULL;
        m_strings.first = NULL;
        m_requests.first = NULL;
    }
    // The base is copied member by member; lists are shared, not duplicated.
    ANALYZE_INLINE HOSTINFO(const HOSTINFO& other) { CopyFields(other); }
    ANALYZE_INLINE HOSTINFO& operator=(const HOSTINFO& other)
    {
        CopyFields(other);
        return *this;
    }

    ANALYZE_INLINE virtual BOOL HasHostinfoTable() { return FALSE; }
    // The table of the objects below this one, by name (the root's holds
    // every object of the design).
    ANALYZE_INLINE virtual CHashTable* GetHostinfoTable() { return NULL; }
    virtual LRESULT OnLoad(WPARAM /*mode*/, LPARAM /*line*/) { return 0; }
    virtual LRESULT OnSave(WPARAM /*pass*/, LPARAM /*file*/) { return 0; }
    virtual LRESULT OnSaveToListCtrl(WPARAM, LPARAM /*listview*/) { return 0; }
    virtual LRESULT OnTimer(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnMessage(WPARAM, LPARAM /*REQUEST* */) { return 0; }
    virtual LRESULT OnSystem(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnInitialize(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnDelete(WPARAM, LPARAM) { return 0; }
    // The forms of OnGet: integer, float, text, and text with an index.
    ANALYZE_OVERLOADS4(
        (virtual BOOL OnGet(LPCSTR /*name*/, int* /*value*/) { return FALSE; }),
        (virtual BOOL OnGet(LPCSTR /*name*/, double* /*value*/) { return FALSE; }),
        (virtual BOOL OnGet(LPCSTR /*name*/, LPSTR /*text*/, int /*size*/) { return FALSE; }),
        (virtual BOOL OnGet(LPCSTR /*name*/, LPSTR /*text*/, int /*size*/, int /*index*/) { return FALSE; }))
    // The forms of OnSet: memory block, integer, float, text, text with an index.
    ANALYZE_OVERLOADS5(
        (virtual BOOL OnSet(LPCSTR /*name*/, const void* /*block*/, int /*size*/) { return FALSE; }),
        (virtual BOOL OnSet(LPCSTR /*name*/, int /*value*/) { return FALSE; }),
        (virtual BOOL OnSet(LPCSTR /*name*/, double /*value*/) { return FALSE; }),
        (virtual BOOL OnSet(LPCSTR /*name*/, LPCSTR /*text*/) { return FALSE; }),
        (virtual BOOL OnSet(LPCSTR /*name*/, LPCSTR /*text*/, int /*index*/) { return FALSE; }))
    virtual LRESULT OnUpdate(WPARAM, LPARAM) { return 0; }
    // A source (a device object) asks to be connected: name of the source,
    // and the target's parameters, e.g. "PORT,ADDRESS,MODEL".
    ANALYZE_OVERLOADS2(
        (virtual BOOL OnConnectSource(LPCSTR /*source*/, LPCSTR /*params*/) { return FALSE; }),
        (virtual BOOL OnConnectSource(HOSTINFO* /*source*/, LPCSTR /*params*/) { return FALSE; }))
    virtual BOOL OnConnectTarget(LPCSTR /*target*/, LPCSTR /*params*/) { return FALSE; }
    ANALYZE_OVERLOADS2(
        (virtual BOOL OnChangeAddress(LPCSTR /*source*/, LPCSTR /*params*/) { return FALSE; }),
        (virtual BOOL OnChangeAddress(HOSTINFO* /*source*/, LPCSTR /*params*/) { return FALSE; }))
    // "PORT,ADDRESS" of the position the source leaves.
    ANALYZE_OVERLOADS2(
        (virtual BOOL OnDisconnectSource(LPCSTR /*source*/, LPCSTR /*params*/) { return FALSE; }),
        (virtual BOOL OnDisconnectSource(HOSTINFO* /*source*/, LPCSTR /*params*/) { return FALSE; }))
    virtual HOSTINFO* OnGetHostinfo(LPCSTR /*name*/) { return NULL; }
    virtual BOOL OnGetTooltip(LPSTR /*text*/, int /*size*/) { return FALSE; }
    virtual int OnGetActiveLayer() { return 0; }
    virtual LRESULT OnData(WPARAM, LPARAM) { return 0; }
    virtual BOOL OnIsAlive(WPARAM, LPARAM /*HOSTINFO* asking*/) { return FALSE; }
    virtual BOOL OnInterfaceworking(WPARAM, LPARAM) { return FALSE; }
    virtual LRESULT OnGetKeywords(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnGetKeywords2(WPARAM, LPARAM) { return 0; }
    virtual int OnGetDatatype(LPCSTR /*name*/) { return 0; }
    virtual BOOL OnGetUserfriendlyName(LPSTR /*text*/, int /*size*/) { return FALSE; }
    virtual LRESULT OnGetPropertydlg(WPARAM, LPARAM) { return 0; }
    virtual BOOL OnGetContextMenu(HMENU /*menu*/) { return FALSE; }
    virtual BOOL OnSetContextMenu(UINT /*command*/) { return FALSE; }
    virtual LRESULT OnCaller(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnGetKeywords_PWS(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnGetKeywords_DCS(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnRequestList(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnDataInBuffer(WPARAM, LPARAM) { return 0; }
    virtual LRESULT OnIPAddressChanged(WPARAM, LPARAM) { return 0; }

    // Objects are destroyed by whoever created them, through their own type.
    ~HOSTINFO() {}

    HWND m_hWnd;                  // the object's window
    RECT m_rect;                  // placement in design coordinates
    WORD m_wFlags;                // HOSTFLAG_*
    HWND m_hNotify;               // receives WM_HOST_LOADED
    char m_szName[HOSTNAME_SIZE]; // full name, parent path included
    HOSTINFO* m_pHost;            // owner; null for the root
    STRINGLIST m_connections;     // connection list: CONNECTION items
    STRINGLIST m_strings;         // general string list (the layer list)
    REQUESTLIST m_requests;       // pending requests
    CHashTable* m_pChildTable;    // the host's table of child windows by name
    WORD m_wKind;                 // the object's kind, as the host counts them
    WORD m_wMode;                 // the design surface's mode (0 = run)
    int m_nHostField500;          // set to 500 when a device canvas is created
    int m_nConsoleNumber;         // the object's number in its design, given by the host

private:
    void CopyFields(const HOSTINFO& other)
    {
        m_hWnd = other.m_hWnd;
        m_rect = other.m_rect;
        m_wFlags = other.m_wFlags;
        m_hNotify = other.m_hNotify;
        CopyMemory(m_szName, other.m_szName, sizeof m_szName);
        m_pHost = other.m_pHost;
        m_connections = other.m_connections;
        m_strings = other.m_strings;
        m_requests = other.m_requests;
        m_pChildTable = other.m_pChildTable;
        m_wKind = other.m_wKind;
        m_wMode = other.m_wMode;
        m_nHostField500 = other.m_nHostField500;
        m_nConsoleNumber = other.m_nConsoleNumber;
    }
};

// An off-screen bitmap to draw into and blit from (seven words).
class cOffScreen {
public:
    cOffScreen() : m_hdc(NULL), m_hBitmap(NULL), m_hOldBitmap(NULL), m_x(0), m_y(0), m_cx(0), m_cy(0) {}
    ANALYZE_INLINE cOffScreen& operator=(const cOffScreen& other)
    {
        m_hdc = other.m_hdc;
        m_hBitmap = other.m_hBitmap;
        m_hOldBitmap = other.m_hOldBitmap;
        m_x = other.m_x;
        m_y = other.m_y;
        m_cx = other.m_cx;
        m_cy = other.m_cy;
        return *this;
    }
    ANALYZE_INLINE HBITMAP GetBitmap() { return m_hBitmap; }

    HDC m_hdc;
    HBITMAP m_hBitmap;
    HBITMAP m_hOldBitmap;
    int m_x, m_y, m_cx, m_cy;
};

// A window background held as a bitmap.
class cBackground {
public:
    cBackground() : m_hBitmap(NULL), m_cx(0), m_cy(0) {}
    ANALYZE_INLINE cBackground& operator=(const cBackground& other)
    {
        m_hBitmap = other.m_hBitmap;
        m_cx = other.m_cx;
        m_cy = other.m_cy;
        return *this;
    }
    ANALYZE_INLINE HBITMAP GetBitmap() { return m_hBitmap; }

    HBITMAP m_hBitmap;
    int m_cx, m_cy;
};

// A GDI+ image with the status of its last failing call.
class TAVOBitmap {
public:
    TAVOBitmap() : m_pImage(NULL), m_lastStatus(0) {}
    explicit TAVOBitmap(Gdiplus::GpImage* image) : m_pImage(image), m_lastStatus(0) {}
    ANALYZE_INLINE TAVOBitmap& operator=(const TAVOBitmap& other)
    {
        m_pImage = other.m_pImage;
        m_lastStatus = other.m_lastStatus;
        return *this;
    }
    ANALYZE_INLINE UINT GetWidth()
    {
        UINT width = 0;
        int status = Gdiplus::DllExports::GdipGetImageWidth(m_pImage, &width);
        if (status != 0) {
            m_lastStatus = status;
            return 0;
        }
        return width;
    }
    ANALYZE_INLINE UINT GetHeight()
    {
        UINT height = 0;
        int status = Gdiplus::DllExports::GdipGetImageHeight(m_pImage, &height);
        if (status != 0) {
            m_lastStatus = status;
            return 0;
        }
        return height;
    }

    Gdiplus::GpImage* m_pImage;
    int m_lastStatus;
};

// ---- Objects of the design ------------------------------------------------
// A design is walked through its root's table (GetHostinfoTable).

// The root object of the design that obj belongs to (obj itself for the root).
ANALYZE_API HOSTINFO* a_FindRootHostinfo(HOSTINFO* obj);
// The object of the design with this full name, or null.
ANALYZE_API HOSTINFO* a_FindHostinfo(LPCSTR name);
// Fills the object's base fields from its window and the creation record.
ANALYZE_API BOOL a_InitializeHostinfo(HOSTINFO* obj, HWND hwnd, const HOSTCREATE* create);
// Adds obj to the objects of its host object, and numbers it.
ANALYZE_API BOOL a_AddHostinfo(HOSTINFO* host, HOSTINFO* obj);
// Tells the design that obj exists and may now be addressed by name.
ANALYZE_API void a_HostinfoCreated(HOSTINFO* root, HOSTINFO* obj);
ANALYZE_API void a_HostinfoDestroyed(HOSTINFO* root, HOSTINFO* obj);
// Releases what the host keeps for obj (connection list, child table).
ANALYZE_API void a_CleanHostinfo(HOSTINFO* obj);
ANALYZE_API BOOL a_RemoveHostinfo(HOSTINFO* host, HOSTINFO* obj);
ANALYZE_API void a_DestroyChildWindows(HOSTINFO* obj);
// Draws the selection marks of a selected object on its window's DC.
ANALYZE_API void a_DrawSelection(HOSTINFO* obj, HDC hdc);
// Whether obj has a window of the window class className.
ANALYZE_API BOOL a_IsClass(HOSTINFO* obj, LPCSTR className);
// Reads a design file into the design of root. Returns FALSE when the file
// cannot be read; refused lines are reported in the output window and skipped.
// Into an open design the file adds its objects, which count as edits; a
// control line naming an object the design has already is refused with the
// lines of that object, so the design's own object stays as it was.
ANALYZE_API BOOL a_LoadFile(HOSTINFO* root, LPCSTR path);

// ---- Lists ----------------------------------------------------------------
// a_AddString is the host's layer-list function beside a_EmptyStringList: it
// appends a copy of text to a string list (the layer list of "layer").

ANALYZE_API BOOL a_AddString(STRINGLIST* list, LPCSTR text);
ANALYZE_API void a_EmptyStringList(STRINGLIST* list);
ANALYZE_API void a_EmptyRequestList(REQUESTLIST* list);
// Zeroed memory from the framework's heap: what its lists free.
ANALYZE_API void* a_Calloc(size_t count, size_t size);

// ---- Texts ----------------------------------------------------------------

// The key of a design-file line (everything before the first "=", the whole
// line when it has none). Returns FALSE when it did not fit.
ANALYZE_API BOOL a_GetKeyword(LPCSTR line, LPSTR key, int size);
// The value of a design-file line (everything after the first "=", without the
// line end; empty when there is no "="). Returns FALSE when it did not fit.
ANALYZE_API BOOL a_GetParameter(LPCSTR line, LPSTR value, int size);
// "%d,%d,%dx%d" of left, top, width and height.
ANALYZE_API LPSTR a_GetRectString(const RECT* rect, LPSTR text, int size);
// The connection string of a connection list (texts joined by ",").
ANALYZE_API LPSTR a_BuildString(const STRINGLIST* list, LPSTR text, int size);
// "FOLDER\name" below the host's folder, and below its temporary folder.
ANALYZE_API LPSTR a_MakeFullPathName(LPCSTR name, LPSTR path, int size);
ANALYZE_API LPSTR a_MakeFullTempPathName(LPCSTR name, LPSTR path, int size);

// ---- Resources of the host ------------------------------------------------

// 1: the brush of input fields (#FFFFCE), 2: the brush of faces and dialogs (#D4D0C8).
enum { HOSTOBJECT_BACKGROUNDBRUSH = 1, HOSTOBJECT_FACEBRUSH = 2 };
ANALYZE_API HGDIOBJ a_GetObject(int id);
// A font by "face,points" ("ms sans serif,8") or "face,points,bold"; the host keeps it.
ANALYZE_API HFONT a_GetFont(LPCSTR spec);

// ---- Widgets --------------------------------------------------------------

// Creates a host widget from a control line
//   EXSTYLE CLASS "NAME" STYLE X,Y,WxH      (EXSTYLE "0" or "0x%08x")
// with CLASS one of BSTATIC, BEDIT, BTRISTATEBUTTON, BBUTTON, LED, as a child
// of parent; the widget's properties object is in the window's user data and
// takes attribute strings "keyword=value" through its OnLoad(0, text):
//   function=VARIABLE  fmt=TEXT  caption=TEXT  bitmap=.\PATH.bmp
//   textcolor=COLOUR  textcolorwhenpressed=COLOUR  backgroundcolor=COLOUR
//   alignment=left  datatype=s|string  font=FACE,POINTS  interval=MS
//   click=VARIABLE=VALUE  value=N  connection=OBJECT
// (COLOUR "0" or "0x" and up to eight hex digits, 0x00BBGGRR). A face bitmap
// holds its looks side by side: a toggle's off, on and unknown, a button's up
// and down, an LED's off and on. A bound widget reads its variable through
// the connected object's OnMessage (text) every "interval" ms (500 unless
// set); a toggle, an edit field and a button's click write it. The widget
// is entered in owner's child table (m_pChildTable) under its name. Mode 1
// is the only mode. Returns null, with a trace, for a line it refuses.
ANALYZE_API HWND a_CreateControl(int mode, HOSTINFO* owner, HWND parent, char* line);
// The widget of owner named so, or null.
ANALYZE_API HWND a_FindHwnd(HOSTINFO* owner, LPCSTR name);

// ---- Diagnostics ----------------------------------------------------------

// Developer trace: the debugger output and, when set, the trace file.
ANALYZE_API void TRACE(LPCSTR format, ...) ANALYZE_PRINTF(1, 2);
// A line for the user in the output window of obj's design.
ANALYZE_API void EDITTRACE(HOSTINFO* obj, LPCSTR format, ...) ANALYZE_PRINTF(2, 3);
