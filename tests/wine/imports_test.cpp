// What the plug-ins take from the framework: a plug-in that imports a name the
// real framework lacks does not load in the real host.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "testhost.h"

namespace {

// The framework's operations that the plug-in may call, one a line.
const char* const kFrameworkOperations[] = {
    "a_FindRootHostinfo",
    "a_FindHostinfo",
    "a_FindHwnd",
    "a_InitializeHostinfo",
    "a_AddHostinfo",
    "a_HostinfoCreated",
    "a_HostinfoDestroyed",
    "a_CleanHostinfo",
    "a_RemoveHostinfo",
    "a_DestroyChildWindows",
    "a_DrawSelection",
    "a_CreateControl",
    "a_GetFont",
    "a_GetObject",
    "a_GetKeyword",
    "a_GetParameter",
    "a_GetRectString",
    "a_BuildString",
    "a_AddItem2ComboBox",
    "a_AddItems2ComboBox",
    "a_MakeFullPathName",
    "a_MakeFullTempPathName",
    "a_Calloc",
    "a_IsClass",
    "a_LoadFile",
    "a_EmptyStringList",
    "a_EmptyRequestList",
    "a_AddString",  // the host's layer-list function, beside a_EmptyStringList
    "TRACE",
    "EDITTRACE",
};

// The framework's classes whose members a plug-in uses or derives from.
const char* const kFrameworkClasses[] = {
    "HOSTINFO",
    "CHashTable",
    "cOffScreen",
    "cBackground",
    "TAVOBitmap",
};

// The names a loaded module imports from the module named dll.
std::vector<std::string> ImportsFrom(HMODULE module, const char* dll)
{
    std::vector<std::string> names;
    const BYTE* base = reinterpret_cast<const BYTE*>(module);
    const IMAGE_DOS_HEADER* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const IMAGE_NT_HEADERS* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const IMAGE_IMPORT_DESCRIPTOR* d =
             reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         directory.VirtualAddress && d->Name; d++) {
        if (_stricmp(reinterpret_cast<const char*>(base + d->Name), dll) != 0)
            continue;
        for (const IMAGE_THUNK_DATA* t = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + d->OriginalFirstThunk);
             t->u1.AddressOfData; t++) {
            if (IMAGE_SNAP_BY_ORDINAL(t->u1.Ordinal)) {
                names.push_back("#" + std::to_string(IMAGE_ORDINAL(t->u1.Ordinal)));
                continue;
            }
            const IMAGE_IMPORT_BY_NAME* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + t->u1.AddressOfData);
            names.push_back(reinterpret_cast<const char*>(import->Name));
        }
    }
    return names;
}

// The names a module exports.
std::vector<std::string> ExportsOf(HMODULE module)
{
    std::vector<std::string> names;
    const BYTE* base = reinterpret_cast<const BYTE*>(module);
    const IMAGE_DOS_HEADER* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const IMAGE_NT_HEADERS* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    if (!directory.VirtualAddress)
        return names;
    const IMAGE_EXPORT_DIRECTORY* exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
    const DWORD* nameOffsets = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    for (DWORD i = 0; i < exports->NumberOfNames; i++)
        names.push_back(reinterpret_cast<const char*>(base + nameOffsets[i]));
    return names;
}

// "a_GetFont" of "?a_GetFont@@YAPAUHFONT__@@PBD@Z", "class:CHashTable" of
// "?RemoveAll@CHashTable@@QAEXXZ" and of "??1CHashTable@@QAE@XZ" (Microsoft's
// decoration, as the framework exports them); a plain (C) name as it stands.
std::string CalledName(const std::string& symbol)
{
    if (symbol.compare(0, 1, "?") != 0)
        return symbol;
    // "??0", "??1", "??4", "??_7": a special member, named by its class alone.
    size_t at = 1;
    bool special = false;
    if (symbol.compare(at, 1, "?") == 0) {
        special = true;
        at += symbol.compare(at + 1, 1, "_") == 0 ? 3 : 2;
    }
    const size_t end = symbol.find('@', at);
    if (end == std::string::npos)
        return symbol;
    const std::string first = symbol.substr(at, end - at);
    if (special)
        return "class:" + first;
    if (symbol.compare(end + 1, 1, "@") == 0)
        return first;  // a free function: "name@@"
    const size_t classEnd = symbol.find('@', end + 1);
    return "class:" + symbol.substr(end + 1, classEnd - end - 1);
}

