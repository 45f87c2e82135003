#include "keyplan.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "planfields.h"
#include "../designreport/consolefacts.h"
#include "../../plugin/console/keygeometry.h"
#include "../../plugin/keyeditor/droprules.h"
#include "../../plugin/keys/keycatalogue.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

const char kEmptyRecord[] = "Empty";

struct KEYNAME {
    bool numeric = false;
    int slot = -1;
};

// The keys by the names the design report gives them, and by their ids.
class KEYNAMES {
public:
    KEYNAMES()
    {
        for (int slot = 0; slot < REPORT_KEY_SLOTS; slot++)
            m_captions.emplace(Lower(KeyCaption(slot)), KEYNAME{false, slot});
        for (int slot = 0; slot < REPORT_NUMERIC_KEYS; slot++)
            m_captions.emplace(Lower(NumericKeyCaption(slot)), KEYNAME{true, slot});
    }

    // "DEL", "Ext 2 / key 7", "Special 1 (alarm button)": the role the
    // report adds to a special key is not part of its name.
    KEYNAME ByCaption(const std::string& text) const
    {
        std::string name = Lower(TrimBlanks(text));
        const size_t role = name.find(" (");
        if (role != std::string::npos && name.compare(0, 8, "special ") == 0 && name.back() == ')')
            name.resize(role);
        auto found = m_captions.find(name);
        return found == m_captions.end() ? KEYNAME() : found->second;
    }

    // "5", "key005" or "NumericKey5".
    static KEYNAME ById(const std::string& text)
    {
        const std::string id = TrimBlanks(text);
        KEYNAME name;
        int number = -1;
        const std::string lower = Lower(id);
        if (lower.compare(0, 10, "numerickey") == 0) {
            name.numeric = true;
            if (!ParseInt(id.c_str() + 10, &number) || number < 0 || number >= REPORT_NUMERIC_KEYS)
                number = -1;
        } else if (lower.compare(0, 3, "key") == 0) {
            if (!ParseInt(id.c_str() + 3, &number) || number < 0 || number >= REPORT_KEY_SLOTS)
                number = -1;
        } else if (!ParseInt(id.c_str(), &number) || number < 0 || number >= REPORT_KEY_SLOTS) {
            number = -1;
        }
        name.slot = number;
        return name;
    }

private:
    static std::string Lower(std::string text)
    {
        for (char& c : text)
            if (c >= 'A' && c <= 'Z')
                c = (char)(c - 'A' + 'a');
        return text;
    }
    std::map<std::string, KEYNAME> m_captions;
};

// A row made into a key, before the rules that look at the whole plan.
struct PLANNEDKEY {
    KEYCHANGE change;
    KEYSLOT key;
    bool functionChanged = false;
};

struct PLANREADER {
    const DESIGNMODEL& design;
    KEYPLAN* plan;
    const KEYNAMES names;
    int columns[COLUMN_COUNT];
    size_t headerCells = 0;
    std::map<std::string, size_t> displayNames;  // a console's "name"; ambiguous ones are left out
    std::map<std::string, bool> ambiguous;
    std::map<std::tuple<size_t, bool, int>, int> planned;  // a key to the line that plans it
    std::vector<PLANNEDKEY> keys;

    PLANREADER(const DESIGNMODEL& model, KEYPLAN* result) : design(model), plan(result)
    {
        for (size_t i = 0; i < design.consoles.size(); i++) {
            const std::string name = FactsOf(design, design.consoles[i]).displayName;
            if (displayNames.count(name))
                ambiguous[name] = true;
            displayNames[name] = i;
        }
    }

    void Error(int line, const std::string& text) { plan->errors.push_back(PLANERROR{line, text}); }

    bool Header(const PLANROW& row)
    {
        std::fill(columns, columns + COLUMN_COUNT, -1);
        headerCells = row.cells.size();
        for (size_t i = 0; i < row.cells.size(); i++) {
            const int column = PlanColumn(row.cells[i]);
            if (column < 0)
                continue;  // a column of the spreadsheet's own
            if (columns[column] >= 0)
                Error(row.line, FormatString("the column \"%s\" is there twice", PlanColumnName((PLANCOLUMN)column)));
            columns[column] = (int)i;
        }
        bool usable = true;
        if (columns[COLUMN_CONSOLE] < 0 && columns[COLUMN_CONSOLE_NAME] < 0) {
            Error(row.line, "the header names no \"Console\" column");
            usable = false;
        }
        if (columns[COLUMN_KEY] < 0 && columns[COLUMN_ID] < 0) {
            Error(row.line, "the header names neither a \"Key\" nor an \"Id\" column");
            usable = false;
        }
        return usable;
    }

    const std::string* Cell(const PLANROW& row, PLANCOLUMN column) const
    {
        const int at = columns[column];
        return at >= 0 && (size_t)at < row.cells.size() ? &row.cells[at] : nullptr;
    }

    std::string CellText(const PLANROW& row, PLANCOLUMN column) const
    {
        const std::string* cell = Cell(row, column);
        return cell ? TrimBlanks(*cell) : std::string();
    }

