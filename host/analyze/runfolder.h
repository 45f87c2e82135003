// The host's temporary folder: one of its own for each run, below the
// system's temporary folder, so that what plug-ins unpack there can never
// touch a file of the user's and nothing of it outlives the run.
#pragma once

#include <stddef.h>

// Made at start-up: removes the folders of runs that ended without removing
// theirs, then creates this run's folder (a new name, never an existing one).
bool CreateRunFolder();
// Removes this run's folder with everything in it (at exit).
void RemoveRunFolder();
// This run's folder with its closing backslash; empty when none could be made.
const char* RunFolder();
