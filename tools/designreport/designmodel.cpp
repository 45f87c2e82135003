#include "designmodel.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>

#include "../../host/analyze/designtext.h"
#include "../../plugin/device/canvastext.h"
#include "../../plugin/device/consolesettings.h"
#include "../../plugin/device/designlines.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char* const kOfferKeywords[OFFER_COUNT] = {"zones", "groups", "messages", "inputs", "logic"};

const char* const kProblemTexts[PROBLEMKIND_COUNT] = {
    "line",
    "unknown destination",
    "unknown message",
    "unknown input",
    "unknown logic variable",
    "hidden key",
    "second Protect key",
    "second Indicator Test key",
    "no destination",
    "address taken",
    "no connection",
    "label too long",
    "unknown function",
};

const char kConsoleClass[] = "DOVRIXC";

bool IsControllerClass(const std::string& name)
{
    return name == "ORNCON" || name == "ELKCON";
}

LINEVALUE Kept(const std::string& value, size_t length, int line)
{
    LINEVALUE kept;
    kept.text = value.size() > REPORT_KEPT_TEXT ? value.substr(0, REPORT_KEPT_TEXT) : value;
    kept.length = length;
    kept.line = line;
    return kept;
}

// The same taking the value over.
LINEVALUE Kept(std::string&& value, size_t length, int line)
{
    LINEVALUE kept;
    if (value.size() > REPORT_KEPT_TEXT)
        kept.text = value.substr(0, REPORT_KEPT_TEXT);
    else
        kept.text = std::move(value);
    kept.length = length;
    kept.line = line;
    return kept;
}

// "PREFIX" followed by exactly `digits` decimal digits; -1 otherwise.
int NumberAfter(const std::string& keyword, const char* prefix, size_t digitsMin, size_t digitsMax)
{
    const size_t length = strlen(prefix);
    if (keyword.size() < length + digitsMin || keyword.size() > length + digitsMax ||
        keyword.compare(0, length, prefix) != 0)
        return -1;
    int number = 0;
    for (size_t i = length; i < keyword.size(); i++) {
        if (keyword[i] < '0' || keyword[i] > '9')
            return -1;
        number = number * 10 + (keyword[i] - '0');
    }
    return number;
}

// Keeps a slot's value in slot order; an empty value drops the slot.
void StoreSlot(std::vector<KEYLINE>* slots, int slot, LINEVALUE value, bool keep)
{
    if (keep && (slots->empty() || slots->back().slot < slot)) {
        // A saved design lists the slots in order: each goes last.
        slots->emplace_back();
        slots->back().slot = slot;
        slots->back().record = std::move(value);
        return;
    }
    auto at = std::lower_bound(slots->begin(), slots->end(), slot,
                               [](const KEYLINE& line, int wanted) { return line.slot < wanted; });
    const bool found = at != slots->end() && at->slot == slot;
    if (!keep) {
        if (found)
            slots->erase(at);
        return;
    }
    if (found) {
        at->record = std::move(value);
        return;
    }
    KEYLINE line;
    line.slot = slot;
    line.record = std::move(value);
    slots->insert(at, std::move(line));
}

bool IsEmptyRecord(const std::string& record)
{
    return record.empty() || record == "Empty";
}

std::vector<std::string> SplitList(const std::string& text)
{
    std::vector<std::string> names;
    size_t start = 0;
    while (start <= text.size()) {
        size_t comma = text.find(',', start);
        if (comma == std::string::npos)
            comma = text.size();
        if (comma > start)
            names.push_back(text.substr(start, comma - start));
        start = comma + 1;
    }
    return names;
}

}  // namespace

const char* OfferKeyword(OFFERKIND kind)
{
    return kind >= 0 && kind < OFFER_COUNT ? kOfferKeywords[kind] : "";
}

bool OFFERLIST::Has(const std::string& name) const
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

const char* ProblemKindText(PROBLEMKIND kind)
{
    return kind >= 0 && kind < PROBLEMKIND_COUNT ? kProblemTexts[kind] : "";
}

void PROBLEMLIST::Add(int line, PROBLEMKIND kind, const std::string& object, const std::string& text)
{
    if (items.size() >= REPORT_PROBLEM_LIMIT) {
        dropped++;
        return;
    }
    items.push_back(PROBLEM{line, kind, object, text});
}

std::string CONSOLEDESIGN::Controller() const
{
    if (!hasConnection)
        return std::string();
    return SplitConnection(connection.text.c_str()).controller;
}

const KEYLINE* CONSOLEDESIGN::Label(int slot) const
{
    auto at = std::lower_bound(labels.begin(), labels.end(), slot,
                               [](const KEYLINE& line, int wanted) { return line.slot < wanted; });
    return at != labels.end() && at->slot == slot ? &*at : nullptr;
}

const CONTROLLERDESIGN* DESIGNMODEL::FindController(const std::string& name) const
{
    auto found = controllerIndex.find(name);
    return found == controllerIndex.end() ? nullptr : &controllers[found->second];
}