std::vector<std::string> UnknownOperations(HMODULE module)
{
    std::set<std::string> allowed(std::begin(kFrameworkOperations), std::end(kFrameworkOperations));
    for (const char* name : kFrameworkClasses)
        allowed.insert(std::string("class:") + name);
    std::vector<std::string> unknown;
    for (const std::string& symbol : ImportsFrom(module, "Analyze.dll"))
        if (!allowed.count(CalledName(symbol)))
            unknown.push_back(symbol);
    return unknown;
}

std::string Joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += name + "\n";
    return text;
}

}  // namespace

TEST(FrameworkImports, NamesAreReadAsTheFrameworkNamesThem)
{
    EXPECT_EQ(CalledName("?a_GetFont@@YAPAUHFONT__@@PBD@Z"), "a_GetFont");
    EXPECT_EQ(CalledName("?TRACE@@YAXPBDZZ"), "TRACE");
    EXPECT_EQ(CalledName("?Enumerate@CHashTable@@QBEHP6AHPBDPAX1@Z1@Z"), "class:CHashTable");
    EXPECT_EQ(CalledName("?RemoveAll@CHashTable@@QAEXXZ"), "class:CHashTable");
    EXPECT_EQ(CalledName("??1CHashTable@@QAE@XZ"), "class:CHashTable");
    EXPECT_EQ(CalledName("??_7HOSTINFO@@6B@"), "class:HOSTINFO");
    EXPECT_EQ(CalledName("fnCallback"), "fnCallback");
}

// Nothing crosses the boundary under GCC's decoration: the real host and
// framework know only Microsoft's.
TEST(FrameworkImports, NoNameCrossesInGccsDecoration)
{
    ASSERT_NE(Plugin(), nullptr);
    std::string gcc;
    for (HMODULE module : {Plugin(), GetModuleHandleA(kControllersDll), GetModuleHandleA("Analyze.dll")}) {
        for (const std::string& name : ImportsFrom(module, "Analyze.dll"))
            if (name.compare(0, 2, "_Z") == 0)
                gcc += "import " + name + "\n";
        for (const std::string& name : ExportsOf(module))
            if (name.compare(0, 2, "_Z") == 0)
                gcc += "export " + name + "\n";
    }
    EXPECT_EQ(gcc, "");
}

TEST(FrameworkImports, ThePlugInCallsOnlyTheFrameworksOperations)
{
    ASSERT_NE(Plugin(), nullptr);
    const std::vector<std::string> imports = ImportsFrom(Plugin(), "Analyze.dll");
    EXPECT_GT(imports.size(), 10u);  // the walk found the framework's imports at all
    EXPECT_EQ(Joined(UnknownOperations(Plugin())), "");
}

TEST(FrameworkImports, TheControllersAreAPlugInOfTheSameInterface)
{
    Plugin();
    HMODULE controllers = GetModuleHandleA(kControllersDll);
    ASSERT_NE(controllers, nullptr);
    EXPECT_EQ(Joined(UnknownOperations(controllers)), "");
}

TEST(FrameworkImports, TheFrameworkExportsNothingOfTheSimulation)
{
    HMODULE analyze = GetModuleHandleA("Analyze.dll");
    ASSERT_NE(analyze, nullptr);
    std::string simulation;
    for (const std::string& name : ExportsOf(analyze))
        if (name.find("Simulat") != std::string::npos || name.find("Controller") != std::string::npos)
            simulation += name + "\n";
    EXPECT_EQ(simulation, "");
    EXPECT_NE(GetProcAddress(GetModuleHandleA(kControllersDll), "SimulateDevice"), nullptr);
}
