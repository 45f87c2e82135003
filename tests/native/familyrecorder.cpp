#include "familyrecorder.h"

namespace {

int Note(const char* family, int member)
{
    FamilyCalls().push_back(FAMILYCALL{family, member});
    return 1;
}

}  // namespace

std::vector<FAMILYCALL>& FamilyCalls()
{
    static std::vector<FAMILYCALL> calls;
    return calls;
}

int FaultsHandler(REQUEST*, CONSOLEPROPERTIES*, int n) { return Note("Faults", n); }
int StateFlagsHandler(REQUEST*, CONSOLEPROPERTIES*, int n) { return Note("StateFlags", n); }
int FaultMaskHandler(REQUEST*, CONSOLEPROPERTIES*, int mask) { return Note("FaultMask", mask); }
int KeyHandler(REQUEST*, CONSOLEPROPERTIES*, int key) { return Note("Key", key); }
int OptionStateHandler(REQUEST*, CONSOLEPROPERTIES*, int key) { return Note("OptionState", key); }
int KeyLabelHandler(REQUEST*, CONSOLEPROPERTIES*, int key) { return Note("KeyLabel", key); }
int NumericKeyHandler(REQUEST*, CONSOLEPROPERTIES*, int key) { return Note("NumericKey", key); }
int MirroredSettingHandler(REQUEST*, CONSOLEPROPERTIES*, int setting) { return Note("Mirrored", setting); }
