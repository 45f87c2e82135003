#include "blockpaste.h"

#include "viewrules.h"
#include "keygeometry.h"
#include "../keys/keycatalogue.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const size_t kKeySlots = 128;  // a console's key slots

int32_t FunctionOf(const std::string& record)
{
    return KeyFunctionId(record.substr(0, record.find(',')).c_str());
}

bool Exists(const PASTETARGET& console, int key)
{
    if (key < 0 || key > KEY_PTT)
        return false;
    return key >= KEY_DEL || key <= 20 * console.extensionCount + 14;
}

int Holding(const std::vector<int32_t>& functions, int32_t function)
{
    int count = 0;
    for (int32_t held : functions)
        count += held == function ? 1 : 0;
    return count;
}

std::string WhySkipped(const PASTETARGET& console, const std::vector<int32_t>& functions, int key, int32_t function)
{
    if (!Exists(console, key))
        return "outside the console";
    if (KeyMenuFor(console.type, key, console.numericKeys) == KEYMENU_NONE)
        return "no key menu";
    if (RefusesPastedFunction(console.type, key, function))
        return "\"System Faults\" cannot sit there";
    if (function == KF_PROTECT && Holding(functions, KF_PROTECT) > (functions[(size_t)key] == KF_PROTECT ? 1 : 0))
        return "Protect key already configured";
    if (function == KF_INDICATOR_TEST &&
        Holding(functions, KF_INDICATOR_TEST) > (functions[(size_t)key] == KF_INDICATOR_TEST ? 1 : 0))
        return "Indicator Test key already configured";
    return std::string();
}

}  // namespace

std::vector<PASTEDKEY> PlanBlockPaste(const std::vector<BLOCKKEY>& block, int target, const PASTETARGET& console)
{
    std::vector<int32_t> functions = console.functions;
    functions.resize(kKeySlots, 0);
    const std::vector<int> places = PlaceKeyBlock(block, target);
    std::vector<PASTEDKEY> plan;
    for (size_t i = 0; i < block.size() && i < places.size(); i++) {
        PASTEDKEY pasted = {block[i].offset, places[i], block[i].record, block[i].label, std::string()};
        const int32_t function = FunctionOf(block[i].record);
        pasted.skipped = WhySkipped(console, functions, pasted.key, function);
        if (pasted.skipped.empty())
            functions[(size_t)pasted.key] = function;  // the block's own keys count for the ones after
        plan.push_back(pasted);
    }
    return plan;
}

std::string SkippedKeysText(const std::vector<PASTEDKEY>& plan)
{
    std::string text;
    int pasted = 0;
    for (const PASTEDKEY& key : plan) {
        if (key.skipped.empty()) {
            ++pasted;
            continue;
        }
        text += text.empty() ? "" : "; ";
        text += key.key < 0 ? FormatString("a key %+d from the target: %s", key.offset, key.skipped.c_str())
                            : FormatString("key %d: %s", key.key, key.skipped.c_str());
    }
    if (text.empty())
        return text;
    return FormatString("Pasted %d of %d keys; skipped ", pasted, (int)plan.size()) + text;
}
