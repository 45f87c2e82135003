// The verbs of the configuration window's keyboard: undo and redo, a key
// stroke typed on its console view, and keys clicked into the selection.
#include "workbench.h"

#include <ctype.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "../../plugin/protocol.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

struct KEYNAME {
    const char* name;
    UINT key;
};

// The names a stroke is written with; a single letter or digit stands for itself.
const KEYNAME kKeyNames[] = {
    {"left", VK_LEFT},     {"right", VK_RIGHT}, {"up", VK_UP},     {"down", VK_DOWN},
    {"delete", VK_DELETE}, {"del", VK_DELETE},  {"enter", VK_RETURN}, {"escape", VK_ESCAPE},
    {"f2", VK_F2},         {"f10", VK_F10},     {"apps", VK_APPS},  {"menu", VK_APPS},
};

struct STROKE {
    bool control = false;
    bool shift = false;
    UINT key = 0;
};

std::string Lower(std::string text)
{
    for (char& c : text)
        c = (char)tolower((unsigned char)c);
    return text;
}

bool ParseStroke(const std::string& written, STROKE* stroke)
{
    std::string rest = Lower(written);
    for (;;) {
        if (rest.rfind("ctrl+", 0) == 0) {
            stroke->control = true;
            rest = rest.substr(5);
        } else if (rest.rfind("shift+", 0) == 0) {
            stroke->shift = true;
            rest = rest.substr(6);
        } else {
            break;
        }
    }
    for (const KEYNAME& name : kKeyNames)
        if (rest == name.name) {
            stroke->key = name.key;
            return true;
        }
    if (rest.size() == 1 && isalnum((unsigned char)rest[0])) {
        stroke->key = (UINT)toupper((unsigned char)rest[0]);
        return true;
    }
    return false;
}

HWND WindowOf(const std::string& object)
{
    HOSTINFO* obj = FindWindowedObject(object);
    HWND window = obj ? FindConfigurationWindow(obj) : NULL;
    if (obj && !window)
        fprintf(stderr, "workbench: %s has no configuration window open\n", object.c_str());
    return window;
}

void HoldModifiers(bool control, bool shift)
{
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = control ? 0x80 : 0;
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(keys);
}

// The window's accelerators: Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z.
UINT AcceleratorOf(const STROKE& stroke)
{
    if (!stroke.control)
        return 0;
    if (stroke.key == 'Z')
        return stroke.shift ? CFM_REDO : CFM_UNDO;
    return stroke.key == 'Y' && !stroke.shift ? CFM_REDO : 0;
}

bool Step(const SCRIPTCOMMAND& command, UINT message)
{
    HWND window = WindowOf(command.object);
    if (!window)
        return false;
    if (!SendMessageA(window, message, 0, 0))
        printf("%s: nothing to %s\n", command.object.c_str(), message == CFM_UNDO ? "undo" : "redo");
    PumpMessagesFor(50);
    return true;
}

bool Undo(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    return Step(command, CFM_UNDO);
}

bool Redo(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    return Step(command, CFM_REDO);
}

bool Stroke(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    STROKE stroke;
    if (!ParseStroke(command.text, &stroke)) {
        fprintf(stderr, "workbench: no key stroke %s (ctrl+ and shift+ before a letter, a digit or one of left, "
                        "right, up, down, delete, enter, escape, f2, f10, apps)\n",
                command.text.c_str());
        return false;
    }
    HWND window = WindowOf(command.object);
    HWND view = window ? GetDlgItem(window, IDC_CONSOLEVIEW) : NULL;
    if (!view)
        return false;
    if (const UINT accelerator = AcceleratorOf(stroke)) {
        SendMessageA(window, accelerator, 0, 0);
    } else {
        SetFocus(view);
        HoldModifiers(stroke.control, stroke.shift);
        SendMessageA(view, stroke.key == VK_F10 ? WM_SYSKEYDOWN : WM_KEYDOWN, stroke.key, 0);
        HoldModifiers(false, false);
    }
    PumpMessagesFor(50);
    return true;
}

bool SelectKeys(WORKBENCH*, const SCRIPTCOMMAND& command)
{
    std::vector<int> keys;
    size_t at = 0;
    while (at < command.text.size()) {
        const size_t end = command.text.find(' ', at);
        const std::string word = command.text.substr(at, end == std::string::npos ? end : end - at);
        int key = 0;
        if (!word.empty()) {
            if (!ParseInt(word.c_str(), &key) || key < 0 || key > 127) {
                fprintf(stderr, "workbench: %s is no key id\n", word.c_str());
                return false;
            }
            keys.push_back(key);
        }
        at = end == std::string::npos ? end : end + 1;
    }
    for (int key : keys)
        if (!SelectEditorKey(command.object, key))
            return false;
    return true;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_UNDO, Undo},
    {SCRIPT_REDO, Redo},
    {SCRIPT_KEY, Stroke},
    {SCRIPT_SELECTKEYS, SelectKeys},
};

}  // namespace

const VERBHANDLERS kKeyboardVerbs = HandlerTable(kHandlers);
