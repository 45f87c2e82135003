#include <string.h>

#include "keyrows.h"
#include "reports.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// "CONTROLLER.NAME" names NAME and "CONTROLLER.NAME" alike.
bool NamesDestination(const char* destination, const std::string& name)
{
    if (!destination[0])
        return false;
    if (name == destination)
        return true;
    const char* const point = strchr(destination, '.');
    return point && name == point + 1;
}

// "NAME|NUMBER" names NAME and "NAME|NUMBER" alike.
bool NamesMessage(const char* entry, const std::string& name)
{
    if (name == entry)
        return true;
    const char* const bar = strrchr(entry, '|');
    return bar && name.compare(0, std::string::npos, entry, (size_t)(bar - entry)) == 0;
}

bool Addresses(const KEYSLOT& key, const std::string& name)
{
    if (DestinationKind(key.functionId) != DEST_NONE && NamesDestination(key.text1, name))
        return true;
    const char* messages[2];
    const int count = KeyMessages(key, messages);
    for (int i = 0; i < count; i++)
        if (NamesMessage(messages[i], name))
            return true;
    return false;
}

}  // namespace

size_t WriteWhere(const DESIGNMODEL& model, const std::string& name, TEXTSINK* out)
{
    size_t found = 0;
    for (const CONSOLEDESIGN& console : model.consoles) {
        // Most keys address something else: their records are read, and
        // only the keys found are described.
        ForEachKeyLine(console, [&](const KEYLINE& line, bool numeric) {
            KEYROW row = KeyOfRow(line, numeric);
            if (!Addresses(row.key, name))
                return;
            DescribeKeyRow(console, line, &row);
            found++;
            std::string what = row.destination;
            if (!row.message.empty())
                what += (what.empty() ? "" : ", ") + row.message;
            // FILE(LINE): CONSOLE: KEYWORD ("CAPTION"): FUNCTION: WHAT, each text up to a NUL as printf takes it
            std::string& text = out->Buffer();
            text += model.fileName.c_str();
            text += '(';
            AppendInteger(&text, row.line);
            text += "): ";
            text += console.name.c_str();
            text += ": ";
            text += KeyKeyword(row).c_str();
            text += " (\"";
            text += row.caption.c_str();
            text += "\"): ";
            text += row.function.c_str();
            text += ": ";
            text += what.c_str();
            text += '\n';
        });
        out->Spill();
    }
    return found;
}
