// The undo and redo history of one console's keys: each step holds the keys
// it changed as they were before and after (record, label and special-key
// role) and the console's extension flags before and after. Platform-free;
// the window that edits applies what Undo and Redo hand back.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <deque>
#include <string>
#include <vector>

enum { EDITHISTORY_DEPTH = 128 };

struct KEYSTATE {
    int keyId;
    std::string record;
    std::string label;
    int role;
    bool operator==(const KEYSTATE& other) const
    {
        return keyId == other.keyId && record == other.record && label == other.label && role == other.role;
    }
};

struct EDITSTEP {
    std::vector<KEYSTATE> before;  // one entry per changed key, in the order of after
    std::vector<KEYSTATE> after;
    uint32_t extensionsBefore = 0;
    uint32_t extensionsAfter = 0;
    // Edits of one control of one key in a row (a spin held down, typing in
    // a field) share a tag and make one step until the step is sealed.
    std::string mergeTag;
    bool Changes() const;
};

class EDITHISTORY {
public:
    // Adds a change. A change that changes nothing is dropped; one whose tag
    // equals the open step's extends that step (its before stays). Any change
    // drops what could be redone.
    void Record(const EDITSTEP& step);
    // Ends merging: the next change makes a step of its own.
    void Seal() { open = false; }
    // The step to take back (apply its before) or to do again (apply its
    // after); nullptr when there is none.
    const EDITSTEP* Undo();
    const EDITSTEP* Redo();
    bool CanUndo() const { return done > 0; }
    bool CanRedo() const { return done < steps.size(); }
    size_t Depth() const { return done; }
    void Clear();

private:
    std::deque<EDITSTEP> steps;
    size_t done = 0;  // steps[0..done) are done, the rest can be redone
    bool open = false;
};
