// The HOSTINFO overrides of CONSOLEPROPERTIES as the host calls them: each
// answers its failure value when its body throws.
#include "consoleproperties.h"

#include "../../base/guard.h"
#include "../../base/banned.h"

LRESULT CONSOLEPROPERTIES::OnLoad(WPARAM mode, LPARAM line)
{
    return GuardedCall<LRESULT>("OnLoad", 0, [&] { return LoadLine(mode, line); });
}

LRESULT CONSOLEPROPERTIES::OnSave(WPARAM pass, LPARAM file)
{
    return GuardedCall<LRESULT>("OnSave", 0, [&] { return SaveLines(pass, file); });
}

LRESULT CONSOLEPROPERTIES::OnSaveToListCtrl(WPARAM ignored, LPARAM listView)
{
    return GuardedCall<LRESULT>("OnSaveToListCtrl", 0, [&] { return FillList(ignored, listView); });
}

LRESULT CONSOLEPROPERTIES::OnTimer(WPARAM wParam, LPARAM lParam)
{
    return GuardedCall<LRESULT>("OnTimer", 0, [&] { return Poll(wParam, lParam); });
}

LRESULT CONSOLEPROPERTIES::OnMessage(WPARAM ignored, LPARAM request)
{
    return GuardedCall<LRESULT>("OnMessage", 0, [&] { return ServeRequest(ignored, request); });
}

BOOL CONSOLEPROPERTIES::OnGetUserfriendlyName(LPSTR text, int size)
{
    return GuardedCall<BOOL>("OnGetUserfriendlyName", FALSE, [&] { return FriendlyName(text, size); });
}
