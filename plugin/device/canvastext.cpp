#include "canvastext.h"

#include <string.h>

#include "consolesettings.h"
#include "../resources/resource.h"

#include "../../base/text.h"
#include "../../base/banned.h"

void FormatCanvasTooltip(char* text, size_t size, const char* windowText, int address, int model, int keypads,
                         const char* displayName)
{
    char suffix[32] = "";
    if (keypads > 0 && model == MODEL_ORN_15CST)
        FormatText(suffix, sizeof suffix, ", %d ORN-20CSE", keypads);
    else if (keypads > 0 && model == MODEL_ELK_15CST)
        FormatText(suffix, sizeof suffix, ", %d ELK-20CSE", keypads);
    FormatText(text, size, "Objectname: \t%.64s\nAddress: \t%d (0x%02x)\nType: \t\t%s%s\nName: \t\t%.*s", windowText,
               address, address, ModelText(model), suffix, 4096, displayName);
}

int CanvasFaceImage(int model)
{
    if (model == MODEL_ELK_CSK || model == MODEL_ORN_CSK)
        return IDR_SMALLCONSOLE_KEYPAD;
    return model == MODEL_ORN_15CST ? IDR_SMALLCONSOLE_ORN : IDR_SMALLCONSOLE_ELK;
}

int ModelFromObjectName(const char* name)
{
    const char* underscore = strchr(name, '_');
    const size_t length = underscore ? (size_t)(underscore - name) : strlen(name);
    return length == 6 && strncmp(name, "ORNCST", 6) == 0 ? MODEL_ORN_15CST : MODEL_ELK_15CST;
}