void DESIGNREADER::LongLine(size_t length)
{
    m_model->lines++;
    m_model->lineProblems.Add(m_model->lines, PROBLEM_LINE, std::string(),
                              FormatString("Line too long (%zu characters), not read", length));
}

void DESIGNREADER::Line(const char* text, size_t length)
{
    const int number = ++m_model->lines;
    DESIGNLINE line = SplitDesignLine(text, length);
    switch (line.kind) {
    case DESIGNLINE_EMPTY:
    case DESIGNLINE_HOST:
        return;
    case DESIGNLINE_CONTROL:
        ControlLine(line.object, line.value);
        return;
    case DESIGNLINE_OBJECT: {
        const size_t valueLength = line.value.size();
        ObjectLine(line.object, line.keyword, std::move(line.value), valueLength);
        return;
    }
    case DESIGNLINE_MALFORMED:
        break;
    }
    if (length > 0 && text[length - 1] == '\r')
        length--;
    const size_t shown = length > 80 ? 80 : length;
    m_model->lineProblems.Add(number, PROBLEM_LINE, std::string(),
                              "Malformed line: " + std::string(text, shown) + (shown < length ? "..." : ""));
}

void DESIGNREADER::ControlLine(const std::string& parent, const std::string& value)
{
    const int number = m_model->lines;
    CONTROLSPEC spec;
    std::string error;
    if (!ParseControlSpec(value, &spec, &error)) {
        m_model->lineProblems.Add(number, PROBLEM_LINE, std::string(), "Malformed control line, bad " + error);
        return;
    }
    const std::string name = parent + spec.name;
    std::string why;
    if (!IsWritableObjectName(parent, spec.name, &why)) {
        m_model->lineProblems.Add(number, PROBLEM_LINE, name, "Object name cannot be saved, it holds " + why);
        m_refused[name] = true;
        return;
    }
    if (m_model->consoleIndex.count(name) || m_model->controllerIndex.count(name) || m_others.count(name)) {
        m_model->lineProblems.Add(number, PROBLEM_LINE, name, "Object exists already");
        return;
    }
    // Adding an object may move the others in memory.
    m_lastConsole = nullptr;
    m_lastController = nullptr;
    if (spec.className == kConsoleClass) {
        CONSOLEDESIGN console;
        console.name = name;
        console.controlLine = number;
        console.model = ModelFromObjectName(name.c_str());
        m_model->consoleIndex[name] = m_model->consoles.size();
        m_model->consoles.push_back(std::move(console));
    } else if (IsControllerClass(spec.className)) {
        CONTROLLERDESIGN controller;
        controller.name = name;
        controller.className = spec.className;
        controller.controlLine = number;
        m_model->controllerIndex[name] = m_model->controllers.size();
        m_model->controllers.push_back(std::move(controller));
    } else {
        m_others[name] = true;  // nothing of it is shown, but its lines are its own
    }
}

void DESIGNREADER::ObjectLine(const std::string& object, const std::string& keyword, std::string&& value,
                              size_t valueLength)
{
    if ((m_lastConsole || m_lastController) && object == m_lastObject) {
        if (m_lastConsole)
            ConsoleLine(m_lastConsole, keyword, std::move(value), valueLength);
        else
            ControllerLine(m_lastController, keyword, value);
        return;
    }
    auto console = m_model->consoleIndex.find(object);
    if (console != m_model->consoleIndex.end()) {
        m_lastObject = object;
        m_lastConsole = &m_model->consoles[console->second];
        m_lastController = nullptr;
        ConsoleLine(m_lastConsole, keyword, std::move(value), valueLength);
        return;
    }
    auto controller = m_model->controllerIndex.find(object);
    if (controller != m_model->controllerIndex.end()) {
        m_lastObject = object;
        m_lastConsole = nullptr;
        m_lastController = &m_model->controllers[controller->second];
        ControllerLine(m_lastController, keyword, value);
        return;
    }
    if (m_refused.count(object))
        m_model->lineProblems.Add(m_model->lines, PROBLEM_LINE, object, "Line of a refused object");
    else if (!m_others.count(object))
        m_model->lineProblems.Add(m_model->lines, PROBLEM_LINE, object, "Unknown object");
}

