// The configuration window's undo and redo of a console's keys. Every edit of
// the console (a design line in edit mode, a key page's change, the view's
// extension buttons) ends in NoteKeyEdit, which compares the keys, labels,
// roles and extension flags with what it saw last and makes the difference
// one step of the console's EDITHISTORY.
#pragma once

class CONSOLEPROPERTIES;

// The window opens the history and drops it when it closes.
void StartKeyHistory(CONSOLEPROPERTIES* c);
void StopKeyHistory(CONSOLEPROPERTIES* c);
// A design file is read: what it replaces cannot be undone.
void ForgetKeyHistory(CONSOLEPROPERTIES* c);

// What changed since the last note becomes a step; a merge tag makes a run
// of changes of one control a single step.
void NoteKeyEdit(CONSOLEPROPERTIES* c, const char* mergeTag = nullptr);
// What changed since the last note is taken as it is, without a step.
void AbsorbKeyEdit(CONSOLEPROPERTIES* c);
// Ends the run of the open merge tag.
void SealKeyEdit(CONSOLEPROPERTIES* c);

// While a group lives the changes of several lines make one step.
class KEYEDITGROUP {
public:
    explicit KEYEDITGROUP(CONSOLEPROPERTIES* c);
    ~KEYEDITGROUP();

private:
    KEYEDITGROUP(const KEYEDITGROUP&);
    KEYEDITGROUP& operator=(const KEYEDITGROUP&);
    CONSOLEPROPERTIES* console;
};

// Takes back or does again one step; false when there is none, when no
// history is open, or while the console is online.
bool UndoKeyEdit(CONSOLEPROPERTIES* c);
bool RedoKeyEdit(CONSOLEPROPERTIES* c);
bool CanUndoKeyEdit(const CONSOLEPROPERTIES* c);
bool CanRedoKeyEdit(const CONSOLEPROPERTIES* c);
