// The picture of a console and its extensions as SVG, drawn from the key
// geometry the console view uses: keys, label boxes with their labels, the
// alarm and EVAC keys marked. Platform-free.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "designmodel.h"
#include "keyrows.h"
#include "../../plugin/console/keygeometry.h"

// The key geometry of the console types a page draws, made once for each
// type and extension slot rather than once for each console.
class PICTUREGEOMETRY {
public:
    struct TYPEGEOMETRY {
        std::vector<CONSOLEKEY> keys;
        std::vector<CONSOLEKEYLABEL> labels;
        std::vector<CONSOLEKEY> extensionKeys[EXTENSION_SLOT_COUNT];  // slot N drawn at position N
        std::vector<CONSOLEKEYLABEL> extensionLabels[EXTENSION_SLOT_COUNT];
    };
    const TYPEGEOMETRY& Of(int type);

private:
    std::map<int, TYPEGEOMETRY> m_types;
};

void AppendConsolePicture(const CONSOLEDESIGN& console, const std::vector<KEYROW>& rows, std::string* out);
void AppendConsolePicture(const CONSOLEDESIGN& console, const std::vector<KEYROW>& rows, PICTUREGEOMETRY* geometry,
                          std::string* out);