    // The console a row names: by its object name, or else by its "name".
    bool FindConsole(const PLANROW& row, size_t* index)
    {
        const std::string object = CellText(row, COLUMN_CONSOLE);
        if (!object.empty()) {
            auto found = design.consoleIndex.find(object);
            if (found == design.consoleIndex.end()) {
                Error(row.line, "unknown console \"" + object + "\"");
                return false;
            }
            *index = found->second;
            return true;
        }
        const std::string name = CellText(row, COLUMN_CONSOLE_NAME);
        if (name.empty()) {
            Error(row.line, "the row names no console");
            return false;
        }
        auto found = displayNames.find(name);
        if (found == displayNames.end() || ambiguous.count(name)) {
            Error(row.line, found == displayNames.end() ? "unknown console \"" + name + "\""
                                                        : "more than one console is called \"" + name + "\"");
            return false;
        }
        *index = found->second;
        return true;
    }

    bool FindKey(const PLANROW& row, KEYNAME* key)
    {
        const std::string caption = CellText(row, COLUMN_KEY);
        const std::string id = CellText(row, COLUMN_ID);
        KEYNAME byCaption, byId;
        // The key column takes the key's id too.
        if (!caption.empty() && (byCaption = names.ByCaption(caption)).slot < 0)
            byCaption = KEYNAMES::ById(caption);
        if (!caption.empty() && byCaption.slot < 0) {
            Error(row.line, "unknown key \"" + caption + "\"");
            return false;
        }
        if (!id.empty() && (byId = KEYNAMES::ById(id)).slot < 0) {
            Error(row.line, "unknown key id \"" + id + "\"");
            return false;
        }
        if (caption.empty() && id.empty()) {
            Error(row.line, "the row names no key");
            return false;
        }
        if (!caption.empty() && !id.empty() && (byCaption.numeric != byId.numeric || byCaption.slot != byId.slot)) {
            Error(row.line, "the key \"" + caption + "\" does not have the id " + id);
            return false;
        }
        *key = caption.empty() ? byId : byCaption;
        return true;
    }

    void Row(const PLANROW& row)
    {
        plan->rows++;
        for (size_t i = headerCells; i < row.cells.size(); i++) {
            if (!row.cells[i].empty()) {
                Error(row.line, "the row has more fields than the header");
                return;
            }
        }
        size_t index = 0;
        KEYNAME name;
        const bool consoleFound = FindConsole(row, &index);
        if (!FindKey(row, &name) || !consoleFound)
            return;
        const CONSOLEDESIGN& console = design.consoles[index];
        const std::string controller = CellText(row, COLUMN_CONTROLLER);
        if (!controller.empty() && controller != console.Controller())
            Error(row.line, console.name + ": connected to " +
                                (console.Controller().empty() ? std::string("no controller") : console.Controller()) +
                                ", not to " + controller);
        auto placed = planned.emplace(std::make_tuple(index, name.numeric, name.slot), row.line);
        const std::string caption = name.numeric ? NumericKeyCaption(name.slot) : KeyCaption(name.slot);
        if (!placed.second) {
            Error(row.line, FormatString("%s, \"%s\": the key is planned on line %d already", console.name.c_str(),
                                         caption.c_str(), placed.first->second));
            return;
        }
        Key(row, index, name, caption);
    }

    void Key(const PLANROW& row, size_t index, const KEYNAME& name, const std::string& caption)
    {
        const CONSOLEDESIGN& console = design.consoles[index];
        const std::vector<KEYLINE>& lines = name.numeric ? console.numericKeyRecords : console.keys;
        auto at = std::lower_bound(lines.begin(), lines.end(), name.slot,
                                   [](const KEYLINE& line, int wanted) { return line.slot < wanted; });
        KEYLINE line;
        line.slot = name.slot;
        line.record.text = kEmptyRecord;
        if (at != lines.end() && at->slot == name.slot)
            line = *at;
        const KEYROW current = MakeKeyRow(console, line, name.numeric);

        KEYCONTEXT context;
        context.design = &design;
        context.console = &console;
        context.controller = design.FindController(console.Controller());
        KEYREQUEST request;
        for (int column = 0; column < COLUMN_COUNT; column++)
            request.cells[column] = Cell(row, (PLANCOLUMN)column);

        PLANNEDKEY planned;
        std::vector<std::string> errors;
        planned.functionChanged = BuildPlannedKey(context, current, request, &planned.key, &planned.change.newLabel,
                                                  &errors);
        KEYCHANGE& change = planned.change;
        change.console = index;
        change.consoleName = console.name;
        change.numeric = name.numeric;
        change.slot = name.slot;
        change.caption = caption;
        change.keyword = name.numeric ? FormatString("NumericKey%d", name.slot) : FormatString("key%03d", name.slot);
        change.oldRecord = line.record.text;
        change.oldLabel = current.label;
        change.line = row.line;
        const std::string oldForm = FormatKeyRecord(current.key);
        const std::string newForm = FormatKeyRecord(planned.key);
        change.recordChanged = errors.empty() && newForm != oldForm;
        change.newRecord = change.recordChanged ? newForm : change.oldRecord;
        change.labelChanged = change.newLabel != change.oldLabel;
        if (change.recordChanged) {
            CheckPlannedKey(context, planned.key, &errors);
            // A text that holds a comma where another text follows would not read back.
            KEYSLOT reread = EmptyKeySlot();
            ParseKeyRecord(newForm.c_str(), &reread);
            if (FormatKeyRecord(reread) != newForm)
                errors.push_back("the record \"" + newForm + "\" would not read back (a comma in a text?)");
        }
        for (const std::string& error : errors)
            Error(row.line, console.name + ", \"" + caption + "\": " + error);
        if (errors.empty() && (change.recordChanged || change.labelChanged))
            keys.push_back(std::move(planned));
    }

