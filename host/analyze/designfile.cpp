// Reading and writing design files.
#include <stdio.h>

#include <string.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "design.h"
#include "designtext.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// Where a refused line came from, for the output window.
struct LINESOURCE {
    const char* file;
    int number;
    std::vector<std::string>* refusedNames;  // objects whose control line was refused
    const std::set<std::string>* existing;   // objects of the design before the file came
    LOADPHASES* phases;                      // where a file's load spends its time; null for single lines
};

// Adds the time from its making to its end to one phase of a load.
class PHASETIMER {
public:
    PHASETIMER(const LINESOURCE& source, double LOADPHASES::*phase)
        : m_phases(source.phases), m_phase(phase), m_start(m_phases ? HostMilliseconds() : 0)
    {
    }
    ~PHASETIMER()
    {
        if (m_phases)
            m_phases->*m_phase += HostMilliseconds() - m_start;
    }

private:
    LOADPHASES* m_phases;
    double LOADPHASES::*m_phase;
    double m_start;
};

// While obj takes a line, what it reports is said with its name and the line's place.
class REPORTING {
public:
    REPORTING(DESIGN* design, const std::string& object, const LINESOURCE& source)
        : m_design(design), m_previous(design->reporter)
    {
        design->reporter = DESIGN::REPORTER{object, source.file ? source.file : "", source.number};
    }
    ~REPORTING() { m_design->reporter = m_previous; }

private:
    DESIGN* m_design;
    DESIGN::REPORTER m_previous;
};

// The lines of an object that was refused name it before their "*"; without
// this a name holding "=" would turn them into host variables.
bool IsLineOfRefused(const char* text, size_t length, const LINESOURCE& source, std::string* name)
{
    if (!source.refusedNames)
        return false;
    for (const std::string& refused : *source.refusedNames) {
        if (length > refused.size() && memcmp(text, refused.data(), refused.size()) == 0 && text[refused.size()] == '*') {
            *name = refused;
            return true;
        }
    }
    return false;
}

void Refuse(DESIGN* design, const LINESOURCE& source, const std::string& what, const std::string& detail)
{
    if (source.file)
        EDITTRACE(design, "%s(%d): %s %s", source.file, source.number, what.c_str(), detail.c_str());
    else
        EDITTRACE(design, "%s %s", what.c_str(), detail.c_str());
}

HOSTINFO* FindObjectOf(DESIGN* design, const std::string& name)
{
    return static_cast<HOSTINFO*>(design->byName.Lookup(name.c_str()));
}

bool CreateFromControlLine(DESIGN* design, const DESIGNLINE& line, const LINESOURCE& source)
{
    CONTROLSPEC spec;
    std::string error;
    bool parsed;
    {
        PHASETIMER timer(source, &LOADPHASES::readingLines);
        parsed = ParseControlSpec(line.value, &spec, &error);
    }
    if (!parsed) {
        Refuse(design, source, "Malformed control line, bad", error);
        return false;
    }
    const std::string fullName = line.object + spec.name;
    std::string why;
    if (!IsWritableObjectName(line.object, spec.name, &why)) {
        Refuse(design, source, "Object name cannot be saved, it holds " + why + ":", fullName);
        if (source.refusedNames)
            source.refusedNames->push_back(fullName);
        return false;
    }
    if (fullName.size() >= HOSTNAME_SIZE) {
        Refuse(design, source, "Object name too long:", fullName);
        return false;
    }
    if (FindObjectOf(design, fullName)) {
        Refuse(design, source, "Object exists already:", fullName);
        // A file loaded into an open design must not rewrite the design's own
        // object of that name: its lines are refused with it.
        if (source.refusedNames && source.existing && source.existing->count(fullName))
            source.refusedNames->push_back(fullName);
        return false;
    }
    WNDCLASSEXA info = {};
    info.cbSize = sizeof info;
    if (!GetClassInfoExA(GetModuleHandleA(NULL), spec.className.c_str(), &info)) {
        Refuse(design, source, "Unknown window class", spec.className);
        return false;
    }

    HOSTCREATE create = {};
    create.host = design;
    CopyText(create.name, fullName.c_str());
    create.x = spec.x;
    create.y = spec.y;
    create.cx = spec.cx;
    create.cy = spec.cy;
    create.notify = design->surface;
    HWND parent = (spec.style & WS_CHILD) ? design->surface : NULL;
    REPORTING reporting(design, fullName, source);
    const double registered = design->registering;
    HWND hwnd;
    {
        PHASETIMER timer(source, &LOADPHASES::creatingWindows);
        hwnd = CreateWindowExA(spec.exStyle, spec.className.c_str(), spec.name.c_str(), spec.style, spec.x, spec.y,
                               spec.cx, spec.cy, parent, NULL, GetModuleHandleA(NULL), &create);
    }
    // What the object's registering took while its window was made is the host's bookkeeping.
    if (source.phases)
        source.phases->creatingWindows -= design->registering - registered;
    if (!hwnd) {
        Refuse(design, source, "Cannot create the window of", fullName);
        return false;
    }
    if (!FindObjectOf(design, fullName)) {
        Refuse(design, source, "The window did not create an object:", fullName);
        DestroyWindow(hwnd);
        return false;
    }
    return true;
}

