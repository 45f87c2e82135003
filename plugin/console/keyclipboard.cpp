// Several keys on the clipboard: a block of our own registered format beside
// the single-key "CONSOLEKEY" (the block's first key), so that other
// programs and older versions still paste one key.
#include "viewstate.h"

#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

#include "blockpaste.h"
#include "viewrules.h"
#include "../device/consoleproperties.h"
#include "../device/keyundo.h"
#include "../keys/keyblock.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const size_t kConsoleKeyBlock = 256;  // the single-key format's block

UINT ConsoleKeyFormat()
{
    return RegisterClipboardFormatA("CONSOLEKEY");
}

UINT KeyBlockFormat()
{
    return RegisterClipboardFormatA("DOVRIXCKEYBLOCK");
}

void Report(CONSOLEPROPERTIES* c, const std::string& text)
{
    EDITTRACE(c->m_pHost ? c->m_pHost : c, "%s", text.c_str());
}

bool PutText(UINT format, const std::string& text, size_t size)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE | GMEM_ZEROINIT, size);
    char* data = block ? static_cast<char*>(GlobalLock(block)) : nullptr;
    if (!data) {
        if (block)
            GlobalFree(block);
        return false;
    }
    CopyText(data, size, text.c_str());
    GlobalUnlock(block);
    if (SetClipboardData(format, block))
        return true;
    GlobalFree(block);
    return false;
}

std::vector<BLOCKKEY> SelectedBlock(const CONSOLEVIEW* view)
{
    std::vector<BLOCKKEY> block;
    std::vector<int> taken;
    for (int key : view->selection) {
        if (key < 0 || key >= CONSOLE_KEY_COUNT || std::find(taken.begin(), taken.end(), key) != taken.end())
            continue;
        const KEYSLOT& slot = view->console->m_keys[key];
        if (!CanCopyKey(slot.functionId))
            continue;  // as the menu greys Copy for them
        taken.push_back(key);
        std::string record = FormatKeyRecord(slot);
        if (record.size() > KEYBLOCK_MAX_RECORD)
            record.resize(KEYBLOCK_MAX_RECORD);
        block.push_back(BLOCKKEY{key - taken.front(), record, view->console->m_settings.keyLabels[key]});
    }
    return block;
}

bool ReadBlock(HWND hwnd, std::string* text)
{
    if (!IsClipboardFormatAvailable(KeyBlockFormat()) || !OpenClipboard(hwnd))
        return false;
    bool found = false;
    if (HGLOBAL block = GetClipboardData(KeyBlockFormat())) {
        const size_t size = GlobalSize(block);
        if (const char* data = static_cast<const char*>(GlobalLock(block))) {
            text->assign(data, strnlen(data, size));
            GlobalUnlock(block);
            found = true;
        }
    }
    CloseClipboard();
    return found;
}

PASTETARGET TargetOf(const CONSOLEVIEW* view)
{
    const CONSOLEPROPERTIES* c = view->console;
    PASTETARGET target;
    target.type = ConsoleType(view);
    target.extensionCount = c->m_settings.extensionCount;
    target.numericKeys = c->m_settings.decadicSelectionActive != 0;
    for (const KEYSLOT& slot : c->m_keys)
        target.functions.push_back(slot.functionId);
    return target;
}

}  // namespace

bool CopySelectedKeys(HWND hwnd, CONSOLEVIEW* view)
{
    const std::vector<BLOCKKEY> block = SelectedBlock(view);
    std::string text;
    if (block.size() < 2 || !EncodeKeyBlock(block, &text, nullptr))
        return false;  // one key: the single-key copy
    if (!OpenClipboard(hwnd))
        return true;
    EmptyClipboard();
    PutText(ConsoleKeyFormat(), block.front().record, kConsoleKeyBlock);
    PutText(KeyBlockFormat(), text, text.size() + 1);
    CloseClipboard();
    return true;
}

bool PasteKeyBlockAt(HWND hwnd, CONSOLEVIEW* view, int target)
{
    std::string text;
    if (!ReadBlock(hwnd, &text))
        return false;  // no block: the single-key paste
    CONSOLEPROPERTIES* c = view->console;
    if (c->IsOnline())
        return true;
    std::vector<BLOCKKEY> block;
    std::string error;
    if (!DecodeKeyBlock(text.data(), text.size(), &block, &error)) {
        Report(c, "The keys on the clipboard cannot be pasted: " + error);
        return true;
    }
    const std::vector<PASTEDKEY> plan = PlanBlockPaste(block, target, TargetOf(view));
    {
        KEYEDITGROUP step(c);  // one undo step for the whole block
        for (const PASTEDKEY& key : plan) {
            if (!key.skipped.empty())
                continue;
            c->LoadEdit((FormatString("key%03d=", key.key) + key.record).c_str());
            c->LoadEdit((FormatString("keylabel%03d=", key.key) + key.label).c_str());
        }
    }
    const std::string skipped = SkippedKeysText(plan);
    if (!skipped.empty())
        Report(c, skipped);
    for (const PASTEDKEY& key : plan)
        if (key.key == target && key.skipped.empty())
            SelectPastedKey(hwnd, view, target);  // the block's first key
    InvalidateRect(hwnd, NULL, TRUE);
    return true;
}
