// The configuration window's key-function editor panel: the page of the
// selected key at 230,550, rebuilt when the key or its function changes.
#include "configurationstate.h"

#include "../device/consoleproperties.h"
#include "../keyeditor/keypage.h"
#include "../keyeditor/pagetable.h"
#include "../protocol.h"

#include "../../base/banned.h"

namespace {

const int kPanelX = 230, kPanelY = 550, kPanelWidth = 470, kPanelHeight = 200;

int WantedPage(const CONSOLEPROPERTIES* c)
{
    const int key = c->m_selectedKey >= 0 && c->m_selectedKey < CONSOLE_KEY_COUNT ? c->m_selectedKey : -1;
    return EditorPageOf(key, key >= 0 ? c->m_keys[key].functionId : 0, c->m_settings.decadicSelectionActive != 0);
}

}  // namespace

void RebuildKeyPanel(HWND hwnd, CONFIGURATIONSTATE* state)
{
    if (state->keyPage && IsWindow(state->keyPage))
        DestroyWindow(state->keyPage);
    CONSOLEPROPERTIES* c = state->console;
    const int key = c->m_selectedKey >= 0 && c->m_selectedKey < CONSOLE_KEY_COUNT ? c->m_selectedKey : -1;
    state->keyPage = CreateKeyPage(hwnd, c, key);
    state->keyPageKey = key;
    if (!state->keyPage)
        return;
    SetWindowLongPtrA(state->keyPage, GWLP_ID, IDC_KEYPAGE);
    // Below its siblings: it overlaps none of them, and the Supervision page stays the top dialog.
    const bool shown = c->m_configurationTab != TAB_SUPERVISION;
    SetWindowPos(state->keyPage, HWND_BOTTOM, kPanelX, kPanelY, kPanelWidth, kPanelHeight,
                 SWP_NOACTIVATE | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

// While the key-change mark stands a rebuild is noted (and the mark taken
// down); the first tick without it rebuilds. A key whose function changed
// (a drop, a paste, a clear) is a change as well.
void FollowKeyChange(HWND hwnd, CONFIGURATIONSTATE* state)
{
    CONSOLEPROPERTIES* c = state->console;
    if (c->m_keyChangeMark) {
        c->m_keyChangeMark = false;
        state->rebuildNoted = true;
        return;
    }
    if (!state->rebuildNoted && state->keyPage && KeyPageId(state->keyPage) != WantedPage(c))
        state->rebuildNoted = true;
    if (!state->rebuildNoted)
        return;
    state->rebuildNoted = false;
    RebuildKeyPanel(hwnd, state);
}
