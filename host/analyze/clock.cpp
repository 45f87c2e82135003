// The host's clock, and handing it to the plug-ins a host loads.
#include "analyze_host.h"

#include <string.h>

#include "../../base/banned.h"

namespace {

DWORD& ClockOffset()
{
    static DWORD offset = 0;
    return offset;
}

// The real tick count the clock stands at while held.
struct HELDCLOCK {
    bool held = false;
    DWORD at = 0;
};
HELDCLOCK& Held()
{
    static HELDCLOCK held;
    return held;
}

DWORD WINAPI HostTickCount()
{
    return a_GetTickCount();
}

// The module's import address table entry of kernel32's GetTickCount, found
// by name in the import lookup table; null when the module does not import it.
ULONG_PTR* GetTickCountSlot(HMODULE module)
{
    BYTE* base = reinterpret_cast<BYTE*>(module);
    const IMAGE_DOS_HEADER* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    if (!base || dos->e_magic != IMAGE_DOS_SIGNATURE)
        return nullptr;
    const IMAGE_NT_HEADERS* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (nt->Signature != IMAGE_NT_SIGNATURE || imports.VirtualAddress == 0)
        return nullptr;
    for (const IMAGE_IMPORT_DESCRIPTOR* d =
             reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
         d->Name; d++) {
        if (_stricmp(reinterpret_cast<const char*>(base + d->Name), "kernel32.dll") != 0 || !d->OriginalFirstThunk)
            continue;
        const IMAGE_THUNK_DATA* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + d->OriginalFirstThunk);
        IMAGE_THUNK_DATA* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + d->FirstThunk);
        for (; names->u1.AddressOfData; names++, slots++) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                continue;
            const IMAGE_IMPORT_BY_NAME* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (strcmp(reinterpret_cast<const char*>(import->Name), "GetTickCount") == 0)
                return reinterpret_cast<ULONG_PTR*>(&slots->u1.Function);
        }
    }
    return nullptr;
}

}  // namespace

DWORD a_GetTickCount()
{
    return (Held().held ? Held().at : GetTickCount()) + ClockOffset();
}

void a_HoldClock(BOOL hold)
{
    HELDCLOCK& clock = Held();
    if (hold && !clock.held) {
        clock.at = GetTickCount();
    } else if (!hold && clock.held) {
        ClockOffset() += clock.at - GetTickCount();
    }
    clock.held = hold != FALSE;
}

void a_AdvanceClock(DWORD milliseconds)
{
    ClockOffset() += milliseconds;
}

BOOL a_UseHostClock(HMODULE module)
{
    ULONG_PTR* slot = GetTickCountSlot(module);
    if (!slot)
        return FALSE;
    DWORD protection = 0;
    if (!VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection))
        return FALSE;
    *slot = reinterpret_cast<ULONG_PTR>(&HostTickCount);
    VirtualProtect(slot, sizeof *slot, protection, &protection);
    return TRUE;
}
