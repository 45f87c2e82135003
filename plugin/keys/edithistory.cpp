#include "edithistory.h"

#include "../../base/banned.h"

namespace {

const KEYSTATE* FindKey(const std::vector<KEYSTATE>& keys, int keyId)
{
    for (const KEYSTATE& key : keys)
        if (key.keyId == keyId)
            return &key;
    return nullptr;
}

// The open step followed by `next`: the open step's before of every key it
// knew, next's before of the keys only next changed, next's after of all.
void Merge(EDITSTEP* open, const EDITSTEP& next)
{
    for (size_t i = 0; i < next.after.size(); ++i) {
        const KEYSTATE& after = next.after[i];
        bool known = false;
        for (size_t j = 0; j < open->after.size(); ++j) {
            if (open->after[j].keyId == after.keyId) {
                open->after[j] = after;
                known = true;
            }
        }
        if (!known) {
            const KEYSTATE* before = i < next.before.size() ? &next.before[i] : FindKey(next.before, after.keyId);
            open->before.push_back(before ? *before : after);
            open->after.push_back(after);
        }
    }
    open->extensionsAfter = next.extensionsAfter;
}

}  // namespace

bool EDITSTEP::Changes() const
{
    if (extensionsBefore != extensionsAfter)
        return true;
    for (const KEYSTATE& after : this->after) {
        const KEYSTATE* was = FindKey(before, after.keyId);
        if (!was || !(*was == after))
            return true;
    }
    return false;
}

void EDITHISTORY::Record(const EDITSTEP& step)
{
    const bool merging = open && done > 0 && done == steps.size() && !step.mergeTag.empty() &&
                         steps[done - 1].mergeTag == step.mergeTag;
    if (merging) {
        Merge(&steps[done - 1], step);
        if (!steps[done - 1].Changes()) {  // back where it began: no step at all
            steps.pop_back();
            --done;
            open = false;
        }
        return;
    }
    if (!step.Changes())
        return;
    steps.resize(done);
    steps.push_back(step);
    if (steps.size() > EDITHISTORY_DEPTH)
        steps.pop_front();
    done = steps.size();
    open = !step.mergeTag.empty();
}

const EDITSTEP* EDITHISTORY::Undo()
{
    open = false;
    if (done == 0)
        return nullptr;
    return &steps[--done];
}

const EDITSTEP* EDITHISTORY::Redo()
{
    open = false;
    if (done == steps.size())
        return nullptr;
    return &steps[done++];
}

void EDITHISTORY::Clear()
{
    steps.clear();
    done = 0;
    open = false;
}
