#include "fonts.h"

#include "../../base/banned.h"

using namespace Gdiplus;

std::unique_ptr<FontFamily> OutlineFontFamily(const wchar_t* name)
{
    std::unique_ptr<FontFamily> family(new FontFamily(name));
    if (family->GetLastStatus() == Ok)
        return family;
    const FontFamily* generic = FontFamily::GenericSansSerif();
    if (generic && generic->GetLastStatus() == Ok)
        return std::unique_ptr<FontFamily>(generic->Clone());
    InstalledFontCollection installed;
    FontFamily first;
    int found = 0;
    if (installed.GetFamilyCount() > 0 && installed.GetFamilies(1, &first, &found) == Ok && found == 1)
        return std::unique_ptr<FontFamily>(first.Clone());
    return nullptr;
}