    // The drop rules, for every key that gets a new function: each judged
    // against the console as the whole plan leaves it.
    void Drops()
    {
        std::map<size_t, std::vector<int32_t>> functions;  // a console's functions after the plan
        for (const PLANNEDKEY& planned : keys) {
            if (planned.change.numeric || !planned.functionChanged || planned.key.functionId == KF_EMPTY)
                continue;
            const size_t index = planned.change.console;
            if (!functions.count(index))
                functions[index] = FunctionsAfter(index);
            const CONSOLEDESIGN& console = design.consoles[index];
            DROPCONSOLE drop;
            drop.consoleType = console.model;
            drop.extensionCount = console.extensions;
            drop.numericKeypad = console.numericKeys;
            for (int i = 0; i < 3; i++)
                drop.specialKeys[i] = (uint8_t)console.specialModes[i];
            const std::vector<int32_t>& after = functions[index];
            for (int slot = 0; slot < (int)after.size(); slot++) {
                if (slot == planned.change.slot)
                    continue;
                drop.protectKeys += after[slot] == KF_PROTECT;
                drop.indicatorKeys += after[slot] == KF_INDICATOR_TEST;
            }
            const DROPVERDICT verdict = JudgeDrop(drop, planned.change.slot, planned.key.functionId);
            if (verdict == DROP_ACCEPTED)
                continue;
            const char* warning = DropWarning(verdict);
            Error(planned.change.line,
                  FormatString("%s, \"%s\": the key does not take \"%s\"%s%s", console.name.c_str(),
                               planned.change.caption.c_str(), KeyFunctionName(planned.key.functionId),
                               warning ? ": " : "", warning ? warning : ""));
        }
    }

    // Slots 0-127, then the numeric keys when they are the keypad.
    std::vector<int32_t> FunctionsAfter(size_t index) const
    {
        const CONSOLEDESIGN& console = design.consoles[index];
        std::vector<int32_t> after(REPORT_KEY_SLOTS + (console.numericKeys ? REPORT_NUMERIC_KEYS : 0), KF_EMPTY);
        KEYSLOT key;
        for (const KEYLINE& line : console.keys) {
            ParseKeyRecord(line.record.text.c_str(), &key);
            after[line.slot] = key.functionId;
        }
        if (console.numericKeys) {
            for (const KEYLINE& line : console.numericKeyRecords) {
                ParseKeyRecord(line.record.text.c_str(), &key);
                after[REPORT_KEY_SLOTS + line.slot] = key.functionId;
            }
        }
        for (const PLANNEDKEY& planned : keys) {
            if (planned.change.console != index || (planned.change.numeric && !console.numericKeys))
                continue;
            after[(planned.change.numeric ? REPORT_KEY_SLOTS : 0) + planned.change.slot] = planned.key.functionId;
        }
        return after;
    }
};

}  // namespace

KEYPLAN ReadKeyPlan(const DESIGNMODEL& design, const std::string& planBytes)
{
    KEYPLAN plan;
    const PLANTABLE table = ReadPlanTable(planBytes, &plan.errors);
    PLANREADER reader(design, &plan);
    if (table.rows.empty()) {
        plan.errors.push_back(PLANERROR{1, "the plan has no header line"});
    } else if (!table.rows[0].broken && reader.Header(table.rows[0])) {
        for (size_t i = 1; i < table.rows.size(); i++)
            if (!table.rows[i].broken)
                reader.Row(table.rows[i]);
        reader.Drops();
    }
    std::stable_sort(plan.errors.begin(), plan.errors.end(),
                     [](const PLANERROR& a, const PLANERROR& b) { return a.line < b.line; });
    if (!plan.errors.empty())
        return plan;
    for (PLANNEDKEY& planned : reader.keys)
        plan.changes.push_back(std::move(planned.change));
    std::stable_sort(plan.changes.begin(), plan.changes.end(), [](const KEYCHANGE& a, const KEYCHANGE& b) {
        if (a.console != b.console)
            return a.console < b.console;
        if (a.numeric != b.numeric)
            return !a.numeric;
        return a.slot < b.slot;
    });
    return plan;
}
