#include "labelfit.h"

#include "../../base/banned.h"

const double kCharacterAdvance = 0.55;
const char kCutMark[] = "\x85";

FITTEDTEXT FitText(const std::string& text, double width, double largest, double smallest)
{
    FITTEDTEXT fitted;
    fitted.text = text;
    fitted.fontSize = largest;
    if (text.empty() || width <= 0)
        return fitted;
    const double characters = (double)text.size();
    if (characters * kCharacterAdvance * largest > width) {
        const double size = width / (characters * kCharacterAdvance);
        fitted.fontSize = size < smallest ? smallest : size;
    }
    const double advance = kCharacterAdvance * fitted.fontSize;
    if (characters * advance > width) {
        // Keep what fits beside the mark.
        size_t keep = (size_t)(width / advance);
        keep = keep > 1 ? keep - 1 : 0;
        fitted.text = text.substr(0, keep) + kCutMark;
        fitted.cut = true;
    }
    fitted.squeezed = (double)fitted.text.size() * advance > 0.9 * width;
    return fitted;
}
