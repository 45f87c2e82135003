#include "dialogwatch.h"

#include <string.h>

#include <vector>

#include "../../plugin/protocol.h"

#include "../../base/banned.h"

namespace {

// A modal dialog shows itself once its queue is empty: the timer ticks often
// enough to be quick, seldom enough to leave the queue empty now and then.
const UINT kShownPeriod = 20;

struct WATCHES {
    HHOOK hook = NULL;
    std::vector<const DIALOGWATCH*> live;  // oldest first
};

// Hooks and timer procedures take no context: the thread's one list.
WATCHES& Watches()
{
    static WATCHES watches;
    return watches;
}

bool IsShown(HWND dialog)
{
    return IsWindow(dialog) && IsWindowVisible(dialog);
}

void CALLBACK OfferShownDialog(HWND dialog, UINT, UINT_PTR timer, DWORD)
{
    if (Watches().live.empty()) {
        KillTimer(dialog, timer);
        return;
    }
    if (!IsWindowVisible(dialog))
        return;
    KillTimer(dialog, timer);
    // By index: a watch may end, or a newer one begin, while an older one acts.
    for (size_t i = 0; i < Watches().live.size() && IsShown(dialog); i++)
        Watches().live[i]->Shown(dialog);
}

LRESULT CALLBACK FindDialogs(int code, WPARAM wParam, LPARAM lParam)
{
    if (code == HCBT_CREATEWND) {
        HWND window = (HWND)wParam;
        const CBT_CREATEWNDA* created = reinterpret_cast<const CBT_CREATEWNDA*>(lParam);
        char className[16] = "";
        GetClassNameA(window, className, sizeof className);
        const bool child = created && created->lpcs && (created->lpcs->style & WS_CHILD);
        if (!child && strcmp(className, "#32770") == 0)
            SetTimer(window, TIMER_DIALOGWATCH, kShownPeriod, OfferShownDialog);
    }
    return CallNextHookEx(Watches().hook, code, wParam, lParam);
}

}  // namespace

DIALOGWATCH::DIALOGWATCH(SHOWN shown) : m_shown(std::move(shown))
{
    WATCHES& watches = Watches();
    if (watches.live.empty())
        watches.hook = SetWindowsHookExA(WH_CBT, FindDialogs, NULL, GetCurrentThreadId());
    watches.live.push_back(this);
}

DIALOGWATCH::~DIALOGWATCH()
{
    WATCHES& watches = Watches();
    for (size_t i = watches.live.size(); i-- > 0;)
        if (watches.live[i] == this) {
            watches.live.erase(watches.live.begin() + (std::ptrdiff_t)i);
            break;
        }
    if (watches.live.empty() && watches.hook) {
        UnhookWindowsHookEx(watches.hook);
        watches.hook = NULL;
    }
}

std::string WindowCaption(HWND window)
{
    char caption[256] = "";
    GetWindowTextA(window, caption, sizeof caption);
    return caption;
}