// An object may keep less of a long value than the line held (a name of at
// most 128 characters): the user hears of it, so what a save writes is no
// surprise. Only values past the shortest such bound are read back.
void ReportShortened(HOSTINFO* obj, const DESIGNLINE& line)
{
    const size_t kShortestBound = 128;
    if (line.value.size() < kShortestBound)
        return;
    std::vector<char> kept(REQUEST_TEXT_SIZE, '\0');
    REQUEST read = {REQ_READ, 0, REQTYPE_TEXT, REQMODE_EDIT, kept.data(), line.keyword.c_str(), nullptr};
    if (obj->m_hWnd && IsWindow(obj->m_hWnd))
        SendMessageA(obj->m_hWnd, WM_HOST_MESSAGE, 0, (LPARAM)&read);
    else
        obj->OnMessage(0, (LPARAM)&read);
    kept.back() = '\0';
    const size_t length = strlen(kept.data());
    if (length > 0 && length < line.value.size() && line.value.compare(0, length, kept.data()) == 0)
        EDITTRACE(DesignOf(obj), "%s shortened to %u of its %u characters", line.keyword.c_str(), (unsigned)length,
                  (unsigned)line.value.size());
}

bool LoadObjectLine(DESIGN* design, const DESIGNLINE& line, int mode, const LINESOURCE& source)
{
    HOSTINFO* obj = FindObjectOf(design, line.object);
    if (!obj) {
        Refuse(design, source, "Unknown object", line.object);
        return false;
    }
    const std::string text = line.keyword + "=" + line.value;
    REPORTING reporting(design, line.object, source);
    PHASETIMER timer(source, &LOADPHASES::handingLines);
    if (obj->m_hWnd && IsWindow(obj->m_hWnd))
        SendMessageA(obj->m_hWnd, WM_HOST_LOAD, (WPARAM)mode, (LPARAM)text.c_str());
    else
        obj->OnLoad((WPARAM)mode, (LPARAM)text.c_str());
    ReportShortened(obj, line);
    return true;
}

bool LoadOneLine(DESIGN* design, const char* text, size_t length, int mode, const LINESOURCE& source)
{
    std::string refused;
    if (IsLineOfRefused(text, length, source, &refused)) {
        Refuse(design, source, "Line of a refused object:", refused);
        return false;
    }
    DESIGNLINE line;
    {
        PHASETIMER timer(source, &LOADPHASES::readingLines);
        line = SplitDesignLine(text, length);
    }
    switch (line.kind) {
    case DESIGNLINE_EMPTY:
        return true;
    case DESIGNLINE_CONTROL:
        if (source.phases)
            source.phases->controlLines++;
        return CreateFromControlLine(design, line, source);
    case DESIGNLINE_OBJECT:
        if (source.phases)
            source.phases->objectLines++;
        return LoadObjectLine(design, line, mode, source);
    case DESIGNLINE_HOST:
        return design->SetVariable(line.keyword, line.value);
    case DESIGNLINE_MALFORMED:
        break;
    }
    Refuse(design, source, "Malformed line:", std::string(text, length > 80 ? 80 : length));
    return false;
}

bool ReadWholeFile(LPCSTR path, std::string* content)
{
    FILE* file = fopen(path, "rb");
    if (!file)
        return false;
    char chunk[16384];
    size_t got;
    while ((got = fread(chunk, 1, sizeof chunk, file)) > 0)
        content->append(chunk, got);
    const bool ok = !ferror(file);
    fclose(file);
    return ok;
}

bool WriteText(HANDLE file, const std::string& text)
{
    DWORD written = 0;
    return WriteFile(file, text.data(), (DWORD)text.size(), &written, NULL) && written == text.size();
}

void SaveObject(HOSTINFO* obj, int pass, HANDLE file)
{
    if (obj->m_hWnd && IsWindow(obj->m_hWnd))
        SendMessageA(obj->m_hWnd, WM_HOST_SAVE, (WPARAM)pass, (LPARAM)file);
    else
        obj->OnSave((WPARAM)pass, (LPARAM)file);
}

// The end of the line that starts at start (its "\n", or the text's end).
size_t LineEnd(const std::string& content, size_t start)
{
    const size_t end = content.find('\n', start);
    return end == std::string::npos ? content.size() : end;
}

}  // namespace

