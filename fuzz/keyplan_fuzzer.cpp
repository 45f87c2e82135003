// Feeds arbitrary bytes to the key-plan reader as a spreadsheet's CSV,
// against a design with two controllers and consoles of several models:
// nothing may crash, a plan with an error changes nothing, every error has a
// line of the plan, and a plan without one is applied.
#include <stdint.h>
#include <stdlib.h>

#include <algorithm>
#include <string>

#include "../tools/keyplan/keyplan.h"
#include "../base/trace.h"

void Trace(const char*, ...) {}

namespace {

const char kDesign[] =
    "projectversion=V 3.9.0\r\n"
    "control=0x00000000 ORNCON \"ORNCON_1\" 0x54000000 40,150,150x40\r\n"
    "ORNCON_1*zones=Hall,Lobby\r\n"
    "ORNCON_1*groups=Upstairs\r\n"
    "ORNCON_1*messages=Evacuate now|3,Gong|7\r\n"
    "ORNCON_1*inputs=Mic 1\r\n"
    "ORNCON_1*logic=Lights\r\n"
    "control=0x00000000 ELKCON \"ELKCON_1\" 0x54000000 240,150,150x40\r\n"
    "control=0x00000000 DOVRIXC \"ORNCST_1\" 0x56000000 40,40,74x57\r\n"
    "ORNCST_1*ExtensionCount=2\r\n"
    "ORNCST_1*key000=Select Zone,0,ORNCON_1.Hall\r\n"
    "ORNCST_1*key119=Talk to Selection,0,1,0,50,0,0,1,0,0,0,0,0,0,0,0,,1-Tone,\r\n"
    "ORNCST_1*keylabel000=Hall\r\n"
    "ORNCST_1*connection=ORNCON_1.DOVRIXCSTModule\r\n"
    "Site*control=0x00000000 DOVRIXC \"ELKCST_2\" 0x56000000 240,40,74x57\r\n"
    "Site*ELKCST_2*type=3\r\n"
    "Site*ELKCST_2*DecadicSelectionActive=1\r\n"
    "Site*ELKCST_2*key0120OptionState=2\r\n"
    "Site*ELKCST_2*connection=ELKCON_1.DOVRIXCSTModule\r\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const DESIGNMODEL design = ReadDesignText(kDesign, "fuzz.ds");
    const std::string csv(reinterpret_cast<const char*>(data), size);
    const KEYPLAN plan = ReadKeyPlan(design, csv);
    const int lines = 1 + (int)std::count(csv.begin(), csv.end(), '\n') + (int)std::count(csv.begin(), csv.end(), '\r');
    for (const PLANERROR& error : plan.errors)
        if (error.line < 1 || error.line > lines)
            abort();
    if (!plan.errors.empty() && !plan.changes.empty())
        abort();
    FormatPlanErrors("fuzz.csv", plan);
    FormatPlanDifference(plan);
    const std::string applied = ApplyKeyPlan(kDesign, plan);
    if (plan.changes.empty() && applied != kDesign)
        abort();
    return 0;
}
