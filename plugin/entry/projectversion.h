#pragma once

class HOSTINFO;

// Whether the design the object belongs to was made before the test fault
// mask existed: its host object's "projectversion" is older than V x.8 of
// release 3 (no host object or no version: not old).
bool IsOldProject(HOSTINFO* obj);