void DESIGNREADER::ConsoleLine(CONSOLEDESIGN* console, const std::string& keyword, std::string&& value,
                               size_t valueLength)
{
    const int number = m_model->lines;
    int slot = NumberAfter(keyword, "key", 3, 3);
    if (slot >= 0 && slot < REPORT_KEY_SLOTS) {
        const bool keep = !IsEmptyRecord(value);
        StoreSlot(&console->keys, slot, Kept(std::move(value), valueLength, number), keep);
        return;
    }
    slot = NumberAfter(keyword, "keylabel", 3, 3);
    if (slot >= 0 && slot < REPORT_KEY_SLOTS) {
        const bool keep = !value.empty();
        StoreSlot(&console->labels, slot, Kept(std::move(value), valueLength, number), keep);
        return;
    }
    slot = NumberAfter(keyword, "NumericKey", 1, 2);
    if (slot >= 0 && slot < REPORT_NUMERIC_KEYS) {
        const bool keep = !IsEmptyRecord(value);
        StoreSlot(&console->numericKeyRecords, slot, Kept(std::move(value), valueLength, number), keep);
        return;
    }
    if (keyword.size() == 18 && keyword.compare(0, 4, "key0") == 0 && keyword.compare(7, 11, "OptionState") == 0) {
        slot = NumberAfter(keyword.substr(0, 7), "key0", 3, 3);
        int mode = 0;
        if (slot >= 120 && slot <= 122 && ParseInt(value.c_str(), &mode) && mode >= 0 && mode <= 2)
            console->specialModes[slot - 120] = mode;
        return;
    }
    if (keyword == "type") {
        int model = ModelFromText(value.c_str());
        if (model < 0 && !(ParseInt(value.c_str(), &model) && model >= 0 && model < MODEL_COUNT))
            return;  // the console keeps its type, as the plug-in does
        console->model = model;
        console->type = Kept(value, valueLength, number);
    } else if (keyword == "name") {
        console->displayName = Kept(value, valueLength, number);
    } else if (keyword == "address") {
        int address = 0;
        if (ScanLeadingInt(value.c_str(), &address)) {
            console->address = Kept(value, valueLength, number);
            console->addressNumber = address;
        }
    } else if (keyword == "connection") {
        console->connection = Kept(value, valueLength, number);
        console->hasConnection = true;
    } else if (keyword == "ExtensionCount") {
        int count = 0;
        if (ParseInt(value.c_str(), &count)) {
            console->extensionCount = Kept(value, valueLength, number);
            console->extensions = count < 0 ? 0 : count > 5 ? 5 : count;
        }
    } else if (keyword == "DecadicSelectionActive") {
        int on = 0;
        console->numericKeys = ParseInt(value.c_str(), &on) && on != 0;
    }
}

void DESIGNREADER::ControllerLine(CONTROLLERDESIGN* controller, const std::string& keyword, const std::string& value)
{
    for (int kind = 0; kind < OFFER_COUNT; kind++) {
        if (keyword == kOfferKeywords[kind]) {
            OFFERLIST& list = controller->offers[kind];
            list.present = true;
            list.line = m_model->lines;
            list.names = SplitList(value);
            return;
        }
    }
    if (keyword == "device") {
        // "CONSOLE word=value ...", "online=1" among the words when it was on.
        const size_t blank = value.find(' ');
        const std::string console = value.substr(0, blank);
        bool online = false;
        size_t at = blank;
        while (at != std::string::npos) {
            const size_t next = value.find(' ', at + 1);
            online = online || value.compare(at + 1, next == std::string::npos ? std::string::npos : next - at - 1,
                                             "online=1") == 0;
            at = next;
        }
        if (!console.empty())
            controller->onlineAtSave[console] = online;
    }
}

DESIGNMODEL ReadDesignText(const std::string& text, const std::string& fileName)
{
    DESIGNMODEL model;
    model.fileName = fileName;
    DESIGNREADER reader(&model);
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        if (end - start > REPORT_LINE_LIMIT)
            reader.LongLine(end - start);
        else
            reader.Line(text.data() + start, end - start);
        start = end + 1;
    }
    return model;
}

bool ReadDesignFile(const char* path, const std::string& fileName, DESIGNMODEL* model)
{
    model->fileName = fileName;
    FILE* file = fopen(path, "rb");
    if (!file)
        return false;
    DESIGNREADER reader(model);
    std::vector<char> chunk(1 << 16);
    std::string line;
    size_t longLength = 0;  // the length of a line being skipped, 0 otherwise
    size_t got;
    while ((got = fread(chunk.data(), 1, chunk.size(), file)) > 0) {
        const char* p = chunk.data();
        const char* end = p + got;
        while (p < end) {
            const char* newline = static_cast<const char*>(memchr(p, '\n', (size_t)(end - p)));
            const char* stop = newline ? newline : end;
            const size_t piece = (size_t)(stop - p);
            if (longLength > 0 || line.size() + piece > REPORT_LINE_LIMIT) {
                longLength += (longLength == 0 ? line.size() : 0) + piece;
                line.clear();
            } else {
                line.append(p, piece);
            }
            if (!newline)
                break;
            if (longLength > 0)
                reader.LongLine(longLength);
            else
                reader.Line(line.data(), line.size());
            line.clear();
            longLength = 0;
            p = newline + 1;
        }
    }
    const bool ok = !ferror(file);
    fclose(file);
    if (longLength > 0)
        reader.LongLine(longLength);
    else if (!line.empty())
        reader.Line(line.data(), line.size());
    return ok;
}