BOOL a_LoadFile(HOSTINFO* root, LPCSTR path)
{
    DESIGN* design = FindDesign(root);
    if (!design)
        return FALSE;
    LOADPHASES phases = {};
    const double started = HostMilliseconds();
    std::string content;
    bool read;
    {
        PHASETIMER timer(LINESOURCE{nullptr, 0, nullptr, nullptr, &phases}, &LOADPHASES::readingLines);
        read = path && ReadWholeFile(path, &content);
    }
    if (!read) {
        EDITTRACE(design, "Cannot read the design file %s", path ? path : "");
        return FALSE;
    }
    const char* name = strrchr(path, '\\');
    name = name ? name + 1 : path;
    std::vector<std::string> refusedNames;
    // Loaded into an open design, the file adds objects: they are the
    // design's edits, and the edits made before stay marked.
    std::set<std::string> existing;
    std::map<HOSTINFO*, WORD> edited;
    for (HOSTINFO* obj : design->objects.Items()) {
        existing.insert(obj->m_szName);
        edited[obj] = obj->m_wFlags & HOSTFLAG_EDITED;
    }
    LINESOURCE source = {name, 0, &refusedNames, &existing, &phases};
    size_t start = 0;
    while (start < content.size()) {
        size_t end;
        {
            PHASETIMER timer(source, &LOADPHASES::readingLines);
            end = LineEnd(content, start);
        }
        source.number++;
        LoadOneLine(design, content.data() + start, end - start, REQMODE_DESIGNFILE, source);
        start = end + 1;
    }
    a_FinishLoading(design);
    if (!edited.empty()) {
        for (HOSTINFO* obj : design->objects.Items()) {
            auto before = edited.find(obj);
            obj->m_wFlags |= before == edited.end() ? (WORD)HOSTFLAG_EDITED : before->second;
        }
    }
    phases.lines = source.number;
    phases.total = HostMilliseconds() - started;
    phases.bookkeeping = phases.total - phases.readingLines - phases.creatingWindows - phases.handingLines;
    design->lastLoad = phases;
    return TRUE;
}

BOOL a_GetLoadPhases(HOSTINFO* root, LOADPHASES* phases)
{
    DESIGN* design = FindDesign(root);
    if (!design || !phases)
        return FALSE;
    *phases = design->lastLoad;
    return TRUE;
}

int a_ReadDesignLines(LPCSTR path)
{
    std::string content;
    if (!path || !ReadWholeFile(path, &content))
        return -1;
    int lines = 0;
    size_t start = 0;
    while (start < content.size()) {
        const size_t end = LineEnd(content, start);
        const DESIGNLINE line = SplitDesignLine(content.data() + start, end - start);
        CONTROLSPEC spec;
        std::string error;
        if (line.kind == DESIGNLINE_CONTROL)
            ParseControlSpec(line.value, &spec, &error);
        lines++;
        start = end + 1;
    }
    return lines;
}

BOOL a_LoadLine(HOSTINFO* root, LPCSTR line, int mode)
{
    DESIGN* design = FindDesign(root);
    if (!design || !line)
        return FALSE;
    return LoadOneLine(design, line, strlen(line), mode, LINESOURCE{nullptr, 0, nullptr, nullptr, nullptr});
}

namespace {

// Host lines, then pass 0 and pass 1 of every object; the edited marks are
// cleared when asked and the file was written.
BOOL WriteDesign(HOSTINFO* root, LPCSTR path, bool clearEdited)
{
    DESIGN* design = FindDesign(root);
    if (!design || !path)
        return FALSE;
    HANDLE file = CreateFileA(path, GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, NULL);
    if (file == INVALID_HANDLE_VALUE) {
        EDITTRACE(design, "Cannot write the design file %s", path);
        return FALSE;
    }
    bool ok = true;
    for (const auto& variable : design->SavedVariables())
        ok = WriteText(file, variable.first + "=" + variable.second + "\r\n") && ok;
    // Objects may reorder the list while saving (none should): iterate a copy.
    const std::vector<HOSTINFO*> objects = design->objects.Items();
    for (int pass = 0; pass < 2; pass++)
        for (HOSTINFO* obj : objects)
            SaveObject(obj, pass, file);
    CloseHandle(file);
    if (ok && clearEdited)
        for (HOSTINFO* obj : objects)
            obj->m_wFlags &= (WORD)~HOSTFLAG_EDITED;
    return ok;
}

}  // namespace

BOOL a_SaveFile(HOSTINFO* root, LPCSTR path)
{
    return WriteDesign(root, path, true);
}

BOOL a_SaveCopy(HOSTINFO* root, LPCSTR path)
{
    return WriteDesign(root, path, false);
}
