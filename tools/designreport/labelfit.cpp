#include "labelfit.h"

#include "../../base/banned.h"

namespace {

// Advances of the printable ASCII characters, space to tilde, in thousandths
// of the font size (Helvetica, which Arial and Liberation Sans match).
const short kAdvances[95] = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,  // space to /
    556, 556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,  // 0 to ?
    1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778, // @ to O
    667, 778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,  // P to _
    333, 556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,  // ` to o
    556, 556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584,       // p to ~
};
// Letters beyond ASCII: as wide as the widest common capitals, so no estimate falls short.
const short kOtherAdvance = 778;

}  // namespace

const char kCutMark[] = "\x85";

double TextWidth(const std::string& text, double fontSize)
{
    long total = 0;
    for (unsigned char c : text)
        total += c >= 32 && c < 127 ? kAdvances[c - 32] : c == 0x85 ? 1000 : kOtherAdvance;
    return total * fontSize / 1000.0;
}

FITTEDTEXT FitText(const std::string& text, double width, double largest, double smallest)
{
    FITTEDTEXT fitted;
    fitted.text = text;
    fitted.fontSize = largest;
    if (text.empty() || width <= 0)
        return fitted;
    const double natural = TextWidth(text, largest);
    if (natural > width) {
        const double size = largest * width / natural;
        fitted.fontSize = size < smallest ? smallest : size;
    }
    // A shrunk text is as wide as the box, give or take the last bit.
    const double room = width * (1 + 1e-9);
    if (TextWidth(text, fitted.fontSize) > room) {
        // Keep what fits beside the mark.
        size_t keep = text.size();
        while (keep > 0 && TextWidth(text.substr(0, keep) + kCutMark, fitted.fontSize) > room)
            keep--;
        fitted.text = text.substr(0, keep) + kCutMark;
        fitted.cut = true;
    }
    return fitted;
}
