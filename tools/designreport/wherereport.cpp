#include "keyrows.h"
#include "reports.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

bool NamesDestination(const std::string& destination, const std::string& name)
{
    if (destination.empty())
        return false;
    std::string controller, local;
    SplitDestination(destination, &controller, &local);
    return destination == name || local == name;
}

bool NamesMessage(const std::string& entry, const std::string& name)
{
    return entry == name || entry.substr(0, entry.rfind('|')) == name;
}

bool Addresses(const KEYROW& row, const std::string& name)
{
    if (DestinationKind(row.key.functionId) != DEST_NONE && NamesDestination(row.key.text1, name))
        return true;
    std::vector<std::string> messages;
    CarriesMessage(row.key, &messages);
    for (const std::string& message : messages)
        if (NamesMessage(message, name))
            return true;
    return false;
}

}  // namespace

size_t WriteWhere(const DESIGNMODEL& model, const std::string& name, TEXTSINK* out)
{
    size_t found = 0;
    for (const CONSOLEDESIGN& console : model.consoles) {
        for (const KEYROW& row : KeyRows(console)) {
            if (!Addresses(row, name))
                continue;
            found++;
            std::string what = row.destination;
            if (!row.message.empty())
                what += (what.empty() ? "" : ", ") + row.message;
            out->Buffer() += FormatString("%s(%d): %s: %s (\"%s\"): %s: %s\n", model.fileName.c_str(), row.line,
                                          console.name.c_str(), KeyKeyword(row).c_str(), row.caption.c_str(),
                                          row.function.c_str(), what.c_str());
        }
        out->Spill();
    }
    return found;
}
