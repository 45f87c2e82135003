#include "consolebatch.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const int kHighestAddress = 16;
const int kColumnLength = 10;   // consoles per column on the design surface
const int kColumnWidth = 150;
const int kRowHeight = 59;
const int kTopMargin = 20;
const int kKeypadKeys = 15;     // keys 0 to 14
const int kKeysPerExtension = 20;
const int kExtensionSlots = 5;

// Every new console gets the same five keys (the special keys, "Stop" and PTT).
const char* const kFixedKeys[] = {
    "key117=On,40,0",
    "key116=Menu,0",
    "key118=Stop,0,0,0,91,91,",
    "key115=Toggle All,0",
    "key119=Talk to Selection,0,0,0,50,0,0,1,",
};

bool IsFree(uint32_t freeAddresses, int address)
{
    // Bit 0 stands for no address, whatever the map says.
    return address >= 1 && address <= kHighestAddress && (freeAddresses >> address) & 1u;
}

void AppendConsole(std::string* text, const CONSOLEBATCH& batch, const char* prefix, int i, int address)
{
    const std::string name = FormatString("%s_%d", prefix, address);
    const char* object = name.c_str();
    *text += FormatString("control=0 %s \"%s\" 0x54000000 %d,%d,20x20\n", "DOVRIXC", object,
                          (i / kColumnLength) * kColumnWidth, (i % kColumnLength) * kRowHeight + kTopMargin);
    *text += FormatString("%s*type=%s\n", object, batch.type.c_str());
    *text += FormatString("%s*address=%d\n", object, address);
    *text += FormatString("%s*connection=%s\n", object, batch.connection.c_str());
    for (const char* key : kFixedKeys)
        *text += FormatString("%s*%s\n", object, key);
    *text += FormatString("%s*BgmMenuActive=0\n", object);
    *text += FormatString("%s*ShowLineMonitoring=0\n", object);
    const int extensions = IsKeypadType(batch.type) ? 0 : batch.extensions;
    if (extensions != 0) {
        *text += FormatString("%s*ExtensionCount=%d", object, extensions);
        *text += FormatString("%s*extensionTypes=", object);
        for (int slot = 0; slot < kExtensionSlots; slot++)
            *text += FormatString("%d,", slot < extensions ? 1 : 0);
        *text += "\n";
    }
    const int limit = extensions * kKeysPerExtension + kKeypadKeys;
    int key = 0;
    for (const std::string& zone : batch.zones) {
        if (key >= limit)
            break;
        *text += FormatString("%s*key%3.3d=Select Zone,0,%s.%s\n", object, key, batch.controller.c_str(), zone.c_str());
        key++;
    }
}

}  // namespace

const char* ConsolePrefix(const std::string& type)
{
    if (type == "ORN-15CST" || type == "ORN-CSK")
        return "ORNCST";
    if (type == "ELK-15CST" || type == "ELK-CSK")
        return "ELKCST";
    return nullptr;
}

bool IsKeypadType(const std::string& type)
{
    return type == "ORN-CSK" || type == "ELK-CSK";
}

int NextConsoleAddress(int address, uint32_t freeAddresses)
{
    int next = address + 1;
    if (next > kHighestAddress)
        next = 0;
    while (next <= kHighestAddress && !IsFree(freeAddresses, next))
        next++;
    return next;
}

int ConsoleCapacity(uint32_t freeAddresses, int start)
{
    int count = 0;
    for (int address = start < 1 ? 1 : start; address <= kHighestAddress; address++)
        count += IsFree(freeAddresses, address) ? 1 : 0;
    return count;
}

std::string GenerateConsoles(const CONSOLEBATCH& batch)
{
    const char* prefix = ConsolePrefix(batch.type);
    std::string text;
    if (!prefix)
        return text;
    // The batch's own copy of the map: an address given away is no longer free,
    // so the search that restarts low never gives it twice.
    uint32_t freeAddresses = batch.freeAddresses;
    int address = batch.start;
    for (int i = 0; i < batch.count; i++) {
        if (address < 1 || address > kHighestAddress)
            break;
        AppendConsole(&text, batch, prefix, i, address);
        freeAddresses &= ~(1u << address);
        address = NextConsoleAddress(address, freeAddresses);
    }
    return text;
}
