#include "consolesettings.h"

#include <string.h>

#include "../../base/banned.h"

namespace {
const char* const kModelTexts[MODEL_COUNT] = {"ZEL4010", "ZEL4020", "", "ELK-CSK", "ORN-15CST", "ELK-15CST", "ORN-CSK"};
}

const char* ModelText(int model)
{
    return model >= 0 && model < MODEL_COUNT ? kModelTexts[model] : "";
}

int ModelFromText(const char* text)
{
    if (!text || !text[0])
        return -1;
    for (int model = 0; model < MODEL_COUNT; model++)
        if (strcmp(kModelTexts[model], text) == 0)
            return model;
    // Older designs name the family-A keypad by its board.
    if (strcmp(text, "ORN-15CSK") == 0)
        return MODEL_ORN_CSK;
    return -1;
}
