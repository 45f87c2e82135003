#include "fonts.h"

#include "../../base/banned.h"

using namespace Gdiplus;

namespace {

// Faces that Windows keeps as raster fonts: GDI+ cannot draw them there, and
// where a system ships outline stand-ins under the same names (Wine), their
// glyphs are incomplete. Both get the fallback.
const wchar_t* const kRasterFaces[] = {L"Small Fonts", L"MS Sans Serif", L"System", L"Fixedsys"};

bool IsRasterFace(const wchar_t* name)
{
    for (const wchar_t* face : kRasterFaces)
        if (_wcsicmp(face, name) == 0)
            return true;
    return false;
}

std::unique_ptr<FontFamily> Family(const wchar_t* name)
{
    std::unique_ptr<FontFamily> family(new FontFamily(name));
    return family->GetLastStatus() == Ok ? std::move(family) : nullptr;
}

}  // namespace

std::unique_ptr<FontFamily> OutlineFontFamily(const wchar_t* name)
{
    if (!IsRasterFace(name))
        if (std::unique_ptr<FontFamily> family = Family(name))
            return family;
    // Tahoma is on every Windows since 2000 and comes with Wine.
    if (std::unique_ptr<FontFamily> family = Family(L"Tahoma"))
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
