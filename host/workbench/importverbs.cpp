// "import PLAN [check|show]": a key plan against the open design. It prints
// the difference (or the plan's errors, and fails) and applies it; "check"
// only prints; "show" opens the import window as File > Import key plan...
// does, and leaves it open ("shot import FILE" pictures it).
#include "workbench.h"

#include <stdio.h>

#include "importplan.h"

#include "../../base/banned.h"

namespace {

bool ImportVerb(WORKBENCH* bench, const SCRIPTCOMMAND& command)
{
    const char* path = command.text.c_str();
    if (command.typed == "show")
        return OpenImportWindow(bench->frame, bench->design, path) != NULL;
    KEYPLAN plan;
    std::string why;
    if (!ReadPlanForDesign(bench->design, path, &plan, &why)) {
        fprintf(stderr, "workbench: %s\n", why.c_str());
        return false;
    }
    if (!plan.errors.empty()) {
        fputs(FormatPlanErrors(PlanFileName(path), plan).c_str(), stdout);
        printf("%zu errors, nothing changed\n", plan.errors.size());
        return false;
    }
    fputs(FormatPlanDifference(plan).c_str(), stdout);
    if (command.typed != "check" && !ApplyPlanEdits(bench->design, plan)) {
        fprintf(stderr, "workbench: the design refused an edit of the plan\n");
        return false;
    }
    return true;
}

const VERBHANDLERROW kHandlers[] = {
    {SCRIPT_IMPORT, ImportVerb},
};

}  // namespace

const VERBHANDLERS kImportVerbs = HandlerTable(kHandlers);
