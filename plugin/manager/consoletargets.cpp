#include "consoletargets.h"

#include <algorithm>

#include "managerrules.h"
#include "../device/consoleproperties.h"
#include "../device/partner.h"

#include "../../base/banned.h"

namespace {

struct FOUND {
    std::vector<HOSTINFO*> objects;
};

BOOL Collect(LPCSTR, void* value, void* context)
{
    if (value)
        static_cast<FOUND*>(context)->objects.push_back(static_cast<HOSTINFO*>(value));
    return TRUE;
}

// Every object of root's design, by name.
std::vector<HOSTINFO*> DesignObjects(HOSTINFO* root)
{
    FOUND found;
    if (root && root->GetHostinfoTable())
        root->GetHostinfoTable()->Enumerate(Collect, &found);
    std::sort(found.objects.begin(), found.objects.end(),
              [](const HOSTINFO* a, const HOSTINFO* b) { return strcmp(a->m_szName, b->m_szName) < 0; });
    return found.objects;
}

std::string ModuleOf(const HOSTINFO* controller)
{
    return std::string(controller->m_szName) + "." + kConsoleModuleName;
}

}  // namespace

bool ReadConsoleCount(HOSTINFO* controller, const std::string& name, int* count)
{
    const std::string variable = name + ".NrOfZEL4010";
    int value = 0;
    if (!ReadVariable(controller, variable.c_str(), &value, REQTYPE_INT))
        return false;
    *count = value;
    return true;
}

bool ReadFreeAddresses(HOSTINFO* controller, uint32_t* freeAddresses)
{
    int value = 0;
    if (!ReadVariable(controller, "ZEL4000.FreeAddresses", &value, REQTYPE_INT))
        return false;
    *freeAddresses = (uint32_t)value;
    return true;
}

std::vector<HOSTINFO*> FindControllers(HOSTINFO* root)
{
    std::vector<HOSTINFO*> controllers;
    const std::vector<HOSTINFO*> objects = DesignObjects(root);
    for (const char family : {'A', 'B'})
        for (HOSTINFO* obj : objects)
            if (IsControllerName(obj->m_szName) && FamilyOf(obj->m_szName) == family)
                controllers.push_back(obj);
    return controllers;
}

std::vector<CONSOLETARGET> FindConsoleTargets(HOSTINFO* root)
{
    std::vector<CONSOLETARGET> targets;
    const std::vector<HOSTINFO*> objects = DesignObjects(root);
    for (const char* family : {"ORNCON", "ELKCON"}) {
        for (HOSTINFO* obj : objects) {
            if (!a_IsClass(obj, family) || !IsControllerName(obj->m_szName) ||
                !a_FindHostinfo(ModuleOf(obj).c_str()))
                continue;
            CONSOLETARGET target;
            target.controller = obj;
            target.name = obj->m_szName;
            target.module = kConsoleModuleName;
            ReadConsoleCount(obj, target.name, &target.consoles);
            ReadFreeAddresses(obj, &target.freeAddresses);
            targets.push_back(target);
        }
    }
    return targets;
}

std::vector<std::string> ReadZones(const std::string& connection)
{
    std::vector<std::string> zones;
    HOSTINFO* module = a_FindHostinfo(connection.c_str());
    if (!module)
        return zones;
    STRINGLIST list = {nullptr};
    REQUEST read = {REQ_READ, 0, REQTYPE_TEXTLIST, REQMODE_EDIT, &list, "Matrix.Zones", nullptr};
    if (module->OnMessage(0, (LPARAM)&read))
        for (const STRINGITEM* item = list.first; item; item = item->next)
            if (item->text)
                zones.push_back(item->text);
    a_EmptyStringList(&list);
    return zones;
}

std::vector<HOSTINFO*> ConsolesOf(HOSTINFO* root, const std::string& connection)
{
    std::vector<CONSOLEPROPERTIES*> consoles;
    for (HOSTINFO* obj : DesignObjects(root)) {
        CONSOLEPROPERTIES* console = AsConsole(obj);
        const STRINGITEM* first = console ? console->m_connections.first : nullptr;
        if (console && first && first->text && connection == first->text)
            consoles.push_back(console);
    }
    std::stable_sort(consoles.begin(), consoles.end(), [](const CONSOLEPROPERTIES* a, const CONSOLEPROPERTIES* b) {
        return a->m_settings.address < b->m_settings.address;
    });
    return std::vector<HOSTINFO*>(consoles.begin(), consoles.end());
}
