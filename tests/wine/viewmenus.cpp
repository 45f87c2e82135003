#include "viewmenus.h"

#include <commctrl.h>
#include <string.h>

#include "../../plugin/protocol.h"

namespace {

const char kMenuRun[] = "DovrixcTest.MenuRun";

// Reads the menu once it is idle, then walks to the chosen item and takes it.
LRESULT CALLBACK MenuHook(int code, WPARAM wParam, LPARAM lParam)
{
    const CWPSTRUCT* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
    MENURUN* run = code == HC_ACTION && message->message == WM_ENTERIDLE && message->wParam == MSGF_MENU
                       ? static_cast<MENURUN*>(GetPropA(message->hwnd, kMenuRun))
                       : nullptr;
    if (run && !run->opened) {
        run->opened = true;
        HWND menuWindow = (HWND)message->lParam;
        HMENU menu = (HMENU)SendMessageA(menuWindow, MN_GETHMENU, 0, 0);
        int steps = 0, target = -1;
        for (int i = 0; menu && i < GetMenuItemCount(menu); i++) {
            const UINT state = GetMenuState(menu, (UINT)i, MF_BYPOSITION);
            if (state & MF_SEPARATOR)
                continue;
            char text[64] = "";
            GetMenuStringA(menu, (UINT)i, text, sizeof text, MF_BYPOSITION);
            run->items.push_back(std::string(text) + ((state & MF_GRAYED) ? " (greyed)" : "") +
                                 ((state & MF_CHECKED) ? " (checked)" : ""));
            if (target < 0)
                steps++;
            if (run->choice == text && !(state & MF_GRAYED))
                target = i;
        }
        for (int i = 0; target >= 0 && i < steps; i++)
            PostMessageA(menuWindow, WM_KEYDOWN, VK_DOWN, 0);
        PostMessageA(menuWindow, WM_KEYDOWN, target >= 0 ? VK_RETURN : VK_ESCAPE, 0);
    }
    return CallNextHookEx(NULL, code, wParam, lParam);
}

}  // namespace

MENURUN ViewMenuAt(HWND view, int x, int y, const std::string& choice)
{
    MENURUN run;
    run.choice = choice;
    POINT screen = {x, y};
    ClientToScreen(view, &screen);
    SetPropA(view, kMenuRun, &run);
    HHOOK hook = SetWindowsHookExA(WH_CALLWNDPROC, MenuHook, NULL, GetCurrentThreadId());
    SendMessageA(view, WM_CONTEXTMENU, (WPARAM)view, MAKELPARAM(screen.x, screen.y));
    UnhookWindowsHookEx(hook);
    RemovePropA(view, kMenuRun);
    return run;
}

MENURUN ViewMenuByKey(HWND view, UINT key, bool shift, const std::string& choice)
{
    MENURUN run;
    run.choice = choice;
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(keys);
    SetPropA(view, kMenuRun, &run);
    HHOOK hook = SetWindowsHookExA(WH_CALLWNDPROC, MenuHook, NULL, GetCurrentThreadId());
    SendMessageA(view, WM_KEYDOWN, key, 0);
    UnhookWindowsHookEx(hook);
    RemovePropA(view, kMenuRun);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    return run;
}

int ViewHitTest(HWND view, int x, int y)
{
    int id = -1;
    return SendMessageA(view, CVM_HITTEST, (WPARAM)&id, MAKELPARAM(x, y)) ? id : -1;
}

namespace {

struct TIPSEARCH {
    HWND view;
    std::string text;
};

BOOL CALLBACK AskTooltip(HWND window, LPARAM context)
{
    TIPSEARCH* search = reinterpret_cast<TIPSEARCH*>(context);
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    if (strcmp(name, "tooltips_class32") != 0)
        return TRUE;
    wchar_t text[256] = L"";
    TOOLINFOW tool = {};
    tool.cbSize = sizeof tool;
    tool.hwnd = search->view;
    tool.lpszText = text;
    SendMessageW(window, TTM_GETTEXTW, sizeof text / sizeof text[0], (LPARAM)&tool);
    char narrow[256] = "";
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow, sizeof narrow, NULL, NULL);
    search->text = narrow;
    return search->text.empty();
}

}  // namespace

std::string TooltipText(HWND view)
{
    TIPSEARCH search = {view, ""};
    EnumThreadWindows(GetCurrentThreadId(), AskTooltip, (LPARAM)&search);
    return search.text;
}
